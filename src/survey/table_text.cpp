#include "survey/table_text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstring>

namespace tellux {

namespace {

constexpr struct {
  ColumnRole role;
  const char* name;
} kRoleNames[] = {{ColumnRole::AbHalf, "ab2"}, {ColumnRole::MnHalf, "mn2"},
                  {ColumnRole::Rhoa, "rhoa"},  {ColumnRole::Resistance, "r"},
                  {ColumnRole::DeltaV, "dv"},  {ColumnRole::Current, "i"},
                  {ColumnRole::K, "k"},        {ColumnRole::Skip, "-"}};

// Titles as spelled in field sheets and instruments' exports, reduced by `plain`.
constexpr struct {
  ColumnRole role;
  const char* title;
} kTitles[] = {
    {ColumnRole::AbHalf, "ab2"},
    {ColumnRole::AbHalf, "ab"},
    {ColumnRole::AbHalf, "oa"},
    {ColumnRole::AbHalf, "l"},
    {ColumnRole::AbHalf, "a"},
    {ColumnRole::AbHalf, "am"},
    {ColumnRole::AbHalf, "spacing"},
    {ColumnRole::AbHalf, "halfab"},
    {ColumnRole::AbHalf, "demiab"},
    {ColumnRole::MnHalf, "mn2"},
    {ColumnRole::MnHalf, "mn"},
    {ColumnRole::MnHalf, "ob"},
    {ColumnRole::MnHalf, "b"},
    {ColumnRole::MnHalf, "bn"},
    {ColumnRole::MnHalf, "halfmn"},
    {ColumnRole::MnHalf, "demimn"},
    {ColumnRole::Rhoa, "rho"},
    {ColumnRole::Rhoa, "rhoa"},
    {ColumnRole::Rhoa, "ρ"},
    {ColumnRole::Rhoa, "ρa"},
    {ColumnRole::Rhoa, "res"},
    {ColumnRole::Rhoa, "resist"},
    {ColumnRole::Rhoa, "resistivity"},
    {ColumnRole::Rhoa, "appres"},
    {ColumnRole::Rhoa, "apparentresistivity"},
    {ColumnRole::Rhoa, "resistivite"},
    {ColumnRole::Rhoa, "résistivité"},
    {ColumnRole::Rhoa, "rhoapp"},
    {ColumnRole::Resistance, "r"},
    {ColumnRole::Resistance, "resistance"},
    {ColumnRole::Resistance, "résistance"},
    {ColumnRole::Resistance, "vi"},
    {ColumnRole::Resistance, "dvi"},
    {ColumnRole::Resistance, "deltavi"},
    {ColumnRole::Resistance, "ri"},
    {ColumnRole::DeltaV, "dv"},
    {ColumnRole::DeltaV, "deltav"},
    {ColumnRole::DeltaV, "δv"},
    {ColumnRole::DeltaV, "v"},
    {ColumnRole::DeltaV, "vp"},
    {ColumnRole::DeltaV, "u"},
    {ColumnRole::DeltaV, "voltage"},
    {ColumnRole::DeltaV, "tension"},
    {ColumnRole::DeltaV, "ddp"},
    {ColumnRole::Current, "i"},
    {ColumnRole::Current, "in"},
    {ColumnRole::Current, "current"},
    {ColumnRole::Current, "courant"},
    {ColumnRole::Current, "intensity"},
    {ColumnRole::Current, "intensite"},
    {ColumnRole::Current, "intensité"},
    {ColumnRole::K, "k"},
    {ColumnRole::K, "kfactor"},
    {ColumnRole::K, "geometricfactor"},
    {ColumnRole::K, "facteurk"},
    {ColumnRole::K, "facteurgeometrique"},
};

// A title reduced for comparison: lower case, without units in brackets or parentheses, and
// without blanks, points, slashes, underscores and hyphens ("AB/2 (m)" -> "ab2").
std::string plain(const std::string& title) {
  std::string out;
  int depth = 0;
  for (unsigned char c : title) {
    if (c == '(' || c == '[') ++depth;
    if (depth == 0 && !std::strchr(" ./_-\t\"'", c)) out += static_cast<char>(std::tolower(c));
    if ((c == ')' || c == ']') && depth > 0) --depth;
  }
  return out;
}

std::optional<ColumnRole> known_title(const std::string& p) {
  for (const auto& t : kTitles)
    if (p == t.title) return t.role;
  return std::nullopt;
}

bool is_comment(const std::string& line, char delimiter) {
  const size_t first = line.find_first_not_of(" \t");
  if (first == std::string::npos) return true;
  if (line[first] == '#' || line.compare(first, 2, "//") == 0) return true;
  return line[first] == ';' && delimiter != ';';
}

std::vector<std::string> split(const std::string& line, char delimiter) {
  std::vector<std::string> cells(1);
  bool quoted = false;
  for (size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c == '"') {
      if (quoted && i + 1 < line.size() && line[i + 1] == '"') {
        cells.back() += '"';
        ++i;
      } else {
        quoted = !quoted;
      }
    } else if (c == delimiter && !quoted) {
      cells.emplace_back();
    } else {
      cells.back() += c;
    }
  }
  for (std::string& cell : cells) {
    const size_t a = cell.find_first_not_of(" \t");
    const size_t b = cell.find_last_not_of(" \t");
    cell = a == std::string::npos ? std::string() : cell.substr(a, b - a + 1);
  }
  return cells;
}

std::vector<std::string> lines_of(const std::string& content) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start <= content.size()) {
    size_t end = content.find('\n', start);
    if (end == std::string::npos) end = content.size();
    std::string line = content.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
    start = end + 1;
  }
  return lines;
}

