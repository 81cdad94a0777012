#pragma once
// The geometric factor K of a row of the field sheet, from its spacings.
#include <cstdint>

#include "core/sounding_state.h"

namespace tellux {

// a is AB/2 (AM for the dipole, the spacing for Wenner), b is MN/2 (BN); 3.1416 is the program's
// pi. A half array doubles the factor of Schlumberger and Wenner; the dipole has none. With b
// above a the Schlumberger factor is negative, and so it stays. Raises error 11 where the dipole's
// terms cancel.
double geometric_factor(SpreadType spread, int16_t half_array, double a, double b);

// K as stored and shown: two decimals below 100 (negative values included), whole from 100 up;
// halves go to the even neighbour.
double round_geometric_factor(double K);

}  // namespace tellux
