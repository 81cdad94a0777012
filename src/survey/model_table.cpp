#include "survey/model_table.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace tellux {

namespace {

// A value read from a file in single precision, as the file wrote it ("2.4", not
// 2.4000000953674316).
double as_written(double v) {
  const float f = static_cast<float>(v);
  if (static_cast<double>(f) != v) return v;
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, f).ptr;
  double tidy = v;
  std::from_chars(buffer, end, tidy);
  return tidy;
}

}  // namespace

std::vector<LayerRow> model_layers(const SoundingState& s) {
  std::vector<LayerRow> rows;
  double depth = 0.0;
  const int last = std::clamp<int>(s.LayerCount, 0, 20);
  for (int i = 1; i <= last; ++i) {
    LayerRow row;
    row.resistivity = as_written(s.LayerModel(i, 1).num());
    row.thickness = i == last ? 0.0 : as_written(s.LayerModel(i, 2).num());
    row.depth = as_written(static_cast<float>(depth));
    depth += row.thickness;
    rows.push_back(row);
  }
  return rows;
}

std::string number_text(double v) {
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, v);
  return std::string(buffer, result.ptr);
}

bool location_number(const std::string& text, double& v) {
  const size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return false;
  const size_t last = text.find_last_not_of(' ');
  std::string trimmed = text.substr(first, last - first + 1);
  // A location typed with the decimal comma of its locale.
  if (trimmed.find('.') == std::string::npos &&
      std::count(trimmed.begin(), trimmed.end(), ',') == 1)
    trimmed[trimmed.find(',')] = '.';
  const auto result = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), v);
  return result.ec == std::errc{} && result.ptr == trimmed.data() + trimmed.size() &&
         std::isfinite(v);
}

std::string csv_field(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string out = "\"";
  for (char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  return out + '"';
}

std::string csv_line(const std::vector<std::string>& fields) {
  std::string line;
  for (size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) line += ',';
    line += csv_field(fields[i]);
  }
  return line + "\n";
}

}  // namespace tellux
