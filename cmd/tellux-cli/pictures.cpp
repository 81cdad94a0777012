#include "pictures.h"

#include <cstdio>
#include <cstdlib>

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
