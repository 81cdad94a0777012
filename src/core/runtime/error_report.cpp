#include "core/runtime/error_report.h"

#include <exception>
#include <new>

#include "core/runtime/errors.h"

namespace tellux::rt {

namespace {
constexpr int kOutOfMemory = 7, kInternalError = 51;
}  // namespace

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
    case 57:
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

}  // namespace tellux::rt
