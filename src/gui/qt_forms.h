#pragma once
// The windows' side of the logic's calls (`Forms`) in the desktop program. The main window sets
// the slots of the calls it answers itself; the model window's calls are slots that the model
// window fills when it is built. A slot left empty does nothing.
#include <functional>
#include <string>

#include "platform/forms.h"

namespace tellux {

class QtForms : public Forms {
 public:
  std::function<void(const std::string&)> on_caption;
  std::function<void(PointerTarget, int)> on_pointer;
  std::function<void(int)> on_select_tab;
  std::function<void(int, const std::string&)> on_recent_caption;
  std::function<void()> on_repaint;
  std::function<void()> on_fill_sheet;
  // The model editor window.
  std::function<void()> on_unload_model_window;
  std::function<void()> on_show_model_window;
  std::function<void()> on_revive_overlay_controls;
  std::function<void()> on_refresh_model_grid;
  std::function<void()> on_redraw_bilog_frame;
  std::function<void()> on_show_sounding_alone;
  std::function<void()> on_focus_field_sheet;
  std::function<void()> on_beep;
  std::function<void(const std::string&)> on_hint;
  std::function<int()> on_current_tab;

  void set_main_caption(const std::string& caption) override { call(on_caption, caption); }
  void set_pointer(PointerTarget target, int shape) override { call(on_pointer, target, shape); }
  void select_tab(int index) override { call(on_select_tab, index); }
  void set_recent_caption(int slot, const std::string& caption) override {
    call(on_recent_caption, slot, caption);
  }
  void repaint_main_form() override { call(on_repaint); }
  void unload_model_window() override { call(on_unload_model_window); }
  void show_model_window() override { call(on_show_model_window); }
  void revive_overlay_controls() override { call(on_revive_overlay_controls); }
  void refresh_model_grid() override { call(on_refresh_model_grid); }
  void fill_sheet() override { call(on_fill_sheet); }
  void redraw_bilog_frame() override { call(on_redraw_bilog_frame); }
  void show_sounding_alone() override { call(on_show_sounding_alone); }
  void focus_field_sheet() override { call(on_focus_field_sheet); }
  void beep() override { call(on_beep); }
  void show_hint(const std::string& text) override { call(on_hint, text); }
  int current_tab() const override { return on_current_tab ? on_current_tab() : -1; }

 private:
  template <typename F, typename... A>
  static void call(const F& f, A&&... a) {
    if (f) f(std::forward<A>(a)...);
  }
};

}  // namespace tellux
