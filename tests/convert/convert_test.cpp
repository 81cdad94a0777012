// The converters, the backups and the spreadsheet export, on small files written for them; what the
// conversions write is mostly in the golden files of the batch command.
#include <filesystem>

#include "convert/backups.h"
#include "convert/instruments.h"
#include "convert/res2dinv.h"
#include "convert/syscal.h"
#include "core/file_names.h"
#include "core/runtime/number_text.h"
#include "core/runtime/token_file.h"
#include "core/sounding_file.h"
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
  // The text of line `n` (from 1).
  static std::string line(const std::string& text, int n) {
    size_t at = 0;
    for (int k = 1; k < n; ++k) at = text.find("\r\n", at) + 2;
    return text.substr(at, text.find("\r\n", at) - at);
  }
};

// What each format gives, byte for byte, is in the golden files of the batch command's conversions.
// The TX3 file goes beside the input, named by its real extension; the record names it, so that a
// Save after the conversion leaves the instrument's file as it was.
TEST_F(InstrumentsTest, TheRecordNamesTheTx3FileAndASaveLeavesTheInputAlone) {
  const std::tuple<Instrument, std::string, std::string, std::string> cases[] = {
      {Instrument::Abem, "sample.VES", "site", "site.TX3"},
      {Instrument::Sas1000, "sample.amp", "site.amp1", "site.TX3"},
      {Instrument::Geotrade, "sample.GTR", "site.GTR", "site.TX3"},
      {Instrument::Pasi, "sample.TXT", "d.x/site", "d.x/site.TX3"},
      {Instrument::Oyo, "sample.csv", "site.ves1", "site.TX3"}};
  std::filesystem::create_directories(dir_ / "d.x");
  for (const auto& [kind, sample, name, tx3] : cases) {
    const std::string input = write(name, rt::read_whole_file(data(sample)));
    dialogs.open_choices = {{input}};
    s.LayerModel(3, 1) = 526;  // the last sounding's model does not leak into the file
    ASSERT_EQ(convert_instrument(session, kind, "C:\\Tellux\\DataVes.txt"), path(tx3)) << name;
    EXPECT_EQ(s.FilePath, path(tx3));
    EXPECT_EQ(s.LayerModel(3, 1).num(), 0) << name;
    EXPECT_EQ(s.FileName, std::filesystem::path(tx3).filename().string()) << name;
    std::string save = s.FilePath;
    s.WorkMode = mode::kFile;
    ASSERT_TRUE(write_sounding_file(session, save));
    EXPECT_EQ(read(name), rt::read_whole_file(data(sample))) << name;
  }
}

// Items by the token rules of the program's files: an empty item between two commas is an item,
// a text keeps its blanks, quotes enclose a text, and text that is not UTF-8 is Windows-1252.
// What an OYO file with empty items gives is in the golden files.
TEST_F(InstrumentsTest, ItemsAreReadByTheTokenRules) {
  EXPECT_TRUE(read_pasi(session, "\"SCHLUMBERGER\",\"1/2/3\"\r\n"));
  EXPECT_EQ(s.CommentText, "Date : 1.2.3");
  EXPECT_FALSE(read_pasi(session, "SCHLUMBERGER,1/2/3\r\n1.5,0.5,0,2\r\n", "p.TXT"));
  EXPECT_EQ(dialogs.texts().back(), "File p.TXT is corrupted....");
  EXPECT_EQ(read_syscal("h\r\n\"\xe9t\xe9\",1,1,0.5,0.1,10,1\r\n").rows[0].name,
            "\xc3\xa9t\xc3\xa9");
  // The name is cut at 8 characters, and the file lands beside the Syscal file.
  dialogs.open_choices = {{write("s.DAT", "h\r\n\"S1\",1,1,0.5,0.1,10,1\r\n")}};
  dialogs.inputs = {std::string("\xc3\xa9t\xc3\xa9-12345678")};
  EXPECT_EQ(Syscal(session), std::vector<std::string>{path("\xc3\xa9t\xc3\xa9-1234.TX3")});
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

// A pseudo-section of `levels` levels with `points` points in the first.
std::string res2dinv(int array, int n, const std::string& rows) {
  return "Line\r\n1.0\r\n" + std::to_string(array) + "\r\n" + std::to_string(n) + "\r\n0\r\n0\r\n" +
         rows;
}

// The refusals of a header are in the golden files of the batch command; 5000 points are read.
TEST_F(InstrumentsTest, Res2dinvReadsItsLargestFile) {
  std::string many, said;
  for (int k = 0; k < 5000; ++k) many += std::to_string(k) + ",1,100\r\n";
  EXPECT_EQ(read_res2dinv(res2dinv(5, 5000, many), said)->points.size(), 5000u);
}

TEST_F(InstrumentsTest, Res2dinvWindowsAlongTheLine) {
  std::string said;
  // Level a = 1 from x 0 to 9, level a = 2 from x 3 to 6 (shorter by 3 u at each end).
  std::string rows;
  for (int x = 0; x <= 9; ++x) rows += std::to_string(x) + " 1 " + std::to_string(100 + x) + "\r\n";
  for (int x = 3; x <= 6; ++x) rows += std::to_string(x) + " 2 200\r\n";
  const auto section = read_res2dinv(res2dinv(1, 14, rows), said);
  ASSERT_TRUE(section);
  const auto one = extract_soundings(*section, 1, 90);  // N = 1: the whole line, at its middle
  ASSERT_EQ(one.size(), 1u);
  EXPECT_EQ(one[0].readings, (std::vector<std::pair<double, double>>{{1, 104.5}, {2, 200}}));
  EXPECT_EQ(one[0].X, " 4.4999");  // sin(0.01745329 x 90) is just below 1
  EXPECT_EQ(one[0].Y, " 0");
  const auto three = extract_soundings(*section, 3, 0);
  EXPECT_EQ(three[0].readings.front(), (std::pair<double, double>{1, 101.5}));  // x 0 to 3
  EXPECT_EQ(three[2].readings.size(), 2u);
}

// The files and the closing message are in the golden files of the batch command.
TEST_F(InstrumentsTest, Res2dinvLeavesTheRecordOnTheLastSoundingAndRestoresTheArray) {
  write("line", rt::read_whole_file(TELLUX_TEST_DATA "/convert/wenner40.DAT"));
  dialogs.open_choices = {{path("line")}};
  const auto files = RES2DINV(session, [](R2diForm& f) {
    f.Text1 = "2";
    f.done = true;
  });
  EXPECT_EQ(files, (std::vector<std::string>{path("line_ 1.TX3"), path("line_ 2.TX3")}));
  EXPECT_EQ(s.FilePath, files.back());  // a Save goes to the last sounding, not to the data
  EXPECT_EQ(s.Spread, SpreadType::Schlumberger);
  EXPECT_GT(s.LayerModel(1, 1).num(), 0);
}

}  // namespace
}  // namespace tellux::testing
