// The synthetic three-layer sample: its readings lie on its model's curve within the few percent
// of scatter it was made with, and its whole diagram is drawn.
#include <string>

#include "core/sounding_file.h"
#include "model/forward.h"
#include "plot/bilog_frame.h"
#include "plot/bilog_view.h"
#include "plot_fixture.h"

namespace tellux {
namespace {

using testing::ops_starting;

class SampleDiagramTest : public testing::PlotTest {};

TEST_F(SampleDiagramTest, ThreeLayerSampleDrawsWithItsCurveStepsAndErrors) {
  std::string path = std::string(TELLUX_TEST_DATA) + "/plot/three_layers.TX3";
  s.FileName = "three_layers.TX3";
  s.FormatLevel = 3;
  ASSERT_TRUE(read_sounding_file(session, path));
  ASSERT_EQ(s.FieldCount, 20);
  s.MaxAbHalf = 1;
  s.LayerCount = 3;
  s.SuperposeCurve = -1;
  s.ShowModelSteps = 1;
  s.ShowErrorCurve = 1;
  s.WorkMode = mode::kNormal;
  BilogDrawing drawing(session, surfaces);
  drawing.attach();
  DrawBilogFrame(s, screen);
  ForwardCurve(session);
  EXPECT_TRUE(dialogs.messages.empty());

  for (int n = 1; n <= s.FieldCount; ++n) EXPECT_LT(s.ModelCurve(n, 3).num(), 5.5) << "row " << n;
  // 20 marks; strokes: the curve, the error curve, the staircase.
  int marks = 0;
  for (const auto& op : screen.ops) marks += op.find(" 255 B") != std::string::npos;
  EXPECT_EQ(marks, 20);
  EXPECT_EQ(ops_starting(screen.ops, "PSet").size(), 12u /* label anchors */ + 3u);
  EXPECT_EQ(screen.ops.back(), "MousePointer 2");
}

}  // namespace
}  // namespace tellux
