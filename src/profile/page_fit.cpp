#include "profile/page_fit.h"

#include <cmath>
#include <initializer_list>

namespace tellux {

int32_t fitting_scale(double metres, double room_mm) {
  // Whole millimetres of room: the page size is rounded to whole millimetres before it is tested.
  const double room = std::floor(room_mm);
  if (!(metres > 0) || !(room >= 1) || !std::isfinite(metres)) return 0;
  const double needed = metres * 1000 / room;
  for (double decade = 1; decade <= 1e8; decade *= 10)
    for (const double step : {1.0, 2.0, 2.5, 5.0}) {
      const double scale = step * decade;
      if (decade >= 10 || step != 2.5)
        if (scale >= needed) return static_cast<int32_t>(scale);
    }
  return 0;
}

}  // namespace tellux
