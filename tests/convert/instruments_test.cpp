// The instruments' files, the backups and the spreadsheet export, on small files written for them.
#include <filesystem>

#include "convert/backups.h"
#include "convert/instruments.h"
#include "core/runtime/number_text.h"
#include "core/runtime/token_file.h"
#include "session_fixture.h"

namespace tellux::testing {
namespace {

std::string data(const std::string& name) {
  return std::string(TELLUX_TEST_DATA) + "/instruments/" + name;
}

class InstrumentsTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    s.WorkMode = mode::kFile;
  }
  // Converts `file` as the menu does; the TX3 text, or "" when nothing was written.
  std::string convert(Instrument kind, const std::string& file) {
    dialogs.open_choices = {{data(file)}};
    const auto written = convert_instrument(session, kind, data("none.txt"), path("out.TX3"));
    return written ? read("out.TX3") : std::string();
  }
  // The text of line `n` (from 1).
  static std::string line(const std::string& text, int n) {
    size_t at = 0;
    for (int k = 1; k < n; ++k) at = text.find("\r\n", at) + 2;
    return text.substr(at, text.find("\r\n", at) - at);
  }
};

// What each format gives, byte for byte, is in the golden files of the batch command's conversions.
TEST_F(InstrumentsTest, RefusedFilesWriteNothing) {
  EXPECT_EQ(convert(Instrument::Sas1000, "local.amp"), "");
  EXPECT_EQ(dialogs.texts().back(), "Coordinate types other than Index and XYZ:1 not supported");
  EXPECT_EQ(convert(Instrument::Oyo, "ip.csv"), "");
  EXPECT_EQ(dialogs.texts().back(), "Only resistivity mode");
  EXPECT_NE(convert(Instrument::Oyo, "sample.csv"), "");
  EXPECT_EQ(s.Spread, SpreadType::Wenner);  // the OYO file's array stays chosen
  // An Astier file fills a table of 99 rows: 100 are refused.
  std::string rows;
  for (int i = 1; i <= 100; ++i) rows += std::to_string(i) + ",10\r\n";
  write("big.dat", "\"P\",\"1\",\"0\",0,0,0,100\r\n" + rows);
  EXPECT_EQ(astier_tx3(s, read("big.dat")), "");
  write("full.dat", "\"P\",\"1\",\"0\",0,0,0,99\r\n" + rows);
  EXPECT_EQ(astier_tx3(s, read("full.dat")).substr(0, 6), "99.5\r\n");
  // A PASI row cut short is a damaged file; its strings may stand in quotes.
  EXPECT_FALSE(read_pasi(session, "SCHLUMBERGER 1/2/3\r\n1.5 0.5 0 2\r\n"));
  EXPECT_TRUE(dialogs.texts().back().ends_with(" is corrupted...."));
  EXPECT_TRUE(read_pasi(session, "\"SCHLUMBERGER\",\"1/2/3\"\r\n"));
  EXPECT_EQ(s.CommentText, "Date : 1.2.3");
  // 52 readings fail on the table's bound.
  std::string many = "H\r\n";
  for (int i = 1; i <= 52; ++i) many += "x 1 1 " + std::to_string(i) + " 1 100 1 10 0\r\n";
  EXPECT_FALSE(read_abem(session, "\"c\"\r\n1,52\r\n" + many));
}

TEST_F(InstrumentsTest, BackupsAndTheSpreadsheetExport) {
  const std::string backup = write("old.BAK", rt::read_whole_file(data("../open/sample.TX3")));
  write("old.TX3", "kept");
  dialogs.open_choices = {{backup}};
  EXPECT_FALSE(rename_backup(session));  // the TX3 exists: both stay
  EXPECT_EQ(read("old.TX3"), "kept");
  EXPECT_TRUE(std::filesystem::exists(backup));
  EXPECT_EQ(dialogs.messages.front().text, "Rename " + backup + " as " + path("old.TX3"));

  dialogs.open_choices = {{backup}};
  EXPECT_TRUE(restore_backup(session));
  EXPECT_EQ(s.FilePath, path("old.TX3"));
  EXPECT_EQ(dialogs.texts().back(), "old.TX3 is restored");
  // The rest of the open: the model window shown for the backup's model, then the sheet.
  EXPECT_EQ(forms.model_window_shown, 1);
  EXPECT_EQ(forms.log.back(), "fill sheet");

  EXPECT_EQ(txl_name("/d/data.old.txt"), "/d/data.TXL");
  EXPECT_EQ(txl_name("/d/data"), "/d/data.TXL");
  dialogs.save_choices = {path("sheet.txt")};
  s.LayerModel(1, 1) = 100.0;
  s.LayerModel(1, 2) = 5.0;
  s.LayerModel(2, 1) = 300.0;
  s.LayerCount = 2;
  ASSERT_EQ(export_txl(session), path("sheet.TXL"));
  const std::string txl = read("sheet.TXL");
  EXPECT_EQ(line(txl, 1), rt::Str(s.FieldCount));
  // The first layer row of the model in work, then of the one stored before the restore.
  EXPECT_EQ(line(txl, 2 + s.FieldCount), " 100 5 0 0");
  EXPECT_EQ(s.SheetFileName, "sheet.txt");
}

}  // namespace
}  // namespace tellux::testing
