#pragma once
// The tab "Bilog Setup" on the screen: the ranges of the axes, the decimals of the thicknesses,
// the display switches, the electrode array, the colour buttons with their samples and the redraw
// button, all bound to the control models of the setup tab's logic.
#include <QWidget>
#include <functional>
#include <vector>

#include "app/setup_tab.h"

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tellux {

class SetupWidget : public QWidget {
 public:
  SetupWidget(SetupTab& tab, QWidget* parent = nullptr);

  // Shows the models again (lists, boxes, captions, colours).
  void refresh();
  // After an action of the tab: the program shows what changed elsewhere (diagram, status line,
  // the sheet's headings).
  std::function<void()> on_changed;
  // A click on an array button; by default the tab's own handler.
  std::function<void(int)> on_option;
  // The status line got a hint (the mouse over a colour sample).
  std::function<void()> on_status;

  QPushButton* redraw_button() const { return redraw_; }
  QComboBox* list(int n) const { return combos_.at(static_cast<size_t>(n - 1)); }
  QRadioButton* array_button(int index) const { return options_.at(static_cast<size_t>(index)); }
  QCheckBox* steps_box() const { return steps_; }
  QCheckBox* errors_box() const { return errors_; }
  QCheckBox* keep_box() const { return keep_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void run(const std::function<void()>& action);
  QWidget* colour_row(Button& button, void (SetupTab::*click)(), QWidget* sample);

  SetupTab& tab_;
  std::vector<QComboBox*> combos_;
  std::vector<QRadioButton*> options_;
  QButtonGroup* option_group_ = nullptr;
  QCheckBox *steps_ = nullptr, *errors_ = nullptr, *keep_ = nullptr, *accurate_ = nullptr;
  QGroupBox *frame10_ = nullptr, *frame7_ = nullptr, *colours_ = nullptr, *arrays_ = nullptr;
  QLabel* label5_ = nullptr;
  QPushButton* redraw_ = nullptr;
  std::vector<std::pair<QPushButton*, Button*>> colour_buttons_;
  QWidget *picture1_, *picture2_, *picture3_, *picture4_, *picture5_;
  QLineEdit* text16_ = nullptr;
  bool refreshing_ = false;
};

}  // namespace tellux
