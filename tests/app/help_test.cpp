// The manual, the calculator, the graphical program and the pictures that leave the program, with
// the desktop's answers scripted.
#include "app/help.h"

#include "app/picture_export.h"
#include "session_fixture.h"

namespace tellux::testing {
namespace {

struct ScriptedPrograms : Programs {
  std::string viewer, calc;
  bool starts = true, own_view = true;
  std::vector<std::string> log;
  std::string pdf_viewer() override { return viewer; }
  std::string calculator() override { return calc; }
  bool start(const std::string& program, const std::string& argument) override {
    log.push_back(program + " " + argument);
    return starts;
  }
  bool show_pdf(const std::string& path, const ManualPlace& at) override {
    if (own_view)
      log.push_back("own view " + path + " " + std::to_string(at.page) + " " +
                    std::to_string(int(at.top)));
    return own_view;
  }
};

// Pictures that leave the program: names, the question on an existing file, the size message.
struct RecordingPictures : Pictures {
  std::vector<std::string> log;
  std::string write_page(const PageDocument&, int index, const std::string& path) override {
    log.push_back("write " + std::to_string(index) + " " + path);
    std::ofstream(path, std::ios::binary) << std::string(2600, 'x');
    return {};
  }
  void copy_page(const PageDocument&, int index) override {
    log.push_back("copy " + std::to_string(index));
  }
  void copy_diagram() override { log.push_back("diagram"); }
};

class HelpTest : public SessionTest {
 protected:
  ScriptedPrograms programs;
  Settings settings;
  PageDocument page;
  RecordingPictures pictures;
};

// At once in the program's own view at the section's place; else the desktop's viewer; with
// neither the two messages; a missing manual said with its path.
TEST_F(HelpTest, TheManualOpensAtTheSectionInTheOwnViewElseTheViewerElseTheTwoMessages) {
  use_language('A');  // German users get the English manual
  EXPECT_EQ(manual_path(s).substr(manual_path(s).size() - 14), "TELLUX6_US.PDF");
  const std::string pdf = write("M.PDF", "%PDF"), none = path("none.PDF");
  write("M.TOC", "introduction 3 45.5\ntab-setup 17 300.2\n");
  struct Case {
    bool own, starts;
    std::string viewer, file, topic, log, said;
  } const cases[] = {
      {true, true, "/v", pdf, help_topic_of_tab(3), "own view " + pdf + " 17 300", ""},
      {true, true, "", pdf, "no-such-section", "own view " + pdf + " 1 0", ""},
      {false, true, "/v", pdf, "", "/v " + pdf, ""},
      {false, false, "/v", pdf, "", "/v " + pdf, "Unable to shell " + pdf},
      {false, true, "", pdf, "", "",
       "You must intstall ACROBAT READER to open the help file|You must install a PDF reader "
       "from the CD-ROM"},
      {true, true, "/v", none, "", "", "The manual " + none + " is missing."}};
  for (const Case& c : cases) {
    programs = {};
    std::tie(programs.own_view, programs.starts, programs.viewer) =
        std::tie(c.own, c.starts, c.viewer);
    dialogs.messages.clear();
    open_manual_file(session, programs, c.file, c.topic);
    std::string said;
    for (const std::string& text : dialogs.texts()) said += (said.empty() ? "" : "|") + text;
    EXPECT_EQ(programs.log.empty() ? "" : programs.log.back(), c.log) << c.topic;
    EXPECT_EQ(said, c.said) << c.topic;
  }
  EXPECT_EQ(help_topic_of_tab(6), "introduction");
}

TEST_F(HelpTest, AGraphicalProgramOfOneBlankIsNotLocated) {
  s.FilePath = "/d/X.TX3";
  settings.GraphicalProg = " ";
  dialogs.open_choices = {{"/usr/bin/inkscape"}};
  EXPECT_TRUE(open_graphical_program(session, settings, programs));
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"You must locate your program"});
  EXPECT_EQ(settings.GraphicalProg, "/usr/bin/inkscape");
  EXPECT_EQ(programs.log.back(), "/usr/bin/inkscape /d/X.svg");
  open_calculator(session, programs);  // none on this desktop
  EXPECT_EQ(dialogs.texts().back(), "No calculator is installed on this desktop.");
  programs.calc = "/usr/bin/gnome-calculator";
  open_calculator(session, programs);  // starts, and nothing is said
  EXPECT_EQ(std::tuple(programs.log.back(), dialogs.messages.size()),
            std::tuple("/usr/bin/gnome-calculator ", size_t{2}));
}

TEST(About, InFrenchOrEnglishWithTheFiltersAndTheWarning) {
  SoundingState s;
  EXPECT_NE(about_text(s).find("This program is used for the interpretation of electrical "
                               "soundings with Schlumberger, Wenner or dipole spread."),
            std::string::npos);
  s.Language = {};
  s.Language.French = true;
  const std::string fr = about_text(s);
  EXPECT_EQ(fr.rfind("Ce programme sert à interpréter les sondages électriques ", 0), 0u);
  EXPECT_NE(fr.find("KOEFOED"), std::string::npos);
}

TEST(PictureNames, TheReportsAndTheSectionsNames) {
  EXPECT_EQ(picture_file_name("/d/X.TX3", false), "/d/X.svg");
  EXPECT_EQ(picture_file_name("/d/X.TX3", true), "/d/Xprofil.svg");
  EXPECT_EQ(picture_file_name("", false), "svg");
}

TEST_F(HelpTest, AnExistingFileIsAskedAboutAndTheSizeIsSaid) {
  s.FilePath = path("X.TX3");
  write("X.svg", "old");
  dialogs.inputs = {path("X.svg")};
  dialogs.answers = {Answer::No};
  EXPECT_EQ(Record_WMF(session, page, false, pictures), "");
  EXPECT_EQ(read("X.svg"), "old");
  EXPECT_TRUE(pictures.log.empty());

  dialogs.inputs = {path("X.svg")};
  dialogs.answers = {Answer::Yes};
  EXPECT_EQ(Record_WMF(session, page, false, pictures), path("X.svg"));
  EXPECT_EQ(pictures.log, (std::vector<std::string>{"copy 0", "write 0 " + path("X.svg")}));
  EXPECT_EQ(dialogs.texts().back(), path("X.svg") + " 3 Kb has been recorded");
  EXPECT_EQ(dialogs.messages.back().icon, Icon::Information);
  EXPECT_EQ(dialogs.messages[0].text, path("X.svg") + " alreday exists, replace this file ?");

  // A cancelled input box leaves an empty name: no file, the recording error.
  dialogs.inputs = {std::nullopt};
  EXPECT_EQ(Record_WMF(session, page, true, pictures), "");
  EXPECT_EQ(dialogs.texts().back(), "Recording File Error...");

  copy_diagram(session, pictures);
  EXPECT_EQ(pictures.log.back(), "diagram");
  EXPECT_EQ(dialogs.texts().back(),
            "Your screen is now recorded in the clipbord, paste in with Crtl+C");
}

}  // namespace
}  // namespace tellux::testing
