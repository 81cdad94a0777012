#include "app/setup_tab.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/headless/recording_forms.h"
#include "platform/headless/recording_surface.h"
#include "platform/headless/scripted_dialogs.h"
#include "plot/bilog_view.h"

namespace tellux {
namespace {

// Dialogs that also keep the titles and start colours of the colour dialog.
class ColourDialogs : public ScriptedDialogs {
 public:
  std::vector<std::pair<std::string, int>> colour_requests;
  std::optional<int> show_colour(const std::string& title, int initial) override {
    colour_requests.emplace_back(title, initial);
    return ScriptedDialogs::show_colour(title, initial);
  }
};

class SetupTabTest : public ::testing::Test {
 protected:
  void use_language(char l) { s.Language = {l == 'S', l == 'F', l == 'E', l == 'A'}; }
  // A computed three-layer model on the current record, with two field points.
  void computed_model() {
    s.FieldCount = 2;
    s.MaxAbHalf = 100;
    s.LayerCount = 3;
    const double field[2][2] = {{1, 100}, {100, 30}}, layers[3][2] = {{100, 2}, {20, 10}, {500, 0}};
    for (int i = 1; i <= 3; ++i)
      for (int c = 1; c <= 2; ++c) {
        if (i <= 2) s.FieldTable(i, c) = field[i - 1][c - 1];
        if (layers[i - 1][c - 1] > 0) s.LayerModel(i, c) = layers[i - 1][c - 1];
      }
    s.ModelCurve(1, 1) = 100.0;  // the diagram holds a curve
    s.ModelOutdated = false;
  }
  // The setup tab loaded from the record, then its redraw button pressed.
  void redraw() {
    tab.Load_parameter();
    tab.Command11_Click();
  }
  size_t count(const std::string& suffix) const {
    return static_cast<size_t>(std::count_if(screen.ops.begin(), screen.ops.end(), [&](auto& op) {
      return op.starts_with("LineTo") && op.ends_with(suffix);
    }));
  }

