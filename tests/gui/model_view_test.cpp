// The model window on the screen: keys typed in the grid reach the logic, double clicks fix
// values, the buttons and the overlay box act, and the view shows what the logic holds.
#include "gui/model_window_view.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <QTest>

#include "app/model_window_fixture.h"
#include "gui/qt_forms.h"

namespace tellux::testing {
namespace {

// One application for all the tests, left to the end of the process: destroying it among the
// other statics at exit is not safe.
QApplication& application() {
  static int argc = 1;
  static char name[] = "model_view_tests";
  static char* argv[] = {name, nullptr};
  static QApplication* app = new QApplication(argc, argv);
  return *app;
}

class ModelViewTest : public ModelWindowTest {
 protected:
  void SetUp() override {
    application();
    ModelWindowTest::SetUp();
    sounding();
    view = make_model_window_view(window, nullptr);
    view->show();
    window.Form_Load();
    view->refresh();
  }
  void TearDown() override {
    view.reset();
    ModelWindowTest::TearDown();
  }
  QString shown(int row, int col) const { return view->grid()->item(row - 1, col)->text(); }
  void click_cell(int row, int col) {
    QTableWidget* g = view->grid();
    const QRect rect = g->visualItemRect(g->item(row - 1, col));
    QTest::mouseClick(g->viewport(), Qt::LeftButton, {}, rect.center());
  }

  std::unique_ptr<ModelWindowView> view;
};

// The grid shows the model, and the forms' calls show, unload and refresh the window.
TEST_F(ModelViewTest, TheGridShowsTheModelAndTheFormsDriveTheWindow) {
  EXPECT_EQ(QStringList({shown(1, 0), shown(3, 2), view->grid()->horizontalHeaderItem(0)->text(),
                         view->windowTitle()}),
            QStringList({"100  ", "25  ", "Resistivity", "Drawing up model"}));
  EXPECT_EQ(view->grid()->currentRow() + view->grid()->currentColumn(), 0);
  QtForms qt_forms;
  connect_model_window(qt_forms, window, *view);
  qt_forms.unload_model_window();
  EXPECT_FALSE(window.loaded() || view->isVisible());
  qt_forms.show_model_window();
  EXPECT_TRUE(window.loaded() && view->isVisible());
  s.LayerModel(1, 1) = 150.0;
  qt_forms.refresh_model_grid();
  EXPECT_EQ(shown(1, 0), "150  ");
}

// Keys typed reach the logic with its codes (the keypad's apart); other characters are dropped,
// a letter beeps, Return moves down.
TEST_F(ModelViewTest, KeysTypedInTheGridGoToTheLogic) {
  const auto none = Qt::NoModifier, pad = Qt::KeypadModifier;
  EXPECT_EQ(std::vector<int>({key_code_of(Qt::Key_7, pad), key_code_of(Qt::Key_7, none),
                              key_code_of(Qt::Key_Period, none), key_code_of(Qt::Key_Period, pad),
                              key_code_of(Qt::Key_Shift, none), key_code_of(Qt::Key_Right, none)}),
            std::vector<int>({key::kPad0 + 7, '7', key::kPeriod, key::kPadPoint, 0, key::kRight}));
  click_cell(2, 0);
  EXPECT_EQ(window.Grid1.row, 2);
  QTest::keyClicks(view->grid(), "`^~x1");  // neither a digit nor the point
  EXPECT_EQ(shown(2, 0), "1  ");
  QTest::keyClicks(view->grid(), "35");
  QTest::keyClick(view->grid(), Qt::Key_Backspace);
  EXPECT_EQ(shown(2, 0), "13  ");
  QTest::keyClick(view->grid(), Qt::Key_Period, Qt::KeypadModifier);
  QTest::keyClick(view->grid(), Qt::Key_5, Qt::KeypadModifier);
  EXPECT_EQ(window.Grid1.text(2, 0), "13.5  ");
  QTest::keyClick(view->grid(), Qt::Key_A);
  EXPECT_EQ(wforms.beeps, 5);  // the four characters above and the letter
  QTest::keyClick(view->grid(), Qt::Key_Return);
  EXPECT_EQ(std::pair(window.Grid1.row, view->grid()->currentRow()), std::pair(3, 2));
}

TEST_F(ModelViewTest, ADoubleClickFixesTheValueAndTheButtonsAndBoxReachTheLogic) {
  click_cell(2, 1);  // a double click is a press and release, then the second press
  QTableWidget* g = view->grid();
  QTest::mouseDClick(g->viewport(), Qt::LeftButton, {}, g->visualItemRect(g->item(1, 1)).center());
  EXPECT_EQ(s.LayerLocks[2], 2);
  EXPECT_EQ(std::pair(g->item(1, 1)->background().color(), g->item(1, 1)->foreground().color()),
            std::pair(QColor(255, 255, 0), QColor(255, 0, 0)));

  // The buttons and the overlay box reach the logic.
  click_cell(3, 0);
  QTest::keyClicks(view->grid(), "900");
  QTest::mouseClick(view->button(window.Calcul_Button), Qt::LeftButton);
  EXPECT_EQ(rho(3), 900);
  EXPECT_EQ(view->button(window.Calcul_Button)->text(), "&Compute");

  QTest::mouseClick(view->overlay_box(), Qt::LeftButton);
  EXPECT_EQ(s.SuperposeCurve, 1);
  click_cell(3, 0);
  QTest::keyClicks(view->grid(), "50");
  QTest::mouseClick(view->button(window.Calcul_Button), Qt::LeftButton);
  EXPECT_EQ(view->overlay_number()->text(), "2");
  EXPECT_TRUE(view->button(window.lastone)->isEnabled());
  QTest::mouseClick(view->button(window.lastone), Qt::LeftButton);
  EXPECT_EQ(shown(3, 0), "900  ");
  EXPECT_EQ(view->overlay_number()->text(), "1");

  view->slider()->setValue(6);
  EXPECT_DOUBLE_EQ(s.ModelSensitivity, 0.63);
}

}  // namespace
}  // namespace tellux::testing
