#include "manual_pictures.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <functional>

#include "app/application.h"
#include "gui/extraction_dialog.h"
#include "gui/main_window.h"
#include "gui/model_window_view.h"
#include "gui/profile_widget.h"
#include "gui/qt_forms.h"
#include "gui/r2di_dialog.h"
#include "gui/splash_window.h"
#include "platform/headless/scripted_dialogs.h"
#include "platform/qt/qt_page_painter.h"

namespace manual {

namespace {

using namespace tellux;

struct Desktop : SystemServices {};

// The settings of the run: the language's letter, and nothing else of the user's.
void write_settings(const QString& path, char letter) {
  QFile file(path);
  if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
    file.write(QByteArray("[Tellux]\r\nLangue=") + letter + "\r\n");
}

class Camera {
 public:
  explicit Camera(QString folder) : folder_(std::move(folder)) {}
  void save(QWidget* widget, const char* name) {
    QApplication::processEvents();
    if (widget) widget->grab().save(folder_ + "/" + name + ".png");
  }
  // The modal dialog that `open` shows, taken and closed as soon as it is on the screen; nothing
  // when `open` shows none (a command this build does not have).
  void save_dialog(const std::function<void()>& open, const char* name) {
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, [this, name] {
      if (QWidget* dialog = QApplication::activeModalWidget()) {
        dialog->adjustSize();
        save(dialog, name);
        dialog->close();
      }
    });
    timer.start(50);
    open();
    timer.stop();  // no dialog came: nothing is taken later by mistake
    QApplication::processEvents();
  }
  QString path(const char* name) const { return folder_ + "/" + name + ".png"; }

 private:
  QString folder_;
};

QWidget* visible_named(const char* name) {
  for (QWidget* w : QApplication::allWidgets())
    if (w->objectName() == QLatin1String(name) && w->isVisible()) return w;
  return nullptr;
}

// A command of a menu by its caption, for the commands that other builds add.
QAction* action_named(QWidget& window, const QString& caption) {
  for (QAction* a : window.findChildren<QAction*>())
    if (a->text().remove(QLatin1Char('&')).startsWith(caption, Qt::CaseInsensitive)) return a;
  return nullptr;
}

QPushButton* button_named(QWidget& window, const QString& caption) {
  for (QPushButton* b : window.findChildren<QPushButton*>())
    if (b->text().remove(QLatin1Char('&')).startsWith(caption, Qt::CaseInsensitive)) return b;
  return nullptr;
}

}  // namespace

void take_pictures(const QString& source, const QString& folder, char language) {
  QDir().mkpath(folder);
  const QString ini = folder + "/manual.ini";
  write_settings(ini, language);
  ScriptedDialogs dialogs;
  Desktop system;
  QtForms forms;
  QtDrawingSurface bilog(657, 406);
  Application app(dialogs, forms, bilog, system, ini.toStdString());
  MainWindow window(app, bilog, forms);
  window.resize(1100, 760);
  if (!window.start()) return;
  Camera camera(folder);
  camera.save(window.splash(), "start");
  window.splash()->hide();
  app.frmSplash.visible = false;
  const auto sample = [&](const char* name) { return (source + "/samples/" + name).toStdString(); };
  const auto open = [&](const char* name) {
    dialogs.open_choices = {{sample(name)}};
    window.action(QStringLiteral("open"))->trigger();
    window.resize(window.width() == 1100 ? 1101 : 1100, 760);  // the resize draws the curve
    QApplication::processEvents();
  };

  // One sounding: the diagram, the model, the sheet, the setup, the report.
  open("three_layers.TX3");
  camera.save(&window, "bilog");
  camera.save(visible_named("model"), "model");
  camera.save(window.bilog(), "diagram");
  const std::pair<int, const char*> tabs[] = {{1, "sheet"}, {3, "setup"}, {2, "print"}};
  for (const auto& [tab, name] : tabs) {
    window.tabs()->setCurrentIndex(tab);
    camera.save(&window, name);
  }
  write_png(app.VSPrint, 0, camera.path("report"), 80);
  window.tabs()->setCurrentIndex(0);

  // The automatic model of a sounding without one, fitted.
  open("three_layers_nomodel.TX3");
  dialogs.answers.clear();
  window.action(QStringLiteral("NModele"))->trigger();
  QApplication::processEvents();
  camera.save(&window, "automatic");
  if (QAction* equivalence = action_named(window, QStringLiteral("Equivalence")))
    camera.save_dialog([equivalence] { equivalence->trigger(); }, "equivalence");

  // The other arrays with their samples.
  window.tabs()->setCurrentIndex(3);
  app.Option_Click(2);
  window.tabs()->setCurrentIndex(0);
  open("wenner_three.TX3");
  camera.save(window.bilog(), "wenner");
  window.tabs()->setCurrentIndex(3);
  app.Option_Click(1);
  window.tabs()->setCurrentIndex(0);
  open("dipole_two.TX3");
  camera.save(window.bilog(), "dipole");
  window.tabs()->setCurrentIndex(3);
  app.Option_Click(0);
  window.tabs()->setCurrentIndex(0);
  open("four_layers.TX3");
  window.tabs()->setCurrentIndex(2);
  write_png(app.VSPrint, 0, camera.path("report4"), 80);
  window.tabs()->setCurrentIndex(0);

  // A line of soundings: the table, the section, its page.
  // Copies of the line, so that nothing done to them reaches the samples.
  const QString line = folder + "/line";
  QDir().mkpath(line);
  std::vector<std::string> files;
  for (int i = 1; i <= 6; ++i) {
    const QString name = QStringLiteral("/L1_0%1.TX3").arg(i);
    QFile::remove(line + name);
    QFile::copy(source + "/samples/line" + name, line + name);
    files.push_back((line + name).toStdString());
  }
  dialogs.open_choices = {files};
  window.tabs()->setCurrentIndex(4);
  window.profile()->select_button()->click();
  app.profile.sheet.Text14.Text = "2500";
  app.profile.sheet.Text13.Text = "500";
  app.profile.Text14_Change();
  app.profile.Text10.Text = "Line L1";
  window.profile()->refresh();
  camera.save(&window, "profile");
  window.tabs()->setCurrentIndex(5);
  camera.save(&window, "section_tab");
  write_png(app.VSPrint1, 0, camera.path("section"), 80);
  window.tabs()->setCurrentIndex(4);
  if (QPushButton* fit_all = button_named(window, QStringLiteral("Fit all"))) {
    dialogs.answers = {Answer::No, Answer::No, Answer::No};
    camera.save_dialog([fit_all] { fit_all->click(); }, "fit_all");
  }

  // The small windows of the extraction and of the RES2DINV conversion.
  ExtractionForm extraction;
  extraction.set_captions(app.session);
  camera.save_dialog([&] { show_extraction_dialog(extraction, &window); }, "extraction");
  R2diForm r2di;
  r2di.set_captions(app.session);
  camera.save_dialog([&] { show_r2di_dialog(r2di, &window); }, "r2di");
  dialogs.open_choices.clear();
  if (QAction* table = action_named(window, QStringLiteral("Import a table")))
    camera.save_dialog([table] { table->trigger(); }, "import_table");
  window.tabs()->setCurrentIndex(0);
  QFile::remove(ini);
}

}  // namespace manual
