#include "gui/programs.h"

#include <QDialog>
#include <QFileInfo>
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPdfView>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>
#include <QVBoxLayout>

namespace tellux {

namespace {

std::string first_found(std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const QString path = QStandardPaths::findExecutable(QLatin1String(name));
    if (!path.isEmpty()) return path.toStdString();
  }
  return {};
}

}  // namespace

std::string DesktopPrograms::pdf_viewer() {
  // The desktop's choice for PDF files, else a viewer found on the path.
  QProcess query;
  query.start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"),
                                           QStringLiteral("application/pdf")});
  if (query.waitForFinished(2000) && !query.readAllStandardOutput().trimmed().isEmpty())
    return first_found({"xdg-open"});
  return first_found({"evince", "okular", "atril", "xreader", "qpdfview", "mupdf", "zathura"});
}

std::string DesktopPrograms::calculator() {
  return first_found(
      {"gnome-calculator", "kcalc", "galculator", "qalculate-gtk", "mate-calc", "xcalc"});
}

bool DesktopPrograms::start(const std::string& program, const std::string& argument) {
  QStringList arguments;
  if (!argument.empty()) arguments << QString::fromStdString(argument);
  return QProcess::startDetached(QString::fromStdString(program), arguments);
}

bool DesktopPrograms::show_pdf(const std::string& path, int page) {
  const QString file = QString::fromStdString(path);
  // One view of the manual: Help again turns its page.
  if (!view_ || view_->property("file").toString() != file) {
    delete view_.data();
    auto* dialog = new QDialog(parent_);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("manual"));
    dialog->setWindowTitle(QFileInfo(file).fileName());
    auto* document = new QPdfDocument(dialog);
    if (document->load(file) != QPdfDocument::Error::None) {
      delete dialog;
      return false;
    }
    auto* pdf = new QPdfView(dialog);
    pdf->setObjectName(QStringLiteral("view"));
    pdf->setDocument(document);
    pdf->setPageMode(QPdfView::PageMode::MultiPage);
    pdf->setZoomMode(QPdfView::ZoomMode::FitToWidth);
    auto* layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(pdf);
    dialog->setProperty("file", file);
    dialog->resize(820, 900);
    view_ = dialog;
  }
  view_->show();
  view_->raise();
  auto* pdf = view_->findChild<QPdfView*>(QStringLiteral("view"));
  const int index = std::max(0, page - 1);
  pdf->pageNavigator()->jump(index, QPointF(), pdf->zoomFactor());
  // Once the view is laid out, the page stands at its top.
  QTimer::singleShot(0, pdf, [pdf, index] {
    pdf->pageNavigator()->jump(index, QPointF(), pdf->zoomFactor());
  });
  return true;
}

}  // namespace tellux
