#pragma once
// The scales at which a section fits its sheet: what the messages "Plot width too big !" and
// "Plot height too big !" propose, and what "Fit the page" types.
#include <cstdint>

namespace tellux {

// The smallest scale denominator of the series 1, 2, 5, 10, 20, 25, 50, 100, ... (1, 2, 2.5 and 5
// times a power of ten) at which `metres`, drawn in whole millimetres rounded as the page size of
// the profile is, take at most `room_mm`. 0 when no scale can say it: no room, or no length.
int32_t fitting_scale(double metres, double room_mm);

}  // namespace tellux
