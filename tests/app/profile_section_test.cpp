// The boxes of the section's options. The section itself (logs without a thickness or a model, a
// model deeper than its spacings reach, filled logs) is compared page operation by page operation
// with the batch command's golden files.
#include "app/profile_tab.h"

#include "core/runtime/token_file.h"
#include "session_fixture.h"

namespace tellux::testing {
namespace {

using SectionTest = SessionTest;

TEST_F(SectionTest, FillSetsTheOtherBoxesAndNumbersComeEveryTenthSounding) {
  Settings settings;
  GridModel grid{51, 8};
  ProfileTab tab{session, settings, grid};
  tab.load();
  tab.Check8.Value = 1;
  tab.Check8_Click();
  EXPECT_EQ(tab.sheet.Text8.Text, "");
  EXPECT_FALSE(tab.sheet.Text8.Enabled);
  EXPECT_EQ(tab.Check9.Value, 1);
  EXPECT_EQ(tab.Check7.Value + tab.Check3.Value + tab.Check5.Value, 0);
  // Nine soundings 5 m apart: no number yet.
  const std::string one = rt::read_whole_file(TELLUX_SOURCE_DIR "/tests/data/section/S10.TX3");
  std::vector<std::string> nine;
  for (int i = 0; i < 9; ++i) {
    std::string text = one;
    text.replace(text.find("\"0\"\r\n\"0\""), 3, "\"" + std::to_string(i * 5) + "\"");
    nine.push_back(write("S" + std::to_string(10 + i) + ".TX3", text));
  }
  tab.sheet.select(nine);
  PageDocument page;
  tab.Trace_Profil(page);
  for (const PageOp& op : page.pages().at(0).ops) EXPECT_NE(op.text, "9");

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
