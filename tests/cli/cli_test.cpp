// The batch command and the desktop program as a script runs them: arguments, exit status,
// standard output and standard error.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "core/runtime/token_file.h"

namespace {

namespace fs = std::filesystem;

struct Outcome {
  int status;
  std::string out, err;
};

std::string slurp(const fs::path& p) { return tellux::rt::read_whole_file(p.string()); }

// One folder per process: CTest runs the cases side by side.
const fs::path kTmp = fs::temp_directory_path() / ("tellux-cli-test-" + std::to_string(::getpid()));
const std::string kSample = TELLUX_SOURCE_DIR "/samples/three_layers.TX3";

// Runs a command line through the shell with a settings file of its own.
Outcome run(const std::string& args) {
  fs::create_directories(kTmp);
  const fs::path out = kTmp / "out", err = kTmp / "err";
  const std::string line = "TELLUX_INI=" + (kTmp / "Tellux6.ini").string() + " " + args + " >" +
                           out.string() + " 2>" + err.string();
  const int raw = std::system(line.c_str());
  return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, slurp(out), slurp(err)};
}

// Each process removes its folder when its case ends.
struct RemoveTmp : ::testing::Environment {
  void TearDown() override { fs::remove_all(kTmp); }
};
const auto* const kRemoveTmp = ::testing::AddGlobalTestEnvironment(new RemoveTmp);

Outcome cli(const std::string& args) { return run(std::string(TELLUX_CLI) + " " + args); }

TEST(BatchCommand, ArgumentsStatusAndStreams) {
  const fs::path missing = kTmp / "missing.TX3";
  const std::tuple<std::string, int, std::string, std::string> cases[] = {
      {"--help", 0, "compute", ""},
      {"fit --help", 0, "--thickness-decimals", ""},
      {"--version", 0, "6.4", ""},
      {"bogus", 2, "", "unknown command \"bogus\""},
      {"open --frob x", 2, "", "--frob"},
      {"forward " + kSample + " --array tripole", 2, "", "tripole"},
      // The program's own message, then the file and the system's reason; no record.
      {"open " + missing.string(), 1, "",
       "Reading File Error...\ntellux-cli: " + missing.string() + ": No such file or directory"},
      {"--lang F open " + missing.string(), 1, "", "Erreur"},
      {"profile " + kSample + " " + (kTmp / "x.TX3").string(), 2, "", "one folder"},
      {"colours --anchors 1,2,3", 2, "", "--anchors"},
      {"colours --min 10 --max 2000 --classify 133.9,134", 0, "\"Classes\":[1,2]", ""},
      {"write " + kSample + " /no/such/folder/x.TX3", 1, "",
       "cannot write /no/such/folder/x.TX3: No such file or directory"},
      // The model opened is the only one stored: its curve goes out without a failed run.
      {"export-txl " + kSample + " --out " + (kTmp / "s.txt").string(), 0, "\"Messages\":[]", ""},
  };
  for (const auto& [args, status, in_out, in_err] : cases) {
    const Outcome r = cli(args);
    EXPECT_EQ(r.status, status) << args << "\n" << r.err;
    EXPECT_NE(r.out.find(in_out), std::string::npos) << args << "\n" << r.out;
    EXPECT_NE(r.err.find(in_err), std::string::npos) << args << "\n" << r.err;
    EXPECT_TRUE(r.out.empty() || (args.find("open ") == args.npos && status != 2)) << args;
  }
}

// Batch work reads the settings file and leaves it as it was; text that is not UTF-8 leaves as
// UTF-8. The exact values of a record are the open goldens'.
TEST(BatchCommand, LeavesSettingsAloneAndPrintsUtf8) {
  fs::create_directories(kTmp);
  const fs::path ini = kTmp / "Tellux6.ini", copy = kTmp / "latin1.TX3";
  fs::remove(ini);
  std::string bytes = slurp(kSample);
  bytes.replace(bytes.find("Synthetic"), 9, "Sondage \xE9lectrique");
  std::ofstream(copy, std::ios::binary) << bytes;
  const Outcome r = cli("open " + copy.string());
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_FALSE(fs::exists(ini));
  EXPECT_EQ(nlohmann::json::parse(r.out)["CommentText"],
            "Sondage \xC3\xA9lectrique sounding made from a known model");
}

TEST(DesktopProgram, AnswersWithoutADisplay) {
  const std::string gui = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " TELLUX_GUI;
  EXPECT_EQ(run(gui + " --version").out, "Tellux 6.4\n");
  EXPECT_NE(run(gui + " --help").out.find("tellux-cli"), std::string::npos);
  const Outcome bare = run(gui);
  EXPECT_EQ(std::tuple(bare.status, bare.err.find("no display") != std::string::npos,
                       std::count(bare.err.begin(), bare.err.end(), '\n')),
            std::tuple(1, true, 1));
}

}  // namespace
