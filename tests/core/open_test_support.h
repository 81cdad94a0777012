#pragma once
// A session over headless dialogs and recording forms, and the paths of the open tests' files.
#include <string>

#include "core/session.h"
#include "platform/headless/recording_forms.h"
#include "platform/headless/scripted_dialogs.h"

namespace tellux::test {

inline std::string open_data(const std::string& name) {
  return std::string(TELLUX_TEST_DATA) + "/open/" + name;
}

struct OpenSession {
  SoundingState s;
  ScriptedDialogs dialogs;
  RecordingForms forms;
  Session session{s, dialogs, forms};

  void speak(char l) { s.Language = {l == 'S', l == 'F', l == 'E', l == 'A'}; }
};

}  // namespace tellux::test
