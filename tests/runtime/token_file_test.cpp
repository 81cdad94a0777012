#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"

namespace tellux::rt {
namespace {

namespace fs = std::filesystem;

template <class F>
int error_of(F f) {
  try {
    f();
  } catch (const RuntimeError& e) {
    return e.number();
  }
  return 0;
}

// Items end at commas and line ends of either kind; blanks around an item and before a line end
// are skipped, an empty item is zero; reading past the end or letters raise.
TEST(TokenReader, ItemsEndAtCommasAndLineEndsAndBlanksAreSkipped) {
  TokenReader in(" 12.5 \r\n10,.5 , ,-3  \r\n\"a, b\" \r\n plain text \t\n7\n \"x\"\n,\r\n \t\r\n");
  EXPECT_EQ(in.single(), 12.5f);
  for (double v : {10.0, 0.5, 0.0, -3.0}) EXPECT_EQ(in.number(), v);
  EXPECT_EQ(in.text(), "a, b");
  EXPECT_EQ(in.text(), "plain text");
  EXPECT_EQ(in.number(), 7.0);
  EXPECT_EQ(in.text(), "x");
  EXPECT_EQ(in.number(), 0.0);
  EXPECT_TRUE(in.at_end());
  EXPECT_EQ(error_of([&] { in.number(); }), kInputPastEnd);
  EXPECT_EQ(error_of([] { TokenReader("").number(); }), kInputPastEnd);
  EXPECT_EQ(error_of([] { TokenReader("x2\r\n").number(); }), kTypeMismatch);
  TokenReader lines("first line, with comma\r\nsecond\n");
  EXPECT_EQ(lines.line(), "first line, with comma");
  EXPECT_EQ(lines.line(), "second");
  EXPECT_EQ(error_of([&] { lines.line(); }), kInputPastEnd);
  // Old text is read as Windows-1252; text that is UTF-8 already stays so.
  TokenReader latin("\"Sondage \xe9t\xe9 \x80\"\r\n\"\xc3\xa9\"");
  EXPECT_EQ(latin.text(), "Sondage \xc3\xa9t\xc3\xa9 \xe2\x82\xac");
  EXPECT_EQ(latin.text(), "\xc3\xa9");
}

class AtomicWrite : public ::testing::Test {
 protected:
  void SetUp() override { fs::create_directories(dir_); }
  void TearDown() override {
    std::error_code ec;
    fs::permissions(dir_, fs::perms::owner_all, ec);
    fs::remove_all(dir_, ec);
  }
  static int error_of_writing(const fs::path& p) {
    return error_of([&] { write_file_atomically(p.string(), "new"); });
  }
  static int error_of_reading(const fs::path& p) {
    return error_of([&] { read_whole_file(p.string()); });
  }
  fs::path dir_ = fs::temp_directory_path() / ("tellux_atomic_" + std::to_string(::getpid()));
};

// Failures name their cause; the file is replaced whole and no temporary is left (through a link,
// and what stays on disk after a failure: the writers' tests); only plain files are read and
// written: a pipe would block, a device never end, nor a file too large.
TEST_F(AtomicWrite, FailuresNameTheirCauseAndOnlyPlainFilesAreReadOrReplacedWhole) {
  EXPECT_EQ(error_of_reading("/nonexistent-folder-xyz/a.TX3"), kPathNotFound);
  EXPECT_EQ(error_of_reading(dir_ / "no-such-file.TX3"), kFileNotFound);
  EXPECT_EQ(error_of_writing(dir_ / "missing" / "a.TX3"), kPathNotFound);
  EXPECT_EQ(error_of_writing(""), kPathNotFound);
  const fs::path f = dir_ / "protected.TX3", real = dir_ / "real.TX3", pipe = dir_ / "pipe";
  write_file_atomically(f.string(), "old");
  fs::permissions(f, fs::perms::owner_read);
  EXPECT_EQ(error_of_writing(f), kPathFileAccess);
  write_file_atomically(real.string(), "old");
  write_file_atomically(real.string(), "new");
  EXPECT_EQ(read_whole_file(real), "new");
  EXPECT_EQ(std::distance(fs::directory_iterator(dir_), fs::directory_iterator()), 2);
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  for (const fs::path& p : {pipe, fs::path("/dev/zero"), dir_})
    EXPECT_EQ(error_of_reading(p), kPathFileAccess) << p;
  EXPECT_EQ(error_of_writing(pipe), kPathFileAccess);
  EXPECT_TRUE(fs::is_fifo(pipe));
  // A hostile input of 100 MB is refused before it is read: no time, no memory.
  const fs::path big = dir_ / "big";
  { std::ofstream(big, std::ios::binary) << "1"; }
  fs::resize_file(big, 100u << 20);
  rusage before{}, after{};
  ::getrusage(RUSAGE_SELF, &before);
  try {
    read_whole_file(big.string());
    ADD_FAILURE();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.reason(), "file too large");
  }
  ::getrusage(RUSAGE_SELF, &after);
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 64 * 1024);  // kilobytes
  if (::geteuid() == 0) GTEST_SKIP() << "root writes into any folder";
  fs::permissions(dir_, fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(error_of_writing(dir_ / "b.TX3"), kPermissionDenied);
}

}  // namespace
}  // namespace tellux::rt
