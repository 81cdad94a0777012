// The geoelectrical section against its recorded page operations.
#include "app/profile_tab.h"

#include "core/runtime/number_text.h"
#include "session_fixture.h"

namespace tellux::testing {
namespace {

// A TX3 file with two field rows, the last at AB/2 `last_ab` m, and layers of (resistivity,
// thickness) in metres, at X and Z.
std::string tx3(double last_ab, const std::vector<std::pair<double, double>>& layers,
                const std::string& x, const std::string& z) {
  std::string t = "2.5\r\n10,1000,50,10,100,10\r\n" + std::to_string(int(last_ab * 10)) +
                  ",2000,50,10,100,10\r\n";
  double depth = 0;
  for (size_t k = 0; k < 20; ++k) {
    const auto [r, h] = k < layers.size() ? layers[k] : std::pair{0.0, 0.0};
    t += std::to_string(int(r * 100)) + "," + std::to_string(int(h * 100)) + "," +
         std::to_string(int(depth * 100)) + "\r\n";
    depth += h;
  }
  return t + "\"\"\r\n\"\"\r\n\"\"\r\n\"" + x + "\"\r\n\"0\"\r\n\"" + z + "\"\r\n\"\"\r\n";
}

class SectionTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    s.ResistScale = 100;
    tab.load();
    tab.sheet.Text14.Text = "2000";
    tab.sheet.Text13.Text = "500";
  }
  // The soundings written and chosen as the selection does.
  void choose(const std::vector<std::string>& contents) {
    std::vector<std::string> paths;
    for (size_t i = 0; i < contents.size(); ++i)
      paths.push_back(write("S" + std::to_string(10 + i) + ".TX3", contents[i]));
    tab.sheet.select(paths);
    page.PageWidth = 16838;
    page.PageHeight = 11906;
    tab.Trace_Profil(page);
  }
  std::vector<const PageOp*> ops(PageOp::Kind kind) const {
    std::vector<const PageOp*> out;
    for (const PageOp& op : page.pages().at(0).ops)
      if (op.kind == kind) out.push_back(&op);
    return out;
  }
  int brushed_boxes() const {
    int n = 0;
    for (const PageOp* op : ops(PageOp::Kind::Rectangle)) n += op->brush.style == 0;
    return n;
  }
  Settings settings;
  GridModel grid{51, 8};
  ProfileTab tab{session, settings, grid};
  PageDocument page;
};

TEST_F(SectionTest, LogsLegendAndLabelsOfAFewSoundings) {
  tab.Text17.Text = "-12.5";
  tab.Check1.Value = 0;  // no legend: only the logs' boxes
  choose({tx3(60, {{50, 2}, {10, 8}, {300, 0}}, "0", "100"),
          tx3(60, {{80, 0}}, "40", "102"),  // no thickness: the half space at once
          tx3(60, {}, "80", "101")});       // no model: its label only
  EXPECT_EQ(brushed_boxes(), 3 + 1);
  std::vector<std::string> labels;
  for (const PageOp* op : ops(PageOp::Kind::Text))
    if (op->angle == -125) labels.push_back(op->text);
  EXPECT_EQ(labels, (std::vector<std::string>{"S10", "S11", "S12"}));
  // The half space of a shallow model reaches P = 2 x 60 / 3 = 40 m below the top.
  const PageOp& half_space = *ops(PageOp::Kind::Rectangle)[2];
  EXPECT_NEAR(half_space.points[3] - half_space.points[1],
              (40 - 10) * tab.sheet.values.TwipsPerMetreZ, 1e-6);
}

TEST_F(SectionTest, AModelDeeperThanTheSpacingAllowsStopsAtTheLargestSpacing) {
  tab.Text17.Text = "45";
  choose({tx3(15, {{50, 20}, {300, 0}}, "0", "100"), tx3(15, {{50, 1}, {300, 0}}, "10", "100")});
  const auto boxes = ops(PageOp::Kind::Rectangle);
  // P is 10 m and the model 20 m deep: the half space ends at 15 m, above its own top.
  EXPECT_LT(boxes[1]->points[3], boxes[1]->points[1]);
  const auto texts = ops(PageOp::Kind::Text);
  EXPECT_EQ(std::count_if(texts.begin(), texts.end(), [](auto* op) { return op->angle == 450; }),
            2);
}

TEST_F(SectionTest, FillWidensTheLogsAndNumbersNeedTenSoundings) {
  tab.Check8.Value = 1;
  tab.Check8_Click();
  EXPECT_EQ(tab.sheet.Text8.Text, "");
  EXPECT_FALSE(tab.sheet.Text8.Enabled);
  EXPECT_EQ(tab.Check9.Value, 1);
  EXPECT_EQ(tab.Check7.Value + tab.Check3.Value + tab.Check5.Value, 0);
  choose({tx3(60, {{50, 2}, {300, 0}}, "0", "100"), tx3(60, {{50, 2}, {300, 0}}, "50", "100")});
  // Two soundings: one gap, the whole length of the profile.
  EXPECT_DOUBLE_EQ(tab.SEVLogWidth, rt::Val(tab.sheet.Text5.Text) * 56.7);
  std::vector<std::string> nine;
  for (int i = 0; i < 9; ++i) nine.push_back(tx3(60, {{50, 2}}, std::to_string(i * 5), "100"));
  choose(nine);
  for (const PageOp* op : ops(PageOp::Kind::Text)) EXPECT_NE(op->text, "9");

  tab.Check8.Value = 0;
  tab.Check8_Click();
  EXPECT_TRUE(tab.sheet.Text8.Enabled);
  EXPECT_EQ(tab.Check7.Value, 1);
  tab.Check9.Value = 1;
  tab.Check9_Click();
  EXPECT_EQ(tab.Check7.Value, 0);
}

}  // namespace
}  // namespace tellux::testing
