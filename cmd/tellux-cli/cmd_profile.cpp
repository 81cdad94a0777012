#include <filesystem>
#include <memory>
#include <sstream>

#include "app/profile_tab.h"
#include "cli.h"

namespace tellux::cli {

namespace {

Json class_texts(const ColourScale& scale) {
  Json texts = Json::array();
  for (int k = 1; k <= 16; ++k) texts.push_back(text(scale.ClassBox[size_t(k)].Text));
  return texts;
}

Json class_colours(const ColourScale& scale) {
  Json colours = Json::array();
  for (int k = 1; k <= 16; ++k) colours.push_back(scale.ClassBox[size_t(k)].BackColor);
  return colours;
}

// "R,G,B:R,G,B:R,G,B" into the nine number boxes; a wrong list is a usage error.
void put_anchors(ColourScale& scale, const std::string& anchors) {
  std::istringstream in(anchors);
  std::string part;
  int n = 0;
  while (std::getline(in, part, n % 3 == 2 ? ':' : ',')) {
    int v = -1;
    size_t used = 0;
    try {
      v = std::stoi(part, &used);
    } catch (const std::exception&) {
    }
    if (n >= 9 || used != part.size() || v < 0 || v > 255)
      throw UsageError{"--anchors: three R,G,B triples of 0 to 255 separated by ':' expected"};
    scale.RGBBox[size_t(n++)].Text = part;
  }
  if (n != 9) throw UsageError{"--anchors: three R,G,B triples separated by ':' expected"};
}

}  // namespace

void add_profile_options(CLI::App* app, ProfileOptions& o) {
  app->add_option("FILE", o.files, "Sounding files of one folder, in the order chosen")->required();
  app->add_option("--array", o.array,
                  "Electrode array for the approximate depths (default: the settings')")
      ->check(CLI::IsMember({"schlumberger", "dipole", "wenner"}));
  app->add_option("--vscale", o.vscale, "Denominator of the vertical scale (default: settings)")
      ->check(CLI::Number);
  app->add_option("--hscale", o.hscale, "Denominator of the horizontal scale (default: settings)")
      ->check(CLI::Number);
  app->add_option("--min-res", o.min_res, "Lower end of the colour scale, typed after selecting")
      ->check(CLI::Number);
  app->add_option("--max-res", o.max_res, "Upper end of the colour scale, typed after selecting")
      ->check(CLI::Number);
}

void select_profile(Cli& cli, const ProfileOptions& o, ProfileTab& tab) {
  namespace fs = std::filesystem;
  std::vector<std::string> paths;
  for (const std::string& f : o.files)
    paths.push_back(fs::absolute(fs::path(f)).lexically_normal().string());
  for (const std::string& p : paths)
    if (fs::path(p).parent_path() != fs::path(paths.front()).parent_path())
      throw UsageError{"the files must lie in one folder: " + p};
  if (!o.array.empty()) apply_array(cli.s, o.array);
  tab.load();
  ProfileSheet& sheet = tab.sheet;
  if (!o.vscale.empty()) sheet.Text13.Text = o.vscale;
  if (!o.hscale.empty()) sheet.Text14.Text = o.hscale;
  cli.dialogs.open_choices.push_back(paths);
  sheet.Command2_Click();
  if (!o.min_res.empty()) {
    sheet.Text11.Text = o.min_res;
    tab.Text11_Change();
  }
  if (!o.max_res.empty()) {
    sheet.Text12.Text = o.max_res;
    tab.Text12_Change();
  }
}

Command profile_command(CLI::App& root) {
  auto o = std::make_shared<ProfileOptions>();
  auto* app = root.add_subcommand(
      "profile", "Select sounding files for a profile as the tab \"Profile data\" does");
  add_profile_options(app, *o);
  return {app, [o](Cli& cli) {
            GridModel grid{51, 8};
            ProfileTab tab(cli.session, cli.settings, grid);
            select_profile(cli, *o, tab);
            ProfileSheet& sheet = tab.sheet;
            Json rows = Json::array();
            for (int r = 1; r < grid.rows() && !grid.text(r, 1).empty(); ++r) {
              Json row = Json::array();
              for (int c = 0; c < 8; ++c) row.push_back(text(grid.text(r, c)));
              rows.push_back(row);
            }
            const ProfileValues& v = sheet.values;
            Json j;
            j["SEV_Grid"] = rows;
            j["Text5"] = sheet.Text5.Text;
            j["Text6"] = sheet.Text6.Text;
            j["Text11"] = text(sheet.Text11.Text);
            j["Text12"] = text(sheet.Text12.Text);
            j["ProfileTopElevation"] = v.ProfileTopElevation;
            j["ProfileFloorElevation"] = v.ProfileFloorElevation;
            j["ProfileHeightSpan"] = v.ProfileHeightSpan;
            j["ProfileMinDistance"] = v.ProfileMinDistance;
            j["TwipsPerMetreX"] = v.TwipsPerMetreX;
            j["TwipsPerMetreZ"] = v.TwipsPerMetreZ;
            j["ClassTexts"] = class_texts(sheet.scale);
            j["ClassColours"] = class_colours(sheet.scale);
            j["Messages"] = cli.messages();
            cli.print(j);
            return cli.status();
          }};
}

Command colours_command(CLI::App& root) {
  struct Options {
    std::string min, max, anchors;
    std::vector<double> values;
  };
  auto o = std::make_shared<Options>();
  auto* app = root.add_subcommand(
      "colours", "The 16 classes of the resistivity colour scale: limits, texts and colours");
  app->add_option("--min", o->min, "Lower end of the range (default: the settings' MinRes)")
      ->check(CLI::Number);
  app->add_option("--max", o->max, "Upper end of the range (default: the settings' MaxRes)")
      ->check(CLI::Number);
  app->add_option("--anchors", o->anchors,
                  "Anchor colours R,G,B:R,G,B:R,G,B; the scale is interpolated from them "
                  "(default: the settings' colours as they stand)");
  app->add_option("--classify", o->values, "Resistivities whose class to print, V,V,...")
      ->delimiter(',');
  return {app, [o](Cli& cli) {
            GridModel grid{2, 8};
            ProfileTab tab(cli.session, cli.settings, grid);
            tab.load();
            ColourScale& scale = tab.sheet.scale;
            if (!o->min.empty()) tab.sheet.Text11.Text = o->min;
            if (!o->max.empty()) tab.sheet.Text12.Text = o->max;
            scale.affiche_resistivity();
            if (!o->anchors.empty()) {
              put_anchors(scale, o->anchors);
              scale.calcul_RGB();
            }
            const ClassLimits limits = scale.limits();
            Json j;
            Json t = Json::array();
            for (int k = 1; k <= 15; ++k) t.push_back(limits.T[size_t(k)]);
            j["ClassLimits"] = t;
            j["ClassTexts"] = class_texts(scale);
            j["ClassColours"] = class_colours(scale);
            Json anchors = Json::array();
            for (int a = 1; a <= 3; ++a) anchors.push_back(scale.AnchorColour[size_t(a)].BackColor);
            j["AnchorColours"] = anchors;
            Json classes = Json::array();
            for (double v : o->values) classes.push_back(limits.class_of(v));
            j["Classes"] = classes;
            j["Messages"] = cli.messages();
            cli.print(j);
            return cli.status();
          }};
}

}  // namespace tellux::cli
