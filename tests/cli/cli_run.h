#pragma once
// The batch command run as a script runs it: through the shell, from a folder of the test's own
// with a settings file of its own there.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "core/runtime/token_file.h"

namespace tellux::testing {

struct CliRun {
  int status;
  std::string out, err;
};

// An empty folder of this process: CTest runs the cases side by side.
inline std::filesystem::path fresh_folder(const std::string& name) {
  const auto dir = std::filesystem::temp_directory_path() / (name + std::to_string(::getpid()));
  std::filesystem::remove_all(dir);
  std::filesystem::create_directories(dir);
  return dir;
}

// Runs a command line from `dir`.
inline CliRun run_line(const std::filesystem::path& dir, const std::string& line) {
  const auto out = dir / "stdout", err = dir / "stderr";
  const std::string full = "cd " + dir.string() +
                           " && TELLUX_INI=" + (dir / "Tellux6.ini").string() + " " + line + " >" +
                           out.string() + " 2>" + err.string();
  const int raw = std::system(full.c_str());
  return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, rt::read_whole_file(out.string()),
          rt::read_whole_file(err.string())};
}

// Runs tellux-cli with `args`; "OUT" in them stands for `out`.
inline CliRun run_cli(const std::filesystem::path& dir, std::string args,
                      const std::filesystem::path& out = {}) {
  if (const size_t at = args.find("OUT"); at != std::string::npos)
    args.replace(at, 3, out.string());
  return run_line(dir, std::string(TELLUX_CLI) + " " + args);
}

}  // namespace tellux::testing
