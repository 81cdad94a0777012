#pragma once
// The language of the program: the letter kept in the settings under "Langue" ("E" English,
// "S" Spanish, "F" French, "A" German) and the four flags the messages are chosen by.
#include <string>
#include <string_view>

#include "core/sounding_state.h"

namespace tellux {

// The one flag of a letter. Letters are compared exactly; an unknown one gives English, the
// language every message falls back to anyway.
LanguageFlags language_from_letter(std::string_view letter);

// The letter of the flags, tested in the order English, French, Spanish, German, each overriding
// the one before; with no flag set the letter stays `current`.
std::string letter_from_flags(const LanguageFlags& flags, std::string current = "E");

}  // namespace tellux
