#include "model/transform_cache.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>  // two doubles at a time; every x86-64 processor has it
#endif

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

#if defined(__SSE2__)
// Bit i set when lane i is not finite (x - x is 0 for a finite x only).
int not_finite(__m128d x) {
  const __m128d d = _mm_sub_pd(x, x);
  return _mm_movemask_pd(_mm_cmpneq_pd(d, _mm_setzero_pd()));
}
#endif

// The tanh of a layer from e = exp(u), as (e - 1/e) / (e + 1/e); false when it is not finite
// (e of 0: 1/e divides by zero).
bool tanh_of(double e, double& T) {
  const double inv = 1.0 / e;
  T = (e - inv) / (e + inv);
  return std::isfinite(T);
}

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
  double* t = layer.tanh.data();
  uint8_t* term = layer.term.data();
  // First the exponentials, kept in place of their tanh ...
  for (int k = layer.computed; k < slots; ++k) {
    const double u = h / x_[static_cast<size_t>(k)];
    if (!std::isfinite(u)) {
      term[k] = kFailed;
    } else if (u < 4.0) {
      t[k] = std::exp(u);
      term[k] = kTanh;
    } else {
      // At u = 4 and above the layer counts as infinitely thick: no tanh is evaluated. This
      // cut-off is a deliberate step of the method.
      term[k] = kThick;
    }
  }
  // ... then the tanh, two at a time where both are wanted: the same operations, so the same
  // bits, with the divisions of two samples in one instruction.
  int k = layer.computed;
#if defined(__SSE2__)
  const __m128d one = _mm_set1_pd(1.0);
  for (; k + 1 < slots; k += 2) {
    if (term[k] == kTanh && term[k + 1] == kTanh) {
      const __m128d e = _mm_loadu_pd(t + k);
      const __m128d inv = _mm_div_pd(one, e);
      const __m128d T = _mm_div_pd(_mm_sub_pd(e, inv), _mm_add_pd(e, inv));
      _mm_storeu_pd(t + k, T);
      const int bad = not_finite(T);
      if (bad & 1) term[k] = kFailed;
      if (bad & 2) term[k + 1] = kFailed;
    } else {
      for (int j = k; j < k + 2; ++j)
        if (term[j] == kTanh && !tanh_of(t[j], t[j])) term[j] = kFailed;
    }
  }
#endif
  for (; k < slots; ++k)
    if (term[k] == kTanh && !tanh_of(t[k], t[k])) term[k] = kFailed;
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
    const auto one_sample = [&](int k) {
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
    };
    // Two samples at a time where both take the recurrence: the same operations in the same
    // order, so the same bits.
    int k = 0;
#if defined(__SSE2__)
    const __m128d rv = _mm_set1_pd(r), one = _mm_set1_pd(1.0);
    for (; k + 1 < usable; k += 2) {
      if (term[k] != kTanh || term[k + 1] != kTanh) {
        one_sample(k), one_sample(k + 1);
        continue;
      }
      const __m128d Rk = _mm_loadu_pd(R + k), Tk = _mm_loadu_pd(T + k);
      const __m128d q = _mm_div_pd(_mm_mul_pd(Rk, Tk), rv);
      const __m128d next = _mm_div_pd(_mm_add_pd(Rk, _mm_mul_pd(rv, Tk)), _mm_add_pd(one, q));
      _mm_storeu_pd(R + k, next);
      const int bad = not_finite(q) | not_finite(next);
      if (bad) first_failed = std::min(first_failed, bad & 1 ? k : k + 1);
    }
#endif
    for (; k < usable; ++k) one_sample(k);
  }
  return R;
}

}  // namespace tellux
