#include "platform/qt/qt_pictures.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QSvgGenerator>

#include "platform/qt/qt_page_painter.h"

namespace tellux {

std::string QtPictures::write_page(const PageDocument& document, int index,
                                   const std::string& path) {
  return write_svg(document, index, QString::fromStdString(path)).toStdString();
}

void QtPictures::copy_page(const PageDocument& document, int index) {
  if (index < 0 || index >= document.PageCount()) return;
  // An image for any program, and the same page as SVG for those that take vectors.
  constexpr double kDpi = 150;
  QImage image(static_cast<int>(document.PageWidth / 1440 * kDpi),
               static_cast<int>(document.PageHeight / 1440 * kDpi), QImage::Format_RGB32);
  image.fill(Qt::white);
  {
    QPainter painter(&image);
    paint_page(document, index, painter, QRectF(0, 0, image.width(), image.height()));
  }
  QBuffer svg;
  svg.open(QIODevice::WriteOnly);
  {
    QSvgGenerator generator;
    generator.setOutputDevice(&svg);
    generator.setViewBox(QRectF(0, 0, document.PageWidth, document.PageHeight));
    QPainter painter(&generator);
    paint_page(document, index, painter, QRectF(0, 0, document.PageWidth, document.PageHeight));
  }
  auto* data = new QMimeData;
  data->setImageData(image);
  data->setData(QStringLiteral("image/svg+xml"), svg.data());
  QGuiApplication::clipboard()->setMimeData(data);
}

void QtPictures::copy_diagram() {
  if (diagram_) QGuiApplication::clipboard()->setImage(diagram_());
}

}  // namespace tellux
