// The model grid: typing, fixing values, inserting and deleting layers, and what the grid shows
// of a model and makes of what was typed.
#include <tuple>

#include "model/layer_depths.h"
#include "model_window_fixture.h"

namespace tellux::testing {
namespace {

using Rows = std::vector<std::pair<const char*, const char*>>;
const Rows kThree = {{"100  ", "5  "}, {"20  ", "10  "}, {"500  ", ""}};

class ModelKeysTest : public ModelWindowTest {
 protected:
  void SetUp() override {
    ModelWindowTest::SetUp();
    grid_rows(kThree);
    window.ReadModelGrid();
  }
  std::vector<std::string> all_cells() const {
    std::vector<std::string> cells;
    for (int r = 1; r <= 20; ++r)
      for (int c = 0; c < 4; ++c) cells.push_back(cell(r, c));
    return cells;
  }
};

// Digits, the point and the keypad are typed in the desktop's test; here the refused keys.
TEST_F(ModelKeysTest, OtherKeysAndTheWorkedOutColumnsBeepAndChangeNothing) {
  window.Grid1_Click(1, 0);
  window.Grid1_KeyDown('A');
  window.Grid1_KeyDown(13);
  EXPECT_EQ(cell(1, 0), "100  ");
  EXPECT_EQ(wforms.beeps, 2);
  // A refused key leaves the cell fresh: the next digit still replaces it.
  window.Grid1_KeyDown('7');
  EXPECT_EQ(cell(1, 0), "7  ");
  window.Grid1_KeyDown('5');
  for (int i = 0; i < 3; ++i) window.Grid1_KeyDown(key::kBackspace);
  EXPECT_EQ(cell(1, 0), "  ");  // down to the two blanks, no further
  window.Grid1_Click(2, 2);
  window.Grid1_KeyDown('1');
  EXPECT_EQ(cell(2, 2), "5  ");
  EXPECT_EQ(wforms.beeps, 3);
}

TEST_F(ModelKeysTest, TheCursorKeepsToTheEditableColumnsAndAnEntryMovesItDown) {
  window.Grid1_Click(2, 0);
  window.Grid1_KeyDown(key::kRight);
  window.Grid1_KeyDown(key::kRight);
  EXPECT_EQ(window.Grid1.col, 1);
  EXPECT_EQ(window.Grid1.row, 2);
  window.Grid1_KeyDown(key::kDown);
  EXPECT_EQ(window.Grid1.row, 3);
  window.Grid1_KeyDown('8');  // the cell reached is fresh
  EXPECT_EQ(cell(3, 1), "8  ");

  window.Grid1_Click(19, 0);
  window.Grid1_AfterEdit();
  EXPECT_EQ(window.Grid1.row, 20);
  window.Grid1_AfterEdit();
  EXPECT_EQ(window.Grid1.row, 20);
}

TEST_F(ModelKeysTest, ADoubleClickFixesAValueAndASecondFreesIt) {
  // An empty row, a depth, and the half space's missing thickness take no lock.
  for (auto [r, c] : {std::pair{5, 0}, {2, 2}, {3, 1}}) {
    window.Grid1_Click(r, c);
    window.Grid1_DblClick();
    EXPECT_EQ(s.LayerLocks[r], 0) << r;
  }
  // The thickness, the resistivity, the thickness again: locks 2, 3 and 1.
  for (auto [c, lock] : {std::pair{1, 2}, {0, 3}, {1, 1}}) {
    window.Grid1_Click(2, c);
    window.Grid1_DblClick();
    EXPECT_EQ(s.LayerLocks[2], lock);
  }
  EXPECT_EQ(window.Grid1.fore_colour(2, 0), 255);
  EXPECT_EQ(window.Grid1.back_colour(2, 1), 0xFFFFFF);
  EXPECT_EQ(window.Grid1.back_colour(2, 0), 65535);
}

// Insert and Delete on the three-layer grid at an elevation of 100, a lock on the half space: the
// cells expected after them, where the lock went, and the layers then read.
TEST_F(ModelKeysTest, InsertAndDeleteShiftTheRowsTheirDepthsAndTheirLocks) {
  const struct {
    int row;
    bool insert;
    int lock_row;
    int16_t layers;
    std::vector<std::tuple<int, int, const char*>> cells;
  } cases[] = {
      // The new layer, 1 m thick, starts where the old one did and pushes the others down.
      {2, true, 4, 4, {{2, 0, "100  "}, {2, 1, "1  "}, {2, 2, "5  "}}},
      {2, true, 4, 4, {{3, 0, "20  "}, {3, 3, "94  "}, {4, 2, "16  "}}},
      {1, true, 4, 4, {{1, 2, ""}, {2, 0, "100  "}, {2, 2, "1  "}, {3, 2, "6  "}}},
      // The altitude rises by the thickness taken out.
      {2, false, 2, 2, {{2, 0, "500  "}, {2, 1, ""}, {2, 2, "5  "}, {2, 3, "95  "}, {3, 0, ""}}},
      {1, false, 2, 2, {{1, 0, "20  "}, {1, 2, ""}, {2, 2, "10  "}}},
      // The last layer: the one above becomes the half space.
      {3, false, 0, 2, {{3, 0, ""}, {3, 2, ""}, {2, 1, ""}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.row) + (c.insert ? " insert" : " delete"));
    grid_rows(kThree);
    Z.Text = "100";
    window.ReadModelGrid();
    s.LayerLocks.erase();
    s.LayerLocks[3] = 1;
    window.RefreshModelGrid();
    window.Grid1_Click(c.row, 0);
    c.insert ? window.InsLine_Click() : window.delLine_Click();
    for (auto [r, col, text] : c.cells) EXPECT_EQ(cell(r, col), text) << r << "," << col;
    for (int r = 1; r <= 4; ++r) EXPECT_EQ(s.LayerLocks[r], r == c.lock_row ? 1 : 0) << r;
    EXPECT_EQ(window.Grid1.back_colour(std::max(c.lock_row, 1), 0), c.lock_row ? 65535 : 0xFFFFFF);
    window.ReadModelGrid();
    EXPECT_EQ(s.LayerCount, c.layers);
  }
}

// Below the model, or with twenty layers, Insert beeps and changes nothing; Delete on an empty
// row changes nothing.
TEST_F(ModelKeysTest, InsertingBelowTheModelOrWithTwentyLayersBeeps) {
  std::vector<std::string> before = all_cells();
  window.Grid1_Click(6, 0);
  window.InsLine_Click();
  EXPECT_EQ(wforms.beeps, 1);
  window.Grid1_Click(7, 0);
  window.delLine_Click();
  EXPECT_EQ(all_cells(), before);
  for (int r = 1; r <= 20; ++r) {
    window.Grid1.set_text(r, 0, "10  ");
    window.Grid1.set_text(r, 1, r < 20 ? "1  " : "");
  }
  window.ReadModelGrid();
  ASSERT_EQ(s.LayerCount, 20);
  before = all_cells();
  window.Grid1_Click(5, 0);
  window.InsLine_Click();
  EXPECT_EQ(wforms.beeps, 2);
  EXPECT_EQ(all_cells(), before);
  window.delLine_Click();  // Delete then empties the last row
  EXPECT_EQ(cell(19, 0), "10  ");
  EXPECT_EQ(cell(20, 0), "");
}

// A typed grid read into the record and shown again: the cells then shown.
TEST_F(ModelKeysTest, TheGridShowsWhatItReadOfTheTypedModel) {
  const Rows kRounded = {{"123.4  ", "1.234  "}, {"", "12.34  "}, {"0.25  ", ""}},
             kHalves = {{"100  ", "3  "}, {"20  ", "2.5  "}, {"500  ", ""}},
             kDeeper = {{"100  ", "5.2  "}, {"20  ", "10  "}, {"500  ", ""}};
  const struct {
    const char* z;
    int16_t decimals, layers;
    Rows rows;
    std::vector<std::tuple<int, int, const char*>> cells;
  } cases[] = {
      // The last resistivity without a thickness is the half space; the grid shows the depths of
      // the tops, none for the surface, and no altitude without an elevation.
      {"", 0, 3, kThree, {{1, 2, ""}, {2, 2, "5  "}, {3, 2, "15  "}, {3, 1, ""}, {1, 3, ""}}},
      // Rows below the half space are dropped.
      {"", 0, 2, {{"100  ", "5  "}, {"20  ", ""}, {"500  ", "7  "}}, {{3, 0, ""}, {3, 1, ""}}},
      // Rounded as read; a blank resistivity with a thickness gets the least value.
      {"", 0, 3, kRounded, {{1, 0, "123  "}, {1, 1, "1.2  "}, {2, 1, "12  "}}},
      {"", 0, 3, kRounded, {{2, 0, ".001  "}, {3, 0, ".25  "}}},
      // Thicknesses take the decimals of the setup; resistivities are plain text.
      {"", 2, 3, kHalves, {{1, 1, "3.00  "}, {2, 1, "2.50  "}, {3, 2, "5.50  "}, {1, 0, "100  "}}},
      // The depth of 15.2 is shown whole (15), and the altitude is worked out from that.
      {"250.4", 0, 3, kDeeper, {{1, 3, "250.4  "}, {2, 3, "245.2  "}, {3, 2, "15  "}}},
      {"250.4", 0, 3, kDeeper, {{3, 3, "235.4  "}, {4, 3, ""}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.rows[0].first + std::string(c.z));
    s.ThicknessDecimals = c.decimals;
    Z.Text = c.z;
    grid_rows(c.rows);
    window.ReadModelGrid();
    EXPECT_EQ(s.LayerCount, c.layers);
    EXPECT_EQ(s.LocationZ, c.z);
    for (auto [r, col, text] : c.cells) EXPECT_EQ(cell(r, col), text) << r << "," << col;
  }

  Title.Text = "VES 3";  // the main form's boxes go to the record and back
  window.ReadModelGrid();
  EXPECT_EQ(s.GraphTitle, "VES 3");
  s.GraphTitle = "VES 4";
  window.RefreshModelGrid();
  EXPECT_EQ(Title.Text, "VES 4");
}

// Thicknesses are never cut, only completed.
TEST(FormatThickness, CompletesTheDecimalsAndNeverCuts) {
  SoundingState s;
  const struct {
    int16_t decimals;
    double value;
    const char* text;
  } cases[] = {{1, 3.0, "3.0"},        {1, 0.5, ".5"},      {1, 2.25, "2.25.0"},
               {2, 1.125, "1.125.00"}, {2, 12.75, "12.75"}, {0, 12.75, "12.75"}};
  for (const auto& c : cases) {
    s.ThicknessDecimals = c.decimals;
    EXPECT_EQ(FormatThickness(s, c.value), c.text) << c.decimals << " " << c.value;
  }
}

TEST_F(ModelKeysTest, TheOverlayModeOfTheDepthsStopsAtTheFirstLowLayer) {
  s.WorkMode = mode::kSuperpose;
  s.OverlayModel(1, 1) = 50.0;
  s.OverlayModel(1, 2) = 2.0;
  s.OverlayModel(2, 1) = 0.05;
  ComputeDepths(ws);
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"Impossible..."});

  s.OverlayModel(2, 1) = 30.0;
  s.OverlayModel(2, 2) = 4.0;
  ComputeDepths(ws);
  EXPECT_EQ(s.LayerCount, 2);
  EXPECT_EQ(s.OverlayModel(3, 3).num(), 4);  // thickness of row 2 plus its depth, left 0
}

}  // namespace
}  // namespace tellux::testing
