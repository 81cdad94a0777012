#pragma once
// What a key typed in the field sheet becomes: a digit, the point or the backspace, or nothing.
#include <optional>

namespace tellux {

inline constexpr char kBackspace = 8;

// Digits and the point as typed; the numeric pad's digits (96..105) as their digits; 62 and 142,
// the points of the numeric pad and of the main keyboard as the keyboard reports them, as the
// point. Every other key gives nothing.
std::optional<char> sheet_key_char(int key);

}  // namespace tellux
