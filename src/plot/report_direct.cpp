// The direct print: the report straight on the printer, in the decades of the axes for the
// diagram and in plain lines of text for the tables, sheet after sheet as the rows need.
#include <cmath>

#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "model/forward.h"
#include "model/layer_depths.h"
#include "model/overlay_store.h"
#include "plot/bilog_frame.h"
#include "plot/bilog_scale.h"
#include "plot/bilog_view.h"
#include "plot/report_page.h"
#include "plot/report_parts.h"

namespace tellux {

using rt::skip;

namespace {

void print_at(DrawingSurface& printer, double x, double y, const std::string& text) {
  printer.CurrentX(static_cast<float>(x));
  printer.CurrentY(static_cast<float>(y));
  printer.Print(text);
}

// The diagram of the direct report in the axes' own decades.
void direct_diagram(Session& session, DrawingSurface& printer, const std::string& ReportTitle) {
  SoundingState& s = session.s;
  const double dX = s.DecadeEnd - s.DecadeStart, dY = s.RhoDecadeEnd - s.RhoDecadeStart;
  printer.Scale(static_cast<float>(s.DecadeStart - 0.125 * dX),
                static_cast<float>(s.RhoDecadeEnd + 0.25 * dY),
                static_cast<float>(s.DecadeEnd + 0.25 * dX),
                static_cast<float>(s.RhoDecadeStart - 1.25 * dY));
  printer.DrawWidth(2);
  printer.Line(s.DecadeStart, s.RhoDecadeStart, s.DecadeEnd, s.RhoDecadeEnd, 0, LineForm::Box);
  skip([&] { printer.Font(SurfaceFont{"Arial", 12, true}); });
  print_at(printer, s.DecadeStart, s.RhoDecadeEnd + 0.125 * dY, ReportTitle);
  skip([&] { printer.Font(SurfaceFont{"Arial", 10, false}); });
  // The subtitle's place is reached with a white point.
  printer.PSet(s.DecadeStart, static_cast<float>(s.RhoDecadeEnd + 0.06 * dY), 0xFFFFFF);
  printer.Print(s.GraphTitle);

  printer.DrawWidth(1);
  for (int i = s.DecadeStart; i < s.DecadeEnd; ++i)
    for (int k = 2; k <= 10; ++k) {
      const double p = draw_log(k * std::pow(10.0, i));
      printer.Line(p, s.RhoDecadeStart, p, s.RhoDecadeEnd, 0);
    }
  for (int j = s.RhoDecadeStart; j < s.RhoDecadeEnd; ++j)
    for (int k = 2; k <= 10; ++k) {
      const double p = draw_log(k * std::pow(10.0, j));
      printer.Line(s.DecadeStart, p, s.DecadeEnd, p, 0);
    }
  for (int i = s.DecadeStart; i <= s.DecadeEnd; ++i)
    print_at(printer, i - 0.1, s.RhoDecadeStart - 0.05, rt::CStr(std::pow(10.0, i)));
  for (int j = s.RhoDecadeStart + 1; j <= s.RhoDecadeEnd; ++j)
    print_at(printer, s.DecadeEnd + 0.01, j, rt::CStr(std::pow(10.0, j)));
  print_at(printer, s.DecadeEnd + 0.035, s.RhoDecadeEnd - 0.25, "[ohm·m]");
  print_at(printer, s.DecadeEnd - 0.75, s.RhoDecadeStart - 0.05,
           s.Spread == SpreadType::Schlumberger ? "AB/2 [m]"
           : s.Spread == SpreadType::Dipole     ? "AM [m]"
                                                : "a [m]");

  // The curves in "IMPRIME": stored models thin, the current one thicker; then the points.
  BilogDrawing drawing(session, BilogSurfaces{nullptr, nullptr, &printer});
  CurveObserver* before = session.curve;
  drawing.attach();
  s.WorkMode = mode::kPrinter;
  const auto draw_model = [&] {
    skip([&] { ForwardCurve(session); });
    if (s.ShowModelSteps == 1) DrawModelSteps(session, drawing.surfaces);
    if (s.ShowErrorCurve == 1) DrawErrorCurve(session, drawing.surfaces);
  };
  skip([&] { KeepModelInWork(s); });
  if (s.SuperposeCurve == 1) {
    s.ColourGrid = false;
    printer.DrawWidth(2);
    for (int slot = 1; slot <= s.HistoryLast + s.HistoryBase; ++slot) {
      skip([&] { LoadModelFromSlot(s, slot); });
      draw_model();
    }
  }
  s.ColourGrid = true;
  if (s.ModelCurve(1, 1).num() > 0) {
    printer.DrawWidth(4);
    skip([&] { LoadModelFromSlot(s, s.HistoryShown + 1); });
    draw_model();
  }
  session.curve = before;
  s.WorkMode.clear();
  printer.DrawWidth(3);
  const int32_t mark = s.ColourGrid ? 0xFF : s.SuperposedColour;
  // The size the screen's frame gives the marks, when no frame was drawn yet.
  const double m = s.MarkHalfSize > 0
                       ? s.MarkHalfSize
                       : (s.DecadeEnd + s.RhoDecadeEnd - s.RhoDecadeStart - s.DecadeStart) * 0.0018;
  for (int n = 1; n <= field_rows(s); ++n)
    skip([&] {
      if (!inside_limits(s, n)) return;
      const double x = draw_log(s.FieldTable(n, 1).num()), y = draw_log(s.FieldTable(n, 2).num());
      printer.Line(x - m, y - m, x + m, y + m, mark, LineForm::Box);
    });
}

// A line of numbers set in columns; a value between 0 and 1 gets its "0" in front.
std::string padded_row(std::initializer_list<Cell> values) {
  std::string line;
  for (const Cell& cell : values) {
    const double v = cell.num();
    // An empty cell keeps its place in the line.
    std::string text = v == 0 ? std::string(12, ' ') : PadNumberLeft(v, cell.kind());
    const size_t point = text.find('.');
    if (v > 0 && v < 1 && point != std::string::npos && (point == 0 || text[point - 1] == ' '))
      text.insert(point, "0");
    line += text + "        ";
  }
  return line;
}

// The lines of text under the diagram and on the field sheets: a second scale over the sheet, one
// line after the other; a table that reaches the footer goes on over a new sheet.
class DirectText {
 public:
  DirectText(const SoundingState& s, DrawingSurface& printer, std::function<void()> new_sheet)
      : dY(s.RhoDecadeEnd - s.RhoDecadeStart),
        step(0.045 * dY),
        s_(s),
        printer_(printer),
        new_sheet_(std::move(new_sheet)) {
    text_scale();
  }
  double y = 0;
  const double dY, step;

