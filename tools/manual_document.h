#pragma once
// One manual from its chapters: the text assembled, laid out on A4 pages behind a title page and
// a table of contents with page numbers, written as a PDF with an outline of every heading and
// an index of the pages that Help opens at.
#include <QMap>
#include <QString>

namespace manual {

struct Book {
  QString chapters;  // folder of the language's chapters, NN-name.html, read in name order
  QString style;     // the style sheet shared by the languages
  QString samples;   // folder whose files a chapter shows with <!--file:PATH-->
  QString pictures;  // folder of the pictures the chapters name; a missing one is left out
  QString title;     // of the title page and of the PDF
  QString subtitle;
  QString contents;                // heading of the table of contents
  QMap<QString, QString> inserts;  // <!--insert:NAME--> of a chapter becomes the value
};

// Writes `pdf` and, beside it, the same name with ".TOC": a line "anchor page top" for each
// heading that holds an anchor (its page from 1, its distance from the page's top in points).
// Returns the number of pages, 0 on failure (with `error`).
int write_book(const Book& book, const QString& pdf, QString& error);

}  // namespace manual
