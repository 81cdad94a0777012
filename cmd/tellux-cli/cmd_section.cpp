// tellux-cli section: the geoelectrical section of soundings chosen as for a profile, drawn as the
// tab "SEV Profile" draws it, written as PDF, SVG, PNG and as its page operations.
#include <map>
#include <memory>
#include <sstream>

#include "cli.h"
#include "pictures.h"
#include "platform/qt/qt_page_painter.h"

namespace tellux::cli {

namespace {

struct SectionOptions {
  ProfileOptions profile;
  std::string show = "colours,topo,labels,elevation,correlation,scale,names";
  std::string title, angle = "0", paper = "a4", pdf, svg, png, ops;
  bool landscape = false;
};

// "--show" names the ticked boxes of "Plot options"; the others are unticked.
void tick_boxes(ProfileTab& tab, const std::string& show) {
  const std::map<std::string, CheckBox*> boxes = {
      {"colours", &tab.Check1},   {"topo", &tab.Check2},        {"labels", &tab.Check3},
      {"elevation", &tab.Check4}, {"correlation", &tab.Check5}, {"scale", &tab.Check6},
      {"names", &tab.Check7},     {"fill", &tab.Check8},        {"numbers", &tab.Check9}};
  for (const auto& [name, box] : boxes) box->Value = 0;
  std::istringstream in(show);
  std::string name;
  while (std::getline(in, name, ',')) {
    if (name.empty()) continue;
    const auto found = boxes.find(name);
    if (found == boxes.end()) throw UsageError{"--show: no box named \"" + name + "\""};
    found->second->Value = 1;
  }
}

int section(Cli& cli, const SectionOptions& o) {
  GridModel grid{51, 8};
  ProfileTab tab(cli.session, cli.settings, grid);
  tick_boxes(tab, o.show);
  tab.Text10.Text = o.title;
  tab.Text17.Text = o.angle;
  PageDocument page;
  if (o.paper == "letter") {
    page.PageWidth = 12240;
    page.PageHeight = 15840;
  }
  if (o.landscape) std::swap(page.PageWidth, page.PageHeight);
  page.MarginLeft = cli.settings.LeftMargin;
  page.MarginTop = cli.settings.UpperMargin;
  page.MarginRight = cli.settings.RightMargin;
  page.MarginBottom = cli.settings.BottomMargin;
  PictureToolkit toolkit;
  select_profile(cli, o.profile, tab);
  tab.Trace_Profil(page);

  Json j;
  j["SEVLogWidth"] = tab.SEVLogWidth;
  j["ProfileFloorElevation"] = tab.sheet.values.ProfileFloorElevation;
  j["PageWidth"] = page.PageWidth;
  j["PageHeight"] = page.PageHeight;
  // The scales at which the section fits this sheet (0: none can).
  const SectionScales fit = tab.fitting_scales(page);
  j["FittingScales"] = {{"Horizontal", fit.horizontal}, {"Vertical", fit.vertical}};
  const bool written = write_page_outputs(page, {o.pdf, o.svg, o.png, o.ops});
  j["Messages"] = cli.messages();
  cli.print(j);
  return written ? cli.status() : 1;
}

}  // namespace

Command section_command(CLI::App& root) {
  auto o = std::make_shared<SectionOptions>();
  auto* app = root.add_subcommand(
      "section", "Draw the geoelectrical section of soundings as the tab \"SEV Profile\" does");
  add_profile_options(app, o->profile);
  app->add_option("--show", o->show,
                  "The plot options ticked, among colours, topo, labels, elevation, correlation, "
                  "scale, names, fill, numbers; the others are unticked")
      ->capture_default_str();
  app->add_option("--title", o->title, "Title of the section");
  app->add_option("--angle", o->angle, "Angle of the sounding names, degrees")
      ->check(CLI::Number)
      ->capture_default_str();
  app->add_option("--paper", o->paper, "Sheet size")
      ->check(CLI::IsMember({"a4", "letter"}))
      ->capture_default_str();
  app->add_flag("--landscape", o->landscape, "Lay the sheet on its side");
  app->add_option("--pdf", o->pdf, "Write the section as PDF");
  app->add_option("--svg", o->svg, "Write the section as SVG");
  app->add_option("--png", o->png, "Write the section as PNG at 100 dpi");
  app->add_option("--ops", o->ops, "Write the page operations, one a line");
  return {app, [o](Cli& cli) { return section(cli, *o); }};
}

}  // namespace tellux::cli
