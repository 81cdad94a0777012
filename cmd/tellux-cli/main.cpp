// tellux-cli: the program's logic from the command line, for scripts and many files at once.
// JSON on standard output, messages on standard error; exit 0 on success, 1 when the program
// showed an error message, 2 on bad arguments.
#include <clocale>
#include <cstdio>

#include "cli.h"
#include "core/language.h"
#include "core/runtime/error_report.h"

namespace {

constexpr const char* kAbout =
    "Tellux 6.4 batch command: the program's logic without windows.\n"
    "Prints JSON on standard output and the program's messages on standard error.\n"
    "Exit status: 0 success, 1 the program showed an error message (a box with the exclamation\n"
    "or critical sign), 2 bad arguments.\n"
    "Reads the settings file ($TELLUX_INI, else ~/.config/Tellux/Tellux6.ini) and never writes "
    "it.";

constexpr const char* kLanguageHelp =
    "Language of the messages: E English, F French, S Spanish, A German. The program has German "
    "texts only on the report page; elsewhere German shows the English texts. Default: the "
    "settings file's.";

// The first word that is not an option names the command; CLI11 alone would only say that a
// command is missing.
const char* unknown_command(const CLI::App& root, int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--lang") {
      ++i;
      continue;
    }
    if (word.empty() || word[0] == '-') continue;
    for (const CLI::App* sub : root.get_subcommands({}))
      if (sub->get_name() == word) return nullptr;
    return argv[i];
  }
  return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace tellux::cli;
  std::setlocale(LC_NUMERIC, "C");
  CLI::App root{kAbout, "tellux-cli"};
  root.set_version_flag("--version", "tellux-cli 6.4");
  root.require_subcommand(1);
  root.fallthrough();  // --lang may stand after the command too
  std::string lang;
  root.add_option("--lang", lang, kLanguageHelp)->check(CLI::IsMember({"E", "F", "S", "A"}));

  const std::vector<Command> commands = {
      open_command(root),          settings_command(root),      forward_command(root),
      write_command(root),         compute_command(root),       automodel_command(root),
      fit_command(root),           plot_command(root),          profile_command(root),
      colours_command(root),       extract_command(root),       report_command(root),
      section_command(root),       convert_command(root),       restore_command(root),
      rename_backup_command(root), export_txl_command(root),    equivalence_command(root),
      fit_all_command(root),       export_models_command(root), convert_table_command(root),
  };
  if (const char* word = unknown_command(root, argc, argv)) {
    std::fprintf(stderr,
                 "tellux-cli: unknown command \"%s\"\nRun with --help for more information.\n",
                 word);
    return 2;
  }
  try {
    root.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return root.exit(e) == 0 ? 0 : 2;
  }
  // Backwards: a command nested in another (convert table) stands after it and runs instead.
  for (auto it = commands.rbegin(); it != commands.rend(); ++it) {
    const Command& command = *it;
    if (!command.app->parsed()) continue;
    try {
      Cli cli;
      load_settings(cli.s, cli.settings);
      if (!lang.empty()) cli.s.Language = tellux::language_from_letter(lang);
      return command.run(cli);
    } catch (const UsageError& e) {
      Cli::complain(e.text);
      return 2;
    } catch (...) {
      // The last guard: an error that escaped every routine ends the command with its message.
      const tellux::rt::ErrorReport error = tellux::rt::report_of_current_error();
      Cli::complain("run-time error " + std::to_string(error.number) + ": " + error.text);
      return 1;
    }
  }
  return 2;
}
