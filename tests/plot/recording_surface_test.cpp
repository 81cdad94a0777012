#include "platform/headless/recording_surface.h"

#include <gtest/gtest.h>

#include "platform/headless/recording_page.h"

namespace tellux {
namespace {

TEST(RecordingSurfaceTest, OneStableLinePerOperation) {
  RecordingSurface r;
  r.Scale(-1.1f, 4.1f, 4.5f, -0.4f);
  r.Line(0, 0, 1, 1);
  r.Line(0, 0, 1, 1, 255, LineForm::Box);
  r.Line(0, 0, 1, 1, 16777215, LineForm::FilledBox);
  r.PSet(-0.00001f, 2, 12632256);
  r.Print(0.1);
  r.Print(1000.0);
  r.LineTo(2, 3);
  EXPECT_EQ(r.text(),
            "Scale -1.1000 4.1000 4.5000 -0.4000\n"
            "Line 0.0000 0.0000 1.0000 1.0000 fore\n"
            "Line 0.0000 0.0000 1.0000 1.0000 255 B\n"
            "Line 0.0000 0.0000 1.0000 1.0000 16777215 BF\n"
            "PSet 0.0000 2.0000 12632256\n"  // never "-0.0000"
            "Print \" .1\"\n"
            "Print \" 1000\"\n"
            "LineTo 2.0000 3.0000 fore\n");
  RecordingPage p;  // the page: twips to two decimals
  p.PenColor(255);
  p.PenWidth(18);
  p.DrawLine(1134, 9000.506, 1134, 9000.506);
  p.DrawLine(1200.25, 8000);
  EXPECT_EQ(p.text(),
            "PenColor 255\nPenWidth 18\nDrawLine 1134.00 9000.51 1134.00 9000.51\n"
            "DrawLine 1200.25 8000.00\n");
}

TEST(RecordingSurfaceTest, CurrentPositionFollowsPointsLinesAndText) {
  RecordingSurface r(450, 10);  // 450 pixels high: 10 pixels of text are a tenth of a unit
  r.Scale(0, 4.5f, 10, 0);
  r.PSet(3, 2);
  EXPECT_FLOAT_EQ(r.CurrentX(), 3);
  r.Line(1, 1, 5, 6);
  EXPECT_FLOAT_EQ(r.CurrentX(), 5);
  EXPECT_FLOAT_EQ(r.CurrentY(), 6);
  r.PSet(3, 2);
  r.Print("x");
  EXPECT_FLOAT_EQ(r.CurrentX(), 0);     // back to the left edge
  EXPECT_FLOAT_EQ(r.CurrentY(), 1.9f);  // one line lower
  r.Cls();
  EXPECT_FLOAT_EQ(r.CurrentY(), 4.5f);
}

}  // namespace
}  // namespace tellux
