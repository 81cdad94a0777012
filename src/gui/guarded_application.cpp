#include "gui/guarded_application.h"

#include <cstdio>

#include "core/runtime/error_report.h"

namespace tellux {

GuardedApplication::GuardedApplication(int& argc, char** argv) : QApplication(argc, argv) {}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    const rt::ErrorReport error = rt::report_of_current_error();
    try {
      if (on_escaped_error) on_escaped_error(error.number, error.text);
    } catch (...) {
      // The report failed in turn: the terminal keeps the error; the program goes on.
      std::fprintf(stderr, "tellux: run-time error %d: %s\n", error.number, error.text.c_str());
    }
    return false;
  }
}

}  // namespace tellux
