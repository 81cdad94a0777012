// Quit, Save and the half-array box.
#include "core/runtime/token_file.h"
#include "sheet_fixture.h"

namespace tellux::testing {
namespace {

class SheetCommands : public SheetTest {
 protected:
  void SetUp() override {
    SheetTest::SetUp();
    s.FileName = "x.TX3";
    put_row(1, {"", "1", "", "", "", "100"});
    put_row(2, {"", "10", "", "", "", "40"});
    put_row(3, {"", "100", "", "", "", "300"});
    // Two layers: 100 ohm.m over 5 m, then 400 ohm.m.
    s.LayerModel(1, 1) = 100.0;
    s.LayerModel(1, 2) = 5.0;
    s.LayerModel(2, 1) = 400.0;
    s.LayerCount = 2;
  }
};

// With the overlay on, the stored models are drawn first, then the model in work, which went to
// the slot after them.
TEST_F(SheetCommands, QuitTakesWhatWasTypedAndDrawsTheComputedAndStoredModelsAgain) {
  sheet.ExitButton_Click();  // nothing typed, no computed model: the frame only
  EXPECT_EQ(sheet_forms.frames, 1);
  EXPECT_EQ(sheet_session.forward_runs, 0);
  EXPECT_EQ(s.MaxAbHalf, 0);

  s.ModelComputed = 1;
  s.SheetBuilt = true;
  type(3, 6, "\b");  // the first key clears the cell
  type(3, 6, "300");
  s.SuperposeCurve = 1;
  s.LayerHistory[1](1, 1) = 50.0;
  s.LayerHistory[1](1, 2) = 2.0;
  s.LayerHistory[1](2, 1) = 10.0;
  s.HistoryCounts[1] = 2;
  s.HistoryLast = s.HistoryShown = 1;
  sheet.ExitButton_Click();
  EXPECT_EQ(s.MaxAbHalf, 100);
  EXPECT_EQ(sheet_forms.frames, 2);
  EXPECT_EQ(sheet_session.forward_runs, 2);
  EXPECT_DOUBLE_EQ(s.LayerHistory[2](1, 1).num(), 100);
  EXPECT_DOUBLE_EQ(s.LayerModel(1, 1).num(), 100);
  EXPECT_EQ(s.LayerCount, 2);
  EXPECT_FALSE(s.SheetBuilt);
  EXPECT_EQ(sheet_forms.log.back(), "pointer bilog 2");
  EXPECT_EQ(sheet_forms.tab, -1);  // the tab does not change
}

// The count is asked about in each language: No, or Cancel in the save dialog, writes nothing;
// Yes writes and empties the sheet.
TEST_F(SheetCommands, SaveAsksWithTheCountWritesAndEmptiesTheSheet) {
  const std::pair<char, const char*> cases[] = {
      {'S', " El SEV cuenta  3 datos\r\nNo debe haber línea vacía..."},
      {'E', " Electrical sounding has  3 data\r\nNo empty line allowed among the data..."}};
  for (const auto& [letter, text] : cases) {
    use_language(letter);
    dialogs.answers.push_back(Answer::No);
    EXPECT_FALSE(sheet.save_from_sheet());
    EXPECT_EQ(dialogs.messages.back().text, text);
  }
  s.FileName = "NEW";
  EXPECT_FALSE(sheet.save_from_sheet());  // Yes, but no save choice queued: Cancel
  EXPECT_FALSE(s.DataSaved);
  EXPECT_EQ(sheet_forms.frames, 0);

  use_language('F');
  sheet.CommentBox.Text = "au bord du lac";
  sheet.TitleBox.Text = "SEV 3";
  dialogs.save_choices.push_back(path("lac.TX3"));
  sheet.SaveButton_Click();
  EXPECT_EQ(dialogs.messages.back().text,
            " Le SE compte 3 données\r\n Il ne doit pas y avoir de ligne sans résistivité...");
  EXPECT_EQ(s.FileName, "lac.TX3");
  EXPECT_TRUE(s.DataSaved);
  const std::string file = read("lac.TX3");
  EXPECT_EQ(file.substr(0, file.find('\r')), "3.5");
  EXPECT_NE(file.find("\"au bord du lac\"\r\n\"\"\r\n\"SEV 3\""), std::string::npos);
  for (int c = 1; c <= 6; ++c) EXPECT_EQ(cell(1, c) + cell(2, c), "") << c;  // emptied
}

// The factors it gives are in the batch compute's golden file.
TEST_F(SheetCommands, HalfArrayBoxRecomputes) {
  put_row(1, {"0.5", "1.5", "500", "100", "", ""});
  sheet.Check10.Value = 1;
  sheet_forms.tab_now = 0;
  sheet.Check10_Click();
  EXPECT_EQ(s.HalfArray, 2);
  EXPECT_DOUBLE_EQ(table(1, 5), 12.57);  // 2 x 6.2832
  EXPECT_EQ(sheet_forms.focus, 0);       // not on the sheet's tab
}

}  // namespace
}  // namespace tellux::testing
