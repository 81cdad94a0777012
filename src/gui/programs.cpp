#include "gui/programs.h"

#include <QProcess>
#include <QStandardPaths>

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

bool DesktopPrograms::show_pdf(const std::string& path, const ManualPlace& place) {
  const QString file = QString::fromStdString(path);
  // One view of the manual: Help again turns its page.
  if (!view_ || view_->file() != file) {
    delete view_.data();
    auto* view = new ManualView(file, parent_);
    view->setAttribute(Qt::WA_DeleteOnClose);
    if (!view->loaded()) {
      delete view;
      return false;
    }
    view_ = view;
  }
  view_->show();
  view_->raise();
  view_->go_to(place.page, place.top);
  return true;
}

}  // namespace tellux
