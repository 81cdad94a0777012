#pragma once
// The forward calculation: the apparent-resistivity curve of the current layered model, eight
// rows per decade of AB/2 from the left edge of the diagram to about half a decade past the
// largest field spacing, by the digital-filter method (Koefoed's filters: Schlumberger,
// Wenner, and the dipole filter of Koefoed and others).
#include "core/max_ab.h"
#include "core/session.h"

namespace tellux {

// Computes `ModelCurve` rows 0..`ModelCurveLast` for the array in `Spread`. Draws through the
// session's curve observer unless the work mode is "FICHIER" or a fit is running (`FitMisfit` not
// 0). Runs under an error trap: a failure shows "Calculation error..." and keeps the rows computed
// so far.
void ForwardCurve(Session& session);

// Misfit of the computed curve to the field points: squared differences of base-ten logarithms,
// the first and the last evaluated point counted twice. Failing statements are skipped.
void FieldMisfit(SoundingState& s, Cell& result);

// Fills `ModelCurve` column 3, rows 1..FieldCount, with the percent deviation of each field point
// from the computed curve (0.001 for a point outside the curve's range).
void compute_deviations(SoundingState& s);

}  // namespace tellux
