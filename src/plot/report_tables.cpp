// The text of the report: the title lines, the location, the model table, the comment and the
// field data, the tables going on over as many pages as their rows need.
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "model/layer_depths.h"
#include "plot/equivalence_band.h"
#include "plot/report_page.h"
#include "plot/report_parts.h"

namespace tellux::report {

using rt::skip;

namespace {

// The model: its heading from the base line B, then one row per layer. The table goes on under
// the title lines of a new page, with its heading again, when the rows reach the bottom margin.
void model_table(Session& session, PageDocument& page, const std::string& ReportTitle,
                 const Frame& f, double B) {
  SoundingState& s = session.s;
  const bool altitudes = rt::Val(s.LocationZ) > 0;
  const auto heading = [&](double base) {
    page.FontBold(true);
    write_at(page, s.PlotOriginX, base + mm(22.5), PageText(s, 4));
    write_at(page, s.PlotOriginX, base + mm(27), PageText(s, altitudes ? 6 : 7));
    page.FontBold(false);
    page.CurrentX = s.PlotOriginX;
    page.CurrentY = base + mm(33);
  };
  heading(B);
  s.LayerModel(1, 3) = 0.0;
  const auto thick = [&](const Cell& v) { return FormatThickness(s, v); };
  const auto row = [&](const std::string& rho, const std::string& h, const std::string& depth,
                       int r) {
    std::string text = rho + "|" + h + "|" + depth;
    if (altitudes) text += "|" + altitude_text(s, r);
    return text + ";";
  };
  const LayerTableT& m = s.LayerModel;
  std::vector<std::string> rows{row(rt::CStr(m(1, 1)), thick(m(1, 2)), "", 1)};
  int i = 2;
  for (; i <= 20 && m(i, 2).num() > 0; ++i)
    rows.push_back(row(rt::CStr(m(i, 1)), thick(m(i, 2)), thick(m(i, 3)), i));
  if (i <= 20) rows.push_back(row(rt::CStr(m(i, 1)), "", thick(m(i, 3)), i));
  page.TableBorder = 0;
  paged_rows(page, altitudes ? ">+1100|>+1328|>+1291|>+1450;" : ">+1200|>+1228|>+1191;",
             altitudes ? "[ohm·m]|[m]|[m]|[m];" : "[ohm·m]|[m]|[m];", rows,
             page.PageHeight - page.MarginBottom, [&] {
               page.NewPage();
               titles(s, page, ReportTitle, f);
               heading(page.MarginTop + mm(7));
             });
}

}  // namespace

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

void paged_rows(PageDocument& page, const std::string& format, const std::string& header,
                const std::vector<std::string>& rows, double bottom,
                const std::function<void()>& next_page) {
  const PageFont font = page.font();
  const double h = page.line_height();
  page.StartTable();
  double end = page.CurrentY + h;  // under the header of units
  bool fresh = true;               // no row on this page yet
  for (const std::string& row : rows) {
    if (!fresh && end + h > bottom) {
      page.EndTable();
      next_page();
      page.FontName(font.name);
      page.FontSize(font.size);
      page.FontBold(font.bold);
      page.FontItalic(font.italic);
      page.StartTable();
      end = page.CurrentY + h;
      fresh = true;
    }
    page.AddTable(format, header, row, !fresh);
    fresh = false;
    end += h;
  }
  page.EndTable();
}

void text_under_diagram(Session& session, PageDocument& page, const std::string& ReportTitle,
                        const Frame& f, double B) {
  SoundingState& s = session.s;
  const std::string location = location_text(s);
  if (!location.empty()) {
    page.FontBold(true);
    write_at(page, s.PlotOriginX, B + mm(15), location);
  }
  if (s.FieldTable(2, 2).num() > 0) skip([&] { model_table(session, page, ReportTitle, f, B); });
  skip([&] {
    report_accuracy_and_equivalence(s, page, [&] {
      page.NewPage();
      titles(s, page, ReportTitle, f);
      return page.MarginTop + mm(22.5);
    });
  });
  // The comment stands above the footer when the table left room for it.
  const double comment = page.PageHeight - page.MarginBottom - mm(10);
  if (page.CurrentY < comment) write_at(page, s.PlotOriginX, comment, s.CommentText);
}

void field_data_pages(const SoundingState& s, PageDocument& page, const std::string& ReportTitle,
                      const Frame& f) {
  const std::string R = resistivity_word(s.Language);
  const bool wenner = s.Spread == SpreadType::Wenner;
  // The names of the columns keep the border the first page gave them.
  const int names_border = page.TableBorder;
  const auto heading = [&] {
    page.NewPage();
    titles(s, page, ReportTitle, f);
    shift_mark(s, page, f);
    write_at(page, s.PlotOriginX, f.T + mm(2), PageText(s, 8));
    page.CurrentX = s.PlotOriginX;
    page.CurrentY = f.T + mm(9);
    page.TableBorder = names_border;
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
    page.FontBold(false);
  };
  heading();
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
  std::vector<std::string> rows{row(1)};
  for (int n = 2; n <= 51 && s.FieldTable(n, 2).num() > 0; ++n) rows.push_back(row(n));
  paged_rows(
      page,
      wenner ? ">+630|>+1220|>+1220|>+1220|>+1220;" : ">+630|>+1220|>+1220|>+1220|>+1220|>+1220;",
      header, rows, page.PageHeight - page.MarginBottom, heading);
}

}  // namespace tellux::report
