#pragma once
// Other programs on the desktop: the PDF viewer, the calculator, a program started with a file,
// and the program's own view of a PDF for when no viewer is installed.
#include "app/help.h"

class QWidget;

namespace tellux {

class DesktopPrograms : public Programs {
 public:
  explicit DesktopPrograms(QWidget* parent) : parent_(parent) {}
  std::string pdf_viewer() override;
  std::string calculator() override;
  bool start(const std::string& program, const std::string& argument) override;
  void show_pdf(const std::string& path) override;

 private:
  QWidget* parent_;
};

}  // namespace tellux
