// The main window's menu and toolbar: every command of the old form, each handed to its routine;
// the converters, the extraction, the pictures and the recent files.
#include <QAction>
#include <QComboBox>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>
#include <map>

#include "app/picture_export.h"
#include "convert/backups.h"
#include "convert/instruments.h"
#include "convert/multi_sheet.h"
#include "convert/res2dinv.h"
#include "convert/syscal.h"
#include "gui/main_window.h"
#include "gui/r2di_dialog.h"
#include "gui/survey_commands_view.h"
#include "gui/toolbar_icons.h"
#include "gui/toolkit_language.h"
#include "platform/qt/qt_page_painter.h"

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

}  // namespace

// A converter of one instrument's file; the array chosen may change with the file (OYO, PASI).
void MainWindow::instrument(Instrument kind) {
  convert_instrument(app_.session, kind, app_.settings.SevFile);
  static const char* kArrays[] = {"Schlumberger", "Dipole", "Wenner"};
  app_.main.Text4.Text = kArrays[static_cast<int>(app_.s.Spread)];
}

// The preview's pages as one PDF, where the save dialog says; where it went, or why not, is said.
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
  else
    tell_recorded(app_.session, *path);
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
  add(file, "ImportTable", import_table_caption(app_),
      [this] { import_table_command(this, app_); });
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
  add(help, "Help_US", "Tellux Help", [this] { app_.main.open_manual(); });
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
      follow_language(app_.s.Language);
      caption_survey_commands(*this, app_);
    });
  });
}

}  // namespace tellux
