#include "gui/sheet_widget.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tellux {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

}  // namespace

int sheet_key_code(int qt_key, const QString& text, bool keypad) {
  if (qt_key == Qt::Key_Backspace) return 8;
  if (keypad) {
    if (qt_key >= Qt::Key_0 && qt_key <= Qt::Key_9) return 96 + (qt_key - Qt::Key_0);
    // The pad's decimal key, whatever mark the keyboard layout gives it.
    if (qt_key == Qt::Key_Period || qt_key == Qt::Key_Comma || qt_key == Qt::Key_Delete) return 62;
    return -1;
  }
  if (text.size() != 1) return -1;
  const QChar c = text.front();
  if (c.isDigit() && c.unicode() < 128) return c.unicode();
  if (c == QLatin1Char('.')) return 46;
  return -1;
}

SheetWidget::SheetWidget(FieldSheet& sheet, QWidget* parent) : QWidget(parent), sheet_(sheet) {
  setObjectName(QStringLiteral("SevModel"));
  grid_ = new GridView(sheet_.BuildGrid);
  grid_->setObjectName(QStringLiteral("BuildGrid"));
  grid_->table().set_right_aligned(true);
  QFont arial(QStringLiteral("Liberation Sans"));
  arial.setStyleHint(QFont::SansSerif);
  grid_->setFont(arial);
  grid_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  grid_->horizontalHeader()->setMinimumSectionSize(56);
  grid_->on_key = [this](int key, const QString& text, Qt::KeyboardModifiers modifiers) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      // Enter goes to the next row, as in a spreadsheet.
      GridModel& g = sheet_.BuildGrid;
      if (g.row < kBuildGridRows - 1) ++g.row;
      grid_->refresh();
      return true;
    }
    const int code = sheet_key_code(key, text, modifiers.testFlag(Qt::KeypadModifier));
    if (code < 0) {
      // Printable keys are dropped, as the sheet drops them; the others move the cursor.
      return !text.isEmpty() && text.front().isPrint();
    }
    run([this, code] { sheet_.BuildGrid_KeyPress(code); });
    return true;
  };

  // The strings.
  auto* frame1 = new QGroupBox;
  frame1->setObjectName(QStringLiteral("Frame1"));
  (new QVBoxLayout(frame1))->addWidget(box(sheet_.CommentBox, "CommentBox"));
  frames_.emplace_back(frame1, &sheet_.Frame1);
  auto* frame2 = new QGroupBox;
  frame2->setObjectName(QStringLiteral("Frame2"));
  (new QVBoxLayout(frame2))->addWidget(box(sheet_.TitleBox, "TitleBox"));
  frames_.emplace_back(frame2, &sheet_.Frame2);
  auto* frame5 = new QGroupBox;
  frame5->setObjectName(QStringLiteral("Frame5"));
  auto* location = new QGridLayout(frame5);
  const std::pair<const char*, TextBox*> places[] = {
      {"X", &sheet_.XBox}, {"Y", &sheet_.YBox}, {"Z", &sheet_.ZBox}, {"Azimuth", &sheet_.AzimBox}};
  for (int i = 0; i < 4; ++i) {
    location->addWidget(new QLabel(QLatin1String(places[i].first)), i / 2, (i % 2) * 2,
                        Qt::AlignRight);
    location->addWidget(box(*places[i].second, places[i].first), i / 2, (i % 2) * 2 + 1);
  }
  frames_.emplace_back(frame5, &sheet_.Frame5);

  // The marine survey.
  auto* frame9 = new QGroupBox;
  frame9->setObjectName(QStringLiteral("Frame9"));
  auto* marine = new QHBoxLayout(frame9);
  marine_ = new QCheckBox;
  marine_->setObjectName(QStringLiteral("Marine_floor"));
  connect(marine_, &QCheckBox::toggled, this, [this](bool on) {
    if (!refreshing_) sheet_.Marine_floor.Value = on ? 1 : 0;
  });
  auto* label25 = new QLabel;
  labels_.emplace_back(label25, &sheet_.Label25);
  marine->addWidget(marine_);
  marine->addWidget(label25);
  marine->addWidget(box(sheet_.Reau, "Reau"), 1);
  frames_.emplace_back(frame9, &sheet_.Frame9);

  // The shift and the half array.
  auto* switches = new QFormLayout;
  auto* label26 = new QLabel;
  labels_.emplace_back(label26, &sheet_.Label26);
  shift_ = new QCheckBox;
  shift_->setObjectName(QStringLiteral("lissbox"));
  connect(shift_, &QCheckBox::clicked, this, [this](bool on) {
    run([this, on] {
      sheet_.lissbox.Value = on ? 1 : 0;
      sheet_.lissbox_Click();
    });
  });
  switches->addRow(label26, shift_);
  auto* label27 = new QLabel;
  labels_.emplace_back(label27, &sheet_.Label27);
  half_ = new QCheckBox;
  half_->setObjectName(QStringLiteral("Check10"));
  connect(half_, &QCheckBox::clicked, this, [this](bool on) {
    run([this, on] {
      sheet_.Check10.Value = on ? 1 : 0;
      sheet_.Check10_Click();
    });
  });
  switches->addRow(label27, half_);

  // The buttons.
  auto* buttons = new QGridLayout;
  buttons->addWidget(push(sheet_.Command1, "Command1", [this] { sheet_.Command1_Click(); }), 0, 0);
  buttons->addWidget(
      push(sheet_.Computation, "Computation", [this] { sheet_.Computation_Click(); }), 0, 1);
  buttons->addWidget(
      push(sheet_.CorrectButton, "CorrectButton", [this] { sheet_.CorrectButton_Click(); }), 1, 0);
  buttons->addWidget(
      push(sheet_.RecordButton, "RecordButton", [this] { sheet_.RecordButton_Click(); }), 1, 1);
  buttons->addWidget(push(sheet_.SaveButton, "SaveButton", [this] { sheet_.SaveButton_Click(); }),
                     2, 0);
  buttons->addWidget(push(sheet_.ExitButton, "ExitButton", [this] { sheet_.ExitButton_Click(); }),
                     2, 1);

  auto* side = new QVBoxLayout;
  side->addWidget(frame1);
  side->addWidget(frame2);
  side->addWidget(frame5);
  side->addWidget(frame9);
  side->addLayout(switches);
  side->addStretch(1);
  side->addLayout(buttons);

  auto* layout = new QHBoxLayout(this);
  layout->addWidget(grid_, 3);
  layout->addLayout(side, 2);
  refresh();
}

