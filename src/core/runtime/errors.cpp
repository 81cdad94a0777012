#include "core/runtime/errors.h"

#include <utility>

namespace tellux::rt {

RuntimeError::RuntimeError(int number, std::string reason)
    : std::runtime_error("run-time error " + std::to_string(number)),
      number_(number),
      reason_(std::move(reason)) {}

void raise(int number) { throw RuntimeError(number); }
void raise(int number, std::string reason) { throw RuntimeError(number, std::move(reason)); }

}  // namespace tellux::rt
