#include "cli.h"

#include <cstdio>
#include <filesystem>

#include "core/open_flow.h"
#include "core/runtime/token_file.h"
#include "core/sounding_file.h"

namespace tellux::cli {

namespace {
void to_stderr(const std::string& message) { std::fprintf(stderr, "%s\n", text(message).c_str()); }
}  // namespace

std::string unreadable_because(const std::string& path) {
  try {
    rt::check_readable(path);
  } catch (const rt::RuntimeError& e) {
    return e.reason();
  }
  return {};
}

Cli::Cli() : dialogs(to_stderr) {}

Json Cli::messages() const {
  Json list = Json::array();
  for (const RecordedMessage& m : dialogs.messages) list.push_back(text(m.text));
  return list;
}

void Cli::print(const Json& json) const { std::printf("%s\n", json.dump().c_str()); }

void Cli::complain(const std::string& what) {
  std::fprintf(stderr, "tellux-cli: %s\n", text(what).c_str());
}

void add_array_option(CLI::App* app, std::string& array) {
  app->add_option("--array", array, "Electrode array of the sounding")
      ->check(CLI::IsMember({"schlumberger", "dipole", "wenner"}))
      ->capture_default_str();
}

void add_decade_start_option(CLI::App* app, int& decade_start) {
  app->add_option("--decade-start", decade_start,
                  "First decade of AB/2 on the diagram (-1: from 0.1 m); the curve starts there")
      ->check(CLI::Range(-32768, 32767))
      ->capture_default_str();
}

void add_sensitivity_option(CLI::App* app, double& sensitivity) {
  app->add_option("--sensitivity", sensitivity,
                  "Sensitivity of the automatic model: the smallest change of slope that makes a "
                  "new layer")
      ->capture_default_str();
}

void add_fit_options(CLI::App* app, FitOptions& o) {
  add_array_option(app, o.array);
  add_decade_start_option(app, o.decade_start);
  app->add_option("--thickness-decimals", o.thickness_decimals,
                  "Decimals the fitted thicknesses are rounded to")
      ->check(CLI::IsMember({0, 1, 2}))
      ->capture_default_str();
  add_sensitivity_option(app, o.sensitivity);
  add_accurate_option(app, o.accurate);
}

FitChoices FitOptions::choices() const {
  SoundingState s;
  apply_array(s, array);
  return {s.Spread, static_cast<int16_t>(decade_start), static_cast<int16_t>(thickness_decimals),
          sensitivity, accurate};
}

void add_accurate_option(CLI::App* app, bool& accurate) {
  app->add_flag("--accurate", accurate,
                "Use the accurate curves (option \"Accurate curves\"), whatever the settings say");
}

void apply_array(SoundingState& s, const std::string& array) {
  if (array == "dipole") {
    s.Spread = SpreadType::Dipole;
    s.SpreadTag = "1";
  } else if (array == "wenner") {
    s.Spread = SpreadType::Wenner;
    s.SpreadTag = "2";
  } else {
    s.Spread = SpreadType::Schlumberger;
    s.SpreadTag = "0";
  }
}

bool open_file(Cli& cli, const std::string& path) {
  SoundingState& s = cli.s;
  // The program's dialogs and its recent-file list always hold full paths; a bare name would
  // also lose its first character in the open flow's cut.
  s.FilePath = path.empty() ? path : std::filesystem::absolute(path).lexically_normal().string();
  s.FileName = s.FilePath;
  open_sounding(cli.session);
  if (const std::string reason = unreadable_because(path); !reason.empty()) {
    Cli::complain(path + ": " + reason);
    return false;
  }
  return cli.status() == 0;
}

bool write_tx3(Cli& cli, std::string& path) {
  cli.s.WorkMode = mode::kFile;
  cli.session.file_failure.clear();
  if (write_sounding_file(cli.session, path)) return true;
  const std::string& failure = cli.session.file_failure;
  Cli::complain("cannot write " + (failure.empty() ? path : failure));
  return false;
}

std::string text(const std::string& bytes) { return rt::to_utf8(bytes); }

Json field_table_json(const SoundingState& s, int columns) {
  Json rows = Json::array();
  const int last = std::min<int>(s.FieldCount, 51);
  for (int i = 1; i <= last; ++i) {
    Json row = Json::array();
    for (int c = 1; c <= columns; ++c) row.push_back(s.FieldTable(i, c).num());
    rows.push_back(row);
  }
  return rows;
}

void add_layer_model(Json& j, const SoundingState& s) {
  j["LayerCount"] = s.LayerCount;
  Json rows = Json::array();
  const int last = std::min<int>(s.LayerCount, 21);
  for (int r = 1; r <= last; ++r)
    rows.push_back({s.LayerModel(r, 1).num(), s.LayerModel(r, 2).num()});
  j["LayerModel"] = rows;
}

}  // namespace tellux::cli
