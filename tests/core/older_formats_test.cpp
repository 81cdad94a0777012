// The .SEV and TXE readers, the TXW layout through the open flow, and the TXE conversion.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/older_formats.h"
#include "core/open_flow.h"
#include "open_test_support.h"

namespace tellux {
namespace {

using test::open_data;
using test::OpenSession;

void open_path(OpenSession& o, const std::string& path) {
  o.s.FilePath = path;
  o.s.FileName = path;
  open_sounding(o.session);
}

// Older layouts carry the same readings, model and title as the TX3 twin (the .SEV has no
// readings beyond AB/2 and resistivity, no depths and no strings other than the title).
TEST(OlderFormats, EachLayoutLandsInTheRecordOfItsTx3Twin) {
  OpenSession twin;
  open_path(twin, open_data("sample.TX3"));
  ASSERT_TRUE(twin.dialogs.messages.empty());
  ASSERT_EQ(twin.s.FieldCount, 5);

  for (const char* ext : {"SEV", "TXE", "TXW"}) {
    SCOPED_TRACE(ext);
    OpenSession o;
    open_path(o, open_data(std::string("sample.") + ext));
    EXPECT_TRUE(o.dialogs.messages.empty());
    EXPECT_EQ(o.s.FileName, "sample.TX3");
    EXPECT_EQ(o.s.FilePath, open_data("sample.TX3"));
    EXPECT_EQ(o.s.FieldCount, twin.s.FieldCount);
    EXPECT_EQ(o.s.MaxAbHalf, twin.s.MaxAbHalf);
    for (int i = 1; i <= 5; ++i)
      for (int c = 1; c <= 6; ++c)
        EXPECT_EQ(o.s.FieldTable(i, c).num(), twin.s.FieldTable(i, c).num()) << i << "," << c;
    const bool has_depths = std::string(ext) != "SEV";
    for (int r = 1; r <= 20; ++r)
      for (int c = 1; c <= (has_depths ? 3 : 2); ++c)
        EXPECT_EQ(o.s.LayerModel(r, c).num(), twin.s.LayerModel(r, c).num()) << r << "," << c;
    EXPECT_EQ(o.s.GraphTitle, "Test sounding");
    if (has_depths) {
      EXPECT_EQ(o.s.CommentText, twin.s.CommentText);
      EXPECT_EQ(o.s.LocationX, "100");
      EXPECT_EQ(o.s.LocationAzimuth, "45");
    }
    EXPECT_EQ(o.forms.model_window_shown, 1);
  }
}

TEST(SevFile, RowsWithALayerLeaveTheReadingsEmptyAndTheOthersZero) {
  OpenSession o;
  o.s.DataOrigin = "PASI";
  o.s.LocationX = "12";
  std::string path = open_data("sample.SEV");
  read_sev_file(o.session, path);
  for (int c = 3; c <= 6; ++c) {
    EXPECT_TRUE(o.s.FieldTable(3, c).empty());
    EXPECT_FALSE(o.s.FieldTable(4, c).empty());
    EXPECT_EQ(o.s.FieldTable(4, c).num(), 0.0);
  }
  EXPECT_EQ(o.s.DataOrigin, "");
  EXPECT_EQ(o.s.LocationX, "");
  // Only rows after L raise the largest spacing (25), which then becomes its exponent.
  EXPECT_EQ(o.s.MaxAbHalf, 1);
}

TEST(SevFile, RowsUpToLAreReadEvenPastTheRowCount) {
  OpenSession o;
  std::string path = open_data("deep_layers.SEV");
  read_sev_file(o.session, path);
  EXPECT_TRUE(o.dialogs.messages.empty());
  EXPECT_EQ(o.s.FieldCount, 2);
  EXPECT_EQ(o.s.FieldTable(4, 1).num(), 10.0);
  EXPECT_EQ(o.s.FieldTable(4, 2).num(), 60.5);
  EXPECT_EQ(o.s.LayerModel(4, 1).num(), 30.0);
  EXPECT_EQ(o.s.LayerModel(3, 2).num(), 20.0);
}

TEST(SevFile, ShortOrDamagedFilesOpenQuietlyAndKeepWhatWasRead) {
  OpenSession o;
  open_path(o, open_data("short.SEV"));
  EXPECT_TRUE(o.dialogs.messages.empty());
  EXPECT_EQ(o.s.FieldCount, 5);
  EXPECT_EQ(o.s.FieldTable(3, 1).num(), 4.0);
  EXPECT_EQ(o.s.LayerModel(3, 1).num(), 300.0);
  EXPECT_EQ(o.s.FieldTable(4, 2).num(), 60.5);  // the row broke off after its resistivity
  EXPECT_EQ(o.s.FieldTable(4, 1).num(), 0.0);
  EXPECT_EQ(o.s.FileName, "short.TX3");

  OpenSession d;
  open_path(d, open_data("damaged.SEV"));
  EXPECT_TRUE(d.dialogs.messages.empty());
  EXPECT_EQ(d.s.GraphTitle, "Test sounding");
  EXPECT_EQ(d.s.FieldCount, 5);
  EXPECT_EQ(d.s.FieldTable(1, 2).num(), 120.5);
  EXPECT_EQ(d.s.LayerModel(1, 1).num(), 125.0);
  EXPECT_EQ(d.s.WorkMode, "NORMAL");
}

TEST(SevFile, EmptyPathShowsTheBoxInTheLanguageInForce) {
  const std::pair<const char*, const char*> cases[] = {
      {"F", "Sélectionnez d'abord un fichier "},
      {"S", "Primero, seleccione un fichero "},
      {"E", "First select a File "},
      {"A", "First select a File "},
  };
  for (const auto& [letter, text] : cases) {
    OpenSession o;
    o.speak(letter);
    o.s.FieldCount = 7;
    std::string empty;
    read_sev_file(o.session, empty);
    ASSERT_EQ(o.dialogs.messages.size(), 1u) << letter;
    EXPECT_EQ(o.dialogs.messages[0].text, text);
    EXPECT_EQ(o.dialogs.messages[0].icon, Icon::Exclamation);
    EXPECT_EQ(o.dialogs.messages[0].title, "Tellux 6.4");
    EXPECT_EQ(o.s.FieldCount, 7);
  }
}

TEST(SevFile, LowerCaseNameFallsToTheTx3Reader) {
  OpenSession o;
  open_path(o, open_data("lower.sev"));
  ASSERT_EQ(o.dialogs.texts(), std::vector<std::string>{"Reading File Error..."});
  EXPECT_EQ(o.s.FileName, "lower.sev");
  EXPECT_EQ(o.s.FormatLevel, 3);
}

TEST(TxeFile, FewerThanTenLayerRowsLeaveTheRestAsItStood) {
  OpenSession o;
  o.s.LayerModel(6, 1) = 77.0;
  o.s.CommentText = "kept";
  o.s.LocationAzimuth = "N12";
  std::string path = open_data("short.TXE");
  read_txe_file(o.session, path);
  EXPECT_TRUE(o.dialogs.messages.empty());
  EXPECT_EQ(o.s.FieldCount, 5);
  EXPECT_EQ(o.s.FieldTable(5, 1).num(), 25.0);
  EXPECT_EQ(o.s.FieldTable(5, 1).kind(), rt::Kind::Single);
  EXPECT_EQ(o.s.LayerModel(2, 2).num(), 10.0);
  EXPECT_EQ(o.s.LayerModel(3, 3).num(), 12.5);
  EXPECT_EQ(o.s.LayerModel(6, 1).num(), 77.0);
  EXPECT_EQ(o.s.CommentText, "kept");
  EXPECT_EQ(o.s.LocationAzimuth, "N12");
  EXPECT_EQ(o.s.MaxAbHalf, 25);
}

TEST(TxeFile, FileCutInsideTheRowsKeepsTheRowsRead) {
  OpenSession o;
  open_path(o, open_data("cut.TXE"));
  EXPECT_TRUE(o.dialogs.messages.empty());
  EXPECT_EQ(o.s.FieldCount, 5);
  EXPECT_EQ(o.s.FieldTable(2, 2).num(), 110.0);
  EXPECT_EQ(o.s.FieldTable(3, 1).num(), 4.0);
  EXPECT_EQ(o.s.FieldTable(4, 1).num(), 0.0);
  EXPECT_EQ(o.s.MaxAbHalf, 4);
}

TEST(OlderFormats, MissingFilesOpenWithoutAMessage) {
  for (const char* path : {"C:\\Survey\\gone.SEV", "/no/such/folder/gone.TXE"}) {
    OpenSession o;
    open_path(o, path);
    EXPECT_TRUE(o.dialogs.messages.empty()) << path;
    EXPECT_EQ(o.s.FileName, "gone.TX3");
    EXPECT_EQ(o.s.WorkMode, "NORMAL");
  }
}

TEST(TxeConversion, WritesTheTx3BesideTheTxe) {
  test::TempFolder folder("convert");
  const std::string txe = folder.file("field.TXE");
  std::filesystem::copy_file(open_data("sample.TXE"), txe);
  OpenSession o;
  o.dialogs.open_choices.push_back({txe});
  convert_txe_file(o.session);

  ASSERT_EQ(o.dialogs.file_requests.size(), 1u);
  EXPECT_EQ(o.dialogs.file_requests[0].filter, "Fichier Tellux *.TXE");
  EXPECT_EQ(o.dialogs.file_requests[0].title, "TELLUX File selection");
  EXPECT_EQ(o.dialogs.file_requests[0].proposed, "*.TXE");
  const std::string tx3 = folder.file("field.TX3");
  EXPECT_EQ(o.dialogs.texts(), std::vector<std::string>{"Recording File " + tx3});
  ASSERT_TRUE(std::filesystem::exists(tx3));

  OpenSession back, twin;
  open_path(back, tx3);
  open_path(twin, open_data("sample.TX3"));
  EXPECT_TRUE(back.dialogs.messages.empty());
  EXPECT_EQ(back.s.FieldCount, 5);
  for (int i = 1; i <= 5; ++i)
    for (int c = 1; c <= 6; ++c)
      EXPECT_EQ(back.s.FieldTable(i, c).num(), twin.s.FieldTable(i, c).num());
  for (int r = 1; r <= 20; ++r)
    for (int c = 1; c <= 3; ++c)
      EXPECT_EQ(back.s.LayerModel(r, c).num(), twin.s.LayerModel(r, c).num());
  EXPECT_EQ(back.s.LocationY, "200");
}

TEST(TxeConversion, CancelEndsWithTheCrossPointer) {
  OpenSession o;
  o.s.FieldCount = 3;
  convert_txe_file(o.session);
  EXPECT_EQ(o.forms.log, std::vector<std::string>{"pointer bilog 2"});
  EXPECT_EQ(o.s.FieldCount, 3);
  EXPECT_EQ(o.s.WorkMode, "NORMAL");
}

}  // namespace
}  // namespace tellux
