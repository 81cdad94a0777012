#include "model/geometric_factor.h"

#include "core/runtime/arithmetic.h"

namespace tellux {

double geometric_factor(SpreadType spread, int16_t half_array, double a, double b) {
  switch (spread) {
    case SpreadType::Schlumberger:
      return half_array * rt::Div((a + b) * (a - b), 2 * b) * 3.1416;
    case SpreadType::Dipole:
      return rt::Div(3.1416, rt::Div(1, a) - rt::Div(3, b));
    case SpreadType::Wenner:
      break;
  }
  return half_array * a * 3.1416;
}

double round_geometric_factor(double K) {
  if (K < 100) return rt::CLng(K * 100) / 100.0;
  return rt::CLng(K);
}

}  // namespace tellux
