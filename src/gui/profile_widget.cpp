#include "gui/profile_widget.h"

#include <QCheckBox>
#include <QEvent>
#include <QFocusEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include "core/runtime/number_text.h"
#include "gui/grid_view.h"
#include "platform/qt/qt_drawing_surface.h"

namespace tellux {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

// A patch shows its colour as its background, its text in black or white, whichever reads.
void paint_patch(QLineEdit* patch, int32_t colour) {
  const QColor back = to_qcolor(colour);
  const QColor fore = back.lightness() < 128 ? Qt::white : Qt::black;
  patch->setStyleSheet(
      QStringLiteral("QLineEdit { background: %1; color: %2; }").arg(back.name(), fore.name()));
}

}  // namespace

ProfileWidget::ProfileWidget(ProfileTab& tab, GridModel& SEV_Grid, std::string settings_path,
                             QWidget* parent)
    : QWidget(parent), tab_(tab), settings_path_(std::move(settings_path)) {
  setObjectName(QStringLiteral("ProfileData"));
  grid_ = new GridView(SEV_Grid);
  grid_->setObjectName(QStringLiteral("SEV_Grid"));
  // A typed Z or distance goes to the logic, and the page size follows.
  grid_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                         QAbstractItemView::AnyKeyPressed);
  grid_->table().on_edit = [this](int row, int col, const std::string& text) {
    const bool taken = tab_.SEV_Grid_Edit(row, col, text);
    if (taken) refresh_boxes();
    return taken;
  };
  grid_->table().editable = [this](int row, int col) { return tab_.SEV_Grid_Typed(row, col); };
  grid_->setToolTip(QStringLiteral("Z and Distance can be typed; the page size follows"));
  grid_->table().shown = [](int col, const std::string& text) {
    // Distances with two decimals; the cell keeps its whole value.
    if (col == 6 && !text.empty()) return QString::number(rt::Val(text), 'f', 2);
    return q(text);
  };

  auto* right = new QVBoxLayout;
  auto* frames = new QHBoxLayout;
  frames->addWidget(build_options());
  frames->addWidget(build_parameters(), 1);
  right->addLayout(frames);
  right->addWidget(build_colour_scale());
  right->addStretch(1);

  auto* layout = new QHBoxLayout(this);
  layout->addWidget(build_table_side(), 1);
  layout->addLayout(right);
  refresh();
}

QWidget* ProfileWidget::build_table_side() {
  ProfileSheet& sheet = tab_.sheet;
  auto* side = new QWidget;
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  command2_ = new QPushButton(q(sheet.Command2.Caption));
  command2_->setObjectName(QStringLiteral("Command2"));
  command2_->setToolTip(QStringLiteral("Select here the SEV, use CTRL for multiple selection"));
  connect(command2_, &QPushButton::clicked, this,
          [this] { run([this] { tab_.sheet.Command2_Click(); }); });
  auto* top = new QHBoxLayout;
  top->setObjectName(QStringLiteral("SurveyCommands"));
  top->addWidget(command2_);
  top->addStretch(1);
  column->addLayout(top);
  // The old form's widths (3125 twips for the name, 960 for the others) do not leave the seven
  // columns room beside the colour scale: the name column is narrower here.
  grid_->setColumnWidth(0, 118);
  for (int c = 1; c < 7; ++c) grid_->setColumnWidth(c, 60);
  column->addWidget(grid_, 1);

  auto* boxes = new QFormLayout;
  boxes->setLabelAlignment(Qt::AlignRight);
  const auto scale_changed = [this] { tab_.Text13_Change(); };
  boxes->addRow(QStringLiteral("Vertical scale"), box("Text13", sheet.Text13, scale_changed));
  // "Fit the page" beside the scales: the scales at which the section fits its sheet.
  auto* horizontal = new QHBoxLayout;
  horizontal->addWidget(box("Text14", sheet.Text14, [this] { tab_.Text14_Change(); }));
  fit_page_ = new QPushButton(QStringLiteral("Fit the page"));
  fit_page_->setObjectName(QStringLiteral("FitPage"));
  fit_page_->setToolTip(
      QStringLiteral("Change a scale that makes the section too big for its sheet into one that "
                     "fits"));
  connect(fit_page_, &QPushButton::clicked, this,
          [this] { run([this] { tab_.Fit_Page_Click(); }); });
  horizontal->addWidget(fit_page_);
  horizontal->addStretch(1);
  boxes->addRow(QStringLiteral("Horizontal scale"), horizontal);
  QLineEdit* text5 = box("Text5", sheet.Text5);
  text5->setReadOnly(true);
  text5->setToolTip(QStringLiteral("Change horizontal scale to modify this value"));
  boxes->addRow(QStringLiteral("Profile length (mm)"), text5);
  QLineEdit* text6 = box("Text6", sheet.Text6);
  text6->setReadOnly(true);
  text6->setToolTip(QStringLiteral("Change vertical scale to modify this value"));
  boxes->addRow(QStringLiteral("Profil height (mm)"), text6);
  boxes->addRow(QStringLiteral("SEV log width (mm)  "), box("Text8", sheet.Text8));
  boxes->addRow(QStringLiteral("Min Resitivity"),
                box("Text11", sheet.Text11, [this] { tab_.Text11_Change(); }));
  boxes->addRow(QStringLiteral("Max resistivity"),
                box("Text12", sheet.Text12, [this] { tab_.Text12_Change(); }));
  column->addLayout(boxes);
  return side;
}

