#pragma once
// The desktop program's application object: every event is delivered under the last guard, so
// that a run-time error that escapes its routine is reported and the program goes on.
#include <QApplication>
#include <functional>
#include <string>

namespace tellux {

class GuardedApplication : public QApplication {
 public:
  GuardedApplication(int& argc, char** argv);
  // Told of each escaped error, with its number and text; the event that raised it is dropped.
  std::function<void(int number, const std::string& text)> on_escaped_error;
  bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace tellux
