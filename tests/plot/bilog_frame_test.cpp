#include "plot/bilog_frame.h"

#include <cmath>

#include "core/runtime/errors.h"
#include "plot_fixture.h"

namespace tellux {
namespace {

using testing::at;
using testing::has_op;
using testing::ops_starting;

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

TEST_F(BilogFrameTest, DrawsTheFrameInItsOrder) {
  limits(1, 100, 10, 1000, 0, 2, 1, 3);
  s.FieldCount = 0;
  DrawBilogFrame(s, screen);
  const std::vector<std::string> head = {
      "MousePointer 11",
      "DrawWidth 1",
      "Cls",
      "Scale -0.0399 3.0501 2.2000 0.8000",
      "Line 0.0000 3.0000 2.0000 1.0000 16777215 BF",
      "Line 0.0000 3.0000 2.0000 1.0000 0 B",
      "DrawStyle 0",
      "Line 0.0000 1.0000 0.0000 3.0000 fore",
      "PSet 0.0000 0.9940 12632256",
      "Print \" 1\"",
      "Line 1.0000 1.0000 1.0000 3.0000 fore",
      "PSet 1.0000 0.9940 12632256",
      "Print \" 10\"",
      "Line 2.0000 1.0000 2.0000 3.0000 fore",
      "PSet 2.0000 0.9940 12632256",
      "Print \" 100\"",
      "Line 0.0000 1.0000 2.0000 1.0000 fore",
      "Line 0.0000 2.0000 2.0000 2.0000 fore",
      "Line 0.0000 3.0000 2.0000 3.0000 fore",
      "PSet 2.0050 2.0000 12632256",
      "Print \" 100\"",
      "PSet 2.0050 3.0000 12632256",
      "Print \" 1000\"",
      "PSet 2.0050 2.9000 12632256",
      "Print \" [ohm\u00B7m]\"",
      "PSet 0.1500 0.9940 12632256",
      "Print \"   AB/2 [m]\"",
  };
  ASSERT_GE(screen.ops.size(), head.size());
  EXPECT_EQ(std::vector<std::string>(screen.ops.begin(), screen.ops.begin() + head.size()), head);
  // Eight minor lines per decade and axis, then the closing settings.
  EXPECT_EQ(screen.ops.size(), head.size() + 2 * 2 * 8 + 2);
  EXPECT_EQ(screen.ops[screen.ops.size() - 2], "DrawWidth 1");
  EXPECT_EQ(screen.ops.back(), "MousePointer 2");
}

TEST_F(BilogFrameTest, MinorLinesUseTheProgramsLogarithmAndLabelsStartAtPointOne) {
  limits(0, 10000, 1, 10000, -1, 4, 0, 4);
  DrawBilogFrame(s, screen);
  // k = 2 in decade 3 stands at ln(2000) x 0.4343 - 1, a little right of log10(200).
  const double p = std::log(2000.0) * 0.4343 - 1;
  EXPECT_GT(std::fabs(p - std::log10(200.0)), 3e-5);
  EXPECT_TRUE(has_op(screen.ops, "Line " + at(p) + " 0.0000 " + at(p) + " 4.0000 16512"));
  // With the superposed colour when the grid is not coloured.
  s.ColourGrid = false;
  screen.ops.clear();
  DrawBilogFrame(s, screen);
  EXPECT_TRUE(has_op(screen.ops, "Line " + at(p) + " 0.0000 " + at(p) + " 4.0000 32768"));
  // Labels from 0.1, and none for the bottom decade.
  limits(0, 1000, 0, 1000, -1, 3, -2, 3);
  screen.ops.clear();
  DrawBilogFrame(s, screen);
  const auto prints = ops_starting(screen.ops, "Print");
  ASSERT_GE(prints.size(), 12u);
  EXPECT_EQ(prints[0], "Print \" .1\"");  // the first abscissa label
  // Ordinate labels start one decade above the bottom: .1, 1, ... and never .01.
  EXPECT_EQ(prints[5], "Print \" .1\"");
  EXPECT_EQ(prints[6], "Print \" 1\"");
  EXPECT_FALSE(has_op(prints, "Print \" .01\""));
}

// With 3 and 4 decades the marks are 0.0126 across each way from the point; none is drawn in the
// mode "FIELD".
TEST_F(BilogFrameTest, MarksOnlyForPointsInsideTheLimits) {
  limits(1, 1000, 1, 10000, 0, 3, 0, 4);
  // At AB2max exactly; a little above it (still inside the right margin); and in range.
  field({{1000, 100}, {1001, 100}, {10, 100}, {10, 20000}, {10, 0.5}});
  DrawBilogFrame(s, screen);
  EXPECT_NEAR(s.MarkHalfSize, 0.0126, 1e-15);
  const auto m = point_marks();
  ASSERT_EQ(m.size(), 2u);
  const double h = s.MarkHalfSize;
  const double x = std::log(1000.0) * 0.4343, y = std::log(100.0) * 0.4343;
  EXPECT_EQ(m[0],
            "Line " + at(x - h) + " " + at(y - h) + " " + at(x + h) + " " + at(y + h) + " 255 B");
  const double x10 = std::log(10.0) * 0.4343;
  EXPECT_EQ(m[1].substr(0, 5 + at(x10 - h).size()), "Line " + at(x10 - h));
  // Marks lie on top of the grid: they come after the last minor line.
  EXPECT_EQ(screen.ops[screen.ops.size() - 3], m[1]);
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
  s.Spread = SpreadType::Dipole;
  DrawBilogFrame(s, screen);
  EXPECT_TRUE(has_op(screen.ops, "Print \"   AM [m]\""));
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
