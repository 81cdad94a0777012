// The sectioned text file under the settings.
#include <gtest/gtest.h>

#include "core/ini_file.h"

namespace tellux {
namespace {

TEST(IniFile, SectionsAndKeysAreComparedWithoutRegardToCase) {
  const IniFile ini = IniFile::parse("[Tellux]\r\nModèle = 0 \r\n[FILE]\r\nFile 1=a\r\n");
  EXPECT_EQ(ini.get("tellux", "MODÈLE"), "0");
  EXPECT_EQ(ini.get("File", "file 1"), "a");
  EXPECT_FALSE(ini.get("Tellux", "File 1"));
  EXPECT_FALSE(ini.get("Nowhere", "x"));
  EXPECT_TRUE(same_name("couleur_du_modèle", "COULEUR_DU_MODÈLE"));
  EXPECT_FALSE(same_name("modele", "modèle"));
}

TEST(IniFile, ReadGivesTheFallbackForAMissingKey) {
  const IniFile ini = IniFile::parse("[S]\nempty=\n");
  EXPECT_EQ(ini.read("S", "empty", "d"), "");
  EXPECT_EQ(ini.read("S", "missing", "d"), "d");
}

TEST(IniFile, ValuesKeepTheirBlanksThroughQuotes) {
  IniFile ini;
  ini.set("Draw_Parameter", "Graphical_Prog", " ");
  ini.set("Draw_Parameter", "Name", "\"quoted\"");
  const IniFile back = IniFile::parse(ini.text());
  EXPECT_EQ(back.get("Draw_Parameter", "Graphical_Prog"), " ");
  EXPECT_EQ(back.get("Draw_Parameter", "Name"), "\"quoted\"");
}

TEST(IniFile, SetReplacesInPlaceAndAddsNewSectionsAfterABlankLine) {
  IniFile ini = IniFile::parse("; comment\n[A]\nx=1\n\n[B]\ny=2\n");
  ini.set("a", "X", "3");
  ini.set("A", "z", "4");
  ini.set("C", "w", "5");
  EXPECT_EQ(ini.text(), "; comment\n[A]\nX=3\nz=4\n\n[B]\ny=2\n\n[C]\nw=5\n");
}

}  // namespace
}  // namespace tellux
