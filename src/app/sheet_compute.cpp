// Compute: the sheet into `FieldTable`.
#include "app/field_sheet.h"
#include "core/fill_sheet.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "model/geometric_factor.h"
#include "model/splice_shift.h"

namespace tellux {

using rt::skip;

namespace {

// The readings of one row of the sheet, as numbers.
struct RowReadings {
  double mn = 0.0;  // column 1, MN/2 (BN); not read for Wenner
  double ab = 0.0;  // column 2, AB/2 (AM, a)
  double dv = 0.0;  // column 3, DeltaV
  double i = 0.0;   // column 4, I
};

RowReadings read_row(const GridModel& grid, int r, SpreadType spread) {
  RowReadings x;
  if (spread != SpreadType::Wenner) x.mn = rt::Val(grid.text(r, 1));
  x.ab = rt::Val(grid.text(r, 2));
  x.dv = rt::Val(grid.text(r, 3));
  x.i = rt::Val(grid.text(r, 4));
  return x;
}

// A row has a reading of its own when its voltage, current and geometry are all there; with
// Wenner the spacing "a" is the whole geometry.
bool has_reading(const RowReadings& x, SpreadType spread) {
  if (spread == SpreadType::Wenner) return x.dv * x.i * x.ab > 0;
  return x.dv * x.i * x.ab * x.mn > 0;
}

}  // namespace

void FieldSheet::exchange_rows(int upper, int lower) {
  for (int c = 1; c <= 7; ++c) std::swap(s_.FieldTable(upper, c), s_.FieldTable(lower, c));
  for (int c = 1; c <= kSheetColumns; ++c) {
    std::string text = BuildGrid.text(upper, c);
    BuildGrid.set_text(upper, c, BuildGrid.text(lower, c));
    BuildGrid.set_text(lower, c, std::move(text));
  }
}

void FieldSheet::Compute() {
  SoundingState& s = s_;
  GridModel& grid = BuildGrid;
  const int current_row = grid.row, current_col = grid.col;
  grid.redraw = false;

  edited_ = false;
  s.MaxAbHalf = 0;
  s.DataSaved = false;
  ShiftWalk walk;
  const double water = rt::Val(Reau.Text);
  const bool marine = Marine_floor.Value == 1;
  const SpreadType spread = s.Spread;

  double ab = 0.0;
  for (int i = 1; i <= kSheetRows; ++i) {
    const double ab_before = ab;
    const RowReadings x = read_row(grid, i, spread);
    ab = x.ab;
    walk.B = walk.A;

    const bool measured = has_reading(x, spread);
    double K = 0.0;
    if (measured) {
      skip([&] { K = round_geometric_factor(geometric_factor(spread, s.HalfArray, x.ab, x.mn)); });
      grid.set_text(i, 5, rt::Str(K).substr(0, 6));
      if (spread == SpreadType::Schlumberger) {
        // Spacings are shown in four characters at most.
        grid.set_text(i, 1, rt::CStr(x.mn).substr(0, 4));
        grid.set_text(i, 2, rt::CStr(x.ab).substr(0, 4));
      }
    } else {
      grid.set_text(i, 5, "");
    }

    // The resistivity: from the reading, or the one typed, kept unshifted in column 7 so that the
    // shift can be undone. A value is there when it is above 0 (the -1 of Insert line is not).
    double rho = 0.0;
    skip([&] {
      if (measured) {
        rho = rt::Div(rt::Div(K * x.dv, x.i), walk.ShiftFactor);
      } else {
        const std::string& text = grid.text(i, 6);
        const double typed = rt::Val(text);
        if (typed > 0 && !(s.FieldTable(i, 7).num() > 0)) s.FieldTable(i, 7) = typed;
        // Wenner: a typed value below 0, or one that left nothing kept, counts as 1.
        if (spread == SpreadType::Wenner && !text.empty() &&
            (typed < 0 || s.FieldTable(i, 7).empty()))
          s.FieldTable(i, 7) = 1.0;
        rho = rt::Div(s.FieldTable(i, 7).num(), walk.ShiftFactor);
      }
    });
    if (marine) skip([&] { rho = rt::Div(rho * water, water - rho); });
    skip([&] { rho = round_resistivity(rho); });
    walk.A = rho;
    skip([&] {
      // Two splices close together rewrite the two rows between them, in plain number text.
      if (shift_splice(s.FieldTable, i, x.ab, ab_before, s.ShiftCurves == 1, walk) ==
          Splice::Close) {
        grid.set_text(i - 2, 6, rt::CStr(s.FieldTable(i - 2, 2)));
        grid.set_text(i - 1, 6, rt::CStr(s.FieldTable(i - 1, 2)));
      }
    });

    s.FieldTable(i, 2) = walk.A;
    s.FieldTable(i, 1) = x.ab;
    s.FieldTable(i, 3) = x.mn;
    s.FieldTable(i, 4) = x.dv;
    s.FieldTable(i, 5) = K;
    s.FieldTable(i, 6) = x.i;

    // A row typed lower than the one above moves up one place, no more.
    int at = i;
    if (i > 1 && x.ab < ab_before && s.FieldTable(i, 2).num() > 0) {
      exchange_rows(i - 1, i);
      at = i - 1;
    }
    if (x.dv * x.i + walk.A == 0) {
      s.FieldCount = static_cast<int16_t>(i - 1);
      break;
    }
    grid.set_text(at, 6, rt::Str(walk.A));
    if (x.ab > s.MaxAbHalf) skip([&] { s.MaxAbHalf = rt::CInt(x.ab); });
  }

  grid.row = current_row;
  grid.col = current_col;
  grid.redraw = true;
}

}  // namespace tellux
