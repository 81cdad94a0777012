#include <gtest/gtest.h>

#include <cmath>

#include "core/runtime/arithmetic.h"
#include "core/runtime/cell.h"
#include "core/runtime/discipline.h"
#include "core/runtime/table.h"

namespace tellux::rt {
namespace {

int error_of(void (*f)()) {
  try {
    f();
  } catch (const RuntimeError& e) {
    return e.number();
  }
  return 0;
}

// A current of 12.5 mA is stored as 12: ties go to the even neighbour.
TEST(Arithmetic, IntegerConversionsRoundHalfToEven) {
  const int32_t got[] = {CInt(0.5),  CInt(1.5),  CInt(2.5),     CInt(-2.5),    CInt(-3.5),
                         CLng(12.5), CLng(13.5), CInt(32767.4), CInt(-32768.4)};
  const int32_t want[] = {0, 2, 2, -2, -4, 12, 14, 32767, -32768};
  for (size_t i = 0; i < std::size(got); ++i) EXPECT_EQ(got[i], want[i]) << i;
  EXPECT_EQ(Int(-1.5) + 10 * Fix(-1.5) + 100 * Div(1, 4), -2 - 10 + 25);
}

TEST(Arithmetic, FailingOperationsRaiseTheLanguagesErrors) {
  const std::pair<void (*)(), int> cases[] = {
      {[] { CInt(32767.5); }, kOverflow},      {[] { CInt(-32768.6); }, kOverflow},
      {[] { CLng(2147483647.5); }, kOverflow}, {[] { CInt(NAN); }, kOverflow},
      {[] { CSng(1e39); }, kOverflow},         {[] { Div(1, 0); }, kDivisionByZero},
      {[] { Div(0, 0); }, kOverflow},          {[] { Log(0); }, kInvalidCall},
      {[] { Log(-1); }, kInvalidCall},         {[] { Exp(1000); }, kOverflow},
      {[] { Sqr(-1); }, kInvalidCall},
  };
  for (size_t i = 0; i < std::size(cases); ++i)
    EXPECT_EQ(error_of(cases[i].first), cases[i].second) << i;
}

TEST(Arithmetic, CellsKeepTheirKindAndCountAsZeroWhenEmpty) {
  EXPECT_TRUE(Cell().empty());
  EXPECT_EQ(Cell().num(), 0.0);
  EXPECT_EQ(Cell(0.1f).kind(), Kind::Single);
  // A single multiplies in single precision, a double in double.
  EXPECT_EQ(Cell(0.1f).times(3.0), static_cast<double>(0.1f * 3.0f));
  EXPECT_EQ(Cell(0.1).times(3.0), 0.1 * 3.0);
  EXPECT_EQ(Cell(int16_t{7}).times(10.0), 70.0);
}

TEST(Arithmetic, TablesCheckEveryIndexAndSkippedStatementsLetTheNextRun) {
  Table<Cell, 52, 8> t;
  t(51, 7) = 1.0;
  EXPECT_EQ(t(51, 7).num(), 1.0);
  EXPECT_EQ(error_of([] { Table<Cell, 52, 8>()(52, 1) = 1.0; }), kSubscript);
  EXPECT_EQ(error_of([] { Array1<int, 22>()[-1] = 0; }), kSubscript);
  t.erase();
  EXPECT_TRUE(t(51, 7).empty());
  int ran = 0;
  EXPECT_FALSE(skip([&] { Div(1, 0); }));
  EXPECT_TRUE(skip([&] { ++ran; }));
  EXPECT_EQ(ran, 1);
}

}  // namespace
}  // namespace tellux::rt
