// tellux-cli convert: the converters of other programs' and instruments' files, run as the menu
// runs them, their dialogs answered from the arguments.
#include <filesystem>
#include <memory>

#include "cli.h"
#include "convert/multi_sheet.h"
#include "convert/res2dinv.h"
#include "convert/syscal.h"

namespace tellux::cli {

namespace {

namespace fs = std::filesystem;

std::string absolute(const std::string& path) { return fs::absolute(path).string(); }

// Runs `convert` in `out_dir` (the files it names relative to the current folder land there),
// then prints the files written and the messages.
int report_files(Cli& cli, const std::string& out_dir,
                 const std::function<std::vector<std::string>()>& convert) {
  const fs::path before = fs::current_path();
  if (!out_dir.empty()) {
    std::error_code error;
    fs::current_path(out_dir, error);
    if (error) {
      Cli::complain(out_dir + ": " + error.message());
      return 1;
    }
  }
  std::vector<std::string> files = convert();
  if (!out_dir.empty()) fs::current_path(before);
  Json j;
  j["Files"] = Json::array();
  for (const std::string& f : files) j["Files"].push_back(text(absolute(fs::path(out_dir) / f)));
  j["Messages"] = cli.messages();
  cli.print(j);
  return cli.status();
}

}  // namespace

Command convert_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "convert", "Convert the files of instruments and other programs into TX3 soundings");
  app->require_subcommand(1);
  struct Options {
    std::string file, spreads, values, out_dir, array, first_x = "0", first_y = "0", azimuth = "0",
                                                       altitude = "0";
    std::vector<std::string> names;
    int soundings = 0;
  };
  auto o = std::make_shared<Options>();

  auto* syscal = app->add_subcommand("syscal", "Syscal export: one TX3 file per sounding");
  syscal->add_option("FILE", o->file, "The Syscal text file")->required();
  syscal
      ->add_option("--names", o->names,
                   "Answers to the file-name boxes, in order (default: each sounding's name)")
      ->delimiter(',');
  syscal->add_option("--out-dir", o->out_dir, "Folder of the TX3 files (default: the current one)");

  auto* res2dinv = app->add_subcommand(
      "res2dinv", "RES2DINV Wenner pseudo-section: modelled soundings evenly along the line");
  res2dinv->add_option("FILE", o->file, "The RES2DINV data file")->required();
  res2dinv->add_option("--soundings", o->soundings, "Number of soundings to extract, 1 to 100")
      ->required();
  res2dinv->add_option("--first-x", o->first_x, "X of the first electrode (asked, not used)");
  res2dinv->add_option("--first-y", o->first_y, "Y of the first electrode (asked, not used)");
  res2dinv->add_option("--azimuth", o->azimuth, "Azimuth of the line, degrees")
      ->capture_default_str();
  res2dinv->add_option("--altitude", o->altitude, "Altitude of the soundings")
      ->capture_default_str();
  add_array_option(res2dinv, o->array);
  res2dinv->add_option("--out-dir", o->out_dir,
                       "Folder of the TX3 files (default: beside the data file)");

  auto* sheet = app->add_subcommand(
      "sheet", "Multiple soundings sheet: a file of spreads and one of resistivities per sounding");
  sheet->add_option("SPREADS", o->spreads, "The AB/2 values shared by the soundings")->required();
  sheet->add_option("RESISTIVITIES", o->values, "One line per sounding: name X Y Z rho1 rho2 ...")
      ->required();
  sheet->add_option("--out-dir", o->out_dir, "Folder of the TX3 files (default: the current one)");

  return {app, [o, syscal, res2dinv, sheet](Cli& cli) {
            if (syscal->parsed()) {
              cli.dialogs.open_choices.push_back({absolute(o->file)});
              for (const std::string& n : o->names) cli.dialogs.inputs.push_back(n);
              return report_files(cli, o->out_dir, [&] { return Syscal(cli.session); });
            }
            if (res2dinv->parsed()) {
              if (!o->array.empty()) apply_array(cli.s, o->array);
              cli.dialogs.open_choices.push_back({absolute(o->file)});
              const auto form = [&](R2diForm& f) {
                f.Text1 = std::to_string(o->soundings);
                f.Text2 = o->first_x;
                f.Text3 = o->first_y;
                f.Text4 = o->azimuth;
                f.Text5 = o->altitude;
                f.done = true;
              };
              const std::string out = o->out_dir.empty() ? "" : absolute(o->out_dir);
              return report_files(cli, "", [&] { return RES2DINV(cli.session, form, out); });
            }
            cli.dialogs.open_choices.push_back({absolute(o->spreads)});
            cli.dialogs.open_choices.push_back({absolute(o->values)});
            return report_files(cli, o->out_dir,
                                [&] { return multiple_soundings_sheet(cli.session); });
          }};
}

}  // namespace tellux::cli
