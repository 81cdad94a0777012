#include "gui/model_window_view.h"

#include <QScreen>

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include "gui/qt_forms.h"
#include "platform/qt/qt_drawing_surface.h"

namespace tellux {

namespace {

constexpr double kTwipsPerPixel = 15.0;
constexpr int kLayerRows = 20;

QString q(const std::string& s) { return QString::fromStdString(s); }
int pixels(int twips) { return static_cast<int>(twips / kTwipsPerPixel + 0.5); }

}  // namespace

int key_code_of(int qt_key, Qt::KeyboardModifiers modifiers) {
  const bool keypad = modifiers.testFlag(Qt::KeypadModifier);
  if (qt_key >= Qt::Key_0 && qt_key <= Qt::Key_9)
    return keypad ? key::kPad0 + (qt_key - Qt::Key_0) : '0' + (qt_key - Qt::Key_0);
  switch (qt_key) {
    case Qt::Key_Period:
      return keypad ? key::kPadPoint : key::kPeriod;
    case Qt::Key_Comma:  // the keypad's decimal key on some layouts
      return keypad ? key::kPadPoint : 188;
    case Qt::Key_Backspace:
      return key::kBackspace;
    case Qt::Key_Left:
      return key::kLeft;
    case Qt::Key_Up:
      return key::kUp;
    case Qt::Key_Right:
      return key::kRight;
    case Qt::Key_Down:
      return key::kDown;
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_Meta:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
      return 0;
    default:
      break;
  }
  // Letters keep their code, which the logic refuses. Punctuation keys have codes above 57 that
  // the logic's keypad rule would turn into digits or the point ("`" into "0"): they get a code
  // that stays refused.
  if (qt_key == Qt::Key_Space || (qt_key >= Qt::Key_A && qt_key <= Qt::Key_Z)) return qt_key;
  return 255;
}

// A tool window without a minimise button: minimising it would take the main window along.
constexpr Qt::WindowFlags kFloating =
    Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;

ModelWindowView::ModelWindowView(ModelWindow& window, QWidget* parent)
    : QWidget(parent, kFloating), window_(window) {
  setObjectName(QStringLiteral("model"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(6, 6, 6, 6);
  layout->setSpacing(4);

  // Docked, the window has no title bar of its own: a row with its caption and a close key.
  dock_bar_ = new QWidget;
  auto* bar = new QHBoxLayout(dock_bar_);
  bar->setContentsMargins(0, 0, 0, 0);
  dock_title_ = new QLabel;
  auto* close_key = new QToolButton;
  close_key->setObjectName(QStringLiteral("DockClose"));
  close_key->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
  close_key->setAutoRaise(true);
  connect(close_key, &QToolButton::clicked, this, [this] { close(); });
  bar->addWidget(dock_title_, 1);
  bar->addWidget(close_key);
  dock_bar_->hide();
  layout->addWidget(dock_bar_);

  grid_ = new QTableWidget(kLayerRows, window_.Grid1.cols(), this);
  grid_->setObjectName(QStringLiteral("Grid1"));
  QFont font(QStringLiteral("Arial"));
  font.setPointSizeF(8);
  font.setBold(false);
  grid_->setFont(font);
  grid_->horizontalHeader()->setFont(font);
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->setTabKeyNavigation(false);
  grid_->verticalHeader()->setVisible(false);
  grid_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  grid_->horizontalHeader()->setFixedHeight(
      std::max(pixels(ModelWindow::kHeadHeight), grid_->fontMetrics().height() + 4));
  const int row_height =
      std::max(pixels(ModelWindow::kRowHeight), grid_->fontMetrics().height() + 4);
  grid_->verticalHeader()->setMinimumSectionSize(row_height);
  grid_->verticalHeader()->setDefaultSectionSize(row_height);
  grid_->horizontalHeader()->setHighlightSections(false);
  // The laid-out widths, widened where this screen's font would clip the longest head.
  const int head_width = grid_->fontMetrics().horizontalAdvance(QStringLiteral("Resistivity")) + 12;
  int width = 2 * grid_->frameWidth();
  for (int c = 0; c < window_.Grid1.cols(); ++c) {
    grid_->setColumnWidth(c, std::max(pixels(ModelWindow::kColumnWidths[c]), head_width));
    width += grid_->columnWidth(c);
  }
  grid_->setFixedWidth(width + grid_->verticalScrollBar()->sizeHint().width());
  grid_->setMinimumHeight(grid_->horizontalHeader()->height() + 12 * row_height);
  for (int r = 0; r < kLayerRows; ++r) {
    for (int c = 0; c < window_.Grid1.cols(); ++c) {
      auto* item = new QTableWidgetItem;
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
      grid_->setItem(r, c, item);
    }
  }
  grid_->installEventFilter(this);
  connect(grid_, &QTableWidget::cellClicked, this, [this](int r, int c) {
    window_.Grid1_Click(r + 1, c);
    refresh();
  });
  connect(grid_, &QTableWidget::cellDoubleClicked, this, [this](int r, int c) {
    window_.Grid1_Click(r + 1, c);
    window_.Grid1_DblClick();
    refresh();
  });
  layout->addWidget(grid_);

  // The overlay: the number of the model shown and the steps through the store.
  auto* overlay = new QHBoxLayout;
  check18_ = new QCheckBox(this);
  check18_->setObjectName(QStringLiteral("Check18"));
  connect(check18_, &QCheckBox::clicked, this, [this](bool on) {
    window_.Check18_Click(on ? 1 : 0);
    refresh();
  });
  overlay->addWidget(check18_);
  overlay->addStretch();
  // The arrow keys stay narrow so that the box's caption is never cut.
  QPushButton* last = make_button(window_.lastone, &ModelWindow::lastone_Click);
  last->setMaximumWidth(48);
  overlay->addWidget(last);
  grid2_ = new QLabel(this);
  grid2_->setObjectName(QStringLiteral("Grid2"));
  grid2_->setFrameShape(QFrame::Box);
  grid2_->setAlignment(Qt::AlignCenter);
  grid2_->setMinimumWidth(32);
  overlay->addWidget(grid2_);
  QPushButton* next = make_button(window_.nextone, &ModelWindow::nextone_Click);
  next->setMaximumWidth(48);
  overlay->addWidget(next);
  layout->addLayout(overlay);

  auto* buttons = new QGridLayout;
  buttons->addWidget(make_button(window_.Calcul_Button, &ModelWindow::ComputeCurve), 0, 0);
  buttons->addWidget(make_button(window_.Ajuste_Button, &ModelWindow::Ajuste_Button_Click), 0, 1);
  buttons->addWidget(make_button(window_.Record_Button, &ModelWindow::Record_Button_Click), 0, 2);
  buttons->addWidget(make_button(window_.InsLine, &ModelWindow::InsLine_Click), 1, 0);
  buttons->addWidget(make_button(window_.delLine, &ModelWindow::delLine_Click), 1, 1);
  layout->addLayout(buttons);

  // The sensitivity of the automatic model, low at the left.
  label3_ = new QLabel(this);
  layout->addWidget(label3_);
  auto* slider_row = new QHBoxLayout;
  label2_ = new QLabel(this);
  label4_ = new QLabel(this);
  slider1_ = new QSlider(Qt::Horizontal, this);
  slider1_->setObjectName(QStringLiteral("Slider1"));
  slider1_->setRange(window_.Slider1.Min, window_.Slider1.Max);
  slider1_->setTickPosition(QSlider::TicksBelow);
  slider1_->setPageStep(1);
  connect(slider1_, &QSlider::valueChanged, this, [this](int value) {
    if (refreshing_) return;
    window_.Slider1_Change(value);
  });
  slider_row->addWidget(label2_);
  slider_row->addWidget(slider1_, 1);
  slider_row->addWidget(label4_);
  layout->addLayout(slider_row);

  frame1_ = new QGroupBox(this);
  auto* frame_layout = new QVBoxLayout(frame1_);
  comment_ = new QLineEdit(frame1_);
  comment_->setObjectName(QStringLiteral("Comment"));
  connect(comment_, &QLineEdit::textEdited, this,
          [this](const QString& text) { window_.boxes().Comment.Text = text.toStdString(); });
  frame_layout->addWidget(comment_);
  layout->addWidget(frame1_);
  equivalence_ = new QPushButton(this);
  equivalence_->setObjectName(QStringLiteral("Equivalence"));
  connect(equivalence_, &QPushButton::clicked, this, [this] {
    if (on_equivalence) on_equivalence();
  });
  layout->addWidget(equivalence_);

  window_.set_display(this);
  refresh();
}

ModelWindowView::~ModelWindowView() { window_.set_display(nullptr); }

QPushButton* ModelWindowView::make_button(Button& model, void (ModelWindow::*click)()) {
  auto* button = new QPushButton(this);
  button->setAutoDefault(false);
  buttons_.emplace_back(button, &model);
  connect(button, &QPushButton::clicked, this, [this, click] { run(click); });
  return button;
}

QPushButton* ModelWindowView::button(const Button& model) const {
  for (const auto& [widget, bound] : buttons_)
    if (bound == &model) return widget;
  return nullptr;
}

void ModelWindowView::run(void (ModelWindow::*action)()) {
  (window_.*action)();
  refresh();
  if (on_action) on_action();
}

void ModelWindowView::focus_grid() {
  if (isVisible()) grid_->setFocus();
}

void ModelWindowView::refresh() {
  if (refreshing_) return;
  refreshing_ = true;
  const GridModel& g = window_.Grid1;
  setWindowTitle(q(window_.Caption));
  dock_title_->setText(q(window_.Caption));
  QStringList heads;
  for (int c = 0; c < g.cols(); ++c) heads << q(g.text(0, c));
  grid_->setHorizontalHeaderLabels(heads);
  for (int r = 1; r <= kLayerRows; ++r) {
    for (int c = 0; c < g.cols(); ++c) {
      QTableWidgetItem* item = grid_->item(r - 1, c);
      item->setText(q(g.text(r, c)));
      const int back = g.back_colour(r, c), fore = g.fore_colour(r, c);
      item->setBackground(back < 0 ? QBrush() : QBrush(to_qcolor(back)));
      item->setForeground(fore < 0 ? QBrush() : QBrush(to_qcolor(fore)));
    }
  }
  {
    const QSignalBlocker block(grid_);
    grid_->setCurrentCell(g.row - 1, g.col);
  }
  grid2_->setText(q(window_.Grid2.Text));
  for (const auto& [widget, model] : buttons_) {
    widget->setText(q(model->Caption));
    widget->setEnabled(model->Enabled);
  }
  check18_->setText(q(window_.Label1.Caption));
  check18_->setChecked(window_.Check18.Value == 1);
  check18_->setEnabled(window_.Check18.Enabled);
  label2_->setText(q(window_.Label2.Caption));
  label3_->setText(q(window_.Label3.Caption));
  label4_->setText(q(window_.Label4.Caption));
  slider1_->setValue(window_.Slider1.Value);
  frame1_->setTitle(q(window_.Frame1.Caption));
  equivalence_->setText(QString::fromUtf8(
      pick(window_.language(), "Équivalence...", "Equivalencia...", "Equivalence...")));
  const QString comment = q(window_.boxes().Comment.Text);
  if (comment_->text() != comment) comment_->setText(comment);
  refreshing_ = false;
}

void ModelWindowView::forward_key(int key, Qt::KeyboardModifiers modifiers) {
  // Enter ends the entry: the cursor goes one row down.
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    window_.Grid1_AfterEdit();
  } else {
    const int code = key_code_of(key, modifiers);
    if (code == 0) return;
    window_.Grid1_KeyDown(code);
  }
  refresh();
}

bool ModelWindowView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == grid_ && event->type() == QEvent::KeyPress) {
    auto* key_event = static_cast<QKeyEvent*>(event);
    if (key_event->key() == Qt::Key_Tab || key_event->key() == Qt::Key_Backtab) return false;
    if (key_event->modifiers().testFlag(Qt::ControlModifier) ||
        key_event->modifiers().testFlag(Qt::AltModifier))
      return false;  // shortcuts and mnemonics of the buttons
    forward_key(key_event->key(), key_event->modifiers());
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void ModelWindowView::closeEvent(QCloseEvent* event) {
  window_.Form_Unload();
  QWidget::closeEvent(event);
}

void ModelWindowView::float_over(QWidget* owner) {
  if (!docked_) return;
  docked_ = false;
  setParent(owner, kFloating);
  dock_bar_->hide();
}

void ModelWindowView::show_beside_parent() {
  if (!isVisible()) {
    QWidget* owner = dock_ ? dock_->window() : parentWidget();
    const QRect frame = owner ? owner->frameGeometry() : QRect();
    const QScreen* screen = owner ? owner->screen() : nullptr;
    const QPoint beside(frame.right() + 8, frame.top() + pixels(ModelWindow::kTop));
    const bool room =
        screen && beside.x() + sizeHint().width() <= screen->availableGeometry().right();
    if (room) {
      // A window of its own beside the main window: it hides nothing of the tabs.
      float_over(owner);
      move(beside);
    } else if (dock_ && !docked_) {
      // No room: docked at the right edge of the diagram, which narrows, rather than over it.
      docked_ = true;
      setParent(dock_, Qt::Widget);
      dock_bar_->show();
    } else if (!dock_ && owner) {
      move(owner->mapToGlobal(QPoint(pixels(ModelWindow::kLeft), pixels(ModelWindow::kTop))));
    }
  }
  show();
  raise();
}

void ModelWindowView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (docked_ && on_dock_changed) on_dock_changed();
}

void ModelWindowView::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (docked_ && on_dock_changed) on_dock_changed();
}

std::unique_ptr<ModelWindowView> make_model_window_view(ModelWindow& window, QWidget* parent) {
  return std::make_unique<ModelWindowView>(window, parent);
}

void connect_model_window(QtForms& forms, ModelWindow& window, ModelWindowView& view) {
  forms.on_show_model_window = [&window, &view] {
    view.show_beside_parent();
    // A window already open is only brought to the front, as a shown form is not loaded again.
    if (!window.loaded()) window.Form_Load();
    view.refresh();
    // The captions are in now: a docked window takes the width they need.
    if (view.docked() && view.on_dock_changed) view.on_dock_changed();
  };
  forms.on_unload_model_window = [&window, &view] {
    window.Form_Unload();
    view.hide();
  };
  forms.on_refresh_model_grid = [&window] {
    if (window.loaded()) window.RefreshModelGrid();
  };
  forms.on_revive_overlay_controls = [&window] { window.revive_overlay_controls(); };
}

}  // namespace tellux
