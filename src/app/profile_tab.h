#pragma once
// The tab "Profile data": the table of soundings with its scales and range, the resistivity
// colour scale, and the options and parameters of the section drawing (`Frame10`, `Frame7`).
#include <array>
#include <functional>
#include <string>

#include "core/session.h"
#include "core/settings.h"
#include "platform/controls.h"
#include "platform/grid_model.h"
#include "platform/page_document.h"
#include "profile/profile_sheet.h"

namespace tellux {

// Millimetres of the sheet the section may take, as the drawing tests them.
struct SectionRoom {
  double width = 0;
  double height = 0;
};

// Scale denominators; 0 where none is proposed.
struct SectionScales {
  int32_t horizontal = 0;
  int32_t vertical = 0;
};

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
  // Shows the section (tab "SEV Profile"); none until that tab is built.
  std::function<void()> show_section;
  // The sheet of the section (tab "SEV Profile"), for "Fit the page"; none until it is built.
  PageDocument* section_page = nullptr;
  // The width of a sounding's log on the page, twips; kept from one drawing to the next.
  double SEVLogWidth = 0;

  // The geoelectrical section on `VSPrint1`, every file of the table read again.
  void Trace_Profil(PageDocument& VSPrint1);
  // The name and the number above a log exclude each other; " Fill" widens the logs to the
  // soundings' spacing and switches the labels to numbers.
  void Check7_Click();
  void Check8_Click();
  void Check9_Click();

  // Start-up, after the settings are read: scales, log width, range and colours.
  void load();
  // Before the settings are written: the boxes go back to the section "Profile".
  void store();

  void Text13_Change() { sheet.calcul_echelle(); }  // vertical scale
  void Text14_Change() { sheet.calcul_echelle(); }  // horizontal scale
  void SEV_Grid_Change() { sheet.calcul_echelle(); }
  // A value typed in the table: a Z (column 4) or a distance (column 6) of a sounding's row
  // replaces the cell and the page size follows. Anything else, or text that is not a number,
  // is refused (false) and the cell keeps its value.
  bool SEV_Grid_Edit(int row, int col, const std::string& text);
  // Whether the cell takes typed values: the Z and the distance of a sounding's row.
  bool SEV_Grid_Typed(int row, int col) const;
  // The room the section has on `page` and the scales at which it fits that room.
  SectionRoom room_on(const PageDocument& page) const;
  SectionScales fitting_scales(const PageDocument& page) const;
  // "Fit the page": a scale whose section is too big for the sheet of `section_page`, with the
  // margins of the settings, becomes the one that fits; a scale that fits stays.
  void Fit_Page_Click();
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
  // "Plot width too big !" and "Plot height too big !", each with the scale that would fit.
  void warn_if_too_big(const PageDocument& page);
  // One layer of one log: the arguments come back as page twips.
  void Trace_Rectangle(PageDocument& page, double& X, double& top, double& bottom, double r);

  Session& session_;
  Settings& settings_;
  // For each layer k (1..20) of the sounding being drawn and of the one before: the page X of the
  // log and the page Y of the layer's top. Never cleared, between soundings or drawings.
  std::array<std::array<double, 2>, 21> current_{}, previous_{};
  // The layer table of the sounding being drawn: resistivity, thickness, depth (1..20).
  std::array<std::array<double, 3>, 22> layers_{};
};

}  // namespace tellux
