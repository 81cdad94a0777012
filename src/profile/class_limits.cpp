#include "profile/class_limits.h"

#include "core/runtime/arithmetic.h"
#include "core/runtime/number_text.h"

namespace tellux {

ClassLimits ClassLimits::from(double min, double max) {
  ClassLimits l;
  const double step = (max - min) / 16;
  l.T[0] = rt::Int(min);
  for (int k = 1; k <= 14; ++k) l.T[static_cast<size_t>(k)] = rt::Int(k * step + min);
  l.T[15] = rt::Int(max);
  return l;
}

int ClassLimits::class_of(double r) const {
  int found = 0;
  if (r < T[1]) found = 1;
  for (size_t k = 2; k <= 15; ++k)
    if (r >= T[k - 1] && r < T[k]) found = static_cast<int>(k);
  if (r >= T[15]) found = 16;
  return found;
}

std::string ClassLimits::text(int k) const {
  return rt::CStr(k <= 1 ? T[0] : T[static_cast<size_t>(k - 1)]);
}

ClassLimits class_limits(const std::string& min_text, const std::string& max_text) {
  return ClassLimits::from(rt::Val(min_text), rt::Val(max_text));
}

}  // namespace tellux
