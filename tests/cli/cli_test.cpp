// The batch command and the desktop program as a script runs them: arguments, exit status,
// standard output and standard error.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "cli_run.h"

namespace {

namespace fs = std::filesystem;

using tellux::testing::CliRun;

const fs::path kTmp = tellux::testing::fresh_folder("tellux-cli-test-");
const std::string kSample = TELLUX_SOURCE_DIR "/samples/three_layers.TX3";

// Each process removes its folder when its case ends.
struct RemoveTmp : ::testing::Environment {
  void TearDown() override { fs::remove_all(kTmp); }
};
const auto* const kRemoveTmp = ::testing::AddGlobalTestEnvironment(new RemoveTmp);

CliRun cli(const std::string& args) { return tellux::testing::run_cli(kTmp, args); }
CliRun run(const std::string& line) { return tellux::testing::run_line(kTmp, line); }

TEST(BatchCommand, ArgumentsStatusAndStreams) {
  const fs::path missing = kTmp / "missing.TX3", pipe = kTmp / "pipe.DAT";
  ::mkfifo(pipe.c_str(), 0600);  // opened, it would wait for ever for a writer
  const std::tuple<std::string, int, std::string, std::string> cases[] = {
      {"--help", 0, "compute", ""},
      {"fit --help", 0, "--thickness-decimals", ""},
      {"--version", 0, "6.4", ""},
      {"bogus", 2, "", "unknown command \"bogus\""},
      {"open --frob x", 2, "", "--frob"},
      {"forward " + kSample + " --array tripole", 2, "", "tripole"},
      {"equivalence " + kSample + " --jobs 1 --max-thick 50", 0, "\"Bound\":\"max\"", ""},
      {"equivalence " + kSample + " --fix rho9", 2, "", "rho9"},
      {"fit " + kSample + " --accurate", 0, "\"FitMisfit\"", ""},
      {"equivalence " + kSample + " --min-res 10 --max-res 5", 2, "", "lower bound"},
      // The program's own message, then the file and the system's reason; no record.
      {"open " + missing.string(), 1, "",
       "Reading File Error...\ntellux-cli: " + missing.string() + ": No such file or directory"},
      {"--lang F open " + missing.string(), 1, "", "Erreur"},
      {"open " + pipe.string(), 1, "", pipe.string() + ": not a regular file"},
      {"convert syscal " + pipe.string(), 1, "Reading File Error", "not a regular file"},
      {"profile " + kSample + " " + (kTmp / "x.TX3").string(), 2, "", "one folder"},
      {"colours --anchors 1,2,3", 2, "", "--anchors"},
      {"colours --min 10 --max 2000 --classify 133.9,134", 0, "\"Classes\":[1,2]", ""},
      {"write " + kSample + " /no/such/folder/x.TX3", 1, "",
       "cannot write /no/such/folder/x.TX3: No such file or directory"},
      // The model opened is the only one stored: its curve goes out without a failed run.
      {"export-txl " + kSample + " --out " + (kTmp / "s.txt").string(), 0, "\"Messages\":[]", ""},
  };
  for (const auto& [args, status, in_out, in_err] : cases) {
    const CliRun r = cli(args);
    EXPECT_EQ(r.status, status) << args << "\n" << r.err;
    EXPECT_NE(r.out.find(in_out), std::string::npos) << args << "\n" << r.out;
    EXPECT_NE(r.err.find(in_err), std::string::npos) << args << "\n" << r.err;
    EXPECT_TRUE(r.out.empty() || (args.find("open ") == args.npos && status != 2)) << args;
  }
}

// Batch work reads the settings file and leaves it as it was; text that is not UTF-8 leaves as
// UTF-8. The exact values of a record are the open goldens'.
TEST(BatchCommand, LeavesSettingsAloneAndPrintsUtf8) {
  const fs::path ini = kTmp / "Tellux6.ini", copy = kTmp / "latin1.TX3";
  fs::remove(ini);
  std::string bytes = tellux::rt::read_whole_file(kSample);
  bytes.replace(bytes.find("Synthetic"), 9, "Sondage \xE9lectrique");
  std::ofstream(copy, std::ios::binary) << bytes;
  const CliRun r = cli("open " + copy.string());
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_FALSE(fs::exists(ini));
  EXPECT_EQ(nlohmann::json::parse(r.out)["CommentText"],
            "Sondage \xC3\xA9lectrique sounding made from a known model");
}

// Settings of overlong and surrogate UTF-8 are read as Windows-1252; readings that overflow in a
// converter end in the last guard's message.
TEST(BatchCommand, NoInputEndsInASignal) {
  std::ofstream(kTmp / "Tellux6.ini") << "[Tellux]\r\nSEV File=a\xC0\x80\xED\xA0\x80\r\n";
  std::ofstream(kTmp / "huge.dat") << "\"P\",\"1\",\"0\",0,0,0,1\r\n2147483647,10\r\n";
  EXPECT_EQ(cli("settings").status, 0);
  EXPECT_EQ(cli("convert astier huge.dat --out a.TX3").status, 1);
  fs::remove(kTmp / "Tellux6.ini");
}

TEST(DesktopProgram, AnswersWithoutADisplay) {
  const std::string gui = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " TELLUX_GUI;
  EXPECT_EQ(run(gui + " --version").out, "Tellux 6.4\n");
  EXPECT_NE(run(gui + " --help").out.find("tellux-cli"), std::string::npos);
  const CliRun bare = run(gui);
  EXPECT_EQ(std::tuple(bare.status, bare.err.find("no display") != std::string::npos,
                       std::count(bare.err.begin(), bare.err.end(), '\n')),
            std::tuple(1, true, 1));
}

}  // namespace
