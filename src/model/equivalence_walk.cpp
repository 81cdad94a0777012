#include "model/equivalence_walk.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tellux {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kDerivativeStep = 1e-4;  // log10 units: 0.023 %
constexpr double kPrecision = 1e-3;       // a bound is known to 0.23 %
constexpr double kFirstStep = 0.02, kLongestStep = 0.5;

// q = a log10(rho) + b log10(h) for the four quantities.
void coefficients(Quantity q, double& a, double& b) {
  switch (q) {
    case Quantity::Resistivity:
      a = 1, b = 0;
      return;
    case Quantity::Thickness:
      a = 0, b = 1;
      return;
    case Quantity::Conductance:
      a = -1, b = 1;
      return;
    case Quantity::TransverseResistance:
      a = 1, b = 1;
      return;
  }
}

// Solves the small symmetric system A d = g in place (Gaussian elimination, partial pivoting).
bool solve(std::vector<double>& A, std::vector<double>& g, int n) {
  for (int c = 0; c < n; ++c) {
    int p = c;
    for (int r = c + 1; r < n; ++r)
      if (std::fabs(A[r * n + c]) > std::fabs(A[p * n + c])) p = r;
    if (!(std::fabs(A[p * n + c]) > 0)) return false;
    if (p != c) {
      for (int k = 0; k < n; ++k) std::swap(A[c * n + k], A[p * n + k]);
      std::swap(g[c], g[p]);
    }
    for (int r = c + 1; r < n; ++r) {
      const double f = A[r * n + c] / A[c * n + c];
      for (int k = c; k < n; ++k) A[r * n + k] -= f * A[c * n + k];
      g[r] -= f * g[c];
    }
  }
  for (int c = n - 1; c >= 0; --c) {
    for (int k = c + 1; k < n; ++k) g[c] -= A[c * n + k] * g[k];
    g[c] /= A[c * n + c];
  }
  return true;
}

double sum_of_squares(const std::vector<double>& r) {
  double s = 0;
  for (double v : r) s += v * v;
  return s;
}

}  // namespace

double quantity_value(const ParameterSpace& space, const std::vector<double>& x, Quantity q,
                      int layer) {
  double a = 0, b = 0;
  coefficients(q, a, b);
  const double h = layer < space.layers - 1 ? x[static_cast<size_t>(space.layers + layer)] : 0;
  return a * x[static_cast<size_t>(layer)] + b * h;
}

int BoundWalk::eliminated(const Bound& b) const {
  const int rho = b.layer, h = space_.layers + b.layer;
  const bool has_h = b.layer < space_.layers - 1;
  if (b.quantity == Quantity::Thickness)
    return has_h && space_.free[static_cast<size_t>(h)] ? h : -1;
  if (space_.free[static_cast<size_t>(rho)]) return rho;
  if (b.quantity != Quantity::Resistivity && has_h && space_.free[static_cast<size_t>(h)]) return h;
  return -1;
}

// Sets the eliminated parameter so that the quantity is tau; false when that leaves its bounds.
bool BoundWalk::hold(const Bound& b, double tau, std::vector<double>& x) const {
  double a = 0, c = 0;
  coefficients(b.quantity, a, c);
  const int e = eliminated(b);
  const auto rho = static_cast<size_t>(b.layer);
  const auto h = static_cast<size_t>(space_.layers + b.layer);
  const double v = e == b.layer ? (tau - (c != 0 ? c * x[h] : 0)) / a : (tau - a * x[rho]) / c;
  x[static_cast<size_t>(e)] = v;
  const auto ue = static_cast<size_t>(e);
  return v >= space_.lo[ue] - 1e-12 && v <= space_.hi[ue] + 1e-12;
}

double BoundWalk::residuals(const std::vector<double>& x, const Bound* b, double tau,
                            std::vector<double>& r) {
  std::vector<double> y = x;
  double excess = 0;
  if (b != nullptr && !hold(*b, tau, y)) {
    const auto e = static_cast<size_t>(eliminated(*b));
    excess = std::max(y[e] - space_.hi[e], space_.lo[e] - y[e]);
  }
  double rho[21], h[21];
  const int L = space_.layers;
  for (int i = 0; i < L; ++i) rho[i] = std::pow(10.0, y[static_cast<size_t>(i)]);
  for (int i = 0; i + 1 < L; ++i) h[i] = std::pow(10.0, y[static_cast<size_t>(L + i)]);
  if (!misfit_.deviations(rho, h, r) || r.empty()) {
    r.clear();
    return kInfinity;
  }
  const double rms = std::sqrt(sum_of_squares(r) / static_cast<double>(r.size()));
  if (b == nullptr) return rms;
  r.push_back(1000.0 * std::max(0.0, excess));  // pulls the held parameter back in its bounds
  return excess > 1e-12 ? kInfinity : rms;
}

