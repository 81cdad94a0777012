#pragma once
// Field rows 1..n as (AB/2, resistivity), in single precision as a sounding file holds them.
#include <utility>
#include <vector>

#include "core/session.h"

namespace tellux::testing {

inline void set_field(SoundingState& s, const std::vector<std::pair<double, double>>& rows) {
  s.FieldTable.erase();
  int i = 0;
  for (auto [ab, rho] : rows) {
    s.FieldTable(++i, 1) = static_cast<float>(ab);
    s.FieldTable(i, 2) = static_cast<float>(rho);
  }
  s.FieldCount = static_cast<int16_t>(i);
  s.MaxAbHalf = 1;
}

}  // namespace tellux::testing
