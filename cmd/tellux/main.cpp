// tellux: the desktop program. Apart from --help and --version it reads no command line:
// everything starts from the main window and its start window.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "app/application.h"
#include "app/recovery.h"
#include "gui/guarded_application.h"
#include "gui/main_window.h"
#include "gui/qt_forms.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_drawing_surface.h"
#include "platform/qt/qt_system.h"

namespace {

// An installation moved to another prefix finds its data folder beside the program.
void find_data_beside_program() {
  if (!qEnvironmentVariableIsEmpty("TELLUX_DATA_DIR")) return;
  const QString beside = QDir(QCoreApplication::applicationDirPath())
                             .absoluteFilePath(QStringLiteral("../share/tellux"));
  if (QFileInfo(beside).isDir()) qputenv("TELLUX_DATA_DIR", QDir::cleanPath(beside).toLocal8Bit());
}

// --help and --version answer without a window. Returns the exit status, or -1 to go on.
int answer_command_line(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--version") == 0) {
      std::printf("Tellux 6.4\n");
      return 0;
    }
    if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) {
      std::printf(
          "Usage: tellux [--help] [--version]\n"
          "Tellux 6.4: interpretation of vertical electrical soundings. The program opens its\n"
          "window and start window; use tellux-cli for batch work without a display.\n");
      return 0;
    }
  }
  return -1;
}

// The windowing platform: a display, or a platform named by QT_QPA_PLATFORM (offscreen in tests).
bool has_display() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (const char* v = std::getenv(name); v && *v) return true;
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (const int status = answer_command_line(argc, argv); status >= 0) return status;
  if (!has_display()) {
    std::fprintf(stderr,
                 "tellux: no display to open a window on (DISPLAY is not set); "
                 "tellux-cli does the program's work without one.\n");
    return 1;
  }
  tellux::GuardedApplication qt(argc, argv);
  // The toolkit hands the user's locale to the C library; the program's number text and its files
  // keep the point whatever the locale says.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName(QStringLiteral("Tellux"));
  QApplication::setApplicationVersion(QStringLiteral("6.4"));
  QApplication::setDesktopFileName(QStringLiteral("tellux"));
  find_data_beside_program();

  // The diagram as laid out on the form: 9855 x 6090 twips.
  tellux::QtDrawingSurface bilog(9855 / tellux::kTwipsPerPixel, 6090 / tellux::kTwipsPerPixel);
  tellux::QtDialogs dialogs;
  tellux::QtSystemServices system;
  tellux::QtForms forms;
  tellux::Application app(dialogs, forms, bilog, system);
  // Past every routine's own discipline: the error box, the offer to save, and the program goes on.
  qt.on_escaped_error = [&app](int number, const std::string& text) {
    tellux::report_escaped_error(app.session, number, text);
  };
  tellux::MainWindow window(app, bilog, forms, &dialogs);
  window.on_end = [] { QApplication::quit(); };
  if (!window.start()) return 0;
  // An absolute folder only: a relative one would leave the dialogs in the program's folder.
  if (const QFileInfo dir(QString::fromStdString(app.s.FileDir)); dir.isAbsolute() && dir.isDir())
    dialogs.set_start_dir(QString::fromStdString(app.s.FileDir));
  return QApplication::exec();
}
