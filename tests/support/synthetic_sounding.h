#pragma once
// Field data made from a known layered model: the model's curve is computed by the forward
// calculation, then read off at typical AB/2 spacings by the same linear interpolation that the
// misfit uses, optionally with a small deterministic noise. Values are stored in single precision,
// as a sounding file would give them.
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

#include "core/session.h"
#include "model/forward.h"

namespace tellux::testing {

struct Layer {
  double rho;
  double thickness;  // ignored for the last layer
};

// `count` spacings at ten to the decade from 1 m, each rounded to one decimal: 1, 1.3, 1.6, 2, ...
inline std::vector<double> typical_spacings(int count) {
  std::vector<double> ab;
  for (int k = 0; k < count; ++k) ab.push_back(std::round(std::pow(10.0, k / 10.0) * 10.0) / 10.0);
  return ab;
}

inline void set_model(SoundingState& s, const std::vector<Layer>& layers) {
  s.LayerModel.erase();
  s.LayerLocks.erase();
  int i = 0;
  for (const Layer& l : layers) {
    ++i;
    s.LayerModel(i, 1) = l.rho;
    s.LayerModel(i, 2) = i == static_cast<int>(layers.size()) ? 0.0 : l.thickness;
  }
  s.LayerCount = static_cast<int16_t>(i);
}

// Fills FieldTable rows 1..spacings.size() with the model's apparent resistivity; `noise` is the
// relative size of a fixed ripple (0 for none). Leaves the model in LayerModel and the curve
// computed.
inline void make_sounding(Session& session, const std::vector<Layer>& layers,
                          const std::vector<double>& spacings, double noise = 0.0) {
  SoundingState& s = session.s;
  s.FieldTable.erase();
  s.FieldCount = static_cast<int16_t>(spacings.size());
  for (int r = 1; r <= s.FieldCount; ++r)
    std::tie(s.FieldTable(r, 1), s.FieldTable(r, 2)) = std::tuple(float(spacings[r - 1]), 1.0f);
  std::tie(s.MaxAbHalf, s.SuperposeCurve, s.FitMisfit) = std::tuple(1, -1, int16_t{0});
  set_model(s, layers);
  ForwardCurve(session);
  int k = 0;
  for (int r = 1; r <= s.FieldCount; ++r) {
    const double a = spacings[r - 1];
    while (s.ModelCurve(k + 1, 2).num() <= a) ++k;
    const double a0 = s.ModelCurve(k, 2).num(), a1 = s.ModelCurve(k + 1, 2).num();
    const double r0 = s.ModelCurve(k, 1).num(), r1 = s.ModelCurve(k + 1, 1).num();
    const double ripple = 1.0 + noise * std::sin(7.0 * r);
    s.FieldTable(r, 2) = s.FieldTable(r, 7) =
        float((r0 + (r1 - r0) * (a - a0) / (a1 - a0)) * ripple);
  }
}

}  // namespace tellux::testing
