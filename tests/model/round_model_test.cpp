#include "model/round_model.h"

#include <gtest/gtest.h>

#include "core/runtime/errors.h"

namespace tellux {
namespace {

double rounded(SoundingState& s, int16_t column, Cell value) {
  s.LayerModel(3, column) = value;
  RoundModelValue(s, column, 3);
  return s.LayerModel(3, column).num();
}

// A resistivity keeps more decimals the smaller it is; a thickness (and a depth) follows
// ThicknessDecimals; halves go to the even neighbour.
TEST(RoundModelValue, EachColumnByItsRule) {
  SoundingState s;
  EXPECT_EQ(rounded(s, 1, 10.5), 10);
  EXPECT_EQ(rounded(s, 1, 2.25), 2.2);
  EXPECT_EQ(rounded(s, 1, 0.12345), 0.12);
  EXPECT_EQ(rounded(s, 1, 0.0456), 0.046);
  EXPECT_EQ(rounded(s, 1, 0.0004), 0);
  EXPECT_EQ(rounded(s, 1, Cell()), 0);
  EXPECT_EQ(rounded(s, 2, 12.5), 12);
  EXPECT_EQ(rounded(s, 2, 0.125), 0.12);
  EXPECT_EQ(rounded(s, 3, 0.125), 0.12);
  s.ThicknessDecimals = 1;
  EXPECT_EQ(rounded(s, 2, 0.125), 0.1);
  s.ThicknessDecimals = 2;
  EXPECT_EQ(rounded(s, 2, 150000.0), 150000);
  // A single cell is scaled in single precision: 2.675f x 100 is 267.5 there (267.49999... in
  // double), and the half goes to the even 268.
  EXPECT_EQ(rounded(s, 2, 2.675f), 2.68);
  EXPECT_EQ(rounded(s, 2, static_cast<double>(2.675f)), 2.67);
  s.ThicknessDecimals = 5;
  EXPECT_EQ(rounded(s, 2, 7.6), 8);
}

TEST(RoundModelValue, OverflowAndRowsOutsideTheModel) {
  SoundingState s;
  try {
    rounded(s, 1, 3e9);  // beyond thirty-two bits
    FAIL() << "no overflow";
  } catch (const rt::RuntimeError& e) {
    EXPECT_EQ(e.number(), rt::kOverflow);
  }
  EXPECT_THROW(RoundModelValue(s, 1, 22), rt::RuntimeError);  // row outside the table
  RoundModelValue(s, 1, 0);                                   // row zero is harmless
  RoundModelValue(s, 2, 0);
  EXPECT_EQ(s.LayerModel(0, 1).num(), 0);
}

}  // namespace
}  // namespace tellux
