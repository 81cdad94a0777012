#include "core/open_flow.h"

#include "core/array_hint.h"
#include "core/file_names.h"
#include "core/max_ab.h"
#include "core/older_formats.h"
#include "core/recent_files.h"
#include "core/runtime/discipline.h"
#include "core/sounding_file.h"

namespace tellux {

namespace {

// Reads the file by the last three letters of its name, compared in upper case only: a lower-case
// "sev" goes to the TX3 reader. Older layouts take the name TX3 afterwards.
void read_by_extension(Session& session) {
  SoundingState& s = session.s;
  const std::string letters = last_three(s.FileName);
  if (letters == "SEV" || letters == "TXE") {
    if (letters == "SEV")
      read_sev_file(session, s.FilePath);
    else
      read_txe_file(session, s.FilePath);
    rename_to_tx3(s.FilePath);
    rename_to_tx3(s.FileName);
    return;
  }
  s.FormatLevel = letters == "TXW" ? 2 : 3;
  read_sounding_file(session, s.FilePath);
  if (letters == "TXW") {
    rename_to_tx3(s.FilePath);
    rename_to_tx3(s.FileName);
  }
}

bool open_with_dialog(Session& session) {
  SoundingState& s = session.s;
  const auto chosen = session.dialogs.open_file({kOpenFilter, "TELLUX File selection", "*.TX3"});
  if (!chosen) {
    session.forms.set_pointer(PointerTarget::Bilog, kPointerCross);
    return false;
  }
  s.FilePath = *chosen;
  s.FileName = bare_name(s.FilePath);
  s.FileDir = directory_part(s.FilePath, s.FileName);
  session.forms.set_main_caption(std::string(kProgramTitle) + " [" + s.FilePath + "]");
  session.forms.set_pointer(PointerTarget::Bilog, kPointerCross);
  open_sounding(session);
  return true;
}

}  // namespace

void open_sounding(Session& session) {
  SoundingState& s = session.s;
  Forms& forms = session.forms;
  rt::skip([&] { enter_recent_file(session, s.FilePath); });
  s.FileName = name_after_last_separator(s.FilePath);
  s.FileDir = directory_part(s.FilePath, s.FileName);
  forms.set_main_caption("Tellux [" + s.FilePath + "]");
  s.FieldTable.erase();
  s.ModelEverComputed = false;
  s.SetupRedrawMark = false;
  forms.set_pointer(PointerTarget::Bilog, kPointerArrow);
  forms.set_pointer(PointerTarget::MainForm, kPointerArrow);
  forms.repaint_main_form();
  s.CommentText.clear();
  s.GraphTitle.clear();
  rt::skip([&] { read_by_extension(session); });
  finish_open(session);
}

void finish_open(Session& session) {
  SoundingState& s = session.s;
  Forms& forms = session.forms;
  find_max_ab(s, s.MaxAbHalf);
  s.WorkMode = mode::kNormal;
  s.FreshStart = false;  // from now on a resize of the main window redraws the diagram
  forms.unload_model_window();
  forms.set_pointer(PointerTarget::Screen, kPointerDefault);
  if (s.LayerModel(1, 1).num() > 0) {
    forms.select_tab(0);
    forms.show_model_window();
  } else {
    forms.show_sounding_alone();
  }
  forms.fill_sheet();
  if (const std::string hint = array_hint(session); !hint.empty()) forms.show_hint(hint);
}

bool Read_TX3(Session& session) {
  session.forms.set_pointer(PointerTarget::Bilog, kPointerHourglass);
  session.s.WorkMode = mode::kNormal;
  return open_with_dialog(session);
}

bool NFile(Session& session) {
  session.forms.set_pointer(PointerTarget::Bilog, kPointerHourglass);
  session.s.ModelEverComputed = false;
  session.s.SetupRedrawMark = false;
  return open_with_dialog(session);
}

void open_recent(Session& session, int slot) {
  SoundingState& s = session.s;
  if (slot < 1 || slot > 5) return;
  s.FilePath = s.RecentFiles[static_cast<size_t>(slot)];
  s.FileName = s.FilePath;
  open_sounding(session);
}

void load_last_file(Session& session) {
  SoundingState& s = session.s;
  s.FilePath = s.RecentFiles[1];
  s.FileName = s.FilePath;
  s.FileDir = directory_part(s.FilePath, s.FileName);
  open_sounding(session);
}

}  // namespace tellux
