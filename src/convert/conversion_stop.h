#pragma once
// What a conversion that stops tells the user: the file, the row of it where the conversion
// stopped and why, in one box with the exclamation sign. The batch command fails on such a box.
#include <string>

#include "core/runtime/errors.h"
#include "core/session.h"

namespace tellux {

// "FILE, row N: CAUSE" (without the row when `row` is 0).
void tell_stop(Session& session, const std::string& file, int row, const std::string& cause);

// The words for a run-time error met while reading or converting a row.
std::string cause_of(const rt::RuntimeError& error);

}  // namespace tellux
