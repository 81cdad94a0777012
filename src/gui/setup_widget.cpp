#include "gui/setup_widget.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include "platform/qt/qt_drawing_surface.h"

namespace tellux {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

void paint_sample(QWidget* sample, int32_t colour) {
  QPalette palette = sample->palette();
  palette.setColor(QPalette::Window, to_qcolor(colour));
  palette.setColor(QPalette::Base, to_qcolor(colour));
  sample->setPalette(palette);
  sample->setToolTip(QStringLiteral("%1").arg(colour));
}

QFrame* make_sample(const char* name) {
  auto* frame = new QFrame;
  frame->setObjectName(QLatin1String(name));
  frame->setFrameShape(QFrame::Box);
  frame->setAutoFillBackground(true);
  frame->setMinimumSize(48, 22);
  frame->setMouseTracking(true);
  return frame;
}

// The lists' items carry leading blanks that right-align them on the old form; here they are
// shown right-aligned without the blanks. The logic keeps the texts as they are.
void fill_combo(QComboBox* combo, const ListModel& list) {
  combo->clear();
  for (int i = 0; i < list.ListCount(); ++i) {
    combo->addItem(q(list.List(i)).trimmed());
    combo->setItemData(i, static_cast<int>(Qt::AlignRight | Qt::AlignVCenter),
                       Qt::TextAlignmentRole);
  }
  combo->setCurrentIndex(list.ListIndex());
}

}  // namespace

SetupWidget::SetupWidget(SetupTab& tab, QWidget* parent) : QWidget(parent), tab_(tab) {
  setObjectName(QStringLiteral("BilogSetup"));

  // Ranges and decimals.
  frame7_ = new QGroupBox;
  frame7_->setObjectName(QStringLiteral("Frame7"));
  auto* ranges = new QFormLayout(frame7_);
  ranges->setLabelAlignment(Qt::AlignRight);
  const char* names[] = {"Combo1", "Combo2", "Combo3", "Combo4", "Combo5"};
  const char* labels[] = {"AB/2 min [m]", "AB/2 max [m]", "Rho min [ohm·m]", "Rho max [ohm·m]", ""};
  ListModel* models[] = {&tab_.Combo1, &tab_.Combo2, &tab_.Combo3, &tab_.Combo4, &tab_.Combo5};
  for (int i = 0; i < 5; ++i) {
    auto* combo = new QComboBox;
    combo->setObjectName(QLatin1String(names[i]));
    combo->setEditable(true);
    combo->lineEdit()->setReadOnly(true);
    combo->lineEdit()->setAlignment(Qt::AlignRight);
    combo->setMinimumContentsLength(9);
    ListModel* model = models[i];
    connect(combo, &QComboBox::currentIndexChanged, this, [this, model](int index) {
      if (!refreshing_) model->ListIndex(index);
    });
    combos_.push_back(combo);
    if (i < 4) {
      ranges->addRow(QString::fromUtf8(labels[i]), combo);
    } else {
      label5_ = new QLabel;
      label5_->setObjectName(QStringLiteral("Label5"));
      ranges->addRow(label5_, combo);
    }
  }

  // Display switches and the array.
  frame10_ = new QGroupBox;
  frame10_->setObjectName(QStringLiteral("Frame10"));
  auto* options = new QVBoxLayout(frame10_);
  const auto check = [&](const char* name, CheckBox& model) {
    auto* box = new QCheckBox;
    box->setObjectName(QLatin1String(name));
    connect(box, &QCheckBox::toggled, this, [this, &model](bool on) {
      if (!refreshing_) model.Value = on ? 1 : 0;
    });
    options->addWidget(box);
    return box;
  };
  steps_ = check("represent_modele", tab_.represent_modele);
  errors_ = check("RMSB", tab_.RMSB);
  keep_ = check("garder_config", tab_.garder_config);
  accurate_ = check("accurate_curves", tab_.accurate_curves);
  arrays_ = new QGroupBox;
  QGroupBox* arrays = arrays_;
  auto* array_row = new QHBoxLayout(arrays);
  option_group_ = new QButtonGroup(this);
  for (int i = 0; i < 3; ++i) {
    auto* button = new QRadioButton(q(tab_.Options.Captions.at(static_cast<size_t>(i))));
    button->setObjectName(QStringLiteral("Option%1").arg(i + 1));
    option_group_->addButton(button, i);
    array_row->addWidget(button);
    options_.push_back(button);
  }
  connect(option_group_, &QButtonGroup::idClicked, this, [this](int id) {
    run([this, id] {
      if (on_option)
        on_option(id);
      else
        tab_.Option_Click(id);
    });
  });
  options->addWidget(arrays);
  options->addStretch(1);

  // Colours: each button opens the colour dialog, its sample shows the colour.
  colours_ = new QGroupBox;
  colours_->setObjectName(QStringLiteral("Frame8"));
  QGroupBox* colours = colours_;
  auto* colour_grid = new QVBoxLayout(colours);
  picture1_ = make_sample("Picture1");
  picture2_ = make_sample("Picture2");
  picture3_ = make_sample("Picture3");
  picture4_ = make_sample("Picture4");
  picture5_ = make_sample("Picture5");
  text16_ = new QLineEdit;
  text16_->setObjectName(QStringLiteral("Text16"));
  text16_->setReadOnly(true);
  text16_->setFocusPolicy(Qt::NoFocus);
  text16_->setMinimumWidth(48);
  text16_->setMaximumWidth(48);
  colour_grid->addWidget(colour_row(tab_.Command12, &SetupTab::Command12_Click, picture1_));
  colour_grid->addWidget(colour_row(tab_.Command4, &SetupTab::Command4_Click, picture2_));
  colour_grid->addWidget(colour_row(tab_.Command5, &SetupTab::Command5_Click, picture3_));
  colour_grid->addWidget(colour_row(tab_.Command6, &SetupTab::Command6_Click, picture4_));
  colour_grid->addWidget(colour_row(tab_.Command7, &SetupTab::Command7_Click, picture5_));
  colour_grid->addWidget(colour_row(tab_.Command8, &SetupTab::Command8_Click, text16_));
  colour_grid->addStretch(1);
  picture4_->installEventFilter(this);
  picture5_->installEventFilter(this);

  redraw_ = new QPushButton;
  redraw_->setObjectName(QStringLiteral("Command11"));
  redraw_->setMinimumHeight(32);
  connect(redraw_, &QPushButton::clicked, this,
          [this] { run([this] { tab_.Command11_Click(); }); });

  // Ranges over options in one column, the colours beside them; on a small screen the tab
  // scrolls rather than cut a caption.
  auto* inner = new QWidget;
  auto* grid = new QGridLayout(inner);
  grid->addWidget(frame7_, 0, 0);
  grid->addWidget(frame10_, 1, 0);
  grid->addWidget(redraw_, 2, 0, Qt::AlignLeft | Qt::AlignTop);
  grid->addWidget(colours, 0, 1, 2, 1, Qt::AlignTop);
  grid->setRowStretch(3, 1);
  grid->setColumnStretch(2, 1);
  auto* scroll = new QScrollArea;
  scroll->setWidget(inner);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->addWidget(scroll);
  refresh();
}

