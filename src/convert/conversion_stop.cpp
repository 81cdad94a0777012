#include "convert/conversion_stop.h"

#include "core/file_names.h"

namespace tellux {

void tell_stop(Session& session, const std::string& file, int row, const std::string& cause) {
  std::string text = bare_name(file);
  if (row > 0) text += ", row " + std::to_string(row);
  session.tell(text + ": " + cause);
}

std::string cause_of(const rt::RuntimeError& error) {
  switch (error.number()) {
    case rt::kOverflow:
      return "a value too large for a sounding file";
    case rt::kSubscript:
      return "more rows than the table holds";
    case rt::kDivisionByZero:
      return "division by zero";
    case rt::kTypeMismatch:
      return "an item that is not a number";
    case rt::kInputPastEnd:
      return "the file ends within the row";
    default:
      return "run-time error " + std::to_string(error.number());
  }
}

}  // namespace tellux
