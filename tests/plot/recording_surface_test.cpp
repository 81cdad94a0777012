#include "platform/headless/recording_surface.h"

#include <gtest/gtest.h>

namespace tellux {
namespace {

// The format of each operation is pinned by the golden drawings; a tiny negative value never
// shows as "-0.0000" there.
TEST(RecordingSurfaceTest, NoNegativeZero) {
  RecordingSurface r;
  r.PSet(-0.00001f, 2, 12632256);
  EXPECT_EQ(r.text(), "PSet 0.0000 2.0000 12632256\n");
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
