#pragma once
// The page surface of the report (`VSPrint`): positions in twips on the page, ordinate growing
// downward. This is the part the curve drawing needs: lines and the pen.
#include <cstdint>

namespace tellux {

class PageSurface {
 public:
  virtual ~PageSurface() = default;
  // A straight line from (x1, y1) to (x2, y2); its end becomes the last point.
  virtual void DrawLine(double x1, double y1, double x2, double y2) = 0;
  // From the last point to (x, y).
  virtual void DrawLine(double x, double y) = 0;
  // Pen of lines and outlines: colour (red + 256 x green + 65536 x blue) and width in twips.
  virtual void PenColor(int32_t colour) = 0;
  virtual void PenWidth(int width) = 0;
};

}  // namespace tellux
