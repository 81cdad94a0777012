#pragma once
// The number text of the language: what `Str`, `CStr`, `Write #` and `Val` make of numbers.
//   Str(0.5)        -> " .5"     (a blank for the absent sign, no digit before the point)
//   Str(-0.5)       -> "-.5"
//   Str(12345678f)  -> " 1.234568E+07"  (singles carry 7 significant digits, doubles 15)
//   Str(0.00001)    -> " 1E-05"
// CStr is Str without the blank. Val reads the leading number of a text, 0 when there is none.
#include <string>
#include <string_view>

#include "core/runtime/cell.h"

namespace tellux::rt {

// Text of v as a number of the given kind (Single: 7 significant digits; Double: 15; integers
// whole). Empty counts as 0.
std::string CStr(double v, Kind kind = Kind::Double);
std::string Str(double v, Kind kind = Kind::Double);
inline std::string CStr(const Cell& c) { return CStr(c.num(), c.kind()); }
inline std::string Str(const Cell& c) { return Str(c.num(), c.kind()); }
inline std::string StrSingle(float v) { return Str(v, Kind::Single); }
inline std::string CStrSingle(float v) { return CStr(v, Kind::Single); }

// The leading number of a text; blanks, tabs and line feeds are ignored anywhere, "&H" and "&O"
// prefixes read hexadecimal and octal. 0 when the text starts with no number.
double Val(std::string_view text);

// Parses a whole token as a number, as the file reader does: blanks around it are allowed, an
// empty token is 0, anything else that is not a number raises error 13.
double parse_number_token(std::string_view token);

}  // namespace tellux::rt
