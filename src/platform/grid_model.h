#pragma once
// The model of a grid control (the field sheet `BuildGrid`, the model grid `Grid1`, the profile's
// `SEV_Grid`): text cells by row and column with checked indexes, the current cell, cell colours
// and the repaint switch. The desktop program shows it; tests read and type into it directly.
#include <algorithm>
#include <string>
#include <vector>

#include "core/runtime/errors.h"

namespace tellux {

class GridModel {
 public:
  GridModel(int rows, int cols)
      : rows_(rows),
        cols_(cols),
        text_(static_cast<size_t>(rows * cols)),
        back_(static_cast<size_t>(rows * cols), -1),
        fore_(static_cast<size_t>(rows * cols), -1) {}

  int rows() const { return rows_; }
  int cols() const { return cols_; }
  // New bounds (`Rows`, `Cols`); cells inside both keep their texts and colours.
  void resize(int rows, int cols) {
    GridModel bigger(rows, cols);
    for (int r = 0; r < std::min(rows, rows_); ++r)
      for (int c = 0; c < std::min(cols, cols_); ++c) {
        bigger.set_text(r, c, text(r, c));
        bigger.set_back_colour(r, c, back_colour(r, c));
        bigger.set_fore_colour(r, c, fore_colour(r, c));
      }
    rows_ = rows;
    cols_ = cols;
    text_ = std::move(bigger.text_);
    back_ = std::move(bigger.back_);
    fore_ = std::move(bigger.fore_);
  }

  const std::string& text(int r, int c) const { return text_[index(r, c)]; }
  void set_text(int r, int c, std::string t) { text_[index(r, c)] = std::move(t); }
  // Cell colours; -1 is the grid's default.
  int back_colour(int r, int c) const { return back_[index(r, c)]; }
  int fore_colour(int r, int c) const { return fore_[index(r, c)]; }
  void set_back_colour(int r, int c, int colour) { back_[index(r, c)] = colour; }
  void set_fore_colour(int r, int c, int colour) { fore_[index(r, c)] = colour; }

  int row = 1;  // the current cell
  int col = 1;
  bool redraw = true;  // repainting on; the view repaints when it comes back on

 private:
  size_t index(int r, int c) const {
    if (r < 0 || r >= rows_ || c < 0 || c >= cols_) rt::raise(rt::kSubscript);
    return static_cast<size_t>(r * cols_ + c);
  }
  int rows_, cols_;
  std::vector<std::string> text_;
  std::vector<int> back_, fore_;
};

}  // namespace tellux
