#include "gui/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include "app/picture_export.h"
#include "gui/equivalence_dialog.h"
#include "gui/extraction_dialog.h"
#include "gui/grid_view.h"
#include "gui/help_key.h"
#include "gui/print_widget.h"
#include "gui/profile_widget.h"
#include "gui/programs.h"
#include "gui/setup_widget.h"
#include "gui/sheet_widget.h"
#include "gui/splash_window.h"
#include "gui/survey_commands_view.h"
#include "gui/toolbar_icons.h"
#include "gui/toolkit_language.h"
#include "model/filter_error.h"
#include "plot/bilog_frame.h"

namespace tellux {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

QLineEdit* status_box(const char* name, QWidget* parent) {
  auto* box = new QLineEdit(parent);
  box->setObjectName(QLatin1String(name));
  box->setReadOnly(true);
  box->setFocusPolicy(Qt::NoFocus);
  return box;
}

}  // namespace

MainWindow::MainWindow(Application& app, QtDrawingSurface& bilog, QtForms& forms,
                       QtDialogs* dialogs)
    : app_(app), surface_(bilog), forms_(forms) {
  setObjectName(QStringLiteral("SEV"));
  setWindowTitle(QString::fromUtf8(kProgramTitle));
  setWindowIcon(program_icon());
  setMinimumSize(kMinFormWidth / kTwipsPerPixel, kMinFormHeight / kTwipsPerPixel);
  // 1000 x 740 where the screen has room; never more than the screen's free area.
  QSize size(1000, 740);
  if (const QScreen* screen = QGuiApplication::primaryScreen())
    size = size.boundedTo(screen->availableGeometry().size()).expandedTo(minimumSize());
  resize(size);
  if (dialogs) dialogs->set_parent(this);

  programs_ = std::make_unique<DesktopPrograms>(this);
  app_.main.open_manual = [this] {
    open_manual(app_.session, *programs_, active_help_topic(*tabs_));
  };
  app_.frmSplash.open_manual = app_.main.open_manual;
  build_menu();
  build_toolbar();
  install_help_key(*this, [this] { app_.main.open_manual(); });

  auto* central = new QWidget;
  setCentralWidget(central);
  tabs_ = new QTabWidget(central);
  tabs_->setObjectName(QStringLiteral("SSTab1"));
  tabs_->setDocumentMode(false);
  sheet_ = new SheetWidget(app_.sheet);
  setup_ = new SetupWidget(app_.setup);
  profile_ = new ProfileWidget(app_.profile, app_.main.SEV_Grid, app_.main.settings_path());
  tabs_->addTab(build_bilog_page(), QString::fromUtf8(kTabCaptions[0]));
  tabs_->addTab(sheet_, QString::fromUtf8(kTabCaptions[1]));
  print_ = new PrintWidget(app_.print, app_.VSPrint);
  print_->on_changed = [this] { refresh(); };
  tabs_->addTab(print_, QString::fromUtf8(kTabCaptions[2]));
  tabs_->addTab(setup_, QString::fromUtf8(kTabCaptions[3]));
  tabs_->addTab(profile_, QString::fromUtf8(kTabCaptions[4]));
  add_survey_buttons(*profile_, app_, [this] { refresh(); });
  section_ = new PrintWidget(app_.section, app_.VSPrint1);
  section_->setObjectName(QStringLiteral("SEVProfile"));
  section_->on_changed = [this] { refresh(); };
  pictures_ = std::make_unique<QtPictures>([this] { return surface_.image(); });
  const auto pictures_of = [this](PrintWidget* tab, PageDocument& page, bool section,
                                  const char* pdf) {
    tab->record_picture = [this, &page, section] {
      Record_WMF(app_.session, page, section, *pictures_);
    };
    tab->copy_page = [this, &page] { pictures_->copy_page(page, page.PreviewPage - 1); };
    tab->save_pdf = [this, &page, pdf] { save_pdf(page, pdf); };
    tab->graphical_program = [this] {
      open_graphical_program(app_.session, app_.settings, *programs_);
    };
  };
  pictures_of(print_, app_.VSPrint, false, "report.pdf");
  pictures_of(section_, app_.VSPrint1, true, "section.pdf");
  // Until a section is drawn, its pictures say what is missing instead.
  for (auto* command : {&section_->record_picture, &section_->copy_page, &section_->save_pdf})
    *command = [this, then = *command] {
      if (section_drawn(app_.session, app_.VSPrint1)) then();
    };
  app_.main.copy_picture = [this] { copy_diagram(app_.session, *pictures_); };
  tabs_->addTab(section_, QString::fromUtf8(kTabCaptions[5]));
  connect(tabs_, &QTabWidget::currentChanged, this,
          [this](int index) { run([this, index] { app_.main.SSTab1_Click(index); }); });

  splash_ = new SplashWindow(app_.frmSplash, this);
  app_.frmSplash.on_unload = [this] { splash_->hide(); };
  connect(splash_, &QDialog::finished, this, [this] { app_.frmSplash.visible = false; });
  splash_->on_action = [this] { refresh(); };

  sheet_->on_changed = [this] { refresh(); };
  setup_->on_changed = [this] { refresh(); };
  setup_->on_option = [this](int index) { app_.Option_Click(index); };
  setup_->on_status = [this] { text1_->setText(q(app_.main.Text1.Text)); };
  bilog_->on_mouse = [this](float x, float y) {
    app_.main.Bilog_MouseMove(x, y);
    text1_->setText(q(app_.main.Text1.Text));
  };
  app_.main.end_program = [this] { end_program(); };
  wire_forms();
  model_view_ = make_model_window_view(app_.model, this);
  model_view_->on_action = [this] { refresh(); };
  model_view_->on_equivalence = [this] { show_equivalence(); };
  model_view_->set_dock(bilog_page_);
  model_view_->on_dock_changed = [this] { apply_layout(); };
  connect_model_window(forms_, app_.model, *model_view_);
}

