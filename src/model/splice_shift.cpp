#include "model/splice_shift.h"

#include "core/runtime/arithmetic.h"

namespace tellux {

namespace {

// The rows rewritten at a close splice keep a decimal chosen by the present row's A, not by
// their own value: a segment of small values beside a large A is rounded to tenths.
double round_by_present(double v, double A) {
  if (v >= 100) return rt::CLng(v);
  if (A < 10) return rt::CLng(v * 100) / 100.0;
  return rt::CLng(v * 10) / 10.0;
}

// The segment before the splice at row i has more than two points unless rows i-3 and i-2 were
// themselves a splice. A splice on row 2 has no row i-3: its segment is the lone first reading.
bool segment_before_is_long(const FieldTableT& table, int i) {
  if (i < 3) return true;
  return table(i - 3, 1).num() != table(i - 2, 1).num();
}

}  // namespace

double round_resistivity(double r) {
  if (r >= 100) return rt::CLng(r);
  if (r >= 10) return rt::CLng(r * 10) / 10.0;
  return rt::CLng(r * 100) / 100.0;
}

Splice shift_splice(FieldTableT& table, int i, double ab, double ab_before, bool shift_on,
                    ShiftWalk& w) {
  Splice kind = Splice::None;
  if (shift_on && i > 1 && ab == ab_before) {
    if (segment_before_is_long(table, i)) {
      w.R = rt::Div(w.A, w.B);
      w.ShiftFactor = rt::CSng(w.R * w.ShiftFactor);
      w.A = w.B;
      kind = Splice::Lone;
    } else {
      const double G = rt::Sqr(w.R * rt::Div(w.A, w.B));
      table(i - 2, 2) = round_by_present(rt::Div(table(i - 2, 2).num() * w.R, G), w.A);
      table(i - 1, 2) = round_by_present(table(i - 1, 2).num() * w.R, w.A);
      w.A = round_resistivity(rt::Div(w.A * w.R, G));
      w.ShiftFactor = rt::CSng(rt::Div(G * w.ShiftFactor, w.R));
      kind = Splice::Close;
    }
  }
  table(i, 2) = w.A;
  return kind;
}

}  // namespace tellux
