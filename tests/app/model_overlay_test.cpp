// The overlay of models: the store of computed models, its limit, and the walk through it; and a
// whole session in the model window.
#include <tuple>

#include "core/open_flow.h"
#include "model/overlay_store.h"
#include "model_window_fixture.h"

namespace tellux::testing {
namespace {

class ModelOverlayTest : public ModelWindowTest {
 protected:
  void SetUp() override {
    ModelWindowTest::SetUp();
    sounding();
    window.Form_Load();
    screen.ops.clear();
  }
  // A variant of the model: only the resistivity of the second layer changes.
  void compute_with_second_layer(const std::string& rho) {
    type(2, 0, rho);
    window.Calcul_Button_Click();
  }
  // The box ticked, then a compute with each of the second layer's resistivities.
  void overlay(std::initializer_list<const char*> rhos) {
    window.Check18_Click(1);
    for (const char* r : rhos) compute_with_second_layer(r);
  }
};

TEST_F(ModelOverlayTest, WithoutTheBoxEachComputeEmptiesTheStoreAndWithItKeepsTheModelBefore) {
  compute_with_second_layer("30");
  compute_with_second_layer("40");
  EXPECT_EQ(s.HistoryLast, 0);
  EXPECT_EQ(s.LayerHistory[1](1, 1).num(), 0);
  EXPECT_FALSE(window.nextone.Enabled);
  // A frame for each compute: only one curve stands.
  EXPECT_EQ(frames(), 2);
  EXPECT_EQ(strokes(s.CurveColour), 2);
  EXPECT_EQ(Name.Text, "SAMPLE");

  screen.ops.clear();  // with the box, each compute stores the model before
  overlay({"30", "50"});
  EXPECT_EQ(s.HistoryLast, 2);
  EXPECT_EQ(s.LayerHistory[1](2, 1).num(), 40);  // the model before the first of them
  EXPECT_EQ(s.LayerHistory[2](2, 1).num(), 30);
  EXPECT_EQ(s.HistoryCounts[2], 3);
  EXPECT_EQ(rho(2), 50);  // the model in work is the grid's
  // No frame: the earlier curves stay.
  EXPECT_EQ(frames(), 0);
  EXPECT_EQ(Name.Text, "SAMPLE, SAMPLE, SAMPLE");
}

// A reading that stored the model holds the next slot; a one-layer model is not superposed; the
// store holds twenty models.
TEST_F(ModelOverlayTest, AHeldSlotOrAOneLayerModelIsNotStoredAndTheStoreHoldsTwenty) {
  s.OverlayHold = 1;
  overlay({"30"});
  EXPECT_EQ(s.HistoryLast, 0);
  EXPECT_EQ(s.OverlayHold, 0);
  compute_with_second_layer("40");
  EXPECT_EQ(s.HistoryLast, 1);
  s.LayerCount = 1;
  compute_with_second_layer("50");
  EXPECT_EQ(s.HistoryLast, 0);
  EXPECT_EQ(s.LayerHistory[1](2, 1).num(), 0);

  s.LayerCount = 3;
  s.HistoryLast = 18;
  compute_with_second_layer("30");
  EXPECT_EQ(s.HistoryLast, 19);
  EXPECT_TRUE(dialogs.messages.empty());
  compute_with_second_layer("40");
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"Maximum 20 soundings superposed"});
  EXPECT_EQ(dialogs.messages[0].icon, Icon::Exclamation);
  EXPECT_EQ(s.HistoryLast, 19);
}

