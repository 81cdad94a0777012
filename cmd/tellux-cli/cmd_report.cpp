// tellux-cli report: the report of a sounding as the tab "Print Bilog" builds it, written as PDF,
// SVG, PNG and as the list of its page operations.
#include <memory>
#include <sstream>

#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "cli.h"
#include "model/equivalence_store.h"
#include "model/forward.h"
#include "model/layer_depths.h"
#include "pictures.h"
#include "platform/headless/recording_surface.h"
#include "platform/qt/atomic_output.h"
#include "platform/qt/qt_drawing_surface.h"
#include "platform/qt/qt_page_painter.h"
#include "platform/tee_surface.h"
#include "plot/report_page.h"

namespace tellux::cli {

namespace {

struct ReportOptions {
  std::string file, array = "schlumberger", paper = "a4", page_twips, margins;
  std::string pdf, svg, png, ops;
  bool landscape = false, steps = false, errors = false, direct = false, equivalence = false;
};

// "A,B" or "A,B,C,D" as numbers; a wrong list is a usage error.
std::vector<double> numbers(const std::string& text, size_t count, const char* option) {
  std::vector<double> out;
  std::istringstream in(text);
  std::string part;
  while (std::getline(in, part, ',')) {
    try {
      size_t used = 0;
      out.push_back(std::stod(part, &used));
      if (used != part.size() || out.back() < 0) throw std::invalid_argument(part);
    } catch (const std::exception&) {
      throw UsageError{std::string(option) + ": numbers of twips separated by commas expected"};
    }
  }
  if (out.size() != count)
    throw UsageError{std::string(option) + ": " + std::to_string(count) + " numbers expected"};
  return out;
}

// The direct report on a PDF standing in for the printer: each sheet is drawn on a picture of the
// sheet at 150 dpi in the report's logical coordinates, then painted on its PDF page. The drawing
// operations of every sheet are kept in `record`.
QString print_direct(Cli& cli, const std::string& title, double width, double height,
                     const std::string& path, RecordingSurface& record, int& sheets) {
  constexpr double kDpi = 150;
  QtDrawingSurface sheet(static_cast<int>(width / 1440 * kDpi),
                         static_cast<int>(height / 1440 * kDpi));
  TeeSurface printer(sheet, record);
  return write_through_buffer(QString::fromStdString(path), [&](QIODevice& out) {
    QPdfWriter pdf(&out);
    pdf.setResolution(static_cast<int>(kDpi));
    pdf.setPageSize(QPageSize(QSizeF(width / 1440, height / 1440), QPageSize::Inch));
    pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter(&pdf);
    const auto paint_sheet = [&] {
      painter.fillRect(QRectF(0, 0, sheet.width(), sheet.height()), Qt::white);
      sheet.render(painter);
    };
    printer.Cls();
    sheets = 1;
    PrintReportDirect(cli.session, printer, title, [&] {
      paint_sheet();
      pdf.newPage();
      printer.Cls();
      ++sheets;
    });
    paint_sheet();
    return painter.end();
  });
}

int report(Cli& cli, const ReportOptions& o) {
  SoundingState& s = cli.s;
  apply_array(s, o.array);
  PageDocument page;
  if (!o.page_twips.empty()) {
    const auto size = numbers(o.page_twips, 2, "--page-twips");
    page.PageWidth = size[0];
    page.PageHeight = size[1];
  } else if (o.paper == "letter") {
    page.PageWidth = 12240;
    page.PageHeight = 15840;
  }
  if (o.landscape) std::swap(page.PageWidth, page.PageHeight);
  if (page.PageWidth < 1000 || page.PageHeight < 1000)
    throw UsageError{"--page-twips: a sheet of at least 1000 x 1000 twips expected"};
  std::vector<double> m = {double(cli.settings.LeftMargin), double(cli.settings.UpperMargin),
                           double(cli.settings.RightMargin), double(cli.settings.BottomMargin)};
  if (!o.margins.empty()) m = numbers(o.margins, 4, "--margins");

  PictureToolkit toolkit;
  if (!open_file(cli, o.file)) return 1;
  take_layer_count(s);
  s.SuperposeCurve = -1;
  s.ShowModelSteps = o.steps ? 1 : 0;
  s.ShowErrorCurve = o.errors ? 1 : 0;
  // The model computed as the Bilog tab shows it.
  if (s.LayerModel(1, 1).num() > 0) {
    ComputeDepths(cli.session);  // the depths and altitudes, as the model window shows them
    s.WorkMode = mode::kNormal;
    ForwardCurve(cli.session);
    s.WorkMode = "";
    if (o.equivalence) keep_equivalence(analyse_equivalence(s, {}));
  }
  if (o.direct) {
    if (o.pdf.empty()) throw UsageError{"--direct writes the printer's sheets to --pdf OUT"};
    const std::string title = report_title(s);
    Json j;
    j["ReportTitle"] = text(title);
    j["PageWidth"] = page.PageWidth;
    j["PageHeight"] = page.PageHeight;
    RecordingSurface record;
    int sheets = 0;
    QString why = print_direct(cli, title, page.PageWidth, page.PageHeight, o.pdf, record, sheets);
    j["PageCount"] = sheets;
    if (!why.isEmpty()) Cli::complain("cannot write " + o.pdf + ": " + why.toStdString());
    if (!o.ops.empty() && !record.save(o.ops)) {
      Cli::complain("cannot write " + o.ops);
      why = "cannot write";
    }
    j["Messages"] = cli.messages();
    cli.print(j);
    return why.isEmpty() ? cli.status() : 1;
  }
  const std::string title = build_report(cli.session, page, m[0], m[1], m[2], m[3]);

  Json j;
  j["ReportTitle"] = text(title);
  j["PlotScale"] = s.PlotScale;
  j["PlotOriginX"] = s.PlotOriginX;
  j["PlotOriginY"] = s.PlotOriginY;
  j["PageCount"] = page.PageCount();
  j["PageWidth"] = page.PageWidth;
  j["PageHeight"] = page.PageHeight;
  const bool written = write_page_outputs(page, {o.pdf, o.svg, o.png, o.ops});
  j["Messages"] = cli.messages();
  cli.print(j);
  return written ? cli.status() : 1;
}

}  // namespace

Command report_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "report", "Build the report of a sounding as the tab \"Print Bilog\" shows and prints it");
  auto o = std::make_shared<ReportOptions>();
  app->add_option("FILE", o->file, "The sounding file")->required();
  add_array_option(app, o->array);
  app->add_option("--paper", o->paper, "Sheet size")
      ->check(CLI::IsMember({"a4", "letter"}))
      ->capture_default_str();
  app->add_flag("--landscape", o->landscape, "Lay the sheet on its side");
  app->add_option("--page-twips", o->page_twips,
                  "Sheet size W,H in twips (1440 to the inch), in place of --paper");
  app->add_option("--margins", o->margins,
                  "Margins L,T,R,B in twips (default: the settings' section \"Marge\")");
  app->add_flag("--steps", o->steps, "Draw the model's staircase");
  app->add_flag("--errors", o->errors, "Draw the error curve");
  app->add_flag("--equivalence", o->equivalence,
                "Run the equivalence analysis first: its table, and its band with --steps");
  app->add_option("--pdf", o->pdf, "Write every page to one PDF");
  app->add_option("--svg", o->svg, "Write page 1 as SVG (OUT-2.svg ... for further pages)");
  app->add_option("--png", o->png, "Write page 1 as PNG at 100 dpi (OUT-2.png ... further)");
  app->add_option("--ops", o->ops,
                  "Write the page operations, one a line (with --direct, the printer's)");
  app->add_flag("--direct", o->direct,
                "Print the report straight on the printer as the direct print does, with a PDF "
                "(--pdf) standing in for the printer");
  return {app, [o](Cli& cli) { return report(cli, *o); }};
}

}  // namespace tellux::cli
