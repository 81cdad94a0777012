// tellux-cli plot: the bilog diagram of a sounding as the Bilog tab shows it after a compute of
// its model, written as a picture (PNG, SVG) and as the list of drawing operations.
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "cli.h"
#include "model/forward.h"
#include "platform/headless/recording_surface.h"
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

Size parse_size(const std::string& text) {
  const size_t x = text.find('x');
  if (x == std::string::npos) throw UsageError{"--size takes WxH, not \"" + text + "\""};
  Size size;
  size.width = parse_int(text.substr(0, x), "--size");
  size.height = parse_int(text.substr(x + 1), "--size");
  if (size.width < 16 || size.height < 16 || size.width > 20000 || size.height > 20000)
    throw UsageError{"--size takes a width and a height from 16 to 20000 pixels"};
  return size;
}

// Fonts and pictures need the GUI application object; with no display, its offscreen platform.
void use_offscreen_without_display() {
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY"))
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
}

// Standard error carries the program's messages: the toolkit's notes about its environment are
// left out, its critical messages kept.
void toolkit_messages(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtCriticalMsg || type == QtFatalMsg)
    std::fprintf(stderr, "tellux-cli: %s\n", text.toLocal8Bit().constData());
}

// The diagram on an A4 landscape page, as vectors: the picture's operations are painted again
// on the PDF, scaled to the page inside margins of 15 mm. The writer works at the picture's own
// resolution so that the text keeps its size against the lines.
bool write_pdf(const QtDrawingSurface& picture, const QString& path, const QString& title) {
  QPdfWriter pdf(path);
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

}  // namespace

int cmd_plot(Cli& cli, const Args& args) {
  if (args.positional.size() != 1)
    throw UsageError{
        "usage: tellux-cli plot FILE [--array A] [--png OUT] [--svg OUT] [--pdf OUT] [--ops OUT] "
        "[--size WxH] [--steps] [--errors]"};
  apply_array(cli, args);
  const Size size = args.has("--size") ? parse_size(args.get("--size")) : Size{};

  use_offscreen_without_display();
  qInstallMessageHandler(toolkit_messages);
  int argc = 1;
  char name[] = "tellux-cli";
  char* argv[] = {name, nullptr};
  QGuiApplication app(argc, argv);

  open_file(cli, args.positional[0]);
  if (cli.status() != 0) return cli.status();
  SoundingState& s = cli.s;
  take_layer_count(s);
  s.SuperposeCurve = -1;
  s.ShowModelSteps = args.has("--steps") ? 1 : 0;
  s.ShowErrorCurve = args.has("--errors") ? 1 : 0;

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
  j.begin_object();
  j.key("Width").integer(size.width).key("Height").integer(size.height);
  j.key("MarkHalfSize").number(s.MarkHalfSize);
  j.key("ModelCurveLast").integer(has_model ? s.ModelCurveLast : -1);
  j.key("Operations").integer(static_cast<long>(record.ops.size()));
  bool written = true;
  const auto output = [&](const char* option, const char* key, auto&& write) {
    if (!args.has(option)) return;
    const std::string path = args.get(option);
    const bool ok = write(path);
    if (!ok) std::fprintf(stderr, "tellux-cli: cannot write %s\n", path.c_str());
    written = written && ok;
    j.key(key).text(path);
  };
  output("--png", "Png",
         [&](const std::string& p) { return picture.save_png(QString::fromStdString(p)); });
  output("--svg", "Svg", [&](const std::string& p) {
    return picture.save_svg(QString::fromStdString(p), QString::fromStdString(s.FileName));
  });
  output("--pdf", "Pdf", [&](const std::string& p) {
    return write_pdf(picture, QString::fromStdString(p), QString::fromStdString(s.FileName));
  });
  output("--ops", "Ops", [&](const std::string& p) { return record.save(p); });
  j.end_object();
  cli.print(j);
  return written ? cli.status() : 1;
}

}  // namespace tellux::cli
