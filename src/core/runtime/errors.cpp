#include "core/runtime/errors.h"

namespace tellux::rt {

RuntimeError::RuntimeError(int number)
    : std::runtime_error("run-time error " + std::to_string(number)), number_(number) {}

void raise(int number) { throw RuntimeError(number); }

}  // namespace tellux::rt
