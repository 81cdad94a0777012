// The open flow: the dialog, the recent-file list and its entries, the name parts, the steps
// through the windows, and the messages of a failed read in each language; the .SEV and TXE
// readers where the batch command's `open` goldens cannot reach them (the state they leave from
// before, the empty path, missing files) and the TXE conversion; the copy into the sheet.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/file_names.h"
#include "core/fill_sheet.h"
#include "core/older_formats.h"
#include "core/open_flow.h"
#include "session_fixture.h"

namespace tellux {
namespace {

std::string open_data(const std::string& name) {
  return std::string(TELLUX_TEST_DATA) + "/open/" + name;
}

// A session over headless dialogs and recording forms.
struct OpenSession {
  SoundingState s;
  ScriptedDialogs dialogs;
  RecordingForms forms;
  Session session{s, dialogs, forms};

  void speak(char l) { s.Language = {l == 'S', l == 'F', l == 'E', l == 'A'}; }
};

// Where `line` stands in the forms' log; -1 when it is not there.
int position(const RecordingForms& forms, const std::string& line) {
  const auto it = std::find(forms.log.begin(), forms.log.end(), line);
  return it == forms.log.end() ? -1 : static_cast<int>(it - forms.log.begin());
}

// Cancelled, the dialog changes nothing but the pointer; the menu entry clears the computed marks
// before it. Then the dialog is shown again and its choice opened.
TEST(ReadTx3, CancelChangesNothingButThePointerThenTheChoiceIsOpened) {
  OpenSession o;
  std::tie(o.s.FieldCount, o.s.FileName) = std::tuple(9, "old.TX3");
  o.s.ModelEverComputed = o.s.SetupRedrawMark = true;
  EXPECT_FALSE(Read_TX3(o.session));
  EXPECT_EQ(o.forms.log, (std::vector<std::string>{"pointer bilog 11", "pointer bilog 2"}));
  EXPECT_EQ(std::tuple(o.s.FieldCount, o.s.FileName, o.s.ModelEverComputed, o.s.RecentFiles[1]),
            std::tuple(9, "old.TX3", true, ""));
  EXPECT_FALSE(NFile(o.session) || o.s.ModelEverComputed || o.s.SetupRedrawMark);
  const std::string path = open_data("sample.TX3");
  o.dialogs.open_choices.push_back({path});
  EXPECT_TRUE(Read_TX3(o.session));
  const FileDialogRequest& request = o.dialogs.file_requests.at(1);
  EXPECT_EQ(request.filter + "|" + request.title + "|" + request.proposed,
            "Tellux 5 & 6 (*.TX3)|*.TX3|Tellux 2.2 (*.TXW)|*.TXW|Tellux 1.0 (*.TXE)|*.TXE|"
            "TL! DOS (*.SEV)|*.SEV|TELLUX File selection|*.TX3");
  EXPECT_EQ(o.s.FileDir + "|" + o.s.FileName, open_data("") + "|sample.TX3");
  EXPECT_EQ(std::tuple(o.s.FieldCount, o.s.WorkMode, o.s.FreshStart, o.forms.recent_captions[1],
                       o.forms.caption),
            std::tuple(5, "NORMAL", false, "&1 " + path, "Tellux [" + path + "]"));
  EXPECT_LT(position(o.forms, "caption Tellux 6.4 [" + path + "]"),
            position(o.forms, "caption Tellux [" + path + "]"));
}

// Without a model, the sheet alone; the field table is emptied but the TX3 reader never lowers
// the largest spacing, and the older readers start it again from 1.
TEST(OpenSounding, AModelOpensTheModelWindowAfterUnloadingItThenFillsTheSheet) {
  OpenSession o;
  o.s.FilePath = open_data("sample.TX3");
  open_sounding(o.session);
  const int steps[] = {position(o.forms, "unload model"), position(o.forms, "tab 0"),
                       position(o.forms, "show model"), position(o.forms, "fill sheet"),
                       static_cast<int>(o.forms.log.size())};
  ASSERT_GE(steps[0], 0);
  EXPECT_TRUE(std::is_sorted(std::begin(steps), std::end(steps)));
  EXPECT_EQ(steps[3], steps[4] - 1);
  OpenSession bare;
  std::tie(bare.s.FieldCount, bare.s.MaxAbHalf, bare.s.CommentText, bare.s.ModelEverComputed) =
      std::tuple(40, 500, "previous", true);
  bare.s.FieldTable(30, 1) = 500.0;
  bare.s.FilePath = open_data("nomodel.TX3");
  open_sounding(bare.session);
  EXPECT_EQ(std::tuple(bare.forms.model_window_shown, position(bare.forms, "tab 0"),
                       position(bare.forms, "unload model") >= 0, bare.forms.log.back()),
            std::tuple(0, -1, true, "fill sheet"));
  EXPECT_EQ(std::tuple(bare.s.FieldTable(30, 1).empty(), bare.s.FieldCount, bare.s.MaxAbHalf,
                       bare.s.CommentText, bare.s.ModelEverComputed),
            std::tuple(true, 2, 500, "", false));
  bare.s.FilePath = open_data("sample.TXE");
  open_sounding(bare.session);
  EXPECT_EQ(bare.s.MaxAbHalf, 25);
}

// The first entry keeps the list but reads the file again; the third is entered again at the top
// (a TXW is renamed, the list keeps its path); the last file opened at start is entry one.
TEST(RecentFiles, OpeningAnEntry) {
  OpenSession o;
  const std::string first = open_data("sample.TX3"), third = open_data("sample.TXW");
  o.s.RecentFiles = {"", first, "b", third, "d", "e"};
  open_recent(o.session, 1);
  EXPECT_EQ(o.s.RecentFiles, (std::array<std::string, 6>{"", first, "b", third, "d", "e"}));
  for (const auto& line : o.forms.log) EXPECT_NE(line.rfind("recent", 0), 0u) << line;
  EXPECT_EQ(o.s.FieldTable(5, 1).num(), 25.0);
  open_recent(o.session, 3);
  EXPECT_EQ(o.s.RecentFiles, (std::array<std::string, 6>{"", third, first, "b", third, "d"}));
  EXPECT_EQ(std::tuple(o.forms.recent_captions[1], o.forms.recent_captions[4],
                       o.forms.recent_captions[5], o.s.FileName),
            std::tuple("&1 " + third, "&4 " + third, "&5 d", "sample.TX3"));
  // An empty entry ends in the reader's message.
  o.s.RecentFiles = {"", "a", "", "", "", ""};
  open_recent(o.session, 2);
  EXPECT_EQ(o.dialogs.texts(), std::vector<std::string>{"First, select a SEV File... "});
  EXPECT_EQ(o.s.RecentFiles[1] + "|" + o.s.RecentFiles[2], "|a");
  OpenSession last;
  last.s.RecentFiles[1] = open_data("sample.SEV");
  load_last_file(last.session);
  EXPECT_EQ(std::tuple(last.s.FileName, last.s.RecentFiles[1], last.s.FieldCount,
                       last.dialogs.messages.size()),
            std::tuple("sample.TX3", open_data("sample.SEV"), 5, 0u));
}

// A TX3 keeps no array: dipole readings (MN/2 above AB/2) opened under Schlumberger give a hint in
// the status line and change nothing; under the dipole array they give none.
TEST(OpenSounding, ReadingsThatNoSchlumbergerSpreadHasGiveAHint) {
  OpenSession o;
  o.speak('F');
  o.s.FilePath = std::string(TELLUX_SOURCE_DIR) + "/samples/dipole_two.TX3";
  open_sounding(o.session);
  EXPECT_EQ(o.forms.log.back(), "hint MN/2 >= AB/2 : dispositif Schlumberger ?");
  EXPECT_EQ(std::tuple(o.s.Spread, o.s.FieldCount, o.dialogs.messages.size()),
            std::tuple(SpreadType::Schlumberger, 26, 0u));
  o.s.Spread = SpreadType::Dipole;
  open_sounding(o.session);
  EXPECT_EQ(o.forms.log.back(), "fill sheet");
}

// The name is cut after the last separator of either kind; without a separator the first
// character goes: the flow has always cut so.
TEST(OpenSounding, NamesAreCutAfterTheLastSeparatorAndRenamed) {
  EXPECT_EQ(std::tuple(name_after_last_separator("C:\\Tellux\\data/a.TX3"),
                       name_after_last_separator("/home/u/soundings\\b.TXE"),
                       name_after_last_separator(""), bare_name("sample.TX3")),
            std::tuple("a.TX3", "b.TXE", "", "sample.TX3"));
  // Missing older files open quietly under their TX3 name.
  OpenSession o;
  o.s.FilePath = "D:\\Campagne 1989\\SE12.SEV";
  open_sounding(o.session);
  EXPECT_EQ(o.s.FileDir + "|" + o.s.FileName + "|" + o.s.FilePath + "|" + o.s.WorkMode,
            "D:\\Campagne 1989\\|SE12.TX3|D:\\Campagne 1989\\SE12.TX3|NORMAL");
  o.s.FilePath = "xSE12.TXE";
  open_sounding(o.session);
  EXPECT_EQ(o.s.FileName + "|" + o.s.FileDir + "|" + o.s.WorkMode, "SE12.TX3|x|NORMAL");
  EXPECT_TRUE(o.dialogs.messages.empty());
}

// A lower-case .sev goes to the TX3 reader at level 3 and fails; an empty path asks for a file.
// German speaks English.
TEST(OpenSounding, ReadErrorsAndTheEmptyPathSpeakTheLanguageInForce) {
  const std::array<const char*, 3> cases[] = {
      {"F", "Erreur lors de la lecture du fichier...", "Sélectionnez d'abord un fichier "},
      {"S", "Error al leer fichero...", "Primero, seleccione un fichero... "},
      {"A", "Reading File Error...", "First, select a SEV File... "},
  };
  for (const auto& [letter, read_error, no_file] : cases) {
    for (const char* path : {"lower.sev", ""}) {
      OpenSession o;
      o.speak(*letter);
      if (*path) o.s.FilePath = open_data(path);
      open_sounding(o.session);
      EXPECT_EQ(o.dialogs.texts(), std::vector<std::string>{*path ? read_error : no_file})
          << letter;
      // Not seen as a .SEV.
      EXPECT_TRUE(!*path || (o.s.FormatLevel == 3 && o.s.FileName == "lower.sev")) << letter;
    }
  }
}

// Rows with a layer leave the readings empty and the others zero; only rows after L raise the
// largest spacing (25), which then becomes its exponent. An empty path shows the box in the
// language in force and reads nothing.
TEST(SevFile, RowsWithALayerLeaveTheReadingsEmptyAndTheOthersZero) {
  OpenSession o;
  o.s.DataOrigin = o.s.LocationX = "PASI";
  std::string path = open_data("sample.SEV");
  read_sev_file(o.session, path);
  for (int c = 3; c <= 6; ++c)
    EXPECT_TRUE(o.s.FieldTable(3, c).empty() && !o.s.FieldTable(4, c).empty()) << c;
  EXPECT_EQ(std::tuple(o.s.DataOrigin + o.s.LocationX, o.s.MaxAbHalf), std::tuple("", 1));
  const std::pair<char, const char*> cases[] = {{'F', "Sélectionnez d'abord un fichier "},
                                                {'S', "Primero, seleccione un fichero "},
                                                {'A', "First select a File "}};
  for (const auto& [letter, text] : cases) {
    o.dialogs.messages.clear();
    o.speak(letter);
    path.clear();
    read_sev_file(o.session, path);
    EXPECT_EQ(o.dialogs.texts(), std::vector<std::string>{text}) << letter;
    EXPECT_EQ(std::tuple(o.dialogs.messages.at(0).icon, o.s.FieldCount),
              std::tuple(Icon::Exclamation, 5));
  }
}

// Fewer than ten layer rows in a TXE leave the rest as it stood: thickness and depth of the rows
// not in the file are not scaled either.
TEST(TxeFile, FewerThanTenLayerRowsLeaveTheRestAsItStood) {
  OpenSession o;
  std::tie(o.s.LayerModel(6, 1), o.s.LayerModel(6, 2), o.s.LayerModel(6, 3)) =
      std::tuple(77.0, 8.0, 30.0);
  o.s.CommentText = o.s.LocationAzimuth = "kept";
  std::string path = open_data("short.TXE");
  read_txe_file(o.session, path);
  EXPECT_EQ(std::tuple(o.s.FieldTable(5, 1).num(), o.s.FieldTable(5, 1).kind(),
                       o.dialogs.messages.size()),
            std::tuple(25.0, rt::Kind::Single, 0u));
  EXPECT_EQ(o.s.LayerModel(2, 2).num() + 10 * o.s.LayerModel(3, 3).num(), 10.0 + 125.0);
  EXPECT_EQ(o.s.LayerModel(6, 1).num() + o.s.LayerModel(6, 2).num() + o.s.LayerModel(6, 3).num(),
            115.0);
  EXPECT_EQ(std::tuple(o.s.CommentText, o.s.LocationAzimuth, o.s.MaxAbHalf),
            std::tuple("kept", "kept", 25));
}

// The TX3 is written beside the TXE; cancelled, the conversion ends with the cross pointer.
using TxeConversion = testing::SessionTest;

TEST_F(TxeConversion, WritesTheTx3BesideTheTxe) {
  const std::string txe = path("field.txe1"), tx3 = path("field.TX3");  // the real extension
  std::filesystem::copy_file(open_data("sample.TXE"), txe);
  OpenSession o;
  o.dialogs.open_choices.push_back({txe});
  convert_txe_file(o.session);
  ASSERT_EQ(o.dialogs.file_requests.size(), 1u);
  EXPECT_EQ(o.dialogs.file_requests[0].filter + "|" + o.dialogs.file_requests[0].proposed + "|" +
                o.dialogs.texts().at(0),
            "Fichier Tellux *.TXE|*.TXE|Recording File " + tx3);
  OpenSession back;
  back.s.FilePath = tx3;
  open_sounding(back.session);
  EXPECT_EQ(std::tuple(back.dialogs.messages.size(), back.s.FieldCount, back.s.LocationY,
                       back.s.FieldTable(4, 2).num(), back.s.LayerModel(3, 3).num()),
            std::tuple(0u, 5, "200", 60.5, 12.5));
  OpenSession cancel;
  cancel.s.FieldCount = 3;
  convert_txe_file(cancel.session);
  EXPECT_EQ(std::tuple(cancel.forms.log, cancel.s.FieldCount, cancel.s.WorkMode),
            std::tuple(std::vector<std::string>{"pointer bilog 2"}, 3, "NORMAL"));
}

// Readings go out with the number text, K cut to six characters; a row with a resistivity only
// fills AB/2 and resistivity; the sheet is emptied first, its header kept.
TEST(FillSheet, WritesTheReadingsWithTheNumberTextAndKCutToSixCharacters) {
  SoundingState s;
  GridModel grid(51, 7);
  grid.set_text(0, 2, "AB/2");
  grid.set_text(9, 3, "stale");
  s.FieldCount = 2;
  const float first[] = {1.5f, 120.5f, 0.5f, 123.4f, 1234.567f, 10.0f};
  for (int c = 1; c <= 6; ++c) s.FieldTable(1, c) = first[c - 1];
  std::tie(s.FieldTable(2, 1), s.FieldTable(2, 2)) = std::tuple(10.0f, 60.5f);
  fill_sheet(s, grid);
  const char* rows[][6] = {{" .5", " 1.5", " 123.4", " 10", " 1234.", " 120.5"},
                           {"", " 10", "", "", "", " 60.5"}};
  for (int r = 1; r <= 2; ++r)
    for (int c = 1; c <= 6; ++c) EXPECT_EQ(grid.text(r, c), rows[r - 1][c - 1]) << r << c;
  EXPECT_EQ(std::tuple(grid.text(9, 3), grid.text(0, 2), grid.redraw),
            std::tuple("", "AB/2", true));
  // Wenner shows no MN/2 but its K.
  s.Spread = SpreadType::Wenner;
  fill_sheet(s, grid);
  EXPECT_EQ(grid.text(1, 1) + "|" + grid.text(1, 5), "| 1234.");
  // A 51st row has no line, but the sheet comes back.
  s.FieldCount = 51;
  for (int i = 1; i <= 51; ++i) s.FieldTable(i, 1) = static_cast<float>(i);
  grid.redraw = false;
  EXPECT_NO_THROW(fill_sheet(s, grid));
  EXPECT_EQ(std::tuple(grid.text(50, 2), grid.redraw), std::tuple(" 50", true));
}

}  // namespace
}  // namespace tellux
