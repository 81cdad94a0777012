// The report's first page: the diagram at true scale with its grid, labels, points and curves;
// then the text under it and the field data.
#include "plot/report_page.h"

#include <algorithm>
#include <cmath>

#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "model/forward.h"
#include "model/overlay_store.h"
#include "plot/bilog_frame.h"
#include "plot/bilog_scale.h"
#include "plot/bilog_view.h"
#include "plot/report_parts.h"

namespace tellux {

using namespace report;
using rt::skip;

namespace {

void grid_and_axes(const SoundingState& s, PageDocument& page, const Frame& f) {
  const double decade = s.PlotScale * kTwipsPerMm;
  page.PenWidth(1);
  page.PenColor(s.GridColour);
  for (int i = 1; i <= f.dX; ++i)
    for (int k = 2; k <= 9; ++k) {
      const double x = s.PlotOriginX + (draw_log(k * std::pow(10.0, i)) - 1) * decade;
      page.DrawLine(x, f.T, x, s.PlotOriginY);
    }
  for (int j = 1; j <= f.dY; ++j)
    for (int k = 2; k <= 9; ++k) {
      const double y = s.PlotOriginY - (draw_log(k * std::pow(10.0, j)) - 1) * decade;
      page.DrawLine(s.PlotOriginX, y, f.Rt, y);
    }

  page.PenColor(0);
  page.PenWidth(10);
  for (int i = 0; i <= f.dX; ++i) {
    const double x = s.PlotOriginX + i * decade;
    page.DrawLine(x, f.T, x, s.PlotOriginY);
    write_at(page, x - 100, s.PlotOriginY + mm(2), rt::CStr(std::pow(10.0, s.DecadeStart + i)));
  }
  // The axis name goes a line under the decade labels, where it cannot run over the last one.
  page.CurrentX = f.Rt - s.PlotScale * 0.6 * kTwipsPerMm;
  page.CurrentY += mm(5);
  page.FontSize(11);
  page.Text(s.Spread == SpreadType::Schlumberger ? "   AB/2 [m]"
            : s.Spread == SpreadType::Dipole     ? "   AM [m]"
                                                 : "   a [m]");
  page.FontSize(12);
  for (int j = 0; j <= f.dY; ++j) {
    page.DrawLine(s.PlotOriginX, f.T + j * decade, f.Rt, f.T + j * decade);
    write_at(page, f.Rt + mm(1), s.PlotOriginY - j * decade - mm(3.5),
             rt::CStr(std::pow(10.0, s.RhoDecadeStart + j)));
  }
  page.FontSize(11);
  write_at(page, f.Rt + mm(1), f.T + s.PlotScale * 0.2 * kTwipsPerMm, "[ohm·m]");
  page.FontSize(12);
}

void field_points(const SoundingState& s, PageDocument& page) {
  page.PenColor(s.PointsColour);
  page.PenWidth(12);
  for (int n = 1; n <= field_rows(s); ++n) {
    skip([&] {
      if (!inside_limits(s, n)) return;
      const double x = page_x(s, draw_log(s.FieldTable(n, 1).num()));
      const double y = page_y(s, draw_log(s.FieldTable(n, 2).num()));
      page.DrawRectangle(x - 35, y - 35, x + 35, y + 35);
    });
  }
}

// Stored models first in the superposed colour (error curve, steps, then the curve), then the
// current model (curve, steps, error curve).
void curves(Session& session, PageDocument& page) {
  SoundingState& s = session.s;
  BilogDrawing drawing(session, BilogSurfaces{nullptr, &page, nullptr});
  CurveObserver* before = session.curve;
  drawing.attach();
  s.WorkMode = mode::kPreview;
  page.PenWidth(18);
  skip([&] { KeepModelInWork(s); });
  if (s.SuperposeCurve == 1) {
    s.ColourGrid = false;
    for (int slot = 1; slot <= s.HistoryLast + s.HistoryBase; ++slot) {
      skip([&] { LoadModelFromSlot(s, slot); });
      if (s.ShowErrorCurve == 1) DrawErrorCurve(session, drawing.surfaces);
      if (s.ShowModelSteps == 1) DrawModelSteps(session, drawing.surfaces);
      skip([&] { ForwardCurve(session); });
    }
  }
  s.ColourGrid = true;
  if (s.ModelCurve(1, 1).num() > 0) {
    skip([&] { LoadModelFromSlot(s, s.HistoryShown + 1); });
    skip([&] { ForwardCurve(session); });
    if (s.ShowModelSteps == 1) DrawModelSteps(session, drawing.surfaces);
    if (s.ShowErrorCurve == 1) DrawErrorCurve(session, drawing.surfaces);
  }
  session.curve = before;
}

}  // namespace

void DrawBilogPage(Session& session, PageDocument& page, const std::string& ReportTitle) {
  SoundingState& s = session.s;
  page.BrushStyle(1);
  Frame f;
  f.dX = s.DecadeEnd - s.DecadeStart;
  f.dY = s.RhoDecadeEnd - s.RhoDecadeStart;
  f.T = page.MarginTop + mm(20);
  const double PW = page.PageWidth, PH = page.PageHeight;
  const int span = std::max(f.dX, f.dY);
  skip([&] {
    s.PlotScale =
        PH > PW ? rt::Div(PW - page.MarginLeft - page.MarginRight - mm(20), span * kTwipsPerMm)
                : rt::Div(PH - page.MarginTop - page.MarginBottom - mm(30), span * kTwipsPerMm);
  });
  s.PlotOriginX = page.MarginLeft;
  s.PlotOriginY = f.T + f.dY * kTwipsPerMm * s.PlotScale;
  f.Rt = page.MarginLeft + f.dX * kTwipsPerMm * s.PlotScale;

  skip([&] { grid_and_axes(s, page, f); });
  titles(s, page, ReportTitle, f);
  shift_mark(s, page, f);
  field_points(s, page);
  curves(session, page);
  page.PenColor(0);
  page.PenWidth(18);
  page.DrawRectangle(s.PlotOriginX, f.T, f.Rt, s.PlotOriginY);
  page.PenWidth(10);
  s.WorkMode.clear();
  s.SpreadTag = s.Spread == SpreadType::Schlumberger ? "0"
                : s.Spread == SpreadType::Dipole     ? "1"
                                                     : "2";

  // A lying page puts the text under the diagram on a page of its own, and so does an upright
  // one whose diagram leaves no room for the model table's first row.
  double B = s.PlotOriginY;
  page.FontSize(12);
  const double needed = s.FieldTable(2, 2).num() > 0 ? mm(33) + 2 * page.line_height() : mm(15);
  if (PH < PW || B + needed > PH - page.MarginBottom) {
    page.NewPage();
    B = page.MarginTop + mm(7);
    titles(s, page, ReportTitle, f);
  }
  text_under_diagram(session, page, ReportTitle, f, B);
  page.HdrFontBold = true;
  page.HdrFontSize = 10;
  page.Footer = "||Q-Brantis / Tellux 6.4";

  skip([&] { field_data_pages(s, page, ReportTitle, f); });
}

std::string build_report(Session& session, PageDocument& page, double left, double top,
                         double right, double bottom) {
  const std::string title = report_title(session.s);
  page.MarginLeft = left;
  page.MarginTop = top;
  page.MarginRight = right;
  page.MarginBottom = bottom;
  page.StartDoc();
  DrawBilogPage(session, page, title);
  page.EndDoc();
  return title;
}

}  // namespace tellux
