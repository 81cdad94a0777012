// Typing in the model grid, fixing values against the fit, and the layer buttons. The grid does
// not edit by itself: these handlers change the cells' text. Only the resistivity and thickness
// columns take keys; the depth and altitude columns are worked out.
#include "app/model_window.h"
#include "core/runtime/number_text.h"
#include "model/layer_depths.h"

namespace tellux {

namespace {

constexpr int kLastRow = 20;
constexpr int kLastCol = 3;
constexpr const char* kClosingBlanks = "  ";

bool blank(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

// The key as the cell takes it: the keypad's digits become digits, both point keys the point.
int mapped_key(int KeyCode) {
  int k = KeyCode;
  if (k > 57) k -= 48;
  if (k == 62 || k == 142) k = key::kPoint;
  return k;
}

bool accepted(int k) { return k == key::kBackspace || k == key::kPoint || (k >= '0' && k <= '9'); }

}  // namespace

void ModelWindow::Grid1_KeyDown(int KeyCode) {
  // The cursor keeps to the two editable columns: a step right from the thickness is taken back.
  if (KeyCode == key::kRight && Grid1.col == 1) {
    beep();
    ModelCellFresh = true;
    changed();
    return;
  }
  if (Grid1.col == 0 || Grid1.col == 1) {
    type_in_cell(KeyCode);
  } else {
    beep();
  }
  move_cursor(KeyCode);
  changed();
}

void ModelWindow::type_in_cell(int KeyCode) {
  const int k = mapped_key(KeyCode);
  if (!accepted(k)) {
    beep();
    return;
  }
  std::string text = Grid1.text(Grid1.row, Grid1.col);
  if (ModelCellFresh) {
    text = kClosingBlanks;
    ModelCellFresh = false;
  }
  const bool closed = text.size() >= 2 && text.compare(text.size() - 2, 2, kClosingBlanks) == 0;
  if (k == key::kBackspace) {
    if (text.size() > 2) text.erase(text.size() - 3, 1);
  } else if (closed) {
    text.insert(text.size() - 2, 1, static_cast<char>(k));
  } else {
    text += static_cast<char>(k);
    text += kClosingBlanks;
  }
  Grid1.set_text(Grid1.row, Grid1.col, text);
}

// The grid's own moves on the arrow keys; a new cell is entered fresh.
void ModelWindow::move_cursor(int KeyCode) {
  int row = Grid1.row, col = Grid1.col;
  switch (KeyCode) {
    case key::kLeft:
      if (col > 0) --col;
      break;
    case key::kRight:
      if (col < kLastCol) ++col;
      break;
    case key::kUp:
      if (row > 1) --row;
      break;
    case key::kDown:
      if (row < kLastRow) ++row;
      break;
    default:
      return;
  }
  if (row != Grid1.row || col != Grid1.col) Grid1_Click(row, col);
}

void ModelWindow::Grid1_Click(int row, int col) {
  ModelCellFresh = true;
  if (row >= 1 && row <= kLastRow) Grid1.row = row;
  if (col >= 0 && col <= kLastCol) Grid1.col = col;
}

void ModelWindow::Grid1_AfterEdit() {
  ModelCellFresh = true;
  if (Grid1.row < kLastRow) ++Grid1.row;
  changed();
}

void ModelWindow::Grid1_DblClick() {
  ModelCellFresh = true;
  const int r = Grid1.row, c = Grid1.col;
  if (c > 1 || r < 1 || blank(Grid1.text(r, c))) return;
  // Lock bits: 1 the resistivity, 2 the thickness.
  const int bit = c == 1 ? 2 : 1;
  int16_t& lock = s_.LayerLocks[r];
  if (lock == bit || lock == 3) {
    lock = static_cast<int16_t>(lock - bit);
  } else {
    lock = static_cast<int16_t>(lock + bit);
  }
  paint_locks(r);
  changed();
}

// Row `from` moves to row `to` with its lock; its depth and altitude change by the thickness of
// the layer taken out or put in.
void ModelWindow::move_row(int from, int to, double depth_change, double altitude_change) {
  Grid1.set_text(to, 0, Grid1.text(from, 0));
  Grid1.set_text(to, 1, Grid1.text(from, 1));
  const auto shifted = [&](const std::string& text, double change) {
    if (blank(text)) return std::string();
    return FormatThickness(s_, rt::Val(text) + change) + kClosingBlanks;
  };
  Grid1.set_text(to, 2, shifted(Grid1.text(from, 2), depth_change));
  Grid1.set_text(to, 3,
                 z_given() ? shifted(Grid1.text(from, 3), altitude_change) : Grid1.text(from, 3));
  s_.LayerLocks[to] = s_.LayerLocks[from];
  paint_locks(to);
}

void ModelWindow::delLine_Click() {
  Grid1.redraw = false;
  const int row = Grid1.row, col = Grid1.col;
  const int r = row;
  if (r >= 1 && r <= kLastRow && rt::Val(Grid1.text(r, 0)) > 0) {
    const double thickness = rt::Val(Grid1.text(r, 1));
    if (r == kLastRow || !(rt::Val(Grid1.text(r + 1, 0)) > 0)) {
      // The last layer goes: the one above becomes the half space.
      blank_row(r);
      if (r > 1) Grid1.set_text(r - 1, 1, "");
    } else {
      for (int k = r + 1; k <= kLastRow; ++k) move_row(k, k - 1, -thickness, thickness);
      blank_row(kLastRow);
    }
    if (r == 1) Grid1.set_text(1, 2, "");
  }
  Grid1.row = row;
  Grid1.col = col;
  Grid1.redraw = true;
  changed();
}

void ModelWindow::InsLine_Click() {
  const int r = Grid1.row;
  bool last_row_used = false;
  for (int c = 0; c < Grid1.cols(); ++c) last_row_used |= !blank(Grid1.text(kLastRow, c));
  if (last_row_used || r < 1 || r > kLastRow || !(rt::Val(Grid1.text(r, 0)) > 0)) {
    beep();
    return;
  }
  Grid1.redraw = false;
  const int col = Grid1.col;
  // The new layer is 1 metre thick: everything below goes 1 metre deeper.
  if (r == 1) Grid1.set_text(1, 2, FormatThickness(s_, 0.0) + kClosingBlanks);
  for (int k = kLastRow - 1; k >= r; --k) move_row(k, k + 1, 1.0, -1.0);
  Grid1.set_text(r, 0, std::string("100") + kClosingBlanks);
  Grid1.set_text(r, 1, std::string("1") + kClosingBlanks);
  s_.LayerLocks[r] = 0;
  paint_locks(r);
  if (r == 1) Grid1.set_text(1, 2, "");
  Grid1.row = r;
  Grid1.col = col;
  Grid1.redraw = true;
  changed();
}

}  // namespace tellux
