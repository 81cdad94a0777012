#pragma once
// The main window `SEV`: its start-up, the toolbar's keys, the rules of the tabs of `SSTab1`, the
// proportions kept when it is resized, the language box `Combo6` and the leaving of the program.
// The window's controls that the logic reads and writes (the status line, the name boxes, the
// language box, the profile table) are models here; the desktop program shows them.
#include <functional>
#include <string>

#include "app/start_window.h"
#include "core/session.h"
#include "core/settings.h"
#include "platform/controls.h"
#include "platform/drawing_surface.h"
#include "platform/grid_model.h"
#include "platform/system_services.h"

namespace tellux {

class FieldSheet;
class SetupTab;

// Captions of the tabs of `SSTab1`, in their order. The handlers compare these English captions:
// the tabs keep them in every language.
inline constexpr const char* kTabCaptions[6] = {"Bilog",       "SEV model",    "Print Bilog",
                                                "Bilog Setup", "Profile data", "SEV Profile"};
inline constexpr int kBilogTab = 0;
inline constexpr int kSheetTab = 1;

// Sizes in twips that the main window's resize gives its parts.
struct MainLayout {
  int form_width = 0, form_height = 0;    // after the minimum is applied
  int tab_width = 0, tab_height = 0;      // `SSTab1`
  int bilog_width = 0, bilog_height = 0;  // `Bilog`
  int page_width = 0, page_height = 0;    // `VSPrint`, `VSPrint1` and the frames beside them
};

inline constexpr int kMinFormWidth = 10440;  // twips
inline constexpr int kMinFormHeight = 8300;

// The proportions of the main window's parts for a form of `width` x `height` twips.
MainLayout main_layout(int width, int height);

// The language box's names, in the order the box lists them.
inline constexpr const char* kLanguageNames[4] = {"Français", "Deutsch", "Español", "English"};
// The name of a language letter in `Combo6` ("E" English, "S" Español, "F" Français, "A" Deutsch).
std::string language_name(const std::string& letter);

class MainForm {
 public:
  MainForm(Session& session, Settings& settings, std::string settings_path, DrawingSurface& Bilog,
           SystemServices& system, StartWindow& frmSplash);
  // The parts built beside the form; both are needed before `Form_Load`.
  void attach(SetupTab& setup, FieldSheet& sheet) {
    setup_ = &setup;
    sheet_ = &sheet;
  }

  TextBox Text1;              // the status line: mouse read-out and hints
  TextBox NameBox;            // the sounding's name (and those of superposed models)
  TextBox Text3;              // the state of the field data: shifted or not
  TextBox Text4;              // the electrode array
  ListModel Combo6;           // the language
  GridModel SEV_Grid{51, 8};  // the profile's soundings, header row 0
  int current_tab = kBilogTab;

  // Start-up. Returns false when the form unloads at once (another copy runs); the program then
  // ends. The start window is to be shown afterwards.
  bool Form_Load();

  // A click on a toolbar button, by its key.
  void Toolbar1_ButtonClick(const std::string& key);
  // The tab `index` became current.
  void SSTab1_Click(int index);
  // The form was resized to `width` x `height` twips: the sizes of its parts, after the diagram
  // is drawn again (unless nothing was opened or computed since the start).
  MainLayout Form_Resize(int width, int height);
  // The selection of `Combo6` changed.
  void Combo6_Click();
  // The mouse pressed or moved over the diagram, at logical (X, Y): the read-out in `Text1`.
  void Bilog_MouseMove(float X, float Y);

  // Runs on the menu's EXIT, the toolbar's "stop" and the closing of the window. Returns true
  // while the program goes on (the closing is then cancelled); false when it is to end.
  bool leave_program();
  // EXIT and the toolbar's "stop": leave_program, then the end of the program.
  void E_M_Click();

  // File menu.
  void NewFile_Click();         // a new sounding, as the toolbar's "bilog"
  void NFile_Click();           // open a sounding
  void NRecord_Click();         // save it under its path
  void recent_Click(int slot);  // F1_F..F5_F

  // Routines that live in other windows; the program connects them.
  std::function<void()> end_program;      // the program ends without asking
  std::function<void()> ComputeDepths;    // the model window's depths and layer count
  std::function<void()> compute_model;    // the model window's computation (`N1Calcul`)
  std::function<void()> fit_model;        // the model window's fit (`NAjust`)
  std::function<void()> open_manual;      // the manual ("Help")
  std::function<void()> copy_picture;     // the diagram to the clipboard ("Clip_Bd")
  std::function<void()> display_print;    // the report preview ("Print Bilog")
  std::function<void()> display_profile;  // the section ("SEV Profile")
  std::function<void()> load_profile;     // the tab "Profile data" from the settings
  std::function<void()> store_profile;    // its boxes back to the settings

  const std::string& settings_path() const { return settings_path_; }

  void draw_empty_frame();
  // The name box emptied and the frame drawn with the points of the sounding just opened.
  void show_sounding_alone();

 private:
  void new_sounding();
  void set_language_from_box();

  Session& session_;
  SoundingState& s_;
  Settings& settings_;
  std::string settings_path_;
  DrawingSurface& Bilog_;
  SystemServices& system_;
  StartWindow& frmSplash_;
  SetupTab* setup_ = nullptr;
  FieldSheet* sheet_ = nullptr;
};

}  // namespace tellux
