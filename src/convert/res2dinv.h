#pragma once
// "RES2DINV": a Wenner pseudo-section in the data format of that inversion program becomes up to
// 100 vertical soundings spaced evenly along the line, each with its automatic model and curve,
// each written as a TX3 file.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/session.h"
#include "platform/controls.h"

namespace tellux {

// The data read: the title, the unit spacing, the points (x, spacing a, apparent resistivity).
struct Res2dinvData {
  std::string title;
  float u = 0;
  struct Point {
    double x, a, rho;
  };
  std::vector<Point> points;
};

// Reads the file's six header items and its points. The refusals ("Only for Wenner spread",
// "Max. 5000 mesures", "Not for IP surveys") come as the message; a read that fails as
// "Error during reading".
std::optional<Res2dinvData> read_res2dinv(const std::string& text, std::string& refusal);

// The small form `R2DI_par`: how many soundings, the first electrode, the azimuth, the altitude.
struct R2diForm {
  Label Label1, Label2, Label4, Label5;
  std::string Text1, Text2, Text3, Text4, Text5;
  bool done = false;  // `Command1` was pressed
  void set_captions(const Session& session);
};

// One sounding of the line: its readings (AB/2 = a, apparent resistivity) and its position.
struct ExtractedSounding {
  std::vector<std::pair<double, double>> readings;
  std::string X, Y;
};

// The N soundings of the data, by the windows along the line: each level averages the points of
// its window; deeper levels are shorter at both ends below the level of the largest x.
std::vector<ExtractedSounding> extract_soundings(const Res2dinvData& data, int N, double azimuth);

// The menu command: the dialog, the form (shown by `show_form`), then a modelled TX3 file per
// sounding; the array is restored at the end, also after an error. Returns the files written.
// `out_dir`, when given, takes the files in place of the input's folder.
std::vector<std::string> RES2DINV(Session& session, const std::function<void(R2diForm&)>& show_form,
                                  const std::string& out_dir = {});

}  // namespace tellux
