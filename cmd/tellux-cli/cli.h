#pragma once
// The batch command's shared pieces: one session per run, the options several commands take,
// JSON of the record.
#include <CLI/CLI.hpp>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "app/profile_tab.h"
#include "core/session.h"
#include "core/settings.h"
#include "platform/headless/scripted_dialogs.h"
#include "survey/fit_sounding.h"

namespace tellux::cli {

// Keys keep the order they were written in.
using Json = nlohmann::ordered_json;

// A wrong argument found after parsing: the command prints the text and exits 2.
struct UsageError {
  std::string text;
};

// One run of the batch command: the record and the settings as the settings file gives them,
// dialogs that print to standard error and answer as the command's arguments say, no windows.
class Cli {
 public:
  Cli();
  SoundingState s;
  Settings settings;
  BatchDialogs dialogs;
  Forms forms;
  Session session{s, dialogs, forms};

  // Exit status: 1 when the program showed a box with the exclamation or critical sign, else 0.
  int status() const { return dialogs.errors() > 0 ? 1 : 0; }
  // The texts of the boxes shown so far, in order.
  Json messages() const;
  void print(const Json& json) const;
  // A file the command could not read or write: "tellux-cli: PATH: reason" on standard error.
  static void complain(const std::string& what);
};

// One subcommand: its parser, and what runs once the arguments are parsed.
struct Command {
  CLI::App* app;
  std::function<int(Cli&)> run;
};

// Each command adds itself to the root parser.
Command open_command(CLI::App& root);
Command settings_command(CLI::App& root);
Command forward_command(CLI::App& root);
Command write_command(CLI::App& root);
Command plot_command(CLI::App& root);
Command automodel_command(CLI::App& root);
Command fit_command(CLI::App& root);
Command fit_all_command(CLI::App& root);
Command export_models_command(CLI::App& root);
// Adds "table" to the command "convert", which must stand before it.
Command convert_table_command(CLI::App& root);
Command compute_command(CLI::App& root);
Command profile_command(CLI::App& root);
Command colours_command(CLI::App& root);
Command extract_command(CLI::App& root);
Command report_command(CLI::App& root);
Command section_command(CLI::App& root);
Command convert_command(CLI::App& root);
Command restore_command(CLI::App& root);
Command rename_backup_command(CLI::App& root);
Command export_txl_command(CLI::App& root);
Command equivalence_command(CLI::App& root);

// The record as `open` prints it, with the messages shown.
void print_record(Cli& cli);

// The selection of a profile as `tellux-cli profile` makes it (also for `section`).
struct ProfileOptions {
  std::vector<std::string> files;
  std::string array, vscale, hscale, min_res, max_res;
};
void add_profile_options(CLI::App* app, ProfileOptions& o);
// The files chosen on the tab's selection, then the range typed; the settings first.
void select_profile(Cli& cli, const ProfileOptions& o, ProfileTab& tab);

// Options several commands take; each adds the option and its help, with its default.
void add_array_option(CLI::App* app, std::string& array);
void add_decade_start_option(CLI::App* app, int& decade_start);
void add_sensitivity_option(CLI::App* app, double& sensitivity);
// "--accurate": the option "Accurate curves" on for this run, whatever the settings file says.
void add_accurate_option(CLI::App* app, bool& accurate);
// The spread chosen by "--array schlumberger|dipole|wenner", as the array buttons set it.
void apply_array(SoundingState& s, const std::string& array);

// Why the program will not read `path` (missing, a folder, a pipe or device, too large,
// forbidden), in the system's words; empty when it will. Never blocks.
std::string unreadable_because(const std::string& path);

// Reads FILE as the program does when it opens a sounding by name. False, with the reason on
// standard error after the program's own message, when the file could not be read.
bool open_file(Cli& cli, const std::string& path);
// Writes the record as a TX3 file in batch mode (no question). False, with the path and the
// system's reason on standard error after the program's own message, when it could not.
bool write_tx3(Cli& cli, std::string& path);
// The first layer row without a thickness is the half space; rows after it are left out.
using tellux::take_layer_count;
// The fit's choices from the options --array, --decade-start, --thickness-decimals and
// --sensitivity, which `fit` and `fit-all` share.
struct FitOptions {
  std::string array = "schlumberger";
  int decade_start = -1, thickness_decimals = 0;
  double sensitivity = 0.3;
  bool accurate = false;
  FitChoices choices() const;
};
void add_fit_options(CLI::App* app, FitOptions& o);

// Text for the JSON output: valid UTF-8 as it is, anything else read as Windows-1252.
std::string text(const std::string& bytes);
// Rows 1..FieldCount of FieldTable, columns 1..`columns`.
Json field_table_json(const SoundingState& s, int columns);
// Adds "LayerCount" and "LayerModel": rows 1..LayerCount as [resistivity, thickness].
void add_layer_model(Json& j, const SoundingState& s);

}  // namespace tellux::cli
