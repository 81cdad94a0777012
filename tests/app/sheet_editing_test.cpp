// Typing in the sheet, Delete line and Insert line, and a sounding typed from start to file.
#include <tuple>

#include "app/sheet_keys.h"
#include "sheet_fixture.h"

namespace tellux::testing {
namespace {

using SheetEditing = SheetTest;

TEST(SheetKeys, PadDigitsAndBothPointsAreTakenOtherKeysDropped) {
  const std::pair<int, char> taken[] = {{'7', '7'}, {96, '0'},  {105, '9'},     {62, '.'},
                                        {142, '.'}, {'.', '.'}, {8, kBackspace}};
  for (auto [key, ch] : taken) EXPECT_EQ(sheet_key_char(key), ch) << key;
  for (int key : {int{'-'}, int{','}, int{'E'}, int{' '}, 13, 27, 46 + 256})
    EXPECT_FALSE(sheet_key_char(key)) << key;
}

TEST_F(SheetEditing, TheFirstKeyAfterACommandReplacesTheCellAndItsUnshiftedValue) {
  s.CellFresh = 0;
  type(4, 2, "\b");  // backspace on an empty cell does nothing
  EXPECT_EQ(cell(4, 2), "");
  sheet.BuildGrid.set_text(2, 3, " 125");
  s.CellFresh = 1;
  s.DataSaved = true;
  type(2, 3, "4");
  EXPECT_EQ(cell(2, 3), "4");
  EXPECT_EQ(s.CellFresh, 0);
  EXPECT_FALSE(s.DataSaved);
  type(2, 3, std::string("5") + char(142) + "\x63");  // 5, the point, pad 3
  EXPECT_EQ(cell(2, 3), "45.3");
  type(2, 3, "\b\bx-");
  EXPECT_EQ(cell(2, 3), "45");

  // A new resistivity drops the row's unshifted value.
  s.FieldTable(3, 7) = 120.0;
  s.FieldTable(4, 7) = 130.0;
  sheet.BuildGrid.set_text(3, 6, " 120");
  s.CellFresh = 1;
  type(3, 6, "9");
  EXPECT_EQ(cell(3, 6), "9");
  EXPECT_TRUE(s.FieldTable(3, 7).empty());
  type(4, 6, "1");  // only the first key after a command does so
  EXPECT_DOUBLE_EQ(table(4, 7), 130);
}

TEST_F(SheetEditing, KCannotBeTypedInAnyLanguage) {
  const std::pair<char, const char*> cases[] = {
      {'F', "Le facteur K est calculé, il n'est pas à introduire"},
      {'S', "El factor K está calculado por el programa, no se debe introducir"},
      {'E', "You cannot enter a value, K is calculated"}};
  for (const auto& [letter, text] : cases) {
    use_language(letter);
    dialogs.messages.clear();
    sheet.BuildGrid.set_text(1, 5, " 6.28");
    s.CellFresh = 1;
    type(1, 5, "3");
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].text, text);
    EXPECT_EQ(cell(1, 5), " 6.28");
    EXPECT_EQ(s.CellFresh, 1);
  }
}

TEST_F(SheetEditing, DeleteLineMovesTheRowsAndColumnSevenUp) {
  put_row(1, {"", "1", "", "", "", "10"});
  s.FieldCount = 0;
  sheet.BuildGrid.row = 1;
  sheet.CorrectButton_Click();  // before any data: nothing happens
  EXPECT_EQ(cell(1, 2), "1");
  EXPECT_EQ(sheet_forms.focus, 1);

  for (int i = 1; i <= 4; ++i) {
    put_row(i, {"", std::to_string(i), "", "", "", std::to_string(10 * i)});
    sheet.BuildGrid.set_text(i, 0, "?");
    s.FieldTable(i, 7) = 10.0 * i;
  }
  s.FieldTable(51, 7) = 99.0;
  sheet.BuildGrid.set_text(50, 2, "last");
  s.FieldCount = 4;
  s.CellFresh = 0;
  sheet.BuildGrid.row = 2;
  sheet.BuildGrid.col = 4;
  sheet.CorrectButton_Click();

  EXPECT_EQ(cell(2, 2), "3");
  EXPECT_EQ(cell(3, 6), "40");
  EXPECT_EQ(cell(4, 2), "");
  EXPECT_EQ(cell(49, 2), "last");
  EXPECT_EQ(cell(50, 2), "");  // an empty row comes at the end
  EXPECT_EQ(cell(2, 0), " 2");
  EXPECT_DOUBLE_EQ(table(2, 7), 30);
  EXPECT_DOUBLE_EQ(table(50, 7), 99);  // row 51's copy comes up
  EXPECT_DOUBLE_EQ(table(1, 1), 0);    // nothing else of the table moves
  EXPECT_EQ(s.FieldCount, 4);          // the next Compute sets it
  EXPECT_EQ(sheet.BuildGrid.col, 1);
  EXPECT_EQ(s.CellFresh, 1);

  sheet.Compute();
  EXPECT_EQ(s.FieldCount, 3);
}

