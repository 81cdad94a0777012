#include "plot/curve_drawing.h"

#include <cmath>

#include "plot_fixture.h"

namespace tellux {
namespace {

using testing::at;
using testing::has_op;
using testing::ops_starting;

double L(double v) { return std::log(v) * 0.4343; }

class CurveDrawingTest : public testing::PlotTest {
 protected:
  void SetUp() override {
    PlotTest::SetUp();
    s.AB2min = 0, s.AB2max = 10000, s.RHOmin = 1, s.RHOmax = 10000;
    s.DecadeStart = -1, s.DecadeEnd = 4, s.RhoDecadeStart = 0, s.RhoDecadeEnd = 4;
    s.WorkMode = mode::kNormal;
    s.PlotScale = 20, s.PlotOriginX = 1134, s.PlotOriginY = 9000;
  }
  std::string xy(double x, double y) const { return at(x) + " " + at(y); }
  std::string page_xy(double x, double y) const {
    return fixed_text((x - s.DecadeStart) * 20 * 56.7 + 1134, 2) + " " +
           fixed_text(9000 - (y - s.RhoDecadeStart) * 20 * 56.7, 2);
  }
};

// Samples join into a stroke, which stops at the right edge (strict: the sample at DecadeEnd is
// outside) and starts anew where a curve that left the frame comes back.
TEST_F(CurveDrawingTest, SamplesJoinIntoStrokesInsideTheFrame) {
  s.FirstPoint = false;  // a stroke under way
  DrawCurveSegment(session, surfaces, 40, 100);
  ASSERT_FALSE(s.FirstPoint);
  DrawCurveSegment(session, surfaces, 41, 100);
  EXPECT_EQ(ops_starting(screen.ops, "LineTo"),
            std::vector<std::string>{"LineTo " + xy(3.875, L(100)) + " 255"});
  EXPECT_TRUE(s.FirstPoint);
  screen.ops.clear();
  DrawCurveSegment(session, surfaces, 1, 100);
  DrawCurveSegment(session, surfaces, 2, 20000);  // above the top edge
  EXPECT_TRUE(s.FirstPoint);
  DrawCurveSegment(session, surfaces, 3, 0.5);  // below the bottom edge
  DrawCurveSegment(session, surfaces, 4, 100);
  const auto drawn = ops_starting(screen.ops, "PSet");
  ASSERT_EQ(drawn.size(), 2u);
  EXPECT_EQ(drawn[1], "PSet " + xy(-0.625, L(100)) + " 255");
  EXPECT_TRUE(ops_starting(screen.ops, "LineTo").empty());
}

// Outside the mode "NORMAL" the screen curve is black (and without a coloured grid it takes the
// superposed colour); the printer keeps the curve's colour, with the screen's logic.
TEST_F(CurveDrawingTest, OutsideNormalModeTheScreenCurveIsBlackButThePrinterKeepsItsColour) {
  s.WorkMode = "";
  DrawCurveSegment(session, surfaces, 1, 100);
  EXPECT_EQ(screen.ops.back(), "PSet " + xy(-1, L(100)) + " 0");
  s.WorkMode = mode::kNormal;
  s.ColourGrid = false;
  DrawCurveSegment(session, surfaces, 2, 100);
  EXPECT_EQ(screen.ops.back(), "LineTo " + xy(-0.875, L(100)) + " 32768");
  screen.ops.clear();
  s.ColourGrid = true;
  s.WorkMode = mode::kPrinter;
  s.FirstPoint = true;
  DrawCurveSegment(session, surfaces, 1, 100);
  DrawCurveSegment(session, surfaces, 2, 100);
  EXPECT_TRUE(screen.ops.empty());
  EXPECT_EQ(printer.ops, (std::vector<std::string>{"PSet " + xy(-1, L(100)) + " 255",
                                                   "LineTo " + xy(-0.875, L(100)) + " 255"}));
}

TEST_F(CurveDrawingTest, AFailureShowsItsMessageAndTheCurveGoesOn) {
  s.WorkMode = "";
  s.OverlayColourIndex = 16;  // not a palette entry
  use_language('F');
  DrawCurveSegment(session, surfaces, 1, 100);
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"Erreur lors du tracé de la courbe"});
  EXPECT_EQ(std::pair(dialogs.messages.at(0).icon, s.FirstPoint),
            std::pair(Icon::Exclamation, false));
}

// --- The model's staircase.

TEST_F(CurveDrawingTest, ALayerAboveTheTopRunsOnTheTopEdge) {
  model({{50, 1}, {100, 5}, {20000, 10}, {100, 0}});
  DrawModelSteps(session, surfaces);
  const std::string c = " 16711935";
  EXPECT_EQ(screen.ops, (std::vector<std::string>{
                            "PSet " + xy(-1, L(50)) + c,
                            "LineTo " + xy(0, L(50)) + c,
                            "LineTo " + xy(0, L(100)) + c,
                            "LineTo " + xy(L(6), L(100)) + c,
                            // the vertical run ends just outside the top
                            "LineTo " + xy(L(6), L(10000.001)) + c,
                            // a new stroke on the top edge at the layer's bottom
                            "PSet " + xy(L(16), L(10000)) + c,
                            "LineTo " + xy(L(16), L(10000)) + c,
                            "LineTo " + xy(L(16), L(100)) + c,
                            "LineTo " + xy(4, L(100)) + c,
                        }));
}

