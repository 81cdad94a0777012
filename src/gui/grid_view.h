#pragma once
// A grid control on the screen: a table view of a `GridModel` (row 0 is the header row, column
// 0 the row numbers). The view follows the model's current cell and repaint switch; keys typed in
// it can be handed to the logic instead of an editor.
#include <QAbstractTableModel>
#include <QTableView>
#include <functional>

#include "platform/grid_model.h"

namespace tellux {

class GridTableModel : public QAbstractTableModel {
 public:
  GridTableModel(GridModel& grid, QObject* parent = nullptr);

  GridModel& grid() { return grid_; }
  // All cells right-aligned (the field sheet's format).
  void set_right_aligned(bool on) { right_ = on; }
  // The view shows the model's texts again.
  void refresh();
  // A cell typed in (grid row and column): the logic takes the text or refuses it (false). Cells
  // are typed in only when this is set, and only those that `editable` allows.
  std::function<bool(int row, int col, const std::string& text)> on_edit;
  std::function<bool(int row, int col)> editable;
  // What a cell shows, where that differs from the text it holds; the editor gets the text.
  std::function<QString(int col, const std::string& text)> shown;

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
  GridModel& grid_;
  bool right_ = false;
  int shown_rows_, shown_cols_;  // the bounds the view knows
};

class GridView : public QTableView {
 public:
  GridView(GridModel& grid, QWidget* parent = nullptr);

  GridTableModel& table() { return model_; }
  // A key typed in the grid: return true when the logic took it. Arrow keys, Tab and the like
  // move the current cell as usual when the logic leaves them.
  std::function<bool(int key, const QString& text, Qt::KeyboardModifiers modifiers)> on_key;
  // The current cell moved (grid row and column, counted as the logic counts them).
  std::function<void(int row, int col)> on_current;

  // Shows the model again: texts, and the current cell unless repainting is switched off.
  void refresh();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  GridTableModel model_;
  bool syncing_ = false;
};

}  // namespace tellux
