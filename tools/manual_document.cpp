#include "manual_document.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>
#include <vector>

#include "pdf_outline.h"

namespace manual {

namespace {

constexpr double kDpi = 96;          // the text and the pictures are laid out at 96 dots an inch
constexpr double kTopMarginMm = 16;  // margins of the page
constexpr double kSideMarginMm = 18;
constexpr int kFooter = 30;  // room under the text for the page number

QString read_text(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// <!--file:PATH--> becomes the first lines of samples/PATH, as the program reads them.
QString with_sample_files(const QString& body, const QString& samples) {
  static const QRegularExpression tag(QStringLiteral("<!--file:([^>]+)-->"));
  QString out;
  qsizetype from = 0;
  for (auto it = tag.globalMatch(body); it.hasNext();) {
    const auto m = it.next();
    QStringList lines = read_text(samples + QLatin1Char('/') + m.captured(1))
                            .remove(QLatin1Char('\r'))
                            .split(QLatin1Char('\n'));
    while (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
    const qsizetype shown = std::min<qsizetype>(lines.size(), 12);
    QString text = lines.mid(0, shown).join(QLatin1Char('\n'));
    if (shown < lines.size()) text += QStringLiteral("\n...");
    out += body.mid(from, m.capturedStart() - from) +
           QStringLiteral("<p><code>samples/%1</code>:</p><pre>%2</pre>")
               .arg(m.captured(1), text.toHtmlEscaped());
    from = m.capturedEnd();
  }
  return out + body.mid(from);
}

// The chapters in order, with their inserts, and without the figures whose picture is missing
// (a window that this build of the program does not have).
QString assemble(const Book& book) {
  QString body;
  const QDir dir(book.chapters);
  for (const QString& name : dir.entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name))
    body += read_text(dir.filePath(name)) + QLatin1Char('\n');
  for (auto it = book.inserts.begin(); it != book.inserts.end(); ++it)
    body.replace(QStringLiteral("<!--insert:%1-->").arg(it.key()), it.value());
  body = with_sample_files(body, book.samples);
  static const QRegularExpression figure(
      QStringLiteral(R"re(<p align="center"><img src="([^"]+)"[^>]*></p>\s*)re"
                     R"((<p class="caption"[^>]*>.*?</p>)?)"),
      QRegularExpression::DotMatchesEverythingOption);
  // The figures kept are numbered in order, so a left-out one leaves no gap.
  static const QRegularExpression number(QStringLiteral("(Figure|Figura) \\d+\\."));
  QString kept;
  qsizetype from = 0;
  int figures = 0;
  for (auto it = figure.globalMatch(body); it.hasNext();) {
    const auto m = it.next();
    kept += body.mid(from, m.capturedStart() - from);
    if (QFileInfo::exists(book.pictures + QLatin1Char('/') + m.captured(1))) {
      QString text = m.captured();
      const auto n = number.match(text);
      if (n.hasMatch())
        text.replace(n.capturedStart(), n.capturedLength(),
                     QStringLiteral("%1 %2.").arg(n.captured(1)).arg(++figures));
      kept += text;
    }
    from = m.capturedEnd();
  }
  return kept + body.mid(from);
}

struct Heading {
  int level;
  QString title, anchor;
  int page;    // 0-based page of the body
  double top;  // pixels from the top of the text area
};

QTextDocument* new_document(const Book& book, const QSizeF& page, QObject* parent) {
  auto* document = new QTextDocument(parent);
  for (const QString& name : QDir(book.pictures).entryList({QStringLiteral("*.png")}))
    document->addResource(QTextDocument::ImageResource, QUrl(name),
                          QImage(book.pictures + QLatin1Char('/') + name));
  QFont font(QStringLiteral("Liberation Sans"));
  font.setPointSizeF(10.5);
  document->setDefaultFont(font);
  document->setDefaultStyleSheet(read_text(book.style));
  document->setPageSize(page);
  return document;
}

std::vector<Heading> headings_of(QTextDocument& document, double page_height) {
  std::vector<Heading> headings;
  document.pageCount();  // lays the document out
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const int level = block.blockFormat().headingLevel();
    if (level < 1 || level > 3 || block.text().trimmed().isEmpty()) continue;
    QString anchor;
    for (auto it = block.begin(); !it.atEnd() && anchor.isEmpty(); ++it)
      if (!it.fragment().charFormat().anchorNames().isEmpty())
        anchor = it.fragment().charFormat().anchorNames().first();
    const QTextLayout* layout = block.layout();
    const double y = layout->position().y() + (layout->lineCount() ? layout->lineAt(0).y() : 0);
    const int page = static_cast<int>(y / page_height);
    headings.push_back({level, block.text().trimmed(), anchor, page, y - page * page_height});
  }
  return headings;
}

QString contents_html(const Book& book, const std::vector<Heading>& headings, int offset) {
  QString html = QStringLiteral(
                     "<p style=\"margin-top:180px\" align=\"center\"><span style=\"font-size:30pt; "
                     "color:#1f3f7f\"><b>%1</b></span></p><p align=\"center\"><span "
                     "style=\"font-size:14pt\">%2</span></p><h1>%3</h1><table width=\"100%\" "
                     "cellspacing=\"0\" cellpadding=\"1\">")
                     .arg(book.title, book.subtitle, book.contents);
  for (const Heading& h : headings) {
    if (h.level > 2) continue;
    const QString cell =
        h.level == 1 ? QStringLiteral("<b>%1</b>").arg(h.title.toHtmlEscaped())
                     : QStringLiteral("&nbsp;&nbsp;&nbsp;&nbsp;%1").arg(h.title.toHtmlEscaped());
    html += QStringLiteral("<tr><td%3>%1</td><td align=\"right\"%3>%2</td></tr>")
                .arg(cell)
                .arg(h.page + offset + 1)
                .arg(h.level == 1 ? QStringLiteral(" style=\"padding-top:5px\"") : QString());
  }
  return html + QStringLiteral("</table>");
}

void draw_pages(QPdfWriter& pdf, QPainter& painter, QTextDocument& document, const QSizeF& page,
                int& number) {
  for (int i = 0; i < document.pageCount(); ++i) {
    if (number > 0) pdf.newPage();
    painter.save();
    painter.translate(0, -i * page.height());
    document.drawContents(&painter, QRectF(0, i * page.height(), page.width(), page.height()));
    painter.restore();
    painter.setFont(QFont(QStringLiteral("Liberation Sans"), 8));
    ++number;
    if (number > 1)
      painter.drawText(QRectF(0, page.height(), page.width(), kFooter), Qt::AlignCenter,
                       QString::number(number));
  }
}

}  // namespace

int write_book(const Book& book, const QString& pdf_path, QString& error) {
  const QString body = assemble(book);
  if (body.trimmed().isEmpty()) {
    error = QStringLiteral("no chapters in ") + book.chapters;
    return 0;
  }
  QObject owner;
  QSizeF page;
  std::vector<Heading> headings;
  int front = 0, number = 0;
  {  // the writer closes the file when it goes, before the outline is added
    QPdfWriter pdf(pdf_path);
    pdf.setResolution(static_cast<int>(kDpi));
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setPageMargins(QMarginsF(kSideMarginMm, kTopMarginMm, kSideMarginMm, kTopMarginMm),
                       QPageLayout::Millimeter);
    pdf.setTitle(book.title);
    pdf.setCreator(book.title);
    const QRect area = pdf.pageLayout().paintRectPixels(pdf.resolution());
    page = QSizeF(area.width(), area.height() - kFooter);
    QTextDocument* text = new_document(book, page, &owner);
    text->setHtml(body);
    // Every chapter starts a page, but the first one starts the body itself.
    QTextCursor first(text->begin());
    QTextBlockFormat format = first.blockFormat();
    format.setPageBreakPolicy(QTextFormat::PageBreak_Auto);
    first.setBlockFormat(format);
    headings = headings_of(*text, page.height());
    // The contents' own length decides where the body starts; the numbers do not change it.
    QTextDocument* contents = new_document(book, page, &owner);
    contents->setHtml(contents_html(book, headings, 0));
    front = contents->pageCount();
    contents->setHtml(contents_html(book, headings, front));
    QPainter painter(&pdf);
    draw_pages(pdf, painter, *contents, page, number);
    draw_pages(pdf, painter, *text, page, number);
  }

  std::vector<OutlineEntry> outline;
  QString index;
  const double point = 72.0 / kDpi, top_margin = kTopMarginMm * 72.0 / 25.4;
  for (const Heading& h : headings) {
    outline.push_back({h.level, h.title.toStdString(), front + h.page, top_margin + h.top * point});
    if (!h.anchor.isEmpty())
      index += QStringLiteral("%1 %2 %3\n")
                   .arg(h.anchor)
                   .arg(front + h.page + 1)
                   .arg(outline.back().top, 0, 'f', 1);
  }
  std::string failure;
  if (!add_outline(pdf_path.toStdString(), outline, failure)) {
    error = QString::fromStdString(failure);
    return 0;
  }
  QFile pages(QString(pdf_path).replace(QRegularExpression(QStringLiteral("\\.PDF$")),
                                        QStringLiteral(".TOC")));
  if (!pages.open(QIODevice::WriteOnly) || pages.write(index.toUtf8()) < 0) {
    error = QStringLiteral("cannot write ") + pages.fileName();
    return 0;
  }
  return number;
}

}  // namespace manual
