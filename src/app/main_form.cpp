#include "app/main_form.h"

#include <algorithm>

#include "app/field_sheet.h"
#include "app/setup_tab.h"
#include "core/language.h"
#include "core/open_flow.h"
#include "core/recent_files.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/sounding_file.h"
#include "model/forward.h"
#include "plot/bilog_frame.h"

namespace tellux {

namespace {

constexpr const char* kLineEnd = "\r\n";

int twips(double v) { return static_cast<int>(rt::CLng(v)); }

// The layer count as the model window works it out, for when no model window is connected: the
// model ends at the first row without a thickness, which is the half space.
void count_layers(SoundingState& s) {
  for (int16_t r = 1; r <= 20; ++r) {
    if (s.LayerModel(r, 2).num() == 0) {
      s.LayerCount = r;
      return;
    }
  }
}

}  // namespace

MainLayout main_layout(int width, int height) {
  MainLayout l;
  l.form_width = std::max(width, kMinFormWidth);
  l.form_height = std::max(height, kMinFormHeight);
  l.tab_width = twips(l.form_width * 0.97);
  l.tab_height = twips(l.form_height * 0.89);
  l.bilog_width = twips(l.tab_width * 0.98);
  l.bilog_height = twips(l.tab_height * 0.87);
  l.page_width = l.tab_width - 2500;
  l.page_height = l.tab_height - 800;
  return l;
}

std::string language_name(const std::string& letter) {
  if (letter == "F") return "Français";
  if (letter == "S") return "Español";
  if (letter == "A") return "Deutsch";
  return "English";
}

MainForm::MainForm(Session& session, Settings& settings, std::string settings_path,
                   DrawingSurface& Bilog, SystemServices& system, StartWindow& frmSplash)
    : session_(session),
      s_(session.s),
      settings_(settings),
      settings_path_(std::move(settings_path)),
      Bilog_(Bilog),
      system_(system),
      frmSplash_(frmSplash) {}

void MainForm::draw_empty_frame() {
  s_.WorkMode = "";
  // A field value of 0 let in by a limit held as 0 stops the frame where it is.
  rt::skip([&] { DrawBilogFrame(s_, Bilog_); });
}

void MainForm::show_sounding_alone() {
  NameBox.Text.clear();
  draw_empty_frame();
}

bool MainForm::Form_Load() {
  Forms& forms = session_.forms;
  current_tab = kBilogTab;
  forms.select_tab(kBilogTab);
  s_.ResistScale = 100;
  forms.set_main_caption(kProgramTitle);

  // Every file of the program has the point as its decimal mark.
  if (system_.decimal_separator() == ",") {
    const std::string question =
        std::string(kLineEnd) +
        " Decimal separator is a comma, Tellux can modify the decimal separator" + kLineEnd +
        "a point is required to run correctly all modules! ";
    if (session_.dialogs.message(question, Buttons::YesNo, Icon::None, kProgramTitle) ==
        Answer::Yes)
      system_.use_point_separator();
  }

  if (system_.another_copy_running()) {
    session_.dialogs.tell("Cannot load program again.", Icon::Exclamation,
                          std::string("The requested ") + "application is already open");
    return false;
  }

  load_settings(s_, settings_, settings_path_);
  for (int slot = 1; slot <= 5; ++slot)
    forms.set_recent_caption(slot, recent_caption(slot, s_.RecentFiles[static_cast<size_t>(slot)]));
  static const char* kArrays[] = {"Schlumberger", "Dipole", "Wenner"};
  if (s_.SpreadTag == "0" || s_.SpreadTag == "1" || s_.SpreadTag == "2")
    Text4.Text = kArrays[s_.SpreadTag[0] - '0'];

  s_.Language = language_from_letter(settings_.Langue);
  Combo6.Clear();
  for (const char* name : kLanguageNames) Combo6.AddItem(name);
  const std::string shown = language_name(settings_.Langue);
  for (int i = 0; i < Combo6.ListCount(); ++i)
    if (Combo6.List(i) == shown) Combo6.ListIndex(i);

  draw_empty_frame();
  frmSplash_.set_captions();
  if (sheet_) sheet_->Load_build();
  if (setup_) {
    setup_->Load_parameter();
    setup_->show_colours();
  }

  static const char* kProfileHeader[] = {"File name", "X",        "Y",         "Z",
                                         "Order",     "Distance", "Max. depth"};
  for (int c = 1; c <= 7; ++c) SEV_Grid.set_text(0, c, kProfileHeader[c - 1]);
  if (load_profile) load_profile();

  frmSplash_.Show();
  return true;
}

void MainForm::new_sounding() {
  s_.FileName = "";
  s_.FieldTable.erase();
  s_.LayerModel.erase();
  s_.ModelComputed = 0;
  if (sheet_) sheet_->New_SEV();
  session_.forms.select_tab(kSheetTab);
}

void MainForm::Toolbar1_ButtonClick(const std::string& key) {
  if (key == "open") {
    Read_TX3(session_);
  } else if (key == "save") {
    write_sounding_file(session_, s_.FilePath);
    s_.DataSaved = true;
  } else if (key == "bilog") {
    new_sounding();
  } else if (key == "computation") {
    session_.forms.show_model_window();
  } else if (key == "Help") {
    if (open_manual) open_manual();
  } else if (key == "Clip_Bd") {
    if (copy_picture) copy_picture();
  } else if (key == "stop") {
    E_M_Click();
  }
  // A key "print" has a place in the handler but no button: it is never reached.
}

void MainForm::SSTab1_Click(int index) {
  if (index < 0 || index > 5) return;
  current_tab = index;
  const std::string caption = kTabCaptions[index];
  if (caption == "SEV model") {
    if (sheet_) {
      sheet_->Load_build();
      sheet_->focus_and_compute();
    }
  } else if (caption == "Print Bilog") {
    if (display_print) display_print();
  } else if (caption == "Bilog") {
    // The setup tab was told to redraw: its redraw button is pressed.
    if (s_.SetupRedrawMark && setup_) setup_->Command11_Click();
  } else if (caption == "SEV Profile") {
    if (SEV_Grid.text(1, 1).empty())
      session_.tell("First, you must load SEV files", Icon::Critical);
    else if (display_profile)
      display_profile();
  }
}

MainLayout MainForm::Form_Resize(int width, int height) {
  const MainLayout layout = main_layout(width, height);
  // Nothing is computed yet, or the sounding has no model. Our surface is a new picture at each
  // size, and all the old one could hold is the frame with its marks: that is drawn again. (An
  // empty model would give a flat curve along the bottom edge.)
  if (s_.FreshStart || s_.LayerModel(1, 1).num() <= 0) {
    draw_empty_frame();
    return layout;
  }
  Bilog_.MousePointer(kPointerHourglass);
  s_.WorkMode = mode::kNormal;
  rt::skip([&] { DrawBilogFrame(s_, Bilog_); });
  rt::skip([&] {
    if (ComputeDepths)
      ComputeDepths();
    else
      count_layers(s_);
  });
  rt::skip([&] { ForwardCurve(session_); });
  Bilog_.MousePointer(kPointerCross);
  s_.WorkMode = "";
  return layout;
}

void MainForm::Combo6_Click() {
  session_.forms.unload_model_window();
  s_.Language = {};
  s_.Language.English = false;
  const std::string text = Combo6.Text();
  if (text == "English") {
    s_.Language.English = true;
    settings_.Langue = "E";
  } else if (text == "Español") {
    s_.Language.Spanish = true;
    settings_.Langue = "S";
  } else if (text == "Français") {
    s_.Language.French = true;
    settings_.Langue = "F";
  } else if (text == "Deutsch") {
    s_.Language.German = true;
    settings_.Langue = "A";
  }
  if (sheet_) sheet_->Load_build();
  if (setup_) setup_->Load_parameter();
}

void MainForm::Bilog_MouseMove(float X, float Y) { ShowBilogReadout(s_, Bilog_, Text1, X, Y); }

bool MainForm::leave_program() {
  // The settings keep this run's choices only when the setup tab's box says so.
  if (setup_) settings_.garder_config = setup_->garder_config.Value == 1;
  if (store_profile) store_profile();
  // A settings file that cannot be written is said once; the leaving goes on.
  const bool settings_written = save_settings(s_, settings_, settings_path_);
  if (!settings_written)
    session_.tell(
        std::string(session_.text("Erreur lors de l'enregistrement du fichier...",
                                  "Error al salvar fichero...", "Recording File Error...")) +
        " " + settings_path_);
  const bool go_on = true;
  const std::string question =
      std::string(session_.text("     Vous allez quitter le programme",
                                "     Va a salir del programa", "     You are leaving Tellux")) +
      kLineEnd +
      session_.text("  (Avez-vous pensé à sauver vos données ?)....  ",
                    "  (¿A salvado sus datos?)....  ", "  (Have you saved your data ?)....  ");
  const Answer answer =
      session_.dialogs.message(question, Buttons::YesNoCancel, Icon::Question, kProgramTitle);
  if (answer == Answer::Yes) {
    save_settings(s_, settings_, settings_path_);
    return false;
  }
  if (answer == Answer::No) {
    // The data is not saved yet: the writer asks its own question first.
    save_settings(s_, settings_, settings_path_);
    write_sounding_file(session_, s_.FilePath);
    return false;
  }
  return go_on;
}

void MainForm::E_M_Click() {
  if (!leave_program() && end_program) end_program();
}

void MainForm::NewFile_Click() { new_sounding(); }

void MainForm::NFile_Click() { NFile(session_); }

void MainForm::NRecord_Click() { Toolbar1_ButtonClick("save"); }

void MainForm::recent_Click(int slot) { open_recent(session_, slot); }

}  // namespace tellux
