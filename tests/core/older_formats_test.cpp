// The .SEV and TXE readers where the batch command's `open` goldens cannot reach them: the state
// they leave from before, the empty path, missing files, and the TXE conversion.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/older_formats.h"
#include "core/open_flow.h"
#include "open_test_support.h"
#include "session_fixture.h"

namespace tellux {
namespace {

using test::open_data;
using test::OpenSession;

void open_path(OpenSession& o, const std::string& path) {
  o.s.FilePath = o.s.FileName = path;
  open_sounding(o.session);
}

// Rows with a layer leave the readings empty and the others zero; only rows after L raise the
// largest spacing (25), which then becomes its exponent. An empty path shows the box in the
// language in force and reads nothing.
TEST(SevFile, RowsWithALayerLeaveTheReadingsEmptyAndTheOthersZero) {
  OpenSession o;
  o.s.DataOrigin = o.s.LocationX = "PASI";
  std::string path = open_data("sample.SEV");
  read_sev_file(o.session, path);
  for (int c = 3; c <= 6; ++c) {
    EXPECT_TRUE(o.s.FieldTable(3, c).empty());
    EXPECT_FALSE(o.s.FieldTable(4, c).empty());
  }
  EXPECT_EQ(o.s.DataOrigin + o.s.LocationX, "");
  EXPECT_EQ(o.s.MaxAbHalf, 1);
  const std::pair<char, const char*> cases[] = {{'F', "Sélectionnez d'abord un fichier "},
                                                {'S', "Primero, seleccione un fichero "},
                                                {'A', "First select a File "}};
  for (const auto& [letter, text] : cases) {
    o.dialogs.messages.clear();
    o.speak(letter);
    path.clear();
    read_sev_file(o.session, path);
    EXPECT_EQ(o.dialogs.texts(), std::vector<std::string>{text}) << letter;
    EXPECT_EQ(o.dialogs.messages.at(0).icon, Icon::Exclamation);
    EXPECT_EQ(o.s.FieldCount, 5);
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
  EXPECT_TRUE(o.dialogs.messages.empty());
  EXPECT_EQ(std::tuple(o.s.FieldTable(5, 1).num(), o.s.FieldTable(5, 1).kind()),
            std::tuple(25.0, rt::Kind::Single));
  EXPECT_EQ(o.s.LayerModel(2, 2).num() + 10 * o.s.LayerModel(3, 3).num(), 10.0 + 125.0);
  EXPECT_EQ(o.s.LayerModel(6, 1).num() + o.s.LayerModel(6, 2).num() + o.s.LayerModel(6, 3).num(),
            115.0);
  EXPECT_EQ(std::tuple(o.s.CommentText, o.s.LocationAzimuth, o.s.MaxAbHalf),
            std::tuple("kept", "kept", 25));
}

// Missing files open quietly under their TX3 name.
TEST(OlderFormats, MissingFilesOpenQuietlyUnderTheirTx3Name) {
  for (const char* path : {"C:\\Survey\\gone.SEV", "/no/such/folder/gone.TXE"}) {
    OpenSession o;
    open_path(o, path);
    EXPECT_TRUE(o.dialogs.messages.empty()) << path;
    EXPECT_EQ(o.s.FileName + "|" + o.s.WorkMode, "gone.TX3|NORMAL");
  }
}

// The TX3 is written beside the TXE; cancelled, the conversion ends with the cross pointer.
using TxeConversion = testing::SessionTest;

TEST_F(TxeConversion, WritesTheTx3BesideTheTxe) {
  const std::string txe = path("field.TXE"), tx3 = path("field.TX3");
  std::filesystem::copy_file(open_data("sample.TXE"), txe);
  OpenSession o;
  o.dialogs.open_choices.push_back({txe});
  convert_txe_file(o.session);
  ASSERT_EQ(o.dialogs.file_requests.size(), 1u);
  EXPECT_EQ(o.dialogs.file_requests[0].filter + "|" + o.dialogs.file_requests[0].proposed,
            "Fichier Tellux *.TXE|*.TXE");
  EXPECT_EQ(o.dialogs.texts(), std::vector<std::string>{"Recording File " + tx3});
  OpenSession back;
  open_path(back, tx3);
  EXPECT_TRUE(back.dialogs.messages.empty());
  EXPECT_EQ(std::tuple(back.s.FieldCount, back.s.LocationY, back.s.FieldTable(4, 2).num(),
                       back.s.LayerModel(3, 3).num()),
            std::tuple(5, "200", 60.5, 12.5));
  OpenSession cancel;
  cancel.s.FieldCount = 3;
  convert_txe_file(cancel.session);
  EXPECT_EQ(cancel.forms.log, std::vector<std::string>{"pointer bilog 2"});
  EXPECT_EQ(std::tuple(cancel.s.FieldCount, cancel.s.WorkMode), std::tuple(3, "NORMAL"));
}

}  // namespace
}  // namespace tellux
