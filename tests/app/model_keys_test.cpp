// Typing in the model grid, fixing values, and inserting and deleting layers.
#include "model_window_fixture.h"

namespace tellux::testing {
namespace {

class ModelKeysTest : public ModelWindowTest {
 protected:
  void SetUp() override {
    ModelWindowTest::SetUp();
    grid_rows({{"100  ", "5  "}, {"20  ", "10  "}, {"500  ", ""}});
    window.ReadModelGrid();
  }
};

TEST_F(ModelKeysTest, AFreshCellIsReplacedByTheFirstDigitAndTheNextOnesAdd) {
  window.Grid1_Click(2, 0);
  window.Grid1_KeyDown('3');
  EXPECT_EQ(cell(2, 0), "3  ");
  window.Grid1_KeyDown('5');
  EXPECT_EQ(cell(2, 0), "35  ");
  window.Grid1_KeyDown(key::kBackspace);
  window.Grid1_KeyDown(key::kBackspace);
  EXPECT_EQ(cell(2, 0), "  ");
  window.Grid1_KeyDown(key::kBackspace);  // down to the two blanks, no further
  EXPECT_EQ(cell(2, 0), "  ");
  EXPECT_EQ(wforms.beeps, 0);
}

TEST_F(ModelKeysTest, TheKeypadTypesAsTheMainKeys) {
  window.Grid1_Click(1, 1);
  window.Grid1_KeyDown(key::kPad0 + 1);
  window.Grid1_KeyDown(key::kPadPoint);
  window.Grid1_KeyDown(key::kPad0 + 5);
  EXPECT_EQ(cell(1, 1), "1.5  ");
  window.Grid1_Click(1, 1);
  window.Grid1_KeyDown('1');
  window.Grid1_KeyDown(key::kPeriod);
  window.Grid1_KeyDown('5');
  EXPECT_EQ(cell(1, 1), "1.5  ");
  EXPECT_EQ(wforms.beeps, 0);
}

TEST_F(ModelKeysTest, OtherKeysBeepAndChangeNothing) {
  window.Grid1_Click(1, 0);
  window.Grid1_KeyDown('A');
  window.Grid1_KeyDown(13);
  EXPECT_EQ(cell(1, 0), "100  ");
  EXPECT_EQ(wforms.beeps, 2);
  // A refused key leaves the cell fresh: the next digit still replaces it.
  window.Grid1_KeyDown('7');
  EXPECT_EQ(cell(1, 0), "7  ");
}

TEST_F(ModelKeysTest, DepthAndAltitudeTakeNoKeys) {
  window.Grid1_Click(2, 2);
  window.Grid1_KeyDown('1');
  EXPECT_EQ(cell(2, 2), "5  ");
  EXPECT_EQ(wforms.beeps, 1);
}

TEST_F(ModelKeysTest, TheCursorKeepsToTheTwoEditableColumnsOnTheRightArrow) {
  window.Grid1_Click(2, 0);
  window.Grid1_KeyDown(key::kRight);
  EXPECT_EQ(window.Grid1.col, 1);
  window.Grid1_KeyDown(key::kRight);
  EXPECT_EQ(window.Grid1.col, 1);
  EXPECT_EQ(window.Grid1.row, 2);
  window.Grid1_KeyDown(key::kDown);
  EXPECT_EQ(window.Grid1.row, 3);
  // The cell reached is fresh.
  window.Grid1_KeyDown('8');
  EXPECT_EQ(cell(3, 1), "8  ");
}

TEST_F(ModelKeysTest, TheEndOfAnEntryMovesOneRowDown) {
  window.Grid1_Click(19, 0);
  window.Grid1_AfterEdit();
  EXPECT_EQ(window.Grid1.row, 20);
  window.Grid1_AfterEdit();
  EXPECT_EQ(window.Grid1.row, 20);
}

TEST_F(ModelKeysTest, ADoubleClickFixesAValueAndASecondFreesIt) {
  window.Grid1_Click(2, 1);
  window.Grid1_DblClick();
  EXPECT_EQ(s.LayerLocks[2], 2);
  EXPECT_EQ(window.Grid1.back_colour(2, 1), 65535);
  EXPECT_EQ(window.Grid1.fore_colour(2, 1), 255);
  window.Grid1_Click(2, 0);
  window.Grid1_DblClick();
  EXPECT_EQ(s.LayerLocks[2], 3);
  window.Grid1_Click(2, 1);
  window.Grid1_DblClick();
  EXPECT_EQ(s.LayerLocks[2], 1);
  EXPECT_EQ(window.Grid1.back_colour(2, 1), 0xFFFFFF);
  EXPECT_EQ(window.Grid1.fore_colour(2, 1), 0);
  EXPECT_EQ(window.Grid1.back_colour(2, 0), 65535);
}

TEST_F(ModelKeysTest, ADoubleClickOnAnEmptyOrWorkedOutCellDoesNothing) {
  window.Grid1_Click(5, 0);
  window.Grid1_DblClick();
  window.Grid1_Click(2, 2);
  window.Grid1_DblClick();
  window.Grid1_Click(3, 1);  // the half space has no thickness to fix
  window.Grid1_DblClick();
  EXPECT_EQ(s.LayerLocks[5], 0);
  EXPECT_EQ(s.LayerLocks[2], 0);
  EXPECT_EQ(s.LayerLocks[3], 0);
}

TEST_F(ModelKeysTest, InsertingALayerPushesTheOthersOneMetreDown) {
  Z.Text = "100";
  window.ReadModelGrid();
  s.LayerLocks[2] = 3;
  window.RefreshModelGrid();
  window.Grid1_Click(2, 1);
  window.InsLine_Click();
  EXPECT_EQ(cell(2, 0), "100  ");
  EXPECT_EQ(cell(2, 1), "1  ");
  EXPECT_EQ(cell(2, 2), "5  ");  // the new layer starts where the old one did
  EXPECT_EQ(cell(3, 0), "20  ");
  EXPECT_EQ(cell(3, 2), "6  ");
  EXPECT_EQ(cell(3, 3), "94  ");
  EXPECT_EQ(cell(4, 0), "500  ");
  EXPECT_EQ(cell(4, 1), "");
  EXPECT_EQ(cell(4, 2), "16  ");
  EXPECT_EQ(s.LayerLocks[2], 0);
  EXPECT_EQ(s.LayerLocks[3], 3);
  EXPECT_EQ(window.Grid1.back_colour(3, 0), 65535);
  EXPECT_EQ(window.Grid1.back_colour(2, 0), 0xFFFFFF);
  EXPECT_EQ(window.Grid1.row, 2);
  EXPECT_TRUE(window.Grid1.redraw);

  window.ReadModelGrid();
  EXPECT_EQ(s.LayerCount, 4);
  EXPECT_EQ(depth(4), 16);
}

TEST_F(ModelKeysTest, InsertingOnTheFirstRowKeepsItsDepthBlank) {
  window.Grid1_Click(1, 0);
  window.InsLine_Click();
  EXPECT_EQ(cell(1, 2), "");
  EXPECT_EQ(cell(2, 0), "100  ");
  EXPECT_EQ(cell(2, 2), "1  ");
  EXPECT_EQ(cell(3, 2), "6  ");
}

TEST_F(ModelKeysTest, InsertingWithTwentyLayersBeepsAndChangesNothing) {
  for (int r = 1; r <= 20; ++r) {
    window.Grid1.set_text(r, 0, "10  ");
    window.Grid1.set_text(r, 1, r < 20 ? "1  " : "");
  }
  window.ReadModelGrid();
  ASSERT_EQ(s.LayerCount, 20);
  std::vector<std::string> before;
  for (int r = 1; r <= 20; ++r)
    for (int c = 0; c < 4; ++c) before.push_back(cell(r, c));
  window.Grid1_Click(5, 0);
  window.InsLine_Click();
  EXPECT_EQ(wforms.beeps, 1);
  std::vector<std::string> after;
  for (int r = 1; r <= 20; ++r)
    for (int c = 0; c < 4; ++c) after.push_back(cell(r, c));
  EXPECT_EQ(after, before);
}

TEST_F(ModelKeysTest, InsertingBelowTheModelBeeps) {
  window.Grid1_Click(6, 0);
  window.InsLine_Click();
  EXPECT_EQ(wforms.beeps, 1);
  EXPECT_EQ(cell(6, 0), "");
}

TEST_F(ModelKeysTest, DeletingALayerLiftsTheOnesBelow) {
  s.LayerLocks[3] = 1;
  window.RefreshModelGrid();
  window.Grid1_Click(2, 0);
  window.delLine_Click();
  EXPECT_EQ(cell(2, 0), "500  ");
  EXPECT_EQ(cell(2, 1), "");
  EXPECT_EQ(cell(2, 2), "5  ");
  EXPECT_EQ(cell(3, 0), "");
  EXPECT_EQ(s.LayerLocks[2], 1);
  EXPECT_EQ(s.LayerLocks[20], 0);
  EXPECT_EQ(window.Grid1.back_colour(2, 0), 65535);
  EXPECT_EQ(window.Grid1.row, 2);
  EXPECT_EQ(window.Grid1.col, 0);
}

TEST_F(ModelKeysTest, DeletingTheLastLayerMakesTheOneAboveTheHalfSpace) {
  window.Grid1_Click(3, 0);
  window.delLine_Click();
  EXPECT_EQ(cell(3, 0), "");
  EXPECT_EQ(cell(3, 2), "");
  EXPECT_EQ(cell(2, 1), "");
  window.ReadModelGrid();
  EXPECT_EQ(s.LayerCount, 2);
}

TEST_F(ModelKeysTest, DeletingTheFirstLayerLeavesTheNewFirstWithoutDepth) {
  window.Grid1_Click(1, 0);
  window.delLine_Click();
  EXPECT_EQ(cell(1, 0), "20  ");
  EXPECT_EQ(cell(1, 2), "");
  EXPECT_EQ(cell(2, 2), "10  ");
}

TEST_F(ModelKeysTest, DeletingAnEmptyRowDoesNothing) {
  window.Grid1_Click(7, 0);
  window.delLine_Click();
  EXPECT_EQ(cell(3, 0), "500  ");
  EXPECT_EQ(cell(2, 1), "10  ");
}

}  // namespace
}  // namespace tellux::testing