  void text_scale() {
    printer_.Scale(0.5f, static_cast<float>(s_.RhoDecadeEnd + 0.25 * dY), 5.0f,
                   static_cast<float>(s_.RhoDecadeStart - 1.25 * dY));
  }
  void line(const std::string& text) {
    print_at(printer_, kLeft, y, text);
    y -= step;
  }
  void bold_line(const std::string& text) {
    skip([&] { printer_.Font(SurfaceFont{"Arial", 12, true}); });
    line(text);
    skip([&] { printer_.Font(SurfaceFont{"Arial", 10, false}); });
  }
  // Whether a line at `at` stays clear of the footer.
  bool fits(double at) const { return at - 1.5 * step >= footer_line(); }
  // The rows one a line; on a new sheet `heading` writes the title lines and the table's heading.
  void rows(const std::vector<std::string>& lines, const std::function<void()>& heading) {
    bool fresh = true;
    for (const std::string& text : lines) {
      if (!fresh && !fits(y) && new_sheet_) {
        next_sheet();
        heading();
        fresh = true;
      }
      line(text);
      fresh = false;
    }
  }
  // A new sheet, the footer left on the one before; the text starts at its top.
  void next_sheet() {
    footer();
    new_sheet_();
    text_scale();
    y = s_.RhoDecadeEnd;
  }
  // The comment at its line when the text left room for it, else under the text.
  void comment(double at) {
    if (y >= at)
      print_at(printer_, kLeft, at, s_.CommentText);
    else if (fits(y))
      print_at(printer_, kLeft, y, s_.CommentText);
  }
  void footer() {
    skip([&] { printer_.Font(SurfaceFont{"Arial", 10, false, true}); });
    print_at(printer_, 3, footer_line(), "Q-Brantis / Tellux 6.4");
    skip([&] { printer_.Font(SurfaceFont{"Arial", 10, false}); });
  }
  bool can_go_on() const { return static_cast<bool>(new_sheet_); }

