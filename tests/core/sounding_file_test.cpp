#include "core/sounding_file.h"

#include <filesystem>
#include <tuple>

#include "session_fixture.h"

namespace tellux {
namespace {

using testing::SessionTest;

class SoundingFileTest : public SessionTest {
 protected:
  bool open(const std::string& name, int16_t level = 3) {
    std::tie(s.FileName, s.FilePath, s.FormatLevel) = std::tuple(name, path(name), level);
    return read_sounding_file(session, s.FilePath);
  }
};

// Each read keeps the previous model in the history and never lowers MaxAbHalf: the longer
// sounding's spacing stands until the next Compute. The record read is compared whole by the batch
// command's `open` goldens.
TEST_F(SoundingFileTest, EachReadKeepsThePreviousModelAndTheLargestSpacing) {
  std::filesystem::copy_file(TELLUX_SOURCE_DIR "/samples/three_layers.TX3", path("a.TX3"));
  write("short.TX3", "1.5\r\n20,1000,0,0,0,0\r\n");
  std::tie(s.LayerModel(1, 1), s.LayerModel(1, 2), s.LayerCount) = std::tuple(7.0, 3.0, 1);
  ASSERT_TRUE(open("a.TX3") && dialogs.messages.empty());
  EXPECT_EQ(
      std::tuple(s.FieldTable(2, 1).kind(), s.ModelOutdated, s.ModelComputed, s.ModelSensitivity),
      std::tuple(rt::Kind::Single, true, 0, 0.3));
  EXPECT_EQ(std::tuple(s.HistoryLast, s.HistoryShown, s.HistoryCounts[1], s.OverlayHold,
                       s.LayerHistory[1](1, 1).num(), s.LayerHistory[1](1, 2).num()),
            std::tuple(1, 1, 1, 1, 7.0, 3.0));
  open("short.TX3");
  EXPECT_EQ(std::tuple(s.MaxAbHalf, s.LayerHistory[2](2, 1).num()), std::tuple(500, 20.0));
  s.HistoryLast = 20;
  open("short.TX3");
  EXPECT_EQ(s.HistoryLast, 20);  // the last slot is overwritten
  // A TXW's ten layer rows empty rows 11 to 20. Its scales, those of the older TX3 layouts,
  // splices and half arrays are the open goldens' (tests/data/open).
  std::filesystem::copy_file(TELLUX_TEST_DATA "/open/scales.TXW", path("d.TXW"));
  s.LayerModel(11, 1) = 99.0;
  open("d.TXW", 2);
  EXPECT_TRUE(s.LayerModel(11, 1).empty());
  // Compute goes to the sheet, or without a file asks for one.
  s.FileName = "a.TX3";
  Calcul_TX3(session);
  EXPECT_EQ(std::tuple(forms.tab, s.WorkMode), std::tuple(1, "NORMAL"));
  s.FileName.clear();
  use_language('F');
  Calcul_TX3(session);
  EXPECT_EQ(dialogs.texts().back(),
            "Vous devez d'abord sélectionner un fichier ou entrer des données terrains");
}

TEST_F(SoundingFileTest, DamagedFilesKeepWhatWasReadAndSayReadingFileError) {
  std::string too_many = "52.5\r\n";
  for (int i = 1; i <= 52; ++i) too_many += std::to_string(i * 10) + ",1000,0,0,0,0\r\n";
  const std::pair<std::string, int> cases[] = {{"3.5\r\n10,1000,0,0,0,0\r\n20,1100,0", 1},
                                               {too_many, 51},
                                               {"2.5\r\n10,1000,0,0,0,0\r\n20,1x00,0,0,0,0\r\n", 1},
                                               {"", 0},
                                               {"1.5\r\n10,1000,0,0,0,0\r\n100,abc,0\r\n", 1}};
  for (const auto& [content, rows_kept] : cases) {
    dialogs.messages.clear();
    s.FieldTable.erase();
    write("d.TX3", content);
    EXPECT_FALSE(open("d.TX3")) << content;
    ASSERT_EQ(dialogs.texts(), std::vector<std::string>{"Reading File Error..."}) << content;
    EXPECT_EQ(std::tuple(dialogs.messages[0].icon, s.ModelOutdated),
              std::tuple(Icon::Exclamation, true));
    for (int i = 1; i <= rows_kept; ++i) EXPECT_GT(s.FieldTable(i, 1).num(), 0) << content << i;
  }
  EXPECT_EQ(s.FieldCount, 1);  // the last case's first line
}

class WriteTest : public SoundingFileTest {
 protected:
  // K above 99999.99 loses its last digits; I of 12.5 is stored as 12 and 13.5 as 14, ties going
  // to the even neighbour; the measured resistivity of column 7 is not what a file keeps.
  void SetUp() override {
    SoundingFileTest::SetUp();
    s.FieldCount = 2;
    const Cell first[] = {1.5f, 123.456f, 0.5f, 12.34f, 123456.78, 12.5, 1.0f};
    for (int c = 1; c <= 7; ++c) s.FieldTable(1, c) = first[c - 1];
    std::tie(s.FieldTable(2, 1), s.FieldTable(2, 2), s.FieldTable(2, 6)) =
        std::tuple(3.0, 0.5, 13.5);
    std::tie(s.LayerModel(1, 1), s.LayerModel(1, 2), s.LayerModel(2, 1)) =
        std::tuple(100.0, 2.5, 10.004);
    std::tie(s.CommentText, s.DataOrigin, s.LocationX, s.FileName) =
        std::tuple("été", "PASI", "12.5", "old.TX3");
  }
};

TEST_F(WriteTest, WritesTheFormatByteForByteAndAnEmptySoundingReadsBack) {
  s.WorkMode = mode::kFile;
  std::string p = path("w.TX3");
  ASSERT_TRUE(write_sounding_file(session, p) && dialogs.messages.empty());  // no question
  const std::string text = read("w.TX3");
  EXPECT_EQ(
      text.substr(0, 77),
      "2.5\r\n15,12346,50,123,1.234568E+07,12\r\n30,50,0,0,0,14\r\n10000,250,0\r\n1000,0,0\r\n");
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1 + 2 + 20 + 7);
  EXPECT_NE(text.find("\r\n\"été\"\r\n\"PASI\"\r\n\"\"\r\n\"12.5\"\r\n"), std::string::npos);

