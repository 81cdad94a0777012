// The model grid and the record: `Grid1` is read into `LayerModel` and written out from it.
#include "app/model_window.h"
#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"
#include "model/layer_depths.h"

namespace tellux {

namespace {

constexpr int kFixedBack = 65535;  // yellow
constexpr int kFixedFore = 255;    // red
constexpr int kFreeBack = 0xFFFFFF;
constexpr int kFreeFore = 0;

// Every number in the grid stands in front of two blanks; typing works in front of them.
std::string cell_text(const std::string& number) { return number + "  "; }

}  // namespace

bool ModelWindow::z_given() const { return !s_.LocationZ.empty(); }

// Columns 0 (resistivity, lock 1) and 1 (thickness, lock 2) show what the fit may not move.
void ModelWindow::paint_locks(int row) {
  const int lock = s_.LayerLocks[row];
  const bool rho_fixed = lock == 1 || lock == 3;
  const bool thickness_fixed = lock == 2 || lock == 3;
  Grid1.set_back_colour(row, 1, thickness_fixed ? kFixedBack : kFreeBack);
  Grid1.set_fore_colour(row, 1, thickness_fixed ? kFixedFore : kFreeFore);
  Grid1.set_back_colour(row, 0, rho_fixed ? kFixedBack : kFreeBack);
  Grid1.set_fore_colour(row, 0, rho_fixed ? kFixedFore : kFreeFore);
}

void ModelWindow::blank_row(int row) {
  for (int c = 0; c < Grid1.cols(); ++c) Grid1.set_text(row, c, "");
  s_.LayerLocks[row] = 0;
  paint_locks(row);
}

void ModelWindow::ComputeDepths() { ::tellux::ComputeDepths(session_); }

SoundingBoxes ModelWindow::string_boxes() {
  return {boxes_.X, boxes_.Y, boxes_.Z, boxes_.Azimuth, boxes_.Comment, boxes_.Title};
}

void ModelWindow::ReadModelGrid() {
  try {
    for (int r = 1; r <= 20; ++r)
      for (int c = 0; c <= 1; ++c) s_.LayerModel(r, c + 1) = rt::Val(Grid1.text(r, c));
    take_strings(s_, string_boxes());
    RefreshModelGrid();
  } catch (const rt::RuntimeError&) {
    // The model stays as far as it was read.
  }
}

void ModelWindow::RefreshModelGrid() {
  // A value too large to round leaves the depths as far as they came; the grid still shows them.
  try {
    ComputeDepths();
  } catch (const rt::RuntimeError&) {
  }
  Grid1.redraw = false;
  const LayerTableT& m = s_.LayerModel;
  for (int r = 1; r <= 20; ++r) {
    paint_locks(r);
    const bool layer = m(r, 1).num() > 0;
    Grid1.set_text(r, 0, layer ? cell_text(rt::CStr(m(r, 1))) : "");
    Grid1.set_text(r, 1, m(r, 2).num() > 0 ? cell_text(FormatThickness(s_, m(r, 2))) : "");
    Grid1.set_text(r, 2, layer ? cell_text(FormatThickness(s_, m(r, 3))) : "");
    Grid1.set_text(r, 3,
                   layer && z_given() ? cell_text(FormatThickness(s_, s_.LayerAltitudes[r])) : "");
  }
  // The top of the first layer is the surface; the half space has no thickness.
  Grid1.set_text(1, 2, "");
  if (s_.LayerCount >= 1 && s_.LayerCount <= 20) Grid1.set_text(s_.LayerCount, 1, "");
  Grid1.redraw = true;

  show_strings(s_, string_boxes());
  changed();
}

}  // namespace tellux
