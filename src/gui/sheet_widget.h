#pragma once
// The tab "SEV model" on the screen: the field sheet `BuildGrid`, the boxes of the sounding's
// strings, the marine survey, the shift and half-array boxes and the sheet's six buttons, bound
// to the field sheet's logic. Keys typed in the sheet go to the sheet's own key handler.
#include <QWidget>
#include <functional>
#include <vector>

#include "app/field_sheet.h"
#include "gui/grid_view.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tellux {

// The code the sheet's key handler takes for a key, or -1 for a key it is not to see: 8 the
// backspace; the main keyboard's digits and point as their characters; the numeric pad's digits
// as 96..105 and its decimal key as 62.
int sheet_key_code(int qt_key, const QString& text, bool keypad);

class SheetWidget : public QWidget {
 public:
  SheetWidget(FieldSheet& sheet, QWidget* parent = nullptr);

  void refresh();
  GridView* grid() const { return grid_; }
  QPushButton* button(const char* name) const;
  // After an action of the sheet: the program shows what changed elsewhere.
  std::function<void()> on_changed;

 private:
  void run(const std::function<void()>& action);
  QLineEdit* box(TextBox& model, const char* name);
  QPushButton* push(Button& model, const char* name, std::function<void()> click);

  FieldSheet& sheet_;
  GridView* grid_ = nullptr;
  std::vector<std::pair<QLineEdit*, TextBox*>> boxes_;
  std::vector<std::pair<QPushButton*, Button*>> buttons_;
  std::vector<std::pair<QGroupBox*, Label*>> frames_;
  std::vector<std::pair<QLabel*, Label*>> labels_;
  QCheckBox *marine_ = nullptr, *shift_ = nullptr, *half_ = nullptr;
  bool refreshing_ = false;
};

}  // namespace tellux
