#pragma once
// A headless session in a fresh temporary folder: the record, scripted dialogs, recorded forms.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "core/runtime/token_file.h"
#include "core/session.h"
#include "platform/headless/recording_forms.h"
#include "platform/headless/scripted_dialogs.h"

namespace tellux::testing {

class SessionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    dir_ = std::filesystem::temp_directory_path() /
           ("tellux_" + std::string(info->test_suite_name()) + "_" + info->name() + "_" +
            std::to_string(::getpid()));
    std::filesystem::remove_all(dir_);
    std::filesystem::create_directories(dir_);
  }
  void TearDown() override {
    std::error_code ec;
    std::filesystem::permissions(dir_, std::filesystem::perms::owner_all, ec);
    std::filesystem::remove_all(dir_, ec);
  }

  std::string path(const std::string& name) const { return (dir_ / name).string(); }
  std::string write(const std::string& name, const std::string& content) const {
    std::ofstream(dir_ / name, std::ios::binary) << content;
    return path(name);
  }
  std::string read(const std::string& name) const { return rt::read_whole_file(path(name)); }

  void use_language(char l) { s.Language = {l == 'S', l == 'F', l == 'E', l == 'A'}; }

  SoundingState s;
  ScriptedDialogs dialogs;
  RecordingForms forms;
  Session session{s, dialogs, forms};
  std::filesystem::path dir_;
};

}  // namespace tellux::testing
