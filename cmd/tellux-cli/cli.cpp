#include "cli.h"

#include <cstdlib>
#include <filesystem>

#include "core/language.h"
#include "core/open_flow.h"
#include "core/sounding_file.h"

namespace tellux::cli {

namespace {
void to_stderr(const std::string& text) { std::fprintf(stderr, "%s\n", text.c_str()); }
}  // namespace

Cli::Cli() : dialogs(to_stderr) {}

void open_file(Cli& cli, const std::string& path) {
  SoundingState& s = cli.s;
  // The program's dialogs and its recent-file list always hold full paths; a bare name would
  // also lose its first character in the open flow's cut.
  s.FilePath = path.empty() ? path : std::filesystem::absolute(path).lexically_normal().string();
  s.FileName = s.FilePath;
  open_sounding(cli.session);
}

void load_cli_settings(Cli& cli, const Args& args, Settings& settings) {
  load_settings(cli.s, settings);
  if (args.has("--lang")) cli.s.Language = language_from_letter(args.get("--lang"));
}

int parse_int(const std::string& text, const std::string& option) {
  char* end = nullptr;
  const long v = std::strtol(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || v < -32768 || v > 32767)
    throw UsageError{option + " takes a whole number, not \"" + text + "\""};
  return static_cast<int>(v);
}

double parse_double(const std::string& text, const std::string& option) {
  char* end = nullptr;
  const double v = std::strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0')
    throw UsageError{option + " takes a number, not \"" + text + "\""};
  return v;
}

void apply_array(Cli& cli, const Args& args) {
  const std::string a = args.get("--array", "schlumberger");
  if (a == "schlumberger") {
    cli.s.Spread = SpreadType::Schlumberger;
    cli.s.SpreadTag = "0";
  } else if (a == "dipole") {
    cli.s.Spread = SpreadType::Dipole;
    cli.s.SpreadTag = "1";
  } else if (a == "wenner") {
    cli.s.Spread = SpreadType::Wenner;
    cli.s.SpreadTag = "2";
  } else {
    throw UsageError{"--array takes schlumberger, dipole or wenner, not \"" + a + "\""};
  }
}

void apply_decade_start(Cli& cli, const Args& args) {
  cli.s.DecadeStart =
      static_cast<int16_t>(parse_int(args.get("--decade-start", "-1"), "--decade-start"));
}

void take_layer_count(SoundingState& s) {
  s.LayerCount = 20;
  for (int i = 1; i <= 20; ++i) {
    if (!(s.LayerModel(i, 2).num() > 0)) {
      s.LayerCount = static_cast<int16_t>(i);
      break;
    }
  }
}

void field_table_json(Json& j, const SoundingState& s, int columns) {
  j.begin_array();
  const int rows = std::min<int>(s.FieldCount, 51);
  for (int i = 1; i <= rows; ++i) {
    j.begin_array();
    for (int c = 1; c <= columns; ++c) j.number(s.FieldTable(i, c).num());
    j.end_array();
  }
  j.end_array();
}

}  // namespace tellux::cli
