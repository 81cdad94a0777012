#pragma once
// The picture surface the diagram is drawn on: the screen's `Bilog` and the direct printer. All
// coordinates are logical, in the system set by `Scale`; the diagram sets them to the logarithms
// of its values. Lines and points keep a current position, so that a polyline can be drawn one
// point at a time across many calls.
#include <cstdint>
#include <string>

#include "core/runtime/number_text.h"

namespace tellux {

// A colour argument that stands for the surface's foreground colour (real colours are 24-bit,
// red + 256 x green + 65536 x blue, and never negative).
inline constexpr int32_t kForeColour = -1;

// The three forms of `Line`: a straight line, a hollow box and a filled box on the two corners.
enum class LineForm { Line, Box, FilledBox };

struct SurfaceFont {
  std::string name = "Arial";
  double size = 7.5;  // points
  bool bold = true;
  bool italic = false;
};

class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;

  // Erases the surface; the current position goes back to the upper left corner.
  virtual void Cls() = 0;
  // The logical coordinate system: (x1, y1) is the upper left corner, (x2, y2) the lower right
  // one; y2 below y1 makes the ordinate grow upward.
  virtual void Scale(float x1, float y1, float x2, float y2) = 0;
  // From (x1, y1) to (x2, y2) in one of the three forms; the end point becomes current.
  virtual void Line(float x1, float y1, float x2, float y2, int32_t colour = kForeColour,
                    LineForm form = LineForm::Line) = 0;
  // The continuing form: from the current position to (x2, y2), which becomes current.
  virtual void LineTo(float x2, float y2, int32_t colour = kForeColour) = 0;
  // One point in the colour; it becomes the current text and drawing position.
  virtual void PSet(float x, float y, int32_t colour = kForeColour) = 0;
  // Text at the current position, in the font and the foreground colour; the position then moves
  // to the start of the next line.
  virtual void Print(const std::string& text) = 0;
  // A number as the program writes numbers by default: " .1", " 10", "-2".
  void Print(double value) { Print(rt::Str(value)); }

  virtual float CurrentX() const = 0;
  virtual float CurrentY() const = 0;
  virtual void CurrentX(float x) = 0;
  virtual void CurrentY(float y) = 0;

  // Line width in pixels, and pattern: 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot,
  // 5 invisible, 6 inside solid.
  virtual void DrawWidth(int width) = 0;
  virtual int DrawWidth() const = 0;
  virtual void DrawStyle(int style) = 0;
  virtual int DrawStyle() const = 0;
  // Mouse pointer shape: 11 hourglass while drawing, 2 cross when ready.
  virtual void MousePointer(int shape) = 0;
  virtual int MousePointer() const = 0;
  virtual void ForeColor(int32_t colour) = 0;
  virtual int32_t ForeColor() const = 0;
  virtual void Font(const SurfaceFont& font) = 0;
  // Persistent drawing: what is drawn stays when the surface is covered and shown again.
  virtual void AutoRedraw(bool on) = 0;
};

}  // namespace tellux
