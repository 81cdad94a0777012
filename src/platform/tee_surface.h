#pragma once
// One drawing on two surfaces at once, for example a picture and its record of operations.
// Reads of the state come from the first surface.
#include "platform/drawing_surface.h"

namespace tellux {

class TeeSurface : public DrawingSurface {
 public:
  TeeSurface(DrawingSurface& first, DrawingSurface& second) : a_(first), b_(second) {}

  void Cls() override { a_.Cls(), b_.Cls(); }
  void Scale(float x1, float y1, float x2, float y2) override {
    a_.Scale(x1, y1, x2, y2), b_.Scale(x1, y1, x2, y2);
  }
  void Line(float x1, float y1, float x2, float y2, int32_t colour = kForeColour,
            LineForm form = LineForm::Line) override {
    a_.Line(x1, y1, x2, y2, colour, form), b_.Line(x1, y1, x2, y2, colour, form);
  }
  void LineTo(float x2, float y2, int32_t colour = kForeColour) override {
    a_.LineTo(x2, y2, colour), b_.LineTo(x2, y2, colour);
  }
  void PSet(float x, float y, int32_t colour = kForeColour) override {
    a_.PSet(x, y, colour), b_.PSet(x, y, colour);
  }
  void Print(const std::string& text) override { a_.Print(text), b_.Print(text); }
  using DrawingSurface::Print;

  float CurrentX() const override { return a_.CurrentX(); }
  float CurrentY() const override { return a_.CurrentY(); }
  void CurrentX(float x) override { a_.CurrentX(x), b_.CurrentX(x); }
  void CurrentY(float y) override { a_.CurrentY(y), b_.CurrentY(y); }
  void DrawWidth(int width) override { a_.DrawWidth(width), b_.DrawWidth(width); }
  int DrawWidth() const override { return a_.DrawWidth(); }
  void DrawStyle(int style) override { a_.DrawStyle(style), b_.DrawStyle(style); }
  int DrawStyle() const override { return a_.DrawStyle(); }
  void MousePointer(int shape) override { a_.MousePointer(shape), b_.MousePointer(shape); }
  int MousePointer() const override { return a_.MousePointer(); }
  void ForeColor(int32_t colour) override { a_.ForeColor(colour), b_.ForeColor(colour); }
  int32_t ForeColor() const override { return a_.ForeColor(); }
  void Font(const SurfaceFont& font) override { a_.Font(font), b_.Font(font); }
  void AutoRedraw(bool on) override { a_.AutoRedraw(on), b_.AutoRedraw(on); }

 private:
  DrawingSurface& a_;
  DrawingSurface& b_;
};

}  // namespace tellux
