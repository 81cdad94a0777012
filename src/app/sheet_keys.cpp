#include "app/sheet_keys.h"

namespace tellux {

std::optional<char> sheet_key_char(int key) {
  if (key >= 96 && key <= 105) key -= 48;
  if (key == 62 || key == 142) key = '.';
  if (key == kBackspace || key == '.' || (key >= '0' && key <= '9')) return static_cast<char>(key);
  return std::nullopt;
}

}  // namespace tellux
