// A Schlumberger sounding typed key by key on a new sheet, corrected with the backspace, Insert
// line and Delete line, computed and saved.
#include "sheet_fixture.h"

namespace tellux::testing {
namespace {

using TypedSounding = SheetTest;

constexpr char kPadPoint = 62;
std::string pad(const std::string& digits) {
  std::string keys;
  for (char d : digits) keys.push_back(static_cast<char>(96 + (d - '0')));
  return keys;
}

TEST_F(TypedSounding, GivesTheRecordAndTheFileAUserExpects) {
  spread_file("DATAVES.TXT", "0.5,1\r\n0.5,2\r\n0.5,3\r\n2.5,5\r\n2.5,8\r\n");
  sheet.New_SEV();
  ASSERT_EQ(cell(5, 2), " 8");

  type(1, 3, "500");
  type(1, 4, "100");
  type(2, 3, "13\b20");  // a slip of the finger, taken back
  type(2, 4, pad("100"));
  type(3, 3, "6" + pad("0"));
  type(3, 4, "100");
  type(4, 3, "160");
  type(4, 4, "100");
  type(5, 3, std::string("50") + kPadPoint);  // "50." reads as 50
  type(5, 4, "100");
  type(6, 1, ".5");  // a row that should not be there
  type(6, 2, "9");
  type(6, 3, "7");
  type(6, 4, "7");
  sheet.Computation_Click();
  EXPECT_EQ(s.FieldCount, 6);

  sheet.BuildGrid.row = 6;
  sheet.CorrectButton_Click();
  EXPECT_EQ(cell(6, 2), "");

  // The reading at AB/2 = 4 was forgotten: a line above AB/2 = 5. The first key replaces the
  // empty MN/2; the "1" that marks the new line is then taken off with the backspace.
  sheet.BuildGrid.row = 4;
  sheet.RecordButton_Click();
  EXPECT_EQ(cell(4, 2), "1");
  type(4, 1, ".5");
  type(4, 2, "\b4");
  type(4, 3, "40");
  type(4, 4, "100");
  sheet.Computation_Click();

  // The record's rows are checked in the file written below.
  ASSERT_EQ(s.FieldCount, 6);
  EXPECT_EQ(s.MaxAbHalf, 8);
  EXPECT_EQ(cell(4, 5), " 49.48");
  EXPECT_EQ(cell(4, 6), " 19.8");
  EXPECT_EQ(cell(6, 1), "2.5");
  EXPECT_EQ(cell(7, 2), "");

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
