// The manual, the calculator and the graphical program with the desktop's answers scripted.
#include "app/help.h"

#include "session_fixture.h"

namespace tellux::testing {
namespace {

struct ScriptedPrograms : Programs {
  std::string viewer, calc;
  bool starts = true;
  std::vector<std::string> log;
  std::string pdf_viewer() override { return viewer; }
  std::string calculator() override { return calc; }
  bool start(const std::string& program, const std::string& argument) override {
    log.push_back(program + " " + argument);
    return starts;
  }
  void show_pdf(const std::string& path) override { log.push_back("own view " + path); }
};

class HelpTest : public SessionTest {
 protected:
  ScriptedPrograms programs;
  Settings settings;
};

TEST_F(HelpTest, TheManualByLanguageInTheViewerOrTheProgramsOwnView) {
  use_language('F');
  programs.viewer = "/usr/bin/evince";
  open_manual(session, programs);
  EXPECT_EQ(programs.log.back(), "/usr/bin/evince " + manual_path(s));
  EXPECT_EQ(manual_path(s).substr(manual_path(s).size() - 14), "TELLUX6_FR.PDF");
  use_language('A');  // German users get the English manual
  programs.starts = false;
  open_manual(session, programs);
  EXPECT_EQ(dialogs.texts().back(), "Unable to shell " + manual_path(s));
  EXPECT_EQ(manual_path(s).substr(manual_path(s).size() - 14), "TELLUX6_US.PDF");
  dialogs.messages.clear();
  programs.viewer.clear();
  open_manual(session, programs);
  EXPECT_EQ(dialogs.texts(),
            (std::vector<std::string>{"You must intstall ACROBAT READER to open the help file",
                                      "You must install a PDF reader from the CD-ROM"}));
  EXPECT_EQ(programs.log.back(), "own view " + manual_path(s));
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

}  // namespace
}  // namespace tellux::testing