QGroupBox* ProfileWidget::build_options() {
  frame10_ = new QGroupBox(q(tab_.Frame10.Caption));
  frame10_->setObjectName(QStringLiteral("Frame10"));
  frame10_->installEventFilter(this);
  clicks_.emplace_back(frame10_, [this] { tab_.Frame10_Click(); });
  auto* column = new QVBoxLayout(frame10_);
  struct Check {
    const char* name;
    CheckBox* model;
    const char* tip;
    std::function<void()> click = {};  // what a click runs besides ticking
  } checks[] = {{"Check1", &tab_.Check1, "Display a color legend for resistivity"},
                {"Check2", &tab_.Check2, "Draw topographical surface"},
                {"Check3", &tab_.Check3, "Print resistivity values"},
                {"Check4", &tab_.Check4, "Draw elevatio lines"},
                {"Check5", &tab_.Check5, ""},
                {"Check6", &tab_.Check6, "Dipslay the plot X and Z scale"},
                {"Check7", &tab_.Check7, "", [this] { tab_.Check7_Click(); }},
                {"Check8", &tab_.Check8, "", [this] { tab_.Check8_Click(); }},
                {"Check9", &tab_.Check9, "", [this] { tab_.Check9_Click(); }}};
  for (const Check& c : checks) {
    auto* check = new QCheckBox(q(c.model->Caption));
    check->setObjectName(QLatin1String(c.name));
    if (*c.tip) check->setToolTip(QLatin1String(c.tip));
    CheckBox* model = c.model;
    connect(check, &QCheckBox::toggled, this, [this, model](bool on) {
      if (!refreshing_) model->Value = on ? 1 : 0;
    });
    if (c.click) connect(check, &QCheckBox::clicked, this, [this, click = c.click] { run(click); });
    checks_.emplace_back(check, model);
    column->addWidget(check);
  }
  return frame10_;
}

