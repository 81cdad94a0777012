#pragma once
// Models of the simple controls the windows' logic reads and writes: text boxes, labels, check
// boxes, exclusive option buttons, lists and colour samples. The desktop program shows them and
// forwards the user's actions to the form's handlers; tests set and read them directly.
#include <cstdint>
#include <string>
#include <vector>

namespace tellux {

struct TextBox {
  std::string Text;
  int32_t BackColor = 0xFFFFFF;
  bool Enabled = true;
};

struct Label {
  std::string Caption;
};

struct Button {
  std::string Caption;
  bool Enabled = true;
};

// Value 0 unticked, 1 ticked.
struct CheckBox {
  std::string Caption;
  int Value = 0;
  bool Enabled = true;
};

// A row of exclusive option buttons; `Value` is the index of the one that is set, -1 for none.
struct OptionGroup {
  std::vector<std::string> Captions;
  int Value = -1;
  bool is_set(int index) const { return Value == index; }
};

// A drop-down list: fixed items and the index of the chosen one (-1 for none).
class ListModel {
 public:
  void Clear() {
    items_.clear();
    index_ = -1;
  }
  void AddItem(std::string item) { items_.push_back(std::move(item)); }
  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::string& List(int i) const { return items_.at(static_cast<size_t>(i)); }
  int ListIndex() const { return index_; }
  // An index outside the items leaves the list without a choice.
  void ListIndex(int i) { index_ = i >= 0 && i < ListCount() ? i : -1; }
  // The chosen item's text, empty when nothing is chosen.
  std::string Text() const { return index_ < 0 ? std::string() : List(index_); }

 private:
  std::vector<std::string> items_;
  int index_ = -1;
};

// A picture box that shows a colour.
struct ColourSample {
  int32_t BackColor = 0xFFFFFF;
};

}  // namespace tellux
