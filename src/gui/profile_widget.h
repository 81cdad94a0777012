#pragma once
// The tab "Profile data" on the screen: the button "Select SEV", the table of soundings, the scale
// and range boxes, the options and parameters of the section, and the resistivity colour scale
// with its 16 class patches, three anchor patches and nine number boxes. Patches are read-only
// boxes: a click opens the colour dialog.
#include <QWidget>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "app/profile_tab.h"

class QCheckBox;
class QGroupBox;
class QLineEdit;
class QPushButton;

namespace tellux {

class GridView;

class ProfileWidget : public QWidget {
 public:
  ProfileWidget(ProfileTab& tab, GridModel& SEV_Grid, std::string settings_path,
                QWidget* parent = nullptr);

  // Shows the models again.
  void refresh();

  GridView* grid() const { return grid_; }
  QPushButton* select_button() const { return command2_; }
  QLineEdit* class_patch(int k) const { return class_boxes_[static_cast<size_t>(k)]; }
  QLineEdit* anchor_patch(int a) const { return anchors_[static_cast<size_t>(a)]; }
  QLineEdit* rgb_box(int n) const { return rgb_boxes_[static_cast<size_t>(n)]; }
  QPushButton* fit_page_button() const { return fit_page_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* build_table_side();
  QGroupBox* build_options();
  QGroupBox* build_parameters();
  QGroupBox* build_colour_scale();
  QLineEdit* box(const char* name, TextBox& model, std::function<void()> changed = {});
  QLineEdit* patch(const char* name, int width, std::function<void()> click);
  void run(const std::function<void()>& action);
  // The edit boxes show their models again.
  void refresh_boxes();

  ProfileTab& tab_;
  std::string settings_path_;
  GridView* grid_ = nullptr;
  QPushButton* command2_ = nullptr;
  QPushButton* fit_page_ = nullptr;
  std::vector<std::pair<QLineEdit*, TextBox*>> boxes_;
  std::vector<std::pair<QCheckBox*, CheckBox*>> checks_;
  std::array<QLineEdit*, 17> class_boxes_{};
  std::array<QLineEdit*, 4> anchors_{};
  std::array<QLineEdit*, 9> rgb_boxes_{};
  QLineEdit *text9_ = nullptr, *text15_ = nullptr;
  QGroupBox* frame10_ = nullptr;
  // What a click on a patch runs, and what leaving a box runs.
  std::vector<std::pair<QObject*, std::function<void()>>> clicks_, leaves_;
  bool refreshing_ = false;
};

}  // namespace tellux
