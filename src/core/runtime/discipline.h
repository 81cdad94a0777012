#pragma once
// The two ways a routine meets a run-time error. A trapped routine catches at its top, shows its
// message and leaves with what is done (plain try/catch on RuntimeError at the routine's head).
// A routine whose failing statements are skipped runs each statement through `skip`, which drops
// the error and lets the next statement run.
#include "core/runtime/errors.h"

namespace tellux::rt {

// Runs one statement; a run-time error in it is swallowed. Returns false when it failed.
template <typename Statement>
bool skip(Statement&& statement) {
  try {
    statement();
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace tellux::rt
