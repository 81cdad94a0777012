// Building the sheet: captions, headers, a new sounding's default spacings, New_SEV, and the data
// folder where the default spread files lie.
#include <filesystem>

#include "core/data_dir.h"
#include "sheet_fixture.h"

namespace tellux::testing {
namespace {

using SheetBuild = SheetTest;

// One caption per language family (German shows English) and the headers of each array.
TEST_F(SheetBuild, CaptionsFollowTheLanguageAndHeadersTheArray) {
  const struct {
    char letter;
    SpreadType spread;
    const char* lissbox;
    const char* col1;
    const char* col2;
  } cases[] = {{'F', SpreadType::Schlumberger, "&Lissage", "MN/2", "AB/2"},
               {'S', SpreadType::Dipole, "Compensar &empalme", "BN", "AM"},
               {'A', SpreadType::Wenner, "s&Hift curve", "-", "a"}};
  s.FileName = "x.TX3";
  for (const auto& c : cases) {
    SCOPED_TRACE(c.letter);
    use_language(c.letter);
    s.Spread = c.spread;
    sheet.Load_build();
    EXPECT_EQ(sheet.lissbox.Caption, c.lissbox);
    EXPECT_EQ(cell(0, 1), c.col1);
    EXPECT_EQ(cell(0, 2), c.col2);
  }
  EXPECT_EQ(cell(50, 0), " 50");
}

// A spread file gives at most 51 rows and what precedes a damaged row.
TEST_F(SheetBuild, NewSoundingTakesTheSpacingsOfItsArray) {
  write("data/DATAVES.TXT", "0.5,1\r\n0.5,2\r\n2.5,10\r\n");
  sheet.BuildGrid.set_text(7, 1, "old");
  sheet.Load_build();
  EXPECT_EQ(cell(1, 1), " .5");
  EXPECT_EQ(cell(3, 2), " 10");
  EXPECT_EQ(cell(7, 1), "");
  EXPECT_DOUBLE_EQ(table(3, 1), 2.5);  // held where Compute will replace them
  EXPECT_DOUBLE_EQ(table(3, 3), 10);
  std::string rows;
  for (int i = 1; i <= 60; ++i) rows += "1," + std::to_string(i) + "\r\n";
  write("data/DATAVES.TXT", rows);
  sheet.Load_build();
  EXPECT_EQ(cell(50, 2), " 50");
  EXPECT_DOUBLE_EQ(table(51, 3), 51);
  s.FieldTable.erase();
  write("data/DATAVES.TXT", "1,2\r\n1,x\r\n1,9\r\n");
  sheet.refill();
  EXPECT_EQ(cell(1, 2), " 2");
  EXPECT_EQ(cell(2, 1), " 1");  // the row cut by the damage shows its first number
  EXPECT_EQ(cell(3, 2), "");

  // The Wenner file has one number a row, and it lands in column 2.
  s.Spread = SpreadType::Wenner;
  s.SpreadTag = "2";
  write("data/DATAWEN.TXT", "1\r\n2\r\n5\r\n");
  sheet.Load_build();
  EXPECT_EQ(cell(3, 2), " 5");
  EXPECT_EQ(cell(3, 1), " 0");  // the number text of an empty column 1
  EXPECT_EQ(cell(4, 2), "");

  // The setting names the file when it exists.
  sev_file = write("mine.txt", "1,3\r\n");
  s.Spread = SpreadType::Schlumberger;
  s.SpreadTag = "0";
  sheet.Load_build();
  EXPECT_EQ(cell(1, 2), " 3");
}

// An unnamed sounding becomes NEW, once; a missing spread file leaves an empty sheet, silently. A
// named sounding or a resistivity in row one is then filled from the table.
TEST_F(SheetBuild, AMissingSpreadFileLeavesAnEmptySheetNamedNewOnceThenTheTableFillsIt) {
  sheet.BuildGrid.set_text(2, 2, "old");
  EXPECT_NO_THROW(sheet.Load_build());
  EXPECT_EQ(cell(2, 2), "");
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(s.FileName, "NEW");
  EXPECT_EQ(sheet_forms.caption, "Tellux 6.4 [NEW]");
  sheet_forms.caption.clear();
  sheet.Load_build();
  EXPECT_EQ(sheet_forms.caption, "");
  EXPECT_FALSE(s.ModelEverComputed);

  write("data/DATAVES.TXT", "0.5,1\r\n");
  s.FieldCount = 1;
  s.FieldTable(1, 1) = 3.0;
  s.FieldTable(1, 2) = 55.0;
  s.ShiftCurves = 1;
  s.HalfArray = 2;
  sheet.Load_build();
  EXPECT_EQ(cell(1, 2), " 3");
  EXPECT_EQ(cell(1, 6), " 55");
  EXPECT_EQ(sheet.lissbox.Value, 1);
  EXPECT_EQ(sheet.Check10.Value, 1);
}

TEST_F(SheetBuild, NewSevEmptiesTheSoundingButKeepsLocationAndCounts) {
  write("data/DATAVES.TXT", "0.5,1\r\n0.5,2\r\n");
  s.FileName = "old.TX3";
  s.FieldCount = 12;
  s.DataOrigin = "PASI";
  s.LocationX = "512000";
  s.CommentText = "old";
  s.LayerModel(1, 1) = 100.0;
  s.LayerCount = s.HistoryCounts[2] = 3;
  s.LayerHistory[2](1, 1) = 80.0;
  s.ModelComputed = 1;
  s.FieldTable(20, 2) = 40.0;
  for (int c = 1; c <= 6; ++c) sheet.BuildGrid.set_text(9, c, "9");
  sheet.New_SEV();
  EXPECT_EQ(s.FileName, "NEW");
  EXPECT_EQ(s.ModelComputed, 0);
  EXPECT_TRUE(s.ModelOutdated);
  EXPECT_EQ(s.SuperposeCurve, -1);
  EXPECT_EQ(s.LayerCount + s.HistoryCounts[2], 0);
  EXPECT_DOUBLE_EQ(s.LayerModel(1, 1).num() + s.LayerHistory[2](1, 1).num() + table(20, 2), 0);
  EXPECT_EQ(s.CommentText, "");
  EXPECT_EQ(s.FieldCount, 12);  // the count, the origin and the place survive
  EXPECT_EQ(s.DataOrigin, "PASI");
  EXPECT_EQ(sheet.XBox.Text, "512000");
  EXPECT_EQ(cell(9, 3), "");
  EXPECT_EQ(cell(2, 2), " 2");
  EXPECT_EQ(sheet_forms.frames, 1);
  EXPECT_EQ(sheet_forms.log.front(), "unload model");
}

TEST(DataDir, TheEnvironmentComesFirstAndTheSourceTreeLast) {
  setenv("TELLUX_DATA_DIR", "/some/where/", 1);
  EXPECT_EQ(data_dir(), "/some/where");
  EXPECT_EQ(spread_file_for("1"), "/some/where/DATADIP.TXT");
  EXPECT_EQ(spread_file_for("0"), "/some/where/DATAVES.TXT");
  EXPECT_EQ(usable_spread_file("C:\\Tellux\\DataVes.txt", "2"), "/some/where/DATAWEN.TXT");
  unsetenv("TELLUX_DATA_DIR");
  if (!std::filesystem::exists("/usr/local/share/tellux")) {
    EXPECT_EQ(data_dir(), std::string(TELLUX_SOURCE_DIR) + "/data");
  }
}

}  // namespace
}  // namespace tellux::testing
