// The accurate forward calculation against a reference that uses no filter: the Hankel integral
// of each array's kernel by Gauss-Legendre quadrature on pieces of at most half a period of
// the Bessel functions, with only the top layer's resistivity taken out so that it converges.
#include "model/accurate_forward.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

#include "gauss_legendre.h"
#include "model/filter_error.h"
#include "model/forward.h"
#include "session_fixture.h"
#include "synthetic_sounding.h"

namespace tellux {
namespace {

struct Model {
  const char* name;
  std::vector<double> rho, thickness;
};

double transform(double lambda, const Model& m) {
  const size_t n = m.rho.size();
  double R = m.rho[n - 1];
  for (size_t i = n - 1; i-- > 0;) {
    const double t = std::tanh(lambda * m.thickness[i]);
    R = (R + m.rho[i] * t) / (1 + R * t / m.rho[i]);
  }
  return R;
}

double reference(SpreadType spread, double s, const Model& m) {
  const double top = m.rho[0];
  const double fast = spread == SpreadType::Wenner ? 2 * s : s;
  const double width = M_PI / fast;  // half a period of the fastest Bessel function
  double depth = s;
  for (double h : m.thickness) depth += h;
  const double end = 15.0 / m.thickness[0];  // T - top is below 1e-13 of the contrast there
  auto J = [](double nu, double x) { return std::cyl_bessel_j(nu, x); };
  std::function<double(double)> f = [&](double l) {
    const double r = transform(l, m) - top;
    switch (spread) {
      case SpreadType::Schlumberger:
        return s * s * r * l * J(1.0, l * s);
      case SpreadType::Wenner:
        return 2 * s * r * (J(0.0, l * s) - J(0.0, 2 * l * s));
      case SpreadType::Dipole:
        break;
    }
    return s * r * J(0.0, l * s);
  };
  double a = 1e-6 / depth, sum = gauss16(f, 0, a);
  while (a < end) {
    const double b = std::min({a * 1.25, a + width, end});
    sum += gauss16(f, a, b);
    a = b;
  }
  return top + sum;
}

// Two-layer and multi-layer earths of every type, contrasts up to 10^4, 1 to 20 layers.
std::vector<Model> models() {
  std::vector<Model> m = {
      {"1000 over 1, h 10", {1000, 1}, {10}},
      {"Q 1000/100/5", {1000, 100, 5}, {10, 50}},
      {"10 over 100", {10, 100}, {10}},
      {"H thin conductor", {100, 10, 100}, {5, 10}},
      {"K thin resistor", {10, 1000, 10}, {5, 2}},
      {"1 over 10^4", {1, 10000}, {10}},
      {"10^4 over 1, thin top", {10000, 1}, {3}},
      {"five layers", {50, 5, 500, 20, 2000}, {2, 10, 30, 100}},
      {"A 20/200/2000", {20, 200, 2000}, {1, 20}},
      {"one layer", {42}, {}},
  };
  Model twenty{"twenty layers", {}, {}};
  for (int i = 0; i < 20; ++i) {
    twenty.rho.push_back(i % 2 ? 30.0 + i : 300.0 - 5 * i);
    if (i < 19) twenty.thickness.push_back(1.0 + 0.5 * i);
  }
  m.push_back(twenty);
  return m;
}

Earth earth_of(const Model& m) {
  return {m.rho.data(), m.thickness.data(), static_cast<int>(m.rho.size())};
}

// Every fourth row from AB/2 = 0.1 m to 10 km, for each array.
TEST(AccurateForward, WithinATenthOfAPercentOfTheFilterFreeReference) {
  for (SpreadType spread : {SpreadType::Schlumberger, SpreadType::Wenner, SpreadType::Dipole}) {
    for (const Model& m : models()) {
      double curve[41];
      ASSERT_TRUE(accurate_curve(spread, earth_of(m), -1, 41, curve));
      for (int i = 0; i < 41; i += 4) {
        const double s = std::pow(10.0, i * 0.125 - 1);
        const double exact = m.rho.size() == 1 ? m.rho[0] : reference(spread, s, m);
        EXPECT_NEAR(curve[i] / exact, 1.0, 1e-3)
            << m.name << ", array " << static_cast<int>(spread) << ", AB/2 " << s;
        EXPECT_NEAR(accurate_apparent(spread, earth_of(m), s), curve[i], 1e-9 * curve[i]);
      }
    }
  }
}

TEST(AccurateForward, RefusesAnEarthWithoutResistivity) {
  const double rho[2] = {100, 0}, h[1] = {5};
  double out[3] = {7, 7, 7};
  EXPECT_FALSE(accurate_curve(SpreadType::Schlumberger, {rho, h, 2}, 0, 3, out));
  EXPECT_EQ(out[0], 7);
  EXPECT_TRUE(std::isnan(accurate_apparent(SpreadType::Wenner, {rho, h, 2}, 10)));
}

class FilterErrorTest : public testing::SessionTest {
 protected:
  // The short filter's curve of `m` to AB/2 = 1000 m; returns the error measured on its rows.
  double run(const Model& m, SpreadType spread) {
    std::vector<testing::Layer> layers;
    for (size_t i = 0; i < m.rho.size(); ++i)
      layers.push_back({m.rho[i], i < m.thickness.size() ? m.thickness[i] : 0.0});
    s.Spread = spread;
    s.WorkMode = mode::kFile;
    s.DecadeStart = 0;
    testing::make_sounding(session, layers, {1.0, 1000.0});
    double worst = 0;
    for (int i = 0; i <= s.ModelCurveLast; ++i) {
      const double exact = reference(spread, s.ModelCurve(i, 2).num(), m);
      worst = std::max(worst, std::fabs(s.ModelCurve(i, 1).num() - exact) / exact * 100);
    }
    return worst;
  }
};

// Told within a fifth of the error measured against the reference, small or large; with the
// option on, the rows are the accurate values and the error is still told.
TEST_F(FilterErrorTest, TellsTheShortFiltersErrorAndTheOptionReplacesTheRows) {
  for (const Model& m : {models()[0], models()[3], models()[4]}) {
    for (SpreadType spread : {SpreadType::Schlumberger, SpreadType::Wenner, SpreadType::Dipole}) {
      const double measured = run(m, spread);
      EXPECT_NEAR(s.FilterErrorPercent, measured, 0.2 * measured) << m.name;
    }
  }
  run(models()[0], SpreadType::Schlumberger);
  EXPECT_NE(filter_error_hint(s).find("tick \"Accurate curves\" (tab Bilog Setup), then Redraw"),
            std::string::npos);
  s.AccurateCurves = true;
  run(models()[0], SpreadType::Schlumberger);
  EXPECT_GT(s.FilterErrorPercent, 20.0);
  EXPECT_EQ(filter_error_hint(s), "");
  double exact[40];
  ASSERT_TRUE(accurate_model_curve(s, s.ModelCurveLast + 1, exact));
  for (int i = 0; i <= s.ModelCurveLast; ++i) EXPECT_EQ(s.ModelCurve(i, 1).num(), exact[i]);
}

}  // namespace
}  // namespace tellux
