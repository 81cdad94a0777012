// The splice shift, through the sheet's Compute and its switch.
#include "model/splice_shift.h"
#include "sheet_fixture.h"

namespace tellux::testing {
namespace {

using SpliceShiftSheet = SheetTest;

// Rows of AB/2 and a typed resistivity each.
void resistivities(GridModel& grid,
                   std::initializer_list<std::pair<const char*, const char*>> rows) {
  int i = 1;
  for (const auto& [ab, rho] : rows) {
    grid.set_text(i, 2, ab);
    grid.set_text(i, 6, rho);
    ++i;
  }
}

TEST(RoundResistivity, WholeTenthsOrHundredthsWithHalvesToEven) {
  EXPECT_DOUBLE_EQ(round_resistivity(100.5), 100);
  EXPECT_DOUBLE_EQ(round_resistivity(101.5), 102);
  EXPECT_DOUBLE_EQ(round_resistivity(99.96), 100);
  EXPECT_DOUBLE_EQ(round_resistivity(12.25), 12.2);
  EXPECT_DOUBLE_EQ(round_resistivity(9.876), 9.88);
  EXPECT_DOUBLE_EQ(round_resistivity(-3.456), -3.46);
}

// The switch shifts the segment after a lone splice onto the first and keeps the measured values
// in column 7; switching off restores them.
TEST_F(SpliceShiftSheet, ALoneSpliceJoinsTheLaterSegmentUntilTheSwitchGoesOff) {
  resistivities(sheet.BuildGrid, {{"5", "80"}, {"10", "100"}, {"10", "120"}, {"20", "240"}});
  sheet.lissbox.Value = 1;
  sheet.lissbox_Click();
  EXPECT_EQ(s.FieldCount, 4);
  EXPECT_DOUBLE_EQ(table(2, 2), 100);
  EXPECT_DOUBLE_EQ(table(3, 2), 100);
  EXPECT_DOUBLE_EQ(table(4, 2), 200);
  EXPECT_EQ(cell(3, 6), " 100");
  EXPECT_EQ(cell(4, 6), " 200");
  EXPECT_DOUBLE_EQ(table(3, 7), 120);
  EXPECT_DOUBLE_EQ(table(4, 7), 240);
  sheet.lissbox.Value = 0;
  sheet.lissbox_Click();
  EXPECT_EQ(s.ShiftCurves, 0);
  EXPECT_DOUBLE_EQ(table(3, 2), 120);
  EXPECT_DOUBLE_EQ(table(4, 2), 240);
  EXPECT_EQ(cell(4, 6), " 240");
  EXPECT_EQ(sheet_forms.frames, 2);
  EXPECT_EQ(sheet_forms.focus, 2);  // on the sheet's tab
}

TEST_F(SpliceShiftSheet, ASpliceOnTheSecondRowIsALoneOne) {
  resistivities(sheet.BuildGrid, {{"10", "100"}, {"10", "120"}, {"20", "240"}});
  s.ShiftCurves = 1;
  EXPECT_NO_THROW(sheet.Compute());
  EXPECT_DOUBLE_EQ(table(2, 2), 100);
  EXPECT_DOUBLE_EQ(table(3, 2), 200);
}

TEST_F(SpliceShiftSheet, NoRepeatedSpacingNoChange) {
  resistivities(sheet.BuildGrid, {{"5", "80"}, {"10", "100"}, {"20", "240"}});
  s.ShiftCurves = 1;
  sheet.Compute();
  EXPECT_DOUBLE_EQ(table(2, 2), 100);
  EXPECT_DOUBLE_EQ(table(3, 2), 240);
}

TEST_F(SpliceShiftSheet, ReadingsAreShiftedToo) {
  // Schlumberger readings with DeltaV = I, so that each resistivity is the row's K.
  put_row(1, {"1", "5", "100", "100", "", ""});   // K 37.7
  put_row(2, {"1", "10", "100", "100", "", ""});  // K 155.5 -> 156
  put_row(3, {"4", "10", "100", "100", "", ""});  // K 32.99 -> 33
  put_row(4, {"4", "20", "100", "100", "", ""});  // K 150.8 -> 151
  s.ShiftCurves = 1;
  sheet.Compute();
  EXPECT_DOUBLE_EQ(table(2, 2), 156);
  EXPECT_DOUBLE_EQ(table(3, 2), 156);
  EXPECT_DOUBLE_EQ(table(3, 5), 32.99);  // K is not shifted
  // The factor is R = 33 / 156 in single precision: 151 / R = 713.8 -> 714.
  EXPECT_DOUBLE_EQ(table(4, 2), 714);
  EXPECT_EQ(cell(4, 6), " 714");
}

// Two splices with two points between them: the jumps 1.2 and 1.5 are shared by their
// geometric mean G = (1.2 x 1.5)^0.5 = 1.341641.
TEST_F(SpliceShiftSheet, CloseSplicesShareTheJumpsByTheirGeometricMean) {
  resistivities(
      sheet.BuildGrid,
      {{"5", "50"}, {"10", "100"}, {"10", "120"}, {"20", "180"}, {"20", "270"}, {"40", "540"}});
  s.ShiftCurves = 1;
  sheet.Compute();
  EXPECT_EQ(s.FieldCount, 6);
  EXPECT_DOUBLE_EQ(table(1, 2), 50);
  EXPECT_DOUBLE_EQ(table(2, 2), 100);
  // Row 3: 100 x 1.2 / G = 89.44, to tenths because the present A (225) is 10 or more.
  EXPECT_DOUBLE_EQ(table(3, 2), 89.4);
  EXPECT_EQ(cell(3, 6), "89.4");
  // Row 4: 150 x 1.2, its first shift undone.
  EXPECT_DOUBLE_EQ(table(4, 2), 180);
  EXPECT_EQ(cell(4, 6), "180");
  // Row 5: 225 x 1.2 / G = 201.2; the factor becomes G.
  EXPECT_DOUBLE_EQ(table(5, 2), 201);
  EXPECT_DOUBLE_EQ(table(6, 2), 402);  // 540 / 1.341641 = 402.5 -> 402
}

TEST_F(SpliceShiftSheet, CloseSpliceRoundsSmallValuesByThePresentRow) {
  // A rewritten row below 10 keeps tenths when the present row's A is 10 or more.
  resistivities(sheet.BuildGrid,
                {{"5", "5"}, {"10", "6"}, {"10", "7.2"}, {"20", "9"}, {"20", "13.5"}});
  s.ShiftCurves = 1;
  sheet.Compute();
  // R = 1.2, f = 1.2; row 4: 7.5; row 5: A = 11.25 -> 11.2 (tenths: 10 or more).
  // G = (1.2 x 11.2 / 7.5)^0.5 = 1.338656; row 3: 6 x 1.2 / G = 5.3785 -> 5.4, not 5.38.
  EXPECT_DOUBLE_EQ(table(3, 2), 5.4);
  EXPECT_DOUBLE_EQ(table(4, 2), 9);
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
