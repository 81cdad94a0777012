#include "gui/splash_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/sounding_state.h"
#include "gui/toolbar_icons.h"

namespace tellux {

SplashWindow::SplashWindow(StartWindow& logic, QWidget* parent) : QDialog(parent), logic_(logic) {
  setObjectName(QStringLiteral("frmSplash"));
  setWindowTitle(QString::fromUtf8(kProgramTitle));
  setModal(false);

  auto* picture = new QLabel;
  picture->setPixmap(program_icon().pixmap(64, 64));
  auto* name = new QLabel(QString::fromUtf8(kProgramTitle));
  QFont big = name->font();
  big.setPointSizeF(big.pointSizeF() * 2.2);
  big.setBold(true);
  name->setFont(big);
  subtitle_ = new QLabel;
  QLabel* what = subtitle_;
  auto* heading_text = new QVBoxLayout;
  heading_text->addWidget(name);
  heading_text->addWidget(what);
  auto* heading = new QHBoxLayout;
  heading->addWidget(picture);
  heading->addSpacing(12);
  heading->addLayout(heading_text, 1);

  const auto make = [this](const char* object_name, void (StartWindow::*click)()) {
    auto* b = new QPushButton;
    b->setObjectName(QLatin1String(object_name));
    b->setMinimumHeight(34);
    connect(b, &QPushButton::clicked, this, [this, click] { run(click); });
    return b;
  };
  command2_ = make("Command2", &StartWindow::Command2_Click);
  command4_ = make("Command4", &StartWindow::Command4_Click);
  command3_ = make("Command3", &StartWindow::Command3_Click);
  command5_ = make("Command5", &StartWindow::Command5_Click);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 20, 24, 20);
  layout->setSpacing(8);
  layout->addLayout(heading);
  layout->addSpacing(12);
  for (QPushButton* b : {command2_, command4_, command3_, command5_}) layout->addWidget(b);
  setMinimumWidth(340);
  refresh();
}

QPushButton* SplashWindow::button(int command) const {
  switch (command) {
    case 2:
      return command2_;
    case 3:
      return command3_;
    case 4:
      return command4_;
    case 5:
      return command5_;
    default:
      return nullptr;
  }
}

void SplashWindow::refresh() {
  const std::pair<QPushButton*, const Button*> pairs[] = {{command2_, &logic_.Command2},
                                                          {command3_, &logic_.Command3},
                                                          {command4_, &logic_.Command4},
                                                          {command5_, &logic_.Command5}};
  subtitle_->setText(QString::fromStdString(logic_.Subtitle.Caption));
  for (const auto& [push, model] : pairs) {
    push->setText(QString::fromStdString(model->Caption));
    push->setEnabled(model->Enabled);
  }
}

void SplashWindow::run(void (StartWindow::*click)()) {
  (logic_.*click)();
  if (on_action) on_action();
}

}  // namespace tellux
