#pragma once
// Other programs on the desktop: the PDF viewer, the calculator, a program started with a file,
// and the program's own view of the manual, which opens at the page of a section.
#include "app/help.h"

#include <QPointer>

#include "gui/manual_view.h"

class QWidget;

namespace tellux {

class DesktopPrograms : public Programs {
 public:
  explicit DesktopPrograms(QWidget* parent) : parent_(parent) {}
  std::string pdf_viewer() override;
  std::string calculator() override;
  bool start(const std::string& program, const std::string& argument) override;
  bool show_pdf(const std::string& path, const ManualPlace& place) override;
  // The program's view of the manual, while it is open.
  ManualView* manual_view() const { return view_; }

 private:
  QWidget* parent_;
  QPointer<ManualView> view_;
};

}  // namespace tellux
