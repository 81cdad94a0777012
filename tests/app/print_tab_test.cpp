// The tab "Print Bilog": copies, first page, the page read-out and the zoom lists.
#include "app/print_tab.h"

#include "session_fixture.h"

namespace tellux::testing {
namespace {

class PrintTabTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    s.FileName = "P.TX3";
    tab.print_pages = [this](int from, int to) {
      printed.push_back(std::to_string(from) + "-" + std::to_string(to));
      return 0;
    };
  }
  Settings settings;
  PageDocument page;
  PrintTab tab{session, settings, page};
  std::vector<std::string> printed;
};

TEST_F(PrintTabTest, CopiesAreAskedAboutAndAnEmptyDocumentPrintsNothing) {
  tab.cmdPrint_Click();  // no document yet
  EXPECT_TRUE(printed.empty());
  tab.display_print();
  ASSERT_EQ(page.PageCount(), 2);
  EXPECT_EQ(tab.lblpage.Caption, "1 of 2");
  const struct {
    const char* copies;
    std::vector<Answer> answers;
    bool first_only;
    std::vector<std::string> printed;
  } cases[] = {
      {"1", {}, false, {"1-2"}},
      {"2.7", {Answer::Yes}, false, {"1-2", "1-2"}},
      {"3", {Answer::No}, true, {"1-1"}},
      {"x", {}, false, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.copies);
    printed.clear();
    dialogs.messages.clear();
    dialogs.answers.assign(c.answers.begin(), c.answers.end());
    tab.Text23.Text = c.copies;
    tab.First_page.Value = c.first_only ? 1 : 0;
    tab.cmdPrint_Click();
    EXPECT_EQ(printed, c.printed);
    EXPECT_EQ(dialogs.messages.size(), c.answers.size());
    if (!c.answers.empty()) {  // the whole number of copies
      EXPECT_EQ(dialogs.texts()[0],
                "Do you really want to print " + std::string(1, c.copies[0]) + " copies ?");
    }
  }
}

TEST_F(PrintTabTest, ZoomModesAndANewSheetRebuildTheReport) {
  tab.display_print();
  EXPECT_EQ(page.Zoom, 100);
  tab.cmbPercent.ListIndex(5);
  tab.cmbPercent_Click();
  EXPECT_EQ(page.Zoom, 200);
  tab.cmbZoomMode.ListIndex(2);  // two pages
  tab.cmbZoomMode_Click();
  EXPECT_FALSE(tab.cmbPercent_Enabled);
  EXPECT_EQ(tab.lblpage.Caption, "1 - 2 of 2");
  tab.print_dialog = [this](int kind) {
    if (kind == 1) std::swap(page.PageWidth, page.PageHeight);
  };
  tab.cmdPageSetup_Click();  // the sheet lies on its side: the text moves to a page of its own
  tab.scrlpage_Change(3);
  EXPECT_EQ(tab.lblpage.Caption, "3 - 3 of 3");
  tab.cmdPageSetup_Click();  // upright again: the page shown comes back into the document
  EXPECT_EQ(page.PreviewPage, 2);
  EXPECT_EQ(tab.lblpage.Caption, "2 - 2 of 2");
  // Margins changed in the page setup become the report's.
  tab.print_dialog = [this](int) { page.MarginLeft = 2000.4; };
  tab.cmdPageSetup_Click();
  EXPECT_EQ(settings.LeftMargin, 2000);
  EXPECT_EQ(s.PlotOriginX, 2000);
}

}  // namespace
}  // namespace tellux::testing
