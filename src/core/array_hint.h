#pragma once
// A TX3 does not keep its array: a dipole or Wenner sounding opens under the array the setup
// names. A Schlumberger spread always has MN/2 below AB/2, so readings where MN/2 reaches AB/2
// say that the array is probably another one.
#include <string>

#include "core/session.h"

namespace tellux {

// True when the array is Schlumberger and a reading has MN/2 at or above a non-zero AB/2.
bool readings_deny_schlumberger(const SoundingState& s);

// The status line's hint in the program's language; empty when the readings fit the array.
std::string array_hint(const Session& session);

}  // namespace tellux
