#pragma once
// The largest AB/2 of the sounding, as the range of the forward calculation needs it.
#include <cstdint>

#include "core/sounding_state.h"

namespace tellux {

// Raises `max_ab_half` to the largest AB/2 of field rows 1..FieldCount, rounded half to even;
// leaves it when the AB/2 of rows 1 to 3 add up to exactly 1. Failing statements are skipped.
void find_max_ab(SoundingState& s, int16_t& max_ab_half);

}  // namespace tellux
