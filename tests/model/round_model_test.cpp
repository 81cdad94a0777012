#include "model/round_model.h"

#include <gtest/gtest.h>

#include "core/runtime/errors.h"

namespace tellux {
namespace {

double rounded(SoundingState& s, int16_t column, Cell value) {
  const int16_t row = 3;
  s.LayerModel(row, column) = value;
  RoundModelValue(s, column, row);
  return s.LayerModel(row, column).num();
}

TEST(RoundModelValue, ResistivityKeepsMoreDecimalsTheSmallerItIs) {
  SoundingState s;
  EXPECT_EQ(rounded(s, 1, 1234.56), 1235);
  EXPECT_EQ(rounded(s, 1, 10.5), 10);   // half to even
  EXPECT_EQ(rounded(s, 1, 2.25), 2.2);  // one decimal from 1 to 10, half to even
  EXPECT_EQ(rounded(s, 1, 0.5), 0.5);
  EXPECT_EQ(rounded(s, 1, 0.12345), 0.12);
  EXPECT_EQ(rounded(s, 1, 0.0456), 0.046);
  EXPECT_EQ(rounded(s, 1, 0.0004), 0);
  EXPECT_EQ(rounded(s, 1, Cell()), 0);
}

TEST(RoundModelValue, ThicknessFollowsThicknessDecimals) {
  SoundingState s;
  s.ThicknessDecimals = 0;
  EXPECT_EQ(rounded(s, 2, 12.5), 12);
  EXPECT_EQ(rounded(s, 2, 3.25), 3.2);
  EXPECT_EQ(rounded(s, 2, 0.125), 0.12);
  EXPECT_EQ(rounded(s, 3, 0.125), 0.12);  // depth: the thickness rule
  s.ThicknessDecimals = 1;
  EXPECT_EQ(rounded(s, 2, 123.25), 123.2);
  EXPECT_EQ(rounded(s, 2, 0.125), 0.1);
  s.ThicknessDecimals = 2;
  EXPECT_EQ(rounded(s, 2, 1.125), 1.12);
  EXPECT_EQ(rounded(s, 2, 150000.0), 150000);
  s.ThicknessDecimals = 5;
  EXPECT_EQ(rounded(s, 2, 7.6), 8);
}

TEST(RoundModelValue, ASingleCellIsScaledInSinglePrecision) {
  SoundingState s;
  s.ThicknessDecimals = 2;
  // 2.675f x 100 is 267.5 in single precision (267.49999... in double): half to even gives 268.
  EXPECT_EQ(rounded(s, 2, 2.675f), 2.68);
  EXPECT_EQ(rounded(s, 2, static_cast<double>(2.675f)), 2.67);
}

TEST(RoundModelValue, AValueBeyondThirtyTwoBitsOverflows) {
  SoundingState s;
  try {
    rounded(s, 1, 3e9);
    FAIL() << "no overflow";
  } catch (const rt::RuntimeError& e) {
    EXPECT_EQ(e.number(), rt::kOverflow);
  }
  EXPECT_THROW(RoundModelValue(s, 1, 22), rt::RuntimeError);  // row outside the table
}

TEST(RoundModelValue, RowZeroIsHarmless) {
  SoundingState s;
  RoundModelValue(s, 1, 0);
  RoundModelValue(s, 2, 0);
  EXPECT_EQ(s.LayerModel(0, 1).num(), 0);
}

}  // namespace
}  // namespace tellux
