#include "cli.h"

namespace tellux::cli {

// Every key of the settings file as the program holds it after reading the file, by section,
// values as text.
Command settings_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "settings", "Print every key of the settings file as the program holds it after reading it");
  return {app, [](Cli& cli) {
            const IniFile held = held_settings(cli.s, cli.settings);
            Json j = Json::object();
            for (const IniFile::Section& section : held.sections()) {
              if (section.name.empty()) continue;
              Json keys = Json::object();
              for (const IniFile::Entry& entry : section.entries)
                if (!entry.key.empty()) keys[text(entry.key)] = text(entry.value);
              j[text(section.name)] = keys;
            }
            cli.print(j);
            return cli.status();
          }};
}

}  // namespace tellux::cli
