#include "app/profile_tab.h"

#include <cmath>
#include <cstdlib>

namespace tellux {

ProfileTab::ProfileTab(Session& session, Settings& settings, GridModel& SEV_Grid)
    : sheet(session, SEV_Grid), session_(session), settings_(settings) {
  Frame10.Caption = "Plot options";
  Frame7.Caption = "Draw parameters";
  Frame8.Caption = "Resitivity color scale";
  Check1 = {"&Color scale", 1};
  Check2 = {"Topo line", 1};
  Check3 = {"Resis. label", 1};
  Check4 = {"Elev. lines", 1};
  Check5 = {"SEV correl.", 1};
  Check6 = {"&Scale", 1};
  Check7 = {"SEV name", 1};
  Check8 = {" Fill", 0};
  Check9 = {"SEV number", 0};
  Text9.BackColor = 0;
  Text15.BackColor = 8421504;
  Text17.Text = "0";
}

void ProfileTab::load() {
  sheet.Text13.Text = settings_.Vscale;
  sheet.Text14.Text = settings_.Hscale;
  sheet.Text8.Text = settings_.SEVlarge;
  sheet.Text11.Text = settings_.MinRes;
  sheet.Text12.Text = settings_.MaxRes;
  sheet.scale.load(settings_);
  sheet.scale.affiche_resistivity();
}

void ProfileTab::store() {
  settings_.Vscale = sheet.Text13.Text;
  settings_.Hscale = sheet.Text14.Text;
  settings_.SEVlarge = sheet.Text8.Text;
  settings_.MinRes = sheet.Text11.Text;
  settings_.MaxRes = sheet.Text12.Text;
}

bool ProfileTab::SEV_Grid_Typed(int row, int col) const {
  const GridModel& grid = sheet.grid();
  return (col == 4 || col == 6) && row >= 1 && row < grid.rows() && !grid.text(row, 1).empty();
}

bool ProfileTab::SEV_Grid_Edit(int row, int col, const std::string& text) {
  if (!SEV_Grid_Typed(row, col)) return false;
  GridModel& grid = sheet.grid();
  // A decimal number with a point, blanks around it allowed; "1e400" is not a number here.
  const size_t start = text.find_first_not_of(' ');
  if (start == std::string::npos) return false;
  const std::string value = text.substr(start, text.find_last_not_of(' ') - start + 1);
  if (value.find_first_not_of("+-.0123456789eE") != std::string::npos) return false;
  char* end = nullptr;
  const double number = std::strtod(value.c_str(), &end);
  if (end != value.c_str() + value.size() || !std::isfinite(number)) return false;
  grid.set_text(row, col, value);
  SEV_Grid_Change();
  return true;
}

void ProfileTab::Frame10_Click() {
  sheet.scale.affiche_resistivity();
  if (show_section) show_section();
}

void ProfileTab::Command10_Click(const std::string& settings_path) {
  sheet.scale.Command10_Click(settings_, settings_path);
}

// The patches of the lines share the scale's dialog.
void ProfileTab::Text9_Click() {
  if (const auto colour = sheet.scale.pick_colour(Text9.BackColor)) Text9.BackColor = *colour;
}
void ProfileTab::Text15_Click() {
  if (const auto colour = sheet.scale.pick_colour(Text15.BackColor)) Text15.BackColor = *colour;
}

}  // namespace tellux