 private:
  double footer_line() const { return s_.RhoDecadeStart - dY; }
  // The text stands a little in from the sheet's left edge.
  static constexpr double kLeft = 0.8;
  const SoundingState& s_;
  DrawingSurface& printer_;
  std::function<void()> new_sheet_;
};

std::vector<std::string> model_rows(const SoundingState& s, bool altitudes) {
  std::vector<std::string> out;
  const LayerTableT& m = s.LayerModel;
  for (int i = 1; i <= 20 && m(i, 1).num() > 0; ++i) {
    const bool last = !(m(i, 2).num() > 0);
    std::string row = padded_row({m(i, 1)}) + padded_row({last ? Cell(0.0) : m(i, 2)});
    row += i == 1 ? "         0        " : padded_row({m(i, 3)});
    if (altitudes) {
      double altitude = 0;
      skip([&] { altitude = LayerAltitude(s, i); });
      row += padded_row({Cell(altitude)});
    }
    out.push_back(row);
    if (last) break;
  }
  return out;
}

void field_sheets(const SoundingState& s, DirectText& text, const std::string& ReportTitle) {
  const std::string R = report::resistivity_word(s.Language);
  const bool wenner = s.Spread == SpreadType::Wenner;
  const auto heading = [&] {
    text.bold_line(ReportTitle);
    text.line(PageText(s, 8));
    if (s.Spread == SpreadType::Schlumberger)
      text.line(
          "    MN/2             AB/2             DeltaV                 I                    K"
          "            " +
          R);
    else if (s.Spread == SpreadType::Dipole)
      text.line(
          "      BN                 AM             DeltaV                 I                    K"
          "            " +
          R);
    else
      text.line("       a              DeltaV                 I                     K           " +
                R);
    text.line(wenner ? "      [m]               [mV]               [mA]                  [-]      "
                       "      [ohm·m]"
                     : "      [m]                 [m]                [mV]               [mA]    "
                       "             [-]             [ohm·m]");
  };
  text.next_sheet();
  heading();
  std::vector<std::string> rows;
  for (int n = 1; n <= 51 && (n == 1 || s.FieldTable(n, 2).num() > 0); ++n) {
    const auto v = [&](int c) { return s.FieldTable(n, c); };
    rows.push_back(wenner ? padded_row({v(1), v(4), v(6), v(5), v(2)})
                          : padded_row({v(3), v(1), v(4), v(6), v(5), v(2)}));
  }
  text.rows(rows, heading);
  text.comment(s.RhoDecadeStart - 0.8 * text.dY);
  text.footer();
}

}  // namespace

void PrintReportDirect(Session& session, DrawingSurface& printer, const std::string& ReportTitle,
                       const std::function<void()>& new_sheet) {
  SoundingState& s = session.s;
  skip([&] { direct_diagram(session, printer, ReportTitle); });
  DirectText text(s, printer, new_sheet);
  text.y = s.RhoDecadeStart - 0.15 * text.dY;
  const std::string location = report::location_text(s);
  if (!location.empty()) text.line(location);
  if (s.FieldTable(2, 2).num() > 0) {
    const bool altitudes = rt::Val(s.LocationZ) > 0;
    const auto heading = [&] {
      text.line(PageText(s, 4));
      text.line(PageText(s, altitudes ? 6 : 7));
      text.line(altitudes ? " [ohm·m]              [m]                  [m]                  [m]"
                          : " [ohm·m]              [m]                  [m]");
    };
    heading();
    text.rows(model_rows(s, altitudes), [&] {
      text.bold_line(ReportTitle);
      text.line(s.GraphTitle);
      heading();
    });
  }
  text.comment(s.RhoDecadeStart - 0.6 * text.dY);
  // The field data's first sheet leaves the footer on this one.
  if (text.can_go_on())
    field_sheets(s, text, ReportTitle);
  else
    text.footer();
}

}  // namespace tellux
