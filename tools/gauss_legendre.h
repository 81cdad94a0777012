// Sixteen-point Gauss-Legendre quadrature over [a, b], shared by the design of the accurate
// filter's weights and the filter-free reference curves that test them.
#pragma once

#include <functional>

namespace tellux {

inline double gauss16(const std::function<double(double)>& f, double a, double b) {
  static const double x[8] = {0.0950125098376374, 0.2816035507792589, 0.4580167776572274,
                              0.6178762444026438, 0.7554044083550030, 0.8656312023878318,
                              0.9445750230732326, 0.9894009349916499};
  static const double w[8] = {0.1894506104550685, 0.1826034150449236, 0.1691565193950025,
                              0.1495959888165767, 0.1246289712555339, 0.0951585116824928,
                              0.0622535239386479, 0.0271524594117541};
  const double c = (a + b) / 2, d = (b - a) / 2;
  double s = 0;
  for (int i = 0; i < 8; ++i) s += w[i] * (f(c + d * x[i]) + f(c - d * x[i]));
  return s * d;
}

}  // namespace tellux
