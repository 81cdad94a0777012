#pragma once
// The table of soundings of the tab "Profile data" (`SEV_Grid`): the files chosen, read directly
// for their coordinates, deepest layer and resistivities (the sounding in the record is not
// touched), ordered along the line, with the page size of the section from its two scales.
#include <cstdint>
#include <string>
#include <vector>

#include "core/session.h"
#include "platform/controls.h"
#include "platform/grid_model.h"
#include "profile/colour_scale.h"

namespace tellux {

// Twips in a millimetre: the program's own constant, not 1440 / 25.4.
inline constexpr double kTwipsPerMm = 56.7;

// Values of the profile that the section and the extraction use.
struct ProfileValues {
  int16_t ProfileTopElevation = 0;     // 10 x (max elevation / 10) + 20, metres
  double ProfileFloorElevation = 0.0;  // lowest (Z less the approximate depth) of the soundings
  double ProfileHeightSpan = 0.0;      // max elevation less the floor
  double ProfileMinDistance = 0.0;     // smallest distance of the table
  double TwipsPerMetreX = 0.0;
  double TwipsPerMetreZ = 0.0;
};

// The dialog that chooses the soundings of a profile or an extraction: several TX3 files.
FileDialogRequest sev_selection_request();

class ProfileSheet {
 public:
  ProfileSheet(Session& session, GridModel& SEV_Grid);

  TextBox Text5{"200"};  // profile length, mm: computed, never typed
  TextBox Text6{"100"};  // profile height, mm: computed, never typed
  TextBox Text8{"2"};    // width of a sounding's log, mm
  TextBox Text11{"10"};  // the colour scale's range, ohm.m
  TextBox Text12{"2000"};
  TextBox Text13{"1000"};  // denominators of the vertical and horizontal scales
  TextBox Text14{"250"};
  Button Command2;
  ProfileValues values;
  ColourScale scale;
  // The folder of the files of the table, ending in its separator.
  std::string folder;

  // "Select SEV": the dialog, then `select` on the files chosen; one file or Cancel only says
  // "Impossible with only 1 file" and leaves the table.
  void Command2_Click();
  // The selection on files of one folder, in the order the dialog gave them.
  void select(const std::vector<std::string>& paths);
  // Orders the rows by distance from the coordinates' origin and cumulates the distances.
  void Re_order();
  // Page size of the section and the values of the profile from the table and the scales.
  void calcul_echelle();
  const GridModel& grid() const { return SEV_Grid_; }
  GridModel& grid() { return SEV_Grid_; }

 private:
  Session& session_;
  GridModel& SEV_Grid_;
};

}  // namespace tellux
