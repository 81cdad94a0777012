#include "app/profile_tab.h"

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

void ProfileTab::Frame10_Click() {
  sheet.scale.affiche_resistivity();
  if (show_section) show_section();
}

void ProfileTab::Command10_Click(const std::string& settings_path) {
  sheet.scale.Command10_Click(settings_, settings_path);
}

// The patches of the lines share the scale's dialog.
void ProfileTab::Text9_Click() { Text9.BackColor = sheet.scale.pick_colour(); }
void ProfileTab::Text15_Click() { Text15.BackColor = sheet.scale.pick_colour(); }

}  // namespace tellux
