#pragma once
// What the start of the program asks of the operating system: the decimal separator of the
// user's locale, and whether another copy of the program is running. The desktop program answers
// from the system; tests answer as they please. The defaults are those of a machine with a point
// and no other copy.
#include <string>

namespace tellux {

class SystemServices {
 public:
  virtual ~SystemServices() = default;
  // The decimal separator of the user's locale, as text ("." or ",").
  virtual std::string decimal_separator() { return "."; }
  // Makes the point this program's decimal separator.
  virtual void use_point_separator() {}
  // True when this copy is not the first one running for this user.
  virtual bool another_copy_running() { return false; }
};

}  // namespace tellux
