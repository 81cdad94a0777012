// Designs the weights of the accurate forward calculation and prints them as C++ source
// (src/model/accurate_filter_weights.inc). Run once; the output is kept in the tree.
//
// The resistivity transform is represented between its samples by the cardinal quintic spline
// in ln(lambda); the apparent resistivity is the integral of that spline against the array's
// kernel, done here once per basis function by Gauss-Legendre quadrature over pieces shorter
// than one radian of the Bessel functions. Weight n belongs to the sample at lambda x spacing =
// exp(n x step). The kernels, with u = lambda x spacing and the integral taken over du / u:
//   Schlumberger  u^2 J1(u)
//   Wenner        2u (J0(u) - J0(2u))        (spacing: a)
//   dipole        u J0(u)                    (spacing: AM; the pole-pole potential)
#include <cmath>
#include <cstdio>
#include <functional>
#include <vector>

#include "gauss_legendre.h"

namespace {

using tellux::gauss16;

constexpr int kPerRow = 3;  // samples per curve row (eight rows a decade)
const double kStep = std::log(10.0) / 8 / kPerRow;
// Below kMinU the weights fall as u^3 (Schlumberger, Wenner) but only as u (dipole), whose range
// therefore starts four decades lower; above kMaxU they are below 1e-9 for all three.
constexpr double kMinU[3] = {1e-4, 1e-4, 1e-8};
constexpr double kMaxU = 1e3;
constexpr int kPrefilterReach = 25;  // the inverse of the sampled spline decays as 0.43^k

double quintic_bspline(double t) {
  t = std::fabs(t);
  if (t >= 3) return 0;
  auto p = [](double x) { return x > 0 ? x * x * x * x * x : 0.0; };
  return (p(3 - t) - 6 * p(2 - t) + 15 * p(1 - t)) / 120.0;
}

double kernel(int array, double u) {
  switch (array) {
    case 0:
      return u * u * std::cyl_bessel_j(1.0, u);
    case 1:
      return 2 * u * (std::cyl_bessel_j(0.0, u) - std::cyl_bessel_j(0.0, 2 * u));
    default:
      return u * std::cyl_bessel_j(0.0, u);
  }
}

// The integral of the B-spline centred on ln u = z against the kernel, over d(ln u).
double basis_response(int array, double z) {
  double sum = 0;
  for (int k = -3; k < 3; ++k) {
    const double u0 = std::exp(z + k * kStep), u1 = std::exp(z + (k + 1) * kStep);
    const int pieces = std::max(1, static_cast<int>(std::ceil((u1 - u0) * (array == 1 ? 2 : 1))));
    for (int i = 0; i < pieces; ++i) {
      const double a = std::log(u0 + (u1 - u0) * i / pieces);
      const double b = std::log(u0 + (u1 - u0) * (i + 1) / pieces);
      sum += gauss16(
          [&](double y) { return quintic_bspline((y - z) / kStep) * kernel(array, std::exp(y)); },
          a, b);
    }
  }
  return sum;
}

// The inverse of the sampled quintic spline (1, 26, 66, 26, 1) / 120, by a banded solve.
std::vector<double> prefilter() {
  const int n = 4 * kPrefilterReach + 1, c = n / 2;
  std::vector<double> a(static_cast<size_t>(n * n), 0.0), x(static_cast<size_t>(n), 0.0);
  const double band[3] = {66 / 120.0, 26 / 120.0, 1 / 120.0};
  auto at = [&](int i, int j) -> double& { return a[static_cast<size_t>(i * n + j)]; };
  for (int i = 0; i < n; ++i)
    for (int j = std::max(0, i - 2); j <= std::min(n - 1, i + 2); ++j)
      at(i, j) = band[std::abs(i - j)];
  x[static_cast<size_t>(c)] = 1;
  for (int i = 0; i < n; ++i)
    for (int r = i + 1; r < std::min(n, i + 3); ++r) {
      const double f = at(r, i) / at(i, i);
      for (int j = i; j < std::min(n, i + 3); ++j) at(r, j) -= f * at(i, j);
      x[static_cast<size_t>(r)] -= f * x[static_cast<size_t>(i)];
    }
  for (int i = n - 1; i >= 0; --i) {
    for (int j = i + 1; j < std::min(n, i + 3); ++j)
      x[static_cast<size_t>(i)] -= at(i, j) * x[static_cast<size_t>(j)];
    x[static_cast<size_t>(i)] /= at(i, i);
  }
  return std::vector<double>(x.begin() + c - kPrefilterReach, x.begin() + c + kPrefilterReach + 1);
}

}  // namespace

int main() {
  const std::vector<double> p = prefilter();
  const int last = static_cast<int>(std::ceil(std::log(kMaxU) / kStep));
  std::printf("// Written by tools/design_accurate_filter.cpp; do not edit.\n");
  std::printf("constexpr int kAccuratePerRow = %d;\n", kPerRow);
  const char* names[3] = {"Schlumberger", "Wenner", "Dipole"};
  for (int array = 0; array < 3; ++array) {
    const int first = static_cast<int>(std::floor(std::log(kMinU[array]) / kStep));
    std::vector<double> f;
    for (int n = first - kPrefilterReach; n <= last + kPrefilterReach; ++n)
      f.push_back(basis_response(array, n * kStep));
    // Weight 0 is at lambda x spacing = exp(first x step).
    std::printf("constexpr int k%sFirst = %d;\n", names[array], first);
    std::printf("constexpr double k%sWeights[%d] = {\n", names[array], last - first + 1);
    for (int n = 0; n <= last - first; ++n) {
      double w = 0;
      for (int k = -kPrefilterReach; k <= kPrefilterReach; ++k)
        w += p[static_cast<size_t>(k + kPrefilterReach)] *
             f[static_cast<size_t>(n + k + kPrefilterReach)];
      std::printf("    %.17g,\n", w);
    }
    std::printf("};\n");
  }
}
