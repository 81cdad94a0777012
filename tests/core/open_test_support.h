#pragma once
// A session over headless dialogs and recording forms, and the paths of the open tests' files.
#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

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

  void speak(const char* letter) {
    s.Language = {};
    s.Language.English = false;
    const std::string l = letter;
    if (l == "F") s.Language.French = true;
    if (l == "S") s.Language.Spanish = true;
    if (l == "A") s.Language.German = true;
    if (l == "E") s.Language.English = true;
  }
};

// A fresh folder under the system's temporary folder, removed at the end of the test.
class TempFolder {
 public:
  explicit TempFolder(const std::string& name)
      : path_(std::filesystem::temp_directory_path() /
              ("tellux-open-" + name + "-" + std::to_string(::getpid()))) {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  std::string file(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace tellux::test
