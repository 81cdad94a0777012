#pragma once
// A model window on a headless session: the diagram is a recording surface, the main form's boxes
// are plain text boxes, and the forms route the calls of the shared routines to the window as the
// desktop program does.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "app/model_window.h"
#include "platform/headless/recording_surface.h"
#include "plot/bilog_view.h"
#include "session_fixture.h"
#include "synthetic_sounding.h"

namespace tellux::testing {

class WindowForms : public RecordingForms {
 public:
  ModelWindow* window = nullptr;
  int beeps = 0;
  void beep() override { ++beeps; }
  void show_model_window() override {
    RecordingForms::show_model_window();
    if (window) window->Form_Load();
  }
  void unload_model_window() override {
    RecordingForms::unload_model_window();
    if (window) window->Form_Unload();
  }
  void refresh_model_grid() override {
    if (window && window->loaded()) window->RefreshModelGrid();
  }
  void revive_overlay_controls() override {
    if (window) window->revive_overlay_controls();
  }
};

class FocusCounter : public ModelWindowDisplay {
 public:
  int focus = 0;
  void focus_grid() override { ++focus; }
};

class ModelWindowTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    wforms.window = &window;
    window.set_display(&display);
    drawing.attach();
    s.SuperposeCurve = -1;
    s.ShowModelSteps = -1;  // only the curves are drawn: the tests count them
    s.FileName = "SAMPLE.TX3";
  }

  // A sounding of 25 points made from a three-layer earth, with its model in the record.
  void sounding() {
    make_sounding(ws, {{100, 5}, {20, 20}, {300, 0}}, typical_spacings(25));
    s.ModelOutdated = true;
    screen.ops.clear();
  }

  // Grid rows from row 1: resistivity and thickness texts as the user would see them.
  void grid_rows(const std::vector<std::pair<const char*, const char*>>& rows) {
    int r = 0;
    for (auto [rho, h] : rows) {
      ++r;
      window.Grid1.set_text(r, 0, rho);
      window.Grid1.set_text(r, 1, h);
    }
    for (++r; r <= 20; ++r)
      for (int c = 0; c < 4; ++c) window.Grid1.set_text(r, c, "");
  }

  // Types `text` into a cell as the user does: click on it, then one key per character.
  void type(int row, int col, const std::string& text) {
    window.Grid1_Click(row, col);
    for (char ch : text) window.Grid1_KeyDown(ch == '.' ? key::kPeriod : ch);
  }

  const std::string& cell(int r, int c) const { return window.Grid1.text(r, c); }
  double rho(int r) const { return s.LayerModel(r, 1).num(); }

  // Strokes started on the diagram in `colour` since the surface was last emptied.
  long strokes(int colour) const {
    const std::string tail = " " + std::to_string(colour);
    return std::count_if(screen.ops.begin(), screen.ops.end(), [&](const std::string& op) {
      return op.starts_with("PSet") && op.ends_with(tail);
    });
  }
  long frames() const { return std::count(screen.ops.begin(), screen.ops.end(), "Cls"); }

  WindowForms wforms;
  Session ws{s, dialogs, wforms};
  RecordingSurface screen;
  BilogDrawing drawing{ws, BilogSurfaces{&screen, nullptr, nullptr}};
  TextBox X, Y, Z, Azimuth, Comment, Title, Name, Text3;
  ModelWindow window{ws, screen, MainFormBoxes{X, Y, Z, Azimuth, Comment, Title, Name, Text3}};
  FocusCounter display;
};

}  // namespace tellux::testing
