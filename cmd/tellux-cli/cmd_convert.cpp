// tellux-cli convert: the converters of other programs' and instruments' files, run as the menu
// runs them, their dialogs answered from the arguments.
#include <filesystem>
#include <memory>

#include "cli.h"
#include "convert/backups.h"
#include "convert/instruments.h"
#include "convert/multi_sheet.h"
#include "convert/res2dinv.h"
#include "convert/syscal.h"
#include "core/default_spread.h"

namespace tellux::cli {

namespace {

namespace fs = std::filesystem;

std::string absolute(const std::string& path) { return fs::absolute(path).string(); }

// The folder the files of a conversion go to, as the converters take it: without a last separator.
std::string absolute_folder(const std::string& dir) {
  if (dir.empty()) return dir;
  std::string folder = fs::absolute(dir).lexically_normal().string();
  if (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  return folder;
}

// Runs `convert`, then prints the files written and the messages. An input the program would not
// read is named with its reason and fails the command, also where the converter itself says
// nothing.
int report_files(Cli& cli, const std::vector<std::string>& inputs,
                 const std::function<std::vector<std::string>()>& convert) {
  cli.session.file_failure.clear();
  std::vector<std::string> files = convert();
  if (!cli.session.file_failure.empty()) Cli::complain("cannot write " + cli.session.file_failure);
  Json j;
  j["Files"] = Json::array();
  for (const std::string& f : files) j["Files"].push_back(text(absolute(f)));
  j["Messages"] = cli.messages();
  cli.print(j);
  bool unreadable = false;
  for (const std::string& input : inputs) {
    if (const std::string reason = unreadable_because(input); !reason.empty()) {
      Cli::complain(input + ": " + reason);
      unreadable = true;
    }
  }
  return unreadable ? 1 : cli.status();
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
  syscal->add_option("--out-dir", o->out_dir,
                     "Folder of the TX3 files (default: beside the Syscal file)");

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
  sheet->add_option("--out-dir", o->out_dir,
                    "Folder of the TX3 files (default: beside the resistivities)");

  // The instruments' files, one sounding each.
  struct InstrumentOptions {
    std::string file, out, spreads, array;
  };
  auto io = std::make_shared<InstrumentOptions>();
  std::vector<std::pair<CLI::App*, Instrument>> instruments;
  const std::pair<const char*, Instrument> kinds[] = {
      {"abem", Instrument::Abem},         {"sas1000", Instrument::Sas1000},
      {"geotrade", Instrument::Geotrade}, {"pasi", Instrument::Pasi},
      {"astier", Instrument::Astier},     {"oyo", Instrument::Oyo}};
  for (const auto& [name, kind] : kinds) {
    auto* sub = app->add_subcommand(
        name, std::string("The ") + name + " file of one sounding into a TX3 file");
    sub->add_option("FILE", io->file, "The instrument's file")->required();
    sub->add_option("--out", io->out, "The TX3 file (default: beside the input, named alike)");
    if (kind == Instrument::Pasi)
      sub->add_option("--spreads", io->spreads,
                      "The spread file (default: the array's spread file in the data folder)");
    add_array_option(sub, io->array);
    instruments.emplace_back(sub, kind);
  }

  return {app, [o, io, instruments, syscal, res2dinv, sheet](Cli& cli) {
            for (const auto& [sub, kind] : instruments) {
              if (!sub->parsed()) continue;
              if (!io->array.empty()) apply_array(cli.s, io->array);
              // The spread file named stands for the setting. When PASI cannot read it, the
              // dialog that asks for another is cancelled: the command ends there.
              const std::string spreads =
                  io->spreads.empty() ? cli.settings.SevFile : absolute(io->spreads);
              if (kind == Instrument::Pasi) {
                SoundingState probe;
                probe.SpreadTag = cli.s.SpreadTag;
                if (read_default_spread(probe, pasi_spread_file(spreads, probe.SpreadTag)) == 0)
                  cli.dialogs.open_choices.push_back({});
              }
              cli.dialogs.open_choices.push_back({absolute(io->file)});
              const std::string out = io->out.empty() ? "" : absolute(io->out);
              std::vector<std::string> inputs{io->file};
              if (!io->spreads.empty()) inputs.push_back(io->spreads);
              return report_files(cli, inputs, [&, k = kind] {
                const auto path = convert_instrument(cli.session, k, spreads, out);
                return path ? std::vector<std::string>{*path} : std::vector<std::string>{};
              });
            }
            if (syscal->parsed()) {
              cli.dialogs.open_choices.push_back({absolute(o->file)});
              for (const std::string& n : o->names) cli.dialogs.inputs.push_back(n);
              const std::string out = absolute_folder(o->out_dir);
              return report_files(cli, {o->file}, [&] { return Syscal(cli.session, out); });
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
              const std::string out = absolute_folder(o->out_dir);
              return report_files(cli, {o->file}, [&] { return RES2DINV(cli.session, form, out); });
            }
            cli.dialogs.open_choices.push_back({absolute(o->spreads)});
            cli.dialogs.open_choices.push_back({absolute(o->values)});
            const std::string out = absolute_folder(o->out_dir);
            return report_files(cli, {o->spreads, o->values},
                                [&] { return multiple_soundings_sheet(cli.session, out); });
          }};
}

Command restore_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "restore", "Read a backup (*.BAK) as the current sounding and print what open prints");
  auto file = std::make_shared<std::string>();
  app->add_option("FILE", *file, "The backup file")->required();
  return {app, [file](Cli& cli) {
            cli.dialogs.open_choices.push_back({absolute(*file)});
            if (!restore_backup(cli.session)) {
              Cli::complain(*file + ": cannot be read");
              return 1;
            }
            print_record(cli);
            return cli.status();
          }};
}

Command rename_backup_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "rename-backup", "Rename a backup (*.BAK) to its TX3 name, unless that file exists");
  auto file = std::make_shared<std::string>();
  app->add_option("FILE", *file, "The backup file")->required();
  return {app, [file](Cli& cli) {
            cli.dialogs.open_choices.push_back({absolute(*file)});
            return report_files(cli, {}, [&] {
              const auto path = rename_backup(cli.session);
              return path ? std::vector<std::string>{*path} : std::vector<std::string>{};
            });
          }};
}

Command export_txl_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "export-txl", "Write a sounding and the curves of its model for a spreadsheet (*.TXL)");
  struct Options {
    std::string file, out, array;
  };
  auto o = std::make_shared<Options>();
  app->add_option("FILE", o->file, "The sounding file")->required();
  app->add_option("--out", o->out, "The file to write; its extension becomes .TXL")->required();
  add_array_option(app, o->array);
  return {app, [o](Cli& cli) {
            if (!o->array.empty()) apply_array(cli.s, o->array);
            if (!open_file(cli, o->file)) return 1;
            take_layer_count(cli.s);
            // In the desktop program a file with a model opens the model window, whose Compute
            // empties the store of models unless curves are superposed; the export follows it.
            SoundingState& s = cli.s;
            if (s.LayerModel(1, 1).num() > 0 && (s.SuperposeCurve != 1 || s.LayerCount < 2)) {
              s.HistoryLast = 0;
              s.HistoryShown = 0;
              s.LayerHistory.erase();
            }
            cli.dialogs.save_choices.push_back(absolute(o->out));
            return report_files(cli, {}, [&] {
              const auto path = export_txl(cli.session);
              return path ? std::vector<std::string>{*path} : std::vector<std::string>{};
            });
          }};
}

}  // namespace tellux::cli
