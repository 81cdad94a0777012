#include "cli.h"

namespace tellux::cli {

// Every key of the settings file as the program holds it after reading the file, by section,
// values as text.
int cmd_settings(Cli& cli, const Args& args) {
  if (!args.positional.empty()) throw UsageError{"usage: tellux-cli settings"};
  Settings settings;
  load_cli_settings(cli, args, settings);
  const IniFile held = held_settings(cli.s, settings);
  Json j;
  j.begin_object();
  for (const IniFile::Section& section : held.sections()) {
    if (section.name.empty()) continue;
    j.key(section.name).begin_object();
    for (const IniFile::Entry& entry : section.entries)
      if (!entry.key.empty()) j.key(entry.key).text(entry.value);
    j.end_object();
  }
  j.end_object();
  cli.print(j);
  return cli.status();
}

}  // namespace tellux::cli
