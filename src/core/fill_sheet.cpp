#include "core/fill_sheet.h"

#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"

namespace tellux {

namespace {

void fill_row(const SoundingState& s, GridModel& grid, int i) {
  grid.set_text(i, 2, rt::Str(s.FieldTable(i, 1)));
  if (s.FieldTable(i, 4).num() > 0) {
    grid.set_text(i, 3, rt::Str(s.FieldTable(i, 4)));
    grid.set_text(i, 4, rt::Str(s.FieldTable(i, 6)));
  }
  if (s.FieldTable(i, 3).num() > 0) {
    // A Wenner spread has no MN/2 of its own to show.
    grid.set_text(i, 1, s.Spread == SpreadType::Wenner ? "" : rt::Str(s.FieldTable(i, 3)));
    grid.set_text(i, 5, rt::Str(s.FieldTable(i, 5)).substr(0, 6));
  }
  grid.set_text(i, 6, rt::Str(s.FieldTable(i, 2)));
}

}  // namespace

void fill_sheet(const SoundingState& s, GridModel& BuildGrid) {
  BuildGrid.redraw = false;
  for (int r = 1; r <= kSheetRows; ++r)
    for (int c = 1; c <= kSheetColumns; ++c) rt::skip([&] { BuildGrid.set_text(r, c, ""); });
  // A 51st row loads into the table but has no line on the sheet: its statements fail and are
  // passed over, and the sheet is repainted all the same.
  for (int i = 1; i <= field_rows(s); ++i) rt::skip([&] { fill_row(s, BuildGrid, i); });
  BuildGrid.redraw = true;
}

}  // namespace tellux
