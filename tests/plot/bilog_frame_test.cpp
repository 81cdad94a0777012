#include "plot/bilog_frame.h"

#include <cmath>

#include "core/runtime/errors.h"
#include "plot_fixture.h"

namespace tellux {
namespace {

using testing::at;
using testing::has_op;

class BilogFrameTest : public testing::PlotTest {
 protected:
  void limits(int16_t ab_min, int16_t ab_max, int16_t rho_min, int32_t rho_max, int16_t x0,
              int16_t x1, int16_t y0, int32_t y1) {
    s.AB2min = ab_min, s.AB2max = ab_max, s.RHOmin = rho_min, s.RHOmax = rho_max;
    s.DecadeStart = x0, s.DecadeEnd = x1, s.RhoDecadeStart = y0, s.RhoDecadeEnd = y1;
  }
  // Hollow boxes in the colour of the points: the marks.
  std::vector<std::string> point_marks() const {
    std::vector<std::string> out;
    for (const auto& op : screen.ops)
      if (op.ends_with(" " + std::to_string(s.PointsColour) + " B")) out.push_back(op);
    return out;
  }
};

// Minor lines stand at the program's logarithm (the golden diagrams); without a coloured grid
// they take the superposed colour.
TEST_F(BilogFrameTest, MinorLinesWithoutAColouredGrid) {
  limits(0, 10000, 1, 10000, -1, 4, 0, 4);
  s.ColourGrid = false;
  DrawBilogFrame(s, screen);
  const double p = std::log(2000.0) * 0.4343 - 1;
  EXPECT_TRUE(has_op(screen.ops, "Line " + at(p) + " 0.0000 " + at(p) + " 4.0000 32768"));
}

// A point at AB2max exactly is marked, one just above it is not; none is drawn in the mode
// "FIELD". (The marks' size, form and place in the drawing are in the golden diagrams.)
TEST_F(BilogFrameTest, MarksOnlyForPointsInsideTheLimits) {
  limits(1, 1000, 1, 10000, 0, 3, 0, 4);
  field({{1000, 100}, {1001, 100}, {10, 100}, {10, 20000}, {10, 0.5}});
  DrawBilogFrame(s, screen);
  const auto m = point_marks();
  ASSERT_EQ(m.size(), 2u);
  EXPECT_EQ(m[0].substr(0, 11), "Line " + at(std::log(1000.0) * 0.4343 - s.MarkHalfSize));
  s.WorkMode = mode::kField;
  screen.ops.clear();
  DrawBilogFrame(s, screen);
  EXPECT_TRUE(point_marks().empty());
}

// A limit of 0.1 admits points below one, but a zero field value it admits fails in the caller;
// the axis is named after the array; no decades on the abscissa still draws.
TEST_F(BilogFrameTest, TheEdgesOfTheLimitsAndTheAxisName) {
  limits(0, 1000, 1, 1000, -1, 3, 0, 3);
  field({{0.5, 100}});
  DrawBilogFrame(s, screen);
  EXPECT_EQ(point_marks().size(), 1u);
  s.Spread = SpreadType::Wenner;
  DrawBilogFrame(s, screen);
  EXPECT_TRUE(has_op(screen.ops, "Print \"   a [m]\""));
  field({{0, 100}});
  try {
    DrawBilogFrame(s, screen);
    FAIL() << "no error";
  } catch (const rt::RuntimeError& e) {
    EXPECT_EQ(e.number(), rt::kInvalidCall);
  }
  limits(10, 10, 1, 1000, 1, 1, 0, 3);
  DrawBilogFrame(s, screen);
  EXPECT_EQ(screen.ops.back(), "MousePointer 2");
}

TEST_F(BilogFrameTest, ReadOutCutsBelowOneDecadeAndRoundsAbove) {
  TextBox Text1;
  ShowBilogReadout(s, screen, Text1, 0.5f, 2.0f);
  EXPECT_EQ(Text1.Text, "AB/2= 3.1  R= 100");
  EXPECT_EQ(screen.ops.back(), "MousePointer 2");
  ShowBilogReadout(s, screen, Text1, 1.5f, -0.7f);
  EXPECT_EQ(Text1.Text, "AB/2= 32  R= .1");
  s.Spread = SpreadType::Wenner;
  EXPECT_EQ(bilog_readout(s, 0.5f, 2.0f), "A= 3.1  R= 100");
  s.Spread = SpreadType::Dipole;
  EXPECT_EQ(bilog_readout(s, 0.5f, 2.0f), "AM= 3.1  R= 100");
  // The number texts are cut to 6 and 7 characters.
  s.Spread = SpreadType::Schlumberger;
  EXPECT_EQ(bilog_readout(s, 0.25f, 6.25f), "AB/2= 1.7  R= 177827");
  EXPECT_EQ(bilog_readout(s, 5.5f, 7.5f), "AB/2= 31622  R= 316227");
  EXPECT_EQ(bilog_readout(s, std::nanf(""), 0.0f), "AB/2= 0  R= 1");
}

}  // namespace
}  // namespace tellux
