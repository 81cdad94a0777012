#pragma once
// The curves drawn on the bilog frame: the computed curve sample by sample while the forward
// calculation runs, the model as a staircase, and the percent deviation of each field point.
// Each routine draws on the surface the work mode names: the page in "FRMPRINT", the printer in
// "IMPRIME", the screen `Bilog` in any other mode. A surface that is not there is not drawn on.
#include <cstdint>

#include "core/session.h"
#include "platform/drawing_surface.h"
#include "platform/page_surface.h"

namespace tellux {

struct BilogSurfaces {
  DrawingSurface* screen = nullptr;   // `Bilog`
  PageSurface* page = nullptr;        // `VSPrint`, the report page
  DrawingSurface* printer = nullptr;  // the printer of the direct report
};

// One sample of the computed curve, `point` counted from 1: eight samples to the decade from the
// left edge. Joined to the one before unless `FirstPoint` is set; a sample outside the frame
// (strictly at the right and at the top) is not drawn and starts a new stroke. A failure shows
// "Error occurs while Drawing Curve" and the routine goes on.
void DrawCurveSegment(Session& session, const BilogSurfaces& surfaces, int16_t point, double value);

// The model that `LayerModel` holds as a staircase: depth on the abscissa, layer resistivity on
// the ordinate, held inside the resistivity limits and at AB2max. Failing statements are skipped
// without a message.
void DrawModelSteps(Session& session, const BilogSurfaces& surfaces);

// Fills `ModelCurve` column 3 with the percent deviation of each field point, then draws it on
// the sounding's axes with 1% on the bottom edge and 10% one decade above. A failure of the
// drawing shows "Error occurs while drawing RMS" and the routine goes on.
void DrawErrorCurve(Session& session, const BilogSurfaces& surfaces);

}  // namespace tellux
