#include "convert/items.h"

namespace tellux {

std::vector<std::string> split_items(const std::string& text, size_t most) {
  std::vector<std::string> items;
  std::string item;
  for (char c : text) {
    if (items.size() == most) return items;
    if (c == ',' || c == ' ' || c == '\t' || c == '\r' || c == '\n') {
      if (!item.empty()) items.push_back(item);
      item.clear();
    } else {
      item += c;
    }
  }
  if (!item.empty() && items.size() < most) items.push_back(item);
  return items;
}

std::string first_line(const std::string& text, std::string& rest) {
  const size_t end = text.find('\n');
  std::string line = text.substr(0, end);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  rest = end == std::string::npos ? std::string() : text.substr(end + 1);
  return line;
}

}  // namespace tellux
