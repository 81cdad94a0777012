#include "platform/qt/qt_system.h"

#include <QDir>
#include <QLocale>
#include <QStandardPaths>

namespace tellux {

QtSystemServices::QtSystemServices(QString lock_path) : lock_path_(std::move(lock_path)) {
  if (lock_path_.isEmpty()) {
    QString dir = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (dir.isEmpty()) dir = QDir::tempPath();
    lock_path_ = QDir(dir).filePath(QStringLiteral("tellux.lock"));
  }
}

std::string QtSystemServices::decimal_separator() {
  return QLocale::system().decimalPoint().toStdString();
}

// The separator is changed for this program only: we do not change the user's system settings.
// Qt's default locale is one with a point; the program's files always have the point anyway.
void QtSystemServices::use_point_separator() { QLocale::setDefault(QLocale::c()); }

bool QtSystemServices::another_copy_running() {
  if (lock_ && lock_->isLocked()) return false;  // this copy holds the lock
  lock_ = std::make_unique<QLockFile>(lock_path_);
  lock_->setStaleLockTime(0);  // a lock left by a crashed copy is taken over by its process id
  return !lock_->tryLock(0);
}

}  // namespace tellux
