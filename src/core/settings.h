#pragma once
// The settings file Tellux6.ini: read once at start-up, written on leaving. Values the logic
// needs go to SoundingState (diagram limits, colours, display switches, array, data folder,
// recent files, language); the rest stays in `Settings`.
#include <array>
#include <cstdint>
#include <string>

#include "core/ini_file.h"
#include "core/sounding_state.h"

namespace tellux {

struct Settings {
  std::string Langue = "E";                         // the letter as read
  std::string SevFile = "C:\\Tellux\\DataVes.txt";  // the default spread file
  // Page margins of the report, in twips.
  int16_t LeftMargin = 1134;
  int16_t UpperMargin = 1134;
  int16_t RightMargin = 1134;
  int16_t BottomMargin = 1245;
  std::string GraphicalProg = " ";  // one blank: not located yet
  int16_t LargePlot = 2000;
  int16_t HautPlot = 2000;
  // Older colour keys, by name.
  std::string CurveColourName = "RED";
  std::string ModelColourName = "MAGENTA";
  std::string PointsColourName = "RED";
  std::string ErrorColourName = "RED";
  // Colours of the 16 resistivity classes, slots 1..16.
  std::array<int32_t, 17> Amplitude = {0,        69782,    71646,    2177022,  5662718,  10463743,
                                       14278143, 16514047, 16775929, 16764095, 16689042, 16677722,
                                       16662544, 16662544, 16662544, 16662544, 16662544};
  // The profile's text boxes, kept as typed.
  std::string Vscale = "1000";
  std::string Hscale = "250";
  std::string SEVlarge = "2";
  std::string MinRes = "10";
  std::string MaxRes = "2000";
  // The box "Garder la configuration en sortant": keep this run's choices when leaving.
  bool garder_config = false;
};

// Where the file lies: $TELLUX_INI when set, else Tellux/Tellux6.ini in $XDG_CONFIG_HOME or
// ~/.config.
std::string settings_file_path();

// Reads every key, a missing file or key giving its default, without any message. A value that
// is not a number leaves the field as it was. An "AB2max" or "RHOmax" below 2 becomes 4.
void load_settings(SoundingState& s, Settings& settings, const std::string& path);
void load_settings(SoundingState& s, Settings& settings);

// Writes the recent files, the page, the graphical program, the plot size, the named colours and
// the profile always; the section "Tellux" and the seven colours only when `garder_config` is
// set. Returns false when the file could not be written (nothing is shown).
bool save_settings(SoundingState& s, Settings& settings, const std::string& path);
bool save_settings(SoundingState& s, Settings& settings);

// Writes the 16 class colours (the profile's "record colours" button).
bool save_palette(const Settings& settings, const std::string& path);

// Every key of the file as the program holds it now, sections and keys in the file's order.
IniFile held_settings(const SoundingState& s, const Settings& settings);

}  // namespace tellux