  SoundingState s;
  ColourDialogs dialogs;
  RecordingForms forms;
  Session session{s, dialogs, forms};
  RecordingSurface screen;
  BilogDrawing drawing{session, BilogSurfaces{&screen, nullptr, nullptr}};
  TextBox Text1, Text4;
  GridModel BuildGrid{52, 8};
  SetupTab tab{session, screen, Text1, Text4, &BuildGrid};
};

TEST_F(SetupTabTest, LoadParameterSetsTheListsFromTheExponents) {
  s.DecadeStart = -1, s.DecadeEnd = 3, s.RhoDecadeStart = -2, s.RhoDecadeEnd = 6;
  s.ThicknessDecimals = 2;
  s.ShowErrorCurve = 1;
  s.ShowModelSteps = -1;  // unticked earlier in the run
  s.SpreadTag = "2";
  s.HalfArray = 2;
  use_language('F');
  tab.Load_parameter();
  EXPECT_EQ(tab.Combo1.Text() + tab.Combo2.Text() + tab.Combo3.Text() + tab.Combo4.Text() +
                tab.Combo5.Text(),
            "       0.1    1000      0.011000000     Auto");
  // Thickness decimals on Auto at each start.
  EXPECT_EQ(std::tuple(s.HalfArray, s.ThicknessDecimals, tab.represent_modele.Value, s.Spread),
            std::tuple(1, 0, 0, SpreadType::Wenner));
  EXPECT_EQ(tab.garder_config.Caption + "|" + tab.Command11.Caption,
            "Garder la configuration en sortant|Redessiner");
  use_language('S');
  tab.Load_parameter();
  EXPECT_EQ(tab.Label5.Caption, "Decimalas espessores");
  use_language('E');
  tab.Load_parameter();
  EXPECT_EQ(tab.RMSB.Caption, "Graphic representation of adjustment error");
}

// An exponent outside the items leaves the list unchosen and the range as it was; no decade on
// the abscissa does not stop the redraw. Without a curve the frame and the marks are drawn alone.
TEST_F(SetupTabTest, RangesOutsideTheListsOrWithoutADecade) {
  s.FieldCount = 1;
  s.FieldTable(1, 1) = 10.0;
  s.FieldTable(1, 2) = 100.0;
  drawing.attach();
  s.DecadeEnd = 7;
  redraw();
  EXPECT_EQ(std::tuple(tab.Combo2.ListIndex(), s.DecadeEnd, screen.ops.back(),
                       screen.ops[screen.ops.size() - 4].substr(0, 5), session.forward_runs),
            std::tuple(-1, 7, "MousePointer 2", "Line ", 0));
  tab.Combo1.ListIndex(2);  // 10
  tab.Combo2.ListIndex(0);  // 10
  tab.Command11_Click();
  EXPECT_EQ(std::tuple(s.DecadeStart, s.DecadeEnd, screen.ops.back()),
            std::tuple(1, 1, "MousePointer 2"));
}

TEST_F(SetupTabTest, RedrawReadsTheRangesBackAsValuesAndExponents) {
  tab.Load_parameter();
  tab.Combo1.ListIndex(0);  // 0.1
  tab.Combo2.ListIndex(2);  // 1000
  tab.Combo3.ListIndex(0);  // 0.01
  tab.Combo4.ListIndex(5);  // 1000000
  tab.Combo5.ListIndex(2);
  tab.represent_modele.Value = 0;
  tab.garder_config.Value = 1;
  tab.accurate_curves.Value = 1;
  tab.Option_Click(1);
  tab.Command11_Click();
  EXPECT_TRUE(s.AccurateCurves);
  EXPECT_EQ(std::tuple(s.AB2min, s.AB2max, s.RHOmax), std::tuple(0, 1000, 1000000));
  EXPECT_EQ(std::vector<int>({s.DecadeStart, s.DecadeEnd, s.RhoDecadeStart, s.RhoDecadeEnd}),
            std::vector<int>({-1, 3, -2, 6}));
  // The steps' box unticked gives -1, not 0.
  EXPECT_EQ(std::tuple(s.ThicknessDecimals, s.ShowModelSteps, s.KeepConfiguration),
            std::tuple(2, -1, 1));
  EXPECT_EQ(Text4.Text + s.SpreadTag + BuildGrid.text(0, 2) + forms.log.back(),
            "Dipole1AMfill sheet");
  // The frame was drawn for the new ranges.
  EXPECT_EQ(screen.ops[3], "Scale -1.0799 6.2001 3.4000 -2.8000");
}

TEST_F(SetupTabTest, RedrawComputesTheCurrentModelAndReplaysTheStoredOnes) {
  computed_model();
  s.ShowModelSteps = 1;
  drawing.attach();
  redraw();
  // The current model went to the slot being filled, with its count, and came back from it.
  EXPECT_EQ(std::tuple(session.forward_runs, s.LayerHistory[1](2, 1).num(), s.HistoryCounts[1],
                       s.LayerCount),
            std::tuple(1, 20.0, 3, 3));
  // The staircase is drawn by the calculation and once more.
  EXPECT_EQ(count(" 16711935"), 2 * 5u);

  // Stored models are replayed in the superposed colour first.
  screen.ops.clear();
  session.forward_runs = 0;
  s.ShowModelSteps = 0;
  s.SuperposeCurve = 1;
  // Slot 1 holds an earlier two-layer model; the current one is in work.
  s.LayerHistory[1](1, 1) = 50.0;
  s.LayerHistory[1](1, 2) = 5.0;
  s.LayerHistory[1](2, 1) = 200.0;
  s.HistoryCounts[1] = 2;
  s.HistoryLast = s.HistoryShown = 1;
  redraw();
  EXPECT_EQ(session.forward_runs, 2);
  EXPECT_GT(count(" 32768"), 20u);
  // The superposed curve comes first.
  const auto first = std::find_if(screen.ops.begin(), screen.ops.end(), [](auto& op) {
    return op.rfind("LineTo", 0) == 0 && op.find(" 255") != std::string::npos;
  });
  EXPECT_NE(std::find_if(screen.ops.begin(), first,
                         [](auto& op) { return op.find(" 32768") != std::string::npos; }),
            first);
  EXPECT_EQ(s.LayerModel(3, 1).num(), 500.0);  // the current model is back

  s.ModelOutdated = true;  // an outdated model ends the superposition
  redraw();
  EXPECT_EQ(s.SuperposeCurve, -1);
}

TEST_F(SetupTabTest, ColourButtonsTheHintsAndTheColourGridQuestion) {
  dialogs.colours = {11, 12, 13, 14, 15, 16};
  tab.Picture4.BackColor = 0x808080;
  for (auto click :
       {&SetupTab::Command4_Click, &SetupTab::Command5_Click, &SetupTab::Command6_Click,
        &SetupTab::Command7_Click, &SetupTab::Command8_Click, &SetupTab::Command12_Click})
    (tab.*click)();
  // Each opens on its sample's colour (white, or the grey given).
  const std::vector<std::pair<std::string, int>> expected = {
      {"Tellux Curve color selection", 0xFFFFFF},  {"Tellux Curve color selection", 0xFFFFFF},
      {"Tellux Model color selection", 0x808080},  {"Tellux Error curve color selection", 0xFFFFFF},
      {"Tellux superposed curve color", 0xFFFFFF}, {"Tellux Points color selection", 0xFFFFFF}};
  EXPECT_EQ(dialogs.colour_requests, expected);
  // Each colour in the record and on its sample.
  const std::pair<int32_t, int32_t> got[] = {
      {s.PointsColour, tab.Picture2.BackColor},   {s.GridColour, tab.Picture3.BackColor},
      {s.ModelColour, tab.Picture4.BackColor},    {s.ErrorColour, tab.Picture5.BackColor},
      {s.SuperposedColour, tab.Text16.BackColor}, {s.CurveColour, tab.Picture1.BackColor}};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(got[i], std::make_pair(11 + i, 11 + i)) << i;
  tab.Command6_Click();  // Cancel leaves the colour
  EXPECT_EQ(dialogs.colour_requests.back().second, 13);
  EXPECT_EQ(s.ModelColour, 13);

  use_language('F');
  tab.Picture4_MouseMove();
  const std::string french = Text1.Text;
  use_language('E');
  tab.Picture5_MouseMove();
  EXPECT_EQ(french + "|" + Text1.Text, "Nouveau SE ou corrections|Enter new File");

  dialogs.answers = {Answer::No, Answer::Yes};
  AskColourGrid(session);
  EXPECT_FALSE(s.ColourGrid);
  AskColourGrid(session);
  ASSERT_EQ(dialogs.messages.size(), 2u);
  EXPECT_EQ(std::tuple(s.ColourGrid, dialogs.messages[0].text, dialogs.messages[0].buttons),
            std::tuple(true, "Do you want a color grid", Buttons::YesNo));
}

}  // namespace
}  // namespace tellux
