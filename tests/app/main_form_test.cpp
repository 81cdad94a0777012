// The main window's logic without windows: start-up, the toolbar, the tab rules, the resize
// rules, the language box and the leaving of the program.
#include "app/application.h"
#include "app/recovery.h"
#include "core/ini_file.h"
#include "core/sounding_file.h"
#include "platform/headless/recording_surface.h"
#include "session_fixture.h"

namespace tellux {
namespace {

struct FakeSystem : SystemServices {
  std::string separator = ".";
  bool other_copy = false;
  int point_chosen = 0;
  std::string decimal_separator() override { return separator; }
  void use_point_separator() override { ++point_chosen; }
  bool another_copy_running() override { return other_copy; }
};

class MainFormTest : public testing::SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    ini = path("Tellux6.ini");
  }
  Application& make_app() {
    app = std::make_unique<Application>(dialogs, forms, Bilog, system, ini);
    return *app;
  }
  Application& started(const std::string& ini_text = "") {
    if (!ini_text.empty()) write("Tellux6.ini", ini_text);
    make_app();
    EXPECT_TRUE(app->main.Form_Load());
    return *app;
  }
  std::string sample(const std::string& name) const {
    return std::string(TELLUX_SOURCE_DIR) + "/samples/" + name;
  }
  void open(const std::string& file) {
    dialogs.open_choices = {{file}};
    app->main.Toolbar1_ButtonClick("open");
  }
  std::string ini;
  RecordingSurface Bilog;
  FakeSystem system;
  std::unique_ptr<Application> app;
};

// Without a language or axes in the settings: English and the default axes.
TEST_F(MainFormTest, StartUpIsEnglishWithTheDefaultAxesAndTheStartWindowsButtons) {
  Application& a = started("[File]\r\nFile 1=/data/a.TX3\r\nFile 5=/data/e.TX3\r\n");
  EXPECT_TRUE(dialogs.messages.empty() && a.s.Language.English);
  EXPECT_EQ(std::vector<int>({a.s.DecadeStart, a.s.DecadeEnd, a.s.RhoDecadeEnd}),
            std::vector<int>({-1, 4, 4}));
  // The sheet names the unnamed sounding.
  EXPECT_EQ(forms.caption + "|" + forms.recent_captions[5], "Tellux 6.4 [NEW]|&5 /data/e.TX3");
  // The empty frame is on the diagram: the label of the left edge is " .1".
  EXPECT_NE(std::find(Bilog.ops.begin(), Bilog.ops.end(), "Print \" .1\""), Bilog.ops.end());
  // The setup tab is filled.
  EXPECT_EQ(std::tuple(a.main.Combo6.ListCount(), a.main.Text4.Text, a.setup.Combo1.ListIndex()),
            std::tuple(4, "Schlumberger", 0));

  // The start window's buttons: a new sounding, an open one (Cancel first), the last file again.
  a.s.FieldTable(1, 1) = Cell(3.0);
  a.frmSplash.Command2_Click();
  EXPECT_EQ(std::tuple(a.frmSplash.visible, a.s.FieldTable(1, 1).num(), forms.tab),
            std::tuple(false, 0.0, kSheetTab));

  a.frmSplash.Show();
  a.frmSplash.Command4_Click();  // Cancel: the start window stays for another choice
  EXPECT_TRUE(a.frmSplash.visible);
  dialogs.open_choices = {{sample("three_layers.TX3")}};
  a.frmSplash.Command4_Click();
  EXPECT_EQ(std::tuple(a.frmSplash.visible, a.s.FileName), std::tuple(false, "three_layers.TX3"));

  a.frmSplash.Show();
  a.s.FieldTable.erase();
  a.frmSplash.Command3_Click();  // the last file again
  EXPECT_EQ(std::tuple(a.frmSplash.visible, a.s.FieldCount, a.s.FieldTable(1, 1).num()),
            std::tuple(false, 28, 1.0));
}

TEST_F(MainFormTest, StartWindowCaptionsFollowTheLanguageAndGermanStandsInEnglish) {
  const std::pair<const char*, const char*> cases[] = {
      {"F", "Nouveau sondage"}, {"S", "Empezar nuevo SEV"}, {"A", "Start a new VES"}};
  for (const auto& [letter, caption] : cases) {
    started(std::string("[Tellux]\r\nLangue=") + letter + "\r\n");
    EXPECT_EQ(app->frmSplash.Command2.Caption, caption) << letter;
    EXPECT_EQ(app->frmSplash.Subtitle.Caption == "Vertical electrical soundings", *letter == 'A');
    EXPECT_EQ(app->main.Combo6.Text(), language_name(letter));
  }
}

