#include <gtest/gtest.h>

#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"

namespace tellux::rt {
namespace {

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
TEST(NumberText, ValReadsTheLeadingNumberAndIgnoresBlanks) {
  const std::pair<const char*, double> cases[] = {
      {"  12.5abc", 12.5}, {"1 2 3", 123}, {" .5", 0.5}, {"-.25", -0.25},
      {"1.5E+3x", 1500},   {"2D2", 200},   {"3E", 3},    {"&HFF", 255},
      {"&O17", 15},        {"abc", 0},     {"", 0},      {"1,5", 1}};
  for (auto [text, value] : cases) EXPECT_DOUBLE_EQ(Val(text), value) << text;
}

TEST(NumberText, FileTokensMustBeWholeNumbersAndSinglesSurviveTheRoundTrip) {
  EXPECT_DOUBLE_EQ(parse_number_token(" 12.5 "), 12.5);
  EXPECT_DOUBLE_EQ(parse_number_token(""), 0.0);
  for (const char* bad : {"12a", "abc", "1.2.3", "--1", "1,5"}) {
    try {
      parse_number_token(bad);
      ADD_FAILURE() << bad;
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), kTypeMismatch) << bad;
    }
  }
  for (float v : {0.1f, 1.5f, 123.456f, 99999.99f, 1234567.f, 0.001f, 7.77e-5f})
    EXPECT_EQ(static_cast<float>(parse_number_token(CStrSingle(v))), v) << v;
}

}  // namespace
}  // namespace tellux::rt