// A step redraws every curve (the session's walk counts them) and brings the chosen model to the
// grid; a step on an outdated curve only beeps; a compute after the walk adds the grid's model.
TEST_F(ModelOverlayTest, AStepBringsTheChosenModelToTheGridAndAComputeAddsIt) {
  overlay({"30", "40"});
  screen.ops.clear();
  ws.forward_runs = 0;
  window.Grid1_Click(3, 1);
  window.lastone_Click();
  EXPECT_EQ(s.HistoryShown, 1);
  EXPECT_EQ(ws.forward_runs, 4);
  EXPECT_EQ(frames(), 0);
  EXPECT_EQ(rho(2), 30);
  EXPECT_EQ(s.HistoryBase, 1);
  EXPECT_EQ(window.Grid1.row, 3);
  // The model in work was kept in the slot after the stored ones.
  EXPECT_EQ(s.LayerHistory[3](2, 1).num(), 40);

  s.ModelOutdated = true;
  window.lastone_Click();
  EXPECT_EQ(wforms.beeps, 1);
  EXPECT_EQ(s.HistoryShown, 1);
  s.ModelOutdated = false;
  window.lastone_Click();
  ASSERT_EQ(cell(2, 0), "20  ");
  compute_with_second_layer("50");
  EXPECT_EQ(s.HistoryBase, 0);
  EXPECT_EQ(s.HistoryLast, 3);
  EXPECT_EQ(rho(2), 50);
  EXPECT_EQ(s.LayerHistory[3](2, 1).num(), 40);
}

TEST_F(ModelOverlayTest, TheSheetsReplayTakesTheCountOfTheModelInWork) {
  overlay({"30"});
  type(3, 1, "15");
  type(4, 0, "700");
  compute_with_second_layer("40");  // four layers in work
  window.lastone_Click();
  window.lastone_Click();  // on the first model, of three layers
  screen.ops.clear();
  s.WorkMode = mode::kNormal;  // as the sheet's Quit sets it
  ReplayOverlaysForSheet(ws);
  EXPECT_EQ(strokes(s.SuperposedColour), 3);
  EXPECT_EQ(rho(2), 20);
  EXPECT_EQ(s.LayerCount, 4);
}

// A whole session in the model window, as a user would work: open a sounding, type a model, then
// compare variants on the diagram and walk through them to both ends.
using ModelSessionTest = ModelWindowTest;

TEST_F(ModelSessionTest, TypeSuperposeAndWalk) {
  s.FilePath = std::string(TELLUX_TEST_DATA) + "/fit_synthetic_3layer.TX3";
  s.FileName = s.FilePath;
  open_sounding(ws);
  ASSERT_EQ(s.FieldCount, 28);
  EXPECT_FALSE(window.loaded());  // no model in the file: the window stays closed

  // The toolbar shows the window; there is nothing to compute yet.
  window.menu_compute();
  ASSERT_TRUE(window.loaded());
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"Value missing..."});
  const std::tuple<int, int, const char*> cells[] = {{1, 0, "80"}, {1, 1, "5"},  {2, 0, "30"},
                                                     {2, 1, "8"},  {3, 0, "15"}, {3, 1, "12"},
                                                     {4, 0, "250"}};
  for (auto [row, col, typed] : cells) type(row, col, typed);
  window.Calcul_Button_Click();
  EXPECT_EQ(s.LayerCount, 4);
  EXPECT_EQ(s.LayerModel(4, 3).num(), 25);
  EXPECT_EQ(Name.Text, "fit_synthetic_3layer");

  // Three variants of the deepest layer, each kept on the diagram.
  window.Check18_Click(1);
  for (const char* variant : {"100", "500", "1000"}) {
    type(4, 0, variant);
    window.Calcul_Button_Click();
  }
  EXPECT_EQ(s.HistoryLast, 3);
  EXPECT_EQ(window.Grid2.Text, "4");

  // Back through the store to the typed model, and forward again to the last variant.
  window.nextone_Click();
  EXPECT_EQ(wforms.beeps, 1);
  for (const std::string expected : {"500", "100", "250"}) {
    screen.ops.clear();
    window.lastone_Click();
    EXPECT_EQ(cell(4, 0), expected + "  ");
    EXPECT_EQ(strokes(s.SuperposedColour), 4);
    EXPECT_EQ(strokes(s.CurveColour), 1);
  }
  EXPECT_EQ(window.Grid2.Text, "1");
  window.lastone_Click();
  EXPECT_EQ(wforms.beeps, 2);
  for (int step = 0; step < 3; ++step) window.nextone_Click();
  EXPECT_EQ(cell(4, 0), "1000  ");
  EXPECT_EQ(rho(4), 1000);
  EXPECT_EQ(window.Grid2.Text, "4");
}

}  // namespace
}  // namespace tellux::testing
