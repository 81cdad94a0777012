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

// The document takes the printer's paper before it prints, and a decade keeps its length across
// and up; a printer that cannot begin gets the box that says what to do, once.
TEST_F(PrintTabTest, PrintingOnOtherPaperAndWithoutAPrinter) {
  tab.display_print();
  tab.paper = [] { return std::pair(12240.0, 15840.0); };  // Letter
  tab.cmdPrint_Click();
  EXPECT_EQ(printed, std::vector<std::string>{"1-2"});
  EXPECT_EQ(std::pair(page.PageWidth, page.PageHeight), std::pair(12240.0, 15840.0));
  std::vector<double> across, up;  // the decade lines
  for (const PageOp& op : page.pages()[0].ops) {
    if (op.kind != PageOp::Kind::Line || op.pen.width != 10) continue;
    if (op.points[0] == op.points[2]) across.push_back(op.points[0]);
    if (op.points[1] == op.points[3]) up.push_back(op.points[1]);
  }
  ASSERT_TRUE(across.size() > 1 && up.size() > 1);
  EXPECT_DOUBLE_EQ(across[1] - across[0], up[1] - up[0]);
  EXPECT_DOUBLE_EQ(across[1] - across[0], (12240 - 2 * 1134 - 20 * 56.7) / 5);

  tab.print_pages = [this](int, int) {
    printed.push_back("refused");
    return 1;
  };
  printed.clear();
  tab.Text23.Text = "2";
  dialogs.answers = {Answer::Yes};
  tab.cmdPrint_Click();
  EXPECT_EQ(printed, std::vector<std::string>{"refused"});
  EXPECT_EQ(dialogs.texts().back(),
            "The VSPrinter control raised the Error event with the 1 code.\n\nPrinting could not "
            "begin: no printer is ready. Choose a printer, or \"Print to File (PDF)\", in "
            "\"Printer setup\", then print again.");
}

}  // namespace
}  // namespace tellux::testing