QGroupBox* ProfileWidget::build_parameters() {
  auto* frame = new QGroupBox(q(tab_.Frame7.Caption));
  frame->setObjectName(QStringLiteral("Frame7"));
  auto* form = new QFormLayout(frame);
  form->addRow(QStringLiteral("Title"), box("Text10", tab_.Text10));
  text9_ = patch("Text9", 48, [this] { tab_.Text9_Click(); });
  form->addRow(QStringLiteral("Topo line color"), text9_);
  text15_ = patch("Text15", 48, [this] { tab_.Text15_Click(); });
  form->addRow(QStringLiteral("SEV correlation line color"), text15_);
  QLineEdit* angle = box("Text17", tab_.Text17);
  angle->setToolTip(QStringLiteral("Text angle"));
  angle->setValidator(
      new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[-.0-9]*")), angle));
  form->addRow(QStringLiteral("SEV name plot angle"), angle);
  return frame;
}

QGroupBox* ProfileWidget::build_colour_scale() {
  ColourScale& scale = tab_.sheet.scale;
  auto* frame = new QGroupBox(q(tab_.Frame8.Caption));
  frame->setObjectName(QStringLiteral("Frame8"));
  auto* grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(4);
  grid->setVerticalSpacing(1);
  // The 16 classes in two columns of eight, lowest at the top left.
  for (int k = 1; k <= 16; ++k) {
    const std::string name = "Text" + std::to_string(100 + k);
    QLineEdit* p = patch(name.c_str(), 56, [this, k] { tab_.sheet.scale.ClassBox_Click(k); });
    p->setAlignment(Qt::AlignRight);
    class_boxes_[static_cast<size_t>(k)] = p;
    grid->addWidget(p, (k - 1) % 8, (k - 1) / 8);
  }
  // Each anchor: a large patch, then its red, green and blue.
  for (int a = 1; a <= 3; ++a) {
    const std::string name = "Text" + std::to_string(116 + a);
    QLineEdit* p = patch(name.c_str(), 80, [this, a] { tab_.sheet.scale.AnchorColour_Click(a); });
    p->setMinimumHeight(40);
    p->setAlignment(Qt::AlignCenter);
    anchors_[static_cast<size_t>(a)] = p;
    const int row = (a - 1) * 3;
    grid->addWidget(p, row, 3, 2, 1);
    auto* rgb = new QHBoxLayout;
    for (int c = 0; c < 3; ++c) {
      const int n = (a - 1) * 3 + c;
      const std::string box_name = "Text" + std::to_string(120 + n);
      QLineEdit* b = box(box_name.c_str(), scale.RGBBox[static_cast<size_t>(n)]);
      b->setMaximumWidth(44);
      b->setAlignment(Qt::AlignRight);
      // Leaving the box applies it, also when its text did not change.
      b->installEventFilter(this);
      leaves_.emplace_back(b, [this, n] { tab_.sheet.scale.RGBBox_LostFocus(n); });
      connect(b, &QLineEdit::returnPressed, this,
              [this, n] { run([this, n] { tab_.sheet.scale.RGBBox_LostFocus(n); }); });
      if (n == 2) clicks_.emplace_back(b, [this] { tab_.sheet.scale.RGBBox_Click(2); });
      rgb_boxes_[static_cast<size_t>(n)] = b;
      rgb->addWidget(b);
    }
    grid->addLayout(rgb, row, 4, 2, 1);
  }
  grid->setColumnMinimumWidth(2, 12);
  auto* label = new QLabel(q(scale.Label102.Caption));
  label->setObjectName(QStringLiteral("Label102"));
  label->setWordWrap(true);
  grid->addWidget(label, 9, 0, 1, 5);
  auto* save = new QPushButton(q(scale.Command10.Caption));
  save->setObjectName(QStringLiteral("Command10"));
  save->setToolTip(QStringLiteral("click here to record colors"));
  connect(save, &QPushButton::clicked, this,
          [this] { run([this] { tab_.Command10_Click(settings_path_); }); });
  grid->addWidget(save, 8, 3, 1, 2);
  return frame;
}

QLineEdit* ProfileWidget::box(const char* name, TextBox& model, std::function<void()> changed) {
  auto* edit = new QLineEdit;
  edit->setObjectName(QLatin1String(name));
  edit->setMaximumWidth(120);
  connect(edit, &QLineEdit::textEdited, this, [this, &model, changed](const QString& text) {
    if (refreshing_) return;
    model.Text = text.toStdString();
    if (changed) run(changed);
  });
  boxes_.emplace_back(edit, &model);
  return edit;
}

QLineEdit* ProfileWidget::patch(const char* name, int width, std::function<void()> click) {
  auto* p = new QLineEdit;
  p->setObjectName(QLatin1String(name));
  p->setReadOnly(true);
  p->setFocusPolicy(Qt::NoFocus);
  p->setCursor(Qt::PointingHandCursor);
  p->setFixedWidth(width);
  p->installEventFilter(this);
  clicks_.emplace_back(p, std::move(click));
  return p;
}

bool ProfileWidget::eventFilter(QObject* watched, QEvent* event) {
  const auto handle = [this, watched](const auto& handlers) {
    for (const auto& [object, handler] : handlers)
      if (object == watched) {
        run(handler);
        break;
      }
  };
  if (event->type() == QEvent::MouseButtonPress) handle(clicks_);
  // Leaving a box for another control of the window; a dialog or a menu opening is not leaving.
  if (event->type() == QEvent::FocusOut) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) handle(leaves_);
  }
  return QWidget::eventFilter(watched, event);
}

void ProfileWidget::run(const std::function<void()>& action) {
  action();
  refresh();
}

void ProfileWidget::refresh_boxes() {
  const bool was = refreshing_;
  refreshing_ = true;
  for (const auto& [edit, model] : boxes_) {
    if (edit->text() != q(model->Text)) edit->setText(q(model->Text));
    edit->setEnabled(model->Enabled);
  }
  refreshing_ = was;
}

void ProfileWidget::refresh() {
  refreshing_ = true;
  // A column is never narrower than its header ("Max. depth").
  QHeaderView* header = grid_->horizontalHeader();
  for (int c = 0; c < header->count(); ++c)
    grid_->setColumnWidth(c, std::max(grid_->columnWidth(c), header->sectionSizeHint(c)));
  refresh_boxes();
  for (const auto& [check, model] : checks_) {
    check->setChecked(model->Value == 1);
    check->setEnabled(model->Enabled);
  }
  const ColourScale& scale = tab_.sheet.scale;
  for (int k = 1; k <= 16; ++k) {
    QLineEdit* p = class_boxes_[static_cast<size_t>(k)];
    p->setText(q(scale.ClassBox[static_cast<size_t>(k)].Text));
    paint_patch(p, scale.ClassBox[static_cast<size_t>(k)].BackColor);
  }
  for (int a = 1; a <= 3; ++a) {
    QLineEdit* p = anchors_[static_cast<size_t>(a)];
    p->setText(q(scale.AnchorColour[static_cast<size_t>(a)].Text));
    paint_patch(p, scale.AnchorColour[static_cast<size_t>(a)].BackColor);
  }
  paint_patch(text9_, tab_.Text9.BackColor);
  paint_patch(text15_, tab_.Text15.BackColor);
  grid_->refresh();
  refreshing_ = false;
}

}  // namespace tellux
