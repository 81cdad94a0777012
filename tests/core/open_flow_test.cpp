// The open flow: the dialog, the recent-file list and its entries, the name parts, the steps
// through the windows, and the messages of a failed read in each language.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/file_names.h"
#include "core/open_flow.h"
#include "open_test_support.h"

namespace tellux {
namespace {

using test::open_data;
using test::OpenSession;

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
  EXPECT_FALSE(NFile(o.session));
  EXPECT_FALSE(o.s.ModelEverComputed || o.s.SetupRedrawMark);
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
  EXPECT_EQ(std::tuple(bare.forms.model_window_shown, position(bare.forms, "tab 0")),
            std::tuple(0, -1));
  EXPECT_GE(position(bare.forms, "unload model"), 0);
  EXPECT_EQ(bare.forms.log.back(), "fill sheet");
  EXPECT_TRUE(bare.s.FieldTable(30, 1).empty());
  EXPECT_EQ(
      std::tuple(bare.s.FieldCount, bare.s.MaxAbHalf, bare.s.CommentText, bare.s.ModelEverComputed),
      std::tuple(2, 500, "", false));
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
  EXPECT_EQ(o.forms.recent_captions[1], "&1 " + third);
  EXPECT_EQ(o.forms.recent_captions[4], "&4 " + third);
  EXPECT_EQ(o.forms.recent_captions[5], "&5 d");
  EXPECT_EQ(o.s.FileName, "sample.TX3");
  // An empty entry ends in the reader's message.
  o.s.RecentFiles = {"", "a", "", "", "", ""};
  open_recent(o.session, 2);
  EXPECT_EQ(o.dialogs.texts(), std::vector<std::string>{"First, select a SEV File... "});
  EXPECT_EQ(o.s.RecentFiles[1] + "|" + o.s.RecentFiles[2], "|a");
  OpenSession last;
  last.s.RecentFiles[1] = open_data("sample.SEV");
  load_last_file(last.session);
  EXPECT_TRUE(last.dialogs.messages.empty());
  EXPECT_EQ(std::tuple(last.s.FileName, last.s.RecentFiles[1], last.s.FieldCount),
            std::tuple("sample.TX3", open_data("sample.SEV"), 5));
}

// The name is cut after the last separator of either kind; without a separator the first
// character goes: the flow has always cut so.
TEST(OpenSounding, NamesAreCutAfterTheLastSeparatorAndRenamed) {
  EXPECT_EQ(name_after_last_separator("C:\\Tellux\\data/a.TX3"), "a.TX3");
  EXPECT_EQ(name_after_last_separator("/home/u/soundings\\b.TXE"), "b.TXE");
  EXPECT_EQ(name_after_last_separator(""), "");
  EXPECT_EQ(bare_name("sample.TX3"), "sample.TX3");
  OpenSession o;
  o.s.FilePath = "D:\\Campagne 1989\\SE12.SEV";
  open_sounding(o.session);
  EXPECT_EQ(o.s.FileDir + "|" + o.s.FileName + "|" + o.s.FilePath,
            "D:\\Campagne 1989\\|SE12.TX3|D:\\Campagne 1989\\SE12.TX3");
  OpenSession bare;
  bare.s.FilePath = "xSE12.SEV";
  open_sounding(bare.session);
  EXPECT_EQ(bare.s.FileName + "|" + bare.s.FileDir, "SE12.TX3|x");
  EXPECT_TRUE(bare.dialogs.messages.empty());
}

// A lower-case .sev goes to the TX3 reader at level 3 and fails; an empty path asks for a file.
// German speaks English.
TEST(OpenSounding, ReadErrorsAndTheEmptyPathSpeakTheLanguageInForce) {
  const std::array<const char*, 3> cases[] = {
      {"F", "Erreur lors de la lecture du fichier...", "Sélectionnez d'abord un fichier "},
      {"S", "Error al leer fichero...", "Primero, seleccione un fichero... "},
      {"A", "Reading File Error...", "First, select a SEV File... "},
      {"E", "Reading File Error...", "First, select a SEV File... "},
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

}  // namespace
}  // namespace tellux
