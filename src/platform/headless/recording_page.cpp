#include "platform/headless/recording_page.h"

#include "platform/headless/recording_surface.h"

namespace tellux {

std::string RecordingPage::text() const {
  std::string t;
  for (const auto& op : ops) t += op + "\n";
  return t;
}

void RecordingPage::DrawLine(double x1, double y1, double x2, double y2) {
  ops.push_back("DrawLine " + fixed_text(x1, 2) + " " + fixed_text(y1, 2) + " " +
                fixed_text(x2, 2) + " " + fixed_text(y2, 2));
}

void RecordingPage::DrawLine(double x, double y) {
  ops.push_back("DrawLine " + fixed_text(x, 2) + " " + fixed_text(y, 2));
}

void RecordingPage::PenColor(int32_t colour) {
  ops.push_back("PenColor " + std::to_string(colour));
}

void RecordingPage::PenWidth(int width) { ops.push_back("PenWidth " + std::to_string(width)); }

}  // namespace tellux
