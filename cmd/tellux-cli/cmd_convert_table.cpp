// tellux-cli convert table: readings kept in a spreadsheet's table into a TX3 sounding.
#include <filesystem>

#include "cli.h"
#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"
#include "survey/table_import.h"

namespace tellux::cli {

Command convert_table_command(CLI::App& root) {
  CLI::App* convert = root.get_subcommand("convert");
  auto* app = convert->add_subcommand(
      "table", "A table of readings (CSV, semicolons or tabs) into a TX3 sounding");
  struct Options {
    std::string file, columns, delimiter, out, array = "schlumberger";
    bool decimal_comma = false;
    int skip = 0;
  };
  auto o = std::make_shared<Options>();
  app->add_option("FILE", o->file, "The table")->required();
  app->add_option("--columns", o->columns,
                  "Roles of the columns in order, comma-separated: ab2, mn2, rhoa, r (ohm), dv "
                  "(mV), i (mA), k, - (passed over); a role given to several columns takes their "
                  "mean. Default: from the header's names");
  app->add_option("--delimiter", o->delimiter, "Cell delimiter: , ; or tab (default: guessed)")
      ->check(CLI::IsMember({",", ";", "tab", "\t"}));
  app->add_flag("--decimal-comma", o->decimal_comma,
                "Numbers are written with a decimal comma (found alone when the cells are not "
                "separated by commas)");
  app->add_option("--skip", o->skip, "Lines passed over at the top of the file")
      ->check(CLI::Range(0, 100000))
      ->capture_default_str();
  app->add_option("--out", o->out, "The TX3 file (default: beside the table, named alike)");
  add_array_option(app, o->array);
  return {app, [o](Cli& cli) {
            TableLayout layout;
            layout.format.decimal_comma = o->decimal_comma;
            layout.format.skip = o->skip;
            if (!o->delimiter.empty())
              layout.format.delimiter = o->delimiter == "tab" ? '\t' : o->delimiter[0];
            if (!o->columns.empty()) {
              const auto roles = roles_from_list(o->columns);
              if (!roles) throw UsageError{"--columns: unknown role in \"" + o->columns + "\""};
              layout.roles = *roles;
            }
            std::string content;
            try {
              content = rt::read_whole_file(o->file);
            } catch (const rt::RuntimeError& e) {
              Cli::complain(o->file + ": " + e.reason());
              return 1;
            }
            apply_array(cli.s, o->array);
            cli.s.HalfArray = 1;
            const std::string origin = std::filesystem::path(o->file).filename().string();
            TableImport import = import_table(cli.s, content, layout, origin);
            if (import.roles_missing)
              import.messages.front() +=
                  ". Give the roles with --columns (ab2, mn2, rhoa, r, dv, i, k, -)";
            Json j;
            j["Files"] = Json::array();
            j["Columns"] = Json::array();
            for (ColumnRole role : import.roles) j["Columns"].push_back(role_name(role));
            bool written = true;
            if (import.ok) {
              std::string out = o->out;
              if (out.empty())
                out = std::filesystem::path(o->file).replace_extension(".TX3").string();
              cli.s.FilePath = cli.s.FileName = std::filesystem::absolute(out).string();
              written = write_tx3(cli, out);
              if (written) j["Files"].push_back(text(std::filesystem::absolute(out).string()));
              j["FieldCount"] = cli.s.FieldCount;
              j["FieldTable"] = field_table_json(cli.s, 6);
            }
            j["Messages"] = Json::array();
            for (const std::string& m : import.messages) {
              j["Messages"].push_back(text(m));
              Cli::complain(m);
            }
            for (const Json& m : cli.messages()) j["Messages"].push_back(m);
            cli.print(j);
            return import.ok && written ? cli.status() : 1;
          }};
}

}  // namespace tellux::cli
