#pragma once
// What the commands that write pictures and pages need of the toolkit: its GUI application object
// (fonts, painting), on the offscreen platform when there is no display.
#include <QGuiApplication>
#include <memory>

namespace tellux::cli {

class PictureToolkit {
 public:
  PictureToolkit();
  ~PictureToolkit();

 private:
  int argc_ = 1;
  char name_[11] = "tellux-cli";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QGuiApplication> app_;
};

}  // namespace tellux::cli

#include <string>

namespace tellux {
class PageDocument;
}

namespace tellux::cli {

// Where the pages of a report or a section go; empty paths are not written.
struct PageOutputs {
  std::string pdf, svg, png, ops;
};

// Writes every page to the PDF, page n to OUT-n.svg / OUT-n.png (page 1 to OUT itself) and the
// operations to OPS. False, each failure named on standard error, when something was not written.
bool write_page_outputs(const PageDocument& page, const PageOutputs& out);

}  // namespace tellux::cli
