#pragma once
// The main window `SEV`: menu, toolbar `Toolbar1` with the language box `Combo6`, the tabs of
// `SSTab1`, the diagram with its status line and name boxes, and the start window. It shows the
// models of the program's logic and hands every action of the user to that logic, then shows
// the models again.
#include <QMainWindow>
#include <QPointer>
#include <array>
#include <functional>

#include "app/application.h"
#include "convert/instruments.h"
#include "gui/bilog_widget.h"
#include "gui/extraction_dialog.h"
#include "gui/model_window_view.h"
#include "gui/programs.h"
#include "gui/qt_forms.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_drawing_surface.h"
#include "platform/qt/qt_pictures.h"

class QComboBox;
class QLineEdit;
class QTabWidget;
class QToolBar;

namespace tellux {

class GridView;
class PrintWidget;
class ProfileWidget;
class SetupWidget;
class SheetWidget;
class SplashWindow;

// Twips of the old forms in a pixel of the screen.
inline constexpr int kTwipsPerPixel = 15;

class MainWindow : public QMainWindow {
 public:
  // `dialogs`, when given, gets the window as the parent of its boxes.
  MainWindow(Application& app, QtDrawingSurface& bilog, QtForms& forms,
             QtDialogs* dialogs = nullptr);
  ~MainWindow() override;

  // The start of the program: loads the form, shows the window and the start window. False when
  // the program is not to run (another copy runs): nothing is shown.
  bool start();
  // Shows the models again.
  void refresh();
  // The form of the extraction for contouring; tests answer it themselves.
  std::function<void(ExtractionForm&)> show_extraction_form = [this](ExtractionForm& form) {
    show_extraction_dialog(form, this);
  };

  // The program ended (after leaving was confirmed); by default nothing more happens.
  std::function<void()> on_end;
  bool ended() const { return ended_; }

  QTabWidget* tabs() const { return tabs_; }
  BilogWidget* bilog() const { return bilog_; }
  SheetWidget* sheet() const { return sheet_; }
  SetupWidget* setup() const { return setup_; }
  ProfileWidget* profile() const { return profile_; }
  PrintWidget* print_tab() const { return print_; }
  PrintWidget* section_tab() const { return section_; }
  SplashWindow* splash() const { return splash_; }
  ModelWindowView* model_view() const { return model_view_.get(); }
  QComboBox* language_box() const { return combo6_; }
  QToolBar* toolbar() const { return toolbar_; }
  QLineEdit* status_line() const { return text1_; }
  QLineEdit* name_box() const { return name_box_; }
  QLineEdit* array_box() const { return text4_; }
  // A menu command or a toolbar button by its name ("NFile", "E_M", "open", "stop", ...).
  QAction* action(const QString& name) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void build_menu();
  void build_toolbar();
  QWidget* build_bilog_page();
  void wire_forms();
  void apply_layout();
  void run(const std::function<void()>& action);
  void end_program();
  void set_screen_pointer(int shape);
  void show_model_window();
  void show_equivalence();  // main_window_equivalence.cpp

  Application& app_;
  QtDrawingSurface& surface_;
  QtForms& forms_;
  QTabWidget* tabs_ = nullptr;
  QToolBar* toolbar_ = nullptr;
  QComboBox* combo6_ = nullptr;
  QWidget* bilog_page_ = nullptr;
  BilogWidget* bilog_ = nullptr;
  QLineEdit *text1_ = nullptr, *name_box_ = nullptr, *text3_ = nullptr, *text4_ = nullptr;
  SheetWidget* sheet_ = nullptr;
  SetupWidget* setup_ = nullptr;
  ProfileWidget* profile_ = nullptr;
  PrintWidget* print_ = nullptr;
  PrintWidget* section_ = nullptr;  // the section's preview, tab "SEV Profile"
  std::unique_ptr<QtPictures> pictures_;
  std::unique_ptr<DesktopPrograms> programs_;
  // The preview's pages as one PDF, where the save dialog says.
  void save_pdf(const PageDocument& page, const char* proposed);
  void instrument(Instrument kind);
  SplashWindow* splash_ = nullptr;
  std::unique_ptr<ModelWindowView> model_view_;
  std::array<QAction*, 6> recent_{};
  bool loaded_ = false;
  bool ended_ = false;
  bool screen_busy_ = false;
  bool refreshing_ = false;
};

}  // namespace tellux
