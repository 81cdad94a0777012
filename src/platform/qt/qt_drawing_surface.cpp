#include "platform/qt/qt_drawing_surface.h"

#include <QFontMetricsF>
#include <QRectF>
#include <QSvgGenerator>
#include <cmath>

#include "platform/qt/atomic_output.h"

namespace tellux {

QColor to_qcolor(int32_t colour) {
  return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

namespace {

bool finite(QPointF p) { return std::isfinite(p.x()) && std::isfinite(p.y()); }

// The centre of the pixel that holds v: one-pixel lines on it stay sharp under antialiasing.
double pixel_centre(double v) { return std::floor(v) + 0.5; }

}  // namespace

QtDrawingSurface::QtDrawingSurface(int width, int height) {
  resize(width, height);
  Font(SurfaceFont{});
}

QtDrawingSurface::~QtDrawingSurface() { finish_painting(); }

void QtDrawingSurface::resize(int width, int height) {
  finish_painting();
  image_ =
      QImage(width < 1 ? 1 : width, height < 1 ? 1 : height, QImage::Format_ARGB32_Premultiplied);
  Cls();
}

QPainter& QtDrawingSurface::painter() {
  if (!painter_) {
    painter_ = std::make_unique<QPainter>(&image_);
    painter_->setRenderHint(QPainter::Antialiasing, true);
    painter_->setRenderHint(QPainter::TextAntialiasing, true);
  }
  return *painter_;
}

void QtDrawingSurface::finish_painting() {
  if (painter_) {
    painter_->end();
    painter_.reset();
  }
}

const QImage& QtDrawingSurface::image() {
  finish_painting();
  return image_;
}

QString QtDrawingSurface::save_png(const QString& path) {
  return write_through_buffer(path, [&](QIODevice& out) { return image().save(&out, "PNG"); });
}

QString QtDrawingSurface::save_svg(const QString& path, const QString& title) {
  return write_through_buffer(path, [&](QIODevice& out) { return paint_svg(out, title); });
}

bool QtDrawingSurface::paint_svg(QIODevice& out, const QString& title) {
  QSvgGenerator svg;
  svg.setOutputDevice(&out);
  svg.setSize(image_.size());
  svg.setViewBox(QRect(QPoint(0, 0), image_.size()));
  // The image's resolution, so that the text has the same size in both pictures.
  svg.setResolution(image_.logicalDpiX());
  svg.setTitle(title);
  QPainter p;
  if (!p.begin(&svg)) return false;
  p.setRenderHint(QPainter::Antialiasing, true);
  render(p);
  return p.end();
}

void QtDrawingSurface::render(QPainter& p) const {
  for (const Op& op : ops_) paint(p, op);
}

QPointF QtDrawingSurface::to_pixel(double x, double y) const {
  const double w = sx2_ - sx1_, h = sy2_ - sy1_;
  return QPointF((x - sx1_) / (w == 0 ? 1 : w) * image_.width(),
                 (y - sy1_) / (h == 0 ? 1 : h) * image_.height());
}

QPointF QtDrawingSurface::to_logical(QPointF pixel) const {
  return QPointF(sx1_ + pixel.x() / image_.width() * (sx2_ - sx1_),
                 sy1_ + pixel.y() / image_.height() * (sy2_ - sy1_));
}

Qt::PenStyle QtDrawingSurface::pen_style() const {
  switch (draw_style_) {
    case 1:
      return Qt::DashLine;
    case 2:
      return Qt::DotLine;
    case 3:
      return Qt::DashDotLine;
    case 4:
      return Qt::DashDotDotLine;
    case 5:
      return Qt::NoPen;
    default:
      return Qt::SolidLine;  // 0 solid, 6 inside solid
  }
}

QColor QtDrawingSurface::colour_of(int32_t colour) const {
  return to_qcolor(colour == kForeColour ? fore_ : colour);
}

QtDrawingSurface::Op QtDrawingSurface::make(Kind kind, QPointF a, QPointF b, int32_t colour) const {
  Op op;
  op.kind = kind;
  op.a = a;
  op.b = b;
  op.colour = colour_of(colour);
  op.width = draw_width_;
  op.style = pen_style();
  return op;
}

void QtDrawingSurface::add(Op op) {
  if (!finite(op.a) || !finite(op.b)) return;  // a degenerate scale: nothing to show
  paint(painter(), op);
  ops_.push_back(std::move(op));
}

void QtDrawingSurface::paint(QPainter& p, const Op& op) const {
  switch (op.kind) {
    case Kind::Fill:
      p.fillRect(QRectF(QPointF(0, 0), QSizeF(image_.size())), op.colour);
      return;
    case Kind::FilledBox:
      p.fillRect(QRectF(op.a, op.b).normalized(), op.colour);
      return;
    case Kind::Point: {
      const double w = op.width;
      p.fillRect(
          QRectF(std::floor(op.a.x()) + 0.5 - w / 2, std::floor(op.a.y()) + 0.5 - w / 2, w, w),
          op.colour);
      return;
    }
    case Kind::Text:
      p.setFont(op.font);
      p.setPen(op.colour);
      p.drawText(op.a, op.text);
      return;
    case Kind::Line:
    case Kind::Box:
      break;
  }
  if (op.style == Qt::NoPen) return;
  QPen pen(op.colour, op.width, op.style, Qt::FlatCap, Qt::MiterJoin);
  p.setPen(pen);
  p.setBrush(Qt::NoBrush);
  QPointF a = op.a, b = op.b;
  // Boxes and grid lines are straight across or up: on whole pixels they are sharp without
  // smoothing (and quicker). The curves keep their exact positions and are smoothed.
  const bool straight = op.kind == Kind::Box || a.x() == b.x() || a.y() == b.y();
  if (straight) {
    a = QPointF(pixel_centre(a.x()), pixel_centre(a.y()));
    b = QPointF(pixel_centre(b.x()), pixel_centre(b.y()));
  }
  if (a == b) {
    p.fillRect(QRectF(a.x() - op.width / 2.0, a.y() - op.width / 2.0, op.width, op.width),
               op.colour);
    return;
  }
  const bool smooth = p.testRenderHint(QPainter::Antialiasing);
  if (straight && smooth) p.setRenderHint(QPainter::Antialiasing, false);
  if (op.kind == Kind::Box) {
    p.drawRect(QRectF(a, b).normalized());
  } else {
    if (!straight) p.setPen(QPen(op.colour, op.width, op.style, Qt::RoundCap, Qt::RoundJoin));
    p.drawLine(a, b);
  }
  if (straight && smooth) p.setRenderHint(QPainter::Antialiasing, true);
}

void QtDrawingSurface::Cls() {
  ops_.clear();
  add(make(Kind::Fill, QPointF(), QPointF(), kBackColour));
  cx_ = static_cast<float>(sx1_);
  cy_ = static_cast<float>(sy1_);
}

void QtDrawingSurface::Scale(float x1, float y1, float x2, float y2) {
  sx1_ = x1, sy1_ = y1, sx2_ = x2, sy2_ = y2;
}

void QtDrawingSurface::Line(float x1, float y1, float x2, float y2, int32_t colour, LineForm form) {
  const Kind kind = form == LineForm::Box         ? Kind::Box
                    : form == LineForm::FilledBox ? Kind::FilledBox
                                                  : Kind::Line;
  add(make(kind, to_pixel(x1, y1), to_pixel(x2, y2), colour));
  cx_ = x2;
  cy_ = y2;
}

void QtDrawingSurface::LineTo(float x2, float y2, int32_t colour) {
  Line(cx_, cy_, x2, y2, colour);
}

void QtDrawingSurface::PSet(float x, float y, int32_t colour) {
  const QPointF p = to_pixel(x, y);
  add(make(Kind::Point, p, p, colour));
  cx_ = x;
  cy_ = y;
}

void QtDrawingSurface::Print(const std::string& text) {
  const QPointF top_left = to_pixel(cx_, cy_);
  const QPointF base(top_left.x(), top_left.y() + ascent_);
  Op op = make(Kind::Text, base, base, kForeColour);
  op.text = QString::fromStdString(text);
  op.font = font_;
  add(std::move(op));
  // The next line starts at the left edge, one text line lower.
  cx_ = static_cast<float>(sx1_);
  cy_ = static_cast<float>(cy_ + line_height_ / image_.height() * (sy2_ - sy1_));
}

void QtDrawingSurface::MousePointer(int shape) {
  pointer_ = shape;
  if (on_pointer) on_pointer(shape);
}

void QtDrawingSurface::Font(const SurfaceFont& font) {
  // Arial is served by Liberation Sans, which has the same metrics.
  const QString family =
      font.name == "Arial" ? QStringLiteral("Liberation Sans") : QString::fromStdString(font.name);
  font_ = QFont(family);
  font_.setStyleHint(QFont::SansSerif);
  font_.setPointSizeF(font.size);
  font_.setBold(font.bold);
  font_.setItalic(font.italic);
  const QFontMetricsF metrics(font_, &image_);
  ascent_ = metrics.ascent();
  line_height_ = metrics.height();
}

}  // namespace tellux