// The delimiter found on most of the first lines; on a tie tab, then semicolon (a decimal comma
// stands beside it), then comma.
char guess_delimiter(const std::vector<std::string>& lines, size_t first) {
  const char candidates[] = {'\t', ';', ','};
  int found[3] = {0, 0, 0};
  for (size_t n = first; n < lines.size() && n < first + 30; ++n) {
    if (is_comment(lines[n], ';')) continue;
    for (int k = 0; k < 3; ++k)
      if (lines[n].find(candidates[k]) != std::string::npos) ++found[k];
  }
  int best = 2;
  for (int k = 1; k >= 0; --k)
    if (found[k] > 0 && found[k] >= found[best]) best = k;
  return candidates[best];
}

// A cell that is a number only with the decimal comma, on one of the first lines.
bool has_decimal_comma(const std::vector<std::string>& lines, size_t first, char delimiter) {
  for (size_t n = first; n < lines.size() && n < first + 30; ++n) {
    if (is_comment(lines[n], delimiter)) continue;
    for (const std::string& cell : split(lines[n], delimiter))
      if (cell.find(',') != std::string::npos && cell_number(cell, true) &&
          !cell_number(cell, false))
        return true;
  }
  return false;
}

}  // namespace

const char* role_name(ColumnRole role) {
  for (const auto& r : kRoleNames)
    if (r.role == role) return r.name;
  return "-";
}

std::optional<ColumnRole> role_from_name(const std::string& name) {
  for (const auto& r : kRoleNames)
    if (name == r.name) return r.role;
  return std::nullopt;
}

std::optional<ColumnRole> role_from_title(const std::string& title) {
  std::string p = plain(title);
  if (p.starts_with("\xEF\xBB\xBF")) p.erase(0, 3);  // the mark some spreadsheets put first
  if (auto role = known_title(p)) return role;
  // Repeated readings are often numbered: "R1", "R2", "rho 3", "V#2".
  while (!p.empty() && (std::isdigit(static_cast<unsigned char>(p.back())) || p.back() == '#'))
    p.pop_back();
  return p.empty() ? std::nullopt : known_title(p);
}

std::optional<double> cell_number(const std::string& cell, bool decimal_comma) {
  std::string t = cell;
  if (decimal_comma) std::replace(t.begin(), t.end(), ',', '.');
  if (!t.empty() && t.front() == '+') t.erase(0, 1);
  if (t.empty()) return std::nullopt;
  double v = 0.0;
  const auto result = std::from_chars(t.data(), t.data() + t.size(), v);
  if (result.ec != std::errc{} || result.ptr != t.data() + t.size() || !std::isfinite(v))
    return std::nullopt;
  return v;
}

TableText read_table_text(const std::string& content, const TableFormat& format) {
  const std::vector<std::string> lines = lines_of(content);
  TableText table;
  table.delimiter = format.delimiter;
  const size_t first = static_cast<size_t>(std::max(format.skip, 0));
  if (table.delimiter == 0) table.delimiter = guess_delimiter(lines, first);
  table.decimal_comma = format.decimal_comma || (table.delimiter != ',' &&
                                                 has_decimal_comma(lines, first, table.delimiter));
  for (size_t n = first; n < lines.size(); ++n) {
    if (is_comment(lines[n], table.delimiter)) continue;
    TableLine line{static_cast<int>(n) + 1, split(lines[n], table.delimiter)};
    // A reading has a spacing and a value at least: one number alone may stand in a title.
    const bool numbers = std::count_if(line.cells.begin(), line.cells.end(), [&](const auto& c) {
                           return cell_number(c, table.decimal_comma).has_value();
                         }) >= 2;
    // Before the first reading, a line without numbers is a title; the last one is the header.
    if (!numbers && table.rows.empty())
      table.header = std::move(line);
    else
      table.rows.push_back(std::move(line));
  }
  return table;
}

}  // namespace tellux
