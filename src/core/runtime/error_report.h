#pragma once
// What the last guard says of an error that escaped every routine: its number and the system's
// text for it.
#include <string>

namespace tellux::rt {

// The system's text of an error number ("Overflow"); "Internal error" for numbers it has none for.
std::string error_text(int number);

struct ErrorReport {
  int number;
  std::string text;
};

// The error being handled; call it inside a catch block. A run-time error keeps its number, a
// failed allocation is 7 ("Out of memory"), anything else 51 ("Internal error").
ErrorReport report_of_current_error();

}  // namespace tellux::rt
