#include "app/model_window.h"

#include <algorithm>

#include "core/runtime/arithmetic.h"
#include "core/sounding_file.h"
#include "model/automatic_model.h"
#include "model/fit.h"
#include "model/forward.h"

namespace tellux {

ModelWindow::ModelWindow(Session& session, DrawingSurface& Bilog, MainFormBoxes boxes)
    : session_(session), s_(session.s), Bilog_(Bilog), boxes_(boxes) {
  nextone.Caption = ">";
  lastone.Caption = "<";
  nextone.Enabled = false;
  lastone.Enabled = false;
  set_captions();
}

void ModelWindow::set_captions() {
  const auto t = [&](const char* fr, const char* es, const char* en) {
    return std::string(session_.text(fr, es, en));
  };
  Caption = t("Traçage modèle", "Trazado modelo", "Drawing up model");
  Grid1.set_text(0, 0, t("Résistivité", "Resistiv.", "Resistivity"));
  Grid1.set_text(0, 1, t("Epaisseur", "Espesor", "Thickness"));
  Grid1.set_text(0, 2, t("Profond.", "Profund.", "Depth"));
  Grid1.set_text(0, 3, t("Altitude", "Altitud", "Altitude"));
  Label3.Caption = t("Sensib. modèle", "Sensib. modelo.", "Model sensit.");
  Label2.Caption = t("B", "L", "L");
  Label4.Caption = "H";
  Frame1.Caption = t(" Commentaires ", " Comentarios ", " Comments ");
  Ajuste_Button.Caption = t("&Ajuste", "&Ajustar", "&Fitting");
  Calcul_Button.Caption = t("&Calcul", "&Computar", "&Compute");
  Record_Button.Caption = t("&Enregistrer", "&Salvar", "&Save");
  delLine.Caption = t("Supprimer ligne", "Borrar linea", "Delete line");
  InsLine.Caption = t("Insérer ligne", "Insertar linea", "Insert line");
  Label1.Caption = t("Superpose courbe", "Superponer curva", "Overlay curve");
  Check18.Caption = Label1.Caption;
}

void ModelWindow::Form_Load() {
  loaded_ = true;
  ModelCellFresh = true;
  Slider1.Value = std::clamp(static_cast<int>(rt::CInt(10 * (s_.ModelSensitivity - 0.03))),
                             Slider1.Min, Slider1.Max);
  // Setting the box runs its click, as the user's would: the record follows the box.
  Check18_Click(s_.SuperposeCurve == -1 ? 0 : 1);
  set_captions();
  set_overlay_number(false);
  if (!boxes_.Name.Text.empty() && !s_.ModelOutdated) set_overlay_number(true);

  for (int r = 1; r <= 20; ++r) s_.LayerLocks[r] = 0;
  RefreshModelGrid();

  if (s_.WorkMode == mode::kAutomatic) {
    // The model was just built by the automatic model: it is fitted at once.
    s_.WorkMode = mode::kNormal;
    ReadModelGrid();
    redraw_bilog_frame();
    ForwardCurve(session_);
    FitModel(session_);
    s_.WorkMode.clear();
  }
  // Opening the window computes the curve.
  Grid1.row = 1;
  Grid1.col = 0;
  Calcul_Button_Click();
}

void ModelWindow::Ajuste_Button_Click() {
  ::tellux::Ajuste_Button_Click(session_, Grid1, *this);
  changed();
}

void ModelWindow::Record_Button_Click() {
  const int row = Grid1.row, col = Grid1.col;
  ReadModelGrid();
  write_sounding_file(session_, s_.FilePath);
  s_.DataSaved = true;
  Grid1.row = row;
  Grid1.col = col;
  focus_grid();
  changed();
}

void ModelWindow::Slider1_Change(int value) {
  Slider1.Value = value;
  // Nothing is computed: the next automatic model uses it.
  s_.ModelSensitivity = value / 10.0 + 0.03;
  focus_grid();
}

void ModelWindow::Check18_Click(int value) {
  Check18.Value = value;
  s_.SuperposeCurve = static_cast<int16_t>(2 * value - 1);
  focus_grid();
}

void ModelWindow::revive_overlay_controls() {
  Check18.Enabled = true;
  changed();
}

void ModelWindow::show_or_compute() {
  if (loaded_) {
    ComputeCurve();
    return;
  }
  // The desktop shows its view and loads the window; without one the window is loaded here.
  session_.forms.show_model_window();
  if (!loaded_) Form_Load();
}

void ModelWindow::menu_model() {
  // A first model from the field curve; the window's load then fits it.
  AutomaticModel(session_);
  if (loaded_) {
    Form_Load();
  } else {
    show_or_compute();
  }
}

void ModelWindow::menu_compute() { show_or_compute(); }

void ModelWindow::menu_fit() {
  if (!loaded_) show_or_compute();
  Ajuste_Button_Click();
}

}  // namespace tellux
