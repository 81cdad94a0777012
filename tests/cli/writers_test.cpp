// Every kind of file the program writes, written where it cannot be, and through a link: the
// command says so with the path and the reason, exits 1, and nothing already on disk changes.
#include <gtest/gtest.h>

#include "cli_run.h"

namespace tellux::testing {
namespace {

namespace fs = std::filesystem;

const std::string kSource = TELLUX_SOURCE_DIR;
const std::string kSample = kSource + "/samples/three_layers.TX3";
const std::string kLine =
    kSource + "/tests/data/profile/L1_01.TX3 " + kSource + "/tests/data/profile/L1_02.TX3";

// What each command writes, and a name it keeps as it stands.
const std::pair<std::string, const char*> kWriters[] = {
    {"write " + kSample + " OUT", "a.TX3"},
    {"convert oyo " + kSource + "/tests/data/instruments/sample.csv --out OUT", "a.TX3"},
    {"extract " + kLine + " --by res-layer --layer 1 --out OUT", "a.DAT"},
    {"export-txl " + kSample + " --out OUT", "a.TXL"},
    {"report " + kSample + " --pdf OUT", "a.pdf"},
    {"section " + kLine + " --hscale 5000 --pdf OUT", "a.pdf"},
    {"plot " + kSample + " --png OUT", "a.png"},
    {"plot " + kSample + " --svg OUT", "a.svg"},
};

TEST(Writers, FailuresNameThePathAndKeepWhatIsOnDisk) {
  const fs::path dir = fresh_folder("tellux-writers-"), locked_folder = dir / "locked";
  fs::create_directories(locked_folder);
  fs::permissions(locked_folder, fs::perms::owner_read | fs::perms::owner_exec);
  for (const auto& [args, name] : kWriters) {
    SCOPED_TRACE(args);
    // A write-protected file (for the super-user too: nobody may write it).
    const fs::path locked = dir / name;
    rt::write_file_atomically(locked.string(), "old");
    fs::permissions(locked, fs::perms::owner_read | fs::perms::group_read);
    CliRun r = run_cli(dir, args, locked);
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find(locked.string() + ": the file is write-protected"), std::string::npos)
        << r.err;
    EXPECT_EQ(rt::read_whole_file(locked.string()), "old");
    fs::remove(locked);

    for (const fs::path& nowhere : {dir / "missing" / name, fs::path("/proc/tellux") / name}) {
      r = run_cli(dir, args, nowhere);
      EXPECT_EQ(r.status, 1) << nowhere;
      EXPECT_NE(r.err.find(nowhere.string() + ": "), std::string::npos) << r.err;
    }
    // Through a link the linked file is replaced and the link kept.
    const fs::path real = dir / ("real_" + std::string(name)), link = dir / name;
    rt::write_file_atomically(real.string(), "old");
    fs::create_symlink(real.filename(), link);
    EXPECT_EQ(run_cli(dir, args, link).status, 0);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_NE(rt::read_whole_file(real.string()), "old");
    fs::remove(link);
    // A write-protected folder gets no file; the super-user writes into any folder.
    if (::geteuid() == 0) continue;
    EXPECT_NE(run_cli(dir, args, locked_folder / name).err.find("Permission denied"),
              std::string::npos);
    EXPECT_TRUE(fs::is_empty(locked_folder));
  }
  fs::permissions(locked_folder, fs::perms::owner_all);
  fs::remove_all(dir);
}

}  // namespace
}  // namespace tellux::testing
