// Every kind of file the program writes, written where it cannot be, and through a link: the
// command says so with the path and the reason, exits 1, and nothing already on disk changes.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "core/runtime/token_file.h"

namespace {

namespace fs = std::filesystem;

const std::string kSource = TELLUX_SOURCE_DIR;
const std::string kSample = kSource + "/samples/three_layers.TX3";
const std::string kLine =
    kSource + "/tests/data/profile/L1_01.TX3 " + kSource + "/tests/data/profile/L1_02.TX3";

struct Writer {
  const char* kind;
  std::string args;  // OUT stands for the file written
  const char* name;  // a name the command keeps as it stands
};

const Writer kWriters[] = {
    {"TX3", "write " + kSample + " OUT", "a.TX3"},
    {"instrument", "convert oyo " + kSource + "/tests/data/instruments/sample.csv --out OUT",
     "a.TX3"},
    {"extraction", "extract " + kLine + " --by res-layer --layer 1 --out OUT", "a.DAT"},
    {"TXL", "export-txl " + kSample + " --out OUT", "a.TXL"},
    {"report PDF", "report " + kSample + " --pdf OUT", "a.pdf"},
    {"section PDF", "section " + kLine + " --hscale 5000 --pdf OUT", "a.pdf"},
    {"diagram PNG", "plot " + kSample + " --png OUT", "a.png"},
    {"diagram SVG", "plot " + kSample + " --svg OUT", "a.svg"},
};

class Writers : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = fs::temp_directory_path() / ("tellux-writers-" + std::to_string(::getpid()));
    fs::remove_all(dir);
    fs::create_directories(dir);
  }
  void TearDown() override {
    fs::permissions(dir, fs::perms::owner_all);
    fs::remove_all(dir);
  }
  // Runs the writer with OUT replaced by `out`; the exit status, standard error in `err`.
  int run(const Writer& w, const fs::path& out) {
    std::string args = w.args;
    args.replace(args.find("OUT"), 3, out.string());
    const std::string line = "cd " + dir.string() + " && TELLUX_INI=" + (dir / "x.ini").string() +
                             " " + TELLUX_CLI + " " + args + " >/dev/null 2>" +
                             (dir / "err").string();
    const int raw = std::system(line.c_str());
    err = tellux::rt::read_whole_file((dir / "err").string());
    return WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  }
  std::string read(const fs::path& p) { return tellux::rt::read_whole_file(p.string()); }
  fs::path dir;
  std::string err;
};

TEST_F(Writers, FailuresNameThePathAndKeepWhatIsOnDisk) {
  for (const Writer& w : kWriters) {
    SCOPED_TRACE(w.kind);
    // A write-protected file (for the super-user too: nobody may write it).
    const fs::path locked = dir / w.name;
    tellux::rt::write_file_atomically(locked.string(), "old");
    fs::permissions(locked, fs::perms::owner_read | fs::perms::group_read);
    EXPECT_EQ(run(w, locked), 1);
    EXPECT_NE(err.find(locked.string() + ": the file is write-protected"), std::string::npos)
        << err;
    EXPECT_EQ(read(locked), "old");
    fs::remove(locked);

    for (const fs::path& nowhere : {dir / "missing" / w.name, fs::path("/proc/tellux") / w.name}) {
      EXPECT_EQ(run(w, nowhere), 1) << nowhere;
      EXPECT_NE(err.find(nowhere.string() + ": "), std::string::npos) << err;
    }

    // Through a link the linked file is replaced and the link kept.
    const fs::path real = dir / ("real_" + std::string(w.name)), link = dir / w.name;
    tellux::rt::write_file_atomically(real.string(), "old");
    fs::create_symlink(real.filename(), link);
    EXPECT_EQ(run(w, link), 0) << err;
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_NE(read(real), "old");
    fs::remove(link);
    fs::remove(real);
  }
}

TEST_F(Writers, AWriteProtectedFolderGetsNoFile) {
  if (::geteuid() == 0) GTEST_SKIP() << "the super-user writes into any folder";
  const fs::path folder = dir / "locked";
  fs::create_directories(folder);
  fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
  for (const Writer& w : kWriters) {
    SCOPED_TRACE(w.kind);
    EXPECT_EQ(run(w, folder / w.name), 1);
    EXPECT_NE(err.find("Permission denied"), std::string::npos) << err;
    EXPECT_TRUE(fs::is_empty(folder));
  }
  fs::permissions(folder, fs::perms::owner_all);
}

}  // namespace
