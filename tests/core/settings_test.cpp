// The settings file: defaults, the round trip, the keeping of the configuration, and the quirks
// of the reader.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>

#include "core/language.h"
#include "core/runtime/token_file.h"
#include "core/settings.h"
#include "open_test_support.h"

namespace tellux {
namespace {

// A settings file in a fresh folder, and the record and settings it loads into.
class SettingsFile : public ::testing::Test {
 protected:
  void write(const std::string& text) { std::ofstream(path, std::ios::binary) << text; }
  void load(const std::string& text) {
    write(text);
    load_settings(s, st, path);
  }
  // Saves, then loads into `back` and `back_st`.
  void save_and_reload() {
    ASSERT_TRUE(save_settings(s, st, path));
    load_settings(back, back_st, path);
  }
  std::string text() const { return rt::read_whole_file(path); }

  test::TempFolder folder{::testing::UnitTest::GetInstance()->current_test_info()->name()};
  std::string path = folder.file("Tellux6.ini");
  SoundingState s, back;
  Settings st, back_st;
};

TEST_F(SettingsFile, WithoutAFileEveryDefaultHolds) {
  s.Language = language_from_letter("F");
  s.SpreadTag = "2";
  st.LargePlot = 5;
  load_settings(s, st, folder.file("missing.ini"));
  EXPECT_EQ(s.DecadeStart, -1);
  EXPECT_EQ(s.AB2min, 0);  // 0.1 rounds to 0
  EXPECT_EQ(s.DecadeEnd, 4);
  EXPECT_EQ(s.AB2max, 10000);
  EXPECT_EQ(s.RhoDecadeStart, 0);
  EXPECT_EQ(s.RHOmin, 1);
  EXPECT_EQ(s.RhoDecadeEnd, 4);
  EXPECT_EQ(s.RHOmax, 10000);
  EXPECT_TRUE(s.Language.English);
  EXPECT_FALSE(s.Language.French);
  EXPECT_EQ(s.SpreadTag, "0");
  EXPECT_EQ(st.BottomMargin, 1245);  // the second read's default wins
  EXPECT_EQ(st.LargePlot, 2000);
  EXPECT_FALSE(st.garder_config);
}

TEST_F(SettingsFile, WhatIsSavedWithTheConfigurationKeptLoadsBackTheSame) {
  path = folder.file("Tellux/Tellux6.ini");  // the folder is made by the save
  load_settings(s, st, path);
  s.FileDir = "/home/geo/soundings/";
  s.Language = language_from_letter("S");
  s.SpreadTag = "1";
  s.DecadeStart = 0;
  s.AB2min = 1;
  s.DecadeEnd = 3;
  s.AB2max = 1000;
  s.RhoDecadeStart = -2;
  s.RHOmin = 0;
  s.RhoDecadeEnd = 6;
  s.RHOmax = 1000000;
  s.ShowModelSteps = -1;
  s.ShowErrorCurve = 1;
  s.GridColour = 1;
  s.RecentFiles = {"", "/a/one.TX3", "/b/two.TX3", "", "", ""};
  st.SevFile = "/opt/tellux/DATADIP.TXT";
  st.BottomMargin = 1300;
  st.GraphicalProg = " ";
  st.PointsColourName = "BLUE";
  st.garder_config = true;
  save_and_reload();
  EXPECT_EQ(held_settings(back, back_st).text(), held_settings(s, st).text());
  EXPECT_TRUE(back.Language.Spanish);
  EXPECT_EQ(back.Spread, SpreadType::Dipole);
  EXPECT_EQ(back.RHOmax, 1000000);
  EXPECT_EQ(back_st.GraphicalProg, " ");
  // The writer spells the key with a capital, the reader finds it all the same.
  EXPECT_NE(text().find("Modèle=-1"), std::string::npos);
  EXPECT_EQ(back.ShowModelSteps, -1);
}

// Recent files are kept all the same (and with the configuration kept, by the round trip above).
TEST_F(SettingsFile, ChoicesOfTheRunAreDroppedUnlessTheConfigurationIsKeptButRecentFilesStay) {
  load("[Tellux]\nLangue=F\nAB2max=3\nRMS=0\nNiveau=0\n");
  s.Language = language_from_letter("S");
  s.DecadeEnd = 2;
  s.AB2max = 100;
  s.ShowErrorCurve = 1;
  s.SpreadTag = "2";
  s.RecentFiles = {"", "/x/5.TX3", "/x/4.TX3", "/x/3.TX3", "/x/2.TX3", "/x/1.TX3"};
  save_and_reload();
  EXPECT_EQ(back.RecentFiles, s.RecentFiles);
  EXPECT_EQ(s.DecadeEnd, 2);  // the run keeps its choices; the file does not
  EXPECT_TRUE(back.Language.French);
  EXPECT_EQ(back.DecadeEnd, 3);
  EXPECT_EQ(back.ShowErrorCurve, 0);
  EXPECT_EQ(back.SpreadTag, "0");
}

TEST_F(SettingsFile, KeysAreFoundWithoutRegardToCaseAndOlderFilesInWindows1252) {
  // "MODÈLE" with È as the single byte of Windows-1252.
  load("[TELLUX]\r\nMOD\xC8LE=0\r\nrms=1\r\nlangue=A\r\n[file]\r\nFILE 1=C:\\old.TX3\r\n");
  EXPECT_EQ(s.ShowModelSteps, 0);
  EXPECT_EQ(s.ShowErrorCurve, 1);
  EXPECT_TRUE(s.Language.German);
  EXPECT_EQ(s.RecentFiles[1], "C:\\old.TX3");
}

// One byte that is not UTF-8 makes its own line Windows-1252, not the file; lines the program
// does not change are written back byte for byte.
TEST_F(SettingsFile, EachLineKeepsItsOwnEncodingAndUnchangedLinesTheirBytes) {
  const std::string old_line =
      "File 1=C:\\Donn\xE9"
      "es\\a.TX3";  // Windows-1252
  const std::string utf8_line = "File 2=/home/é/b.TX3";
  load("[File]\r\n" + old_line + "\r\n" + utf8_line + "\r\n[Profile]\r\nVscale=500\r\n");
  EXPECT_EQ(s.RecentFiles[1], "C:\\Données\\a.TX3");
  EXPECT_EQ(s.RecentFiles[2], "/home/é/b.TX3");
  save_and_reload();
  EXPECT_NE(text().find(old_line + "\r\n" + utf8_line + "\r\n"), std::string::npos);
  EXPECT_EQ(back.RecentFiles[1], "C:\\Données\\a.TX3");
}

TEST_F(SettingsFile, AxisEndsBelowTwoBecomeFourAndExponentsGiveRoundedPowers) {
  load("[Tellux]\nAB2min=1\nAB2max=1\nRHOmin=-2\nRHOmax=0\n");
  EXPECT_EQ(s.AB2min, 10);
  EXPECT_EQ(s.DecadeEnd, 4);
  EXPECT_EQ(s.AB2max, 10000);
  EXPECT_EQ(s.RHOmin, 0);  // 0.01 rounds to 0
  EXPECT_EQ(s.RhoDecadeStart, -2);
  EXPECT_EQ(s.RhoDecadeEnd, 4);
  EXPECT_EQ(s.RHOmax, 10000);
  load("[Tellux]\nRHOmax=5\n");
  EXPECT_EQ(s.RHOmax, 100000);  // 32 bits
}

TEST_F(SettingsFile, DamagedValuesKeepTheirDefaultsAndLongValuesAreWhole) {
  std::string long_path;
  while (long_path.size() < 4090) long_path += "/dossier_é";
  long_path += "/x.TX3";
  load("garbage line\n[Tellux]\nAB2max=abc\nRMS=\n[File]\nColor2=blue\nFile 1=" + long_path +
       "\n[Marge]\nBottom_Margin=1300\n[PALETTE_A]\nAmplitude3=12.5\n");
  EXPECT_EQ(s.DecadeEnd, 4);
  EXPECT_EQ(s.AB2max, 10000);
  EXPECT_EQ(s.ShowErrorCurve, 0);
  EXPECT_EQ(s.CurveColour, 255);
  EXPECT_EQ(st.BottomMargin, 1300);
  EXPECT_EQ(st.Amplitude[3], 12);  // rounded half to even
  EXPECT_EQ(s.RecentFiles[1], long_path);
  save_and_reload();
  EXPECT_EQ(back.RecentFiles[1], long_path);
}

TEST_F(SettingsFile, SavingKeepsKeysItDoesNotOwnAndThePaletteIsWrittenApart) {
  load("; written by hand\n[PALETTE_A]\nAmplitude1=1\n[Other]\nkey=value\n");
  st.Amplitude[1] = 99;
  ASSERT_TRUE(save_settings(s, st, path));
  EXPECT_NE(text().find("; written by hand"), std::string::npos);
  EXPECT_NE(text().find("[Other]\nkey=value"), std::string::npos);
  EXPECT_NE(text().find("Amplitude1=1\n"), std::string::npos);
  EXPECT_EQ(text().find("[Tellux]"), std::string::npos);  // not kept: the section is not written
  ASSERT_TRUE(save_palette(st, path));
  load_settings(back, back_st, path);
  EXPECT_EQ(back_st.Amplitude[1], 99);
  EXPECT_EQ(back_st.Amplitude[2], 71646);
}

TEST_F(SettingsFile, AFolderThatCannotBeWrittenGivesFalseQuietly) {
  write("x");
  EXPECT_FALSE(save_settings(s, st, path + "/Tellux6.ini"));
}

// Sets environment variables for one test and puts the old values back.
class ScopedEnvironment {
 public:
  ~ScopedEnvironment() {
    for (const auto& [name, value] : saved_)
      value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
  }
  void set(const std::string& name, const char* value) {
    if (!saved_.count(name)) {
      const char* old = std::getenv(name.c_str());
      saved_[name] = old ? std::optional<std::string>(old) : std::nullopt;
    }
    value ? setenv(name.c_str(), value, 1) : unsetenv(name.c_str());
  }

 private:
  std::map<std::string, std::optional<std::string>> saved_;
};

TEST_F(SettingsFile, ThePathComesFromTelluxIniOrTheConfigurationFolder) {
  ScopedEnvironment env;
  env.set("TELLUX_INI", "/tmp/elsewhere.ini");
  env.set("XDG_CONFIG_HOME", "/cfg");
  EXPECT_EQ(settings_file_path(), "/tmp/elsewhere.ini");
  env.set("TELLUX_INI", nullptr);
  EXPECT_EQ(settings_file_path(), "/cfg/Tellux/Tellux6.ini");
  env.set("XDG_CONFIG_HOME", nullptr);
  env.set("HOME", "/home/geo");
  EXPECT_EQ(settings_file_path(), "/home/geo/.config/Tellux/Tellux6.ini");
}

}  // namespace
}  // namespace tellux
