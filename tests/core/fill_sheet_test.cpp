// The copy of the field table into the sheet.
#include <gtest/gtest.h>

#include "core/fill_sheet.h"

namespace tellux {
namespace {

TEST(FillSheet, WritesTheReadingsWithTheNumberTextAndKCutToSixCharacters) {
  SoundingState s;
  GridModel grid(51, 7);
  grid.set_text(0, 2, "AB/2");
  grid.set_text(9, 3, "stale");
  s.FieldCount = 2;
  s.FieldTable(1, 1) = 1.5f;
  s.FieldTable(1, 2) = 120.5f;
  s.FieldTable(1, 3) = 0.5f;
  s.FieldTable(1, 4) = 123.4f;
  s.FieldTable(1, 5) = 1234.567f;
  s.FieldTable(1, 6) = 10.0f;
  s.FieldTable(2, 1) = 10.0f;  // a row with a resistivity only
  s.FieldTable(2, 2) = 60.5f;
  fill_sheet(s, grid);

  EXPECT_EQ(grid.text(1, 1), " .5");
  EXPECT_EQ(grid.text(1, 2), " 1.5");
  EXPECT_EQ(grid.text(1, 3), " 123.4");
  EXPECT_EQ(grid.text(1, 4), " 10");
  EXPECT_EQ(grid.text(1, 5), " 1234.");
  EXPECT_EQ(grid.text(1, 6), " 120.5");
  for (int c : {1, 3, 4, 5}) EXPECT_EQ(grid.text(2, c), "") << c;
  EXPECT_EQ(grid.text(2, 2), " 10");
  EXPECT_EQ(grid.text(2, 6), " 60.5");
  EXPECT_EQ(grid.text(9, 3), "");
  EXPECT_EQ(grid.text(0, 2), "AB/2");
  EXPECT_TRUE(grid.redraw);
}

TEST(FillSheet, WennerShowsNoMnButItsK) {
  SoundingState s;
  s.Spread = SpreadType::Wenner;
  GridModel grid(51, 7);
  s.FieldCount = 1;
  s.FieldTable(1, 1) = 2.0f;
  s.FieldTable(1, 3) = 2.0f;
  s.FieldTable(1, 5) = 12.57f;
  fill_sheet(s, grid);
  EXPECT_EQ(grid.text(1, 1), "");
  EXPECT_EQ(grid.text(1, 5), " 12.57");
}

TEST(FillSheet, A51stRowHasNoLineButTheSheetComesBack) {
  SoundingState s;
  GridModel grid(51, 7);
  s.FieldCount = 51;
  for (int i = 1; i <= 51; ++i) s.FieldTable(i, 1) = static_cast<float>(i);
  EXPECT_NO_THROW(fill_sheet(s, grid));
  EXPECT_EQ(grid.text(50, 2), " 50");
  EXPECT_TRUE(grid.redraw);
}

}  // namespace
}  // namespace tellux
