#include "core/ini_file.h"

#include <filesystem>
#include <iterator>
#include <utility>

#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"

namespace tellux {

namespace {

std::string_view trim(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
    s.remove_suffix(1);
  return s;
}

// One pair of enclosing quotes is taken off a value; that is how a value keeps its blanks.
std::string_view unquote(std::string_view v) {
  if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front())
    return v.substr(1, v.size() - 2);
  return v;
}

std::string quote_if_needed(std::string_view v) {
  std::string out(v);
  for (char& c : out)
    if (c == '\r' || c == '\n') c = ' ';  // one line per key
  const bool blank_ends = !out.empty() && (out.front() == ' ' || out.front() == '\t' ||
                                           out.back() == ' ' || out.back() == '\t');
  const bool quoted_ends =
      out.size() >= 2 && (out.front() == '"' || out.front() == '\'') && out.back() == out.front();
  return blank_ends || quoted_ends ? '"' + out + '"' : out;
}

// Lower case of one character of UTF-8 text at `i`, for ASCII and the Latin-1 letters (À..Þ);
// advances `i` over it.
unsigned fold(std::string_view s, size_t& i) {
  const auto c = static_cast<unsigned char>(s[i++]);
  if (c >= 'A' && c <= 'Z') return c + 32u;
  if (c == 0xC3 && i < s.size()) {
    const auto d = static_cast<unsigned char>(s[i++]);
    const unsigned lower = d >= 0x80 && d <= 0x9E && d != 0x97 ? d + 0x20u : d;
    return 0xC300u | lower;
  }
  return c;
}

}  // namespace

bool same_name(std::string_view a, std::string_view b) {
  size_t i = 0, j = 0;
  while (i < a.size() && j < b.size())
    if (fold(a, i) != fold(b, j)) return false;
  return i == a.size() && j == b.size();
}

IniFile IniFile::parse(std::string_view bytes) {
  IniFile ini;
  while (!bytes.empty()) {
    const size_t end = bytes.find('\n');
    const std::string_view raw = bytes.substr(0, end);
    bytes = end == std::string_view::npos ? std::string_view() : bytes.substr(end + 1);
    const std::string decoded = rt::to_utf8(raw);
    const std::string_view line = decoded;
    const std::string_view t = trim(line);
    if (!t.empty() && t.front() == '[') {
      const size_t close = t.find(']');
      const std::string_view name =
          trim(t.substr(1, close == std::string_view::npos ? t.npos : close - 1));
      ini.sections_.push_back({std::string(name), {}, std::string(raw)});
      continue;
    }
    const size_t eq = t.find('=');
    if (t.empty() || t.front() == ';' || eq == std::string_view::npos ||
        trim(t.substr(0, eq)).empty()) {
      ini.sections_.back().entries.push_back({"", std::string(trim(line)), std::string(raw)});
      continue;
    }
    ini.sections_.back().entries.push_back({std::string(trim(t.substr(0, eq))),
                                            std::string(unquote(trim(t.substr(eq + 1)))),
                                            std::string(raw)});
  }
  return ini;
}

IniFile IniFile::load(const std::string& path) {
  std::error_code ec;
  if (!std::filesystem::exists(path, ec)) return parse("");
  return parse(rt::read_whole_file(path, 256u << 10));
}

const IniFile::Section* IniFile::find_section(std::string_view name) const {
  for (const Section& s : sections_)
    if (!s.name.empty() && same_name(s.name, name)) return &s;
  return nullptr;
}

IniFile::Section* IniFile::find_section(std::string_view name) {
  return const_cast<Section*>(std::as_const(*this).find_section(name));
}

std::optional<std::string> IniFile::get(std::string_view section, std::string_view key) const {
  const Section* s = find_section(section);
  if (!s) return std::nullopt;
  for (const Entry& e : s->entries)
    if (!e.key.empty() && same_name(e.key, key)) return e.value;
  return std::nullopt;
}

std::string IniFile::read(std::string_view section, std::string_view key,
                          std::string_view fallback) const {
  const auto value = get(section, key);
  return std::string(value ? std::string_view(*value) : fallback);
}

void IniFile::set(std::string_view section, std::string_view key, std::string_view value) {
  Section* s = find_section(section);
  if (!s) {
    // A blank line between sections, as a person would write the file.
    auto& last = sections_.back().entries;
    if (!last.empty() && !(last.back().key.empty() && last.back().value.empty()))
      last.push_back({"", "", ""});
    sections_.push_back({std::string(section), {}, ""});
    s = &sections_.back();
  }
  for (Entry& e : s->entries) {
    if (!e.key.empty() && same_name(e.key, key)) {
      if (e.value == value) return;  // unchanged: the line stays as the file had it
      e.key = std::string(key);
      e.value = std::string(value);
      e.raw.clear();
      return;
    }
  }
  // New keys go after the section's last key, before any trailing blank lines.
  auto at = s->entries.end();
  while (at != s->entries.begin() && std::prev(at)->key.empty() && std::prev(at)->value.empty())
    --at;
  s->entries.insert(at, {std::string(key), std::string(value), ""});
}

std::string IniFile::text() const {
  std::string out;
  for (const Section& s : sections_) {
    if (!s.name.empty()) out += (s.raw.empty() ? "[" + s.name + "]" : s.raw) + "\n";
    for (const Entry& e : s.entries) {
      if (!e.raw.empty())
        out += e.raw + "\n";
      else
        out += e.key.empty() ? e.value + "\n" : e.key + "=" + quote_if_needed(e.value) + "\n";
    }
  }
  return out;
}

void IniFile::save(const std::string& path) const {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  std::error_code ec;
  if (!folder.empty()) std::filesystem::create_directories(folder, ec);
  rt::write_file_atomically(path, text());
}

}  // namespace tellux
