// The settings file: defaults, the round trip, the keeping of the configuration, and the quirks
// of the reader; the sectioned text file under it, and the letter of "Langue" with its four flags.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <optional>

#include "core/ini_file.h"
#include "core/language.h"
#include "core/runtime/token_file.h"
#include "core/settings.h"
#include "session_fixture.h"

namespace tellux {
namespace {

// The axis ends of the record: AB/2 decades and ends, resistivity decades and ends.
auto axes(SoundingState& s) {
  return std::tie(s.DecadeStart, s.AB2min, s.DecadeEnd, s.AB2max, s.RhoDecadeStart, s.RHOmin,
                  s.RhoDecadeEnd, s.RHOmax);
}

// A settings file in a fresh folder, and the record and settings it loads into.
class SettingsFile : public testing::SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    ini = path("Tellux6.ini");
  }
  void load(const std::string& text) {
    std::ofstream(ini, std::ios::binary) << text;
    load_settings(s, st, ini);
  }
  // Saves, then loads into `back` and `back_st`.
  void save_and_reload() {
    ASSERT_TRUE(save_settings(s, st, ini));
    load_settings(back, back_st, ini);
  }
  std::string text() const { return rt::read_whole_file(ini); }
  bool has(const std::string& part) const { return text().find(part) != std::string::npos; }

  std::string ini;
  SoundingState back;
  Settings st, back_st;
};

// 0.1 rounds to 0; the second read of the bottom margin gives the default that wins.
TEST_F(SettingsFile, WithoutAFileEveryDefaultHolds) {
  axes(s) = std::tuple(2, 3, 2, 3, 2, 3, 2, 3);
  std::tie(s.Language, s.SpreadTag) = std::tuple(language_from_letter("F"), "2");
  std::tie(st.LargePlot, st.BottomMargin) = std::tuple(5, 5);
  load_settings(s, st, path("missing.ini"));
  EXPECT_EQ(axes(s), std::tuple(-1, 0, 4, 10000, 0, 1, 4, 10000));
  EXPECT_EQ(std::tuple(letter_from_flags(s.Language, "?"), s.SpreadTag, st.BottomMargin,
                       st.LargePlot, st.garder_config),
            std::tuple("E", "0", 1245, 2000, false));
}

TEST_F(SettingsFile, WhatIsSavedWithTheConfigurationKeptLoadsBackTheSame) {
  ini = path("Tellux/Tellux6.ini");  // the folder is made by the save
  load_settings(s, st, ini);
  std::tie(s.FileDir, s.SpreadTag) = std::tuple("/home/geo/soundings/", "1");
  s.Language = language_from_letter("S");
  axes(s) = std::tuple(0, 1, 3, 1000, -2, 0, 6, 1000000);
  std::tie(s.ShowModelSteps, s.ShowErrorCurve, s.GridColour) = std::tuple(-1, 1, 1);
  s.RecentFiles = {"", "/a/one.TX3", "/b/two.TX3", "", "", ""};
  std::tie(st.SevFile, st.BottomMargin, st.PointsColourName, st.garder_config) =
      std::tuple("/opt/tellux/DATADIP.TXT", 1300, "BLUE", true);
  s.AccurateCurves = true;
  save_and_reload();
  EXPECT_TRUE(has("Accurate=1") && back.AccurateCurves);
  EXPECT_EQ(held_settings(back, back_st).text(), held_settings(s, st).text());
  EXPECT_EQ(std::tuple(letter_from_flags(back.Language), back.Spread, back_st.GraphicalProg),
            std::tuple("S", SpreadType::Dipole, " "));
  // The writer spells the key with a capital, the reader finds it all the same.
  EXPECT_TRUE(has("Modèle=-1") && back.ShowModelSteps == -1);
}

// Recent files are kept all the same (and with the configuration kept, by the round trip above).
TEST_F(SettingsFile, ChoicesOfTheRunAreDroppedUnlessTheConfigurationIsKeptButRecentFilesStay) {
  load("[Tellux]\nLangue=F\nAB2max=3\nRMS=0\nNiveau=0\n");
  s.Language = language_from_letter("S");
  std::tie(s.DecadeEnd, s.AB2max, s.ShowErrorCurve, s.SpreadTag) = std::tuple(2, 100, 1, "2");
  s.RecentFiles = {"", "/x/5.TX3", "/x/4.TX3", "/x/3.TX3", "/x/2.TX3", "/x/1.TX3"};
  save_and_reload();
  EXPECT_EQ(back.RecentFiles, s.RecentFiles);
  EXPECT_EQ(s.DecadeEnd, 2);  // the run keeps its choices; the file does not
  EXPECT_EQ(std::tuple(letter_from_flags(back.Language), back.DecadeEnd, back.ShowErrorCurve,
                       back.SpreadTag),
            std::tuple("F", 3, 0, "0"));
}

