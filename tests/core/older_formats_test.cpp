// The .SEV and TXE readers, the TXW layout through the open flow, and the TXE conversion.
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

// The readings of rows 1 to 5 and the first `layer_columns` columns of the model agree.
void expect_same_record(const SoundingState& a, const SoundingState& b, int layer_columns) {
  for (int i = 1; i <= 5; ++i)
    for (int c = 1; c <= 6; ++c)
      EXPECT_EQ(a.FieldTable(i, c).num(), b.FieldTable(i, c).num()) << i << "," << c;
  for (int r = 1; r <= 20; ++r)
    for (int c = 1; c <= layer_columns; ++c)
      EXPECT_EQ(a.LayerModel(r, c).num(), b.LayerModel(r, c).num()) << r << "," << c;
}

// Older layouts carry the same readings, model and title as the TX3 twin (the .SEV has no
// readings beyond AB/2 and resistivity, no depths and no strings other than the title).
TEST(OlderFormats, EachLayoutLandsInTheRecordOfItsTx3Twin) {
  OpenSession twin;
  open_path(twin, open_data("sample.TX3"));
  ASSERT_EQ(std::tuple(twin.dialogs.messages.size(), twin.s.FieldCount), std::tuple(0u, 5));
  for (const char* ext : {"SEV", "TXE", "TXW"}) {
    SCOPED_TRACE(ext);
    OpenSession o;
    open_path(o, open_data(std::string("sample.") + ext));
    EXPECT_TRUE(o.dialogs.messages.empty());
    EXPECT_EQ(o.s.FileName + "|" + o.s.FilePath, "sample.TX3|" + open_data("sample.TX3"));
    EXPECT_EQ(std::tuple(o.s.FieldCount, o.s.MaxAbHalf, o.forms.model_window_shown),
              std::tuple(5, twin.s.MaxAbHalf, 1));
    const bool has_depths = std::string(ext) != "SEV";
    expect_same_record(o.s, twin.s, has_depths ? 3 : 2);
    EXPECT_EQ(o.s.GraphTitle, "Test sounding");
    if (has_depths) {
      EXPECT_EQ(o.s.CommentText, twin.s.CommentText);
      EXPECT_EQ(o.s.LocationX + "|" + o.s.LocationAzimuth, "100|45");
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
  for (int c = 3; c <= 6; ++c) {
    EXPECT_TRUE(o.s.FieldTable(3, c).empty());
    EXPECT_FALSE(o.s.FieldTable(4, c).empty());
    EXPECT_EQ(o.s.FieldTable(4, c).num(), 0.0);
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

// Short, damaged, cut and missing files open quietly under their TX3 name and keep what was read;
// rows up to L of a .SEV are read even past its row count.
TEST(OlderFormats, ShortDamagedOrMissingFilesOpenQuietlyAndKeepWhatWasRead) {
  struct Value {
    int row, column;
    double value;
    bool layer = false;
  };
  const struct {
    std::string path, name;
    int count, max_ab;
    std::vector<Value> values;
  } cases[] = {
      // short.SEV: its row 4 broke off after its resistivity.
      {"short.SEV", "short.TX3", 5, -1, {{3, 1, 300, true}, {4, 2, 60.5}, {4, 1, 0}}},
      {"damaged.SEV", "damaged.TX3", 5, -1, {{1, 2, 120.5}, {1, 1, 125, true}}},
      {"deep_layers.SEV",
       "deep_layers.TX3",
       2,
       -1,
       {{4, 1, 10}, {4, 2, 60.5}, {4, 1, 30, true}, {3, 2, 20, true}}},
      {"cut.TXE", "cut.TX3", 5, 4, {{2, 2, 110}, {3, 1, 4}, {4, 1, 0}}},
      {"C:\\Survey\\gone.SEV", "gone.TX3", 0, -1, {}},
      {"/no/such/folder/gone.TXE", "gone.TX3", 0, -1, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path);
    OpenSession o;
    open_path(o, c.count ? open_data(c.path) : c.path);
    EXPECT_TRUE(o.dialogs.messages.empty());
    EXPECT_EQ(o.s.FileName + "|" + o.s.WorkMode, c.name + "|NORMAL");
    EXPECT_TRUE(c.count == 0 || o.s.FieldCount == c.count) << o.s.FieldCount;
    EXPECT_TRUE(c.max_ab < 0 || o.s.MaxAbHalf == c.max_ab) << o.s.MaxAbHalf;
    for (const Value& v : c.values) {
      const Cell& got = v.layer ? o.s.LayerModel(v.row, v.column) : o.s.FieldTable(v.row, v.column);
      EXPECT_EQ(got.num(), v.value) << v.row << "," << v.column;
    }
    EXPECT_TRUE(c.name != "damaged.TX3" || o.s.GraphTitle == "Test sounding");
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
  OpenSession back, twin;
  open_path(back, tx3);
  open_path(twin, open_data("sample.TX3"));
  EXPECT_TRUE(back.dialogs.messages.empty());
  EXPECT_EQ(std::tuple(back.s.FieldCount, back.s.LocationY), std::tuple(5, "200"));
  expect_same_record(back.s, twin.s, 3);
  OpenSession cancel;
  cancel.s.FieldCount = 3;
  convert_txe_file(cancel.session);
  EXPECT_EQ(cancel.forms.log, std::vector<std::string>{"pointer bilog 2"});
  EXPECT_EQ(std::tuple(cancel.s.FieldCount, cancel.s.WorkMode), std::tuple(3, "NORMAL"));
}

}  // namespace
}  // namespace tellux
