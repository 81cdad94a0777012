#include "gui/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>
#include <map>

#include "app/picture_export.h"
#include "convert/backups.h"
#include "convert/instruments.h"
#include "convert/multi_sheet.h"
#include "convert/res2dinv.h"
#include "convert/syscal.h"
#include "gui/equivalence_dialog.h"
#include "gui/extraction_dialog.h"
#include "gui/grid_view.h"
#include "gui/print_widget.h"
#include "gui/profile_widget.h"
#include "gui/programs.h"
#include "gui/r2di_dialog.h"
#include "gui/setup_widget.h"
#include "gui/sheet_widget.h"
#include "gui/splash_window.h"
#include "gui/toolbar_icons.h"
#include "model/filter_error.h"
#include "platform/qt/qt_page_painter.h"
#include "plot/bilog_frame.h"

namespace tellux {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

// Toolbar buttons in their order: key (also the key of the picture) and tip. The tips are in
// English in every language.
struct Tool {
  const char* key;
  const char* tip;
};
constexpr Tool kTools[] = {{"open", "Open File"},  {"save", "Save File"},
                           {"bilog", "New SEV"},   {"computation", "Show model"},
                           {"Help", "Help file"},  {"Clip_Bd", "Copy the screen to the Clipboard "},
                           {"stop", "Exit Tellux"}};

QLineEdit* status_box(const char* name, QWidget* parent) {
  auto* box = new QLineEdit(parent);
  box->setObjectName(QLatin1String(name));
  box->setReadOnly(true);
  box->setFocusPolicy(Qt::NoFocus);
  return box;
}

// A recent-file caption keeps its "&1" key; an ampersand of the path is shown as it is.
QString menu_caption(const std::string& caption) {
  QString text = q(caption);
  if (text.size() > 3) text = text.left(3) + text.mid(3).replace(QLatin1Char('&'), "&&");
  return text;
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
  app_.main.open_manual = [this] { open_manual(app_.session, *programs_); };
  app_.frmSplash.open_manual = app_.main.open_manual;
  build_menu();
  build_toolbar();

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

// A converter of one instrument's file; the array chosen may change with the file (OYO, PASI).
void MainWindow::instrument(Instrument kind) {
  convert_instrument(app_.session, kind, app_.settings.SevFile);
  static const char* kArrays[] = {"Schlumberger", "Dipole", "Wenner"};
  app_.main.Text4.Text = kArrays[static_cast<int>(app_.s.Spread)];
}

// The preview's pages as one PDF, where the save dialog says; a failed write is said.
void MainWindow::save_pdf(const PageDocument& page, const char* proposed) {
  FileDialogRequest request;
  request.filter = "PDF (*.pdf)|*.pdf";
  request.title = "Save as PDF";
  request.proposed = proposed;
  request.overwrite_prompt = true;
  const auto path = app_.session.dialogs.save_file(request);
  if (!path) return;
  const QString why = write_pdf(page, QString::fromStdString(*path));
  if (!why.isEmpty())
    app_.session.tell("Recording File Error... " + *path + ": " + why.toStdString());
}

QAction* MainWindow::action(const QString& name) const { return findChild<QAction*>(name); }

void MainWindow::build_menu() {
  QMenuBar* bar = menuBar();
  // A command of the menu; commands without a handler are shown disabled.
  const auto add = [this](QMenu* menu, const char* name, const char* caption,
                          std::function<void()> handler) {
    QAction* a = menu->addAction(QString::fromUtf8(caption));
    a->setObjectName(QLatin1String(name));
    if (handler)
      connect(a, &QAction::triggered, this, [this, handler] { run(handler); });
    else
      a->setEnabled(false);
    return a;
  };
  MainForm& main = app_.main;

  QMenu* file = bar->addMenu(QStringLiteral("&File"));
  file->setObjectName(QStringLiteral("NData"));
  add(file, "NewFile", "&New File/Nouveau fichier", [&main] { main.NewFile_Click(); });
  add(file, "NFile", "Read/&Lecture ", [&main] { main.NFile_Click(); });
  add(file, "NRecord", "&Save/EnRegistre ", [&main] { main.NRecord_Click(); });
  add(file, "HORSLICE", "Extraction for SURFER",
      [this] { HORSLICE(app_.session, show_extraction_form); });
  add(file, "xlsave", "Save for &XL", [this] { export_txl(app_.session); });
  QMenu* convert = file->addMenu(QStringLiteral("&Conversions"));
  convert->setObjectName(QStringLiteral("Nconvert"));
  const std::pair<const char*, const char*> converters[] = {{"Sheet", "&Multiple soundings sheet"},
                                                            {"RES2DINV", "&RES2DINV"},
                                                            {"SAS1000", "SAS&1000 to TX3"},
                                                            {"NAbem", "&ABEM  to TX3"},
                                                            {"Syscal", "&Syscal to TX3"},
                                                            {"Geotrade", "&Geotrade to TX3"},
                                                            {"PASI", "&PASI to TX3"},
                                                            {"astier", "Astier to TX3"},
                                                            {"OYO", "&OYO to TX3"},
                                                            {"Bak_M", "&BAK to TX3"}};
  // The converters built so far; the others are shown disabled.
  const std::map<std::string, std::function<void()>> live = {
      {"Sheet", [this] { multiple_soundings_sheet(app_.session); }},
      {"RES2DINV",
       [this] { RES2DINV(app_.session, [this](R2diForm& f) { show_r2di_dialog(f, this); }); }},
      {"Syscal", [this] { Syscal(app_.session); }},
      {"NAbem", [this] { instrument(Instrument::Abem); }},
      {"SAS1000", [this] { instrument(Instrument::Sas1000); }},
      {"Geotrade", [this] { instrument(Instrument::Geotrade); }},
      {"PASI", [this] { instrument(Instrument::Pasi); }},
      {"astier", [this] { instrument(Instrument::Astier); }},
      {"OYO", [this] { instrument(Instrument::Oyo); }},
      {"Bak_M", [this] { rename_backup(app_.session); }}};
  for (const auto& [name, caption] : converters) {
    const auto handler = live.find(name);
    add(convert, name, caption, handler == live.end() ? nullptr : handler->second);
  }
  add(convert, "Bak_R", "Restore a &backup", [this] { restore_backup(app_.session); });
  file->addSeparator();
  for (int slot = 1; slot <= 5; ++slot) {
    const std::string name = "F" + std::to_string(slot) + "_F";
    const std::string caption = "File &" + std::to_string(slot);
    recent_[static_cast<size_t>(slot)] =
        add(file, name.c_str(), caption.c_str(), [&main, slot] { main.recent_Click(slot); });
  }
  file->addSeparator();
  add(file, "E_M", "&EXIT", [&main] { main.E_M_Click(); });

  QAction* modele = bar->addAction(QStringLiteral("&Model + Calcul"));
  modele->setObjectName(QStringLiteral("NModele"));
  connect(modele, &QAction::triggered, this, [this] { run([this] { app_.model.menu_model(); }); });

  QMenu* calcul = bar->addMenu(QStringLiteral("&Calculation"));
  calcul->setObjectName(QStringLiteral("NCalcul"));
  add(calcul, "N1Calcul", "Calcul", [this, &main] {
    if (main.compute_model)
      main.compute_model();
    else
      show_model_window();
  });
  add(calcul, "NAjust", "Curve fitting/&Ajustage", [this, &main] {
    if (main.fit_model)
      main.fit_model();
    else
      show_model_window();
  });
  add(calcul, "NEquivalence", "Equivalence...", [this] { show_equivalence(); });

  QMenu* util = bar->addMenu(QStringLiteral("&Utility"));
  util->setObjectName(QStringLiteral("Nutil"));
  add(util, "NCalculator", "Calculator", [this] { open_calculator(app_.session, *programs_); });
  add(util, "CopyClipBoard", "Copy to &clipBoard", [&main] {
    if (main.copy_picture) main.copy_picture();
  });

  QMenu* help = bar->addMenu(QStringLiteral("&Help"));
  help->setObjectName(QStringLiteral("NHelp"));
  const auto about = [this] {
    QMessageBox::about(this, QStringLiteral("Tellux 6.4"), q(about_text(app_.s)));
  };
  add(help, "NAuteur", "Author", about);
  add(help, "WS", "About Tellux", about);
  add(help, "Help_US", "Tellux Help", [this] { open_manual(app_.session, *programs_); });
  // The video is there only when one is installed in the manual folder.
  QAction* video = add(help, "video", "Video", [this] {
    if (!programs_->start("xdg-open", video_path()))
      app_.session.tell("Unable to shell " + video_path());
  });
  if (video_path().empty()) {
    video->setEnabled(false);
    video->setToolTip(QStringLiteral("No video is installed in the manual folder"));
    help->setToolTipsVisible(true);
  }
}

void MainWindow::build_toolbar() {
  toolbar_ = addToolBar(QStringLiteral("Toolbar1"));
  toolbar_->setObjectName(QStringLiteral("Toolbar1"));
  toolbar_->setMovable(false);
  toolbar_->setIconSize(QSize(24, 24));
  for (const Tool& tool : kTools) {
    const QString key = QLatin1String(tool.key);
    QAction* a = toolbar_->addAction(toolbar_icon(key), key);
    a->setObjectName(key);
    a->setToolTip(QString::fromUtf8(tool.tip));
    connect(a, &QAction::triggered, this, [this, key] {
      run([this, key] { app_.main.Toolbar1_ButtonClick(key.toStdString()); });
    });
  }
  toolbar_->addSeparator();
  // The place "combo1" holds the language box.
  combo6_ = new QComboBox;
  combo6_->setObjectName(QStringLiteral("Combo6"));
  combo6_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  combo6_->setToolTip(QStringLiteral("Language"));
  toolbar_->addWidget(combo6_);
  connect(combo6_, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (refreshing_ || index < 0) return;
    run([this, index] {
      app_.main.Combo6.ListIndex(index);
      app_.main.Combo6_Click();
    });
  });
}

void MainWindow::wire_forms() {
  forms_.on_caption = [this](const std::string& caption) { setWindowTitle(q(caption)); };
  forms_.on_pointer = [this](PointerTarget target, int shape) {
    switch (target) {
      case PointerTarget::Bilog:
        bilog_->set_pointer(shape);
        break;
      case PointerTarget::MainForm:
        setCursor(shape == kPointerHourglass ? Qt::WaitCursor : Qt::ArrowCursor);
        break;
      case PointerTarget::Screen:
        set_screen_pointer(shape);
        break;
    }
  };
  forms_.on_select_tab = [this](int index) { tabs_->setCurrentIndex(index); };
  forms_.on_current_tab = [this] { return tabs_->currentIndex(); };
  forms_.on_recent_caption = [this](int slot, const std::string& caption) {
    if (slot >= 1 && slot <= 5) recent_[static_cast<size_t>(slot)]->setText(menu_caption(caption));
  };
  forms_.on_repaint = [this] { refresh(); };
  forms_.on_fill_sheet = [this] {
    app_.sheet.refill();
    sheet_->refresh();
  };
  forms_.on_redraw_bilog_frame = [this] {
    app_.main.draw_empty_frame();
    bilog_->update();
  };
  forms_.on_show_sounding_alone = [this] {
    app_.main.show_sounding_alone();
    refresh();
  };
  forms_.on_focus_field_sheet = [this] { sheet_->grid()->setFocus(); };
  forms_.on_beep = [] { QApplication::beep(); };
}

void MainWindow::show_model_window() { forms_.show_model_window(); }

void MainWindow::set_screen_pointer(int shape) {
  if (shape == kPointerHourglass && !screen_busy_) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    screen_busy_ = true;
  } else if (shape != kPointerHourglass && screen_busy_) {
    QApplication::restoreOverrideCursor();
    screen_busy_ = false;
  }
}

