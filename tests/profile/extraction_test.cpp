#include "profile/extraction.h"
#include "core/file_names.h"

#include "session_fixture.h"

namespace tellux::testing {
namespace {

// The six soundings of line L1: Z from 101.5 to 108.5 m, three layers each; L1_01 is 80 ohm.m
// over 2 m, 25 ohm.m down to 16 m, then 600 ohm.m, at X 1000, Y 2000, Z 104.5.
std::vector<std::string> line_files() {
  std::vector<std::string> files;
  for (int i = 1; i <= 6; ++i)
    files.push_back(std::string(TELLUX_TEST_DATA) + "/profile/L1_0" + std::to_string(i) + ".TX3");
  return files;
}

class Extraction : public SessionTest {
 protected:
  // The slice written for the line, as text.
  std::string slice(Slice by, const std::string& A, const std::string& L,
                    std::vector<std::string> files = line_files()) {
    write_slice(s, files, by, A, L, path("out.DAT"));
    return read("out.DAT");
  }
  std::string first_line(Slice by, const std::string& A, const std::string& L) {
    const std::string all = slice(by, A, L);
    return all.substr(0, all.find("\r\n"));
  }
};

// Each slice of the line is in the golden files of the extract command; below the last layer
// the half space gives its resistivity.
TEST_F(Extraction, TheHalfSpaceBelowTheLastLayer) {
  EXPECT_EQ(first_line(Slice::ResistivityAtAltitude, "50", ""), "1000,2000,600");
}

TEST_F(Extraction, SlicesThatFindNoLayerWriteNoLine) {
  EXPECT_EQ(slice(Slice::ResistivityOfLayer, "", "20"), "");      // layers stop at 19
  EXPECT_EQ(slice(Slice::ResistivityAtAltitude, "200", ""), "");  // above every top
  EXPECT_EQ(slice(Slice::ThicknessAtAltitude, "50", ""), "");     // no thickness in the half space
  // At 0 m the half space would need A above H (0): no sounding gives a line.
  EXPECT_EQ(slice(Slice::ResistivityAtAltitude, "0", ""), "");
}

TEST_F(Extraction, AnUnreadableFileRepeatsTheSoundingBefore) {
  const std::vector<std::string> files = {line_files()[0], path("missing.TX3")};
  EXPECT_EQ(slice(Slice::ResistivityOfLayer, "", "2", files), "1000,2000,25\r\n1000,2000,25\r\n");
  EXPECT_EQ(s.LocationZ, "104.5");  // the record holds the last file read
}

TEST_F(Extraction, NamesAndTheDatRule) {
  EXPECT_EQ(extraction_file_name(Slice::ResistivityAtAltitude, "95", "3"), "Res_by_alt_95.DAT");
  EXPECT_EQ(extraction_file_name(Slice::DepthOfLayer, "95", "3"), "Depht_by_layer_3.DAT");
  EXPECT_EQ(surfer_file_name("data.txt"), "data.DAT");
  EXPECT_EQ(surfer_file_name("a.b.c"), "a.DAT");
  EXPECT_EQ(surfer_file_name("slice"), "slice.DAT");
}

TEST_F(Extraction, TheMenuCommandAsksAndWritesWhereTheSaveDialogSays) {
  int option = 2;
  const auto fill = [&](ExtractionForm& form) {
    form.option = option;
    form.Text2 = "1";
  };
  dialogs.open_choices = {{line_files()[0]}};  // one file
  EXPECT_EQ(HORSLICE(session, fill), "");
  dialogs.open_choices = {line_files()};
  option = 1;  // by altitude, with no altitude typed
  EXPECT_EQ(HORSLICE(session, fill), "");
  use_language('F');
  option = 2;
  dialogs.open_choices = {line_files()};
  dialogs.answers = {Answer::No};
  dialogs.save_choices = {path("tranche.txt")};
  EXPECT_EQ(HORSLICE(session, fill), path("tranche.DAT"));
  EXPECT_EQ(read("tranche.DAT").substr(0, 14), "1000,2000,80\r\n");
  EXPECT_EQ(dialogs.texts(),
            (std::vector<std::string>{
                "Impossible with only 1 file", "Extraction aborted",
                "Sauvegarde du fichier " + folder_of(line_files()[0]) + "Res_by_layer_1.DAT"}));
  EXPECT_EQ(s.FileName, "tranche.txt");
}

}  // namespace
}  // namespace tellux::testing
