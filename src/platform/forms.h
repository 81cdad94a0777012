#pragma once
// What the logic asks of the windows beyond dialogs: captions, mouse pointers, the current tab,
// the recent-file menu and the model window. The desktop program implements these on its widgets;
// the headless version records them. Every call has a harmless default so that batch work and
// tests need not care about windows they do not show.
#include <string>

namespace tellux {

// Mouse-pointer shapes, by the numbers the logic uses.
enum Pointer : int {
  kPointerDefault = 0,
  kPointerArrow = 1,
  kPointerCross = 2,
  kPointerHourglass = 11
};

enum class PointerTarget { Screen, MainForm, Bilog };

class Forms {
 public:
  virtual ~Forms() = default;
  virtual void set_main_caption(const std::string& /*caption*/) {}
  virtual void set_pointer(PointerTarget /*target*/, int /*shape*/) {}
  // Makes a tab of the main window current; the tab's change handler runs as the user's would.
  virtual void select_tab(int /*index*/) {}
  // Caption of recent-file menu entry `slot` (1..5).
  virtual void set_recent_caption(int /*slot*/, const std::string& /*caption*/) {}
  virtual void repaint_main_form() {}
  // The model editor window.
  virtual void unload_model_window() {}
  virtual void show_model_window() {}
  // The overlay controls of the model window come back to life after a computed curve
  // (`Check18` enabled, its text and `Label1` in the window-text colour).
  virtual void revive_overlay_controls() {}
  // The model grid `Grid1` is written again from `LayerModel` (after a fit).
  virtual void refresh_model_grid() {}
  // The field sheet is filled from the sounding.
  virtual void fill_sheet() {}
  // The Bilog frame is drawn again with the field marks (`DrawBilogFrame` on the screen); the
  // curves on it are lost.
  virtual void redraw_bilog_frame() {}
  // A sounding without a model was opened: the diagram shows its frame and points alone, with no
  // curve or name left from the sounding before.
  virtual void show_sounding_alone() {}
  // The field sheet `BuildGrid` takes the keyboard focus.
  virtual void focus_field_sheet() {}
  // The short warning sound of a refused command.
  virtual void beep() {}
  // A hint in the main window's status line; nothing else changes.
  virtual void show_hint(const std::string& /*text*/) {}
  // Index of the current tab of `SSTab1`; -1 when there is no main window.
  virtual int current_tab() const { return -1; }
};

}  // namespace tellux
