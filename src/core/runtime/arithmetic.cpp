#include "core/runtime/arithmetic.h"

#include <cfloat>
#include <cmath>

#include "core/runtime/errors.h"

namespace tellux::rt {

namespace {
// nearbyint follows the current rounding mode, which is ties-to-even unless changed; the program
// never changes it.
double round_even(double v) {
  if (std::isnan(v)) raise(kOverflow);
  return std::nearbyint(v);
}

double checked(double v) {
  if (!std::isfinite(v)) raise(kOverflow);
  return v;
}
}  // namespace

int16_t CInt(double v) {
  const double r = round_even(v);
  if (r < -32768.0 || r > 32767.0) raise(kOverflow);
  return static_cast<int16_t>(r);
}

int32_t CLng(double v) {
  const double r = round_even(v);
  if (r < -2147483648.0 || r > 2147483647.0) raise(kOverflow);
  return static_cast<int32_t>(r);
}

double Int(double v) { return std::floor(v); }
double Fix(double v) { return std::trunc(v); }

float CSng(double v) {
  if (std::isnan(v)) raise(kOverflow);
  const float f = static_cast<float>(v);
  if (std::isinf(f) && !std::isinf(v)) raise(kOverflow);
  return f;
}

double Div(double a, double b) {
  if (b == 0.0) raise(a == 0.0 ? kOverflow : kDivisionByZero);
  return checked(a / b);
}

double Log(double v) {
  if (!(v > 0.0)) raise(kInvalidCall);
  return std::log(v);
}

double Exp(double v) { return checked(std::exp(v)); }

double Sqr(double v) {
  if (v < 0.0) raise(kInvalidCall);
  return std::sqrt(v);
}

double Pow(double a, double b) {
  if (a < 0.0 && b != std::floor(b)) raise(kInvalidCall);
  if (a == 0.0 && b < 0.0) raise(kDivisionByZero);
  return checked(std::pow(a, b));
}

}  // namespace tellux::rt
