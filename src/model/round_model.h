#pragma once
// Rounding of one model cell to the digits that the model grid and the report show.
#include <cstdint>

#include "core/sounding_state.h"

namespace tellux {

// Rounds `LayerModel`(row, column). Column 1 (resistivity): whole numbers from 10 up, one decimal
// from 1, two from 0.1, three below. Any other column follows `ThicknessDecimals`: 0 gives whole
// numbers from 10 up, one decimal from 1 and two below; 1 and 2 give that many decimals; any other
// value whole numbers. Raises error 6 when the scaled value does not fit 32 bits, error 9 for a row
// outside the table.
void RoundModelValue(SoundingState& s, const int16_t& column, const int16_t& row);

}  // namespace tellux
