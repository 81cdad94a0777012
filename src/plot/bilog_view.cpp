#include "plot/bilog_view.h"

#include "plot/equivalence_band.h"

namespace tellux {

void BilogDrawing::set_pointer(int shape) {
  if (surfaces.screen) surfaces.screen->MousePointer(shape);
}

void BilogDrawing::segment(int point, double value) {
  DrawCurveSegment(session_, surfaces, static_cast<int16_t>(point), value);
}

void BilogDrawing::error_curve() { DrawErrorCurve(session_, surfaces); }

void BilogDrawing::model_steps() {
  DrawEquivalenceBand(session_, surfaces);
  DrawModelSteps(session_, surfaces);
}

}  // namespace tellux
