#include "profile/profile_sheet.h"

#include "core/settings.h"
#include "session_fixture.h"

namespace tellux::testing {
namespace {

// A TX3 file: two field rows (the last at AB/2 `last_ab` m), layers of resistivity r and depth
// d, and the location strings.
std::string tx3(double last_ab, std::vector<std::pair<int, int>> layers, const std::string& x,
                const std::string& y, const std::string& z) {
  std::string t = "2.5\r\n10,1000,50,10,100,10\r\n" + std::to_string(int(last_ab * 10)) +
                  ",2000,50,10,100,10\r\n";
  layers.resize(20);
  for (auto [r, d] : layers)
    t += std::to_string(r * 100) + ",0," + std::to_string(d * 100) + "\r\n";
  return t + "\"\"\r\n\"\"\r\n\"\"\r\n\"" + x + "\"\r\n\"" + y + "\"\r\n\"" + z + "\"\r\n\"\"\r\n";
}

class ProfileSheetTest : public SessionTest {
 protected:
  std::string rows() const {
    std::string out;
    for (int r = 1; r < grid.rows(); ++r) {
      for (int c = 0; c < 8; ++c) out += grid.text(r, c) + (c < 7 ? "," : "");
      out += "|";
    }
    return out;
  }
  GridModel grid{51, 8};
  ProfileSheet sheet{session, grid};
};

TEST_F(ProfileSheetTest, OneFileOrCancelOnlySays) {
  grid.set_text(1, 1, "kept");
  dialogs.open_choices.push_back({write("a.TX3", tx3(100, {{10, 5}}, "0", "0", "0"))});
  sheet.Command2_Click();
  sheet.Command2_Click();  // nothing queued: cancelled
  EXPECT_EQ(dialogs.texts(), (std::vector<std::string>{"Impossible with only 1 file",
                                                       "Impossible with only 1 file"}));
  EXPECT_EQ(std::tuple(dialogs.messages[0].icon, grid.rows(), grid.text(1, 1)),
            std::tuple(Icon::Critical, 51, "kept"));
}

TEST_F(ProfileSheetTest, SelectionReadsSortsAndScales) {
  // A line crossing the origin folds back in the sort; two soundings at one place keep their
  // order. The approximate depth is (S + S) / 30 for Schlumberger, S in tenths: 150 m give 100 m.
  dialogs.open_choices.push_back({write("A.TX3", tx3(300, {{50, 0}, {120, 12}}, "-30", "", "105")),
                                  write("B.TX3", tx3(150, {{8, 0}}, "10", "0", "")),
                                  write("C.TX3", tx3(150, {{2400, 0}, {30, 7}}, "10", "0", "98")),
                                  write("D.TX3", tx3(75, {{300, 0}}, "-5", "0", "101.5"))});
  sheet.Command2_Click();
  EXPECT_EQ(std::tuple(dialogs.messages.size(), sheet.folder), std::tuple(0u, dir_.string() + "/"));
  EXPECT_EQ(rows(),
            "1,D.TX3,-5,0,101.5,4,0,0|2,B.TX3,10,0,0,2,15,0|3,C.TX3,10,0,98,3,15,7|"
            "4,A.TX3,-30,0,105,1,55,12|");
  EXPECT_EQ(grid.text(0, 6) + " " + sheet.Text11.Text + " " + sheet.Text12.Text + " " +
                sheet.scale.ClassBox[16].Text,
            "Distance 8 2400 2400");
  // The floor is B's 0 - 100; 55 m at 1/250 and 205 m at 1/1000.
  const ProfileValues& v = sheet.values;
  EXPECT_EQ(std::tuple(v.ProfileFloorElevation, v.ProfileTopElevation, v.ProfileHeightSpan,
                       v.ProfileMinDistance, sheet.Text5.Text, sheet.Text6.Text),
            std::tuple(-100, 120, 205, 0, "220", "205"));
  EXPECT_DOUBLE_EQ(v.TwipsPerMetreX, 226.8);
}

TEST_F(ProfileSheetTest, RangeEndsRoundEachByItsOwnRule) {
  const struct {
    int low_hundredths, high;
    const char *min, *max;
  } cases[] = {{40, 1049, "0", "1000"}, {150, 1050, "2", "1000"}, {10550, 1151, "110", "1200"}};
  for (const auto& c : cases) {
    // Resistivities as stored: hundredths of ohm.m.
    std::string low = tx3(100, {}, "0", "0", "0");
    low.replace(low.find("0,0,0"), 1, std::to_string(c.low_hundredths));
    dialogs.open_choices.push_back(
        {write("L.TX3", low), write("H.TX3", tx3(100, {{c.high, 0}}, "1", "0", "0"))});
    sheet.Command2_Click();
    EXPECT_EQ(sheet.Text11.Text + " " + sheet.Text12.Text, std::string(c.min) + " " + c.max);
  }
}

// The limits' texts and a few classes are in the golden file of the colours command.
TEST(ClassLimitsTest, ClassesAtTheirEdges) {
  const ClassLimits l = ClassLimits::from(10, 2000), flat = ClassLimits::from(50, 50);
  const std::tuple<const ClassLimits*, double, int> cases[] = {
      {&l, 133.99, 1}, {&l, 1999.9, 15}, {&l, 2000, 16}, {&flat, 49, 1}, {&flat, 50, 16}};
  for (auto [limits, r, k] : cases) EXPECT_EQ(limits->class_of(r), k) << r;
}

TEST_F(ProfileSheetTest, ColourScaleLoadsInterpolatesAndSaves) {
  ColourScale& c = sheet.scale;
  Settings settings;
  c.load(settings);
  EXPECT_EQ(c.ClassBox[2].BackColor, 71646);  // hand-made default, not interpolated
  std::string parts;
  for (const TextBox& b : c.RGBBox) parts += b.Text + " ";
  EXPECT_EQ(parts, "150 16 1 249 250 255 16 64 254 ");

  for (int n : {8, 2}) {  // Text122 (2) acts on leaving too
    c.RGBBox[static_cast<size_t>(n)].Text = "300";
    c.RGBBox_LostFocus(n);
    EXPECT_EQ(c.RGBBox[static_cast<size_t>(n)].Text, "255") << n;
  }

  // The interpolation's colours are in the golden file of the colours command with anchors.
  c.rgb_box(1, 2).Text = "1";

  dialogs.colours = {std::nullopt, std::nullopt, 0x123456};
  const int32_t fifth = c.ClassBox[5].BackColor, sixteenth = c.ClassBox[16].BackColor;
  c.ClassBox_Click(5);  // cancelled: nothing changes
  c.AnchorColour_Click(3);
  EXPECT_EQ(std::pair(c.ClassBox[5].BackColor, c.ClassBox[16].BackColor),
            std::pair(fifth, sixteenth));
  c.AnchorColour_Click(3);
  EXPECT_EQ(c.rgb_box(3, 0).Text + c.rgb_box(3, 1).Text + c.rgb_box(3, 2).Text, "865218");
  EXPECT_EQ(c.ClassBox[16].BackColor, 0x123456);

  ASSERT_TRUE(c.Command10_Click(settings, path("t.ini")));
  EXPECT_NE(read("t.ini").find("[PALETTE_A]\nAmplitude1=69782\nAmplitude2=2437540\n"),
            std::string::npos);
}

}  // namespace
}  // namespace tellux::testing
