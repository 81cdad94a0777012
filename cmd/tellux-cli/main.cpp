// tellux-cli: the program's logic from the command line, for scripts and many files at once.
// JSON on standard output, messages on standard error; exit 0 on success, 1 when the program
// showed an error message, 2 on bad arguments.
#include <cstdio>
#include <cstring>
#include <set>

#include "cli.h"

namespace {

using namespace tellux::cli;

struct Entry {
  const char* name;
  Command run;
  const char* usage;
};

const Entry kCommands[] = {
    {"open", cmd_open, "open FILE"},
    {"settings", cmd_settings, "settings"},
    {"forward", cmd_forward,
     "forward FILE [--array schlumberger|dipole|wenner] [--decade-start N]"},
    {"write", cmd_write, "write FILE OUT"},
    {"compute", cmd_compute,
     "compute FILE [--array schlumberger|dipole|wenner] [--shift 0|1] [--half-array 1|2] "
     "[--marine W]"},
    {"automodel", cmd_automodel,
     "automodel FILE [--array schlumberger|dipole|wenner] [--sensitivity S]"},
    {"fit", cmd_fit,
     "fit FILE [--array schlumberger|dipole|wenner] [--decade-start N] "
     "[--thickness-decimals 0|1|2] [--sensitivity S] [--out OUT]"},
    {"plot", cmd_plot,
     "plot FILE [--array schlumberger|dipole|wenner] [--png OUT] [--svg OUT] [--pdf OUT] [--ops "
     "OUT] "
     "[--size WxH] [--steps] [--errors]"},
};

// Options that take no value.
const std::set<std::string> kFlags = {"--steps", "--errors"};

int usage() {
  std::fprintf(stderr, "usage: tellux-cli [--lang E|F|S|A] COMMAND ...\ncommands:\n");
  for (const auto& e : kCommands) std::fprintf(stderr, "  %s\n", e.usage);
  return 2;
}

void set_language(tellux::SoundingState& s, const std::string& letter) {
  s.Language = {};
  s.Language.English = false;
  if (letter == "F")
    s.Language.French = true;
  else if (letter == "S")
    s.Language.Spanish = true;
  else if (letter == "A")
    s.Language.German = true;
  else if (letter == "E")
    s.Language.English = true;
  else
    throw UsageError{"--lang takes E, F, S or A"};
}

}  // namespace

int main(int argc, char** argv) {
  Args args;
  std::string command;
  try {
    for (int i = 1; i < argc; ++i) {
      const std::string a = argv[i];
      if (a.rfind("--", 0) == 0) {
        if (kFlags.count(a)) {
          args.options[a] = "";
        } else {
          if (i + 1 >= argc) throw UsageError{a + " needs a value"};
          args.options[a] = argv[++i];
        }
      } else if (command.empty()) {
        command = a;
      } else {
        args.positional.push_back(a);
      }
    }
    for (const auto& e : kCommands) {
      if (command != e.name) continue;
      Cli cli;
      if (args.has("--lang")) set_language(cli.s, args.get("--lang"));
      return e.run(cli, args);
    }
  } catch (const UsageError& e) {
    std::fprintf(stderr, "tellux-cli: %s\n", e.text.c_str());
    return 2;
  }
  return usage();
}
