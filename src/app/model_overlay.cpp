// The overlay of models: with `Check18` ticked, each computed model joins the store and its curve
// stays on the diagram; `nextone` and `lastone` walk through the store, drawing every curve again
// and bringing the chosen model back to the grid.
#include "app/model_window.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "model/forward.h"
#include "model/overlay_store.h"
#include "plot/bilog_frame.h"

namespace tellux {

namespace {

// 19 stored models and the one in work make the 20 that the message speaks of.
constexpr int kMostStored = 19;
// Slots go up to 21: `HistoryLast` stops at 20.
constexpr int kLastSlotNumber = 20;

}  // namespace

std::string ModelWindow::name_without_extension() const {
  // A name shorter than its extension has nothing to show.
  if (s_.FileName.size() < 4) rt::raise(rt::kInvalidCall);
  return s_.FileName.substr(0, s_.FileName.size() - 4);
}

void ModelWindow::show_sounding_name() {
  if (s_.FileName == "NEW") return;
  rt::skip([&] { boxes_.Name.Text = name_without_extension(); });
}

void ModelWindow::show_shift_word(const std::string& word) { boxes_.Text3.Text = word; }

void ModelWindow::redraw_bilog_frame() {
  rt::skip([&] { DrawBilogFrame(s_, Bilog_); });
}

void ModelWindow::set_overlay_number(bool shown) {
  Grid2.Text = shown ? rt::CStr(s_.HistoryShown + 1) : "";
  nextone.Enabled = shown;
  lastone.Enabled = shown;
}

bool ModelWindow::refuse_compute() {
  const bool thickness_missing = rt::Val(Grid1.text(1, 1)) == 0;
  const bool store_full = s_.SuperposeCurve == 1 && s_.HistoryLast >= kMostStored;
  if (!thickness_missing && !store_full) return false;
  // A sounding being typed has nothing to complain about yet.
  if (s_.FileName != "NEW") {
    if (thickness_missing) {
      session_.tell(session_.text("Il manque une valeur", "Faltan datos...", "Value missing..."));
    } else {
      session_.tell(session_.text("Maximum 20 sondages superposés",
                                  "Maximo 20 sondeos superpuestos",
                                  "Maximum 20 soundings superposed"));
    }
  }
  return true;
}

// Without the overlay (or with a model of one layer) the store is emptied; with it, the model in
// work joins the store, unless a reading has just stored it (`OverlayHold`).
void ModelWindow::store_model_in_work() {
  if (s_.SuperposeCurve != 1 || s_.LayerCount < 2) {
    s_.HistoryLast = 0;
    s_.HistoryShown = 0;
    set_overlay_number(false);
    s_.LayerHistory.erase();
    show_sounding_name();
  } else if (s_.OverlayHold == 0) {
    if (s_.HistoryLast < kLastSlotNumber) {
      ++s_.HistoryLast;
      s_.HistoryShown = s_.HistoryLast;
    }
    if (!s_.ModelOutdated) set_overlay_number(true);
    if (s_.HistoryBase == 1) {
      // In review the model shown is drawn again without being stored.
      s_.ColourGrid = false;
      ForwardCurve(session_);
      DrawCurveOptions(session_);
    } else {
      StoreModelInSlot(s_, s_.HistoryLast);
    }
    if (s_.FileName != "NEW")
      rt::skip([&] { boxes_.Name.Text += ", " + name_without_extension(); });
  }
  s_.OverlayHold = 0;
}

void ModelWindow::update_overlay_store() {
  rt::skip([&] { store_model_in_work(); });
  s_.ColourGrid = true;
  // The fit works on the model typed in the grid.
  ReadModelGrid();
}

void ModelWindow::ComputeCurve() {
  using rt::skip;
  Forms& forms = session_.forms;
  Grid1.redraw = false;
  const int row = Grid1.row, col = Grid1.col;
  ModelCellFresh = true;
  const auto pointers_back = [&] {
    forms.set_pointer(PointerTarget::Bilog, kPointerCross);
    forms.set_pointer(PointerTarget::MainForm, kPointerArrow);
  };
  const auto place_back = [&] {
    Grid1.row = row;
    Grid1.col = col;
    Grid1.redraw = true;
  };
  if (refuse_compute()) {
    pointers_back();
    place_back();
    changed();
    return;
  }

  skip([&] { store_model_in_work(); });
  boxes_.Text3.Text =
      s_.ShiftCurves == 1 ? session_.text("Lissé", "Empalmes compens.", "Shifted") : "";
  forms.set_pointer(PointerTarget::Bilog, kPointerHourglass);
  forms.set_pointer(PointerTarget::MainForm, kPointerHourglass);
  s_.WorkMode = mode::kNormal;
  if (s_.SuperposeCurve == -1) {
    ReadModelGrid();
    redraw_bilog_frame();
  } else if (s_.HistoryBase == 1) {
    // Out of review: the last stored model is drawn among the others, then the grid's own.
    ReadModelGrid();
    s_.ColourGrid = true;
    skip([&] { LoadModelFromSlot(s_, s_.HistoryLast); });
    s_.ColourGrid = false;
    ForwardCurve(session_);
    ReadModelGrid();
    s_.ColourGrid = true;
  } else {
    // The model typed in the grid is the one computed; the one before it is in the store.
    ReadModelGrid();
  }
  ForwardCurve(session_);
  s_.WorkMode.clear();
  s_.HistoryBase = 0;
  s_.DataSaved = false;

  pointers_back();
  place_back();
  focus_grid();
  forms.select_tab(0);
  changed();
}

void ModelWindow::ShowOverlaySet() {
  using rt::skip;
  Forms& forms = session_.forms;
  forms.set_pointer(PointerTarget::Bilog, kPointerHourglass);
  s_.WorkMode = mode::kNormal;
  s_.FitMisfit = int16_t{0};
  // Every stored curve in the superposed colour, the model in work among them.
  s_.ColourGrid = false;
  skip([&] { KeepModelInWork(s_); });
  skip([&] { ReplayStoredModels(session_, s_.HistoryLast + 1); });
  s_.ColourGrid = true;
  // The chosen model in the grid and in its own colours.
  skip([&] { LoadModelFromSlot(s_, s_.HistoryShown + 1); });
  RefreshModelGrid();
  ForwardCurve(session_);
  DrawCurveOptions(session_);
  s_.WorkMode.clear();
  s_.HistoryBase = 1;
  forms.set_pointer(PointerTarget::Bilog, kPointerCross);
  forms.set_pointer(PointerTarget::MainForm, kPointerArrow);
}

void ModelWindow::nextone_Click() {
  if (s_.HistoryShown == s_.HistoryLast || s_.ModelOutdated) {
    beep();
    focus_grid();
    return;
  }
  const int row = Grid1.row, col = Grid1.col;
  ++s_.HistoryShown;
  Grid2.Text = rt::CStr(s_.HistoryShown + 1);
  ShowOverlaySet();
  Grid1.row = row;
  Grid1.col = col;
  focus_grid();
  changed();
}

void ModelWindow::lastone_Click() {
  if (s_.HistoryShown == 0 || s_.ModelOutdated) {
    beep();
    focus_grid();
    return;
  }
  const int row = Grid1.row, col = Grid1.col;
  --s_.HistoryShown;
  Grid2.Text = rt::CStr(s_.HistoryShown + 1);
  ShowOverlaySet();
  Grid1.row = row;
  Grid1.col = col;
  focus_grid();
  changed();
}

}  // namespace tellux
