// Tables of readings against the field sheet: the same readings typed in the sheet and computed
// give the same rows of the TX3 file as the table imported.
#include <cstdio>

#include "app/sheet_fixture.h"
#include "core/sounding_file.h"
#include "survey/table_import.h"

namespace tellux::testing {
namespace {

const std::string kData = TELLUX_TEST_DATA "/survey/";

class TableImportTest : public SheetTest {
 protected:
  // The count line and the field rows of the record written as a TX3 file.
  std::string rows_written(SoundingState& record) {
    Session writing{record, dialogs, forms};
    record.WorkMode = mode::kFile;
    std::string target = path("rows.TX3");
    record.FileName = record.FilePath = target;
    EXPECT_TRUE(write_sounding_file(writing, target));
    const std::string text = read("rows.TX3");
    size_t at = 0;
    for (int n = 0; n <= record.FieldCount; ++n) at = text.find('\n', at) + 1;
    return text.substr(0, at);
  }
  TableImport imported(const std::string& file, const TableLayout& layout = {}) {
    table = s;
    return import_table(table, rt::read_whole_file(kData + file), layout, file);
  }
  // Rows typed as MN/2, AB/2, DeltaV, I, then Compute.
  std::string rows_typed(const std::vector<std::array<double, 4>>& rows) {
    for (size_t r = 0; r < rows.size(); ++r) {
      std::vector<std::string> cells;
      for (double v : rows[r]) {
        char text[32];
        std::snprintf(text, sizeof text, "%.12g", v);
        cells.emplace_back(text);
      }
      put_row(static_cast<int>(r) + 1, cells);
    }
    sheet.Compute();
    return rows_written(s);
  }
  SoundingState table;
};

TEST_F(TableImportTest, SemicolonsAndDecimalCommaGiveTheSheetsRows) {
  // The decimal comma is found: the cells are separated by semicolons.
  const TableImport import = imported("readings_semicolon.csv");
  ASSERT_TRUE(import.ok);
  EXPECT_EQ(import.messages, std::vector<std::string>{});
  using R = ColumnRole;
  EXPECT_EQ(import.roles, (std::vector<R>{R::AbHalf, R::MnHalf, R::DeltaV, R::Current, R::Skip}));
  const std::string expected = rows_typed({{.5, 1.5, 1250.4, 120},
                                           {.5, 2, 640.2, 120},
                                           {.5, 3, 255.8, 150},
                                           {.5, 4, 118.6, 150},
                                           {.5, 6, 40.3, 180},
                                           {.5, 8, 17.9, 180},
                                           {.5, 10, 9.4, 200},
                                           {2, 10, 38.1, 200},
                                           {2, 15, 14.2, 220},
                                           {2, 20, 7.35, 250},
                                           {2, 30, 2.98, 250},
                                           {2, 40, 1.66, 300},
                                           {2, 60, .84, 320},
                                           {10, 60, 4.31, 320},
                                           {10, 80, 2.62, 350},
                                           {10, 100, 1.85, 400},
                                           {10, 150, .97, 450}});
  EXPECT_EQ(rows_written(table), expected);
}

// Four readings a spacing, in ohms: their mean, negatives left out one by one and named with
// their line; the sheet takes a resistance as DeltaV in mV for I = 1000 mA.
TEST_F(TableImportTest, RepeatedResistancesTakeTheirMeanWithoutTheNegativeOnes) {
  const TableImport import = imported("field_resistances.csv");
  ASSERT_TRUE(import.ok);
  EXPECT_EQ(import.messages,
            (std::vector<std::string>{"Line 9: reading -2.458 left out (zero or negative)",
                                      "Line 18: reading -0.0002 left out (zero or negative)",
                                      "Line 24: reading -0.0141 left out (zero or negative)",
                                      "Line 24: reading -0.0138 left out (zero or negative)",
                                      "Line 24: reading 0.0000 left out (zero or negative)",
                                      "Line 24: reading -0.0139 left out (zero or negative)"}));
  const auto row = [](double mn, double ab, std::vector<double> r) -> std::array<double, 4> {
    double sum = 0;
    for (double v : r) sum += v;
    return {mn, ab, sum / static_cast<double>(r.size()) * 1000, 1000};
  };
  const std::string expected = rows_typed(
      {row(.25, 1, {31.42, 31.38, 31.45, 31.40}), row(.25, 1.5, {12.61, 12.64, 12.58, 12.60}),
       row(.25, 2, {6.312, 6.305, 6.320, 6.298}), row(.25, 3, {2.455, 2.461, 2.450}),
       row(.25, 4, {1.204, 1.198, 1.207, 1.201}), row(.25, 5, {.7012, .6998, .7005, .7020}),
       row(1, 5, {2.813, 2.806, 2.820, 2.809}), row(1, 7, {1.222, 1.219, 1.226, 1.220}),
       row(1, 10, {.5127, .5131, .5119, .5125}), row(1, 15, {.2063, .2059, .2066, .2061}),
       row(1, 20, {.1138, .1141, .1135, .1139}), row(1, 25, {.0744, .0739, .0751, .0742}),
       row(1, 30, {.0518, .0521, .0516}), row(5, 30, {.2617, .2624, .2611, .2620}),
       row(5, 40, {.1503, .1498, .1507, .1501}), row(5, 50, {.0992, .0989, .0996, .0990}),
       row(5, 70, {.0551, .0548, .0555, .0550}), row(5, 100, {.0306, .0311, .0303, .0308})});
  EXPECT_EQ(rows_written(table), expected);
}

TEST_F(TableImportTest, RowsAreSortedAndRolesGivenByName) {
  const std::string content = "50,2,100\n5,1,40\n20,1,60\n";
  TableLayout layout;
  layout.roles = *roles_from_list("ab2,-,rhoa");
  table = s;
  ASSERT_TRUE(import_table(table, content, layout, "t.csv").ok);
  EXPECT_EQ(table.FieldCount, 3);
  EXPECT_DOUBLE_EQ(table.FieldTable(1, 1).num(), 5);
  EXPECT_DOUBLE_EQ(table.FieldTable(2, 2).num(), 60);
  EXPECT_DOUBLE_EQ(table.FieldTable(3, 1).num(), 50);
  EXPECT_EQ(table.MaxAbHalf, 50);
  EXPECT_FALSE(roles_from_list("ab2,rho").has_value());
}

TEST(TableTitles, UsualSpellingsNameTheirRoles) {
  using R = ColumnRole;
  const std::pair<const char*, std::optional<R>> cases[] = {
      {"AB/2 (m)", R::AbHalf},    {"ab2", R::AbHalf},          {"MN/2 [m]", R::MnHalf},
      {"MN", R::MnHalf},          {"Rho_a", R::Rhoa},          {"ρa (Ω.m)", R::Rhoa},
      {"Resistivity", R::Rhoa},   {"R3 [Ohm]", R::Resistance}, {"V/I", R::Resistance},
      {"DeltaV (mV)", R::DeltaV}, {"I [mA]", R::Current},      {"K", R::K},
      {"Note", std::nullopt},     {"", std::nullopt}};
  for (const auto& [title, role] : cases) EXPECT_EQ(role_from_title(title), role) << title;
}

TEST(TableImportMessages, AHeaderItCannotReadListsTheColumnsSeen) {
  SoundingState s;
  const TableImport import = import_table(s, "Depth;Value\n1;2\n3;4\n", TableLayout{}, "t.csv");
  EXPECT_FALSE(import.ok);
  ASSERT_EQ(import.messages.size(), 1u);
  EXPECT_NE(import.messages[0].find("Columns seen: \"Depth\", \"Value\""), std::string::npos);
  EXPECT_EQ(s.FieldCount, 0);
  const TableImport none = import_table(s, "1;2;3\n", TableLayout{}, "t.csv");
  EXPECT_NE(none.messages[0].find("no header"), std::string::npos);
  EXPECT_TRUE(none.roles_missing);  // the callers say where roles are given
  s.Language.French = true;
  EXPECT_EQ(import_table(s, "1;2;3\n", TableLayout{}, "t.csv").messages[0],
            "Les colonnes du tableau ne peuvent être lues : aucune colonne AB/2 (ab2). Le tableau "
            "n'a pas d'en-tête");
}

}  // namespace
}  // namespace tellux::testing
