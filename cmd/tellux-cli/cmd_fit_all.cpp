// tellux-cli fit-all: many soundings fitted at once over the cores, each written as `fit --out`
// writes it alone.
#include <filesystem>

#include "cli.h"
#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"
#include "survey/survey_fit.h"

namespace tellux::cli {

namespace fs = std::filesystem;

namespace {

Json sounding_json(const FittedSounding& f) {
  Json j;
  j["File"] = text(f.file);
  Json layers = Json::array();
  const int last = std::min<int>(f.s->LayerCount, 21);
  for (int r = 1; r <= last; ++r)
    layers.push_back({f.s->LayerModel(r, 1).num(), f.s->LayerModel(r, 2).num()});
  j["Layers"] = layers;
  j["FitMisfit"] = f.misfit;
  j["RMS"] = f.rms;
  return j;
}

}  // namespace

Command fit_all_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "fit-all",
      "Fit many soundings at once, spread over the cores; each is written to the output folder as "
      "`fit FILE --out DIR/NAME.TX3` writes it");
  struct Options {
    std::vector<std::string> files;
    std::string out_dir, summary;
    int jobs = 0;
    FitOptions fit;
  };
  auto o = std::make_shared<Options>();
  app->add_option("FILE", o->files, "The sounding files")->required();
  app->add_option("--out-dir", o->out_dir, "Folder the fitted soundings are written to")
      ->required();
  app->add_option("--jobs", o->jobs, "Soundings fitted at the same time (0: one a core)")
      ->check(CLI::Range(0, 256))
      ->capture_default_str();
  app->add_option("--summary", o->summary,
                  "Also write a CSV: file, X, Y, Z, layers, RMS, resistivity and thickness of "
                  "each layer");
  add_fit_options(app, o->fit);
  return {app, [o](Cli& cli) {
            std::error_code error;
            fs::create_directories(o->out_dir, error);
            if (error) {
              Cli::complain(o->out_dir + ": " + error.message());
              return 1;
            }
            // Each worker writes its own soundings as soon as they are fitted.
            const auto write = [&o](FittedSounding& f) {
              const std::string out = (fs::path(o->out_dir) / fitted_file_name(f.file)).string();
              f.failure = write_fitted(f, out);
              if (f.failure.empty()) f.written = fs::absolute(out).string();
              f.rms = rms_percent(*f.s);
            };
            std::vector<FittedSounding> fitted =
                fit_survey(cli.s, o->fit.choices(), o->files, o->jobs, nullptr, write);
            Json j;
            j["Files"] = Json::array();
            j["Soundings"] = Json::array();
            j["Messages"] = Json::array();
            int status = 0;
            for (FittedSounding& f : fitted) {
              for (const std::string& m : f.messages) {
                j["Messages"].push_back(text(f.file + ": " + m));
                Cli::complain(f.file + ": " + m);
              }
              if (!f.unreadable.empty()) Cli::complain(f.file + ": " + f.unreadable);
              if (f.errors > 0 || !f.unreadable.empty()) status = 1;
              if (!f.failure.empty()) {
                Cli::complain("cannot write " + f.failure);
                status = 1;
              }
              if (f.written.empty()) continue;
              j["Files"].push_back(text(f.written));
              j["Soundings"].push_back(sounding_json(f));
            }
            if (!o->summary.empty()) {
              try {
                rt::write_file_atomically(o->summary, survey_summary_csv(fitted));
              } catch (const rt::RuntimeError& e) {
                Cli::complain("cannot write " + o->summary + ": " + e.reason());
                status = 1;
              }
            }
            cli.print(j);
            return status;
          }};
}

}  // namespace tellux::cli
