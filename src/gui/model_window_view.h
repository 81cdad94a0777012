#pragma once
// The model editor on the screen: a small tool window beside the diagram with the layer grid
// `Grid1`, the number of the stored model shown, the buttons, the overlay box, the sensitivity
// slider and the comment. It shows the control models of `ModelWindow` and hands every action of
// the user to its handlers; the grid does not edit by itself, its keys go to the logic.
#include <QWidget>
#include <functional>
#include <memory>

#include "app/model_window.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;
class QTableWidget;

namespace tellux {

class QtForms;

class ModelWindowView : public QWidget, public ModelWindowDisplay {
 public:
  ModelWindowView(ModelWindow& window, QWidget* parent);
  ~ModelWindowView() override;

  // Shows the models again: grid texts and colours, the current cell, captions and controls.
  void refresh();
  // Shows the window beside the main window where the screen has room for it; otherwise it docks
  // in `dock` (the diagram's page), whose owner makes room for it at the right edge.
  void show_beside_parent();
  void set_dock(QWidget* dock) { dock_ = dock; }
  bool docked() const { return docked_; }
  // The docked window was shown or hidden: the page is to be laid out again.
  std::function<void()> on_dock_changed;

  // ModelWindowDisplay
  void changed() override { refresh(); }
  void focus_grid() override;

  QTableWidget* grid() const { return grid_; }
  QPushButton* button(const Button& model) const;
  QCheckBox* overlay_box() const { return check18_; }
  QSlider* slider() const { return slider1_; }
  QLabel* overlay_number() const { return grid2_; }

  // Runs after each action of the window, so that the main window shows what it changed.
  std::function<void()> on_action;
  // The key "Equivalence..." (after a fit): the analysis of the current model.
  std::function<void()> on_equivalence;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QPushButton* make_button(Button& model, void (ModelWindow::*click)());
  void run(void (ModelWindow::*action)());
  void forward_key(int key, Qt::KeyboardModifiers modifiers);
  void float_over(QWidget* owner);

  ModelWindow& window_;
  QTableWidget* grid_ = nullptr;
  QLabel* grid2_ = nullptr;
  std::vector<std::pair<QPushButton*, Button*>> buttons_;
  QCheckBox* check18_ = nullptr;
  QLabel *label2_ = nullptr, *label3_ = nullptr, *label4_ = nullptr;
  QSlider* slider1_ = nullptr;
  QGroupBox* frame1_ = nullptr;
  QLineEdit* comment_ = nullptr;
  QPushButton* equivalence_ = nullptr;
  bool refreshing_ = false;
  QWidget* dock_ = nullptr;
  QWidget* dock_bar_ = nullptr;
  QLabel* dock_title_ = nullptr;
  bool docked_ = false;
};

// The view of `window`, a tool window of `parent` (the main window).
std::unique_ptr<ModelWindowView> make_model_window_view(ModelWindow& window, QWidget* parent);

// Routes the calls that the shared routines make of the model window (show, unload, refresh of
// the grid after a fit, the overlay controls after a curve) to `window` and its `view`.
void connect_model_window(QtForms& forms, ModelWindow& window, ModelWindowView& view);

// The key code the logic's key handler takes for a key of the keyboard; 0 for a key it never
// sees (modifiers alone).
int key_code_of(int qt_key, Qt::KeyboardModifiers modifiers);

}  // namespace tellux
