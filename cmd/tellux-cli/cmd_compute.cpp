#include <algorithm>
#include <string>

#include "app/field_sheet.h"
#include "cli.h"
#include "core/fill_sheet.h"

namespace tellux::cli {

int cmd_compute(Cli& cli, const Args& args) {
  if (args.positional.size() != 1)
    throw UsageError{
        "usage: tellux-cli compute FILE [--array A] [--shift 0|1] [--half-array 1|2] "
        "[--marine W]"};
  apply_array(cli, args);
  const bool shift_given = args.has("--shift"), half_given = args.has("--half-array");
  int shift = 0, half = 1;
  if (shift_given) {
    shift = parse_int(args.get("--shift"), "--shift");
    if (shift != 0 && shift != 1) throw UsageError{"--shift takes 0 or 1"};
  }
  if (half_given) {
    half = parse_int(args.get("--half-array"), "--half-array");
    if (half != 1 && half != 2) throw UsageError{"--half-array takes 1 or 2"};
  }
  const bool marine = args.has("--marine");
  const std::string water = args.get("--marine");
  if (marine) parse_double(water, "--marine");

  open_file(cli, args.positional[0]);
  if (cli.status() != 0) return cli.status();
  SoundingState& s = cli.s;
  // The reader sets both switches from the file; the options override them as the boxes would.
  if (shift_given) s.ShiftCurves = static_cast<int16_t>(shift);
  if (half_given) s.HalfArray = static_cast<int16_t>(half);

  const std::string no_spread_file;
  FieldSheet sheet(cli.session, no_spread_file);
  fill_sheet(s, sheet.BuildGrid);
  sheet.Marine_floor.Value = marine ? 1 : 0;
  sheet.Reau.Text = water;
  sheet.Compute();

  Json j;
  j.begin_object();
  j.key("FieldCount").integer(s.FieldCount);
  j.key("MaxAbHalf").integer(s.MaxAbHalf);
  j.key("FieldTable");
  field_table_json(j, s, 7);
  j.key("Sheet").begin_array();
  for (int i = 1; i <= std::min<int>(s.FieldCount, kSheetRows); ++i) {
    j.begin_array();
    for (int c = 1; c <= kSheetColumns; ++c) j.text(sheet.BuildGrid.text(i, c));
    j.end_array();
  }
  j.end_array();
  j.end_object();
  cli.print(j);
  return cli.status();
}

}  // namespace tellux::cli
