#include "platform/headless/recording_surface.h"

#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"

#include <cstdio>

namespace tellux {

std::string fixed_text(double v, int decimals) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*f", decimals, v);
  std::string t = buf;
  if (t[0] == '-' && t.find_first_not_of("-0.") == std::string::npos) t.erase(0, 1);
  return t;
}

RecordingSurface::RecordingSurface(int height_px, double line_px)
    : height_px_(height_px), line_px_(line_px) {}

std::string RecordingSurface::text() const {
  std::string t;
  for (const auto& op : ops) t += op + "\n";
  return t;
}

bool RecordingSurface::save(const std::string& path) const {
  try {
    rt::write_file_atomically(path, text());
    return true;
  } catch (const rt::RuntimeError&) {
    return false;
  }
}

std::string RecordingSurface::xy(float x, float y) const {
  return fixed_text(x, 4) + " " + fixed_text(y, 4);
}

std::string RecordingSurface::colour_text(int32_t colour) {
  return colour == kForeColour ? "fore" : std::to_string(colour);
}

void RecordingSurface::Cls() {
  ops.push_back("Cls");
  cx_ = x1_;
  cy_ = y1_;
}

void RecordingSurface::Scale(float x1, float y1, float x2, float y2) {
  x1_ = x1, y1_ = y1, x2_ = x2, y2_ = y2;
  ops.push_back("Scale " + xy(x1, y1) + " " + xy(x2, y2));
}

void RecordingSurface::Line(float x1, float y1, float x2, float y2, int32_t colour, LineForm form) {
  static const char* suffix[] = {"", " B", " BF"};
  ops.push_back("Line " + xy(x1, y1) + " " + xy(x2, y2) + " " + colour_text(colour) +
                suffix[static_cast<int>(form)]);
  cx_ = x2;
  cy_ = y2;
}

void RecordingSurface::LineTo(float x2, float y2, int32_t colour) {
  ops.push_back("LineTo " + xy(x2, y2) + " " + colour_text(colour));
  cx_ = x2;
  cy_ = y2;
}

void RecordingSurface::PSet(float x, float y, int32_t colour) {
  ops.push_back("PSet " + xy(x, y) + " " + colour_text(colour));
  cx_ = x;
  cy_ = y;
}

void RecordingSurface::Print(const std::string& text) {
  ops.push_back("Print \"" + text + "\"");
  cx_ = x1_;
  cy_ = static_cast<float>(cy_ + line_px_ * (y2_ - y1_) / height_px_);
}

void RecordingSurface::DrawWidth(int width) {
  draw_width_ = width;
  ops.push_back("DrawWidth " + std::to_string(width));
}

void RecordingSurface::DrawStyle(int style) {
  draw_style_ = style;
  ops.push_back("DrawStyle " + std::to_string(style));
}

void RecordingSurface::MousePointer(int shape) {
  pointer_ = shape;
  ops.push_back("MousePointer " + std::to_string(shape));
}

void RecordingSurface::ForeColor(int32_t colour) {
  fore_ = colour;
  ops.push_back("ForeColor " + std::to_string(colour));
}

void RecordingSurface::Font(const SurfaceFont& font) {
  ops.push_back("Font \"" + font.name + "\" " + fixed_text(font.size, 1) +
                (font.bold ? " bold" : ""));
}

void RecordingSurface::AutoRedraw(bool on) {
  ops.push_back(on ? "AutoRedraw on" : "AutoRedraw off");
}

}  // namespace tellux
