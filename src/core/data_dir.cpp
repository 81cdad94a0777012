#include "core/data_dir.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace tellux {

namespace {

#ifndef TELLUX_INSTALL_DATA_DIR
#define TELLUX_INSTALL_DATA_DIR ""
#endif
#ifndef TELLUX_SOURCE_DATA_DIR
#define TELLUX_SOURCE_DATA_DIR "data"
#endif

bool is_folder(const std::string& path) {
  std::error_code ec;
  return !path.empty() && std::filesystem::is_directory(path, ec);
}

bool is_file(const std::string& path) {
  std::error_code ec;
  return !path.empty() && std::filesystem::is_regular_file(path, ec);
}

std::string without_trailing_separator(std::string path) {
  while (path.size() > 1 && (path.back() == '/' || path.back() == '\\')) path.pop_back();
  return path;
}

}  // namespace

std::string data_dir() {
  if (const char* env = std::getenv("TELLUX_DATA_DIR"); env && *env)
    return without_trailing_separator(env);
  if (is_folder(TELLUX_INSTALL_DATA_DIR))
    return without_trailing_separator(TELLUX_INSTALL_DATA_DIR);
  return without_trailing_separator(TELLUX_SOURCE_DATA_DIR);
}

const char* spread_file_name(std::string_view spread_tag) {
  if (spread_tag == "1") return "DATADIP.TXT";
  if (spread_tag == "2") return "DATAWEN.TXT";
  return "DATAVES.TXT";
}

std::string spread_file_for(std::string_view spread_tag) {
  return (std::filesystem::path(data_dir()) / spread_file_name(spread_tag)).string();
}

std::string usable_spread_file(const std::string& setting, std::string_view spread_tag) {
  return is_file(setting) ? setting : spread_file_for(spread_tag);
}

}  // namespace tellux