MainWindow::~MainWindow() {
  set_screen_pointer(kPointerDefault);
  forms_ = QtForms();
  model_view_.reset();
}

QWidget* MainWindow::build_bilog_page() {
  bilog_page_ = new QWidget;
  bilog_page_->setObjectName(QStringLiteral("BilogPage"));
  bilog_ = new BilogWidget(surface_, bilog_page_);
  text1_ = status_box("Text1", bilog_page_);
  text1_->setToolTip(QStringLiteral("Position of the mouse on the diagram"));
  name_box_ = status_box("NameBox", bilog_page_);
  name_box_->setToolTip(QStringLiteral("Sounding"));
  text3_ = status_box("Text3", bilog_page_);
  text4_ = status_box("Text4", bilog_page_);
  text4_->setToolTip(QStringLiteral("Array"));
  return bilog_page_;
}

bool MainWindow::start() {
  // Help and the clipboard are there when the program has them.
  action(QStringLiteral("Help"))->setEnabled(static_cast<bool>(app_.main.open_manual));
  action(QStringLiteral("Clip_Bd"))->setEnabled(static_cast<bool>(app_.main.copy_picture));
  if (!app_.main.Form_Load()) return false;
  follow_language(app_.s.Language);
  loaded_ = true;
  apply_layout();
  refresh();
  show();
  if (app_.frmSplash.visible) {
    splash_->refresh();
    splash_->show();
    splash_->raise();
    splash_->activateWindow();
  }
  return true;
}

void MainWindow::run(const std::function<void()>& action) {
  action();
  refresh();
}

void MainWindow::refresh() {
  if (refreshing_) return;
  if (model_view_ && model_view_->isVisible()) model_view_->refresh();
  refreshing_ = true;
  MainForm& main = app_.main;
  text1_->setText(q(main.Text1.Text));
  if (const std::string hint = filter_error_hint(app_.s); !hint.empty())
    text1_->setText(q(hint)), text1_->setCursorPosition(0), text1_->setToolTip(q(hint));
  name_box_->setText(q(main.NameBox.Text));
  text3_->setText(q(main.Text3.Text));
  text4_->setText(q(main.Text4.Text));
  bool same = combo6_->count() == main.Combo6.ListCount();
  for (int i = 0; same && i < combo6_->count(); ++i)
    same = combo6_->itemText(i) == q(main.Combo6.List(i));
  if (!same) {
    combo6_->clear();
    for (int i = 0; i < main.Combo6.ListCount(); ++i) combo6_->addItem(q(main.Combo6.List(i)));
  }
  combo6_->setCurrentIndex(main.Combo6.ListIndex());
  sheet_->refresh();
  setup_->refresh();
  profile_->refresh();
  print_->refresh();
  section_->refresh();
  splash_->refresh();
  if (!app_.frmSplash.visible && splash_->isVisible()) splash_->hide();
  bilog_->update();
  refreshing_ = false;
}
void MainWindow::end_program() {
  ended_ = true;
  close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!ended_ && app_.main.leave_program()) {
    event->ignore();  // the user goes on
    refresh();
    return;
  }
  ended_ = true;
  splash_->hide();
  event->accept();
  if (on_end) on_end();
}

}  // namespace tellux
