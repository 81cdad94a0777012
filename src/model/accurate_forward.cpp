#include "model/accurate_forward.h"

#include <cmath>
#include <vector>

namespace tellux {

namespace {

#include "model/accurate_filter_weights.inc"

const double kStep = std::log(10.0) / 8 / kAccuratePerRow;  // ln(lambda) between samples

struct Filter {
  int first;  // weight 0 is at lambda x spacing = exp(first x step)
  int count;
  const double* w;
};

template <size_t N>
Filter filter_of(int first, const double (&w)[N]) {
  return {first, static_cast<int>(N), w};
}

Filter filter(SpreadType spread) {
  switch (spread) {
    case SpreadType::Wenner:
      return filter_of(kWennerFirst, kWennerWeights);
    case SpreadType::Dipole:
      return filter_of(kDipoleFirst, kDipoleWeights);
    case SpreadType::Schlumberger:
      break;
  }
  return filter_of(kSchlumbergerFirst, kSchlumbergerWeights);
}

// The closed-form part of the transform: T(infinity) = top and T(0) = bottom, joined by
// exp(-b lambda) with b twice the depth of the half space. What is left of the transform vanishes
// at both ends, so the weights' finite reach loses nothing.
struct Limits {
  double top = 0, bottom = 0, b = 0;
  double negligible = INFINITY;  // lambda beyond which the remainder is below 1e-17 of a contrast
};

Limits limits(const Earth& e) {
  Limits l;
  l.bottom = e.rho[e.layers - 1];
  l.top = l.bottom;
  double depth = 0;
  for (int i = e.layers - 2; i >= 0; --i) {
    depth += e.thickness[i];
    if (e.thickness[i] > 0) {
      l.top = e.rho[i];  // a layer of no thickness is transparent
      l.negligible = 20 / e.thickness[i];
    }
  }
  l.b = 2 * depth;
  return l;
}

// Apparent resistivity of the closed-form part at spacing s (the responses of exp(-b lambda) to
// the three kernels are known).
double closed_form(SpreadType spread, double s, const Limits& l) {
  const double r = std::hypot(l.b, s);
  double e = s / r;  // dipole
  if (spread == SpreadType::Schlumberger) e = e * e * e;
  if (spread == SpreadType::Wenner) e = 2 * s * (1 / r - 1 / std::hypot(l.b, 2 * s));
  return l.top + (l.bottom - l.top) * e;
}

// T(lambda) less its closed-form part, by the recurrence from the half space up.
double remainder(const Earth& e, const Limits& l, double lambda) {
  double R = e.rho[e.layers - 1];
  double joint = 1;  // exp(-b lambda), b being twice the depth: the product of the layers' x
  for (int i = e.layers - 2; i >= 0; --i) {
    // (R + r t) / (1 + R t / r) with t = tanh(lambda h) = (1 - x) / (1 + x): one division.
    const double x = std::exp(-2 * lambda * e.thickness[i]);
    const double r = e.rho[i];
    R = r * (R * (1 + x) + r * (1 - x)) / (r * (1 + x) + R * (1 - x));
    joint *= x;
  }
  return R - l.top - (l.bottom - l.top) * joint;
}

}  // namespace

bool valid_earth(const Earth& e) {
  if (e.layers < 1 || e.layers > 21) return false;
  for (int i = 0; i < e.layers; ++i) {
    if (!(std::isfinite(e.rho[i]) && e.rho[i] > 0)) return false;
    if (i + 1 < e.layers && !(std::isfinite(e.thickness[i]) && e.thickness[i] >= 0)) return false;
  }
  return true;
}

bool accurate_curve(SpreadType spread, const Earth& e, int decade_start, int rows, double* out) {
  if (rows <= 0) return true;
  if (!valid_earth(e)) return false;
  const Limits l = limits(e);
  const Filter f = filter(spread);
  // Sample m sits at lambda x spacing(row 0) = exp((first + m) x step); row i reads samples
  // shift - i x per-row onwards against the weights.
  const int shift = (rows - 1) * kAccuratePerRow;
  const int samples = f.count + shift;
  static thread_local std::vector<double> r;
  r.resize(static_cast<size_t>(samples));
  const double s0 = std::pow(10.0, decade_start);
  const int first = f.first - shift;
  const double ratio = std::exp(kStep);
  double lambda = std::exp(first * kStep) / s0;
  for (int m = 0; m < samples; ++m, lambda *= ratio)
    r[static_cast<size_t>(m)] = lambda > l.negligible ? 0.0 : remainder(e, l, lambda);
  for (int i = 0; i < rows; ++i) {
    const double* sample = r.data() + shift - i * kAccuratePerRow;
    double sum = 0;
    for (int k = 0; k < f.count; ++k) sum += f.w[k] * sample[k];
    out[i] = closed_form(spread, s0 * std::pow(10.0, i * 0.125), l) + sum;
  }
  return true;
}

double accurate_apparent(SpreadType spread, const Earth& e, double spacing) {
  if (!valid_earth(e) || !(spacing > 0)) return std::nan("");
  const Limits l = limits(e);
  const Filter f = filter(spread);
  double sum = 0;
  for (int k = 0; k < f.count; ++k)
    sum += f.w[k] * remainder(e, l, std::exp((f.first + k) * kStep) / spacing);
  return closed_form(spread, spacing, l) + sum;
}

}  // namespace tellux
