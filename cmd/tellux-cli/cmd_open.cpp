#include "cli.h"

namespace tellux::cli {

void print_record(Cli& cli) {
  const SoundingState& s = cli.s;
  Json j;
  j["FileName"] = text(s.FileName);
  j["FilePath"] = text(s.FilePath);
  j["FileDir"] = text(s.FileDir);
  j["FormatLevel"] = s.FormatLevel;
  j["ResistScale"] = s.ResistScale;
  j["FieldCount"] = s.FieldCount;
  j["MaxAbHalf"] = s.MaxAbHalf;
  j["HalfArray"] = s.HalfArray;
  j["ShiftCurves"] = s.ShiftCurves;
  j["FieldTable"] = field_table_json(s, 7);
  Json layers = Json::array();
  for (int r = 1; r <= 20; ++r)
    layers.push_back(
        {s.LayerModel(r, 1).num(), s.LayerModel(r, 2).num(), s.LayerModel(r, 3).num()});
  j["LayerModel"] = layers;
  j["CommentText"] = text(s.CommentText);
  j["DataOrigin"] = text(s.DataOrigin);
  j["GraphTitle"] = text(s.GraphTitle);
  j["LocationX"] = text(s.LocationX);
  j["LocationY"] = text(s.LocationY);
  j["LocationZ"] = text(s.LocationZ);
  j["LocationAzimuth"] = text(s.LocationAzimuth);
  Json recent = Json::array();
  for (int n = 1; n <= 5; ++n) recent.push_back(text(s.RecentFiles[size_t(n)]));
  j["RecentFiles"] = recent;
  j["Messages"] = cli.messages();
  cli.print(j);
}

Command open_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "open", "Read a sounding file (TX3, TXW, TXE, SEV, BAK) and print its record");
  auto file = std::make_shared<std::string>();
  app->add_option("FILE", *file, "The sounding file")->required();
  return {app, [file](Cli& cli) {
            if (!open_file(cli, *file)) return 1;
            print_record(cli);
            return cli.status();
          }};
}

}  // namespace tellux::cli
