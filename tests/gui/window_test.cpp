// The desktop program's windows, driven as a user drives them, with scripted dialogs: start-up,
// opening a sample through the toolbar, the tabs, typing a sounding, the array and the redraw,
// the language, and leaving with each answer.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <memory>

#include "app/application.h"
#include "gui/grid_view.h"
#include "gui/main_window.h"
#include "gui/manual_view.h"
#include "gui/profile_widget.h"
#include "gui/qt_forms.h"
#include "gui/setup_widget.h"
#include "gui/sheet_widget.h"
#include "gui/splash_window.h"
#include "platform/headless/scripted_dialogs.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_system.h"

namespace tellux {

namespace {

struct FakeSystem : SystemServices {};

// One run of the program on the offscreen platform.
struct Program {
  explicit Program(const QString& ini)
      : bilog(657, 406),
        app(dialogs, forms, bilog, system, ini.toStdString()),
        window(app, bilog, forms) {
    forms.on_show_model_window = [this] { ++model_window_shown; };
    forms.on_unload_model_window = [this] { ++model_window_unloaded; };
    window.on_end = [this] { ++ended; };
  }
  ScriptedDialogs dialogs;
  FakeSystem system;
  QtForms forms;
  QtDrawingSurface bilog;
  Application app;
  MainWindow window;
  int model_window_shown = 0;
  int model_window_unloaded = 0;
  int ended = 0;
};

std::string sample(const char* name) { return std::string(TELLUX_SOURCE_DIR) + "/samples/" + name; }

// Pixels of the diagram close to a colour of the program.
int pixels_of(const QImage& image, int32_t colour) {
  const QColor c = to_qcolor(colour);
  int n = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QColor p = image.pixelColor(x, y);
      if (std::abs(p.red() - c.red()) < 40 && std::abs(p.green() - c.green()) < 40 &&
          std::abs(p.blue() - c.blue()) < 40)
        ++n;
    }
  return n;
}

}  // namespace

class WindowTest : public QObject {
  Q_OBJECT

 private:
  QTemporaryDir dir_;
  std::unique_ptr<Program> p_;

  QString ini() const { return dir_.filePath(QStringLiteral("Tellux6.ini")); }
  Program& start() {
    p_ = std::make_unique<Program>(ini());
    if (!p_->window.start()) qFatal("the window did not start");
    if (!QTest::qWaitForWindowExposed(&p_->window)) qFatal("the window was not shown");
    return *p_;
  }
  void open_sample(Program& p, const std::string& path) {
    p.dialogs.open_choices = {{path}};
    p.window.action(QStringLiteral("open"))->trigger();
  }

 private slots:
  void init() { QFile::remove(ini()); }
  void cleanup() { p_.reset(); }

