// The boxes of the section's options, the typed values of the table and "Fit the page". The
// section itself (logs without a thickness or a model, a
// model deeper than its spacings reach, filled logs) is compared page operation by page operation
// with the batch command's golden files.
#include "app/picture_export.h"
#include "app/profile_tab.h"

#include "core/runtime/token_file.h"
#include "profile/page_fit.h"
#include "session_fixture.h"

namespace tellux::testing {
namespace {

using SectionTest = SessionTest;

// The smallest scale of 1, 2, 2.5, 5 times a power of ten that fits whole millimetres of room.
TEST(PageFitTest, SmallestScaleOfTheSeriesThatFits) {
  const std::tuple<double, double, int32_t> cases[] = {
      {100, 200, 500}, {100, 150.9, 1000}, {100, 45, 2500}, {1, 450, 5},
      {1, 500, 2},     {100, 0.5, 0},      {0, 100, 0},     {1e12, 100, 0}};
  for (auto [metres, room, scale] : cases)
    EXPECT_EQ(fitting_scale(metres, room), scale) << metres << " m in " << room << " mm";
}

// " Fill" clears the labels for numbers and empties the log width; the name and the number
// exclude each other. A typed Z or distance moves the page size; other cells and other texts are
// refused. "Fit the page" types the scale that fits in a scale too big and keeps one that fits.
// (The warnings with their scales, the numbers of the filled logs and the legend's unit written
// once are in the golden files of the section.)
TEST_F(SectionTest, BoxesRunTheirRulesTypedValuesMoveThePageSizeAndFitThePageFits) {
  Settings settings;
  GridModel grid{51, 8};
  ProfileTab tab{session, settings, grid};
  tab.load();
  // The pictures of a section not drawn yet say what is missing.
  EXPECT_FALSE(section_drawn(session, PageDocument{}));
  EXPECT_EQ(dialogs.texts().at(0).substr(0, 31), "First, you must load SEV files\r");
  tab.Check8.Value = 1;
  tab.Check8_Click();
  EXPECT_EQ(std::tuple(tab.sheet.Text8.Text, tab.sheet.Text8.Enabled, tab.Check9.Value,
                       tab.Check7.Value + tab.Check3.Value + tab.Check5.Value),
            std::tuple("", false, 1, 0));
  tab.Check8.Value = 0;
  tab.Check8_Click();
  EXPECT_TRUE(tab.sheet.Text8.Enabled && tab.Check7.Value == 1);
  tab.Check9.Value = 1;
  tab.Check9_Click();
  EXPECT_EQ(tab.Check7.Value, 0);

  const std::string line = TELLUX_TEST_DATA "/profile/L1_0";
  tab.sheet.select({line + "1.TX3", line + "2.TX3"});
  for (auto [row, col, text] : {std::tuple(2, 6, "12a"), std::tuple(2, 2, "5"),
                                std::tuple(3, 6, "5"), std::tuple(2, 6, "&H10")})
    EXPECT_FALSE(tab.SEV_Grid_Edit(row, col, text)) << row << " " << col << " " << text;
  EXPECT_TRUE(tab.SEV_Grid_Edit(2, 6, " 1000 "));
  EXPECT_EQ(grid.text(2, 6) + " " + tab.sheet.Text5.Text, "1000 4000");  // 1000 m at 1/250
  const std::string height = tab.sheet.Text6.Text;
  tab.sheet.Text14.Text = "0";  // a scale of 0 keeps the page size
  EXPECT_TRUE(tab.SEV_Grid_Edit(1, 4, "900"));
  EXPECT_EQ(tab.sheet.Text5.Text, "4000");
  EXPECT_NE(tab.sheet.Text6.Text, height);
  tab.sheet.Text14.Text = "250";

  PageDocument page;  // upright A4, margins of 20 mm: 110 mm of room beside the legend
  tab.section_page = &page;
  tab.sheet.Text13.Text = "100000";  // the height fits and keeps its scale
  tab.Text13_Change();
  tab.Fit_Page_Click();
  EXPECT_EQ(tab.sheet.Text14.Text + " " + tab.sheet.Text13.Text + " " + tab.sheet.Text5.Text,
            "10000 100000 100");
}

}  // namespace
}  // namespace tellux::testing
