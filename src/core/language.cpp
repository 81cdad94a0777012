#include "core/language.h"

namespace tellux {

LanguageFlags language_from_letter(std::string_view letter) {
  LanguageFlags flags;
  flags.English = false;
  if (letter == "F") {
    flags.French = true;
  } else if (letter == "S") {
    flags.Spanish = true;
  } else if (letter == "A") {
    flags.German = true;
  } else {
    flags.English = true;
  }
  return flags;
}

std::string letter_from_flags(const LanguageFlags& flags, std::string current) {
  if (flags.English) current = "E";
  if (flags.French) current = "F";
  if (flags.Spanish) current = "S";
  if (flags.German) current = "A";
  return current;
}

}  // namespace tellux
