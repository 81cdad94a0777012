#include "cli.h"

namespace tellux::cli {

int cmd_open(Cli& cli, const Args& args) {
  if (args.positional.size() != 1) throw UsageError{"usage: tellux-cli open FILE"};
  // The recent files live in the settings file: an open enters its path there, as the program
  // does, so that it is listed by the next call.
  Settings settings;
  load_cli_settings(cli, args, settings);
  open_file(cli, args.positional[0]);
  save_settings(cli.s, settings);
  const SoundingState& s = cli.s;
  Json j;
  j.begin_object();
  j.key("FileName").text(s.FileName);
  j.key("FilePath").text(s.FilePath);
  j.key("FileDir").text(s.FileDir);
  j.key("FormatLevel").integer(s.FormatLevel);
  j.key("ResistScale").integer(s.ResistScale);
  j.key("FieldCount").integer(s.FieldCount);
  j.key("MaxAbHalf").integer(s.MaxAbHalf);
  j.key("HalfArray").integer(s.HalfArray);
  j.key("ShiftCurves").integer(s.ShiftCurves);
  j.key("FieldTable");
  field_table_json(j, s, 7);
  j.key("LayerModel").begin_array();
  for (int r = 1; r <= 20; ++r) {
    j.begin_array();
    for (int c = 1; c <= 3; ++c) j.number(s.LayerModel(r, c).num());
    j.end_array();
  }
  j.end_array();
  j.key("CommentText").text(s.CommentText);
  j.key("DataOrigin").text(s.DataOrigin);
  j.key("GraphTitle").text(s.GraphTitle);
  j.key("LocationX").text(s.LocationX);
  j.key("LocationY").text(s.LocationY);
  j.key("LocationZ").text(s.LocationZ);
  j.key("LocationAzimuth").text(s.LocationAzimuth);
  j.key("RecentFiles").begin_array();
  for (int n = 1; n <= 5; ++n) j.text(s.RecentFiles[static_cast<size_t>(n)]);
  j.end_array();
  j.end_object();
  cli.print(j);
  return cli.status();
}

}  // namespace tellux::cli
