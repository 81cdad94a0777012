// The tab "Print Bilog" with the toolkit's printer, on the offscreen platform: a printer that
// cannot begin says what to do and is released, so that printing to a PDF file works next; on
// Letter paper a decade is as long across as up in what is painted.
#include "gui/print_widget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileInfo>
#include <QPushButton>
#include <QTemporaryDir>

#include "platform/headless/scripted_dialogs.h"
#include "platform/qt/qt_page_painter.h"

namespace tellux {
namespace {

TEST(PrintWidget, WithoutAPrinterThenToAPdfOnLetter) {
  int argc = 1;
  char name[] = "tests", *argv[] = {name, nullptr};
  QApplication app(argc, argv);
  SoundingState s;
  ScriptedDialogs dialogs;
  Forms forms;
  Session session{s, dialogs, forms};
  Settings settings;
  PageDocument page;
  PrintTab tab(session, settings, page);
  PrintWidget widget(tab, page);
  tab.display_print();

  widget.printer().setOutputFormat(QPrinter::PdfFormat);  // no printer, no file
  widget.print_button()->click();
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{
                                 "The VSPrinter control raised the Error event with the 1 code.\n\n"
                                 "Printing could not begin: no printer is ready. Choose a printer, "
                                 "or \"Print to File (PDF)\", in \"Printer setup\", then print "
                                 "again."});

  // What "Print to File (PDF)" of the printer setup does, on Letter.
  const QTemporaryDir dir;
  const QString pdf = dir.filePath(QStringLiteral("report.pdf"));
  widget.printer().setOutputFormat(QPrinter::PdfFormat);
  widget.printer().setOutputFileName(pdf);
  widget.printer().setPageSize(QPageSize(QPageSize::Letter));
  widget.print_button()->click();
  EXPECT_EQ(dialogs.messages.size(), 1u);
  EXPECT_GT(QFileInfo(pdf).size(), 1000);
  EXPECT_EQ(std::pair(page.PageWidth, page.PageHeight), std::pair(12240.0, 15840.0));
  // The sheet is painted with one factor both ways, and a decade is as long across as up.
  const QRectF sheet = sheet_on_printer(page, widget.printer());
  EXPECT_DOUBLE_EQ(sheet.width() / page.PageWidth, sheet.height() / page.PageHeight);
  std::vector<double> across, up;  // the decade lines
  for (const PageOp& op : page.pages()[0].ops) {
    if (op.kind != PageOp::Kind::Line || op.pen.width != 10) continue;
    if (op.points[0] == op.points[2]) across.push_back(op.points[0]);
    if (op.points[1] == op.points[3]) up.push_back(op.points[1]);
  }
  ASSERT_TRUE(across.size() > 1 && up.size() > 1);
  EXPECT_DOUBLE_EQ(across[1] - across[0], up[1] - up[0]);
  EXPECT_DOUBLE_EQ(across[1] - across[0], (12240 - 2 * 1134 - 20 * 56.7) / 5);
}

}  // namespace
}  // namespace tellux
