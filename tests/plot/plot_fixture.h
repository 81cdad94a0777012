#pragma once
// A headless diagram: a session with recording surfaces for the screen, the
// report page and the printer.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "model/field_rows.h"
#include "platform/headless/recording_page.h"
#include "platform/headless/recording_surface.h"
#include "plot/curve_drawing.h"
#include "session_fixture.h"
#include "synthetic_sounding.h"

namespace tellux::testing {

class PlotTest : public SessionTest {
 protected:
  void field(const std::vector<std::pair<double, double>>& rows) { set_field(s, rows); }
  // Layer rows 1..n as (resistivity, thickness); the last one is the half space.
  void model(const std::vector<Layer>& layers) { set_model(s, layers); }
  RecordingSurface screen;
  RecordingSurface printer;
  RecordingPage page;
  BilogSurfaces surfaces{&screen, &page, &printer};
};

// The operations that start with `prefix`, in order.
inline std::vector<std::string> ops_starting(const std::vector<std::string>& ops,
                                             const std::string& prefix) {
  std::vector<std::string> out;
  for (const auto& op : ops)
    if (op.rfind(prefix, 0) == 0) out.push_back(op);
  return out;
}

inline bool has_op(const std::vector<std::string>& ops, const std::string& op) {
  return std::find(ops.begin(), ops.end(), op) != ops.end();
}

// The text of a logarithm as the recording writes it.
inline std::string at(double v) { return fixed_text(static_cast<float>(v), 4); }

}  // namespace tellux::testing
