// The model grid against the record: what the grid shows of a model, and what a typed grid makes
// of the model.
#include "model/layer_depths.h"
#include "model_window_fixture.h"

namespace tellux::testing {
namespace {

using ModelGridTest = ModelWindowTest;

TEST_F(ModelGridTest, AResistivityWithoutThicknessOnTheLastRowIsTheHalfSpace) {
  grid_rows({{"100  ", "5  "}, {"20  ", "10  "}, {"500  ", ""}});
  window.ReadModelGrid();
  EXPECT_EQ(s.LayerCount, 3);
  EXPECT_EQ(depth(1), 0);
  EXPECT_EQ(depth(2), 5);
  EXPECT_EQ(depth(3), 15);
  // The grid shows the depths of the tops, none for the surface, and no thickness for the last.
  EXPECT_EQ(cell(1, 2), "");
  EXPECT_EQ(cell(3, 2), "15  ");
  EXPECT_EQ(cell(3, 1), "");

  // Rows below the half space are dropped.
  grid_rows({{"100  ", "5  "}, {"20  ", ""}, {"500  ", "7  "}});
  window.ReadModelGrid();
  EXPECT_EQ(s.LayerCount, 2);
  EXPECT_EQ(rho(3), 0);
  EXPECT_EQ(cell(3, 0), "");
  EXPECT_EQ(cell(3, 1), "");
}

// The grid rounds what it reads; a blank resistivity with a thickness gets the least value.
TEST_F(ModelGridTest, TheGridRoundsWhatItReadsAndABlankResistivityIsTheLeastValue) {
  grid_rows({{"123.4  ", "1.234  "}, {"", "12.34  "}, {"0.25  ", ""}});
  window.ReadModelGrid();
  EXPECT_EQ(s.LayerCount, 3);
  EXPECT_EQ(rho(1), 123);
  EXPECT_EQ(h(1), 1.2);
  EXPECT_EQ(h(2), 12);
  EXPECT_EQ(rho(2), 0.001);
  EXPECT_EQ(cell(2, 0), ".001  ");
  EXPECT_EQ(cell(3, 0), ".25  ");
}

TEST_F(ModelGridTest, ThicknessesTakeTheDecimalsOfTheSetup) {
  s.ThicknessDecimals = 2;
  grid_rows({{"100  ", "3  "}, {"20  ", "2.5  "}, {"500  ", ""}});
  window.ReadModelGrid();
  EXPECT_EQ(cell(1, 1), "3.00  ");
  EXPECT_EQ(cell(2, 1), "2.50  ");
  EXPECT_EQ(cell(3, 2), "5.50  ");
  EXPECT_EQ(cell(1, 0), "100  ");  // resistivities are plain text

  // Never cut, only completed.
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

TEST_F(ModelGridTest, AltitudesFollowTheElevationOfTheSounding) {
  Z.Text = "250.4";
  grid_rows({{"100  ", "5.2  "}, {"20  ", "10  "}, {"500  ", ""}});
  window.ReadModelGrid();
  EXPECT_EQ(s.LocationZ, "250.4");
  EXPECT_EQ(cell(1, 3), "250.4  ");
  EXPECT_EQ(cell(2, 3), "245.2  ");
  // The depth of 15.2 is shown whole (15), and the altitude is worked out from that.
  EXPECT_EQ(cell(3, 2), "15  ");
  EXPECT_EQ(cell(3, 3), "235.4  ");
  EXPECT_EQ(cell(4, 3), "");

  Z.Text = "";
  Title.Text = "VES 3";  // the main form's boxes go to the record and back
  window.ReadModelGrid();
  EXPECT_EQ(cell(1, 3), "");
  EXPECT_EQ(s.GraphTitle, "VES 3");
  s.GraphTitle = "VES 4";
  window.RefreshModelGrid();
  EXPECT_EQ(Title.Text, "VES 4");
}

TEST_F(ModelGridTest, TheOverlayModeOfTheDepthsStopsAtTheFirstLowLayer) {
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
