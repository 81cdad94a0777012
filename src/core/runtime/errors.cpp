#include "core/runtime/errors.h"

#include <exception>
#include <new>
#include <utility>

namespace tellux::rt {

RuntimeError::RuntimeError(int number, std::string reason)
    : std::runtime_error("run-time error " + std::to_string(number)),
      number_(number),
      reason_(std::move(reason)) {}

std::string error_text(int number) {
  switch (number) {
    case kInvalidCall:
      return "Invalid procedure call or argument";
    case kOverflow:
      return "Overflow";
    case kOutOfMemory:
      return "Out of memory";
    case kSubscript:
      return "Subscript out of range";
    case kDivisionByZero:
      return "Division by zero";
    case kTypeMismatch:
      return "Type mismatch";
    case kFileNotFound:
      return "File not found";
    case kDeviceIo:
      return "Device I/O error";
    case kDiskFull:
      return "Disk full";
    case kInputPastEnd:
      return "Input past end of file";
    case kDeviceUnavailable:
      return "Device unavailable";
    case kPermissionDenied:
      return "Permission denied";
    case kPathFileAccess:
      return "Path/File access error";
    case kPathNotFound:
      return "Path not found";
    default:
      return "Internal error";
  }
}

ErrorReport report_of_current_error() {
  try {
    throw;
  } catch (const RuntimeError& e) {
    return {e.number(), error_text(e.number())};
  } catch (const std::bad_alloc&) {
    return {kOutOfMemory, error_text(kOutOfMemory)};
  } catch (...) {
    return {kInternalError, error_text(kInternalError)};
  }
}

void raise(int number) { throw RuntimeError(number); }
void raise(int number, std::string reason) { throw RuntimeError(number, std::move(reason)); }

}  // namespace tellux::rt
