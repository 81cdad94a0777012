#include "gui/toolbar_icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPolygonF>
#include <cmath>

namespace tellux {

namespace {

// Drawn on a 32 x 32 grid; each size is painted afresh so that the lines stay sharp.
using Painting = void (*)(QPainter&);

const QColor kInk(40, 40, 48);
const QColor kBlue(38, 110, 200);
const QColor kRed(210, 40, 40);
const QColor kPaper(252, 252, 246);

QPen pen(const QColor& c, double w = 2.0) {
  return QPen(c, w, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void paint_open(QPainter& p) {
  p.setPen(pen(QColor(150, 110, 20), 1.5));
  p.setBrush(QColor(240, 200, 90));
  p.drawPolygon(QPolygonF({{3, 8}, {12, 8}, {15, 11}, {28, 11}, {28, 27}, {3, 27}}));
  p.setBrush(QColor(250, 222, 130));
  p.drawPolygon(QPolygonF({{3, 27}, {8, 15}, {31, 15}, {26, 27}}));
}

void paint_save(QPainter& p) {
  p.setPen(pen(kInk, 1.5));
  p.setBrush(kBlue);
  p.drawRoundedRect(QRectF(4, 4, 24, 24), 2, 2);
  p.setBrush(Qt::white);
  p.drawRect(QRectF(9, 4, 14, 9));
  p.setBrush(QColor(220, 225, 235));
  p.drawRect(QRectF(8, 17, 16, 11));
  p.setPen(pen(kInk, 2));
  p.drawLine(QPointF(19, 6), QPointF(19, 11));
}

// Log-log paper: a frame, a few grid lines and a sounding curve through three marks.
void paint_bilog(QPainter& p) {
  p.setPen(pen(kInk, 1.5));
  p.setBrush(kPaper);
  p.drawRect(QRectF(3, 3, 26, 26));
  p.setPen(pen(QColor(160, 190, 160), 1));
  for (double x : {9.0, 16.0, 23.0}) p.drawLine(QPointF(x, 4), QPointF(x, 28));
  for (double y : {9.0, 16.0, 23.0}) p.drawLine(QPointF(4, y), QPointF(28, y));
  QPainterPath curve(QPointF(4, 20));
  curve.cubicTo(QPointF(10, 19), QPointF(12, 8), QPointF(17, 9));
  curve.cubicTo(QPointF(22, 10), QPointF(22, 24), QPointF(28, 25));
  p.setPen(pen(kRed, 2));
  p.setBrush(Qt::NoBrush);
  p.drawPath(curve);
  p.setPen(pen(kBlue, 1.5));
  for (QPointF m : {QPointF(8, 18), QPointF(16, 9), QPointF(24, 21)})
    p.drawRect(QRectF(m.x() - 2, m.y() - 2, 4, 4));
}

// The layered model: bands of earth and the staircase of its resistivities.
void paint_computation(QPainter& p) {
  const QColor bands[] = {QColor(230, 200, 140), QColor(180, 140, 90), QColor(120, 150, 190)};
  const double tops[] = {3, 11, 19, 29};
  p.setPen(Qt::NoPen);
  for (int i = 0; i < 3; ++i) {
    p.setBrush(bands[i]);
    p.drawRect(QRectF(3, tops[i], 26, tops[i + 1] - tops[i]));
  }
  p.setPen(pen(kInk, 1.2));
  p.setBrush(Qt::NoBrush);
  p.drawRect(QRectF(3, 3, 26, 26));
  p.setPen(pen(kRed, 2.2));
  p.drawPolyline(QPolygonF({{8, 3}, {8, 11}, {22, 11}, {22, 19}, {13, 19}, {13, 28}}));
}

void paint_help(QPainter& p) {
  p.setPen(pen(QColor(20, 80, 160), 1.5));
  p.setBrush(kBlue);
  p.drawEllipse(QRectF(3, 3, 26, 26));
  QFont f = p.font();
  f.setPixelSize(20);
  f.setBold(true);
  p.setFont(f);
  p.setPen(Qt::white);
  p.drawText(QRectF(3, 3, 26, 26), Qt::AlignCenter, QStringLiteral("?"));
}

void paint_clipboard(QPainter& p) {
  p.setPen(pen(QColor(110, 70, 30), 1.5));
  p.setBrush(QColor(190, 140, 80));
  p.drawRoundedRect(QRectF(5, 5, 22, 25), 2, 2);
  p.setBrush(Qt::white);
  p.drawRect(QRectF(8, 9, 16, 18));
  p.setBrush(QColor(150, 150, 160));
  p.drawRoundedRect(QRectF(11, 2, 10, 6), 2, 2);
  p.setPen(pen(kRed, 1.5));
  p.drawPolyline(QPolygonF({{10, 23}, {14, 15}, {18, 19}, {22, 12}}));
}

void paint_stop(QPainter& p) {
  QPolygonF octagon;
  for (int i = 0; i < 8; ++i) {
    const double a = (22.5 + 45.0 * i) * 3.14159265358979 / 180.0;
    octagon << QPointF(16 + 13 * std::cos(a), 16 + 13 * std::sin(a));
  }
  p.setPen(pen(QColor(130, 10, 10), 1.5));
  p.setBrush(kRed);
  p.drawPolygon(octagon);
  p.setPen(pen(Qt::white, 3));
  p.drawLine(QPointF(11, 11), QPointF(21, 21));
  p.drawLine(QPointF(21, 11), QPointF(11, 21));
}

void paint_print(QPainter& p) {
  p.setPen(pen(kInk, 1.5));
  p.setBrush(Qt::white);
  p.drawRect(QRectF(9, 3, 14, 10));
  p.setBrush(QColor(170, 175, 185));
  p.drawRoundedRect(QRectF(3, 12, 26, 11), 2, 2);
  p.setBrush(Qt::white);
  p.drawRect(QRectF(9, 19, 14, 10));
}

void paint_zoom(QPainter& p) {
  p.setPen(pen(kInk, 2));
  p.setBrush(QColor(220, 235, 250));
  p.drawEllipse(QRectF(4, 4, 17, 17));
  p.setPen(pen(kInk, 4));
  p.drawLine(QPointF(19, 19), QPointF(28, 28));
}

Painting painting_of(const QString& key) {
  if (key == QLatin1String("open")) return paint_open;
  if (key == QLatin1String("save")) return paint_save;
  if (key == QLatin1String("bilog")) return paint_bilog;
  if (key == QLatin1String("computation")) return paint_computation;
  if (key == QLatin1String("Help")) return paint_help;
  if (key == QLatin1String("Clip_Bd")) return paint_clipboard;
  if (key == QLatin1String("stop")) return paint_stop;
  if (key == QLatin1String("print")) return paint_print;
  if (key == QLatin1String("zoom")) return paint_zoom;
  return nullptr;
}

QIcon icon_of(Painting painting) {
  QIcon icon;
  if (!painting) return icon;
  for (int size : {16, 24, 32, 48, 64}) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing, true);
    p.scale(size / 32.0, size / 32.0);
    painting(p);
    p.end();
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace

QIcon toolbar_icon(const QString& key) { return icon_of(painting_of(key)); }

QIcon program_icon() { return icon_of(paint_bilog); }

}  // namespace tellux