TEST_F(SheetEditing, InsertLineNeedsASpacingAddsARowAtOneAndLosesTheUnshiftedValueBelow) {
  for (int i = 1; i <= 3; ++i) {
    put_row(i, {"", std::to_string(10 * i), "", "", "", std::to_string(100 * i)});
    s.FieldTable(i, 7) = 100.0 * i;
  }
  sheet.BuildGrid.set_text(50, 2, "last");
  s.FieldCount = 3;
  sheet.BuildGrid.row = 4;  // no spacing in the current row: a beep only
  sheet.RecordButton_Click();
  EXPECT_EQ(sheet_forms.beeps, 1);
  EXPECT_EQ(cell(4, 2), "");
  EXPECT_DOUBLE_EQ(table(4, 7), 0);
  sheet.BuildGrid.row = 2;
  sheet.BuildGrid.col = 5;
  sheet.RecordButton_Click();

  EXPECT_EQ(cell(2, 2), "1");
  EXPECT_EQ(cell(2, 6), "");
  EXPECT_EQ(cell(4, 6), "300");
  EXPECT_EQ(cell(50, 2), "");  // the last row fell off the end
  EXPECT_DOUBLE_EQ(table(2, 7), -1);
  EXPECT_DOUBLE_EQ(table(3, 7), -1);  // so it works: the old row 2 lost its copy
  EXPECT_DOUBLE_EQ(table(4, 7), 300);

  // The row that lost its copy takes the value the sheet shows at the next Compute.
  sheet.BuildGrid.set_text(2, 2, "15");
  sheet.BuildGrid.set_text(2, 6, "150");
  sheet.Compute();
  EXPECT_EQ(s.FieldCount, 4);
  EXPECT_DOUBLE_EQ(table(2, 2), 150);
  EXPECT_DOUBLE_EQ(table(3, 7), 200);
}

// A Schlumberger sounding typed key by key on a new sheet, corrected with the backspace, Insert
// line and Delete line, computed and saved.
using TypedSounding = SheetTest;

TEST_F(TypedSounding, GivesTheRecordAndTheFileAUserExpects) {
  write("data/DATAVES.TXT", "0.5,1\r\n0.5,2\r\n0.5,3\r\n2.5,5\r\n2.5,8\r\n");
  sheet.New_SEV();
  ASSERT_EQ(cell(5, 2), " 8");

  // DeltaV and I of each row: a slip of the finger taken back, keypad digits (the key codes 96 to
  // 105, '`' to 'i'), "50." with the keypad's point (62, '>') read as 50, and a sixth row that
  // should not be there.
  const std::tuple<int, int, const char*> keys[] = {
      {1, 3, "500"}, {1, 4, "100"}, {2, 3, "13\b20"}, {2, 4, "a``"}, {3, 3, "6`"},
      {3, 4, "100"}, {4, 3, "160"}, {4, 4, "100"},    {5, 3, "50>"}, {5, 4, "100"},
      {6, 1, ".5"},  {6, 2, "9"},   {6, 3, "7"},      {6, 4, "7"}};
  for (auto [row, col, typed] : keys) type(row, col, typed);
  sheet.Computation_Click();
  EXPECT_EQ(s.FieldCount, 6);

  sheet.BuildGrid.row = 6;
  sheet.CorrectButton_Click();

  // The reading at AB/2 = 4 was forgotten: a line above AB/2 = 5. The first key replaces the
  // empty MN/2; the "1" that marks the new line is then taken off with the backspace.
  sheet.BuildGrid.row = 4;
  sheet.RecordButton_Click();
  type(4, 1, ".5");
  type(4, 2, "\b4");
  type(4, 3, "40");
  type(4, 4, "100");
  sheet.Computation_Click();

  // The record's rows are checked in the file written below.
  ASSERT_EQ(s.FieldCount, 6);
  EXPECT_EQ(s.MaxAbHalf, 8);

  sheet.CommentBox.Text = "Typed by hand";
  sheet.XBox.Text = "100";
  sheet.YBox.Text = "200";
  dialogs.save_choices.push_back(path("typed"));
  sheet.SaveButton_Click();
  EXPECT_EQ(s.FileName, "typed.TX3");
  EXPECT_TRUE(s.DataSaved);

  // AB/2, resistivity, MN/2, DeltaV, K and I, in tenths or hundredths.
  std::string file =
      "6.5\r\n"
      "10,1180,50,5000,236,100\r\n"
      "20,1410,50,1200,1178,100\r\n"
      "30,1650,50,600,2749,100\r\n"
      "40,1980,50,400,4948,100\r\n"
      "50,1880,250,1600,1178,100\r\n"
      "80,1810,250,500,3629,100\r\n";
  for (int i = 0; i < 20; ++i) file += "0,0,0\r\n";
  file += "\"Typed by hand\"\r\n\"\"\r\n\"\"\r\n\"100\"\r\n\"200\"\r\n\"\"\r\n\"\"\r\n";
  EXPECT_EQ(read("typed.TX3"), file);
}

}  // namespace
}  // namespace tellux::testing
