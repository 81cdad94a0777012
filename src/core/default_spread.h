#pragma once
// The default spread files: a table of spacings, read token by token (numbers end at a comma or a
// line end). Two numbers a row, MN/2 (or BN) then AB/2 (or AM); a Wenner file has one, the
// spacing "a".
#include <string>

#include "core/sounding_state.h"

namespace tellux {

// Erases `FieldTable` and reads the file from row 1 to its end, at most 51 rows: with
// `SpreadTag` "2" one number a row into column 3, otherwise two numbers into columns 1 and 3.
// A missing file reads no row; a damaged one keeps the rows read before the damage. Returns the
// number of rows read (a row cut short by the end of the file counts: its first number stands).
int read_default_spread(SoundingState& s, const std::string& path);

}  // namespace tellux
