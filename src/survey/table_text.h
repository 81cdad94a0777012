#pragma once
// A table of readings as a spreadsheet or a field computer leaves it: comma, semicolon or tab
// between the cells, maybe a decimal comma, maybe a header, blank lines and comments. This part
// cuts the text into cells and names the columns; `table_import` turns the cells into readings.
#include <optional>
#include <string>
#include <vector>

namespace tellux {

// What a column holds. Several columns of one role are repeated readings: their mean counts.
enum class ColumnRole { Skip, AbHalf, MnHalf, Rhoa, Resistance, DeltaV, Current, K };

// The role's short name on the command line: "ab2", "mn2", "rhoa", "r", "dv", "i", "k", "-".
const char* role_name(ColumnRole role);
// The role of a short name; none for a name that is not one.
std::optional<ColumnRole> role_from_name(const std::string& name);
// The role a header's title stands for ("AB/2", "MN/2 (m)", "Rho a", "DeltaV (mV)", "I [mA]",
// "K", "R1", "V/I" and their usual spellings); none for a title it does not know.
std::optional<ColumnRole> role_from_title(const std::string& title);

// How the text is cut. A delimiter of 0 is guessed: tab, else semicolon, else comma.
struct TableFormat {
  char delimiter = 0;
  bool decimal_comma = false;
  int skip = 0;  // lines passed over at the top, before the header or the first reading
};

// One line of the table that holds cells, with its line number in the file (from 1).
struct TableLine {
  int number = 0;
  std::vector<std::string> cells;
};

struct TableText {
  char delimiter = ',';
  bool decimal_comma = false;       // as asked, or found: cells that are numbers only with it
  std::optional<TableLine> header;  // the last line without numbers before the first reading
  std::vector<TableLine> rows;
};

// Cuts the text. Without a comma between the cells, numbers such as "1,5" mean the decimal comma
// even when it was not asked for. Lines without a number before the first reading are titles, the
// last of them the header. Blank lines and comments (lines starting with '#', "//" or ';' when that
// is not the delimiter) are passed over; a cell may stand in double quotes.
TableText read_table_text(const std::string& content, const TableFormat& format);

// The number of a cell: blanks around it allowed, the decimal comma when asked for; none for an
// empty cell or one that is not a number.
std::optional<double> cell_number(const std::string& cell, bool decimal_comma);

}  // namespace tellux
