#include "core/runtime/number_text.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/runtime/errors.h"

namespace tellux::rt {

namespace {

int significant_digits(Kind kind) { return kind == Kind::Single ? 7 : 15; }

void trim_fraction_zeros(std::string& s) {
  if (s.find('.') == std::string::npos) return;
  while (!s.empty() && s.back() == '0') s.pop_back();
  if (!s.empty() && s.back() == '.') s.pop_back();
}

// General form with `digits` significant digits: fixed notation for exponents -4..digits-1,
// exponent notation ("1.234568E+07", "1E-05") outside; no zero before the point.
std::string general_text(double v, int digits) {
  if (v == 0.0) return "0";
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*e", digits - 1, v);
  std::string sci(buf);
  const size_t e = sci.find('e');
  const int exponent = std::atoi(sci.c_str() + e + 1);
  if (exponent < -4 || exponent >= digits) {
    std::string mantissa = sci.substr(0, e);
    trim_fraction_zeros(mantissa);
    std::snprintf(buf, sizeof buf, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
    return mantissa + buf;
  }
  std::snprintf(buf, sizeof buf, "%.*f", digits - 1 - exponent, v);
  std::string fixed(buf);
  trim_fraction_zeros(fixed);
  if (fixed.rfind("0.", 0) == 0) fixed.erase(0, 1);
  if (fixed.rfind("-0.", 0) == 0) fixed.erase(1, 1);
  return fixed;
}

}  // namespace

std::string CStr(double v, Kind kind) {
  if (kind == Kind::Int16 || kind == Kind::Int32) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.0f", v);
    return buf;
  }
  if (kind == Kind::Single) v = static_cast<float>(v);
  return general_text(v, significant_digits(kind));
}

std::string Str(double v, Kind kind) {
  std::string text = CStr(v, kind);
  if (text.empty() || text[0] != '-') text.insert(text.begin(), ' ');
  return text;
}

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Reads a decimal number at the front of s; returns the characters used (0 when none).
size_t scan_decimal(std::string_view s, double& out) {
  size_t i = 0;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
  size_t digits = 0;
  while (i < s.size() && is_digit(s[i])) ++i, ++digits;
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && is_digit(s[i])) ++i, ++digits;
  }
  if (digits == 0) return 0;
  size_t end = i;
  if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
    size_t j = i + 1;
    if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
    if (j < s.size() && is_digit(s[j])) {
      while (j < s.size() && is_digit(s[j])) ++j;
      end = j;
    }
  }
  std::string text(s.substr(0, end));
  for (char& c : text)
    if (c == 'D' || c == 'd') c = 'E';
  out = std::strtod(text.c_str(), nullptr);
  return end;
}

}  // namespace

double Val(std::string_view text) {
  std::string s;
  s.reserve(text.size());
  for (char c : text)
    if (c != ' ' && c != '\t' && c != '\n' && c != '\r') s.push_back(c);
  if (s.size() >= 2 && s[0] == '&') {
    const char base = static_cast<char>(s[1] | 0x20);
    const int radix = base == 'h' ? 16 : base == 'o' ? 8 : 0;
    if (radix != 0) return static_cast<double>(std::strtoll(s.c_str() + 2, nullptr, radix));
  }
  double v = 0.0;
  return scan_decimal(s, v) ? v : 0.0;
}

double parse_number_token(std::string_view token) {
  while (!token.empty() && (token.front() == ' ' || token.front() == '\t')) token.remove_prefix(1);
  while (!token.empty() && (token.back() == ' ' || token.back() == '\t')) token.remove_suffix(1);
  if (token.empty()) return 0.0;
  double v = 0.0;
  if (scan_decimal(token, v) != token.size()) raise(kTypeMismatch);
  if (!std::isfinite(v)) raise(kOverflow);
  return v;
}

}  // namespace tellux::rt
