#include <algorithm>
#include <optional>
#include <string>

#include "app/field_sheet.h"
#include "cli.h"
#include "core/fill_sheet.h"

namespace tellux::cli {

Command compute_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "compute",
      "Fill the field sheet from the file and press Compute: K and apparent resistivities");
  struct Options {
    std::string file, array = "schlumberger", marine;
    std::optional<int> shift, half_array;
  };
  auto o = std::make_shared<Options>();
  app->add_option("FILE", o->file, "The sounding file")->required();
  add_array_option(app, o->array);
  app->add_option("--shift", o->shift,
                  "Shift the segments to join at their splices (default: the file's)")
      ->check(CLI::IsMember({0, 1}));
  app->add_option("--half-array", o->half_array,
                  "1: whole spread, 2: half spread (default: the file's)")
      ->check(CLI::IsMember({1, 2}));
  app->add_option("--marine", o->marine,
                  "Marine correction with this water resistivity (ohm.m), as typed in its box")
      ->check(CLI::Number);
  return {app, [o](Cli& cli) {
            SoundingState& s = cli.s;
            apply_array(s, o->array);
            if (!open_file(cli, o->file)) return 1;
            // The reader sets both switches from the file; the options override them as the
            // boxes would.
            if (o->shift) s.ShiftCurves = static_cast<int16_t>(*o->shift);
            if (o->half_array) s.HalfArray = static_cast<int16_t>(*o->half_array);

            const std::string no_spread_file;
            FieldSheet sheet(cli.session, no_spread_file);
            fill_sheet(s, sheet.BuildGrid);
            sheet.Marine_floor.Value = o->marine.empty() ? 0 : 1;
            sheet.Reau.Text = o->marine;
            sheet.Compute();

            Json j;
            j["FieldCount"] = s.FieldCount;
            j["MaxAbHalf"] = s.MaxAbHalf;
            j["FieldTable"] = field_table_json(s, 7);
            Json rows = Json::array();
            for (int i = 1; i <= std::min<int>(s.FieldCount, kSheetRows); ++i) {
              Json row = Json::array();
              for (int c = 1; c <= kSheetColumns; ++c)
                row.push_back(text(sheet.BuildGrid.text(i, c)));
              rows.push_back(row);
            }
            j["Sheet"] = rows;
            j["Messages"] = cli.messages();
            cli.print(j);
            return cli.status();
          }};
}

}  // namespace tellux::cli