QLineEdit* SheetWidget::box(TextBox& model, const char* name) {
  auto* edit = new QLineEdit;
  edit->setObjectName(QLatin1String(name));
  connect(edit, &QLineEdit::textEdited, this,
          [&model](const QString& text) { model.Text = text.toStdString(); });
  boxes_.emplace_back(edit, &model);
  return edit;
}

QPushButton* SheetWidget::push(Button& model, const char* name, std::function<void()> click) {
  auto* b = new QPushButton;
  b->setObjectName(QLatin1String(name));
  connect(b, &QPushButton::clicked, this, [this, click = std::move(click)] { run(click); });
  buttons_.emplace_back(b, &model);
  return b;
}

QPushButton* SheetWidget::button(const char* name) const {
  for (const auto& [b, model] : buttons_)
    if (b->objectName() == QLatin1String(name)) return b;
  return nullptr;
}

void SheetWidget::run(const std::function<void()>& action) {
  action();
  refresh();
  if (on_changed) on_changed();
}

void SheetWidget::refresh() {
  refreshing_ = true;
  for (auto& [edit, model] : boxes_)
    if (edit->text() != q(model->Text)) edit->setText(q(model->Text));
  for (auto& [b, model] : buttons_) {
    b->setText(q(model->Caption));
    b->setEnabled(model->Enabled);
  }
  for (auto& [frame, model] : frames_) frame->setTitle(q(model->Caption));
  for (auto& [label, model] : labels_) label->setText(q(model->Caption));
  marine_->setChecked(sheet_.Marine_floor.Value == 1);
  marine_->setText(q(sheet_.Marine_floor.Caption));
  shift_->setChecked(sheet_.lissbox.Value == 1);
  shift_->setText(q(sheet_.lissbox.Caption));
  half_->setChecked(sheet_.Check10.Value == 1);
  half_->setText(q(sheet_.Check10.Caption));
  grid_->refresh();
  refreshing_ = false;
}

}  // namespace tellux
