// "Fit all" on the tab "Profile data": one question, then each file's old bytes kept as NAME.BAK
// and the fitted sounding written; No changes nothing.
#include <filesystem>

#include "app/survey_commands.h"
#include "core/runtime/token_file.h"
#include "session_fixture.h"

namespace tellux::testing {
namespace {

using FitAllTest = SessionTest;

TEST_F(FitAllTest, OneQuestionThenBackupsAndFittedFiles) {
  Settings settings;
  GridModel grid{51, 8};
  ProfileTab tab{session, settings, grid};
  int sections = 0;
  tab.show_section = [&sections] { ++sections; };
  std::vector<std::string> files, before;
  for (const char* name : {"VES01.TX3", "VES02.TX3", "damaged.TX3"}) {
    before.push_back(rt::read_whole_file(TELLUX_TEST_DATA "/survey/" + std::string(name)));
    files.push_back(write(name, before.back()));
  }
  tab.sheet.select(files);
  dialogs.messages.clear();
  std::vector<FittedSounding> fitted =
      fit_survey(s, profile_fit_choices(s), profile_files(tab.sheet), 2);
  ASSERT_EQ(fitted.size(), 3u);

  dialogs.answers.push_back(Answer::No);
  EXPECT_EQ(write_fitted_survey(session, tab, fitted), 0);
  EXPECT_FALSE(std::filesystem::exists(path("VES01.BAK")));
  EXPECT_EQ(sections, 0);
  ASSERT_EQ(dialogs.messages.size(), 2u);
  EXPECT_EQ(dialogs.messages[0].text, "damaged.TX3 : Reading File Error...");
  EXPECT_NE(dialogs.messages[1].text.find("Save the fitted models of 2 soundings?"),
            std::string::npos);

  dialogs.answers.push_back(Answer::Yes);
  EXPECT_EQ(write_fitted_survey(session, tab, fitted), 2);
  EXPECT_EQ(sections, 1);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(rt::read_whole_file(backup_path(files[i])), before[i]);
    EXPECT_NE(rt::read_whole_file(files[i]), before[i]);
  }
  EXPECT_FALSE(std::filesystem::exists(path("damaged.BAK")));
  EXPECT_EQ(rt::read_whole_file(files[2]), before[2]);

  // "Export models...": the GeoJSON where the dialog says, the CSV beside it.
  dialogs.messages.clear();
  dialogs.save_choices.push_back(path("line.geojson"));
  export_profile_models(session, tab.sheet);
  EXPECT_NE(read("line.geojson").find("\"coordinates\": ["), std::string::npos);
  EXPECT_EQ(read("line.csv").substr(0, 9), "File,Name");
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0].text.rfind("2 soundings exported to " + path("line.geojson"), 0),
            0u);
}

}  // namespace
}  // namespace tellux::testing
