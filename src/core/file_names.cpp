#include "core/file_names.h"

#include <algorithm>

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

void rename_to_tx3(std::string& name) {
  name = name.substr(0, name.size() - std::min<size_t>(3, name.size())) + "TX3";
}

std::string last_three(const std::string& name) {
  return name.size() <= 3 ? name : name.substr(name.size() - 3);
}

}  // namespace tellux
