#include "plot/report_page.h"

#include <algorithm>
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
#include "plot/equivalence_band.h"

namespace tellux {

using rt::skip;

namespace {

double mm(double n) { return n * kTwipsPerMm; }

// French first, then English, then Spanish, then German; nothing set reads as English.
const char* by_language(const LanguageFlags& l, const char* fr, const char* en, const char* es,
                        const char* de) {
  if (l.French) return fr;
  if (l.English) return en;
  if (l.Spanish) return es;
  if (l.German) return de;
  return en;
}

const char* resistivity_word(const LanguageFlags& l) {
  return by_language(l, "Résistivité", "Resistivity", "Resistividad", "Resistivität");
}

// The diagram's geometry on the page, as the report lays it out.
struct Frame {
  double T = 0, Rt = 0;  // top and right edges
  int dX = 0, dY = 0;    // decades on the two axes
};

void write_at(PageDocument& page, double x, double y, const std::string& text) {
  page.CurrentX = x;
  page.CurrentY = y;
  page.Text(text);
}

void titles(const SoundingState& s, PageDocument& page, const std::string& ReportTitle,
            const Frame& f) {
  page.PenStyle(0);
  page.FontBold(true);
  page.FontSize(13);
  write_at(page, s.PlotOriginX, page.MarginTop + mm(3), ReportTitle);
  page.FontBold(false);
  page.FontSize(12);
  write_at(page, s.PlotOriginX, f.T - mm(8), s.GraphTitle);
}

void shift_mark(const SoundingState& s, PageDocument& page, const Frame& f) {
  if (s.ShiftCurves != 1) return;
  page.FontItalic(true);
  page.FontSize(10);
  write_at(page, f.Rt - mm(30), f.T - mm(7), PageText(s, 5));
  page.FontItalic(false);
  page.FontSize(12);
}

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

void location_line(const SoundingState& s, PageDocument& page, double B) {
  if (s.LocationX.empty() || s.LocationY.empty()) return;
  page.FontBold(true);
  std::string line = PageText(s, 3) + "X = " + s.LocationX + "    Y = " + s.LocationY;
  if (!s.LocationAzimuth.empty())
    line += "    Z = " + s.LocationZ + "    Azim = " + s.LocationAzimuth;
  else if (!s.LocationZ.empty())
    line += "    Z = " + s.LocationZ;
  write_at(page, s.PlotOriginX, B + mm(15), line);
}

void model_table(Session& session, PageDocument& page, double B) {
  SoundingState& s = session.s;
  if (!(s.FieldTable(2, 2).num() > 0)) return;
  page.FontBold(true);
  write_at(page, s.PlotOriginX, B + mm(22.5), PageText(s, 4));
  s.LayerModel(1, 3) = 0.0;
  const bool altitudes = rt::Val(s.LocationZ) > 0;
  write_at(page, s.PlotOriginX, B + mm(27), PageText(s, altitudes ? 6 : 7));
  page.FontBold(false);
  page.CurrentX = s.PlotOriginX;
  page.CurrentY = B + mm(33);
  page.TableBorder = 0;
  page.StartTable();
  const auto thick = [&](const Cell& v) { return FormatThickness(s, v); };
  const auto altitude = [&](int r) { return FormatThickness(s, Cell(s.LayerAltitudes[r])); };
  const auto row = [&](const std::string& rho, const std::string& h, const std::string& depth,
                       int r) {
    std::string text = rho + "|" + h + "|" + depth;
    if (altitudes) text += "|" + altitude(r);
    return text + ";";
  };
  const LayerTableT& m = s.LayerModel;
  page.AddTable(altitudes ? ">+1100|>+1328|>+1291|>+1450;" : ">+1200|>+1228|>+1191;",
                altitudes ? "[ohm·m]|[m]|[m]|[m];" : "[ohm·m]|[m]|[m];",
                row(rt::CStr(m(1, 1)), thick(m(1, 2)), "", 1));
  int i = 2;
  for (; i <= 20 && m(i, 2).num() > 0; ++i)
    page.AddTable("", "", row(rt::CStr(m(i, 1)), thick(m(i, 2)), thick(m(i, 3)), i), true);
  if (i <= 20) page.AddTable("", "", row(rt::CStr(m(i, 1)), "", thick(m(i, 3)), i), true);
  page.EndTable();
}

void field_data_page(const SoundingState& s, PageDocument& page, const std::string& ReportTitle,
                     const Frame& f) {
  page.NewPage();
  titles(s, page, ReportTitle, f);
  shift_mark(s, page, f);
  write_at(page, s.PlotOriginX, f.T + mm(2), PageText(s, 8));
  const std::string R = resistivity_word(s.Language);
  const bool wenner = s.Spread == SpreadType::Wenner;
  page.CurrentX = s.PlotOriginX;
  page.CurrentY = f.T + mm(9);
  if (s.Spread == SpreadType::Schlumberger)
    page.AddTable(">+750|>+1220|>+1220|>+940|>+1200|>+1580;", "MN/2|AB/2|DeltaV|I|K|" + R + ";",
                  "");
  else if (s.Spread == SpreadType::Dipole)
    page.AddTable(">+650|>+1220|>+1320|>+940|>+1200|>+1580;", "BN|AM|DeltaV|I|K|" + R + ";", "");
  else
    page.AddTable(">+600|>+1370|>+940|>+1200|>+1580;", "a|DeltaV|I|K|" + R + ";", "");

  page.CurrentX = s.PlotOriginX;
  page.CurrentY = f.T + mm(14);
  page.TableBorder = 0;
  page.StartTable();
  page.FontBold(false);
  // PASI files hold micro units.
  const bool micro = s.DataOrigin == "PASI";
  const std::string volts = micro ? "[µV]" : "[mV]", amperes = micro ? "[µA]" : "[mA]";
  const std::string header = wenner ? "[m]|" + volts + "|" + amperes + "|[-]|[ohm·m];"
                                    : "[m]|[m]|" + volts + "|" + amperes + "|[-]|[ohm·m];";
  const auto row = [&](int n) {
    const auto cell = [&](int c) { return rt::CStr(s.FieldTable(n, c)); };
    return (wenner ? cell(1) : cell(3) + "|" + cell(1)) + "|" + cell(4) + "|" + cell(6) + "|" +
           cell(5) + "|" + cell(2) + ";";
  };
  page.AddTable(
      wenner ? ">+630|>+1220|>+1220|>+1220|>+1220;" : ">+630|>+1220|>+1220|>+1220|>+1220|>+1220;",
      header, row(1));
  for (int n = 2; n <= 51 && s.FieldTable(n, 2).num() > 0; ++n) page.AddTable("", "", row(n), true);
  page.EndTable();
}

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

void footer(DrawingSurface& printer, const SoundingState& s, double dY) {
  skip([&] { printer.Font(SurfaceFont{"Arial", 10, false, true}); });
  print_at(printer, 3, s.RhoDecadeStart - dY, "Q-Brantis / Tellux 6.4");
  skip([&] { printer.Font(SurfaceFont{"Arial", 10, false}); });
}

}  // namespace

std::string PageText(const SoundingState& s, int number) {
  const LanguageFlags& l = s.Language;
  switch (number) {
    case 1:
      return by_language(l, "Sondage électrique Schlumberger - ",
                         "Electrical sounding Schlumberger - ", "Sondeo eléctrico Schlumberger - ",
                         "Elektrische Tiefensondierung Schlumberger - ") +
             s.FileName;
    case 2:
      return by_language(l, "Sondage électrique dipôle - ", "Dipole electrical sounding - ",
                         "Sondeo eléctrico dipolar - ", "Elektrische Tiefensondierung Dipole  - ") +
             s.FileName;
    case 3:
      return by_language(l, "Situation du SE ", "Location   ", "Ubicación del SEV  ",
                         "Situation der ETS  ");
    case 4:
      return by_language(l, "Modèle ", "Model ", "Modelo ", "Modell ");
    case 5:
      return by_language(l, "Débrayages lissés ", "Shift on new MN ", "Empalmes compensados",
                         "Anpassung bei neuen MN");
    case 6:
      return by_language(l, "Résistivité     Epaisseur    Profondeur    Altitude",
                         "Resistivity     Thickness      Depth        Altitude",
                         "Resistividad    Espesor    Profundidad     Altitud",
                         "Resistivität    Mächtigkeit    Tiefe        Höhe");
    case 7:
      return by_language(
          l, "Résistivité     Epaisseur    Profondeur", "Resistivity     Thickness      Depth",
          "Resistividad     Espesor     Profundidad", "Resistivität    Mächtigkeit    Tiefe");
    case 8:
      return by_language(l, "Mesures de terrain et valeurs calculées",
                         "Field data and calculated values", "Datos de campo y valores calculados",
                         "Felddaten und ausgerechnete Werte");
    case 9:
      return by_language(l, "Sondage électrique Wenner - ", "Electrical sounding Wenner - ",
                         "Sondeo eléctrico Wenner - ", "Elektrische Tiefensondierung Wenner  - ") +
             s.FileName;
    default:
      return number >= 10 && number <= 19 ? " " : "";
  }
}

std::string report_title(const SoundingState& s) {
  return PageText(s, s.Spread == SpreadType::Schlumberger ? 1
                     : s.Spread == SpreadType::Wenner     ? 9
                                                          : 2);
}

std::string PadNumberLeft(double value, rt::Kind kind) {
  if (value == 0) return "";
  const std::string text = rt::CStr(value, kind);
  const int blanks =
      12 - 2 * static_cast<int>(text.size()) + (text.find('.') != std::string::npos ? 1 : 0);
  return std::string(static_cast<size_t>(std::max(0, blanks)), ' ') + text;
}

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

