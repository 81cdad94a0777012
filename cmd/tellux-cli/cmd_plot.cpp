// tellux-cli plot: the bilog diagram of a sounding as the Bilog tab shows it after a compute of
// its model, written as a picture (PNG, SVG) and as the list of drawing operations.
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>

#include "cli.h"
#include "model/forward.h"
#include "pictures.h"
#include "platform/headless/recording_surface.h"
#include "platform/qt/atomic_output.h"
#include "platform/qt/qt_drawing_surface.h"
#include "platform/tee_surface.h"
#include "plot/bilog_frame.h"
#include "plot/bilog_view.h"

namespace tellux::cli {

namespace {

struct Size {
  int width = 1000;
  int height = 620;
};

// The diagram on an A4 landscape page, as vectors: the picture's operations are painted again
// on the PDF, scaled to the page inside margins of 15 mm. The writer works at the picture's own
// resolution so that the text keeps its size against the lines.
bool paint_pdf(const QtDrawingSurface& picture, QIODevice& out, const QString& title) {
  QPdfWriter pdf(&out);
  pdf.setTitle(title);
  pdf.setCreator(QStringLiteral("Tellux 6.4"));
  pdf.setResolution(96);
  pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape,
                                QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter));
  QPainter p;
  if (!p.begin(&pdf)) return false;
  const QRect page = pdf.pageLayout().paintRectPixels(pdf.resolution());
  const double scale = std::min(page.width() / static_cast<double>(picture.width()),
                                page.height() / static_cast<double>(picture.height()));
  p.translate((page.width() - picture.width() * scale) / 2, 0);
  p.scale(scale, scale);
  p.setRenderHint(QPainter::Antialiasing, true);
  picture.render(p);
  return p.end();
}

QString write_pdf(const QtDrawingSurface& picture, const QString& path, const QString& title) {
  return write_through_buffer(path, [&](QIODevice& out) { return paint_pdf(picture, out, title); });
}

struct PlotOptions {
  std::string file, array = "schlumberger", png, svg, pdf, ops, size = "1000x620";
  bool steps = false, errors = false;
};

Size parse_size(const std::string& text) {
  const size_t x = text.find('x');
  Size size;
  try {
    if (x == std::string::npos) throw std::invalid_argument(text);
    size.width = std::stoi(text.substr(0, x));
    size.height = std::stoi(text.substr(x + 1));
  } catch (const std::exception&) {
    throw UsageError{"--size takes WxH, not \"" + text + "\""};
  }
  if (size.width < 16 || size.height < 16 || size.width > 20000 || size.height > 20000)
    throw UsageError{"--size takes a width and a height from 16 to 20000 pixels"};
  return size;
}

int draw(Cli& cli, const PlotOptions& o) {
  const Size size = parse_size(o.size);
  SoundingState& s = cli.s;
  apply_array(s, o.array);
  PictureToolkit toolkit;
  if (!open_file(cli, o.file)) return 1;
  take_layer_count(s);
  s.SuperposeCurve = -1;
  s.ShowModelSteps = o.steps ? 1 : 0;
  s.ShowErrorCurve = o.errors ? 1 : 0;

  QtDrawingSurface picture(size.width, size.height);
  RecordingSurface record(size.height);
  TeeSurface Bilog(picture, record);
  prepare_bilog_surface(Bilog);
  BilogDrawing drawing(cli.session, BilogSurfaces{&Bilog, nullptr, nullptr});
  drawing.attach();

  s.WorkMode = mode::kNormal;
  try {
    DrawBilogFrame(s, Bilog);
  } catch (const rt::RuntimeError&) {
    cli.session.tell("A field value of 0 lies inside the limits: the diagram is incomplete.");
  }
  const bool has_model = s.LayerModel(1, 1).num() > 0;
  if (has_model) ForwardCurve(cli.session);
  s.WorkMode = "";

  Json j;
  j["Width"] = size.width;
  j["Height"] = size.height;
  j["MarkHalfSize"] = s.MarkHalfSize;
  j["ModelCurveLast"] = has_model ? s.ModelCurveLast : -1;
  j["Operations"] = record.ops.size();
  bool written = true;
  const auto output = [&](const std::string& path, const char* key, auto&& write) {
    if (path.empty()) return;
    const QString why = write(path);
    if (!why.isEmpty()) Cli::complain("cannot write " + path + ": " + why.toStdString());
    written = written && why.isEmpty();
    j[key] = text(path);
  };
  output(o.png, "Png",
         [&](const std::string& p) { return picture.save_png(QString::fromStdString(p)); });
  output(o.svg, "Svg", [&](const std::string& p) {
    return picture.save_svg(QString::fromStdString(p), QString::fromStdString(s.FileName));
  });
  output(o.pdf, "Pdf", [&](const std::string& p) {
    return write_pdf(picture, QString::fromStdString(p), QString::fromStdString(s.FileName));
  });
  output(o.ops, "Ops", [&](const std::string& p) {
    return record.save(p) ? QString() : QStringLiteral("cannot write");
  });
  j["Messages"] = cli.messages();
  cli.print(j);
  return written ? cli.status() : 1;
}

}  // namespace

Command plot_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "plot",
      "Draw the bilog diagram of a sounding as the Bilog tab shows it after a compute of its "
      "model");
  auto o = std::make_shared<PlotOptions>();
  app->add_option("FILE", o->file, "The sounding file")->required();
  add_array_option(app, o->array);
  app->add_option("--png", o->png, "Write the picture as PNG");
  app->add_option("--svg", o->svg, "Write the picture as SVG");
  app->add_option("--pdf", o->pdf, "Write the picture on an A4 landscape PDF page");
  app->add_option("--ops", o->ops, "Write the drawing operations, one a line");
  app->add_option("--size", o->size, "Size of the picture in pixels, WxH (16 to 20000 each)")
      ->capture_default_str();
  app->add_flag("--steps", o->steps, "Draw the model's staircase");
  app->add_flag("--errors", o->errors, "Draw the error curve");
  return {app, [o](Cli& cli) { return draw(cli, *o); }};
}

}  // namespace tellux::cli