double BoundWalk::fit(std::vector<double>& x, const Bound* b, double tau, bool enough) {
  const int skip = b != nullptr ? eliminated(*b) : -1;
  std::vector<int> moving;
  for (int k = 0; k < space_.size(); ++k)
    if (space_.free[static_cast<size_t>(k)] && k != skip) moving.push_back(k);
  const int p = static_cast<int>(moving.size());
  std::vector<double> r, rk;
  double rms = residuals(x, b, tau, r);
  if (r.empty()) return kInfinity;
  if ((enough && rms <= threshold_) || p == 0) {
    if (b != nullptr) hold(*b, tau, x);
    return rms;
  }
  double cost = sum_of_squares(r), mu = 1e-3;
  const size_t n = r.size();
  std::vector<double> J(n * static_cast<size_t>(p)), A(static_cast<size_t>(p * p)),
      g(static_cast<size_t>(p));
  for (int iteration = 0; iteration < 30 && !cancel_.load(std::memory_order_relaxed); ++iteration) {
    for (int c = 0; c < p; ++c) {
      std::vector<double> y = x;
      y[static_cast<size_t>(moving[static_cast<size_t>(c)])] += kDerivativeStep;
      residuals(y, b, tau, rk);
      for (size_t i = 0; i < n; ++i)
        J[i * static_cast<size_t>(p) + static_cast<size_t>(c)] =
            i < rk.size() ? (rk[i] - r[i]) / kDerivativeStep : 0.0;
    }
    bool improved = false;
    while (mu < 1e10 && !improved) {
      for (int c = 0; c < p; ++c) {
        double gc = 0;
        for (size_t i = 0; i < n; ++i)
          gc -= J[i * static_cast<size_t>(p) + static_cast<size_t>(c)] * r[i];
        g[static_cast<size_t>(c)] = gc;
        for (int d = 0; d < p; ++d) {
          double s = 0;
          for (size_t i = 0; i < n; ++i)
            s += J[i * static_cast<size_t>(p) + static_cast<size_t>(c)] *
                 J[i * static_cast<size_t>(p) + static_cast<size_t>(d)];
          A[static_cast<size_t>(c * p + d)] = s;
        }
        A[static_cast<size_t>(c * p + c)] *= 1 + mu;
        A[static_cast<size_t>(c * p + c)] += 1e-9;
      }
      if (!solve(A, g, p)) {
        mu *= 10;
        continue;
      }
      std::vector<double> y = x;
      for (int c = 0; c < p; ++c) {
        const auto k = static_cast<size_t>(moving[static_cast<size_t>(c)]);
        y[k] = std::clamp(y[k] + std::clamp(g[static_cast<size_t>(c)], -0.5, 0.5), space_.lo[k],
                          space_.hi[k]);
      }
      const double trial_rms = residuals(y, b, tau, rk);
      const double trial = rk.size() == n ? sum_of_squares(rk) : kInfinity;
      if (trial < cost) {
        const bool small_gain = cost - trial < 1e-6 * cost;
        x = y, r = rk, cost = trial, rms = trial_rms, mu = std::max(mu / 4, 1e-7);
        improved = true;
        if (small_gain) iteration = 30;
      } else {
        mu *= 6;
      }
    }
    if (!improved || (enough && rms <= threshold_)) break;
  }
  if (b != nullptr) hold(*b, tau, x);
  return rms;
}

double BoundWalk::walk(const Bound& b, std::vector<double>& x) {
  double a = 0, c = 0;
  coefficients(b.quantity, a, c);
  const int L = space_.layers;
  const auto rho = static_cast<size_t>(b.layer), h = static_cast<size_t>(L + b.layer);
  // The quantity's range over the bounds of its parameters.
  double lo = a * (a > 0 ? space_.lo[rho] : space_.hi[rho]);
  double hi = a * (a > 0 ? space_.hi[rho] : space_.lo[rho]);
  if (c != 0) lo += space_.lo[h], hi += space_.hi[h];
  std::vector<double> y;
  double good = quantity_value(space_, x, b.quantity, b.layer);
  double rms = residuals(x, nullptr, 0, y);
  double step = kFirstStep, bad = std::nan("");
  for (int k = 0; k < 60 && !cancel_.load(std::memory_order_relaxed); ++k) {
    const double tau = std::clamp(good + b.direction * step, lo, hi);
    if (tau == good) break;
    y = x;
    const double r = fit(y, &b, tau, true);
    if (r <= threshold_) {
      good = tau, x = y, rms = r, step = std::min(2 * step, kLongestStep);
    } else {
      bad = tau;
      break;
    }
  }
  while (!std::isnan(bad) && std::fabs(bad - good) > kPrecision &&
         !cancel_.load(std::memory_order_relaxed)) {
    const double mid = (good + bad) / 2;
    y = x;
    const double r = fit(y, &b, mid, true);
    if (r <= threshold_)
      good = mid, x = y, rms = r;
    else
      bad = mid;
  }
  return rms;
}

}  // namespace tellux
