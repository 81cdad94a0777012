#pragma once
// The automatic first model: a layered model read straight off the field curve. It walks the field
// points in the bilog plane and opens a layer where the log-log slope passes through a flat spot
// and then turns or jumps by more than `ModelSensitivity`. A starting point for the fit, nothing
// more.
#include "core/session.h"

namespace tellux {

// Overwrites `LayerModel` (rows 1..20, resistivity and thickness), `LayerLocks` and `LayerCount`
// from `FieldTable` and sets the work mode to "AUTOMATIC". Neither computes the curve nor fits.
// Runs under an error trap: a field value of 0, a zero difference of spacings or a 22nd layer
// shows "Automatic model impossible..." and keeps the rows written so far.
void AutomaticModel(Session& session);

}  // namespace tellux
