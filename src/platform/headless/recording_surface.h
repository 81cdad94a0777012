#pragma once
// A drawing surface for tests and batch work: each operation is kept as one line of text, with
// coordinates printed to four decimals, so that a drawing can be compared with an expected list.
//   Scale -1.0999 4.1001 4.5000 -0.4000
//   Line 0.0000 0.0000 4.0000 4.0000 16777215 BF
//   PSet -1.0000 -0.0120 12632256
//   Print " .1"
// A colour argument left to the foreground is written "fore".
#include <string>
#include <vector>

#include "platform/drawing_surface.h"

namespace tellux {

// Fixed-point text of a coordinate; never "-0.0000".
std::string fixed_text(double v, int decimals);

class RecordingSurface : public DrawingSurface {
 public:
  // The nominal height in pixels and the text line height decide where `Print` moves the current
  // position; the default is the screen diagram's 6090 twips at 15 twips to the pixel.
  explicit RecordingSurface(int height_px = 406, double line_px = 12.0);

  std::vector<std::string> ops;
  // All operations, one per line.
  std::string text() const;
  // Writes `text()` to a file; false when it cannot be written.
  bool save(const std::string& path) const;

  void Cls() override;
  void Scale(float x1, float y1, float x2, float y2) override;
  void Line(float x1, float y1, float x2, float y2, int32_t colour = kForeColour,
            LineForm form = LineForm::Line) override;
  void LineTo(float x2, float y2, int32_t colour = kForeColour) override;
  void PSet(float x, float y, int32_t colour = kForeColour) override;
  void Print(const std::string& text) override;
  using DrawingSurface::Print;

  float CurrentX() const override { return cx_; }
  float CurrentY() const override { return cy_; }
  void CurrentX(float x) override { cx_ = x; }
  void CurrentY(float y) override { cy_ = y; }

  void DrawWidth(int width) override;
  int DrawWidth() const override { return draw_width_; }
  void DrawStyle(int style) override;
  int DrawStyle() const override { return draw_style_; }
  void MousePointer(int shape) override;
  int MousePointer() const override { return pointer_; }
  void ForeColor(int32_t colour) override;
  int32_t ForeColor() const override { return fore_; }
  void Font(const SurfaceFont& font) override;
  void AutoRedraw(bool on) override;

 private:
  std::string xy(float x, float y) const;
  static std::string colour_text(int32_t colour);

  int height_px_;
  double line_px_;
  float x1_ = 0, y1_ = 0, x2_ = 1, y2_ = 1;
  float cx_ = 0, cy_ = 0;
  int draw_width_ = 1, draw_style_ = 0, pointer_ = 0;
  int32_t fore_ = 0;
};

}  // namespace tellux
