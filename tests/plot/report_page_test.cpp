// The report against its recorded page operations.
#include "plot/report_page.h"

#include "model/forward.h"
#include "model/layer_depths.h"
#include "plot_fixture.h"

namespace tellux::testing {
namespace {

class ReportTest : public PlotTest {
 protected:
  void SetUp() override {
    PlotTest::SetUp();
    field({{1, 100}, {10, 40}, {100, 300}});
    model({{100, 2.125}, {20, 15}, {500, 0}});
    s.FileName = "R1.TX3";
    s.LocationX = "1000";
    s.LocationY = "2000";
    s.LocationZ = "120";
    s.CommentText = "near the well";
  }
  // The report on an A4 sheet, upright or lying, with the model's curve computed first.
  void build(bool lying = false, bool depths = true) {
    if (lying) std::swap(doc.PageWidth, doc.PageHeight);
    if (depths) ComputeDepths(session);
    s.WorkMode = mode::kNormal;
    ForwardCurve(session);
    s.WorkMode = "";
    build_report(session, doc, 1134, 1134, 1134, 1245);
  }
  // The texts written on page `p` (from 1), in order: free texts and table cells.
  std::vector<std::string> texts(int p) const {
    std::vector<std::string> out;
    for (const PageOp& op : doc.pages().at(size_t(p - 1)).ops)
      if (op.kind == PageOp::Kind::Text || op.kind == PageOp::Kind::Cell) out.push_back(op.text);
    return out;
  }
  bool has(int p, const std::string& text) const {
    const auto t = texts(p);
    return std::find(t.begin(), t.end(), text) != t.end();
  }
  PageDocument doc;
};

// One decimal asked for a thickness the model window has not rounded: the three decimals of 2.125
// stay and ".0" is added. A lying page puts the text on a page of its own.
TEST_F(ReportTest, AnUnroundedThicknessAndTheLyingPage) {
  s.ThicknessDecimals = 1;
  build(false, false);
  EXPECT_TRUE(has(1, "2.125.0"));
  build(true);
  ASSERT_EQ(doc.PageCount(), 3);
  EXPECT_FALSE(has(1, "Location   X = 1000    Y = 2000    Z = 120"));
  EXPECT_TRUE(has(2, "Location   X = 1000    Y = 2000    Z = 120"));
  EXPECT_TRUE(has(2, "Electrical sounding Schlumberger - R1.TX3"));
  EXPECT_TRUE(has(2, "near the well"));
  EXPECT_TRUE(has(3, "Field data and calculated values"));
  EXPECT_DOUBLE_EQ(s.PlotScale, (11906 - 1134 - 1245 - 30 * 56.7) / (5 * 56.7));
  EXPECT_EQ(s.WorkMode, "");
}

TEST_F(ReportTest, LocationAndModelTableFollowWhatTheSoundingHolds) {
  s.LocationY.clear();  // no Y: no location line, even with a Z
  s.LocationZ = "0";    // three columns
  model({{80, 0}});     // one layer: row 1 and the closing row
  build();
  const auto t = texts(1);
  EXPECT_EQ(std::count_if(t.begin(), t.end(), [](auto& x) { return x.rfind("Location", 0) == 0; }),
            0);
  EXPECT_FALSE(has(1, "Resistivity     Thickness      Depth        Altitude"));
  const auto heading = std::find(t.begin(), t.end(), "Resistivity     Thickness      Depth");
  ASSERT_NE(heading, t.end());
  // Units (3 cells), row 1 (80 ohm.m, no thickness), the closing row (row 2, at depth 0).
  EXPECT_EQ(std::vector<std::string>(heading + 1, heading + 8),
            (std::vector<std::string>{"[ohm·m]", "[m]", "[m]", "80", "0", "0", "0"}));

  // A sounding of one reading has no model table at all.
  field({{1, 100}});
  s.LocationY = "5";
  s.LocationAzimuth = "12";
  s.LocationZ.clear();
  build();
  EXPECT_FALSE(has(1, "Model "));
  EXPECT_TRUE(has(1, "Location   X = 1000    Y = 5    Z =     Azim = 12"));
}

TEST_F(ReportTest, FieldDataPageByArrayWithPasiUnits) {
  s.Spread = SpreadType::Wenner;
  s.DataOrigin = "PASI";
  use_language('F');
  build();
  EXPECT_TRUE(has(1, "Sondage électrique Wenner - R1.TX3"));
  const auto t = texts(2);
  const auto head = std::find(t.begin(), t.end(), "a");
  ASSERT_NE(head, t.end());
  EXPECT_EQ(std::vector<std::string>(head, head + 10),
            (std::vector<std::string>{"a", "DeltaV", "I", "K", "Résistivité", "[m]", "[µV]", "[µA]",
                                      "[-]", "[ohm·m]"}));
  EXPECT_EQ(s.SpreadTag, "2");
}

TEST(ReportTexts, PageTextAndPadNumberLeft) {
  SoundingState s;
  s.FileName = "X.TX3";
  s.Language.English = false;
  s.Language.German = true;
  EXPECT_EQ(PageText(s, 2), "Elektrische Tiefensondierung Dipole  - X.TX3");
  EXPECT_EQ(PageText(s, 12), " ");
  EXPECT_EQ(PadNumberLeft(0), "");
  EXPECT_EQ(PadNumberLeft(25), std::string(8, ' ') + "25");
  EXPECT_EQ(PadNumberLeft(2.5), std::string(7, ' ') + "2.5");
  EXPECT_EQ(PadNumberLeft(1234567), "1234567");  // wider than its place: no blank
}

}  // namespace
}  // namespace tellux::testing
