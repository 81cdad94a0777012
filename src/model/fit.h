#pragma once
// The curve fit: a coordinate search over the resistivities and thicknesses of `LayerModel`. One
// parameter at a time moves along a line with a step that reverses and halves when the misfit
// grows; whole passes repeat with a shrinking step until a pass no longer gains 2 percent.
#include "core/session.h"

namespace tellux {

// How a fit went, for reports and tests: whole passes over the parameters, and tries (runs of the
// forward calculation inside the search).
struct FitReport {
  int passes = 0;
  int tries = 0;
};

// Fits `LayerModel` to the field points, honouring `LayerLocks`; then drops layers thinner than
// 0.01 (never the last row), rounds every cell, computes and draws the final curve and refreshes
// the model grid. Ends with `FitMisfit` 0. Runs under an error trap: a failure (a misfit of exactly
// 0 among them) shows "Error" and leaves the model as it stands, unrounded.
void FitModel(Session& session, FitReport* report = nullptr);

}  // namespace tellux
