// The letter of "Langue" and the four flags.
#include <gtest/gtest.h>

#include "core/language.h"

namespace tellux {
namespace {

// Each letter sets its one flag, compared exactly: anything else speaks English. Messages test
// French, then Spanish, else English; the letter of the flags tests English, French, Spanish and
// German, each overriding the one before.
TEST(Language, LettersFlagsAndMessages) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"E", "E", "en"}, {"F", "F", "fr"}, {"S", "S", "es"},
      {"A", "A", "en"}, {"f", "E", "en"}, {"", "E", "en"}};
  for (auto [letter, back, says] : cases) {
    const LanguageFlags f = language_from_letter(letter);
    EXPECT_EQ(f.English + f.French + f.Spanish + f.German, 1) << letter;
    EXPECT_EQ(letter_from_flags(f), back) << letter;
    EXPECT_STREQ(pick(f, "fr", "es", "en"), says) << letter;
  }
  LanguageFlags several{true, true, true, false};
  EXPECT_EQ(letter_from_flags(several), "S");
  several.German = true;
  EXPECT_EQ(letter_from_flags(several), "A");
  EXPECT_EQ(letter_from_flags(LanguageFlags{false, false, false, false}, "F"), "F");
}

}  // namespace
}  // namespace tellux
