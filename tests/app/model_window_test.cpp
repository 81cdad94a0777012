// The model window as a whole: its load, its buttons and captions, and the menu commands.
#include <tuple>

#include "core/runtime/number_text.h"
#include "core/sounding_file.h"
#include "model/automatic_model.h"
#include "model_window_fixture.h"

namespace tellux::testing {
namespace {

// The captions follow the language at each load; German shows the English texts.
TEST_F(ModelWindowTest, OpeningTheWindowShowsTheModelComputesItsCurveAndSetsTheControls) {
  sounding();
  s.LayerLocks[2] = 3;  // locks do not survive a load
  use_language('F');
  window.Form_Load();
  EXPECT_EQ(window.Caption, "Traçage modèle");
  EXPECT_EQ(cell(3, 2), "25  ");
  EXPECT_EQ(s.LayerLocks[2], 0);
  EXPECT_FALSE(s.ModelOutdated);
  EXPECT_EQ(strokes(s.CurveColour), 1);
  EXPECT_EQ(frames(), 1);
  EXPECT_EQ(Name.Text, "SAMPLE");
  EXPECT_TRUE(dialogs.messages.empty());

  // The slider and the overlay box follow the record at the load, and set it.
  s.ModelSensitivity = 0.3;
  s.SuperposeCurve = 1;
  use_language('A');
  window.Form_Load();
  EXPECT_EQ(window.Ajuste_Button.Caption, "&Fitting");
  EXPECT_EQ(window.Label2.Caption, "L");
  EXPECT_EQ(window.Slider1.Value, 3);
  EXPECT_EQ(window.Check18.Value, 1);
  window.Slider1_Change(0);
  EXPECT_DOUBLE_EQ(s.ModelSensitivity, 0.03);
  EXPECT_GE(display.focus, 2);
  window.Check18_Click(0);
  EXPECT_EQ(s.SuperposeCurve, -1);
  window.Form_Load();
  EXPECT_EQ(window.Check18.Value, 0);
}

TEST_F(ModelWindowTest, SavingWritesTheGridsModel) {
  sounding();
  window.Form_Load();
  s.FilePath = path("SAMPLE.TX3");
  type(2, 0, "25");
  Comment.Text = "after the rain";
  dialogs.answers.push_back(Answer::Yes);
  window.Record_Button_Click();
  EXPECT_TRUE(s.DataSaved);

  SoundingState again;
  Session other{again, dialogs, forms};
  again.FormatLevel = 3;
  again.FileName = "SAMPLE.TX3";
  ASSERT_TRUE(read_sounding_file(other, s.FilePath));
  EXPECT_EQ(again.LayerModel(2, 1).num(), 25);
  EXPECT_EQ(again.CommentText, "after the rain");
}

// The shift shows beside the name; a missing first thickness stops the compute.
TEST_F(ModelWindowTest, TheShiftShowsBesideTheNameAndAMissingFirstThicknessStopsTheCompute) {
  sounding();
  s.ShiftCurves = 1;
  use_language('S');
  window.Form_Load();
  EXPECT_EQ(window.Calcul_Button.Caption, "&Computar");
  EXPECT_EQ(Text3.Text, "Empalmes compens.");
  s.ShiftCurves = 0;
  window.Calcul_Button_Click();
  EXPECT_EQ(Text3.Text, "");
  screen.ops.clear();
  window.Grid1.set_text(1, 1, "  ");
  use_language('F');
  window.Calcul_Button_Click();
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"Il manque une valeur"});
  EXPECT_EQ(strokes(s.CurveColour), 0);

  // A sounding being typed is not told.
  s.FileName = "NEW";
  window.Calcul_Button_Click();
  EXPECT_EQ(dialogs.messages.size(), 1u);
  EXPECT_TRUE(window.Grid1.redraw);
}

TEST_F(ModelWindowTest, TheModelComputeAndFitMenusWorkThroughTheWindow) {
  sounding();
  window.menu_compute();  // the window opens, its load computes
  EXPECT_TRUE(window.loaded());
  for (auto [r, c, typed] :
       {std::tuple{1, 0, "80"}, {1, 1, "4"}, {2, 0, "30"}, {2, 1, "15"}, {3, 0, "250"}})
    type(r, c, typed);
  window.menu_compute();
  EXPECT_EQ(rho(3), 250);
  EXPECT_EQ(wforms.model_window_shown, 1);
  window.menu_fit();  // the fit itself is checked with the fit and its golden files
  EXPECT_NEAR(rho(1), 100, 5);
  EXPECT_EQ(cell(1, 0), rt::CStr(s.LayerModel(1, 1)) + "  ");  // the grid shows the fit
  EXPECT_FALSE(s.DataSaved);

  s.LayerModel.erase();  // the model menu builds and fits a first model
  window.menu_model();
  EXPECT_GE(s.LayerCount, 2);
  EXPECT_NE(cell(1, 0), "");

  s.LayerModel.erase();  // an automatic model is fitted when the window loads
  AutomaticModel(ws);
  ASSERT_EQ(s.WorkMode, mode::kAutomatic);
  ws.forward_runs = 0;
  window.Form_Load();
  EXPECT_GT(ws.forward_runs, 20);  // the fit ran
  EXPECT_EQ(s.WorkMode, "");
  EXPECT_NEAR(rho(1), 100, 10);
}

}  // namespace
}  // namespace tellux::testing
