#pragma once
// The splice shift: where one AB/2 was read twice (with the old and the new MN), the later
// segment's apparent resistivities are scaled so that it joins the one before. It runs inside the
// field sheet's row walk, row by row from the top, so the first segment is the reference of the
// whole curve; `FieldTable` column 7 keeps the values before the shift.
#include "core/sounding_state.h"

namespace tellux {

// Resistivity as the sheet keeps it: whole from 100 up, tenths from 10, hundredths below;
// halves go to the even neighbour.
double round_resistivity(double r);

// State of one walk down the sheet. A and B are the resistivities (after the division by the
// factor) of the present row and of the row before; R is the jump at the last splice.
struct ShiftWalk {
  float ShiftFactor = 1.0f;  // divisor of all rows from here on
  double A = 0.0;
  double B = 0.0;
  double R = 1.0;
};

enum class Splice { None, Lone, Close };

// Row `i` once its A is computed, corrected and rounded: with the shift on, a row whose AB/2
// equals that of the row before is the second reading of a splice. A lone splice takes over the
// reading before it and carries the jump into the factor; two splices in close succession (the
// segment between has two points) share their jumps by the geometric mean, which also rewrites
// column 2 of rows i-2 and i-1. Stores A in column 2 of row i in every case.
Splice shift_splice(FieldTableT& table, int i, double ab, double ab_before, bool shift_on,
                    ShiftWalk& walk);

}  // namespace tellux
