#include "gui/grid_view.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "platform/qt/qt_drawing_surface.h"

namespace tellux {

GridTableModel::GridTableModel(GridModel& grid, QObject* parent)
    : QAbstractTableModel(parent),
      grid_(grid),
      shown_rows_(grid.rows()),
      shown_cols_(grid.cols()) {}

void GridTableModel::refresh() {
  // The logic may give the grid new bounds (`Rows`, `Cols`): the view then starts afresh.
  if (grid_.rows() != shown_rows_ || grid_.cols() != shown_cols_) {
    beginResetModel();
    shown_rows_ = grid_.rows();
    shown_cols_ = grid_.cols();
    endResetModel();
    return;
  }
  if (rowCount() == 0 || columnCount() == 0) return;
  emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
  emit headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
}

int GridTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.rows() - 1;
}

int GridTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.cols() - 1;
}

QVariant GridTableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const int r = index.row() + 1, c = index.column() + 1;
  switch (role) {
    case Qt::DisplayRole:
      if (shown) return shown(c, grid_.text(r, c));
      return QString::fromStdString(grid_.text(r, c));
    case Qt::EditRole:
      return QString::fromStdString(grid_.text(r, c));
    case Qt::TextAlignmentRole:
      return static_cast<int>((right_ ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::BackgroundRole:
      if (grid_.back_colour(r, c) >= 0) return to_qcolor(grid_.back_colour(r, c));
      return {};
    case Qt::ForegroundRole:
      if (grid_.fore_colour(r, c) >= 0) return to_qcolor(grid_.fore_colour(r, c));
      return {};
    default:
      return {};
  }
}

QVariant GridTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return QAbstractTableModel::headerData(section, orientation, role);
  if (orientation == Qt::Horizontal) {
    if (section < 0 || section + 1 >= grid_.cols()) return {};
    return QString::fromStdString(grid_.text(0, section + 1));
  }
  if (section < 0 || section + 1 >= grid_.rows()) return {};
  const std::string& number = grid_.text(section + 1, 0);
  return number.empty() ? QString::number(section + 1) : QString::fromStdString(number).trimmed();
}

Qt::ItemFlags GridTableModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  if (!on_edit || (editable && !editable(index.row() + 1, index.column() + 1))) return flags;
  return flags | Qt::ItemIsEditable;
}

bool GridTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole || !on_edit) return false;
  if (!on_edit(index.row() + 1, index.column() + 1, value.toString().toStdString())) return false;
  refresh();
  return true;
}

GridView::GridView(GridModel& grid, QWidget* parent) : QTableView(parent), model_(grid, this) {
  setModel(&model_);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setSelectionBehavior(QAbstractItemView::SelectItems);
  setTabKeyNavigation(true);
  setWordWrap(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void GridView::refresh() {
  model_.refresh();
  GridModel& g = model_.grid();
  if (!g.redraw) return;
  const QModelIndex target = model_.index(g.row - 1, g.col - 1);
  if (target.isValid() && target != currentIndex()) {
    syncing_ = true;
    setCurrentIndex(target);
    syncing_ = false;
  }
  viewport()->update();
}

void GridView::keyPressEvent(QKeyEvent* event) {
  if (on_key && on_key(event->key(), event->text(), event->modifiers())) {
    event->accept();
    return;
  }
  QTableView::keyPressEvent(event);
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (syncing_ || !current.isValid()) return;
  GridModel& g = model_.grid();
  g.row = current.row() + 1;
  g.col = current.column() + 1;
  if (on_current) on_current(g.row, g.col);
}

}  // namespace tellux