// Keys are found without regard to case ("MODÈLE" with È as the single byte of Windows-1252).
// One byte that is not UTF-8 makes its own line Windows-1252, not the file; lines the program
// does not change are written back byte for byte.
TEST_F(SettingsFile, KeysFoldTheirCaseAndEachLineKeepsItsOwnEncodingAndBytes) {
  const std::string old_line =
      "File 1=C:\\Donn\xE9"
      "es\\a.TX3";
  const std::string utf8_line = "FILE 2=/home/é/b.TX3";
  load("[TELLUX]\r\nMOD\xC8LE=0\r\nrms=1\r\nlangue=A\r\n[file]\r\n" + old_line + "\r\n" +
       utf8_line + "\r\n[Profile]\r\nVscale=500\r\n");
  EXPECT_EQ(std::tuple(s.ShowModelSteps, s.ShowErrorCurve, letter_from_flags(s.Language)),
            std::tuple(0, 1, "A"));
  EXPECT_EQ(s.RecentFiles[1] + "|" + s.RecentFiles[2], "C:\\Données\\a.TX3|/home/é/b.TX3");
  save_and_reload();
  EXPECT_TRUE(has(old_line + "\r\n" + utf8_line + "\r\n") &&
              back.RecentFiles[1] == "C:\\Données\\a.TX3");
}

// Axis ends below two become four, exponents give rounded powers (0.01 rounds to 0), the
// resistivity's end in 32 bits.
TEST_F(SettingsFile, AxisEndsDamagedValuesAndLongValues) {
  load("[Tellux]\nAB2min=1\nAB2max=1\nRHOmin=-2\nRHOmax=0\n");
  EXPECT_EQ(std::tuple(s.AB2min, s.DecadeEnd, s.AB2max, s.RHOmin, s.RhoDecadeStart, s.RhoDecadeEnd,
                       s.RHOmax),
            std::tuple(10, 4, 10000, 0, -2, 4, 10000));
  load("[Tellux]\nRHOmax=5\n");
  EXPECT_EQ(s.RHOmax, 100000);
  // Damaged values keep their defaults, long values are whole, amplitudes round half to even.
  std::string long_path;
  while (long_path.size() < 4090) long_path += "/dossier_é";
  long_path += "/x.TX3";
  load("garbage line\n[Tellux]\nAB2max=abc\nRMS=\n[File]\nColor2=blue\nFile 1=" + long_path +
       "\n[Marge]\nBottom_Margin=1300\n[PALETTE_A]\nAmplitude3=12.5\n");
  EXPECT_EQ(std::tuple(s.DecadeEnd, s.AB2max, s.ShowErrorCurve, s.CurveColour, st.BottomMargin,
                       st.Amplitude[3]),
            std::tuple(4, 10000, 0, 255, 1300, 12));
  EXPECT_EQ(s.RecentFiles[1], long_path);
  save_and_reload();
  EXPECT_EQ(back.RecentFiles[1], long_path);
}

// Without the configuration kept the section "Tellux" is not written; a folder that cannot be
// written, or a file that cannot be read, gives false quietly.
TEST_F(SettingsFile, SavingKeepsKeysItDoesNotOwnAndThePaletteIsWrittenApart) {
  load("; written by hand\n[PALETTE_A]\nAmplitude1=1\n[Other]\nkey=value\n");
  st.Amplitude[1] = 99;
  ASSERT_TRUE(save_settings(s, st, ini));
  EXPECT_TRUE(has("; written by hand") && has("[Other]\nkey=value") && has("Amplitude1=1\n") &&
              !has("[Tellux]"));
  ASSERT_TRUE(save_palette(st, ini));
  load_settings(back, back_st, ini);
  EXPECT_EQ(std::tuple(back_st.Amplitude[1], back_st.Amplitude[2]), std::tuple(99, 71646));
  EXPECT_FALSE(save_settings(s, st, ini + "/Tellux6.ini"));
  // Too large to be a settings file: not read, and never written over.
  const std::string big = "[Tellux]\nLangue=F\n" + std::string(300 << 10, ';');
  load(big);
  EXPECT_EQ(st.Langue, "E");
  EXPECT_FALSE(save_settings(s, st, ini) || save_palette(st, ini) || text() != big);
}

