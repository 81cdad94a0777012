// Pictures that leave the program: names, the question on an existing file, the size message.
#include "app/picture_export.h"

#include "session_fixture.h"

namespace tellux::testing {
namespace {

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

TEST(PictureNames, TheReportsAndTheSectionsNames) {
  EXPECT_EQ(picture_file_name("/d/X.TX3", false), "/d/X.svg");
  EXPECT_EQ(picture_file_name("/d/X.TX3", true), "/d/Xprofil.svg");
  EXPECT_EQ(picture_file_name("", false), "svg");
}

class PictureExport : public SessionTest {
 protected:
  PageDocument page;
  RecordingPictures pictures;
};

TEST_F(PictureExport, AnExistingFileIsAskedAboutAndTheSizeIsSaid) {
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
