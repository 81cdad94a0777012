#pragma once
// Where pictures leave the program: vector files of a page and the clipboard. The desktop program
// writes SVG and puts pictures on the system clipboard; tests record what was asked.
#include <string>

#include "platform/page_document.h"

namespace tellux {

class Pictures {
 public:
  virtual ~Pictures() = default;
  // Page `index` (from 0) as an SVG file, written whole or not at all; the system's reason when
  // it could not be written, else an empty text.
  virtual std::string write_page(const PageDocument& document, int index,
                                 const std::string& path) = 0;
  // Page `index` on the clipboard, as an image and as SVG.
  virtual void copy_page(const PageDocument& document, int index) = 0;
  // The screen's diagram on the clipboard as an image.
  virtual void copy_diagram() = 0;
};

}  // namespace tellux
