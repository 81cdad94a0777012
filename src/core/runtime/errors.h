#pragma once
// Run-time errors of the language the program's arithmetic and files follow: each failure carries
// the number the error traps and messages key on.
#include <stdexcept>
#include <string>

namespace tellux::rt {

enum ErrorNumber : int {
  kInvalidCall = 5,      // log of a non-positive value, square root of a negative
  kOverflow = 6,         // integer out of range, exp overflow, 0/0
  kSubscript = 9,        // index outside a table's declared bounds
  kDivisionByZero = 11,  // integer and floating division alike
  kTypeMismatch = 13,    // text where a number was expected
  kFileNotFound = 53,
  kDiskFull = 61,
  kInputPastEnd = 62,
  kDeviceUnavailable = 68,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
};

class RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(int number, std::string reason = {});
  int number() const { return number_; }
  // The system's own words for a failed file operation ("Permission denied"); empty otherwise.
  const std::string& reason() const { return reason_; }

 private:
  int number_;
  std::string reason_;
};

[[noreturn]] void raise(int number);
// A file error with the system's reason for it.
[[noreturn]] void raise(int number, std::string reason);

}  // namespace tellux::rt
