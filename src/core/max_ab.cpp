#include "core/max_ab.h"

#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"

namespace tellux {

void find_max_ab(SoundingState& s, int16_t& max_ab_half) {
  bool leave = false;
  rt::skip([&] {
    leave = s.FieldTable(1, 1).num() + s.FieldTable(2, 1).num() + s.FieldTable(3, 1).num() == 1.0;
  });
  if (leave) return;
  // In the superpose mode the overlaid sounding's rows stand in FieldTable too (its reader puts
  // them there), so one table serves both; the count of rows is FieldCount in either case.
  for (int n = 1; n <= field_rows(s); ++n) {
    rt::skip([&] {
      const double ab = s.FieldTable(n, 1).num();
      if (ab > max_ab_half) max_ab_half = rt::CInt(ab);
    });
  }
}

}  // namespace tellux
