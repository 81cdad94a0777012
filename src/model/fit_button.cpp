#include "model/fit_button.h"

#include "core/runtime/number_text.h"
#include "model/automatic_model.h"
#include "model/fit.h"
#include "model/forward.h"

namespace tellux {

namespace {

// Message boxes break their lines with a carriage return and a line feed.
constexpr const char* kLineEnd = "\r\n";

// The store holds at most 20 models: 19 stored plus the one in work.
constexpr int kMostSuperposed = 19;

// The grid's current cell and repaint switch, put back whichever way the click ends.
class GridPlace {
 public:
  explicit GridPlace(GridModel& grid) : grid_(grid), row_(grid.row), col_(grid.col) {
    grid_.redraw = false;
  }
  ~GridPlace() {
    grid_.row = row_;
    grid_.col = col_;
    grid_.redraw = true;
  }
  GridPlace(const GridPlace&) = delete;
  GridPlace& operator=(const GridPlace&) = delete;

 private:
  GridModel& grid_;
  int row_, col_;
};

bool asks_for_automatic_model(Session& session) {
  const std::string question =
      std::string("\r") +
      session.text("Il n'y a pas de modèle déjà crée", "No existe ningun modelo",
                   "No resistivities or thickness are available") +
      kLineEnd +
      session.text("Création automatique d'un modèle ?",
                   "¿Desea una creación automática de modelo?  ", "Automatic model creation ?  ");
  return session.dialogs.message(question, Buttons::YesNo, Icon::Question, kProgramTitle) ==
         Answer::Yes;
}

}  // namespace

void Ajuste_Button_Click(Session& session, GridModel& grid1, ModelWindowActions& window) {
  SoundingState& s = session.s;
  const GridPlace place(grid1);
  const double first_rho = rt::Val(grid1.text(1, 0));
  const double first_thickness = rt::Val(grid1.text(1, 1));

  if (s.SuperposeCurve == 1 && s.HistoryLast >= kMostSuperposed) {
    session.tell(session.text("Maximum 20 sondages superposés", "Maximo 20 sondeos superpuestos",
                              "Maximum 20 soundings superposed"));
    return;
  }
  if (s.FieldTable(2, 1).num() == 0 || s.FieldTable(2, 2).num() == 0 ||
      (first_rho > 0 && first_thickness == 0)) {
    session.tell(session.text("Il faut au moins deux valeurs de terrain et deux terrains",
                              "Introduce por le menos dos datos de campo y dos terrenos",
                              "There must be at least two field values and two layers"));
    return;
  }

  if (first_rho > 0) {
    s.WorkMode = mode::kNormal;
    if (s.SuperposeCurve != 1) {
      window.show_sounding_name();
      window.ReadModelGrid();
      window.ComputeDepths();
    } else {
      window.update_overlay_store();
    }
  } else {
    if (!asks_for_automatic_model(session)) return;
    s.WorkMode = mode::kNormal;
    AutomaticModel(session);
  }

  if (s.ShiftCurves == 1)
    window.show_shift_word(session.text("lissé", "Empalmes compens.", "shifted"));
  if (s.SuperposeCurve == -1) window.redraw_bilog_frame();

  s.FitMisfit = int16_t{0};
  s.WorkMode = mode::kNormal;
  ForwardCurve(session);
  FitModel(session);
  session.forms.refresh_model_grid();

  s.WorkMode.clear();
  s.HistoryBase = 0;
  s.DataSaved = false;
}

}  // namespace tellux
