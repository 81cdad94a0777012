#include "model/transform_cache.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace tellux {

namespace {

constexpr double kLog10Factor = 0.4343;         // the program's log10(e); keep it so
constexpr double kSchlumbergerStep = 1.333521;  // our rounded 10^(1/8); keep it
constexpr double kWennerStep = 0.5757;          // a rounded ln(10)/4; keep it
constexpr double kDipoleStep = 0.2302385;       // close to, but not, ln(10)/10: required as it is

int per_row(SpreadType spread) {
  return spread == SpreadType::Wenner ? TransformCache::kWennerPerRow
                                      : TransformCache::kDipolePerRow;
}

int grid_size(SpreadType spread) {
  if (spread == SpreadType::Schlumberger)
    return TransformCache::kSchlumbergerPriming + TransformCache::kMaxRows;
  return per_row(spread) * TransformCache::kMaxRows;
}

// Single precision as the language rounds it; false where that conversion overflows.
bool to_single(double v, float& out) {
  out = static_cast<float>(v);
  return !std::isnan(v) && !(std::isinf(out) && !std::isinf(v));
}

bool same_bits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

}  // namespace

void TransformCache::build_grid(SpreadType spread, int decade_start, float first_x) {
  has_grid_ = true;
  spread_ = spread;
  decade_start_ = decade_start;
  first_x_ = first_x;
  const int size = grid_size(spread);
  x_.assign(static_cast<size_t>(size), 0.f);
  valid_slots_ = size;
  if (spread == SpreadType::Schlumberger) {
    // x is multiplied by the step after each sample, rounded each time: the samples drift a
    // little from the 1/8-decade grid of the rows, by design. A step that overflows fails the
    // sample just taken.
    x_[0] = first_x;
    for (int k = 1; k < size; ++k) {
      if (!to_single(x_[static_cast<size_t>(k - 1)] * kSchlumbergerStep,
                     x_[static_cast<size_t>(k)])) {
        valid_slots_ = k - 1;
        break;
      }
    }
  } else {
    const bool wenner = spread == SpreadType::Wenner;
    const int n = per_row(spread);
    for (int row = 0; row < kMaxRows && valid_slots_ == size; ++row) {
      // The natural logarithm of the row's AB/2 as the program takes it, then the filter's base.
      const double y = (row * 0.125 + decade_start) / kLog10Factor;
      float b = 0;
      bool ok = to_single(wenner ? y + 3.3643 : y - 6.912, b);
      for (int j = 0; ok && j < n; ++j) {
        const double e = std::exp(wenner ? b - j * kWennerStep : b + j * kDipoleStep);
        ok = std::isfinite(e) && to_single(e, x_[static_cast<size_t>(row * n + j)]);
      }
      if (!ok) valid_slots_ = row * n;
    }
  }
  spacing_.resize(kMaxRows);
  for (int i = 0; i < kMaxRows; ++i)
    spacing_[static_cast<size_t>(i)] = std::pow(10.0, i * 0.125 + decade_start);
  for (LayerTerms& l : layers_) {
    l.computed = 0;
    l.tanh.resize(static_cast<size_t>(size));
    l.term.resize(static_cast<size_t>(size));
  }
  out_.resize(static_cast<size_t>(size));
}

void TransformCache::extend(LayerTerms& layer, int slots) {
  const double h = layer.thickness;
  for (int k = layer.computed; k < slots; ++k) {
    const auto at = static_cast<size_t>(k);
    const double u = h / x_[at];
    if (!std::isfinite(u)) {
      layer.term[at] = kFailed;
    } else if (u < 4.0) {
      const double e = std::exp(u);
      const double inv = 1.0 / e;
      const double T = (e - inv) / (e + inv);
      layer.tanh[at] = T;
      layer.term[at] = std::isfinite(T) ? kTanh : kFailed;  // e of 0: 1/e divides by zero
    } else {
      // At u = 4 and above the layer counts as infinitely thick: no tanh is evaluated. This
      // cut-off is a deliberate step of the method.
      layer.term[at] = kThick;
    }
  }
  if (slots > layer.computed) layer.computed = slots;
}

const double* TransformCache::samples(SpreadType spread, int decade_start, float first_x,
                                      const double* rho, const double* thickness, int layers,
                                      int slots, int& first_failed) {
  if (!has_grid_ || spread != spread_ || decade_start != decade_start_ ||
      !same_bits(first_x, first_x_))
    build_grid(spread, decade_start, first_x);
  const int usable = slots < valid_slots_ ? slots : valid_slots_;
  double* R = out_.data();
  first_failed = usable;
  for (int k = 0; k < usable; ++k) R[k] = rho[layers];
  // Bottom up, one layer over all samples at a time: the samples are independent, so the
  // processor overlaps their divisions.
  for (int i = layers - 1; i >= 1; --i) {
    LayerTerms& layer = layers_[i];
    if (!same_bits(layer.thickness, thickness[i])) {
      layer.thickness = thickness[i];
      layer.computed = 0;
    }
    if (layer.computed < usable) extend(layer, usable);
    const double r = rho[i];
    const double* T = layer.tanh.data();
    const uint8_t* term = layer.term.data();
    for (int k = 0; k < usable; ++k) {
      if (term[k] == kTanh) {
        const double q = R[k] * T[k] / r;
        const double next = (R[k] + r * T[k]) / (1.0 + q);
        // A division by zero or an overflow shows as a value that is not finite.
        if (!std::isfinite(q) || !std::isfinite(next)) first_failed = std::min(first_failed, k);
        R[k] = next;
      } else {
        if (term[k] == kFailed) first_failed = std::min(first_failed, k);
        R[k] = r;
      }
    }
  }
  return R;
}

}  // namespace tellux