bool MainWindow::start() {
  // Help and the clipboard are there when the program has them.
  action(QStringLiteral("Help"))->setEnabled(static_cast<bool>(app_.main.open_manual));
  action(QStringLiteral("Clip_Bd"))->setEnabled(static_cast<bool>(app_.main.copy_picture));
  if (!app_.main.Form_Load()) return false;
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

// The parts take their share of the window as the old form gave them, in twips of 15 to the
// pixel: the tabs 0.97 of the width and 0.89 of the height, the diagram 0.98 and 0.87 of the tabs.
void MainWindow::apply_layout() {
  const int w = width() * kTwipsPerPixel, h = height() * kTwipsPerPixel;
  const MainLayout l = main_layout(w, h);
  QWidget* central = centralWidget();
  const int tab_w = std::min(l.tab_width / kTwipsPerPixel, central->width());
  const int tab_h = std::min(l.tab_height / kTwipsPerPixel, central->height() - 2);
  tabs_->setGeometry((central->width() - tab_w) / 2, 2, tab_w, tab_h);

  const int bar = tabs_->tabBar()->sizeHint().height();
  const int page_h = tab_h - bar - 4;
  // The model window, docked where the screen had no room beside, takes the diagram's right edge.
  const bool docked = model_view_ && model_view_->docked() && model_view_->isVisible();
  if (docked) model_view_->layout()->activate();
  const int dock_w = docked ? model_view_->sizeHint().width() : 0;
  const int bilog_w =
      std::min(l.bilog_width / kTwipsPerPixel, tab_w - 4 - (docked ? dock_w + 6 : 0));
  const int status_h = text1_->sizeHint().height();
  const int bilog_h = std::min(l.bilog_height / kTwipsPerPixel, page_h - status_h - 10);
  const int x = docked ? 2 : std::max(0, (tab_w - 4 - bilog_w) / 2);
  bilog_->setGeometry(x, 4, bilog_w, bilog_h);
  if (docked) model_view_->setGeometry(x + bilog_w + 6, 4, dock_w, page_h - 8);
  const int y = 4 + bilog_h + 4;
  const int text1_w = bilog_w * 34 / 100, name_w = bilog_w * 36 / 100, text3_w = bilog_w * 12 / 100;
  const int gap = 4;
  text1_->setGeometry(x, y, text1_w - gap, status_h);
  name_box_->setGeometry(x + text1_w, y, name_w - gap, status_h);
  text3_->setGeometry(x + text1_w + name_w, y, text3_w - gap, status_h);
  text4_->setGeometry(x + text1_w + name_w + text3_w, y, bilog_w - text1_w - name_w - text3_w,
                      status_h);

  if (!loaded_) return;
  bilog_->fit_surface();
  app_.main.Form_Resize(w, h);
  bilog_->update();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  apply_layout();
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
