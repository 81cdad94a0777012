#pragma once
// A page surface for tests: each operation is kept as one line of text, positions in twips to
// two decimals ("DrawLine 1134.00 9000.50 1134.00 9000.50", "PenColor 255", "PenWidth 18").
#include <string>
#include <vector>

#include "platform/page_surface.h"

namespace tellux {

class RecordingPage : public PageSurface {
 public:
  std::vector<std::string> ops;
  std::string text() const;

  void DrawLine(double x1, double y1, double x2, double y2) override;
  void DrawLine(double x, double y) override;
  void PenColor(int32_t colour) override;
  void PenWidth(int width) override;
};

}  // namespace tellux