  void startsWithTheStartWindowTheTabsAndTheToolbarThenResizesAndChangesLanguage() {
    Program& p = start();
    QVERIFY(p.window.splash()->isVisible() &&
            p.window.splash()->button(2)->text() == QStringLiteral("Start a new VES"));
    QStringList tabs;
    for (int i = 0; i < p.window.tabs()->count(); ++i) tabs << p.window.tabs()->tabText(i);
    QCOMPARE(tabs.join(','),
             QStringLiteral("Bilog,SEV model,Print Bilog,Bilog Setup,Profile data,SEV Profile"));
    QCOMPARE(p.window.language_box()->currentText(), QStringLiteral("English"));
    QStringList tips;
    for (QAction* a : p.window.toolbar()->actions())
      if (!a->objectName().isEmpty() && !a->icon().isNull()) tips << a->toolTip();
    QCOMPARE(tips.mid(0, 7).join(','),
             QStringLiteral("Open File,Save File,New SEV,Show model,Help file,"
                            "Copy the screen to the Clipboard ,Exit Tellux"));
    // Every command is live (the video only where one is installed); recent-file entries
    // without a path are not listed.
    QVERIFY(p.window.action(QStringLiteral("NCalculator"))->isEnabled());
    QVERIFY(!p.window.action(QStringLiteral("F1_F"))->isVisible());
    // The window keeps its minimum size and the surface follows the diagram.
    p.window.resize(400, 300);
    QCOMPARE(p.window.size(), QSize(696, 553));
    p.window.resize(1200, 900);
    QTest::qWait(10);
    QCOMPARE(p.bilog.width(), p.window.bilog()->width());
    // Another language: the tabs keep their names.
    p.window.language_box()->setCurrentIndex(0);  // Français
    QVERIFY(p.app.s.Language.French && p.model_window_unloaded == 1);
    QCOMPARE(p.window.sheet()->button("ExitButton")->text(), QStringLiteral("&Quitte"));
    QCOMPARE(p.window.tabs()->tabText(1), QStringLiteral("SEV model"));
    QCOMPARE(p.window.findChild<QPushButton*>(QStringLiteral("FitAll"))->text(),
             QStringLiteral("Ajuster tout"));
    QCOMPARE(p.window.action(QStringLiteral("ImportTable"))->text(),
             QStringLiteral("&Importer un tableau..."));
    // The toolkit's own buttons follow, where its translations are installed.
    QDialogButtonBox buttons(QDialogButtonBox::Cancel);
    if (QFile::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + "/qtbase_fr.qm"))
      QCOMPARE(buttons.button(QDialogButtonBox::Cancel)->text(), QStringLiteral("Annuler"));
  }

  // F1 opens the manual at once in the program's own view, at the section of the tab in use.
  void theKeyF1OpensTheManualAtTheSectionOfTheTab() {
    Program& p = start();
    p.window.splash()->close();  // over the start window F1 opens its section
    p.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&p.window));
    p.window.tabs()->setCurrentIndex(3);
    QTest::keyClick(&p.window, Qt::Key_F1);
    auto* view = static_cast<ManualView*>(p.window.findChild<QDialog*>(QStringLiteral("manual")));
    if (!view && !p.dialogs.messages.empty() &&
        p.dialogs.texts().back().find("is missing") != std::string::npos)
      QSKIP("the manuals are not built");
    QVERIFY(view && view->isVisible() && p.dialogs.messages.empty());
    QCOMPARE(view->page(), manual_place(view->file().toStdString(), "tab-setup").page);
    QVERIFY(view->page() > 20);
  }

  // Opening a sample through the toolbar; from then on a resize draws the diagram again: frame,
  // marks and the model's curve. The tabs run their rules, the array changes and redraws, and
  // nothing of the sounding stays on the diagram when one without a model is opened.
  void opensASampleChangesTheArrayThenOpensOneWithoutAModel() {
    Program& p = start();
    p.app.s.PointsColour = 0xFF0000;  // blue marks, apart from the red curve
    open_sample(p, sample("three_layers.TX3"));
    QVERIFY(p.window.windowTitle().contains(QStringLiteral("three_layers.TX3")));
    QVERIFY(p.model_window_shown == 1 && p.app.s.FieldCount == 28);
    p.window.resize(p.window.width() + 20, p.window.height());
    QVERIFY(std::min(pixels_of(p.bilog.image(), 0xFF0000),
                     pixels_of(p.bilog.image(), p.app.s.CurveColour)) > 100);
    QCOMPARE(p.window.action(QStringLiteral("F1_F"))->text(),
             QStringLiteral("&1 ") + QString::fromStdString(sample("three_layers.TX3")));
    QVERIFY(p.window.action(QStringLiteral("F1_F"))->isVisible());
    // The mouse over the diagram gives the read-out.
    QTest::mouseMove(p.window.bilog(), QPoint(200, 200));
    QVERIFY(p.window.status_line()->text().startsWith(QStringLiteral("AB/2=")));
    // The tabs run their rules: the sheet computes, the profile needs soundings.
    p.app.s.MaxAbHalf = 0;
    p.window.tabs()->setCurrentIndex(1);
    QVERIFY(p.app.s.MaxAbHalf > 0);
    p.window.tabs()->setCurrentIndex(5);
    QCOMPARE(p.dialogs.messages.back().text, std::string("First, you must load SEV files"));
    p.window.tabs()->setCurrentIndex(3);
    SetupWidget* setup = p.window.setup();
    setup->array_button(2)->click();     // Wenner
    setup->list(1)->setCurrentIndex(1);  // AB/2 from 1
    setup->steps_box()->setChecked(false);
    setup->redraw_button()->click();
    QVERIFY(p.app.s.Spread == SpreadType::Wenner && p.app.s.DecadeStart == 0 &&
            p.app.s.ShowModelSteps == -1 && p.window.array_box()->text() == "Wenner");
    QVERIFY(QString::fromStdString(p.app.settings.SevFile).endsWith(QStringLiteral("DATAWEN.TXT")));
    QVERIFY(pixels_of(p.bilog.image(), p.app.s.PointsColour) > 100);
    p.app.main.NameBox.Text = "three_layers";
    open_sample(p, sample("three_layers_nomodel.TX3"));
    QVERIFY(pixels_of(p.bilog.image(), p.app.s.CurveColour) == 0 &&
            pixels_of(p.bilog.image(), p.app.s.PointsColour) > 100 &&
            p.window.name_box()->text().isEmpty());
  }

  // The menu's extraction: the files, the form, the default name, then the file.
  void extractsASliceThroughTheMenu() {
    Program& p = start();
    p.dialogs.open_choices = {{std::string(TELLUX_SOURCE_DIR) + "/tests/data/profile/L1_01.TX3",
                               std::string(TELLUX_SOURCE_DIR) + "/tests/data/profile/L1_02.TX3"}};
    p.dialogs.answers = {Answer::No};
    p.dialogs.save_choices = {dir_.filePath(QStringLiteral("slice")).toStdString()};
    p.window.show_extraction_form = [](ExtractionForm& form) {
      form.option = 5;
      form.Text2 = "3";
    };
    p.window.action(QStringLiteral("HORSLICE"))->trigger();
    QFile slice(dir_.filePath(QStringLiteral("slice.DAT")));
    QVERIFY(slice.open(QIODevice::ReadOnly));
    QCOMPARE(slice.readAll(), QByteArray("1000,2000,16\r\n1038.3,2032.1,15\r\n"));
  }

  void typesASoundingInTheSheetAndComputes() {
    Program& p = start();
    p.window.splash()->button(2)->click();  // start a new sounding
    QVERIFY(!p.window.splash()->isVisible() && p.window.tabs()->currentIndex() == 1);
    GridView* grid = p.window.sheet()->grid();
    GridModel& g = p.app.sheet.BuildGrid;
    // The default spread gives MN/2 and AB/2; DeltaV and I are typed.
    QVERIFY(!g.text(1, 2).empty());
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(0, 2));  // row 1, DeltaV
    QTest::keyClicks(grid, QStringLiteral("250x"));     // the letter is dropped
    QCOMPARE(g.text(1, 3), std::string("250"));
    grid->setCurrentIndex(grid->model()->index(0, 3));  // I
    QTest::keyClick(grid, Qt::Key_5, Qt::KeypadModifier);
    QTest::keyClick(grid, Qt::Key_0);
    QCOMPARE(g.text(1, 4), std::string("50"));
    p.window.sheet()->button("Computation")->click();
    QVERIFY(p.app.s.FieldTable(1, 2).num() > 0 && p.app.s.FieldCount == 1);
  }

  // Two soundings chosen fill the table and the scale; an anchor patch opens the colour dialog.
  void selectsSoundingsAndPicksAnAnchor() {
    Program& p = start();
    ProfileWidget* profile = p.window.profile();
    const std::string line = std::string(TELLUX_SOURCE_DIR) + "/tests/data/profile/L1_0";
    p.dialogs.open_choices = {{line + "2.TX3", line + "1.TX3"}};
    profile->select_button()->click();
    QAbstractItemModel* table = profile->grid()->model();
    QVERIFY(table->rowCount() == 2 && table->index(0, 0).data().toString() == "L1_01.TX3" &&
            profile->class_patch(16)->text() == "600");
    p.dialogs.colours = {0x00FF00};
    QTest::mouseClick(profile->anchor_patch(1), Qt::LeftButton);
    QVERIFY(profile->rgb_box(1)->text() == "255" && profile->class_patch(1)->text() == "20" &&
            p.app.profile.sheet.scale.ClassBox[1].BackColor == 0x00FF00);
    // Leaving a number box applies it, also with its text unchanged.
    p.app.profile.sheet.scale.rgb_box(1, 2).Text = "300";
    profile->refresh();
    QFocusEvent out(QEvent::FocusOut);
    QApplication::sendEvent(profile->rgb_box(2), &out);
    QCOMPARE(profile->rgb_box(2)->text(), QStringLiteral("255"));
    // " Fill" runs its rules: the log width empties and looks disabled.
    auto* text8 = profile->findChild<QLineEdit*>(QStringLiteral("Text8"));
    profile->findChild<QCheckBox*>(QStringLiteral("Check8"))->click();
    QVERIFY(!text8->isEnabled() && text8->text().isEmpty());
    // A typed distance shows two decimals and moves the page size; "Fit the page" fits it again.
    QVERIFY(table->setData(table->index(1, 5), QStringLiteral("1000")));
    QCOMPARE(table->index(1, 5).data().toString(), QStringLiteral("1000.00"));
    auto* text5 = profile->findChild<QLineEdit*>(QStringLiteral("Text5"));
    QCOMPARE(text5->text(), QStringLiteral("4000"));
    profile->fit_page_button()->click();
    QVERIFY(text5->text().toInt() < 250);
  }

  // Cancel at the question keeps the window; Yes then ends the program. (No is covered by the
  // headless tests of the same routine.)
  void leavingWithCancelGoesOnAndWithYesEnds() {
    Program& p = start();
    open_sample(p, sample("three_layers.TX3"));
    p.dialogs.answers = {Answer::Cancel};
    p.window.close();
    QVERIFY(p.window.isVisible() && p.ended == 0 && QFile::exists(ini()) &&
            p.app.s.FieldCount == 28);

    QFile::remove(ini());
    p.dialogs.answers = {Answer::Yes};
    p.window.action(QStringLiteral("E_M"))->trigger();
    QVERIFY(p.ended == 1 && !p.window.isVisible() && QFile::exists(ini()));
  }

  void keysOfTheSheetTheLockAndTheFileFilters() {
    QCOMPARE(sheet_key_code(Qt::Key_Period, QStringLiteral("."), false), 46);
    QCOMPARE(sheet_key_code(Qt::Key_Comma, QStringLiteral(","), true), 62);
    QCOMPARE(sheet_key_code(Qt::Key_Comma, QStringLiteral(","), false), -1);
    // A second copy is seen through the lock.
    const QString lock = dir_.filePath(QStringLiteral("tellux.lock"));
    QtSystemServices first(lock), second(lock);
    QVERIFY(!first.another_copy_running());
    // Asking again from the same copy.
    QVERIFY(!first.another_copy_running() && second.another_copy_running());
    // File filters in Qt's form.
    QCOMPARE(qt_file_filter("Tellux 5 & 6 (*.TX3)|*.TX3|TL! DOS (*.SEV)|*.SEV"),
             QStringLiteral("Tellux 5 & 6 (*.TX3);;TL! DOS (*.SEV)"));
    QCOMPARE(qt_file_filter("Programs|*.EXE"), QStringLiteral("Programs (*.EXE)"));
  }
};

}  // namespace tellux

QTEST_MAIN(tellux::WindowTest)
#include "window_test.moc"
