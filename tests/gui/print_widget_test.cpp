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
  static int argc = 1;
  static char name[] = "tests";
  static char* argv[] = {name, nullptr};
  static QApplication* app = new QApplication(argc, argv);
  (void)app;
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
  widget.printer().setOutputFileName(QString());
  widget.print_button()->click();
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_NE(dialogs.texts()[0].find("\"Print to File (PDF)\""), std::string::npos);

  // What "Print to File (PDF)" of the printer setup does, on Letter.
  const QTemporaryDir dir;
  const QString pdf = dir.filePath(QStringLiteral("report.pdf"));
  widget.printer().setOutputFormat(QPrinter::PdfFormat);
  widget.printer().setOutputFileName(pdf);
  widget.printer().setPageSize(QPageSize(QPageSize::Letter));
  widget.print_button()->click();
  EXPECT_EQ(dialogs.messages.size(), 1u);
  EXPECT_GT(QFileInfo(pdf).size(), 1000);
  EXPECT_NEAR(page.PageWidth, 12240, 1);
  EXPECT_NEAR(page.PageHeight, 15840, 1);
  const QRectF sheet = sheet_on_printer(page, widget.printer());
  EXPECT_DOUBLE_EQ(sheet.width() / page.PageWidth, sheet.height() / page.PageHeight);
}

}  // namespace
}  // namespace tellux
