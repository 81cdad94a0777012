#pragma once
// The batch command's shared pieces: arguments, one session per run, JSON of the record.
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "core/session.h"
#include "core/settings.h"
#include "json.h"
#include "platform/headless/scripted_dialogs.h"

namespace tellux::cli {

struct Args {
  std::vector<std::string> positional;
  std::map<std::string, std::string> options;  // "--name" -> value ("" for a flag)
  bool has(const std::string& name) const { return options.count(name) != 0; }
  std::string get(const std::string& name, const std::string& fallback = "") const {
    auto it = options.find(name);
    return it == options.end() ? fallback : it->second;
  }
};

// A wrong argument: the command prints the text and exits 2.
struct UsageError {
  std::string text;
};

// One run of the batch command: the record, dialogs that print to standard error, no windows.
class Cli {
 public:
  Cli();
  SoundingState s;
  BatchDialogs dialogs;
  Forms forms;
  Session session{s, dialogs, forms};

  // Exit status: 1 when the program showed an error message, else 0.
  int status() const { return dialogs.shown() > 0 ? 1 : 0; }
  void print(const Json& json) const { std::fputs(json.str().c_str(), stdout); }
};

// Reads FILE as the program does when it opens a sounding by name.
void open_file(Cli& cli, const std::string& path);
// Reads the settings file; "--lang" overrides its language for this call.
void load_cli_settings(Cli& cli, const Args& args, Settings& settings);
// Applies "--array schlumberger|dipole|wenner" and "--decade-start N".
void apply_array(Cli& cli, const Args& args);
void apply_decade_start(Cli& cli, const Args& args);
// The first layer row without a thickness is the half space; rows after it are left out.
void take_layer_count(SoundingState& s);
int parse_int(const std::string& text, const std::string& option);
double parse_double(const std::string& text, const std::string& option);

// JSON pieces shared by the commands.
void field_table_json(Json& j, const SoundingState& s, int columns);
// "LayerCount" and "LayerModel": rows 1..LayerCount as [resistivity, thickness].
void layer_model_json(Json& j, const SoundingState& s);
// Applies "--sensitivity S" (default 0.3) to ModelSensitivity.
void apply_sensitivity(Cli& cli, const Args& args);

using Command = int (*)(Cli&, const Args&);
int cmd_open(Cli& cli, const Args& args);
int cmd_settings(Cli& cli, const Args& args);
int cmd_forward(Cli& cli, const Args& args);
int cmd_write(Cli& cli, const Args& args);
int cmd_plot(Cli& cli, const Args& args);
int cmd_automodel(Cli& cli, const Args& args);
int cmd_fit(Cli& cli, const Args& args);
int cmd_compute(Cli& cli, const Args& args);

}  // namespace tellux::cli
