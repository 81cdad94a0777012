// The runtime under the program: arithmetic as the language does it, the text of numbers, and the
// files of comma-separated items.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "core/runtime/arithmetic.h"
#include "core/runtime/cell.h"
#include "core/runtime/discipline.h"
#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"
#include "core/runtime/table.h"
#include "core/runtime/token_file.h"
#include "core/runtime/utf8.h"

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

// A current of 12.5 mA is stored as 12: ties go to the even neighbour.
TEST(Arithmetic, IntegerConversionsRoundHalfToEvenAndFailuresRaiseTheLanguagesErrors) {
  const int32_t got[] = {CInt(0.5),  CInt(1.5),  CInt(2.5),     CInt(-2.5),    CInt(-3.5),
                         CLng(12.5), CLng(13.5), CInt(32767.4), CInt(-32768.4)};
  const int32_t want[] = {0, 2, 2, -2, -4, 12, 14, 32767, -32768};
  for (size_t i = 0; i < std::size(got); ++i) EXPECT_EQ(got[i], want[i]) << i;
  EXPECT_EQ(Int(-1.5) + 10 * Fix(-1.5) + 100 * Div(1, 4), -2 - 10 + 25);
  // Failing operations raise the language's errors.
  const std::pair<void (*)(), int> cases[] = {
      {[] { CInt(32767.5); }, kOverflow},      {[] { CInt(-32768.6); }, kOverflow},
      {[] { CLng(2147483647.5); }, kOverflow}, {[] { CInt(NAN); }, kOverflow},
      {[] { CSng(1e39); }, kOverflow},         {[] { Div(1, 0); }, kDivisionByZero},
      {[] { Div(0, 0); }, kOverflow},          {[] { Log(0); }, kInvalidCall},
      {[] { Log(-1); }, kInvalidCall},         {[] { Exp(1000); }, kOverflow},
      {[] { Sqr(-1); }, kInvalidCall},
  };
  for (size_t i = 0; i < std::size(cases); ++i)
    EXPECT_EQ(error_of(cases[i].first), cases[i].second) << i;
}

// Cells keep their kind and count as zero when empty; tables check every index; a statement that
// fails is skipped and the next runs.
TEST(Arithmetic, CellsTablesAndSkippedStatements) {
  EXPECT_EQ(std::tuple(Cell().empty(), Cell().num(), Cell(0.1f).kind()),
            std::tuple(true, 0.0, Kind::Single));
  // A single multiplies in single precision, a double in double.
  EXPECT_EQ(Cell(0.1f).times(3.0), static_cast<double>(0.1f * 3.0f));
  EXPECT_EQ(Cell(0.1).times(3.0) + Cell(int16_t{7}).times(10.0), 0.1 * 3.0 + 70.0);
  Table<Cell, 52, 8> t;
  t(51, 7) = 1.0;
  EXPECT_EQ(t(51, 7).num(), 1.0);
  EXPECT_EQ(error_of([] { Table<Cell, 52, 8>()(52, 1) = 1.0; }), kSubscript);
  EXPECT_EQ(error_of([] { Array1<int, 22>()[-1] = 0; }), kSubscript);
  t.erase();
  EXPECT_TRUE(t(51, 7).empty());
  int ran = 0;
  EXPECT_FALSE(skip([&] { Div(1, 0); }));
  EXPECT_TRUE(skip([&] { ++ran; }) && ran == 1);
}

// Str puts a blank for the sign and no zero before the point; singles carry seven digits and
// turn to exponent form at ten million (0.1f is .1, not .100000001490116), doubles fifteen;
// integer kinds are whole and an empty cell is 0. The fraction of a TX3 first line: its third
// character tells the layout.
TEST(NumberText, TheTextOfNumbers) {
  const std::pair<double, const char*> strs[] = {
      {0.5, " .5"},   {-0.5, "-.5"},      {10.0, " 10"},      {0.0, " 0"},
      {0.01, " .01"}, {-12.25, "-12.25"}, {0.00001, " 1E-05"}};
  for (auto [v, text] : strs) EXPECT_EQ(Str(v), text) << v;
  const double doubles[] = {0.5,    1.0 / 3.0, 123456789012345.0, 1234567890123456.0,
                            0.0001, 0.1 + 0.2, 99.99999999999999};
  const char* texts[] = {
      ".5", ".333333333333333", "123456789012345", "1.23456789012346E+15", ".0001", ".3", "100"};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(CStr(doubles[i]), texts[i]) << i;
  const std::pair<float, const char*> singles[] = {
      {9999999.f, "9999999"}, {12345678.f, "1.234568E+07"}, {10000000.f, "1E+07"},
      {0.1f, ".1"},           {3.14159274f, "3.141593"},    {-2.5e-7f, "-2.5E-07"}};
  for (auto [v, text] : singles) EXPECT_EQ(CStrSingle(v), text) << v;
  EXPECT_EQ(StrSingle(12.5f - 12.0f), " .5");
  EXPECT_EQ(Str(Cell(int16_t{-3})) + Str(Cell(int32_t{1234567890})) + Str(Cell()),
            "-3 1234567890 0");
}

