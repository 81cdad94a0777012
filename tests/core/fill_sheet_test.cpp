// The copy of the field table into the sheet.
#include <gtest/gtest.h>

#include "core/fill_sheet.h"

namespace tellux {
namespace {

// Readings go out with the number text, K cut to six characters; a row with a resistivity only
// fills AB/2 and resistivity; the sheet is emptied first, its header kept.
TEST(FillSheet, WritesTheReadingsWithTheNumberTextAndKCutToSixCharacters) {
  SoundingState s;
  GridModel grid(51, 7);
  grid.set_text(0, 2, "AB/2");
  grid.set_text(9, 3, "stale");
  s.FieldCount = 2;
  const float first[] = {1.5f, 120.5f, 0.5f, 123.4f, 1234.567f, 10.0f};
  for (int c = 1; c <= 6; ++c) s.FieldTable(1, c) = first[c - 1];
  s.FieldTable(2, 1) = 10.0f;
  s.FieldTable(2, 2) = 60.5f;
  fill_sheet(s, grid);
  const char* rows[][6] = {{" .5", " 1.5", " 123.4", " 10", " 1234.", " 120.5"},
                           {"", " 10", "", "", "", " 60.5"}};
  for (int r = 1; r <= 2; ++r)
    for (int c = 1; c <= 6; ++c) EXPECT_EQ(grid.text(r, c), rows[r - 1][c - 1]) << r << c;
  EXPECT_EQ(grid.text(9, 3), "");
  EXPECT_EQ(grid.text(0, 2), "AB/2");
  EXPECT_TRUE(grid.redraw);
  // Wenner shows no MN/2 but its K.
  s.Spread = SpreadType::Wenner;
  fill_sheet(s, grid);
  EXPECT_EQ(grid.text(1, 1), "");
  EXPECT_EQ(grid.text(1, 5), " 1234.");
  // A 51st row has no line, but the sheet comes back.
  s.FieldCount = 51;
  for (int i = 1; i <= 51; ++i) s.FieldTable(i, 1) = static_cast<float>(i);
  grid.redraw = false;
  EXPECT_NO_THROW(fill_sheet(s, grid));
  EXPECT_EQ(grid.text(50, 2), " 50");
  EXPECT_TRUE(grid.redraw);
}

}  // namespace
}  // namespace tellux
