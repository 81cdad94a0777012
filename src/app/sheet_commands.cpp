// Quit and Save: the two ways the sheet hands its data on.
#include "app/field_sheet.h"
#include "core/fill_sheet.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "core/sounding_file.h"
#include "model/forward.h"
#include "model/overlay_store.h"

namespace tellux {

using rt::skip;

namespace {

// Message boxes break their lines with a carriage return and a line feed.
constexpr const char* kLineEnd = "\r\n";

}  // namespace

void FieldSheet::ExitButton_Click() {
  // What was typed since the last Compute goes to the record first, so that the diagram shows it;
  // an untouched sheet (or one emptied by Save) is not data and is left out.
  if (edited_) Compute();
  s_.CellFresh = 1;
  s_.SheetBuilt = false;
  session_.forms.redraw_bilog_frame();
  s_.WorkMode = mode::kNormal;
  const int16_t computed = s_.ModelComputed;
  if (s_.SuperposeCurve == 1) skip([&] { ReplayOverlaysForSheet(session_); });
  if (computed == 1) {
    ForwardCurve(session_);
    DrawCurveOptions(session_);
  }
  s_.WorkMode.clear();
  session_.forms.set_pointer(PointerTarget::Bilog, kPointerCross);
}

bool FieldSheet::save_from_sheet() {
  // The count asked about is that of the sheet as it stands: the data end at the first empty row.
  Compute();
  const std::string n = rt::CStr(s_.FieldCount, rt::Kind::Int16);
  const std::string question =
      std::string(
          session_.text(" Le SE compte ", " El SEV cuenta  ", " Electrical sounding has  ")) +
      n + session_.text(" données", " datos", " data") + kLineEnd +
      session_.text(" Il ne doit pas y avoir de ligne sans résistivité...",
                    "No debe haber línea vacía...", "No empty line allowed among the data...");
  if (session_.dialogs.message(question, Buttons::YesNo, Icon::Question, kProgramTitle) !=
      Answer::Yes)
    return false;
  // Cancel in the save dialog ends the save here.
  if (!write_sounding_file(session_, s_.FilePath)) return false;
  s_.DataSaved = true;
  session_.forms.redraw_bilog_frame();
  return true;
}

void FieldSheet::SaveButton_Click() {
  take_strings();
  save_from_sheet();
  s_.CellFresh = 1;
  for (int r = 1; r <= kSheetRows; ++r)
    for (int c = 1; c <= kSheetColumns; ++c) BuildGrid.set_text(r, c, "");
  edited_ = false;
}

}  // namespace tellux
