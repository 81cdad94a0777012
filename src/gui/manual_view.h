#pragma once
// The program's own view of the manual: its outline beside the pages, a box that finds a text
// (a message, a command) in the whole manual, and the pages, opened at a given page.
#include <QDialog>

class QLineEdit;
class QPdfBookmarkModel;
class QPdfDocument;
class QPdfSearchModel;
class QPdfView;
class QTreeView;

namespace tellux {

class ManualView : public QDialog {
 public:
  ManualView(const QString& file, QWidget* parent);
  // False when the file could not be read as a PDF.
  bool loaded() const { return loaded_; }
  QString file() const { return file_; }
  // Shows page `page` (from 1) from `top` points below its top edge.
  void go_to(int page, double top = 0);
  int page() const;

 private:
  void find_next();

  QString file_;
  bool loaded_ = false;
  QPdfDocument* document_;
  QPdfView* pages_;
  QPdfBookmarkModel* outline_;
  QTreeView* contents_;
  QLineEdit* find_;
  QPdfSearchModel* found_;
  int next_found_ = 0;
};

}  // namespace tellux