QWidget* SetupWidget::colour_row(Button& button, void (SetupTab::*click)(), QWidget* sample) {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* push = new QPushButton(q(button.Caption));
  push->setMinimumWidth(push->sizeHint().width() + 16);
  connect(push, &QPushButton::clicked, this,
          [this, click] { run([this, click] { (tab_.*click)(); }); });
  colour_buttons_.emplace_back(push, &button);
  layout->addWidget(push, 1);
  layout->addWidget(sample);
  return row;
}

void SetupWidget::run(const std::function<void()>& action) {
  action();
  refresh();
  if (on_changed) on_changed();
}

void SetupWidget::refresh() {
  refreshing_ = true;
  ListModel* models[] = {&tab_.Combo1, &tab_.Combo2, &tab_.Combo3, &tab_.Combo4, &tab_.Combo5};
  for (size_t i = 0; i < combos_.size(); ++i) {
    const ListModel& m = *models[i];
    QComboBox* combo = combos_[i];
    bool same = combo->count() == m.ListCount();
    for (int k = 0; same && k < m.ListCount(); ++k)
      same = combo->itemText(k) == q(m.List(k)).trimmed();
    if (same)
      combo->setCurrentIndex(m.ListIndex());
    else
      fill_combo(combo, m);
  }
  steps_->setChecked(tab_.represent_modele.Value == 1);
  steps_->setText(q(tab_.represent_modele.Caption));
  errors_->setChecked(tab_.RMSB.Value == 1);
  errors_->setText(q(tab_.RMSB.Caption));
  keep_->setChecked(tab_.garder_config.Value == 1);
  keep_->setText(q(tab_.garder_config.Caption));
  accurate_->setChecked(tab_.accurate_curves.Value == 1);
  accurate_->setText(q(tab_.accurate_curves.Caption));
  for (int i = 0; i < 3; ++i) options_[static_cast<size_t>(i)]->setChecked(tab_.Options.is_set(i));
  frame10_->setTitle(q(tab_.Frame10.Caption));
  frame7_->setTitle(q(tab_.Frame7.Caption));
  colours_->setTitle(q(tab_.Frame8.Caption));
  arrays_->setTitle(q(tab_.ArrayFrame.Caption));
  redraw_->setText(q(tab_.Command11.Caption));
  label5_->setText(q(tab_.Label5.Caption));
  for (auto& [push, model] : colour_buttons_) {
    push->setText(q(model->Caption));
    push->setEnabled(model->Enabled);
  }
  paint_sample(picture1_, tab_.Picture1.BackColor);
  paint_sample(picture2_, tab_.Picture2.BackColor);
  paint_sample(picture3_, tab_.Picture3.BackColor);
  paint_sample(picture4_, tab_.Picture4.BackColor);
  paint_sample(picture5_, tab_.Picture5.BackColor);
  paint_sample(text16_, tab_.Text16.BackColor);
  refreshing_ = false;
}

bool SetupWidget::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseMove || event->type() == QEvent::Enter) {
    if (watched == picture4_) tab_.Picture4_MouseMove();
    if (watched == picture5_) tab_.Picture5_MouseMove();
    if ((watched == picture4_ || watched == picture5_) && on_status) on_status();
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace tellux
