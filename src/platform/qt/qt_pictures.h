#pragma once
// Pictures on the desktop: SVG files of a page and the system clipboard.
#include <QImage>
#include <functional>

#include "platform/pictures.h"

namespace tellux {

class QtPictures : public Pictures {
 public:
  // `diagram` gives the screen's diagram as it stands.
  explicit QtPictures(std::function<QImage()> diagram) : diagram_(std::move(diagram)) {}

  std::string write_page(const PageDocument& document, int index, const std::string& path) override;
  void copy_page(const PageDocument& document, int index) override;
  void copy_diagram() override;

 private:
  std::function<QImage()> diagram_;
};

}  // namespace tellux
