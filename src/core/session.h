#pragma once
// Everything a routine of the logic works with: the sounding record and what it may ask of the
// user and of the windows. One Session lives as long as the program (or one batch command).
#include "core/sounding_state.h"
#include "platform/curve_observer.h"
#include "platform/dialogs.h"
#include "platform/forms.h"

namespace tellux {

struct Session {
  SoundingState& s;
  Dialogs& dialogs;
  Forms& forms;
  CurveObserver* curve = nullptr;  // none: the calculation draws nothing
  long forward_runs = 0;           // runs of ForwardCurve, for batch reports and benchmarks
  // "PATH: reason" of the last file that could not be written, in the system's words: the message
  // boxes say that a write failed, batch work also says why.
  std::string file_failure{};

  // A message box with the program's title.
  void tell(const std::string& text, Icon icon = Icon::Exclamation) {
    dialogs.tell(text, icon, kProgramTitle);
  }
  const char* text(const char* french, const char* spanish, const char* english) const {
    return pick(s.Language, french, spanish, english);
  }
};

}  // namespace tellux
