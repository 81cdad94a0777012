#pragma once
// The operating system's answers at start-up: the locale's decimal separator and whether another
// copy of the program runs (a lock file in the user's runtime folder, held while this copy runs).
#include <QLockFile>
#include <QString>
#include <memory>

#include "platform/system_services.h"

namespace tellux {

class QtSystemServices : public SystemServices {
 public:
  // `lock_path` empty: "tellux.lock" in the user's runtime folder (the temporary folder when
  // there is none).
  explicit QtSystemServices(QString lock_path = QString());

  std::string decimal_separator() override;
  void use_point_separator() override;
  bool another_copy_running() override;

 private:
  QString lock_path_;
  std::unique_ptr<QLockFile> lock_;
};

}  // namespace tellux