TEST(SettingsPath, ComesFromTelluxIniOrTheConfigurationFolder) {
  const char* names[] = {"TELLUX_INI", "XDG_CONFIG_HOME", "HOME"};
  std::optional<std::string> old[3];
  for (int i = 0; i < 3; ++i)
    if (const char* v = std::getenv(names[i])) old[i] = v;
  setenv("TELLUX_INI", "/tmp/elsewhere.ini", 1);
  setenv("XDG_CONFIG_HOME", "/cfg", 1);
  EXPECT_EQ(settings_file_path(), "/tmp/elsewhere.ini");
  unsetenv("TELLUX_INI");
  EXPECT_EQ(settings_file_path(), "/cfg/Tellux/Tellux6.ini");
  unsetenv("XDG_CONFIG_HOME");
  setenv("HOME", "/home/geo", 1);
  EXPECT_EQ(settings_file_path(), "/home/geo/.config/Tellux/Tellux6.ini");
  for (int i = 0; i < 3; ++i) old[i] ? setenv(names[i], old[i]->c_str(), 1) : unsetenv(names[i]);
}

// Names fold ASCII and the Latin-1 capitals À..Þ (not ×) to lower case; blanks and tabs around
// names and values and the CR of a line end are trimmed, and quotes keep a value's blanks.
TEST(IniFile, NamesAreComparedWithoutRegardToCaseAndBlanksAreTrimmed) {
  const IniFile ini = IniFile::parse(
      " [ Tellux ]\t\r\nModèle = 0 \r\n\tÉtat\t=\t'x'\t\r\nempty=\r\n[FILE]\r\nFile 1=a\r\n");
  EXPECT_EQ(
      std::tuple(ini.get("tellux", "MODÈLE"), ini.get("TELLUX", "état"), ini.get("File", "file 1")),
      std::tuple("0", "x", "a"));
  EXPECT_FALSE(ini.get("Tellux", "File 1") || ini.get("Nowhere", "x"));
  EXPECT_EQ(ini.read("Tellux", "empty", "d") + "|" + ini.read("Tellux", "missing", "d"), "|d");
  const std::pair<const char*, const char*> same[] = {
      {"couleur_du_modèle", "COULEUR_DU_MODÈLE"}, {"À-Þ", "à-þ"}, {"AZ", "az"}};
  const std::pair<const char*, const char*> differ[] = {
      {"@", "`"}, {"[", "{"}, {"modele", "modèle"}, {"×", "÷"}, {"ab", "abc"}, {"abc", "ab"}};
  for (auto [a, b] : same) EXPECT_TRUE(same_name(a, b)) << a;
  for (auto [a, b] : differ) EXPECT_FALSE(same_name(a, b)) << a << " " << b;
}

TEST(IniFile, SetReplacesInPlaceAddsNewSectionsAfterABlankLineAndQuotesBlankEnds) {
  IniFile ini = IniFile::parse("; comment\n[A]\nx=1\n\n[B]\ny=2\n");
  ini.set("a", "X", "3");
  ini.set("A", "z", "4");
  ini.set("C", "w", " ");
  ini.set("C", "n", "\"quoted\"");
  EXPECT_EQ(ini.text(), "; comment\n[A]\nX=3\nz=4\n\n[B]\ny=2\n\n[C]\nw=\" \"\nn=\"\"quoted\"\"\n");
  const IniFile back = IniFile::parse(ini.text());
  EXPECT_EQ(*back.get("C", "w") + "|" + *back.get("C", "n"), " |\"quoted\"");
}

// Each letter sets its one flag, compared exactly: anything else speaks English. Messages test
// French, then Spanish, else English; the letter of the flags tests English, French, Spanish and
// German, each overriding the one before.
TEST(Language, LettersFlagsAndMessages) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"E", "E", "en"}, {"F", "F", "fr"}, {"S", "S", "es"},
      {"A", "A", "en"}, {"f", "E", "en"}, {"", "E", "en"}};
  for (auto [letter, back, says] : cases) {
    const LanguageFlags f = language_from_letter(letter);
    EXPECT_EQ(f.English + f.French + f.Spanish + f.German, 1) << letter;
    EXPECT_EQ(letter_from_flags(f), back) << letter;
    EXPECT_STREQ(pick(f, "fr", "es", "en"), says) << letter;
  }
  EXPECT_EQ(letter_from_flags(LanguageFlags{true, true, true, false}) +
                letter_from_flags(LanguageFlags{true, true, true, true}),
            "SA");
  EXPECT_EQ(letter_from_flags(LanguageFlags{false, false, false, false}, "F"), "F");
}

}  // namespace
}  // namespace tellux
