// The sectioned text file under the settings.
#include <gtest/gtest.h>

#include "core/ini_file.h"

namespace tellux {
namespace {

// Names fold ASCII and the Latin-1 capitals À..Þ (not ×) to lower case; blanks and tabs around
// names and values and the CR of a line end are trimmed, and quotes keep a value's blanks.
TEST(IniFile, NamesAreComparedWithoutRegardToCaseAndBlanksAreTrimmed) {
  const IniFile ini = IniFile::parse(
      " [ Tellux ]\t\r\nModèle = 0 \r\n\tÉtat\t=\t'x'\t\r\nempty=\r\n[FILE]\r\nFile 1=a\r\n");
  EXPECT_EQ(ini.get("tellux", "MODÈLE"), "0");
  EXPECT_EQ(ini.get("TELLUX", "état"), "x");
  EXPECT_EQ(ini.get("File", "file 1"), "a");
  EXPECT_FALSE(ini.get("Tellux", "File 1"));
  EXPECT_FALSE(ini.get("Nowhere", "x"));
  EXPECT_EQ(ini.read("Tellux", "empty", "d"), "");
  EXPECT_EQ(ini.read("Tellux", "missing", "d"), "d");
  const std::pair<const char*, const char*> same[] = {
      {"couleur_du_modèle", "COULEUR_DU_MODÈLE"}, {"À-Þ", "à-þ"}, {"AZ", "az"}};
  const std::pair<const char*, const char*> differ[] = {
      {"@", "`"}, {"[", "{"}, {"modele", "modèle"}, {"×", "÷"}, {"ab", "abc"}, {"abc", "ab"}};
  for (auto [a, b] : same) EXPECT_TRUE(same_name(a, b)) << a;
  for (auto [a, b] : differ) EXPECT_FALSE(same_name(a, b)) << a << " " << b;
}

TEST(IniFile, SetReplacesInPlaceAddsNewSectionsAfterABlankLineAndQuotesBlankEnds) {
  IniFile ini = IniFile::parse("; comment\n[A]\nx=1\n\n[B]\ny=2\n");
  ini.set("a", "X", "3");
  ini.set("A", "z", "4");
  ini.set("C", "w", " ");
  ini.set("C", "n", "\"quoted\"");
  EXPECT_EQ(ini.text(), "; comment\n[A]\nX=3\nz=4\n\n[B]\ny=2\n\n[C]\nw=\" \"\nn=\"\"quoted\"\"\n");
  const IniFile back = IniFile::parse(ini.text());
  EXPECT_EQ(back.get("C", "w"), " ");
  EXPECT_EQ(back.get("C", "n"), "\"quoted\"");
}

}  // namespace
}  // namespace tellux
