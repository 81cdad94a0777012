#pragma once
// Paints the pages of a page document with Qt: on a preview widget, a printer, a PDF, an SVG or a
// PNG. One painting routine serves them all, so what the preview shows is what prints.
#include <QRectF>
#include <QString>

#include "platform/page_document.h"

class QPainter;
class QPrinter;

namespace tellux {

// Page `index` (from 0) of `document`, the sheet filling `target` (in the painter's units).
void paint_page(const PageDocument& document, int index, QPainter& painter, const QRectF& target);

// The files are written whole through a temporary file beside the target, so a failure keeps an
// old file as it was. Each returns an empty text when it wrote, else the system's reason.
// Every page, one PDF page each, at the sheet's size.
QString write_pdf(const PageDocument& document, const QString& path);
// One page as SVG (sheet size in millimetres) and as PNG at `dpi`.
QString write_svg(const PageDocument& document, int index, const QString& path);
QString write_png(const PageDocument& document, int index, const QString& path, int dpi = 100);
// Where the sheet of `document` stands in the painter's units of `printer`: at the paper's corner,
// at its own size in twips on both axes.
QRectF sheet_on_printer(const PageDocument& document, const QPrinter& printer);
// Pages `from` to `to` (from 1) on `printer`, one sheet each; false when the printer could not
// begin (no printer, no file) or did not finish.
bool print_pages(const PageDocument& document, QPrinter& printer, int from, int to);

}  // namespace tellux
