#include "pictures.h"

#include <cstdio>
#include <cstdlib>

#include "cli.h"
#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"
#include "platform/qt/qt_page_painter.h"

namespace tellux::cli {

namespace {

// Standard error carries the program's messages: the toolkit's notes about its environment are
// left out, its critical messages kept.
void toolkit_messages(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtCriticalMsg || type == QtFatalMsg)
    std::fprintf(stderr, "tellux-cli: %s\n", text.toLocal8Bit().constData());
}

}  // namespace

PictureToolkit::PictureToolkit() {
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY"))
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
  qInstallMessageHandler(toolkit_messages);
  app_ = std::make_unique<QGuiApplication>(argc_, argv_);
}

PictureToolkit::~PictureToolkit() = default;

}  // namespace tellux::cli

namespace tellux::cli {

namespace {

// "out.png" for page 1, "out-2.png" for page 2 ...
QString page_file(const std::string& path, int page) {
  if (page == 1) return QString::fromStdString(path);
  const size_t dot = path.rfind('.');
  const size_t slash = path.find_last_of("/\\");
  const bool has_ext = dot != std::string::npos && (slash == std::string::npos || dot > slash);
  return QString::fromStdString((has_ext ? path.substr(0, dot) : path) + "-" +
                                std::to_string(page) + (has_ext ? path.substr(dot) : ""));
}

}  // namespace

bool write_page_outputs(const PageDocument& page, const PageOutputs& out) {
  bool written = true;
  const auto check = [&](const QString& path, const QString& why) {
    if (why.isEmpty()) return;
    Cli::complain("cannot write " + path.toStdString() + ": " + why.toStdString());
    written = false;
  };
  if (!out.pdf.empty())
    check(QString::fromStdString(out.pdf), write_pdf(page, QString::fromStdString(out.pdf)));
  for (int p = 1; p <= page.PageCount(); ++p) {
    if (!out.svg.empty())
      check(page_file(out.svg, p), write_svg(page, p - 1, page_file(out.svg, p)));
    if (!out.png.empty())
      check(page_file(out.png, p), write_png(page, p - 1, page_file(out.png, p)));
  }
  if (!out.ops.empty()) {
    try {
      rt::write_file_atomically(out.ops, page.text());
    } catch (const rt::RuntimeError& e) {
      check(QString::fromStdString(out.ops), QString::fromStdString(e.reason()));
    }
  }
  return written;
}

}  // namespace tellux::cli