TEST_F(MainFormTest, CommaSeparatorIsAskedAboutAndOnlyYesChangesIt) {
  system.separator = ",";
  dialogs.answers = {Answer::No};
  started();
  ASSERT_EQ(dialogs.messages.size(), 1u);
  // No: the program goes on with the comma.
  EXPECT_EQ(std::tuple(dialogs.messages[0].text, dialogs.messages[0].buttons, system.point_chosen),
            std::tuple("\r\n Decimal separator is a comma, Tellux can modify the decimal "
                       "separator\r\na point is required to run correctly all modules! ",
                       Buttons::YesNo, 0));

  dialogs.messages.clear();
  dialogs.answers = {Answer::Yes};
  started();
  EXPECT_EQ(system.point_chosen, 1);
}

TEST_F(MainFormTest, ASecondCopyIsRefusedBeforeTheSettingsAreRead) {
  write("Tellux6.ini", "[Tellux]\r\nLangue=F\r\n");
  system.other_copy = true;
  make_app();
  EXPECT_FALSE(app->main.Form_Load());
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0].text + "|" + dialogs.messages[0].title,
            "Cannot load program again.|The requested application is already open");
  EXPECT_FALSE(app->s.Language.French || app->frmSplash.visible);
}

TEST_F(MainFormTest, ToolbarOpenReadsTheFileAndNewEmptiesTheSounding) {
  Application& a = started();
  a.main.Toolbar1_ButtonClick("computation");
  EXPECT_EQ(forms.model_window_shown, 1);
  open(sample("three_layers.TX3"));  // the desktop's test checks what is read
  EXPECT_EQ(std::tuple(a.s.FileName, forms.model_window_shown), std::tuple("three_layers.TX3", 2));
  a.main.Toolbar1_ButtonClick("bilog");  // the sheet names a new sounding
  EXPECT_EQ(std::tuple(a.s.ModelComputed, a.s.FileName, forms.tab),
            std::tuple(0, "NEW", kSheetTab));
}

// Save on the sheet empties it; Quit then must not take the empty sheet for the sounding.
TEST_F(MainFormTest, QuitAfterSaveOnTheSheetKeepsTheRecord) {
  Application& a = started();
  const std::string copy = path("sheet.TX3");
  std::filesystem::copy_file(sample("three_layers.TX3"), copy);
  open(copy);
  a.main.SSTab1_Click(kSheetTab);
  a.sheet.SaveButton_Click();  // Yes to the count, then to keeping the name
  const std::string saved = rt::read_whole_file(copy);
  a.sheet.ExitButton_Click();
  EXPECT_GT(a.s.FieldCount, 0);
  a.main.Toolbar1_ButtonClick("save");
  EXPECT_EQ(rt::read_whole_file(copy), saved);
}

// The samples are made with the program's own factors: computing their sheets and saving them
// with the toolbar changes no byte.
TEST_F(MainFormTest, ComputingTheSheetOfEverySampleChangesNoPoint) {
  const std::pair<const char*, int> samples[] = {
      {"three_layers.TX3", 0}, {"four_layers.TX3", 0},  {"bilog_three_layers.TX3", 0},
      {"dipole_two.TX3", 1},   {"wenner_three.TX3", 2}, {"three_layers_nomodel.TX3", 0}};
  Application& a = started();
  for (const auto& [name, array] : samples) {
    SCOPED_TRACE(name);
    const std::string copy = path(name);
    std::filesystem::copy_file(sample(name), copy);
    a.Option_Click(array);
    open(copy);
    a.main.SSTab1_Click(kSheetTab);
    a.main.SSTab1_Click(kBilogTab);
    std::filesystem::remove(copy);
    a.main.Toolbar1_ButtonClick("save");  // Yes to the writer's question: keep the name
    EXPECT_TRUE(a.s.DataSaved);
    EXPECT_EQ(rt::read_whole_file(copy), rt::read_whole_file(sample(name)));
  }
}

TEST_F(MainFormTest, ASettingsFileThatCannotBeWrittenIsSaidOnLeaving) {
  ini = "/proc/tellux/Tellux6.ini";
  Application& a = started();
  dialogs.answers = {Answer::Cancel};
  EXPECT_TRUE(a.main.leave_program());
  EXPECT_EQ(dialogs.texts().front(), "Recording File Error... /proc/tellux/Tellux6.ini");
}

TEST_F(MainFormTest, ResizeAndTheBilogTabRedrawTheCurveOnlyAfterASoundingWasOpened) {
  // The window's least size is checked on the desktop; the diagram's width here.
  EXPECT_EQ(main_layout(9000, 5000).bilog_width, 9924);  // 0.98 of 0.97, each step rounded
  Application& a = started();
  const long runs = a.session.forward_runs;
  a.main.Form_Resize(15000, 12000);
  EXPECT_EQ(a.session.forward_runs, runs);  // fresh start: the frame alone
  open(sample("three_layers.TX3"));
  a.main.Form_Resize(16000, 12000);
  EXPECT_EQ(std::tuple(a.session.forward_runs, Bilog.MousePointer()),
            std::tuple(runs + 1, kPointerCross));
  for (bool mark : {false, true}) {
    Bilog.ops.clear();
    a.s.SetupRedrawMark = mark;
    a.main.SSTab1_Click(kBilogTab);
    EXPECT_EQ(Bilog.ops.empty(), !mark);
  }
  // A sounding without a model: the frame and its points, no flat curve of an empty model.
  const long runs_now = a.session.forward_runs;
  open(sample("three_layers_nomodel.TX3"));
  a.s.ModelComputed = 0;
  a.main.Form_Resize(15000, 12000);
  EXPECT_EQ(a.session.forward_runs, runs_now);
}

