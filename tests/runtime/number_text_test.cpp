#include <gtest/gtest.h>

#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"

namespace tellux::rt {
namespace {

TEST(NumberText, StrPutsABlankForTheSignAndNoZeroBeforeThePoint) {
  EXPECT_EQ(Str(0.5), " .5");
  EXPECT_EQ(Str(-0.5), "-.5");
  EXPECT_EQ(Str(10.0), " 10");
  EXPECT_EQ(Str(0.0), " 0");
  EXPECT_EQ(Str(0.1), " .1");
  EXPECT_EQ(Str(0.01), " .01");
  EXPECT_EQ(Str(1000.0), " 1000");
  EXPECT_EQ(Str(-12.25), "-12.25");
  EXPECT_EQ(CStr(0.5), ".5");
  EXPECT_EQ(CStr(-0.5), "-.5");
  // The fraction of a TX3 first line: its third character tells the layout.
  EXPECT_EQ(StrSingle(0.5f), " .5");
  EXPECT_EQ(StrSingle(12.5f - 12.0f), " .5");
}

TEST(NumberText, SinglesCarrySevenDigitsAndTurnToExponentFormAtTenMillion) {
  EXPECT_EQ(CStrSingle(1234567.f), "1234567");
  EXPECT_EQ(CStrSingle(9999999.f), "9999999");
  EXPECT_EQ(CStrSingle(12345678.f), "1.234568E+07");
  EXPECT_EQ(CStrSingle(10000000.f), "1E+07");
  EXPECT_EQ(CStrSingle(0.1f), ".1");  // not .100000001490116
  EXPECT_EQ(CStrSingle(3.14159274f), "3.141593");
  EXPECT_EQ(CStrSingle(-2.5e-7f), "-2.5E-07");
}

TEST(NumberText, DoublesCarryFifteenDigits) {
  EXPECT_EQ(CStr(1.0 / 3.0), ".333333333333333");
  EXPECT_EQ(CStr(123456789012345.0), "123456789012345");
  EXPECT_EQ(CStr(1234567890123456.0), "1.23456789012346E+15");
  EXPECT_EQ(CStr(0.0001), ".0001");
  EXPECT_EQ(CStr(0.00001), "1E-05");
  EXPECT_EQ(Str(0.00001), " 1E-05");
  EXPECT_EQ(CStr(0.1 + 0.2), ".3");
  EXPECT_EQ(CStr(99.99999999999999), "100");
}

TEST(NumberText, IntegerKindsAreWhole) {
  EXPECT_EQ(Str(Cell(int16_t{-3})), "-3");
  EXPECT_EQ(Str(Cell(int32_t{1234567890})), " 1234567890");
  EXPECT_EQ(Str(Cell()), " 0");  // an empty cell counts as 0
}

TEST(NumberText, ValReadsTheLeadingNumberAndIgnoresBlanks) {
  EXPECT_DOUBLE_EQ(Val("  12.5abc"), 12.5);
  EXPECT_DOUBLE_EQ(Val("1 2 3"), 123.0);
  EXPECT_DOUBLE_EQ(Val(" .5"), 0.5);
  EXPECT_DOUBLE_EQ(Val("-.25"), -0.25);
  EXPECT_DOUBLE_EQ(Val("1.5E+3x"), 1500.0);
  EXPECT_DOUBLE_EQ(Val("2D2"), 200.0);
  EXPECT_DOUBLE_EQ(Val("3E"), 3.0);  // an exponent without digits is not part of the number
  EXPECT_DOUBLE_EQ(Val("&HFF"), 255.0);
  EXPECT_DOUBLE_EQ(Val("&O17"), 15.0);
  EXPECT_DOUBLE_EQ(Val("abc"), 0.0);
  EXPECT_DOUBLE_EQ(Val(""), 0.0);
  EXPECT_DOUBLE_EQ(Val("1,5"), 1.0);  // the comma is no decimal mark
}

TEST(NumberText, FileTokensMustBeWholeNumbers) {
  EXPECT_DOUBLE_EQ(parse_number_token(" 12.5 "), 12.5);
  EXPECT_DOUBLE_EQ(parse_number_token(""), 0.0);
  EXPECT_DOUBLE_EQ(parse_number_token("1.234568E+07"), 12345680.0);
  for (const char* bad : {"12a", "abc", "1.2.3", "--1", "1,5"}) {
    try {
      parse_number_token(bad);
      ADD_FAILURE() << bad;
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), kTypeMismatch) << bad;
    }
  }
}

TEST(NumberText, SingleTextSurvivesARoundTrip) {
  for (float v : {0.1f, 1.5f, 123.456f, 99999.99f, 1234567.f, 0.001f, 7.77e-5f}) {
    EXPECT_EQ(static_cast<float>(parse_number_token(CStrSingle(v))), v) << v;
  }
}

}  // namespace
}  // namespace tellux::rt