TEST_F(CurveDrawingTest, AOneLayerModelStartsOnlyWithALimitOfZero) {
  s.RHOmin = 0;
  model({{100, 0}});
  DrawModelSteps(session, surfaces);
  // The runs to a depth of 0 and to a resistivity of 0 fail and are skipped silently.
  EXPECT_EQ(screen.ops, (std::vector<std::string>{"PSet " + xy(-1, L(100)) + " 16711935"}));
  EXPECT_TRUE(dialogs.messages.empty());
  screen.ops.clear();
  s.AB2min = 1;
  DrawModelSteps(session, surfaces);
  // Nothing drawn; the table walked to its end sets the width.
  EXPECT_EQ(screen.ops, (std::vector<std::string>{"DrawWidth 1"}));
  // Runs beyond AB2max are held at the right edge.
  screen.ops.clear();
  std::tie(s.AB2min, s.AB2max, s.RHOmin) = std::tuple(0, 100, 1);
  model({{100, 50}, {20, 200}, {500, 0}});
  DrawModelSteps(session, surfaces);
  EXPECT_TRUE(has_op(screen.ops, "LineTo " + xy(L(100), L(20)) + " 16711935") &&
              has_op(screen.ops, "LineTo " + xy(L(100), L(500)) + " 16711935"));
}

TEST_F(CurveDrawingTest, OnThePageAnOverlayThicknessCarriesTheStaircaseOn) {
  s.WorkMode = mode::kPreview;
  model({{100, 2}, {20, 0}});
  s.OverlayModel(2, 2) = 5.0;
  DrawModelSteps(session, surfaces);
  // Row 2 counts as having a thickness: no run to the right edge after it.
  EXPECT_EQ(page.ops.front(), "PenColor 16711935");
  EXPECT_EQ(page.ops[1], "DrawLine " + page_xy(-1, L(100)) + " " + page_xy(-1, L(100)));
  EXPECT_FALSE(has_op(page.ops, "DrawLine " + page_xy(4, L(20))));
  EXPECT_EQ(page.ops.back(), "DrawLine " + page_xy(4, L(0.999)));
  // On the screen the same model ends with the half space.
  s.WorkMode = mode::kNormal;
  DrawModelSteps(session, surfaces);
  EXPECT_EQ(screen.ops.back(), "LineTo " + xy(4, L(20)) + " 16711935");
}

// --- The error curve.

TEST_F(CurveDrawingTest, DeviationsAreHundredTimesTheDifferenceOverTheReading) {
  s.ModelCurveLast = 3;
  for (int i = 0; i <= 3; ++i) {
    s.ModelCurve(i, 1) = 100.0;
    s.ModelCurve(i, 2) = std::pow(10.0, i);
  }
  field({{50, 300}, {5000, 100}});
  DrawErrorCurve(session, surfaces);
  // 100 x 200 / 300, not 100 x (200 / 300); the third sample lies beyond the last usable one.
  EXPECT_EQ(std::pair(s.ModelCurve(1, 3).num(), s.ModelCurve(2, 3).num()),
            std::pair(100.0 * 200.0 / 300.0, 0.001));
  // A damaged header's count of 32767 readings: one error and one message, not one per row.
  s.FieldCount = 32767;
  DrawErrorCurve(session, surfaces);
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{" Error occurs while drawing RMS"});
}

TEST_F(CurveDrawingTest, ErrorCurveLiesOnTheSoundingsAxesFromTheBottomEdge) {
  s.ModelCurveLast = 40;  // a flat curve of 99 ohm.m, eight samples to the decade from 0.1 m
  for (int i = 0; i <= 40; ++i) {
    s.ModelCurve(i, 1) = 99.0;
    s.ModelCurve(i, 2) = std::pow(10.0, i * 0.125 - 1);
  }
  s.RhoDecadeStart = 1;
  // 1%, 10%, 0.5%, a point beyond the right edge, then one back inside.
  field({{2, 100}, {5, 110}, {8, 99.5}, {20000, 150}, {30, 200}});
  DrawErrorCurve(session, surfaces);
  EXPECT_EQ(std::pair(s.ModelCurve(1, 3).num(), s.ModelCurve(4, 3).num()), std::pair(1.0, 0.001));
  const std::string c = " 255";
  EXPECT_EQ(screen.ops, (std::vector<std::string>{
                            "DrawWidth 1", "PSet " + xy(L(2), 1) + c,  // 1% on the bottom edge
                            "DrawWidth 1", "LineTo " + xy(L(5), L(s.ModelCurve(2, 3)) + 1) + c,
                            "DrawWidth 1", "LineTo " + xy(L(8), 1) + c,  // under 1%: bottom edge
                            "DrawWidth 1", "PSet " + xy(L(30), L(s.ModelCurve(5, 3)) + 1) + c}));
}

}  // namespace
}  // namespace tellux
