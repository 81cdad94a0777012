#include "platform/qt/qt_dialogs.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QScreen>
#include <QStringList>
#include <algorithm>

#include "platform/qt/qt_drawing_surface.h"

namespace tellux {

namespace {

QString text_of(const std::string& s) {
  QString t = QString::fromStdString(s);
  t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  return t;
}

QMessageBox::Icon icon_of(Icon icon) {
  switch (icon) {
    case Icon::Critical:
      return QMessageBox::Critical;
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::Exclamation:
      return QMessageBox::Warning;
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttons_of(Buttons buttons) {
  switch (buttons) {
    case Buttons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::Ok:
      break;
  }
  return QMessageBox::Ok;
}

// The proposed name may carry a folder; a bare name goes into the start folder.
QString proposed_path(const QString& dir, const std::string& proposed) {
  const QString name = QString::fromStdString(proposed);
  if (name.isEmpty() || name.startsWith(QLatin1Char('*'))) return dir;
  if (QFileInfo(name).isAbsolute()) return name;
  return QDir(dir).filePath(name);
}

}  // namespace

QString qt_file_filter(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
  QStringList out;
  for (int i = 0; i + 1 < parts.size(); i += 2) {
    QString caption = parts[i];
    const QString patterns = parts[i + 1];
    // Qt reads the patterns from the parentheses of the caption: make sure they are there.
    if (!caption.contains(QLatin1Char('(')))
      caption += QStringLiteral(" (") +
                 QString(patterns).replace(QLatin1Char(';'), QLatin1Char(' ')) + QLatin1Char(')');
    out << caption;
  }
  if (out.isEmpty() && !filter.empty()) out << QString::fromStdString(filter);
  return out.join(QStringLiteral(";;"));
}

Answer QtDialogs::show_message(const std::string& text, Buttons buttons, Icon icon,
                               const std::string& title) {
  QMessageBox box(icon_of(icon), QString::fromStdString(title), text_of(text), buttons_of(buttons),
                  parent_);
  switch (box.exec()) {
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    case QMessageBox::Cancel:
      return Answer::Cancel;
    default:
      // A box closed by its title bar: Cancel where there is one, else the box's only answer.
      if (buttons == Buttons::YesNo) return Answer::No;
      return buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel;
  }
}

std::optional<std::vector<std::string>> QtDialogs::show_open_files(
    const FileDialogRequest& request) {
  const QString title = QString::fromStdString(request.title);
  const QString filter = qt_file_filter(request.filter);
  const QString start = dir_.isEmpty() ? QDir::homePath() : dir_;
  QStringList chosen;
  if (request.multiple) {
    chosen = QFileDialog::getOpenFileNames(parent_, title, start, filter);
  } else {
    const QString one = QFileDialog::getOpenFileName(parent_, title, start, filter);
    if (!one.isEmpty()) chosen << one;
  }
  if (chosen.isEmpty()) return std::nullopt;
  dir_ = QFileInfo(chosen.front()).absolutePath();
  std::vector<std::string> out;
  for (const QString& c : chosen) out.push_back(QDir::toNativeSeparators(c).toStdString());
  return out;
}

std::optional<std::string> QtDialogs::show_save_file(const FileDialogRequest& request) {
  const QString start = dir_.isEmpty() ? QDir::homePath() : dir_;
  QFileDialog::Options options;
  if (!request.overwrite_prompt) options |= QFileDialog::DontConfirmOverwrite;
  const QString chosen = QFileDialog::getSaveFileName(
      parent_, QString::fromStdString(request.title), proposed_path(start, request.proposed),
      qt_file_filter(request.filter), nullptr, options);
  if (chosen.isEmpty()) return std::nullopt;
  dir_ = QFileInfo(chosen).absolutePath();
  return QDir::toNativeSeparators(chosen).toStdString();
}

std::optional<std::string> QtDialogs::show_input(const std::string& prompt,
                                                 const std::string& title,
                                                 const std::string& initial) {
  QInputDialog dialog(parent_);
  dialog.setWindowTitle(QString::fromStdString(title));
  dialog.setLabelText(text_of(prompt));
  dialog.setTextValue(QString::fromStdString(initial));
  // Wide enough for the whole of the proposed text (a path, most often), within the screen.
  const int wanted = dialog.fontMetrics().horizontalAdvance(dialog.textValue()) + 80;
  const QScreen* screen = parent_ ? parent_->screen() : QGuiApplication::primaryScreen();
  const int room = screen ? screen->availableGeometry().width() * 9 / 10 : 1000;
  dialog.resize(std::clamp(wanted, dialog.sizeHint().width(), std::max(room, 300)),
                dialog.sizeHint().height());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.textValue().toStdString();
}

std::optional<int> QtDialogs::show_colour(const std::string& title, int initial) {
  const QColor c =
      QColorDialog::getColor(to_qcolor(initial), parent_, QString::fromStdString(title));
  if (!c.isValid()) return std::nullopt;
  return c.red() + 256 * c.green() + 65536 * c.blue();
}

}  // namespace tellux
