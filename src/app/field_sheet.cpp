#include "app/field_sheet.h"

#include "core/data_dir.h"
#include "core/default_spread.h"
#include "core/fill_sheet.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"

namespace tellux {

using rt::skip;

FieldSheet::FieldSheet(Session& session, const std::string& sev_file)
    : session_(session), s_(session.s), sev_file_(sev_file) {}

void FieldSheet::build_frame() {
  for (int r = 1; r < kBuildGridRows; ++r) BuildGrid.set_text(r, 0, rt::Str(r, rt::Kind::Int16));
  BuildGrid.set_text(0, 0, "");
  for (int c = 3; c <= 6; ++c) {
    static const char* kFixed[] = {"DeltaV", "I", "K", "Resist."};
    BuildGrid.set_text(0, c, kFixed[c - 3]);
  }
}

void FieldSheet::set_captions() {
  const auto t = [&](const char* fr, const char* es, const char* en) {
    return std::string(session_.text(fr, es, en));
  };
  Frame1.Caption = t("Commentaires", "Comentario", "Comment");
  Frame2.Caption = t("Titre du graphique", "Titulo del grafico", "Graph title");
  Frame5.Caption = t("Situation du SEV", "Ubicación del sondeo", "Location of SEV");
  Frame9.Caption = t("SEV sur fond marin", "Sondeo en fondo marino", "Marine floor survey");
  Label25.Caption = t("Résist. eau :", "Resist. agua. :", "Water resist. :");
  Label26.Caption = t("Lissage", "Compensar emp.", "Shifting");
  Label27.Caption = t("Demi-dispositif", "Semi-dispositivo", "Half array");
  Command1.Caption = t("&Nouveau SE", "&Nuevo sondeo", "&New ES");
  Computation.Caption = t("&Calcul", "&Computar", "&Compute");
  CorrectButton.Caption = t("&Supprimer ligne", "&Borrar linea", "&Delete line");
  RecordButton.Caption = t("&Insérer ligne", "&Insertar linea", "&Insert line");
  SaveButton.Caption = t("&Enregistrer", "&Salvar", "&Save");
  ExitButton.Caption = t("&Quitte", "&Salir", "&Quit");
  lissbox.Caption = t("&Lissage", "Compensar &empalme", "s&Hift curve");
}

// Headers are the same in every language; the first two follow the array.
void FieldSheet::set_headers() {
  const SpreadType spread = s_.Spread;
  BuildGrid.set_text(0, 1,
                     spread == SpreadType::Schlumberger ? "MN/2"
                     : spread == SpreadType::Dipole     ? "BN"
                                                        : "-");
  BuildGrid.set_text(0, 2,
                     spread == SpreadType::Schlumberger ? "AB/2"
                     : spread == SpreadType::Dipole     ? "AM"
                                                        : "a");
}

SoundingBoxes FieldSheet::string_boxes() {
  return {XBox, YBox, ZBox, AzimBox, CommentBox, TitleBox};
}

void FieldSheet::show_strings() { tellux::show_strings(s_, string_boxes()); }

void FieldSheet::take_strings() { tellux::take_strings(s_, string_boxes()); }

void FieldSheet::Load_build() {
  if (!s_.SheetBuilt) {
    build_frame();
    s_.SheetBuilt = true;
  }
  set_captions();
  set_headers();
  show_strings();
  // The boxes show the switches as the last file or click left them; setting them is no click.
  lissbox.Value = s_.ShiftCurves == 1 ? 1 : 0;
  Check10.Value = s_.HalfArray == 2 ? 1 : 0;
  s_.ModelEverComputed = false;
  // A typed sounding is "NEW" until its first save.
  if (s_.FileName.empty()) {
    s_.FileName = "NEW";
    session_.forms.set_main_caption(std::string(kProgramTitle) + " [NEW]");
  }
  refill();
}

void FieldSheet::refill() {
  edited_ = false;
  if (s_.FileName != "NEW" || s_.FieldTable(1, 2).num() > 0) {
    fill_sheet(s_, BuildGrid);
    return;
  }
  const int rows = read_default_spread(s_, usable_spread_file(sev_file_, s_.SpreadTag));
  // The first number of a row shows under "MN/2" (or "BN"), the second under "AB/2" (or "AM"); a
  // Wenner file's one number lands in column 2. A 51st row stays in the table only.
  for (int i = 1; i <= rows; ++i) {
    skip([&] {
      BuildGrid.set_text(i, 1, rt::Str(s_.FieldTable(i, 1)));
      BuildGrid.set_text(i, 2, rt::Str(s_.FieldTable(i, 3)));
    });
  }
  for (int i = rows + 1; i <= kSheetRows; ++i) {
    BuildGrid.set_text(i, 1, "");
    BuildGrid.set_text(i, 2, "");
  }
}

void FieldSheet::New_SEV() {
  Forms& forms = session_.forms;
  forms.unload_model_window();
  s_.CellFresh = 1;
  s_.FileName.clear();
  s_.SheetBuilt = false;
  s_.ModelComputed = 0;
  s_.FieldTable.erase();
  s_.LayerModel.erase();
  s_.LayerHistory.erase();
  s_.HistoryCounts.erase();
  s_.LayerCount = 0;
  s_.ModelOutdated = true;
  s_.SuperposeCurve = -1;
  // The location and the data's origin go on to the next sounding until it is saved.
  s_.CommentText.clear();
  s_.GraphTitle.clear();
  // Column 1 is left: the refill of Load_build writes it.
  for (int r = 1; r <= kSheetRows; ++r)
    for (int c = 2; c <= kSheetColumns; ++c) BuildGrid.set_text(r, c, "");
  Load_build();
  forms.redraw_bilog_frame();
}

void FieldSheet::Computation_Click() {
  s_.CellFresh = 1;
  Compute();
}

void FieldSheet::focus_and_compute() {
  session_.forms.focus_field_sheet();
  Computation_Click();
}

void FieldSheet::after_switch() {
  s_.CellFresh = 1;
  Compute();
  session_.forms.redraw_bilog_frame();
  if (session_.forms.current_tab() == 1) session_.forms.focus_field_sheet();
}

void FieldSheet::lissbox_Click() {
  s_.ShiftCurves = static_cast<int16_t>(lissbox.Value);
  after_switch();
}

void FieldSheet::Check10_Click() {
  s_.HalfArray = static_cast<int16_t>(Check10.Value + 1);
  after_switch();
}

}  // namespace tellux
