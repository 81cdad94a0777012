// Builds the user's manuals, Manual/TELLUX6_US.PDF, TELLUX6_FR.PDF and TELLUX6_ES.PDF, from the
// text in manual/ and from pictures of the program itself: its windows on the offscreen
// platform with the bundled samples open, the report page and a section.
//   tellux-make-manual SOURCE_DIR OUT_DIR
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPushButton>
#include <QTabWidget>
#include <QTextDocument>
#include <cstdio>

#include "app/application.h"
#include "gui/main_window.h"
#include "gui/model_window_view.h"
#include "gui/profile_widget.h"
#include "gui/qt_forms.h"
#include "gui/splash_window.h"
#include "platform/headless/scripted_dialogs.h"
#include "platform/qt/qt_page_painter.h"

namespace {

using namespace tellux;

struct Desktop : SystemServices {};

// One run of the program, drawn offscreen, with the pictures taken on the way.
void take_pictures(const QString& source, const QString& pictures) {
  ScriptedDialogs dialogs;
  Desktop system;
  QtForms forms;
  QtDrawingSurface bilog(657, 406);
  Application app(dialogs, forms, bilog, system, (pictures + "/manual.ini").toStdString());
  MainWindow window(app, bilog, forms);
  window.resize(1100, 760);
  if (!window.start()) return;
  window.splash()->hide();
  app.frmSplash.visible = false;
  const auto shot = [&](const char* name) {
    QApplication::processEvents();
    window.grab().save(pictures + "/" + name + ".png");
  };
  dialogs.open_choices = {{(source + "/samples/three_layers.TX3").toStdString()}};
  window.action(QStringLiteral("open"))->trigger();
  window.resize(1101, 760);  // the resize draws the model's curve
  shot("bilog");
  for (QWidget* w : QApplication::allWidgets())
    if (w->objectName() == QStringLiteral("model") && w->isVisible())
      w->grab().save(pictures + "/model.png");
  const std::pair<int, const char*> tabs[] = {{1, "sheet"}, {3, "setup"}, {2, "print"}};
  for (const auto& [tab, name] : tabs) {
    window.tabs()->setCurrentIndex(tab);
    shot(name);
  }
  write_png(app.VSPrint, 0, pictures + "/report.png", 80);
  const std::string line = (source + "/tests/data/profile/L1_0").toStdString();
  std::vector<std::string> files;
  for (int i = 1; i <= 6; ++i) files.push_back(line + std::to_string(i) + ".TX3");
  dialogs.open_choices = {files};
  window.tabs()->setCurrentIndex(4);
  window.profile()->select_button()->click();
  app.profile.sheet.Text14.Text = "2500";
  app.profile.sheet.Text13.Text = "500";
  app.profile.Text14_Change();
  shot("profile");
  app.profile.Text10.Text = "Line L1";
  window.tabs()->setCurrentIndex(5);
  write_png(app.VSPrint1, 0, pictures + "/section.png", 80);
  window.tabs()->setCurrentIndex(0);
}

bool write_manual(const QString& html_path, const QString& pictures, const QString& pdf_path) {
  QFile file(html_path);
  if (!file.open(QIODevice::ReadOnly)) return false;
  QTextDocument document;
  // The pictures by their names, as the text refers to them.
  for (const QString& name : QDir(pictures).entryList({QStringLiteral("*.png")}))
    document.addResource(QTextDocument::ImageResource, QUrl(name), QImage(pictures + "/" + name));
  QFont font(QStringLiteral("Liberation Sans"));
  font.setPointSizeF(10.5);
  document.setDefaultFont(font);
  document.setHtml(QString::fromUtf8(file.readAll()));
  QPdfWriter pdf(pdf_path);
  pdf.setResolution(96);  // the text and the pictures are laid out at 96 dots to the inch
  pdf.setPageSize(QPageSize(QPageSize::A4));
  pdf.setPageMargins(QMarginsF(18, 16, 18, 16), QPageLayout::Millimeter);
  pdf.setTitle(QStringLiteral("Tellux 6.4"));
  pdf.setCreator(QStringLiteral("Tellux 6.4"));
  QPainter painter(&pdf);
  const QRect area = pdf.pageLayout().paintRectPixels(pdf.resolution());
  // Room for the page number under the text.
  const QSizeF page(area.width(), area.height() - 30);
  document.setPageSize(page);
  const int pages = document.pageCount();
  for (int i = 0; i < pages; ++i) {
    if (i > 0) pdf.newPage();
    painter.save();
    painter.translate(0, -i * page.height());
    document.drawContents(&painter, QRectF(0, i * page.height(), page.width(), page.height()));
    painter.restore();
    painter.setFont(QFont(QStringLiteral("Liberation Sans"), 8));
    painter.drawText(QRectF(0, page.height(), page.width(), 30), Qt::AlignCenter,
                     QString::number(i + 1));
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: tellux-make-manual SOURCE_DIR OUT_DIR\n");
    return 2;
  }
  QApplication qt(argc, argv);
  const QString source = QString::fromLocal8Bit(argv[1]);
  const QString out = QString::fromLocal8Bit(argv[2]);
  const QString pictures = out + "/pictures";
  QDir().mkpath(pictures);
  take_pictures(source, pictures);
  const std::pair<const char*, const char*> manuals[] = {{"manual_en.html", "TELLUX6_US.PDF"},
                                                         {"manual_fr.html", "TELLUX6_FR.PDF"},
                                                         {"manual_es.html", "TELLUX6_ES.PDF"}};
  int failed = 0;
  for (const auto& [html, pdf] : manuals) {
    if (!write_manual(source + "/manual/" + html, pictures, out + "/" + pdf)) {
      std::fprintf(stderr, "tellux-make-manual: cannot read %s\n", html);
      ++failed;
    }
  }
  return failed;
}
