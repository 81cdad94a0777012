// Typing in the sheet, and its Delete line and Insert line.
#include "app/field_sheet.h"
#include "app/sheet_keys.h"
#include "core/fill_sheet.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"

namespace tellux {

using rt::skip;

namespace {

std::string row_number_text(int i) { return rt::Str(i, rt::Kind::Int16); }

}  // namespace

void FieldSheet::BuildGrid_KeyPress(int key) {
  const std::optional<char> ch = sheet_key_char(key);
  if (!ch) return;
  GridModel& grid = BuildGrid;
  const int r = grid.row, c = grid.col;
  if (r < 1 || r > kSheetRows || c < 1 || c > kSheetColumns) return;
  if (c == 5) {
    session_.tell(session_.text("Le facteur K est calculé, il n'est pas à introduire",
                                "El factor K está calculado por el programa, no se debe introducir",
                                "You cannot enter a value, K is calculated"));
    return;
  }
  s_.DataSaved = false;
  edited_ = true;
  // The first key after a command replaces the cell; a new resistivity also drops the unshifted
  // value kept for the row.
  if (s_.CellFresh == 1) {
    grid.set_text(r, c, "");
    if (c == 6) s_.FieldTable(r, 7).clear();
    s_.CellFresh = 0;
  }
  std::string text = grid.text(r, c);
  if (*ch == kBackspace) {
    if (!text.empty()) text.pop_back();
  } else {
    text.push_back(*ch);
  }
  grid.set_text(r, c, std::move(text));
}

// The sheet's row r goes and an empty row comes at the end (in the grid: the rows below move up).
void FieldSheet::remove_sheet_row(int r) {
  for (int i = r; i < kSheetRows; ++i)
    for (int c = 0; c <= kSheetColumns; ++c) BuildGrid.set_text(i, c, BuildGrid.text(i + 1, c));
  for (int c = 0; c <= kSheetColumns; ++c) BuildGrid.set_text(kSheetRows, c, "");
}

// A row at r with "1" as its AB/2; the last row falls off the end (in the grid it is row 51,
// added by the insertion and removed again).
void FieldSheet::insert_sheet_row(int r) {
  for (int i = kSheetRows; i > r; --i)
    for (int c = 0; c <= kSheetColumns; ++c) BuildGrid.set_text(i, c, BuildGrid.text(i - 1, c));
  for (int c = 0; c <= kSheetColumns; ++c) BuildGrid.set_text(r, c, c == 2 ? "1" : "");
}

// Of `FieldTable` only column 7 follows the rows; `FieldCount` waits for the next Compute.
void FieldSheet::CorrectButton_Click() {
  GridModel& grid = BuildGrid;
  s_.CellFresh = 1;
  edited_ = true;
  int r = 0;
  if (s_.FieldCount >= 1) {
    r = grid.row;
    skip([&] { remove_sheet_row(r); });
    grid.redraw = false;
    for (int i = r; i <= kSheetRows; ++i) {
      skip([&] { s_.FieldTable(i, 7) = s_.FieldTable(i + 1, 7); });
      skip([&] { grid.set_text(i, 0, row_number_text(i)); });
    }
    grid.col = 1;
    grid.redraw = true;
  }
  // Row 0 is the fixed header: making it current fails and is passed over.
  if (r >= 1 && r < kSheetRows) grid.row = r;
  session_.forms.focus_field_sheet();
}

void FieldSheet::RecordButton_Click() {
  GridModel& grid = BuildGrid;
  s_.CellFresh = 1;
  edited_ = true;
  grid.col = 2;
  const int r = grid.row;
  bool room = false;
  skip([&] { room = rt::Val(grid.text(r, 2)) > 0 && s_.FieldCount < kSheetRows; });
  if (!room) {
    session_.forms.beep();
  } else {
    skip([&] { insert_sheet_row(r); });
    grid.col = 0;
    // -1 is no reading's value. It is stored before the move, so the unshifted value that stood
    // in row r is lost and rows r and r + 1 both hold -1.
    skip([&] { s_.FieldTable(r, 7) = -1.0; });
    grid.redraw = false;
    for (int i = kSheetRows; i >= r; --i) {
      skip([&] { s_.FieldTable(i + 1, 7) = s_.FieldTable(i, 7); });
      skip([&] { grid.set_text(i, 0, row_number_text(i)); });
    }
  }
  grid.col = 1;
  grid.redraw = true;
  if (r >= 1 && r < kSheetRows) grid.row = r;
  session_.forms.focus_field_sheet();
}

}  // namespace tellux
