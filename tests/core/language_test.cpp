// The letter of "Langue" and the four flags.
#include <gtest/gtest.h>

#include "core/language.h"

namespace tellux {
namespace {

TEST(Language, EachLetterSetsItsOneFlag) {
  const LanguageFlags f = language_from_letter("F");
  EXPECT_TRUE(f.French);
  EXPECT_FALSE(f.English || f.Spanish || f.German);
  EXPECT_TRUE(language_from_letter("S").Spanish);
  EXPECT_TRUE(language_from_letter("A").German);
  EXPECT_FALSE(language_from_letter("A").English);
  EXPECT_TRUE(language_from_letter("E").English);
  // Letters are compared exactly; anything else speaks English.
  EXPECT_TRUE(language_from_letter("f").English);
  EXPECT_TRUE(language_from_letter("").English);
}

TEST(Language, TheLetterOfTheFlagsTestsEnglishFrenchSpanishGermanEachOverriding) {
  for (const char* letter : {"E", "F", "S", "A"})
    EXPECT_EQ(letter_from_flags(language_from_letter(letter)), letter);
  LanguageFlags several;
  several.English = true;
  several.French = true;
  several.Spanish = true;
  EXPECT_EQ(letter_from_flags(several), "S");
  several.German = true;
  EXPECT_EQ(letter_from_flags(several), "A");
  EXPECT_EQ(letter_from_flags(LanguageFlags{false, false, false, false}, "F"), "F");
}

TEST(Language, MessagesTestFrenchThenSpanishElseEnglish) {
  const auto say = [](const char* letter) {
    return std::string(pick(language_from_letter(letter), "fr", "es", "en"));
  };
  EXPECT_EQ(say("F"), "fr");
  EXPECT_EQ(say("S"), "es");
  EXPECT_EQ(say("E"), "en");
  EXPECT_EQ(say("A"), "en");
}

}  // namespace
}  // namespace tellux
