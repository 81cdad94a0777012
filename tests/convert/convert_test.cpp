// The converters that make many soundings, on small files written here.
#include <unistd.h>

#include <filesystem>

#include "convert/multi_sheet.h"
#include "convert/res2dinv.h"
#include "convert/syscal.h"
#include "core/runtime/token_file.h"
#include "session_fixture.h"

namespace tellux::testing {
namespace {

// The converters write relative to the current folder: the test's own.
class ConvertTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    before_ = std::filesystem::current_path();
    std::filesystem::current_path(dir_);
    s.WorkMode = mode::kFile;
  }
  void TearDown() override {
    std::filesystem::current_path(before_);
    SessionTest::TearDown();
  }
  // The field rows of a written TX3 file: AB/2, MN/2 and resistivity as stored.
  std::vector<std::string> field_lines(const std::string& file) {
    const std::string text = read(file);
    std::vector<std::string> lines;
    size_t at = text.find("\r\n") + 2;
    const int count = std::atoi(text.c_str());
    for (int i = 0; i < count; ++i) {
      const size_t end = text.find("\r\n", at);
      lines.push_back(text.substr(at, end - at));
      at = end + 2;
    }
    return lines;
  }
  std::filesystem::path before_;
};

TEST_F(ConvertTest, SyscalGroupsByChangeOfNameSortsAndCutsTheName) {
  write("in.DAT",
        "Name Id Id V A AB2 MN2\n"
        "north 1 1 0.5 0.1 10 1\n"
        "north 1 2 0.4 0.1 5 1\n"
        "south 1 3 0.3 0.1 5 2\n"
        "south 1 4 0.2 0.1 5 1\n"
        "north 1 5 0.1 0.1 20 1\n");
  dialogs.open_choices = {{path("in.DAT")}};
  dialogs.inputs = {std::string("profile12"), std::string("b"), std::string("c")};
  EXPECT_EQ(Syscal(session), (std::vector<std::string>{"profile1.TX3", "b.TX3", "c.TX3"}));
  // Every row of a name goes to each of its soundings; K = 3.1416 x (2 l + d) x d / 2 l, whole
  // from 100 up, and rho = K x V / I, whole.
  const std::vector<std::string> north = {
      "50,15100,100,4000,3770,100", "100,78000,100,5000,15600,100", "200,62700,100,1000,62700,100"};
  EXPECT_EQ(field_lines("profile1.TX3"), north);
  EXPECT_EQ(field_lines("c.TX3"), north);
  // Equal AB/2: ordered by MN/2.
  EXPECT_EQ(field_lines("b.TX3"),
            (std::vector<std::string>{"50,7500,100,2000,3770,100", "50,4900,200,3000,1649,100"}));
  EXPECT_EQ(dialogs.texts().back(), "All Syscal files have been converte");
}

TEST_F(ConvertTest, SyscalWithoutMnEndsTheCommand) {
  write("in.DAT", "h\na 1 1 0.5 0.1 10 1\nb 1 1 0.5 0.1 10 0\nc 1 1 0.5 0.1 10 1\n");
  dialogs.open_choices = {{path("in.DAT")}};
  dialogs.inputs = {std::string("a"), std::string("b")};
  EXPECT_EQ(Syscal(session), std::vector<std::string>{"a.TX3"});
  EXPECT_NE(dialogs.texts().back(), "All Syscal files have been converte");
}

// A pseudo-section of `levels` levels with `points` points in the first.
std::string res2dinv(int array, int n, const std::string& rows) {
  return "Line\r\n1.0\r\n" + std::to_string(array) + "\r\n" + std::to_string(n) + "\r\n0\r\n0\r\n" +
         rows;
}

TEST_F(ConvertTest, Res2dinvHeaderRefusals) {
  std::string many;
  for (int k = 0; k < 5000; ++k) many += std::to_string(k) + " 1 100\r\n";
  const std::pair<std::string, std::string> cases[] = {
      {res2dinv(2, 1, "0 1 10\r\n"), "Only for Wenner spread"},
      {res2dinv(3, 1, "0 1 10\r\n"), "Only for Wenner spread"},
      {res2dinv(1, 5001, many), "Max. 5000 mesures"},
      {"Line\r\n1\r\n1\r\n1\r\n0\r\n1\r\n0 1 10\r\n", "Not for IP surveys"},
      {res2dinv(1, 3, "0 1 10\r\n"), "Error during reading"}};
  for (const auto& [text, refusal] : cases) {
    std::string said;
    EXPECT_FALSE(read_res2dinv(text, said));
    EXPECT_EQ(said, refusal);
  }
  std::string said;
  EXPECT_EQ(read_res2dinv(res2dinv(5, 5000, many), said)->points.size(), 5000u);
}