  // The writer's own results: caption, mode at rest, the recent-file head.
  EXPECT_EQ(std::tuple(forms.caption, s.WorkMode, s.RecentFiles[1], forms.recent_captions[1]),
            std::tuple("Tellux [" + p + "]", "", p, "&1 " + p));
  // An empty sounding has only its version mark.
  std::tie(s.FieldCount, s.WorkMode) = std::tuple(0, mode::kFile);
  ASSERT_TRUE(write_sounding_file(session, p));
  const std::string empty = read("w.TX3");
  EXPECT_EQ(std::pair(empty.substr(0, 4), std::count(empty.begin(), empty.end(), '\n')),
            std::pair(std::string(".5\r\n"), std::ptrdiff_t{1 + 20 + 7}));
  s.FieldCount = 9;
  open("w.TX3");
  EXPECT_EQ(std::tuple(s.FieldCount, s.FormatLevel), std::tuple(0, 5));
}

TEST_F(WriteTest, AsksFirstAndOffersTheDialogOnNoWithItsNameRules) {
  std::string p = path("old.TX3");
  dialogs.answers = {Answer::No};
  dialogs.save_choices = {path("renamed.dat")};
  ASSERT_TRUE(write_sounding_file(session, p));
  EXPECT_EQ(std::tuple(dialogs.texts(), dialogs.messages[0].buttons, dialogs.messages[0].icon),
            std::tuple(std::vector<std::string>{"Recording File " + path("old.TX3")},
                       Buttons::YesNo, Icon::Question));
  ASSERT_EQ(dialogs.file_requests.size(), 1u);
  const FileDialogRequest& asked = dialogs.file_requests[0];
  EXPECT_EQ(asked.filter + "|" + asked.title + "|" + std::to_string(asked.overwrite_prompt),
            "File Tellux (*.TX3)|*.TX3|Record TELLUX File|1");
  EXPECT_EQ(std::tuple(p, s.FileDir, s.FileName),
            std::tuple(path("renamed.TX3"), (dir_ / "").string(), "renamed.TX3"));
  EXPECT_TRUE(std::filesystem::exists(p) && !std::filesystem::exists(path("renamed.dat")));
  // The dialog's name rules; a typed sounding goes straight to the dialog.
  const std::pair<const char*, const char*> names[] = {
      {"plain", "plain.TX3"}, {"two.points.txt", "two.TX3"}, {"x.tx3", "x.TX3"}};
  for (auto [typed, saved] : names) {
    s.FileName = "NEW";
    dialogs.save_choices = {path(typed)};
    ASSERT_TRUE(write_sounding_file(session, p));
    EXPECT_EQ(std::tuple(s.FileName, p), std::tuple(saved, path(saved)));
  }
  EXPECT_EQ(dialogs.messages.size(), 1u);
  // Cancelled, nothing is written and the mode comes to rest.
  std::tie(s.FileName, s.WorkMode, p) = std::tuple("", mode::kNormal, path("never.TX3"));
  EXPECT_FALSE(write_sounding_file(session, p));
  EXPECT_EQ(std::tuple(s.WorkMode, std::filesystem::exists(p)), std::tuple("", false));
}

TEST_F(WriteTest, AFailedWriteStartsAgainOrInBatchWorkStopsAndKeepsTheOldFile) {
  std::string p = path("missing/x.TX3");
  dialogs.answers = {Answer::Yes, Answer::No};
  dialogs.save_choices = {path("good.TX3")};
  ASSERT_TRUE(write_sounding_file(session, p));
  const std::string asked = "Recording File " + path("missing/x.TX3");
  EXPECT_EQ(dialogs.texts(),
            (std::vector<std::string>{asked, "No such disk or directory...", asked}));
  EXPECT_EQ(p, path("good.TX3"));

  // A write-protected file: its message, and its content untouched.
  const std::string protected_path = write("ro.TX3", "old content");
  std::filesystem::permissions(protected_path, std::filesystem::perms::owner_read);
  dialogs.messages.clear();
  use_language('F');
  p = protected_path;
  dialogs.answers = {Answer::Yes, Answer::No};
  EXPECT_FALSE(write_sounding_file(session, p));  // the dialog is cancelled
  EXPECT_EQ(dialogs.texts().at(1) + read("ro.TX3"),
            "Fichier démo protégé en écriture...old content");
  // An overflowing value is a recording error, and batch work cannot loop.
  s.FieldTable(1, 5) = 1e9;  // x 100 is beyond 32 bits
  std::tie(s.WorkMode, p) = std::tuple(mode::kFile, write("keep.TX3", "old"));
  use_language('S');
  dialogs.messages.clear();
  EXPECT_FALSE(write_sounding_file(session, p));
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"Error al salvar fichero..."});
  EXPECT_EQ(read("keep.TX3"), "old");
}

}  // namespace
}  // namespace tellux
