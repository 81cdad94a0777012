#include "core/file_names.h"

#include <algorithm>
#include <filesystem>

namespace tellux {

namespace {
constexpr const char* kSeparators = "/\\";
}

std::string bare_name(const std::string& path) {
  const size_t slash = path.find_last_of(kSeparators);
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string name_after_last_separator(const std::string& path) {
  const size_t slash = path.find_last_of(kSeparators);
  if (slash != std::string::npos) return path.substr(slash + 1);
  return path.empty() ? std::string() : path.substr(1);
}

std::string directory_part(const std::string& path, const std::string& name) {
  return path.substr(0, path.size() - std::min(path.size(), name.size()));
}

void rename_to_tx3(std::string& name) { name = with_extension(name, ".TX3"); }

std::string without_extension(const std::string& path) {
  const size_t name = path.size() - bare_name(path).size();
  const size_t point = path.find_last_of('.');
  return point == std::string::npos || point <= name ? path : path.substr(0, point);
}

std::string with_extension(const std::string& path, const std::string& extension) {
  return without_extension(path) + extension;
}

std::string folder_of(const std::string& path) {
  std::error_code ec;
  std::filesystem::path folder = std::filesystem::absolute(path, ec).parent_path();
  if (ec) folder = std::filesystem::path(path).parent_path();
  std::string text = folder.string();
  if (!text.empty() && text.back() != '/' && text.back() != '\\') text += '/';
  return text;
}

std::string last_three(const std::string& name) {
  return name.size() <= 3 ? name : name.substr(name.size() - 3);
}

}  // namespace tellux
