#pragma once
// Forms for tests: each call is kept as one line of text, and the last caption, tab and recent
// captions are at hand.
#include <array>
#include <string>
#include <vector>

#include "platform/forms.h"

namespace tellux {

class RecordingForms : public Forms {
 public:
  std::vector<std::string> log;
  std::string caption;
  int tab = -1;
  std::array<std::string, 6> recent_captions{};
  int model_window_shown = 0;

  void set_main_caption(const std::string& c) override {
    caption = c;
    log.push_back("caption " + c);
  }
  void set_pointer(PointerTarget target, int shape) override {
    static const char* names[] = {"screen", "form", "bilog"};
    log.push_back(std::string("pointer ") + names[static_cast<int>(target)] + " " +
                  std::to_string(shape));
  }
  void select_tab(int index) override {
    tab = index;
    log.push_back("tab " + std::to_string(index));
  }
  void set_recent_caption(int slot, const std::string& c) override {
    if (slot >= 1 && slot <= 5) recent_captions[static_cast<size_t>(slot)] = c;
    log.push_back("recent " + std::to_string(slot) + " " + c);
  }
  void repaint_main_form() override { log.push_back("repaint"); }
  void unload_model_window() override { log.push_back("unload model"); }
  void show_model_window() override {
    ++model_window_shown;
    log.push_back("show model");
  }
  void revive_overlay_controls() override { log.push_back("revive overlay"); }
  void fill_sheet() override { log.push_back("fill sheet"); }
  void show_hint(const std::string& text) override { log.push_back("hint " + text); }
};

}  // namespace tellux
