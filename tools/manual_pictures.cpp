#include "manual_pictures.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
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
  // The modal dialog that `open` shows, taken and closed as soon as it is on the screen (after
  // `use`, when given, has worked it); nothing when `open` shows none.
  void save_dialog(const std::function<void()>& open, const char* name,
                   const std::function<void(QWidget&)>& use = {}) {
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, [this, name, &use] {
      if (QWidget* dialog = QApplication::activeModalWidget()) {
        if (use)
          use(*dialog);
        else
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

// Keeps the upper `fraction` of the picture at `path`.
void keep_top(const QString& path, double fraction) {
  const QImage image(path);
  if (!image.isNull())
    image.copy(0, 0, image.width(), static_cast<int>(image.height() * fraction)).save(path);
}

// Presses the key of that name in `dialog`, if it has one.
void press(QWidget& dialog, const char* name) {
  if (auto* key = dialog.findChild<QPushButton*>(QLatin1String(name))) key->click();
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

  // The automatic model of a sounding without one, fitted as the model editor opens.
  open("three_layers_nomodel.TX3");
  dialogs.answers.clear();
  window.action(QStringLiteral("NModele"))->trigger();
  QApplication::processEvents();
  // The editor docked in this window shows the automatic model before its fit: Fitting, as the
  // manual says.
  if (QAction* fit = window.action(QStringLiteral("NAjust"))) fit->trigger();
  QApplication::processEvents();
  camera.save(&window, "automatic");

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
  window.tabs()->setCurrentIndex(0);

  // Its fit, the equivalence of the fitted model with its table, the band on the diagram, and the
  // report that shows both.
  if (QAction* fit = window.action(QStringLiteral("NAjust"))) fit->trigger();
  QApplication::processEvents();
  if (QAction* equivalence = window.action(QStringLiteral("NEquivalence"))) {
    camera.save_dialog([equivalence] { equivalence->trigger(); }, "equivalence",
                       [](QWidget& dialog) {
                         press(dialog, "run");
                         dialog.adjustSize();
                       });
    camera.save(window.bilog(), "equivalence_band");
  }
  window.tabs()->setCurrentIndex(2);
  write_png(app.VSPrint, 0, camera.path("report"), 80);
  if (app.VSPrint.PageCount() > 1) {
    write_png(app.VSPrint, 1, camera.path("report_equivalence"), 80);
    keep_top(camera.path("report_equivalence"), 0.35);  // the table; the rest of the page is empty
  }
  window.tabs()->setCurrentIndex(0);

  // A long sounding: its report goes on on a second page.
  dialogs.open_choices = {{(source + "/tests/data/report/long_sounding.TX3").toStdString()}};
  window.action(QStringLiteral("open"))->trigger();
  QApplication::processEvents();
  window.tabs()->setCurrentIndex(2);
  if (app.VSPrint.PageCount() > 1) write_png(app.VSPrint, 1, camera.path("report_page2"), 80);
  window.tabs()->setCurrentIndex(0);

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
  // "Fit all" on the copies, written after its question, and the section drawn again.
  window.tabs()->setCurrentIndex(4);
  if (auto* fit_all = window.findChild<QPushButton*>(QStringLiteral("FitAll"))) {
    dialogs.answers = {Answer::Yes};
    fit_all->click();
    dialogs.answers.clear();
    window.profile()->refresh();
    window.tabs()->setCurrentIndex(5);
    camera.save(&window, "fit_all");
    window.tabs()->setCurrentIndex(4);
  }

  // The small windows of the extraction and of the RES2DINV conversion.
  ExtractionForm extraction;
  extraction.set_captions(app.session);
  camera.save_dialog([&] { show_extraction_dialog(extraction, &window); }, "extraction");
  R2diForm r2di;
  r2di.set_captions(app.session);
  camera.save_dialog([&] { show_r2di_dialog(r2di, &window); }, "r2di");
  // The table's dialog on the semicolon sample, closed without importing.
  dialogs.open_choices = {{sample("formats/table_semicolon.csv")}};
  if (QAction* table = window.action(QStringLiteral("ImportTable")))
    camera.save_dialog([table] { table->trigger(); }, "import_table",
                       [](QWidget& dialog) { dialog.resize(560, 620); });
  dialogs.open_choices.clear();
  window.tabs()->setCurrentIndex(0);
  QFile::remove(ini);
}

}  // namespace manual
