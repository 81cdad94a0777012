// A whole session in the model window, as a user would work: open a sounding, type a model, fix a
// thickness, fit, then compare variants on the diagram and walk through them.
#include "core/open_flow.h"
#include "model_window_fixture.h"

namespace tellux::testing {
namespace {

using ModelSessionTest = ModelWindowTest;

TEST_F(ModelSessionTest, TypeFixFitSuperposeAndWalk) {
  // The sample holds 28 points of 100 ohm.m 5 m, 20 ohm.m 20 m, 300 ohm.m, and no model.
  s.FilePath = std::string(TELLUX_TEST_DATA) + "/fit_synthetic_3layer.TX3";
  s.FileName = s.FilePath;
  open_sounding(ws);
  ASSERT_EQ(s.FieldCount, 28);
  EXPECT_FALSE(window.loaded());  // no model in the file: the window stays closed

  // The toolbar shows the window; there is nothing to compute yet.
  window.menu_compute();
  ASSERT_TRUE(window.loaded());
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"Value missing..."});

  // Four layers, typed cell by cell; Enter steps down a row.
  type(1, 0, "80");
  type(1, 1, "5");
  type(2, 0, "30");
  type(2, 1, "8");
  type(3, 0, "15");
  type(3, 1, "12");
  type(4, 0, "250");
  window.Calcul_Button_Click();
  EXPECT_EQ(s.LayerCount, 4);
  EXPECT_EQ(depth(4), 25);
  EXPECT_EQ(Name.Text, "fit_synthetic_3layer");

  // The first thickness is known from a borehole: fixed, then fitted around it.
  window.Grid1_Click(1, 1);
  window.Grid1_DblClick();
  ASSERT_EQ(s.LayerLocks[1], 2);
  window.Ajuste_Button_Click();
  EXPECT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(h(1), 5);
  EXPECT_NE(rho(1), 80);
  EXPECT_EQ(cell(1, 1), "5  ");
  EXPECT_EQ(window.Grid1.back_colour(1, 1), 65535);  // still fixed
  EXPECT_EQ(cell(1, 0), rt::CStr(s.LayerModel(1, 1)) + "  ");
  const double fitted_rho4 = rho(s.LayerCount);

  // Three variants of the deepest layer, each kept on the diagram.
  window.Check18_Click(1);
  const int last = s.LayerCount;
  for (const char* variant : {"100", "500", "1000"}) {
    type(last, 0, variant);
    window.Calcul_Button_Click();
  }
  EXPECT_EQ(s.HistoryLast, 3);
  EXPECT_EQ(window.Grid2.Text, "4");
  EXPECT_EQ(rho(last), 1000);

  // Back through the store to the fitted model, and forward again to the last variant.
  window.nextone_Click();
  EXPECT_EQ(wforms.beeps, 1);
  const std::vector<std::string> shown = {"500", "100", rt::CStr(fitted_rho4)};
  for (const std::string& expected : shown) {
    screen.ops.clear();
    window.lastone_Click();
    EXPECT_EQ(cell(last, 0), expected + "  ");
    EXPECT_EQ(strokes(s.SuperposedColour), 4);
    EXPECT_EQ(strokes(s.CurveColour), 1);
  }
  EXPECT_EQ(window.Grid2.Text, "1");
  window.lastone_Click();
  EXPECT_EQ(wforms.beeps, 2);
  for (int step = 0; step < 3; ++step) window.nextone_Click();
  EXPECT_EQ(cell(last, 0), "1000  ");
  EXPECT_EQ(rho(last), 1000);
  EXPECT_EQ(window.Grid2.Text, "4");
}

}  // namespace
}  // namespace tellux::testing
