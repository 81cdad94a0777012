#include "platform/qt/qt_page_painter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPolygonF>
#include <QPrinter>
#include <QSvgGenerator>

#include "platform/qt/atomic_output.h"
#include "platform/qt/qt_drawing_surface.h"

namespace tellux {

namespace {

constexpr double kTwipsPerInch = 1440.0;

QPen pen_of(const PagePen& p) {
  if (p.style == 5) return Qt::NoPen;
  QPen pen(to_qcolor(p.colour));
  pen.setWidthF(p.width);  // 0: the finest line the device draws
  pen.setStyle(p.style == 1 ? Qt::DashLine : p.style == 2 ? Qt::DotLine : Qt::SolidLine);
  pen.setCapStyle(Qt::FlatCap);
  pen.setJoinStyle(Qt::MiterJoin);
  return pen;
}

// Sizes are in twips: a point is 20 of them.
QFont font_of(const PageFont& f) {
  QFont font(QString::fromStdString(f.name));
  font.setPixelSize(std::max(1, static_cast<int>(f.size * 20 + 0.5)));
  font.setBold(f.bold);
  font.setItalic(f.italic);
  return font;
}

void paint_text(QPainter& painter, const PageOp& op) {
  painter.setFont(font_of(op.font));
  painter.setPen(to_qcolor(op.pen.colour));
  const QFontMetricsF metrics(painter.font());
  painter.save();
  painter.translate(op.points[0], op.points[1]);
  if (op.angle != 0) painter.rotate(-op.angle / 10.0);
  painter.drawText(QPointF(0, metrics.ascent()), QString::fromStdString(op.text));
  painter.restore();
}

void paint_op(QPainter& painter, const PageOp& op) {
  const auto& p = op.points;
  switch (op.kind) {
    case PageOp::Kind::Line:
      painter.setPen(pen_of(op.pen));
      painter.drawLine(QPointF(p[0], p[1]), QPointF(p[2], p[3]));
      break;
    case PageOp::Kind::Rectangle:
      painter.setPen(pen_of(op.pen));
      painter.setBrush(op.brush.style == 0 ? QBrush(to_qcolor(op.brush.colour)) : Qt::NoBrush);
      painter.drawRect(QRectF(QPointF(p[0], p[1]), QPointF(p[2], p[3])).normalized());
      break;
    case PageOp::Kind::Polyline: {
      QPolygonF line;
      for (size_t i = 0; i + 1 < p.size(); i += 2) line << QPointF(p[i], p[i + 1]);
      painter.setPen(pen_of(op.pen));
      painter.drawPolyline(line);
      break;
    }
    case PageOp::Kind::Text:
      paint_text(painter, op);
      break;
    case PageOp::Kind::Cell: {
      painter.setFont(font_of(op.font));
      painter.setPen(to_qcolor(0));
      const int align = op.align == '>'   ? Qt::AlignRight
                        : op.align == '^' ? Qt::AlignHCenter
                                          : Qt::AlignLeft;
      painter.drawText(QRectF(QPointF(p[0], p[1]), QPointF(p[2], p[3])),
                       align | Qt::AlignVCenter | Qt::TextDontClip,
                       QString::fromStdString(op.text));
      break;
    }
  }
}

void paint_footer(const PageDocument& d, QPainter& painter) {
  if (d.Footer.empty()) return;
  PageFont f;
  f.size = d.HdrFontSize;
  f.bold = d.HdrFontBold;
  painter.setFont(font_of(f));
  painter.setPen(Qt::black);
  const bool right = d.Footer.rfind("||", 0) == 0;
  const QString text = QString::fromStdString(right ? d.Footer.substr(2) : d.Footer);
  const QRectF band(d.MarginLeft, d.PageHeight - d.MarginBottom,
                    d.PageWidth - d.MarginLeft - d.MarginRight, d.MarginBottom / 2);
  painter.drawText(band, (right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter, text);
}

}  // namespace

void paint_page(const PageDocument& document, int index, QPainter& painter, const QRectF& target) {
  if (index < 0 || index >= document.PageCount()) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::TextAntialiasing);
  painter.translate(target.topLeft());
  painter.scale(target.width() / document.PageWidth, target.height() / document.PageHeight);
  painter.fillRect(QRectF(0, 0, document.PageWidth, document.PageHeight), Qt::white);
  painter.setClipRect(QRectF(0, 0, document.PageWidth, document.PageHeight));
  for (const PageOp& op : document.pages()[static_cast<size_t>(index)].ops) paint_op(painter, op);
  paint_footer(document, painter);
  painter.restore();
}

QString write_pdf(const PageDocument& document, const QString& path) {
  return write_through_buffer(path, [&](QIODevice& buffer) {
    if (document.PageCount() == 0) return false;
    QPdfWriter pdf(&buffer);
    pdf.setResolution(1440);
    pdf.setPageSize(
        QPageSize(QSizeF(document.PageWidth / kTwipsPerInch, document.PageHeight / kTwipsPerInch),
                  QPageSize::Inch));
    pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
    pdf.setTitle(QStringLiteral("Tellux 6.4"));
    QPainter painter(&pdf);
    for (int i = 0; i < document.PageCount(); ++i) {
      if (i > 0) pdf.newPage();
      paint_page(document, i, painter, QRectF(0, 0, pdf.width(), pdf.height()));
    }
    return painter.end();
  });
}

QString write_svg(const PageDocument& document, int index, const QString& path) {
  return write_through_buffer(path, [&](QIODevice& buffer) {
    if (index < 0 || index >= document.PageCount()) return false;
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setResolution(1440);
    svg.setSize(QSize(static_cast<int>(document.PageWidth), static_cast<int>(document.PageHeight)));
    svg.setViewBox(QRectF(0, 0, document.PageWidth, document.PageHeight));
    svg.setTitle(QStringLiteral("Tellux 6.4"));
    QPainter painter(&svg);
    paint_page(document, index, painter, QRectF(0, 0, document.PageWidth, document.PageHeight));
    return painter.end();
  });
}

QString write_png(const PageDocument& document, int index, const QString& path, int dpi) {
  return write_through_buffer(path, [&](QIODevice& buffer) {
    if (index < 0 || index >= document.PageCount()) return false;
    const double f = dpi / kTwipsPerInch;
    QImage image(static_cast<int>(document.PageWidth * f),
                 static_cast<int>(document.PageHeight * f), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paint_page(document, index, painter, QRectF(0, 0, image.width(), image.height()));
    painter.end();
    return image.save(&buffer, "PNG");
  });
}

QRectF sheet_on_printer(const PageDocument& document, const QPrinter& printer) {
  // Twips to the device's dots, the same factor both ways, from the sheet's corner: the page
  // keeps its true scale whatever paper the printer holds.
  const double f = printer.resolution() / kTwipsPerInch;
  const QRectF printable = printer.pageRect(QPrinter::DevicePixel);
  return QRectF(-printable.topLeft(), QSizeF(document.PageWidth * f, document.PageHeight * f));
}

bool print_pages(const PageDocument& document, QPrinter& printer, int from, int to) {
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  for (int page = from; page <= to && page <= document.PageCount(); ++page) {
    if (page > from) printer.newPage();
    paint_page(document, page - 1, painter, sheet_on_printer(document, printer));
  }
  return painter.end();
}

}  // namespace tellux