// An exponent without digits is not part of the number; the comma is no decimal mark.
TEST(NumberText, ValReadsTheLeadingNumberAndFileTokensAreWholeNumbers) {
  const std::pair<const char*, double> cases[] = {
      {"  12.5abc", 12.5}, {"1 2 3", 123}, {" .5", 0.5}, {"-.25", -0.25},
      {"1.5E+3x", 1500},   {"2D2", 200},   {"3E", 3},    {"&HFF", 255},
      {"&O17", 15},        {"abc", 0},     {"", 0},      {"1,5", 1}};
  for (auto [text, value] : cases) EXPECT_DOUBLE_EQ(Val(text), value) << text;
  // File tokens must be whole numbers, and singles survive the round trip.
  EXPECT_EQ(parse_number_token(" 12.5 ") + parse_number_token(""), 12.5);
  for (const char* bad : {"12a", "abc", "1.2.3", "--1", "1,5"})
    EXPECT_EQ(error_of([&] { parse_number_token(bad); }), kTypeMismatch) << bad;
  for (float v : {0.1f, 1.5f, 123.456f, 99999.99f, 1234567.f, 0.001f, 7.77e-5f})
    EXPECT_EQ(static_cast<float>(parse_number_token(CStrSingle(v))), v) << v;
}

// Items end at commas and line ends of either kind; blanks around an item and before a line end
// are skipped, anything after a closing quote is dropped, an empty item is zero; reading past the
// end or letters raise.
TEST(TokenReader, ItemsEndAtCommasAndLineEndsAndBlanksAreSkipped) {
  TokenReader in(" 12.5 \r\n10,.5 , ,-3  \r\n\"a, b\" \r\n pl ain \t\n7\n \"x\"junk\n,\r\n \t\r\n");
  EXPECT_EQ(in.single(), 12.5f);
  for (double v : {10.0, 0.5, 0.0, -3.0}) EXPECT_EQ(in.number(), v);
  EXPECT_EQ(in.text(), "a, b");
  EXPECT_EQ(in.text(), "pl ain");
  EXPECT_EQ(in.number(), 7.0);
  EXPECT_EQ(in.text(), "x");
  for (int k = 0; k < 2; ++k) EXPECT_EQ(in.number(), 0.0);  // a lone comma: two empty items
  EXPECT_TRUE(in.at_end());
  EXPECT_EQ(error_of([&] { in.number(); }), kInputPastEnd);
  EXPECT_EQ(error_of([] { TokenReader("").number(); }), kInputPastEnd);
  EXPECT_EQ(error_of([] { TokenReader("x2\r\n").number(); }), kTypeMismatch);
  TokenReader blanks("1.5 100 ,0\r\n");  // a number also ends at a blank
  for (double v : {1.5, 100.0, 0.0}) EXPECT_EQ(blanks.number(), v);
  TokenReader lines("first line, with comma\r\nsecond\n");
  EXPECT_EQ(lines.line(), "first line, with comma");
  EXPECT_EQ(lines.line(), "second");
  EXPECT_EQ(error_of([&] { lines.line(); }), kInputPastEnd);
  // Old text is read as Windows-1252; text that is UTF-8 already stays so.
  TokenReader latin("\"Sondage \xe9t\xe9 \x80\"\r\n\"\xc3\xa9\"");
  EXPECT_EQ(latin.text(), "Sondage \xc3\xa9t\xc3\xa9 \xe2\x82\xac");
  EXPECT_EQ(latin.text(), "\xc3\xa9");
}

// Only the shortest forms of code points up to U+10FFFF, surrogates excepted, count as UTF-8.
TEST(Runtime, Utf8IsTakenOnlyWhenStrictlyValid) {
  EXPECT_TRUE(
      is_utf8("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF\xED\x9F\xBF\xEE\x80\x80"));
  // Overlong forms, a surrogate, beyond U+10FFFF, cut short.
  for (const char* bad : {"\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF",
                          "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82"})
    EXPECT_FALSE(is_utf8(bad)) << bad;
  EXPECT_EQ(to_utf8("\xED\xA0\x80"), "\xC3\xAD\xC2\xA0\xE2\x82\xAC");
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
  EXPECT_EQ(error_of_reading(big), kPathFileAccess);
  ::getrusage(RUSAGE_SELF, &after);
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 64 * 1024);  // kilobytes
  if (::geteuid() == 0) GTEST_SKIP() << "root writes into any folder";
  fs::permissions(dir_, fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(error_of_writing(dir_ / "b.TX3"), kPermissionDenied);
}

}  // namespace
}  // namespace tellux::rt
