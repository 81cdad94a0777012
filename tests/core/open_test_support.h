#pragma once
// A session over headless dialogs and recording forms, the paths of the open tests' files and a
// fresh temporary folder.
#include <unistd.h>

#include <filesystem>
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

// A fresh folder under the system's temporary folder, removed at the end of the test.
struct TempFolder {
  explicit TempFolder(const std::string& name)
      : path(std::filesystem::temp_directory_path() /
             ("tellux-open-" + name + "-" + std::to_string(::getpid()))) {
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
  }
  ~TempFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path, ec);
  }
  std::string file(const std::string& name) const { return (path / name).string(); }
  std::filesystem::path path;
};

}  // namespace tellux::test