TEST_F(ConvertTest, Res2dinvWindowsAlongTheLine) {
  std::string said;
  // Level a = 1 from x 0 to 9, level a = 2 from x 3 to 6 (shorter by 3 u at each end).
  std::string rows;
  for (int x = 0; x <= 9; ++x) rows += std::to_string(x) + " 1 " + std::to_string(100 + x) + "\r\n";
  for (int x = 3; x <= 6; ++x) rows += std::to_string(x) + " 2 200\r\n";
  const auto data = read_res2dinv(res2dinv(1, 14, rows), said);
  ASSERT_TRUE(data);
  const auto one = extract_soundings(*data, 1, 90);  // N = 1: the whole line, at its middle
  ASSERT_EQ(one.size(), 1u);
  EXPECT_EQ(one[0].readings, (std::vector<std::pair<double, double>>{{1, 104.5}, {2, 200}}));
  EXPECT_EQ(one[0].X, " 4.4999");  // sin(0.01745329 x 90) is just below 1
  EXPECT_EQ(one[0].Y, " 0");
  const auto three = extract_soundings(*data, 3, 0);
  EXPECT_EQ(three[0].readings.front(), (std::pair<double, double>{1, 101.5}));  // x 0 to 3
  EXPECT_EQ(three[2].readings.size(), 2u);
}

TEST_F(ConvertTest, Res2dinvWritesModelledSoundingsAndRestoresTheArray) {
  std::string rows;
  for (int a = 1; a <= 4; ++a)
    for (int x = 0; x <= 20; ++x)
      rows +=
          std::to_string(x) + " " + std::to_string(a) + " " + std::to_string(50 + 20 * a) + "\r\n";
  write("line.DAT", res2dinv(1, 84, rows));
  dialogs.open_choices = {{path("line.DAT")}};
  const auto files = RES2DINV(session, [](R2diForm& f) {
    f.Text1 = "2";
    f.done = true;
  });
  EXPECT_EQ(files, (std::vector<std::string>{path("line_ 1.TX3"), path("line_ 2.TX3")}));
  EXPECT_EQ(s.Spread, SpreadType::Schlumberger);
  EXPECT_GT(s.LayerModel(1, 1).num(), 0);

  dialogs.open_choices = {{path("line.DAT")}};
  EXPECT_TRUE(RES2DINV(session, [](R2diForm& f) { f.Text1 = "101"; }).empty());
  EXPECT_EQ(dialogs.texts().back(), "Conversion aborted");
}

TEST_F(ConvertTest, SheetOfSoundingsFromSpreadsAndResistivities) {
  write("spreads.TXT", "1 2 3 5 8 12 20 30\r\n");
  write("values.TXT",
        "A1 10 20 100 50 48 45 40 38 37 39 42\r\n"  // all eight spreads
        "A2 11 21 101 50 45 40\r\n"                 // three: the first three spreads
        "A3 12 22 102 1 2 3 4 5 6 7 8 9\r\n"        // nine: refused
        "A4,13,23,103,50,60\r\n");
  dialogs.open_choices = {{path("spreads.TXT")}, {path("values.TXT")}};
  const auto files = multiple_soundings_sheet(session);
  // The last line is one token: no name, no resistivities.
  EXPECT_EQ(files, (std::vector<std::string>{"A1.TX3", "A2.TX3", ".TX3"}));
  EXPECT_EQ(field_lines("A2.TX3").size(), 3u);
  const auto texts = dialogs.texts();
  EXPECT_NE(std::find(texts.begin(), texts.end(), "Spread data missing for sounding A3"),
            texts.end());
  EXPECT_EQ(texts.back(), " 3 soundings have been saved as *.TX3 files");
  // Line 1001 and those after it wait for a file of their own; a refusal in a row is told once.
  std::string many;
  for (int i = 0; i <= 1000; ++i) many += "A3 12 22 102 1 2 3 4 5 6 7 8 9\r\n";
  write("values.TXT", many);
  dialogs.open_choices = {{path("spreads.TXT")}, {path("values.TXT")}};
  EXPECT_TRUE(multiple_soundings_sheet(session).empty());
  const auto said = dialogs.texts();
  EXPECT_EQ(std::vector(said.end() - 3, said.end()),
            (std::vector<std::string>{"Spread data missing for sounding A3",
                                      "Only the first 1000 soundings of the sheet were read: put "
                                      "the others in a file of their own",
                                      " 0 soundings have been saved as *.TX3 files"}));
  EXPECT_EQ(std::count(said.begin(), said.end(), "Spread data missing for sounding A3"), 2);

  std::string too_many;
  for (int i = 1; i <= 52; ++i) too_many += std::to_string(i) + "\r\n";
  write("spreads.TXT", too_many);
  dialogs.open_choices = {{path("spreads.TXT")}, {path("values.TXT")}};
  EXPECT_TRUE(multiple_soundings_sheet(session).empty());
  EXPECT_EQ(dialogs.texts().back(), "Error during reading");
}

}  // namespace
}  // namespace tellux::testing
