#pragma once
// The model editor `model`: the small window beside the diagram where the layered model is read
// and edited, one row per layer (resistivity, thickness, and read-only depth and altitude). From
// it the curve is computed, fitted and saved, layers are inserted and deleted, single values are
// fixed against the fit, the sensitivity of the automatic model is set, and the stored models of
// the overlay are walked through. The window is not the model: `LayerModel` is; the grid is read
// into it and written out from it at fixed moments.
//
// The logic works on control models; a view shows them and forwards the user's actions to the
// handlers below, then repaints from the models.
#include <string>

#include "app/sounding_boxes.h"
#include "core/session.h"
#include "model/fit_button.h"
#include "platform/controls.h"
#include "platform/drawing_surface.h"
#include "platform/grid_model.h"

namespace tellux {

// The boxes of the main form that the window reads and writes.
struct MainFormBoxes {
  TextBox& X;
  TextBox& Y;
  TextBox& Z;
  TextBox& Azimuth;
  TextBox& Comment;
  TextBox& Title;
  TextBox& Name;   // the sounding's name, with the names of the superposed models
  TextBox& Text3;  // the state of the field data: the word of the splice shift
};

struct Slider {
  int Min = 0;
  int Max = 10;
  int Value = 0;
};

// What the logic asks of whatever shows it.
class ModelWindowDisplay {
 public:
  virtual ~ModelWindowDisplay() = default;
  // The controls changed outside an event of the view (a fit from the menu, a refresh asked by
  // the fit): show them again.
  virtual void changed() {}
  // `Grid1` takes the keyboard focus.
  virtual void focus_grid() {}
};

// Key codes of the keyboard as the handlers receive them.
namespace key {
inline constexpr int kBackspace = 8;
inline constexpr int kLeft = 37;
inline constexpr int kUp = 38;
inline constexpr int kRight = 39;
inline constexpr int kDown = 40;
inline constexpr int kPoint = 46;  // the point once the key has been mapped
inline constexpr int kPad0 = 96;   // the keypad's digits 96..105
inline constexpr int kPadPoint = 110;
inline constexpr int kPeriod = 190;
}  // namespace key

class ModelWindow : public ModelWindowActions {
 public:
  // `Bilog` is the diagram the frame is redrawn on; `boxes` are the main form's text boxes.
  ModelWindow(Session& session, DrawingSurface& Bilog, MainFormBoxes boxes);
  const LanguageFlags& language() const { return session_.s.Language; }

  // Controls. `Grid1`: row 0 heads, rows 1 to 20 layers; columns resistivity, thickness, depth,
  // altitude. Every number in it is its text followed by two blanks.
  GridModel Grid1{21, 4};
  TextBox Grid2;  // number of the stored model shown
  Button Calcul_Button, Ajuste_Button, Record_Button, delLine, InsLine, nextone, lastone;
  CheckBox Check18;  // superpose the next curve; its caption is `Label1`
  Label Label1;
  Slider Slider1;                // sensitivity of the automatic model
  Label Label3, Label2, Label4;  // the slider's caption and its low and high ends
  Label Frame1;                  // the comments box
  std::string Caption;
  // The window's place beside the diagram, in twips.
  static constexpr int kTop = 2200;
  static constexpr int kLeft = 9792;
  // Column widths and row heights of `Grid1`, in twips; its font is Arial 8, not bold.
  static constexpr int kColumnWidths[4] = {832, 800, 800, 850};
  static constexpr int kHeadHeight = 220;
  static constexpr int kRowHeight = 200;

  void set_display(ModelWindowDisplay* display) { display_ = display; }
  // The main form's boxes; the window shows the comment in `Frame1`.
  const MainFormBoxes& boxes() const { return boxes_; }
  bool loaded() const { return loaded_; }
  // The next key typed replaces the cell instead of adding to it.
  bool ModelCellFresh = true;

  // --- The form. ---
  // Fills the window from the record and computes the curve (the model window opens).
  void Form_Load();
  // The window is closed; the next show loads it again.
  void Form_Unload() { loaded_ = false; }
  // Captions in the language of the record.
  void set_captions();

  // --- The grid and the record (model_grid.cpp). ---
  // `Grid1` and the six boxes into the record, then `RefreshModelGrid`. A failure leaves the model
  // as far as it was read.
  void ReadModelGrid() override;
  SoundingBoxes string_boxes();
  // The record into `Grid1` (after `ComputeDepths`) and the six strings into the boxes.
  void RefreshModelGrid();
  // `LayerCount`, depths and altitudes from `LayerModel`.
  void ComputeDepths() override;

  // --- Typing and the layer buttons (model_keys.cpp). ---
  // A key pressed in `Grid1`, by key code. Arrows also move the current cell as the grid does.
  void Grid1_KeyDown(int KeyCode);
  // The user puts the cursor on a cell (mouse or keyboard): the next key replaces its text.
  void Grid1_Click(int row, int col);
  // The end of an entry (Enter): the cursor moves one row down.
  void Grid1_AfterEdit();
  // Fixes or frees the value under the cursor against the fit.
  void Grid1_DblClick();
  void delLine_Click();
  void InsLine_Click();

  // --- Buttons (model_window.cpp). ---
  void Calcul_Button_Click() { ComputeCurve(); }
  void Ajuste_Button_Click();
  void Record_Button_Click();
  void Slider1_Change(int value);
  void Check18_Click(int value);
  // The overlay controls come back to life after a computed curve.
  void revive_overlay_controls();

  // --- Overlays (model_overlay.cpp). ---
  // Reads the grid, computes and draws the curve; with the overlay box ticked, the model in work
  // joins the store first.
  void ComputeCurve();
  // Redraws every stored curve and brings slot `HistoryShown` + 1 to the grid.
  void ShowOverlaySet();
  void nextone_Click();
  void lastone_Click();

  // --- The main window's menu. ---
  // "&Model + Calcul": shows the window (its load computes the curve), or computes when it is
  // already open.
  void menu_model();
  // "Calcul": the curve of the grid's model.
  void menu_compute();
  // "Curve fitting/&Ajustage": the fit button, the window shown first.
  void menu_fit();

  // --- What the fit button calls (ModelWindowActions). ---
  void show_sounding_name() override;
  void update_overlay_store() override;
  void show_shift_word(const std::string& word) override;
  void redraw_bilog_frame() override;

 private:
  void changed() const {
    if (display_) display_->changed();
  }
  void focus_grid() const {
    if (display_) display_->focus_grid();
  }
  void beep() { session_.forms.beep(); }
  void show_or_compute();

  // model_grid.cpp
  void paint_locks(int row);
  void blank_row(int row);
  bool z_given() const;
  // model_keys.cpp
  void type_in_cell(int KeyCode);
  void move_cursor(int KeyCode);
  void move_row(int from, int to, double depth_change, double altitude_change);
  // model_overlay.cpp
  bool refuse_compute();
  void store_model_in_work();
  void set_overlay_number(bool shown);
  std::string name_without_extension() const;

  Session& session_;
  SoundingState& s_;
  DrawingSurface& Bilog_;
  MainFormBoxes boxes_;
  ModelWindowDisplay* display_ = nullptr;
  bool loaded_ = false;
};

}  // namespace tellux
