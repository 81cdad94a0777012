// tellux: the desktop program. It reads no command line: everything starts from the main window
// and its start window.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <clocale>

#include "app/application.h"
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

}  // namespace

int main(int argc, char** argv) {
  QApplication qt(argc, argv);
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
  tellux::MainWindow window(app, bilog, forms, &dialogs);
  window.on_end = [] { QApplication::quit(); };
  if (!window.start()) return 0;
  if (QFileInfo(QString::fromStdString(app.s.FileDir)).isDir())
    dialogs.set_start_dir(QString::fromStdString(app.s.FileDir));
  return QApplication::exec();
}
