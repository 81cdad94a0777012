#include "app/setup_tab.h"

#include <cmath>
#include <initializer_list>

#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "model/forward.h"
#include "model/overlay_store.h"
#include "plot/bilog_frame.h"

namespace tellux {

namespace {

// The items carry leading blanks that right-align them in the list; each is read back by its
// numeric value.
void fill(ListModel& list, std::initializer_list<const char*> items) {
  list.Clear();
  for (const char* item : items) list.AddItem(item);
}

// The exponent of a range's value: the nearest whole number to the exact log10 (not the
// drawing's 0.4343).
int16_t exponent_of(double value) { return rt::CInt(rt::Log(value) / std::log(10.0)); }

}  // namespace

void AskColourGrid(Session& session) {
  const Answer a = session.dialogs.message("Do you want a color grid", Buttons::YesNo,
                                           Icon::Question, kProgramTitle);
  session.s.ColourGrid = a == Answer::Yes;
}

SetupTab::SetupTab(Session& session, DrawingSurface& Bilog, TextBox& Text1, TextBox& Text4,
                   GridModel* BuildGrid)
    : session_(session),
      s_(session.s),
      Bilog_(Bilog),
      Text1_(Text1),
      Text4_(Text4),
      BuildGrid_(BuildGrid) {
  Options.Captions = {"Schlumberger", "Dipole", "Wenner"};
  Command4.Caption = "Points color";
  Command5.Caption = "Grid color";
  Command6.Caption = "Model color";
  Command7.Caption = "Error color";
  Command8.Caption = "Superposed curve";
  Command12.Caption = "Curve color";
}

void SetupTab::set_captions() {
  const auto t = [&](const char* fr, const char* es, const char* en) {
    return std::string(session_.text(fr, es, en));
  };
  Frame10.Caption = t("Options du dessin", "Optiones de trazado", "Drawing options");
  Frame7.Caption = t("Paramètres de dessin", "Parámetros de trazado", "Drawing parameters");
  Frame8.Caption =
      t("Choix des couleurs de résisitivité", "Colores de resistividades", "Resistivity colors");
  Label5.Caption = t("Décimales épaisseurs", "Decimalas espessores", "Decimals thickness");
  ArrayFrame.Caption = t("Dispositif", "Dispositivo", "Array");
  Command11.Caption = t("Redessiner", "Redibujar", "Redraw");
  represent_modele.Caption =
      t("Représentation graphique du modèle", "Representación gráfica del modelo",
        "Graphic representation of model");
  garder_config.Caption =
      t("Garder la configuration en sortant", "Salvar opciones", "Save options");
  RMSB.Caption = t("Représentation graphique de l'erreur d'ajustement",
                   "Representación gráfica de los errores de ajuste",
                   "Graphic representation of adjustment error");
  accurate_curves.Caption = t("Courbes précises", "Curvas precisas", "Accurate curves");
}

void SetupTab::Load_parameter() {
  s_.HalfArray = 1;
  RMSB.Value = s_.ShowErrorCurve == 1 ? 1 : 0;
  represent_modele.Value = s_.ShowModelSteps == 1 ? 1 : 0;
  accurate_curves.Value = s_.AccurateCurves ? 1 : 0;

  fill(Combo1, {"       0.1", "          1", "        10"});
  fill(Combo2, {"        10", "      100", "    1000", "  10000"});
  fill(Combo3, {"      0.01", "       0.1", "          1", "        10", "      100"});
  fill(Combo4, {"        10", "      100", "    1000", "  10000", "100000", "1000000"});
  fill(Combo5, {"     Auto", "         1", "         2"});
  // An exponent outside a list's items leaves that list without a choice; the redraw then keeps
  // the range as it stands.
  Combo1.ListIndex(s_.DecadeStart + 1);
  Combo2.ListIndex(s_.DecadeEnd - 1);
  Combo3.ListIndex(s_.RhoDecadeStart + 2);
  Combo4.ListIndex(static_cast<int>(s_.RhoDecadeEnd) - 1);
  Combo5.ListIndex(0);
  s_.ThicknessDecimals = static_cast<int16_t>(Combo5.ListIndex());  // Auto at each start

  set_captions();

  if (s_.SpreadTag == "0") Option_Click(0);
  if (s_.SpreadTag == "1") Option_Click(1);
  if (s_.SpreadTag == "2") Option_Click(2);
}

void SetupTab::show_colours() {
  Picture1.BackColor = s_.BackColour;
  Picture2.BackColor = s_.PointsColour;
  Picture3.BackColor = s_.GridColour;
  Picture4.BackColor = s_.ModelColour;
  Picture5.BackColor = s_.ErrorColour;
  Text16.BackColor = s_.SuperposedColour;
}

void SetupTab::Option_Click(int index) {
  Options.Value = index;
  static constexpr SpreadType kSpreads[] = {SpreadType::Schlumberger, SpreadType::Dipole,
                                            SpreadType::Wenner};
  if (index >= 0 && index <= 2) s_.Spread = kSpreads[index];
}

void SetupTab::read_ranges() {
  struct Range {
    const ListModel& list;
    int16_t* value16;
    int32_t* value32;
    int16_t* exponent16;
    int32_t* exponent32;
  };
  const Range ranges[] = {
      {Combo1, &s_.AB2min, nullptr, &s_.DecadeStart, nullptr},
      {Combo2, &s_.AB2max, nullptr, &s_.DecadeEnd, nullptr},
      {Combo3, &s_.RHOmin, nullptr, &s_.RhoDecadeStart, nullptr},
      {Combo4, nullptr, &s_.RHOmax, nullptr, &s_.RhoDecadeEnd},
  };
  for (const Range& r : ranges) {
    if (r.list.ListIndex() < 0) continue;
    const double value = rt::Val(r.list.Text());
    // Rounded half to even into the field: the choices 0.1 and 0.01 are held as 0.
    if (r.value16) *r.value16 = rt::CInt(value);
    if (r.value32) *r.value32 = rt::CLng(value);
    if (r.exponent16) *r.exponent16 = exponent_of(value);
    if (r.exponent32) *r.exponent32 = exponent_of(value);
  }
}

void SetupTab::Command11_Click() {
  using rt::skip;
  // The field sheet's headings follow the array; the sheet is filled again.
  const bool schlumberger = Options.is_set(0), dipole = Options.is_set(1);
  if (BuildGrid_) {
    skip([&] {
      BuildGrid_->set_text(0, 1, schlumberger ? "MN/2" : dipole ? "BN" : "-");
      BuildGrid_->set_text(0, 2, schlumberger ? "AB/2" : dipole ? "AM" : "a");
    });
  }
  session_.forms.fill_sheet();
  if (BuildGrid_) {
    BuildGrid_->row = 1;
    BuildGrid_->col = 1;
  }
  set_captions();
  s_.ThicknessDecimals = static_cast<int16_t>(Combo5.ListIndex());
  skip([&] { read_ranges(); });
  s_.ShowErrorCurve = RMSB.Value == 1 ? 1 : 0;
  if (s_.ModelOutdated) s_.SuperposeCurve = -1;
  // Unticked is -1, not 0: every test is against 1.
  s_.ShowModelSteps = represent_modele.Value == 1 ? 1 : -1;
  s_.KeepConfiguration = garder_config.Value == 1 ? 1 : 0;
  s_.AccurateCurves = accurate_curves.Value == 1;

  // A field value of 0 let in by a limit held as 0 stops the frame; the redraw goes on.
  skip([&] { DrawBilogFrame(s_, Bilog_); });
  s_.WorkMode = mode::kNormal;
  s_.FitMisfit = Cell(int16_t{0});
  s_.ColourGrid = false;
  skip([&] { replay_models(); });
  s_.WorkMode = "";

  // Neither of the first two buttons set means Wenner.
  const int spread = Options.is_set(0) ? 0 : Options.is_set(1) ? 1 : 2;
  static const char* kNames[] = {"Schlumberger", "Dipole", "Wenner"};
  static const char* kTags[] = {"0", "1", "2"};
  Text4_.Text = kNames[spread];
  s_.SpreadTag = kTags[spread];
}

// The stored models come out in the superposed colour, the current one in its own colours.
void SetupTab::replay_models() {
  KeepModelInWork(s_);
  if (s_.SuperposeCurve == 1) ReplayStoredModels(session_, s_.HistoryLast + s_.HistoryBase);
  s_.ColourGrid = true;
  if (s_.ModelCurve(1, 1).num() > 0) {
    LoadModelFromSlot(s_, s_.HistoryShown + 1);
    ForwardCurve(session_);
    DrawCurveOptions(session_);
  }
}

void SetupTab::pick_colour(const char* title, int32_t& colour, int32_t& sample) {
  // The dialog starts on the sample's colour; Cancel leaves both as they are.
  const auto chosen = session_.dialogs.colour(title, sample);
  if (!chosen) return;
  colour = *chosen;
  sample = colour;
}

void SetupTab::Command4_Click() {
  pick_colour("Tellux Curve color selection", s_.PointsColour, Picture2.BackColor);
}
void SetupTab::Command5_Click() {
  pick_colour("Tellux Curve color selection", s_.GridColour, Picture3.BackColor);
}
void SetupTab::Command6_Click() {
  pick_colour("Tellux Model color selection", s_.ModelColour, Picture4.BackColor);
}
void SetupTab::Command7_Click() {
  pick_colour("Tellux Error curve color selection", s_.ErrorColour, Picture5.BackColor);
}
void SetupTab::Command8_Click() {
  pick_colour("Tellux superposed curve color", s_.SuperposedColour, Text16.BackColor);
}
void SetupTab::Command12_Click() {
  pick_colour("Tellux Points color selection", s_.CurveColour, Picture1.BackColor);
  s_.BackColour = Picture1.BackColor;  // the sample's colour is kept with the settings
}

void SetupTab::Picture4_MouseMove() {
  Text1_.Text = session_.text("Nouveau SE ou corrections", "Nuevo sondeo o correcciónes",
                              "New sounding or corrections");
}

void SetupTab::Picture5_MouseMove() {
  Text1_.Text = session_.text("Entrer un nouveau fichier", "Entre nuevo fichero", "Enter new File");
}

}  // namespace tellux
