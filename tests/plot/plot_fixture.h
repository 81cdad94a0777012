#pragma once
// A headless diagram: a session with recording surfaces for the screen, the
// report page and the printer.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/headless/recording_page.h"
#include "platform/headless/recording_surface.h"
#include "plot/curve_drawing.h"
#include "session_fixture.h"
#include "synthetic_sounding.h"

namespace tellux::testing {

class PlotTest : public SessionTest {
 protected:
  // Field rows 1..n as (AB/2, resistivity).
  void field(std::initializer_list<std::pair<double, double>> rows) {
    s.FieldTable.erase();
    int n = 0;
    for (const auto& [ab, rho] : rows) {
      s.FieldTable(++n, 1) = ab;
      s.FieldTable(n, 2) = rho;
    }
    s.FieldCount = static_cast<int16_t>(n);
  }
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
