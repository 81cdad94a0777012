#pragma once
// A sectioned settings file: "[Section]" lines, then "key=value" lines. Section and key names are
// compared without regard to case (so "modèle" and "Modèle" are one key). Other lines (comments,
// blank lines) are kept as they stand when the file is written back. A line that is not UTF-8 is
// read as Windows-1252 (that line only), and every line the program does not change is written
// back byte for byte; changed and new lines are written in UTF-8.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tellux {

class IniFile {
 public:
  struct Entry {
    std::string key;    // empty for a line kept as it stands
    std::string value;  // the value, or the whole line kept as it stands
    std::string raw;    // the line's bytes in the file, written back while nothing changes it
  };
  struct Section {
    std::string name;
    std::vector<Entry> entries;
    std::string raw;
  };

  static IniFile parse(std::string_view text);
  // The file at `path`; an empty one when it is missing. A file that is there but cannot be read
  // (not a plain file, not readable, or above 256 KB, which no settings file comes near and
  // whose every line would be held) raises its run-time error: written over, it would be lost.
  static IniFile load(const std::string& path);

  // The value as it stands in the file, when the key is there.
  std::optional<std::string> get(std::string_view section, std::string_view key) const;
  // The value as the program reads it: the file's value, whole, or else `fallback`.
  std::string read(std::string_view section, std::string_view key, std::string_view fallback) const;
  // Sets a key, adding the section and the key at their ends when they are new. The key takes
  // the spelling given here.
  void set(std::string_view section, std::string_view key, std::string_view value);

  const std::vector<Section>& sections() const { return sections_; }
  std::string text() const;
  // Writes the file whole, so that a failure leaves the old one intact; creates its folder.
  // Raises the run-time file errors.
  void save(const std::string& path) const;

 private:
  Section* find_section(std::string_view name);
  const Section* find_section(std::string_view name) const;
  std::vector<Section> sections_{Section{}};  // the first holds the lines before any section
};

// Compares two names as the settings file does: ASCII and Latin-1 letters without regard to case.
bool same_name(std::string_view a, std::string_view b);

}  // namespace tellux
