#include "convert/res2dinv.h"

#include <cmath>

#include "core/file_names.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"
#include "core/runtime/token_file.h"
#include "core/sounding_file.h"
#include "model/automatic_model.h"
#include "model/forward.h"
#include "model/layer_depths.h"

namespace tellux {

namespace {

constexpr int kMostPoints = 5000;

// The levels of the section: runs of points with equal spacing, and the level of the largest x.
struct Levels {
  std::vector<std::pair<size_t, size_t>> runs;  // first point and count of each level
  int M = 1;                                    // the level of the largest x, from 1
  double min_x = 9999999, max_x = -999999;
};

Levels levels_of(const Res2dinvData& d) {
  Levels l;
  size_t start = 0;
  for (size_t k = 0; k < d.points.size(); ++k) {
    const double x = d.points[k].x;
    if (x < l.min_x) l.min_x = x;
    if (x > l.max_x) {
      l.max_x = x;
      l.M = static_cast<int>(l.runs.size()) + 1;
    }
    if (k + 1 == d.points.size() || d.points[k + 1].a != d.points[k].a) {
      l.runs.emplace_back(start, k + 1 - start);
      start = k + 1;
    }
  }
  return l;
}

// The position along the line in the form with a leading blank, to 1/10000 of a metre.
std::string coordinate(double v) { return rt::Str(std::floor(v * 10000) / 10000); }

}  // namespace

std::optional<Res2dinvData> read_res2dinv(const std::string& text, std::string& refusal) {
  Res2dinvData d;
  rt::TokenReader in(text);
  const auto number = [&] { return in.number(); };
  try {
    d.title = in.text();
    d.u = static_cast<float>(number());
    const int16_t array = rt::CInt(number());
    if (array != 1 && array != 4 && array != 5) {
      refusal = "Only for Wenner spread";
      return std::nullopt;
    }
    const int16_t n = rt::CInt(number());
    if (n > kMostPoints) {
      refusal = "Max. 5000 mesures";
      return std::nullopt;
    }
    rt::CInt(number());  // the type of x-location: not used
    if (rt::CInt(number()) >= 1) {
      refusal = "Not for IP surveys";
      return std::nullopt;
    }
    for (int k = 0; k < n; ++k) {
      Res2dinvData::Point p{};
      p.x = static_cast<float>(number());
      p.a = static_cast<float>(number());
      p.rho = static_cast<float>(number());
      d.points.push_back(p);
    }
  } catch (const rt::RuntimeError&) {
    refusal = "Error during reading";
    return std::nullopt;
  }
  return d;
}

void R2diForm::set_captions(const Session& session) {
  Label1.Caption = session.text("Nombre de sondages à extraire (max. 100)",
                                "Numero de sondeos de extraer (max. 100)",
                                "Number of soundings to extract (max. 100)");
  Label2.Caption =
      session.text("Coordonnées x et y 1ère électrode", "Coordenadas x e y primero electrodo",
                   "Coordinates x and y 1st electrode");
  Label4.Caption = session.text("Azimut", "Azimuto", "Azimuth");
  Label5.Caption = "Altitude";
}

std::vector<ExtractedSounding> extract_soundings(const Res2dinvData& data, int N, double azimuth) {
  const Levels lv = levels_of(data);
  const double L = lv.max_x - lv.min_x, u = data.u;
  std::vector<ExtractedSounding> out;
  for (int i = 1; i <= N; ++i) {
    ExtractedSounding sounding;
    for (int j = 1; j <= static_cast<int>(lv.runs.size()); ++j) {
      double S = L / N, P = lv.min_x;
      if (j > lv.M) {
        S = (L - (j - lv.M) * 6 * u) / N;
        P = lv.min_x + (j - lv.M) * 3 * u;
      }
      P += (i - 1) * S;
      if (S < 2 * u) S = 2 * u;  // widened on the right only
      const double Q = P + S;
      const auto [first, count] = lv.runs[static_cast<size_t>(j - 1)];
      double sum = 0;
      int found = 0;
      for (size_t k = first; k < first + count; ++k)
        if (data.points[k].x >= P && data.points[k].x <= Q) {
          sum += data.points[k].rho;
          ++found;
        }
      if (found > 0) sounding.readings.emplace_back(data.points[first].a, sum / found);
    }
    const double f = static_cast<double>(i) / N - 1.0 / (2.0 * N);
    sounding.X = coordinate(f * L * std::sin(0.01745329 * azimuth));
    sounding.Y = coordinate(f * L * std::cos(0.01745329 * azimuth));
    out.push_back(std::move(sounding));
  }
  return out;
}

std::vector<std::string> RES2DINV(Session& session, const std::function<void(R2diForm&)>& show_form,
                                  const std::string& out_dir) {
  SoundingState& s = session.s;
  std::vector<std::string> written;
  s.WorkMode = mode::kNormal;
  const auto chosen = session.dialogs.open_file(
      {"Fichier RES2DINV (*.DAT)| *.DAT    ", "RES2DINV File selection", "*.DAT"});
  if (!chosen) return written;
  const std::string input = *chosen;
  s.FilePath = input;
  s.FileName = bare_name(input);
  if (s.FileName.empty()) {
    session.tell(session.text("Sélectionnez d'abord un fichier ", "Primero, seleccione un fichero ",
                              "First select a File "));
    return written;
  }
  // The record names a sounding from here: a Save does not go to the data file.
  std::string stem = without_extension(input);
  s.FilePath = stem + "AA.TX3";
  s.FileName = bare_name(s.FilePath);
  std::string refusal;
  std::optional<Res2dinvData> data;
  try {
    data = read_res2dinv(rt::read_whole_file(input), refusal);
  } catch (const rt::RuntimeError&) {
    refusal = "Error during reading";
  }
  if (!data) {
    session.tell(refusal);
    return written;
  }

  // The array of the form is remembered and comes back at the end, also after an error.
  const SpreadType spread = s.Spread;
  const std::string tag = s.SpreadTag;
  s.Spread = SpreadType::Wenner;
  s.SpreadTag = "2";
  for (std::string* text : {&s.LocationX, &s.LocationY, &s.LocationZ, &s.LocationAzimuth,
                            &s.CommentText, &s.DataOrigin})
    text->clear();
  s.GraphTitle = data->title;

  R2diForm form;
  form.set_captions(session);
  show_form(form);
  int N = 0;
  rt::skip([&] { N = rt::CInt(rt::Val(form.Text1)); });
  if (!form.done || N > 100 || N < 1) {
    session.tell("Conversion aborted", Icon::Information);
    s.Spread = spread;
    s.SpreadTag = tag;
    return written;
  }
  s.LocationAzimuth = form.Text4;
  try {
    const Levels lv = levels_of(*data);
    const double L = lv.max_x - lv.min_x;
    s.MaxAbHalf = rt::CInt(rt::Log(L) * 0.4343);  // decades, not metres; L = 0 ends the command
    if (!out_dir.empty()) stem = out_dir + "/" + bare_name(stem);
    const auto soundings = extract_soundings(*data, N, rt::Val(form.Text4));
    const TellEachOnce once(session.dialogs);
    for (int i = 1; i <= N; ++i) {
      const ExtractedSounding& one = soundings[static_cast<size_t>(i - 1)];
      s.FieldTable.erase();
      s.FieldCount = 0;
      for (const auto& [a, rho] : one.readings) {
        ++s.FieldCount;
        s.FieldTable(s.FieldCount, 1) = a;
        s.FieldTable(s.FieldCount, 2) = rho;
      }
      s.LocationX = one.X;
      s.LocationY = one.Y;
      s.LocationZ = form.Text5;
      AutomaticModel(session);
      s.WorkMode = mode::kFile;
      ForwardCurve(session);
      rt::skip([&] { ComputeDepths(session); });
      session.forms.refresh_model_grid();
      // The names keep the blank of the number's text: "_ 1.TX3".
      std::string path = stem + "_" + rt::Str(i) + ".TX3";
      s.FilePath = path;  // a later Save goes to the last sounding, never to the data file
      s.FileName = bare_name(path);
      if (write_sounding_file(session, path)) written.push_back(path);
      s.WorkMode.clear();
    }
  } catch (const rt::RuntimeError&) {
    session.tell("Error during reading");
  }
  if (!written.empty())
    session.tell(rt::Str(static_cast<double>(written.size())) + " soundings have been saved as " +
                     bare_name(written.front()) + " to " + bare_name(written.back()) + " in " +
                     folder_of(written.front()),
                 Icon::Information);
  s.WorkMode.clear();
  s.Spread = spread;
  s.SpreadTag = tag;
  return written;
}

}  // namespace tellux
