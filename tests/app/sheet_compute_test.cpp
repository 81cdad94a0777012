// Compute: the sheet's rows into FieldTable, with and without the splice shift.
#include "model/geometric_factor.h"
#include "model/splice_shift.h"
#include "sheet_fixture.h"

namespace tellux::testing {
namespace {

using Compute = SheetTest;

// Rows of a file computed in their own way (spacings and K cut to four and six characters, a
// negative K, a row without MN/2, dipole terms that cancel, a row out of order that moves up one
// place only) are compared with the batch compute's golden files.

TEST(GeometricFactor, HalfArrayDoublesWennerAndRoundingGoesToEven) {
  EXPECT_DOUBLE_EQ(geometric_factor(SpreadType::Wenner, 2, 3, 0), 2 * 3 * 3.1416);
  EXPECT_DOUBLE_EQ(round_geometric_factor(100.5), 100);
  EXPECT_DOUBLE_EQ(round_geometric_factor(101.5), 102);
}

TEST_F(Compute, ResistivityOnlyRowsKeepTheirUnshiftedCopy) {
  put_row(1, {"", "1", "", "", "", "85.25"});
  put_row(2, {"", "2", "", "", "", "250.6"});
  sheet.Compute();
  EXPECT_DOUBLE_EQ(table(1, 7), 85.25);
  // The unshifted copy stands: a value typed without clearing it is not taken.
  sheet.BuildGrid.set_text(2, 6, "300");
  sheet.Compute();
  EXPECT_DOUBLE_EQ(table(2, 2), 251);

  // Wenner: below 0, or 0 with nothing kept, gives 1; an empty row still ends the data.
  s.Spread = SpreadType::Wenner;
  put_row(2, {"", "2", "", "", "", "-5"});
  put_row(3, {"", "3", "", "", "", "0"});
  put_row(4, {"", "4", "", "", "", "40"});
  sheet.Compute();
  EXPECT_EQ(s.FieldCount, 4);
  EXPECT_DOUBLE_EQ(table(2, 2), 1);
  EXPECT_DOUBLE_EQ(table(3, 2), 1);
  EXPECT_DOUBLE_EQ(table(4, 2), 40);
}

// The correction itself is in the batch compute's golden file; here the one that fails.
TEST_F(Compute, AMarineCorrectionThatFailsIsPassed) {
  put_row(1, {"", "1", "", "", "", "10"});
  sheet.Marine_floor.Value = 1;
  sheet.Reau.Text = "10";  // water as resistive as the reading
  sheet.Compute();
  EXPECT_DOUBLE_EQ(table(1, 2), 10);
}

TEST_F(Compute, DataEndAtTheFirstEmptyRowAndTheCursorComesBack) {
  put_row(1, {"", "1", "", "", "", "10"});
  put_row(2, {"", "2", "", "", "", "20"});
  put_row(3, {"", "3", "", "", "", ""});
  put_row(4, {"", "400", "", "", "", "40"});
  s.MaxAbHalf = 999;
  sheet.BuildGrid.row = 7;
  sheet.BuildGrid.col = 3;
  sheet.Compute();
  EXPECT_EQ(s.FieldCount, 2);
  EXPECT_EQ(s.MaxAbHalf, 2);
  EXPECT_EQ(cell(4, 6), "40");  // rows after the end are not read
  EXPECT_EQ(sheet.BuildGrid.row, 7);
  EXPECT_EQ(sheet.BuildGrid.col, 3);
  EXPECT_TRUE(sheet.BuildGrid.redraw);
}

// All 50 lines full: Compute leaves the count as it stood, and nothing reaches row 51.
TEST_F(Compute, The51stRowCannotBeReached) {
  s.FieldCount = 51;
  s.FieldTable(51, 1) = 5000.0;
  s.FieldTable(51, 2) = 77.0;
  for (int i = 1; i <= 50; ++i) put_row(i, {"", std::to_string(i), "", "", "", "10"});
  sheet.Compute();
  EXPECT_EQ(s.FieldCount, 51);
  EXPECT_DOUBLE_EQ(table(51, 2), 77);
  EXPECT_EQ(s.MaxAbHalf, 50);
  EXPECT_THROW(sheet.BuildGrid.text(51, 1), rt::RuntimeError);

  // Insert line has no room left.
  s.FieldCount = 50;
  sheet.BuildGrid.row = 10;
  sheet.RecordButton_Click();
  EXPECT_EQ(sheet_forms.beeps, 1);
  EXPECT_EQ(cell(50, 2), "50");

  // Typing has no row 51 to go to.
  sheet.BuildGrid.row = 51;
  sheet.BuildGrid.col = 2;
  EXPECT_NO_THROW(sheet.BuildGrid_KeyPress('5'));
}

// Figures no field sheet should hold still compute without an error reaching the user.
TEST_F(Compute, OutsizedFiguresArePassedOver) {
  put_row(1, {"0.5", "99999999999", "1e30", "1", "", ""});
  put_row(2, {"", "2", "", "", "", "1e300"});
  EXPECT_NO_THROW(sheet.Compute());
  EXPECT_EQ(s.FieldCount, 2);
  EXPECT_EQ(s.MaxAbHalf, 2);  // the first AB/2 is too large for its 16 bits and is passed over
  EXPECT_TRUE(dialogs.messages.empty());
}

// The splice shift, through the sheet's Compute and its switch.
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
  EXPECT_DOUBLE_EQ(table(4, 2), 200);
  EXPECT_EQ(cell(4, 6), " 200");
  EXPECT_DOUBLE_EQ(table(4, 7), 240);
  sheet.lissbox.Value = 0;
  sheet.lissbox_Click();
  EXPECT_EQ(s.ShiftCurves, 0);
  EXPECT_DOUBLE_EQ(table(3, 2), 120);
  EXPECT_EQ(cell(4, 6), " 240");
  EXPECT_EQ(sheet_forms.frames, 2);
  EXPECT_EQ(sheet_forms.focus, 2);  // on the sheet's tab
}

// The shift itself (a lone splice on the second row; two splices close together, whose jumps are
// shared by their geometric mean, rounded by the present row's resistivity) is compared with the
// batch compute's golden files.

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