  // A lying page puts the text under the diagram on a page of its own.
  double B = s.PlotOriginY;
  if (PH < PW) {
    page.NewPage();
    B = page.MarginTop + mm(7);
    titles(s, page, ReportTitle, f);
  }
  location_line(s, page, B);
  skip([&] { model_table(session, page, B); });
  skip([&] { report_accuracy_and_equivalence(s, page); });
  if (page.CurrentY < PH - page.MarginBottom - mm(10))
    write_at(page, s.PlotOriginX, PH - page.MarginBottom - mm(10), s.CommentText);
  page.HdrFontBold = true;
  page.HdrFontSize = 10;
  page.Footer = "||Q-Brantis / Tellux 6.4";

  skip([&] { field_data_page(s, page, ReportTitle, f); });
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

void PrintReportDirect(Session& session, DrawingSurface& printer, const std::string& ReportTitle,
                       const std::function<void()>& new_sheet) {
  SoundingState& s = session.s;
  skip([&] { direct_diagram(session, printer, ReportTitle); });
  const double dY = s.RhoDecadeEnd - s.RhoDecadeStart;
  // The text part: a second scale over the same sheet, lines one after the other.
  printer.Scale(0.5f, static_cast<float>(s.RhoDecadeEnd + 0.25 * dY), 5.0f,
                static_cast<float>(s.RhoDecadeStart - 1.25 * dY));
  double y = s.RhoDecadeStart - 0.15 * dY;
  const double step = 0.045 * dY;
  // The text stands a little in from the sheet's left edge.
  constexpr double kLeft = 0.8;
  const auto line = [&](const std::string& text) {
    print_at(printer, kLeft, y, text);
    y -= step;
  };
  if (!s.LocationX.empty() && !s.LocationY.empty())
    line(PageText(s, 3) + "X = " + s.LocationX + "    Y = " + s.LocationY +
         (s.LocationZ.empty() ? "" : "    Z = " + s.LocationZ));
  if (s.FieldTable(2, 2).num() > 0) {
    const bool altitudes = rt::Val(s.LocationZ) > 0;
    line(PageText(s, 4));
    line(PageText(s, altitudes ? 6 : 7));
    line(altitudes ? " [ohm·m]              [m]                  [m]                  [m]"
                   : " [ohm·m]              [m]                  [m]");
    const LayerTableT& m = s.LayerModel;
    for (int i = 1; i <= 20 && m(i, 1).num() > 0; ++i) {
      const bool last = !(m(i, 2).num() > 0);
      std::string row = padded_row({m(i, 1)}) + padded_row({last ? Cell(0.0) : m(i, 2)});
      row += i == 1 ? "         0        " : padded_row({m(i, 3)});
      if (altitudes) row += padded_row({Cell(s.LayerAltitudes[i])});
      line(row);
      if (last) break;
    }
  }
  print_at(printer, kLeft, s.RhoDecadeStart - 0.6 * dY, s.CommentText);
  footer(printer, s, dY);

  if (!new_sheet) return;
  new_sheet();
  printer.Scale(0.5f, static_cast<float>(s.RhoDecadeEnd + 0.25 * dY), 5.0f,
                static_cast<float>(s.RhoDecadeStart - 1.25 * dY));
  y = s.RhoDecadeEnd;
  skip([&] { printer.Font(SurfaceFont{"Arial", 12, true}); });
  line(ReportTitle);
  skip([&] { printer.Font(SurfaceFont{"Arial", 10, false}); });
  line(PageText(s, 8));
  const std::string R = resistivity_word(s.Language);
  const bool wenner = s.Spread == SpreadType::Wenner;
  if (s.Spread == SpreadType::Schlumberger)
    line(
        "    MN/2             AB/2             DeltaV                 I                    K"
        "            " +
        R);
  else if (s.Spread == SpreadType::Dipole)
    line(
        "      BN                 AM             DeltaV                 I                    K"
        "            " +
        R);
  else
    line("       a              DeltaV                 I                     K           " + R);
  line(wenner ? "      [m]               [mV]               [mA]                  [-]            "
                "[ohm·m]"
              : "      [m]                 [m]                [mV]               [mA]          "
                "       [-]             [ohm·m]");
  for (int n = 1; n <= 51 && (n == 1 || s.FieldTable(n, 2).num() > 0); ++n) {
    const auto v = [&](int c) { return s.FieldTable(n, c); };
    line(wenner ? padded_row({v(1), v(4), v(6), v(5), v(2)})
                : padded_row({v(3), v(1), v(4), v(6), v(5), v(2)}));
  }
  print_at(printer, kLeft, s.RhoDecadeStart - 0.8 * dY, s.CommentText);
  footer(printer, s, dY);
}

}  // namespace tellux
