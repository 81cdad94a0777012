// The splice shift, through the sheet's Compute and its switch.
#include "model/splice_shift.h"
#include "sheet_fixture.h"

namespace tellux::testing {
namespace {

using SpliceShiftSheet = SheetTest;

// Whole from 100, tenths from 10, hundredths below, halves to even: 99.96 passes to the whole.
TEST(RoundResistivity, WholeTenthsOrHundredthsWithHalvesToEven) {
  const std::pair<double, double> cases[] = {{100.5, 100},  {101.5, 102},  {99.96, 100},
                                             {12.25, 12.2}, {9.876, 9.88}, {-3.456, -3.46}};
  for (auto [value, rounded] : cases) EXPECT_DOUBLE_EQ(round_resistivity(value), rounded) << value;
}

// The switch shifts the segment after a lone splice onto the first and keeps the measured values
// in column 7; switching off restores them.
TEST_F(SpliceShiftSheet, ALoneSpliceJoinsTheLaterSegmentUntilTheSwitchGoesOff) {
  const char* rows[][2] = {{"5", "80"}, {"10", "100"}, {"10", "120"}, {"20", "240"}};
  for (int i = 0; i < 4; ++i) put_row(i + 1, {"", rows[i][0], "", "", "", rows[i][1]});
  sheet.lissbox.Value = 1;
  sheet.lissbox_Click();
  EXPECT_EQ(s.FieldCount, 4);
  EXPECT_DOUBLE_EQ(table(3, 2), 100);
  EXPECT_DOUBLE_EQ(table(4, 2), 200);
  EXPECT_EQ(cell(4, 6), " 200");
  EXPECT_DOUBLE_EQ(table(3, 7), 120);
  EXPECT_DOUBLE_EQ(table(4, 7), 240);
  sheet.lissbox.Value = 0;
  sheet.lissbox_Click();
  EXPECT_EQ(s.ShiftCurves, 0);
  EXPECT_DOUBLE_EQ(table(3, 2), 120);
  EXPECT_EQ(cell(4, 6), " 240");
  EXPECT_EQ(sheet_forms.frames, 2);
  EXPECT_EQ(sheet_forms.focus, 2);  // on the sheet's tab
}

// Rows of AB/2 and a typed resistivity, and the resistivities the shift makes of them.
TEST_F(SpliceShiftSheet, SplicesShiftTheLaterSegments) {
  const struct {
    std::vector<std::pair<std::string, std::string>> rows;
    std::vector<double> shifted;
  } cases[] = {
      // A splice on the second row is a lone one; no repeated spacing, no change.
      {{{"10", "100"}, {"10", "120"}, {"20", "240"}}, {100, 100, 200}},
      {{{"5", "80"}, {"10", "100"}, {"20", "240"}}, {80, 100, 240}},
      // Two splices with two points between them: the jumps 1.2 and 1.5 are shared by their
      // geometric mean G = 1.341641. Row 3: 100 x 1.2 / G = 89.44, to tenths as the present A
      // (225) is 10 or more; row 4: 150 x 1.2, its first shift undone; row 5: 225 x 1.2 / G;
      // row 6: 540 / G = 402.5.
      {{{"5", "50"}, {"10", "100"}, {"10", "120"}, {"20", "180"}, {"20", "270"}, {"40", "540"}},
       {50, 100, 89.4, 180, 201, 402}},
      // R = 1.2; row 5: A = 11.25 -> 11.2; G = (1.2 x 11.2 / 7.5)^0.5 = 1.338656; row 3:
      // 6 x 1.2 / G = 5.3785 -> 5.4, not 5.38: the present row's A is 10 or more.
      {{{"5", "5"}, {"10", "6"}, {"10", "7.2"}, {"20", "9"}, {"20", "13.5"}}, {5, 6, 5.4, 9}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.rows.size());
    s.FieldTable.erase();
    for (int i = 1; i <= 6; ++i) put_row(i, {"", "", "", "", "", ""});
    for (size_t i = 0; i < c.rows.size(); ++i)
      put_row(i + 1, {"", c.rows[i].first, "", "", "", c.rows[i].second});
    s.ShiftCurves = 1;
    EXPECT_NO_THROW(sheet.Compute());
    EXPECT_EQ(s.FieldCount, static_cast<int>(c.rows.size()));
    for (size_t i = 0; i < c.shifted.size(); ++i)
      EXPECT_DOUBLE_EQ(table(i + 1, 2), c.shifted[i]) << "row " << i + 1;
  }
  EXPECT_EQ(cell(3, 6), "5.4");
}

TEST_F(SpliceShiftSheet, ReadingsAreShiftedToo) {
  // Schlumberger readings with DeltaV = I, so that each resistivity is the row's K.
  put_row(1, {"1", "5", "100", "100", "", ""});   // K 37.7
  put_row(2, {"1", "10", "100", "100", "", ""});  // K 155.5 -> 156
  put_row(3, {"4", "10", "100", "100", "", ""});  // K 32.99 -> 33
  put_row(4, {"4", "20", "100", "100", "", ""});  // K 150.8 -> 151
  s.ShiftCurves = 1;
  sheet.Compute();
  EXPECT_DOUBLE_EQ(table(3, 2), 156);
  EXPECT_DOUBLE_EQ(table(3, 5), 32.99);  // K is not shifted
  // The factor is R = 33 / 156 in single precision: 151 / R = 713.8 -> 714.
  EXPECT_DOUBLE_EQ(table(4, 2), 714);
  EXPECT_EQ(cell(4, 6), " 714");
}

TEST(ShiftSplice, AZeroReadingBeforeTheSpliceFailsWithoutChangingTheWalk) {
  FieldTableT t;
  t(1, 1) = 5.0;
  ShiftWalk w;
  w.A = 120;
  w.B = 0;
  EXPECT_THROW(shift_splice(t, 3, 10, 10, true, w), rt::RuntimeError);
  EXPECT_FLOAT_EQ(w.ShiftFactor, 1.0f);
  EXPECT_DOUBLE_EQ(w.A, 120);
}

}  // namespace
}  // namespace tellux::testing
