#include "plot/equivalence_band.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include "core/runtime/discipline.h"
#include "model/equivalence_store.h"
#include "model/filter_error.h"
#include "plot/bilog_scale.h"
#include "plot/report_parts.h"

namespace tellux {

namespace {

constexpr int32_t kLightGrey = 211 + 211 * 256 + 211 * 65536;
constexpr int kStrokesPerRow = 4;  // vertical strokes between two rows of the curve

// A line in logarithms on the screen (or printer) or on the page, by the work mode.
struct Pen {
  const SoundingState& s;
  const BilogSurfaces& on;
  void line(double x1, double y1, double x2, double y2) const {
    const auto clip = [&](double y) {
      return std::clamp(y, double(s.RhoDecadeStart), double(s.RhoDecadeEnd));
    };
    if (x1 < s.DecadeStart || x2 > s.DecadeEnd) return;
    y1 = clip(y1), y2 = clip(y2);
    if (s.WorkMode == mode::kPreview) {
      if (on.page) {
        on.page->PenColor(kLightGrey);
        on.page->DrawLine(page_x(s, x1), page_y(s, y1), page_x(s, x2), page_y(s, y2));
      }
      return;
    }
    DrawingSurface* d = s.WorkMode == mode::kPrinter ? on.printer : on.screen;
    if (d)
      d->Line(static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
              static_cast<float>(y2), kLightGrey);
  }
};

void staircase(const Pen& pen, const LayerPairs& model) {
  double depth = 0, top = std::log10(model.front().first);
  for (size_t i = 0; i + 1 < model.size(); ++i) {
    depth += model[i].second;
    const double x = std::log10(depth), next = std::log10(model[i + 1].first);
    pen.line(x, top, x, next);
    if (i + 2 < model.size()) {
      const double x2 = std::log10(depth + model[i + 1].second);
      pen.line(x, next, x2, next);
    }
    top = next;
  }
}

}  // namespace

void DrawEquivalenceBand(Session& session, const BilogSurfaces& surfaces) {
  SoundingState& s = session.s;
  const EquivalenceResult* r = equivalence_of_current_model(s);
  std::vector<double> low, high;
  if (r == nullptr || !equivalence_band(s, low, high)) return;
  const Pen pen{s, surfaces};
  rt::skip([&] {
    for (size_t k = 0; k + 1 < low.size(); ++k) {
      const double x0 = std::log10(s.ModelCurve(static_cast<int>(k), 2).num());
      const double x1 = std::log10(s.ModelCurve(static_cast<int>(k) + 1, 2).num());
      for (int j = 0; j < kStrokesPerRow; ++j) {
        const double t = double(j) / kStrokesPerRow;
        const double lo = std::log10(low[k]) * (1 - t) + std::log10(low[k + 1]) * t;
        const double hi = std::log10(high[k]) * (1 - t) + std::log10(high[k + 1]) * t;
        pen.line(x0 + (x1 - x0) * t, lo, x0 + (x1 - x0) * t, hi);
      }
    }
    for (const Extreme& e : r->extremes) staircase(pen, e.model);
  });
  // The computed curve and the model again, over the grey.
  s.FirstPoint = true;
  for (int i = 0; i <= std::min<int>(s.ModelCurveLast, 100); ++i)
    DrawCurveSegment(session, surfaces, static_cast<int16_t>(i + 1), s.ModelCurve(i, 1).num());
}

void report_accuracy_and_equivalence(const SoundingState& s, PageDocument& page,
                                     const std::function<double()>& next_page) {
  const double x = s.PlotOriginX;
  double y = page.CurrentY + 400;
  const bool note = !s.AccurateCurves && s.FilterErrorPercent > 1.0;
  const EquivalenceResult* r = equivalence_of_current_model(s);
  const auto rows =
      r ? equivalence_table_rows(*r, s.Language) : std::vector<std::vector<std::string>>{};
  const double bottom = page.PageHeight - page.MarginBottom;
  // A table that does not fit above the bottom margin starts on a page of its own, and goes on
  // over further pages when it is longer than one.
  const double table = r ? 300 + (rows.size() + 1) * page.line_height() : 0;
  if ((note || r) && y + (note ? 300 : 0) + table > bottom) y = next_page();
  if (note) {
    char text[200];
    std::snprintf(
        text, sizeof text, "%s%.1f %%%s",
        pick(s.Language, "Note : le filtre court s'écarte jusqu'à ",
             "Nota: el filtro corto se aparta hasta ", "Note: the short filter is off by up to "),
        s.FilterErrorPercent,
        pick(s.Language, " de la courbe exacte sur ce modèle.",
             " de la curva exacta en este modelo.", " from the exact curve on this model."));
    page.CurrentX = x;
    page.CurrentY = y;
    page.Text(text);
    y += 300;
  }
  if (r == nullptr) return;
  char title[200];
  std::snprintf(title, sizeof title, "%s%.2f %%)",
                pick(s.Language, "Équivalence (RMS au plus ", "Equivalencia (RMS a lo sumo ",
                     "Equivalence (RMS at most "),
                r->threshold);
  const auto heading = [&](double at) {
    page.FontBold(true);
    page.CurrentX = x;
    page.CurrentY = at;
    page.Text(title);
    page.FontBold(false);
    page.CurrentX = x;
    page.CurrentY = at + 300;
  };
  heading(y);
  page.TableBorder = 0;
  std::string header;
  for (const std::string& t : equivalence_table_titles(s.Language)) header += t + "|";
  header.back() = ';';
  std::vector<std::string> lines;
  for (const auto& row : rows) {
    std::string text;
    for (const std::string& cell : row) text += cell + "|";
    text.back() = ';';
    lines.push_back(text);
  }
  report::paged_rows(page, "^+1100|<+3300|>+1400|>+1400|>+1400;", header, lines, bottom,
                     [&] { heading(next_page()); });
}

}  // namespace tellux
