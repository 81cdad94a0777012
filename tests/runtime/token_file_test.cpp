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

int error_of_reading(TokenReader& in, int numbers) {
  try {
    for (int i = 0; i < numbers; ++i) in.number();
  } catch (const RuntimeError& e) {
    return e.number();
  }
  return 0;
}

TEST(TokenReader, ItemsEndAtCommasAndLineEndsWhateverTheLineBreaks) {
  TokenReader crlf("12.5\r\n10,.5,-3\r\n\"a, b\"\r\n");
  EXPECT_EQ(crlf.single(), 12.5f);
  EXPECT_EQ(crlf.number(), 10.0);
  EXPECT_EQ(crlf.number(), 0.5);
  EXPECT_EQ(crlf.number(), -3.0);
  EXPECT_EQ(crlf.text(), "a, b");
  EXPECT_TRUE(crlf.at_end());

  TokenReader lf("1,2\n3\n\"x\"");
  EXPECT_EQ(lf.number() + lf.number() + lf.number(), 6.0);
  EXPECT_EQ(lf.text(), "x");
}

TEST(TokenReader, EmptyItemsAreZeroAndBlanksAreIgnored) {
  TokenReader in(" 1 , ,3\r\n,\r\n");
  EXPECT_EQ(in.number(), 1.0);
  EXPECT_EQ(in.number(), 0.0);
  EXPECT_EQ(in.number(), 3.0);
  EXPECT_EQ(in.number(), 0.0);
}

TEST(TokenReader, ReadingPastTheEndAndLettersRaise) {
  TokenReader short_file("1,2\r\n");
  EXPECT_EQ(error_of_reading(short_file, 3), kInputPastEnd);
  TokenReader letters("1,x2\r\n");
  EXPECT_EQ(error_of_reading(letters, 2), kTypeMismatch);
  TokenReader empty("");
  EXPECT_EQ(error_of_reading(empty, 1), kInputPastEnd);
}

TEST(TokenReader, OldTextIsReadAsWindows1252) {
  TokenReader latin("\"Sondage \xe9t\xe9 \x80\"\r\n");
  EXPECT_EQ(latin.text(), "Sondage \xc3\xa9t\xc3\xa9 \xe2\x82\xac");
  TokenReader utf8("\"\xc3\xa9\"");
  EXPECT_EQ(utf8.text(), "\xc3\xa9");
}

TEST(TokenReader, WholeLines) {
  TokenReader in("first line, with comma\r\nsecond\n");
  EXPECT_EQ(in.line(), "first line, with comma");
  EXPECT_EQ(in.line(), "second");
  EXPECT_THROW(in.line(), RuntimeError);
}

TEST(TokenWriter, WritesCommaSeparatedItemsWithCrlf) {
  TokenWriter out;
  out.number(12.5f, Kind::Single);
  out.end_line();
  out.number(0.5);
  out.number(-3, Kind::Int32);
  out.number(12345678.f, Kind::Single);
  out.end_line();
  out.text("a b");
  out.end_line();
  out.print_line("plain");
  EXPECT_EQ(out.content(), "12.5\r\n.5,-3,1.234568E+07\r\n\"a b\"\r\nplain\r\n");
}

class AtomicWrite : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() / ("tellux_atomic_" + std::to_string(::getpid()));
    fs::create_directories(dir_);
  }
  void TearDown() override {
    std::error_code ec;
    fs::permissions(dir_, fs::perms::owner_all, ec);
    fs::remove_all(dir_, ec);
  }
  static std::string slurp(const fs::path& p) { return read_whole_file(p.string()); }
  int error_of_writing(const fs::path& p) {
    try {
      write_file_atomically(p.string(), "new");
    } catch (const RuntimeError& e) {
      return e.number();
    }
    return 0;
  }
  fs::path dir_;
};

TEST_F(AtomicWrite, ReplacesTheFileWholeAndLeavesNoTemporary) {
  const fs::path f = dir_ / "a.TX3";
  write_file_atomically(f.string(), "old");
  write_file_atomically(f.string(), "new");
  EXPECT_EQ(slurp(f), "new");
  EXPECT_EQ(std::distance(fs::directory_iterator(dir_), fs::directory_iterator()), 1);
}

TEST_F(AtomicWrite, FailuresKeepTheOldFileAndNameTheirCause) {
  EXPECT_EQ(error_of_writing(dir_ / "missing" / "a.TX3"), kPathNotFound);
  EXPECT_EQ(error_of_writing(""), kPathNotFound);
  const fs::path f = dir_ / "protected.TX3";
  write_file_atomically(f.string(), "old");
  fs::permissions(f, fs::perms::owner_read);
  EXPECT_EQ(error_of_writing(f), kPathFileAccess);
  EXPECT_EQ(slurp(f), "old");
  if (::geteuid() == 0) GTEST_SKIP() << "root writes into any folder";
  fs::permissions(dir_, fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(error_of_writing(dir_ / "b.TX3"), kPermissionDenied);
}

// Through a link the linked file is replaced and the link kept; only plain files are read and
// written: a pipe would block, a device never end.
TEST_F(AtomicWrite, ThroughALinkAndNeverOnAPipeOrADevice) {
  const fs::path real = dir_ / "real.TX3", link = dir_ / "link.TX3";
  write_file_atomically(real.string(), "old");
  fs::create_symlink("real.TX3", link);
  write_file_atomically(link.string(), "new");
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(slurp(real), "new");
  const fs::path pipe = dir_ / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  for (const fs::path& p : {pipe, fs::path("/dev/zero"), dir_}) {
    try {
      read_whole_file(p.string());
      ADD_FAILURE() << p;
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), kPathFileAccess) << p;
    }
  }
  EXPECT_EQ(error_of_writing(pipe), kPathFileAccess);
  EXPECT_TRUE(fs::is_fifo(pipe));
}

// A hostile input of 100 MB is refused before it is read: no time, no memory.
TEST(ReadWholeFile, AHundredMegabytesAreRefusedUnread) {
  const fs::path big = fs::temp_directory_path() / ("tellux_big_" + std::to_string(::getpid()));
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
  fs::remove(big);
}

TEST(ReadWholeFile, MissingFilesAndFolders) {
  try {
    read_whole_file("/nonexistent-folder-xyz/a.TX3");
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), kPathNotFound);
  }
  try {
    read_whole_file(fs::temp_directory_path() / "no-such-file.TX3");
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), kFileNotFound);
  }
}

}  // namespace
}  // namespace tellux::rt
