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
