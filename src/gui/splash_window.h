#pragma once
// The start window `frmSplash`: the program's name and four ways in.
#include <QDialog>

#include "app/start_window.h"

class QLabel;
class QPushButton;

namespace tellux {

class SplashWindow : public QDialog {
 public:
  SplashWindow(StartWindow& logic, QWidget* parent = nullptr);

  // Captions and the enabled state from the logic's buttons.
  void refresh();
  // After a button's action: the program shows what changed.
  std::function<void()> on_action;

  QPushButton* button(int command) const;  // 2, 3, 4 or 5

 private:
  void run(void (StartWindow::*click)());

  StartWindow& logic_;
  QPushButton *command2_, *command3_, *command4_, *command5_;
  QLabel* subtitle_;
};

}  // namespace tellux
