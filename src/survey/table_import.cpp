#include "survey/table_import.h"

#include <algorithm>
#include <sstream>

#include "core/runtime/arithmetic.h"
#include "core/runtime/errors.h"
#include "model/geometric_factor.h"
#include "model/splice_shift.h"

namespace tellux {

namespace {

// The sheet has 50 rows.
constexpr int kMostRows = 50;

// One reading after the means: the values of the sheet's columns.
struct Reading {
  int line = 0;
  double ab = 0, mn = 0, dv = 0, i = 0, K = 0, rho = 0;
};

bool has(const std::vector<ColumnRole>& roles, ColumnRole role) {
  return std::find(roles.begin(), roles.end(), role) != roles.end();
}

std::string number_words(double v) {
  std::ostringstream out;
  out << v;
  return out.str();
}

// What the roles cannot do, in words; empty when they can give resistivities.
std::string missing_roles(const std::vector<ColumnRole>& roles, const SoundingState& s) {
  const LanguageFlags& l = s.Language;
  if (!has(roles, ColumnRole::AbHalf))
    return pick(l, "aucune colonne AB/2 (ab2)", "ninguna columna AB/2 (ab2)",
                "no column of AB/2 (ab2)");
  const bool rhoa = has(roles, ColumnRole::Rhoa);
  const bool r = has(roles, ColumnRole::Resistance);
  const bool dvi = has(roles, ColumnRole::DeltaV) && has(roles, ColumnRole::Current);
  if (!rhoa && !r && !dvi)
    return pick(l, "aucune colonne de résistivité (rhoa), de résistance (r) ni DeltaV et I",
                "ninguna columna de resistividad (rhoa), resistencia (r) ni DeltaV e I",
                "no column of resistivity (rhoa), resistance (r) or DeltaV and I");
  if (!rhoa && s.Spread != SpreadType::Wenner && !has(roles, ColumnRole::MnHalf) &&
      !has(roles, ColumnRole::K))
    return pick(l, "aucune colonne MN/2 (mn2) pour le facteur géométrique",
                "ninguna columna MN/2 (mn2) para el factor geométrico",
                "no column of MN/2 (mn2) for the geometric factor");
  return {};
}

// The mean of the cells of one role in a row. Zero or negative resistances and resistivities are
// left out one by one and named; `bad` is set for a cell that is not a number.
std::optional<double> mean_of(const TableLine& line, const std::vector<ColumnRole>& roles,
                              ColumnRole role, bool decimal_comma, bool& bad,
                              std::vector<std::string>& messages) {
  double sum = 0;
  int n = 0;
  for (size_t c = 0; c < roles.size() && c < line.cells.size(); ++c) {
    if (roles[c] != role || line.cells[c].empty()) continue;
    const std::optional<double> v = cell_number(line.cells[c], decimal_comma);
    if (!v) {
      bad = true;
      continue;
    }
    if ((role == ColumnRole::Resistance || role == ColumnRole::Rhoa) && *v <= 0) {
      messages.push_back("Line " + std::to_string(line.number) + ": reading " + line.cells[c] +
                         " left out (zero or negative)");
      continue;
    }
    sum += *v;
    ++n;
  }
  if (n == 0) return std::nullopt;
  return sum / n;
}

// A reading of one line as the sheet computes it; none, with a message, when it gives none.
std::optional<Reading> read_line(const SoundingState& s, const TableLine& line,
                                 const std::vector<ColumnRole>& roles, bool decimal_comma,
                                 std::vector<std::string>& messages) {
  const size_t told = messages.size();
  bool bad = false;
  const auto mean = [&](ColumnRole role) {
    return mean_of(line, roles, role, decimal_comma, bad, messages);
  };
  Reading x;
  x.line = line.number;
  const auto ab = mean(ColumnRole::AbHalf), mn = mean(ColumnRole::MnHalf);
  const auto rhoa = mean(ColumnRole::Rhoa), r = mean(ColumnRole::Resistance);
  const auto dv = mean(ColumnRole::DeltaV), i = mean(ColumnRole::Current);
  const auto k = mean(ColumnRole::K);
  const std::string where = "Line " + std::to_string(line.number) + ": ";
  if (bad) {
    messages.push_back(where + "a cell is not a number; the line is left out");
    return std::nullopt;
  }
  if (!ab || *ab <= 0) {
    messages.push_back(where + "no AB/2; the line is left out");
    return std::nullopt;
  }
  x.ab = *ab;
  x.mn = mn.value_or(0.0);
  if (r) {
    x.dv = *r * 1000;
    x.i = 1000;
  } else {
    x.dv = dv.value_or(0.0);
    x.i = i.value_or(0.0);
  }
  const bool measured =
      s.Spread == SpreadType::Wenner ? x.dv * x.i * x.ab > 0 : x.dv * x.i * x.ab * x.mn > 0 || k;
  try {
    if (measured)
      x.K = k ? *k : round_geometric_factor(geometric_factor(s.Spread, s.HalfArray, x.ab, x.mn));
    if (rhoa)
      x.rho = round_resistivity(*rhoa);
    else if (measured)
      x.rho = round_resistivity(rt::Div(x.K * x.dv, x.i));
  } catch (const rt::RuntimeError&) {
    messages.push_back(where + "no geometric factor for these spacings; the line is left out");
    return std::nullopt;
  }
  if (!(x.rho > 0)) {
    // Each line left out is named once: its readings may already have been.
    if (measured && !rhoa)
      messages.push_back(where + "resistivity " + number_words(x.rho) +
                         " left out (zero or negative)");
    else if (messages.size() == told)
      messages.push_back(where + "no reading; the line is left out");
    return std::nullopt;
  }
  return x;
}

}  // namespace

std::optional<std::vector<ColumnRole>> roles_from_list(const std::string& list) {
  std::vector<ColumnRole> roles;
  std::string name;
  std::istringstream in(list);
  while (std::getline(in, name, ',')) {
    const auto role = role_from_name(name);
    if (!role) return std::nullopt;
    roles.push_back(*role);
  }
  return roles;
}

TableImport import_table(SoundingState& s, const std::string& content, const TableLayout& layout,
                         const std::string& origin) {
  TableImport result;
  const TableText table = read_table_text(content, layout.format);
  result.roles = layout.roles;
  if (result.roles.empty() && table.header)
    for (const std::string& title : table.header->cells)
      result.roles.push_back(role_from_title(title).value_or(ColumnRole::Skip));
  if (const std::string missing = missing_roles(result.roles, s); !missing.empty()) {
    const LanguageFlags& l = s.Language;
    std::string seen;
    if (table.header)
      for (const std::string& title : table.header->cells)
        seen += (seen.empty() ? "" : ", ") + ("\"" + title + "\"");
    result.messages.push_back(
        pick(l, "Les colonnes du tableau ne peuvent être lues : ",
             "Las columnas de la tabla no se pueden leer: ",
             "The columns of the table cannot be read: ") +
        missing +
        (table.header
             ? pick(l, ". Colonnes vues : ", ". Columnas vistas: ", ". Columns seen: ") + seen
             : std::string(pick(l, ". Le tableau n'a pas d'en-tête",
                                ". La tabla no tiene encabezado", ". The table has no header"))));
    result.roles_missing = true;
    return result;
  }

  std::vector<Reading> readings;
  for (const TableLine& line : table.rows)
    if (auto x = read_line(s, line, result.roles, table.decimal_comma, result.messages))
      readings.push_back(*x);
  // Rising AB/2; a repeated spacing keeps the order of its segments.
  std::stable_sort(readings.begin(), readings.end(),
                   [](const Reading& a, const Reading& b) { return a.ab < b.ab; });
  if (readings.size() > static_cast<size_t>(kMostRows)) {
    result.messages.push_back("Only the first 50 readings were kept; the table has " +
                              std::to_string(readings.size()));
    readings.resize(kMostRows);
  }
  if (readings.empty()) {
    result.messages.insert(
        result.messages.begin(),
        pick(s.Language, "Le tableau ne contient aucune lecture",
             "La tabla no contiene ninguna lectura", "The table holds no reading"));
    return result;
  }

  s.FieldTable = FieldTableT{};
  s.LayerModel = LayerTableT{};
  s.LayerCount = 0;
  s.MaxAbHalf = 0;
  for (size_t n = 0; n < readings.size(); ++n) {
    const Reading& x = readings[n];
    const int row = static_cast<int>(n) + 1;
    s.FieldTable(row, 1) = x.ab;
    s.FieldTable(row, 2) = x.rho;
    s.FieldTable(row, 3) = x.mn;
    s.FieldTable(row, 4) = x.dv;
    s.FieldTable(row, 5) = x.K;
    s.FieldTable(row, 6) = x.i;
    s.FieldTable(row, 7) = x.rho;
    if (x.ab > s.MaxAbHalf) s.MaxAbHalf = rt::CInt(x.ab);
  }
  s.FieldCount = static_cast<int16_t>(readings.size());
  s.CommentText = s.GraphTitle = s.LocationX = s.LocationY = s.LocationZ = s.LocationAzimuth = "";
  s.DataOrigin = origin;
  result.ok = true;
  return result;
}

}  // namespace tellux
