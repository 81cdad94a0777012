#pragma once
// The drawing surface on a Qt image: logical coordinates are mapped to the pixels of the image,
// each operation is painted at once (antialiased) and kept, so that the same picture can be
// written as PNG or replayed as SVG, and a widget can show it.
#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPointF>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "platform/drawing_surface.h"

namespace tellux {

// A colour of the program (red + 256 x green + 65536 x blue) as a Qt colour.
QColor to_qcolor(int32_t colour);

class QtDrawingSurface : public DrawingSurface {
 public:
  QtDrawingSurface(int width, int height);
  ~QtDrawingSurface() override;

  // A new size in pixels; the surface is erased.
  void resize(int width, int height);
  int width() const { return image_.width(); }
  int height() const { return image_.height(); }
  // The picture as drawn so far.
  const QImage& image();
  // Write the picture; the reason of a failure, empty when written.
  QString save_png(const QString& path);
  QString save_svg(const QString& path, const QString& title = QString());
  // Paints everything drawn since the last `Cls` with `painter` (an SVG generator, a printer).
  void render(QPainter& painter) const;

  QPointF to_pixel(double x, double y) const;
  // The logical position of a pixel, for the mouse read-out.
  QPointF to_logical(QPointF pixel) const;

  // Called when the pointer shape changes, so that a widget can show it.
  std::function<void(int)> on_pointer;

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

  void DrawWidth(int width) override { draw_width_ = width < 1 ? 1 : width; }
  int DrawWidth() const override { return draw_width_; }
  void DrawStyle(int style) override { draw_style_ = style; }
  int DrawStyle() const override { return draw_style_; }
  void MousePointer(int shape) override;
  int MousePointer() const override { return pointer_; }
  void ForeColor(int32_t colour) override { fore_ = colour; }
  int32_t ForeColor() const override { return fore_; }
  void Font(const SurfaceFont& font) override;
  void AutoRedraw(bool on) override { auto_redraw_ = on; }

  // The erased surface's colour, that of a window's face.
  static constexpr int32_t kBackColour = 0xF0F0F0;

 private:
  bool paint_svg(QIODevice& out, const QString& title);
  enum class Kind { Fill, Line, Box, FilledBox, Point, Text };
  struct Op {
    Kind kind = Kind::Line;
    QPointF a, b;  // pixels; for text the start of its base line
    QColor colour;
    int width = 1;
    Qt::PenStyle style = Qt::SolidLine;
    QString text;
    QFont font;
  };
  Op make(Kind kind, QPointF a, QPointF b, int32_t colour) const;

  void add(Op op);
  void paint(QPainter& painter, const Op& op) const;
  QPainter& painter();
  void finish_painting();
  Qt::PenStyle pen_style() const;
  QColor colour_of(int32_t colour) const;

  QImage image_;
  std::unique_ptr<QPainter> painter_;
  std::vector<Op> ops_;
  QFont font_;
  double ascent_ = 0, line_height_ = 0;  // pixels
  double sx1_ = 0, sy1_ = 0, sx2_ = 1, sy2_ = 1;
  float cx_ = 0, cy_ = 0;
  int draw_width_ = 1, draw_style_ = 0, pointer_ = 0;
  int32_t fore_ = 0;
  bool auto_redraw_ = true;
};

}  // namespace tellux
