#pragma once
// The one test of the program for "is this text UTF-8".
#include <string_view>

namespace tellux::rt {

// UTF-8 in the strict sense: shortest forms only, no surrogates, nothing above U+10FFFF. Text
// that fails it is read as Windows-1252 (`to_utf8`).
bool is_utf8(std::string_view bytes);

}  // namespace tellux::rt
