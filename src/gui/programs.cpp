#include "gui/programs.h"

#include <QDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPdfDocument>
#include <QPdfView>
#include <QProcess>
#include <QStandardPaths>
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

void DesktopPrograms::show_pdf(const std::string& path) {
  const QString file = QString::fromStdString(path);
  if (!QFileInfo::exists(file)) {
    QMessageBox::warning(parent_, QStringLiteral("Tellux 6.4"),
                         QStringLiteral("The manual %1 is not installed.").arg(file));
    return;
  }
  auto* dialog = new QDialog(parent_);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowTitle(QFileInfo(file).fileName());
  auto* document = new QPdfDocument(dialog);
  document->load(file);
  auto* view = new QPdfView(dialog);
  view->setDocument(document);
  view->setPageMode(QPdfView::PageMode::MultiPage);
  view->setZoomMode(QPdfView::ZoomMode::FitToWidth);
  auto* layout = new QVBoxLayout(dialog);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(view);
  dialog->resize(820, 900);
  dialog->show();
}

}  // namespace tellux