TEST_F(MainFormTest, LanguageBoxSetsOneFlagClosesTheModelWindowAndRecaptions) {
  Application& a = started();
  a.main.Combo6.ListIndex(0);  // Français; the desktop's test checks the flag and the captions
  a.main.Combo6_Click();
  EXPECT_EQ(a.settings.Langue, "F");
  // The language is kept on leaving only with the keep box.
  a.main.leave_program();  // Yes, the scripted answer
  EXPECT_EQ(IniFile::parse(rt::read_whole_file(ini)).read("Tellux", "Langue", "none"), "none");
  a.setup.garder_config.Value = 1;
  a.main.leave_program();
  EXPECT_EQ(IniFile::parse(rt::read_whole_file(ini)).read("Tellux", "Langue", "none"), "F");

  a.main.Combo6.ListIndex(1);  // Deutsch: messages in English
  a.main.Combo6_Click();
  EXPECT_TRUE(a.s.Language.German);
  EXPECT_EQ(a.sheet.Computation.Caption, "&Compute");
}

class LeavingTest : public MainFormTest {
 protected:
  // The program started with a copy of the sample open, the copy and the settings then removed.
  Application& started_with_copy() {
    started();
    app->main.end_program = [this] { ++ended; };
    copy = path("leave.TX3");
    std::filesystem::copy_file(sample("three_layers.TX3"), copy);
    open(copy);
    std::filesystem::remove(copy);
    std::filesystem::remove(ini);
    return *app;
  }
  std::string copy;
  int ended = 0;
};

TEST_F(LeavingTest, CancelGoesOnYesEndsAndNoSavesTheSoundingFirst) {
  Application& a = started_with_copy();
  a.s.DecadeStart = 0;  // chosen on the setup tab; the keep box stays unticked
  dialogs.answers = {Answer::Cancel};
  EXPECT_TRUE(a.main.leave_program());
  // The run goes on with the user's choice, the file without it.
  EXPECT_EQ(std::tuple(a.s.DecadeStart, ended), std::tuple(0, 0));
  EXPECT_EQ(IniFile::load(ini).get("Tellux", "AB2min"), std::nullopt);
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0].text,
            "     You are leaving Tellux\r\n  (Have you saved your data ?)....  ");
  EXPECT_FALSE(std::filesystem::exists(copy));

  // Yes ends with the settings written and no file; No saves the sounding, the writer asking first.
  started_with_copy().main.E_M_Click();  // the scripted answer is Yes
  EXPECT_EQ(std::tuple(ended, std::filesystem::exists(copy)), std::tuple(1, false));
  EXPECT_EQ(IniFile::parse(rt::read_whole_file(ini)).read("File", "File 1", ""), copy);

  started_with_copy();
  dialogs.messages.clear();
  dialogs.answers = {Answer::No, Answer::Yes};
  app->main.Toolbar1_ButtonClick("stop");
  // The leaving question, then the writer's.
  EXPECT_EQ(std::tuple(ended, dialogs.messages.size(), std::filesystem::exists(copy),
                       std::filesystem::exists(ini)),
            std::tuple(2, 2u, true, true));
}

// An error past every routine's discipline: its box, and the sounding saved beside its file on Yes.
using RecoveryTest = testing::SessionTest;

TEST_F(RecoveryTest, EscapedErrorOffersToSaveTheSoundingBesideItsFile) {
  s.FileDir = path("");
  EXPECT_EQ(recovery_path(s), path("NEW.recovered.TX3"));
  std::tie(s.FilePath, s.FileName) = std::tuple(path("site.ves"), "site.ves");
  dialogs.answers = {Answer::No, Answer::Yes};
  report_escaped_error(session, 6, "Overflow");
  EXPECT_EQ(dialogs.messages.back().text,
            "Run-time error '6':\n\nOverflow\n\nSave the sounding as " +
                path("site.recovered.TX3") + " ?");
  EXPECT_FALSE(std::filesystem::exists(path("site.recovered.TX3")));
  report_escaped_error(session, 6, "Overflow");
  EXPECT_EQ(std::tuple(read("site.recovered.TX3"), s.FilePath),
            std::tuple(tx3_text(s), path("site.ves")));
}

}  // namespace
}  // namespace tellux
