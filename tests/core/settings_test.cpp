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

using test::TempFolder;

void write_text(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

std::string read_text(const std::string& path) { return rt::read_whole_file(path); }

TEST(Settings, WithoutAFileEveryDefaultHolds) {
  TempFolder folder("defaults");
  SoundingState s;
  s.GridColour = 1;
  s.Language = language_from_letter("F");
  s.SpreadTag = "2";
  Settings st;
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
  EXPECT_EQ(s.FileDir, "C:\\Tellux\\");
  EXPECT_EQ(s.SpreadTag, "0");
  EXPECT_EQ(s.Spread, SpreadType::Schlumberger);
  EXPECT_EQ(s.ShowModelSteps, 1);
  EXPECT_EQ(s.ShowErrorCurve, 0);
  EXPECT_EQ(s.GridColour, 16512);
  EXPECT_EQ(s.CurveColour, 255);
  EXPECT_EQ(s.ModelColour, 16711935);
  EXPECT_EQ(s.SuperposedColour, 32768);
  for (int n = 1; n <= 5; ++n) EXPECT_EQ(s.RecentFiles[static_cast<size_t>(n)], "");
  EXPECT_EQ(st.SevFile, "C:\\Tellux\\DataVes.txt");
  EXPECT_EQ(st.LeftMargin, 1134);
  EXPECT_EQ(st.BottomMargin, 1245);  // the second read's default wins
  EXPECT_EQ(st.GraphicalProg, " ");
  EXPECT_EQ(st.LargePlot, 2000);
  EXPECT_EQ(st.ModelColourName, "MAGENTA");
  EXPECT_EQ(st.Amplitude[1], 69782);
  EXPECT_EQ(st.Amplitude[16], 16662544);
  EXPECT_EQ(st.Vscale, "1000");
  EXPECT_EQ(st.MaxRes, "2000");
  EXPECT_FALSE(st.garder_config);
}

TEST(Settings, WhatIsSavedWithTheConfigurationKeptLoadsBackTheSame) {
  TempFolder folder("roundtrip");
  const std::string path = folder.file("Tellux/Tellux6.ini");
  SoundingState s;
  Settings st;
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
  s.BackColour = 6;
  s.SuperposedColour = 7;
  s.RecentFiles = {"", "/a/one.TX3", "/b/two.TX3", "", "", ""};
  st.SevFile = "/opt/tellux/DATADIP.TXT";
  st.LeftMargin = 900;
  st.BottomMargin = 1300;
  st.GraphicalProg = " ";
  st.HautPlot = 1500;
  st.PointsColourName = "BLUE";
  st.Hscale = "500";
  st.garder_config = true;
  ASSERT_TRUE(save_settings(s, st, path));

  SoundingState back;
  Settings back_st;
  load_settings(back, back_st, path);
  EXPECT_EQ(held_settings(back, back_st).text(), held_settings(s, st).text());
  EXPECT_TRUE(back.Language.Spanish);
  EXPECT_EQ(back.Spread, SpreadType::Dipole);
  EXPECT_EQ(back.AB2max, 1000);
  EXPECT_EQ(back.RHOmin, 0);
  EXPECT_EQ(back.RHOmax, 1000000);
  EXPECT_EQ(back.ShowModelSteps, -1);
  EXPECT_EQ(back_st.GraphicalProg, " ");
  EXPECT_EQ(back_st.BottomMargin, 1300);
  // The writer spells the key with a capital, the reader finds it all the same.
  EXPECT_NE(read_text(path).find("Modèle=-1"), std::string::npos);
}

TEST(Settings, ChoicesOfTheRunAreDroppedUnlessTheConfigurationIsKept) {
  TempFolder folder("dropped");
  const std::string path = folder.file("Tellux6.ini");
  write_text(path, "[Tellux]\nLangue=F\nAB2max=3\nRMS=0\nNiveau=0\n");
  SoundingState s;
  Settings st;
  load_settings(s, st, path);
  s.Language = language_from_letter("S");
  s.DecadeEnd = 2;
  s.AB2max = 100;
  s.ShowErrorCurve = 1;
  s.SpreadTag = "2";
  ASSERT_TRUE(save_settings(s, st, path));
  EXPECT_EQ(s.DecadeEnd, 3);  // put back as loaded
  EXPECT_EQ(s.AB2max, 1000);
  EXPECT_EQ(s.SpreadTag, "0");

  SoundingState back;
  Settings back_st;
  load_settings(back, back_st, path);
  EXPECT_TRUE(back.Language.French);
  EXPECT_EQ(back.DecadeEnd, 3);
  EXPECT_EQ(back.ShowErrorCurve, 0);
  EXPECT_EQ(back.SpreadTag, "0");
}

TEST(Settings, RecentFilesSurviveWhateverKeepingSays) {
  for (const bool keep : {false, true}) {
    TempFolder folder(keep ? "recent-kept" : "recent-dropped");
    const std::string path = folder.file("Tellux6.ini");
    SoundingState s;
    Settings st;
    load_settings(s, st, path);
    s.RecentFiles = {"", "/x/5.TX3", "/x/4.TX3", "/x/3.TX3", "/x/2.TX3", "/x/1.TX3"};
    st.garder_config = keep;
    ASSERT_TRUE(save_settings(s, st, path));
    SoundingState back;
    Settings back_st;
    load_settings(back, back_st, path);
    EXPECT_EQ(back.RecentFiles, s.RecentFiles) << keep;
  }
}

TEST(Settings, KeysAreFoundWithoutRegardToCaseAndOlderFilesInWindows1252) {
  TempFolder folder("case");
  const std::string path = folder.file("Tellux6.ini");
  // "MODÈLE" with È as the single byte of Windows-1252.
  write_text(path,
             "[TELLUX]\r\nMOD\xC8LE=0\r\nrms=1\r\nlangue=A\r\n[file]\r\nFILE 1=C:\\old.TX3\r\n");
  SoundingState s;
  Settings st;
  load_settings(s, st, path);
  EXPECT_EQ(s.ShowModelSteps, 0);
  EXPECT_EQ(s.ShowErrorCurve, 1);
  EXPECT_TRUE(s.Language.German);
  EXPECT_EQ(s.RecentFiles[1], "C:\\old.TX3");
}

TEST(Settings, AxisEndsBelowTwoBecomeFourAndExponentsGiveRoundedPowers) {
  TempFolder folder("axes");
  const std::string path = folder.file("Tellux6.ini");
  write_text(path, "[Tellux]\nAB2min=1\nAB2max=1\nRHOmin=-2\nRHOmax=0\n");
  SoundingState s;
  Settings st;
  load_settings(s, st, path);
  EXPECT_EQ(s.AB2min, 10);
  EXPECT_EQ(s.DecadeEnd, 4);
  EXPECT_EQ(s.AB2max, 10000);
  EXPECT_EQ(s.RHOmin, 0);  // 0.01 rounds to 0
  EXPECT_EQ(s.RhoDecadeStart, -2);
  EXPECT_EQ(s.RhoDecadeEnd, 4);
  EXPECT_EQ(s.RHOmax, 10000);

  write_text(path, "[Tellux]\nRHOmax=5\n");
  load_settings(s, st, path);
  EXPECT_EQ(s.RHOmax, 100000);  // 32 bits
}

TEST(Settings, DamagedValuesKeepTheirDefaultsAndLongValuesAreCut) {
  TempFolder folder("damaged");
  const std::string path = folder.file("Tellux6.ini");
  const std::string long_path = "/" + std::string(60, 'd') + "/x.TX3";
  write_text(path, "garbage line\n[Tellux]\nAB2max=abc\nRMS=\n[File]\nColor2=blue\nFile 1=" +
                       long_path + "\n[Marge]\nBottom_Margin=1300\n[PALETTE_A]\nAmplitude3=12.5\n");
  SoundingState s;
  Settings st;
  load_settings(s, st, path);
  EXPECT_EQ(s.DecadeEnd, 4);
  EXPECT_EQ(s.AB2max, 10000);
  EXPECT_EQ(s.ShowErrorCurve, 0);
  EXPECT_EQ(s.CurveColour, 255);
  EXPECT_EQ(st.BottomMargin, 1300);
  EXPECT_EQ(st.Amplitude[3], 12);  // rounded half to even
  // The read buffer holds 50 characters with its terminator.
  EXPECT_EQ(s.RecentFiles[1], long_path.substr(0, 49));
}

TEST(Settings, SavingKeepsKeysItDoesNotOwnAndThePaletteIsWrittenApart) {
  TempFolder folder("foreign");
  const std::string path = folder.file("Tellux6.ini");
  write_text(path, "; written by hand\n[PALETTE_A]\nAmplitude1=1\n[Other]\nkey=value\n");
  SoundingState s;
  Settings st;
  load_settings(s, st, path);
  st.Amplitude[1] = 99;
  ASSERT_TRUE(save_settings(s, st, path));
  const std::string text = read_text(path);
  EXPECT_NE(text.find("; written by hand"), std::string::npos);
  EXPECT_NE(text.find("[Other]\nkey=value"), std::string::npos);
  EXPECT_NE(text.find("Amplitude1=1\n"), std::string::npos);
  EXPECT_EQ(text.find("[Tellux]"), std::string::npos);  // not kept: the section is not written

  ASSERT_TRUE(save_palette(st, path));
  Settings back;
  SoundingState back_s;
  load_settings(back_s, back, path);
  EXPECT_EQ(back.Amplitude[1], 99);
  EXPECT_EQ(back.Amplitude[2], 71646);
}

TEST(Settings, AFolderThatCannotBeWrittenGivesFalseQuietly) {
  TempFolder folder("unwritable");
  const std::string file = folder.file("plain");
  write_text(file, "x");
  SoundingState s;
  Settings st;
  EXPECT_FALSE(save_settings(s, st, file + "/Tellux6.ini"));
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

TEST(Settings, ThePathComesFromTelluxIniOrTheConfigurationFolder) {
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
