#pragma once
// What the readers of the instruments' files share: the columns of fixed-column lines, the
// strings they empty and the largest spacing they keep.
#include <istream>
#include <string>

#include "core/session.h"

namespace tellux {

// The next line of `in` without its line end (CRLF or LF).
bool next_line(std::istream& in, std::string& line);

// Columns `first` to `last` of a line, counted from 1, as they stand (blanks included).
std::string mid(const std::string& line, size_t first, size_t last);

// The same columns without the blanks that pad them.
std::string columns(const std::string& line, size_t first, size_t last);

// Empties the seven strings of the sounding.
void clear_strings(SoundingState& s);

// `MaxAbHalf` rises to a larger AB/2, as a 16-bit integer.
void raise_max_ab(SoundingState& s, double ab);

// The largest spacing becomes a number of decades, with the program's 0.4343.
void max_ab_as_decades(SoundingState& s);

// "First select a File " in the program's language.
const char* select_first(const Session& session);

}  // namespace tellux
