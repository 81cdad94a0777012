#pragma once
// The tab "Profile data": the table of soundings with its scales and range, the resistivity
// colour scale, and the options and parameters of the section drawing (`Frame10`, `Frame7`).
#include <functional>
#include <string>

#include "core/session.h"
#include "core/settings.h"
#include "platform/controls.h"
#include "platform/grid_model.h"
#include "profile/profile_sheet.h"

namespace tellux {

class ProfileTab {
 public:
  ProfileTab(Session& session, Settings& settings, GridModel& SEV_Grid);

  ProfileSheet sheet;
  // "Plot options" (`Frame10`) and "Draw parameters" (`Frame7`) of the section drawing.
  CheckBox Check1, Check2, Check3, Check4, Check5, Check6, Check7, Check8, Check9;
  TextBox Text10;  // title of the plot
  TextBox Text9;   // its back colour: the topographic line
  TextBox Text15;  // its back colour: the correlation lines
  TextBox Text17;  // angle of the sounding's name, degrees
  Label Frame10, Frame7, Frame8;
  // Draws the section (tab "SEV Profile"); none until that tab is built.
  std::function<void()> Trace_Profil;

  // Start-up, after the settings are read: scales, log width, range and colours.
  void load();
  // Before the settings are written: the boxes go back to the section "Profile".
  void store();

  void Text13_Change() { sheet.calcul_echelle(); }  // vertical scale
  void Text14_Change() { sheet.calcul_echelle(); }  // horizontal scale
  void SEV_Grid_Change() { sheet.calcul_echelle(); }
  void Text11_Change() { sheet.scale.affiche_resistivity(); }  // range of the colour scale
  void Text12_Change() { sheet.scale.affiche_resistivity(); }
  // A click on "Plot options": the class limits, then the section.
  void Frame10_Click();
  // "OK, Save": the class colours to the settings file.
  void Command10_Click(const std::string& settings_path);
  // The colour patches of the two lines.
  void Text9_Click();
  void Text15_Click();

 private:
  Session& session_;
  Settings& settings_;
};

}  // namespace tellux
