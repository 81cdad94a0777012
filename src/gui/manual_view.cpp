#include "gui/manual_view.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPdfBookmarkModel>
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPdfSearchModel>
#include <QPdfView>
#include <QScrollBar>
#include <QSplitter>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

namespace tellux {

ManualView::ManualView(const QString& file, QWidget* parent)
    : QDialog(parent), file_(file), document_(new QPdfDocument(this)) {
  setObjectName(QStringLiteral("manual"));
  setWindowTitle(QFileInfo(file).fileName());
  loaded_ = document_->load(file) == QPdfDocument::Error::None;

  pages_ = new QPdfView(this);
  pages_->setDocument(document_);
  pages_->setPageMode(QPdfView::PageMode::MultiPage);
  pages_->setZoomMode(QPdfView::ZoomMode::FitToWidth);

  // The outline of the manual: a click goes to the section's page.
  outline_ = new QPdfBookmarkModel(this);
  outline_->setDocument(document_);
  contents_ = new QTreeView(this);
  contents_->setObjectName(QStringLiteral("contents"));
  contents_->setModel(outline_);
  contents_->setHeaderHidden(true);
  connect(contents_, &QTreeView::activated, this, [this](const QModelIndex& index) {
    go_to(index.data(int(QPdfBookmarkModel::Role::Page)).toInt() + 1);
  });
  connect(contents_, &QTreeView::clicked, contents_, &QTreeView::activated);

  // Enter finds the next place of the text, over the whole manual.
  found_ = new QPdfSearchModel(this);
  found_->setDocument(document_);
  find_ = new QLineEdit(this);
  find_->setObjectName(QStringLiteral("find"));
  find_->setClearButtonEnabled(true);
  connect(find_, &QLineEdit::textChanged, this, [this](const QString& text) {
    found_->setSearchString(text);
    next_found_ = 0;
  });
  connect(find_, &QLineEdit::returnPressed, this, &ManualView::find_next);

  auto* side = new QWidget(this);
  auto* side_layout = new QVBoxLayout(side);
  side_layout->setContentsMargins(0, 0, 0, 0);
  side_layout->addWidget(find_);
  side_layout->addWidget(contents_);
  auto* split = new QSplitter(this);
  split->addWidget(side);
  split->addWidget(pages_);
  split->setStretchFactor(1, 1);
  split->setSizes({240, 760});
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(split);
  resize(1000, 900);
}

void ManualView::go_to(int page, double top) {
  const int index = std::clamp(page - 1, 0, std::max(0, document_->pageCount() - 1));
  pages_->pageNavigator()->jump(index, QPointF(), pages_->zoomFactor());
  // Once the view is laid out: the page at the top, then down to the heading, with a little
  // room above it (the view places pages, not points within them).
  QTimer::singleShot(0, pages_, [this, index, top] {
    pages_->pageNavigator()->jump(index, QPointF(), pages_->zoomFactor());
    // The view fits the page's width: its pixels to a point follow from the widths.
    const QMargins margins = pages_->documentMargins();
    const double width = pages_->viewport()->width() - margins.left() - margins.right();
    const double points = document_->pagePointSize(index).width();
    const double pixels = points > 0 ? std::max(0.0, top - 12) * width / points : 0;
    QScrollBar* bar = pages_->verticalScrollBar();
    bar->setValue(bar->value() + static_cast<int>(pixels));
  });
}

int ManualView::page() const { return pages_->pageNavigator()->currentPage() + 1; }

void ManualView::find_next() {
  const int count = found_->rowCount({});
  if (count == 0) return;
  const QPdfLink place = found_->resultAtIndex(next_found_ % count);
  ++next_found_;
  pages_->pageNavigator()->jump(place);
}

}  // namespace tellux
