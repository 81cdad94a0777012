// tellux-cli export-models: the soundings' models for a map, as GeoJSON points and as CSV.
#include "cli.h"
#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"
#include "survey/model_export.h"

namespace tellux::cli {

namespace {

// Writes `content` through the safe writer; false, with the reason on standard error, on failure.
bool write_out(const std::string& path, const std::string& content) {
  try {
    rt::write_file_atomically(path, content);
    return true;
  } catch (const rt::RuntimeError& e) {
    Cli::complain("cannot write " + path + ": " + e.reason());
    return false;
  }
}

}  // namespace

Command export_models_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "export-models",
      "Write the soundings' models for a map: GeoJSON points at their X and Y, and CSV");
  struct Options {
    std::vector<std::string> files;
    std::string geojson, csv;
  };
  auto o = std::make_shared<Options>();
  app->add_option("FILE", o->files, "The sounding files")->required();
  app->add_option("--geojson", o->geojson,
                  "GeoJSON file: one point a sounding with its name, Z, azimuth, layers and RMS");
  app->add_option("--csv", o->csv, "CSV file: the same, one line a sounding");
  return {app, [o](Cli& cli) {
            std::vector<std::string> messages;
            std::vector<SoundingModel> models;
            int status = 0;
            for (const std::string& file : o->files) {
              if (auto model = read_sounding_model(cli.s, file, messages))
                models.push_back(std::move(*model));
              else
                status = 1;
            }
            const Json collection = models_geojson(models, cli.s.Language, messages);
            if (!o->geojson.empty() && !write_out(o->geojson, collection.dump(1) + "\n"))
              status = 1;
            if (!o->csv.empty() && !write_out(o->csv, models_csv(models))) status = 1;
            Json j;
            j["Files"] = Json::array();
            for (const SoundingModel& m : models) j["Files"].push_back(text(m.file));
            j["Features"] = collection["features"].size();
            j["Messages"] = Json::array();
            for (const std::string& m : messages) {
              j["Messages"].push_back(text(m));
              Cli::complain(m);
            }
            cli.print(j);
            return status;
          }};
}

}  // namespace tellux::cli
