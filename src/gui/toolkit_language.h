#pragma once
// The toolkit's own texts (the file, colour, print and page setup dialogs, the buttons of the
// message boxes) in the language of the program, from the toolkit's translations where they are
// installed; without them those texts stay in English.
#include <QString>

#include "core/sounding_state.h"

namespace tellux {

// The translation file's language for the program's flags: "fr", "es", "de", or empty (English).
QString toolkit_language(const LanguageFlags& flags);

// Loads the toolkit's translation of that language in place of the one before. False when none
// was found (English, or the translations are not installed).
bool follow_language(const LanguageFlags& flags);

}  // namespace tellux
