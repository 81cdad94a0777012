#include "cli.h"

namespace tellux::cli {

int cmd_open(Cli& cli, const Args& args) {
  if (args.positional.size() != 1) throw UsageError{"usage: tellux-cli open FILE"};
  open_file(cli, args.positional[0]);
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
  j.end_object();
  cli.print(j);
  return cli.status();
}

}  // namespace tellux::cli
