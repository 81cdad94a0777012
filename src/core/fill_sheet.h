#pragma once
// Copies the field readings into the field sheet `BuildGrid`.
#include "core/sounding_state.h"
#include "platform/grid_model.h"

namespace tellux {

// Rows of the sheet and columns in use: rows 1..50, columns 1..6 (MN/2, AB/2, DeltaV, I, K,
// resistivity); row 0 is the header.
inline constexpr int kSheetRows = 50;
inline constexpr int kSheetColumns = 6;

// Empties rows 1..50 and writes rows 1..FieldCount with the number text (leading blank): AB/2;
// DeltaV and I when DeltaV is above 0; MN/2 (empty for Wenner) and the first six characters of
// K when MN/2 is above 0; the resistivity. A row the sheet has no room for (row 51) is left out.
void fill_sheet(const SoundingState& s, GridModel& BuildGrid);

}  // namespace tellux
