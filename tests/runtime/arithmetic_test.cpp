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

TEST(Arithmetic, IntegerConversionsRoundHalfToEven) {
  EXPECT_EQ(CInt(0.5), 0);
  EXPECT_EQ(CInt(1.5), 2);
  EXPECT_EQ(CInt(2.5), 2);
  EXPECT_EQ(CInt(-2.5), -2);
  EXPECT_EQ(CInt(-3.5), -4);
  EXPECT_EQ(CInt(32767.4), 32767);
  EXPECT_EQ(CLng(12.5), 12);  // a current of 12.5 mA is stored as 12
  EXPECT_EQ(CLng(13.5), 14);
  EXPECT_EQ(Int(-1.5), -2.0);
  EXPECT_EQ(Fix(-1.5), -1.0);
}

TEST(Arithmetic, OutOfRangeConversionsOverflow) {
  EXPECT_EQ(error_of([] { CInt(32767.5); }), kOverflow);
  EXPECT_EQ(error_of([] { CInt(-32768.6); }), kOverflow);
  EXPECT_EQ(error_of([] { CLng(2147483647.5); }), kOverflow);
  EXPECT_EQ(error_of([] { CInt(NAN); }), kOverflow);
  EXPECT_EQ(error_of([] { CSng(1e39); }), kOverflow);
  EXPECT_EQ(CInt(-32768.4), -32768);
}

TEST(Arithmetic, FailingOperationsRaiseTheLanguagesErrors) {
  EXPECT_EQ(error_of([] { Div(1, 0); }), kDivisionByZero);
  EXPECT_EQ(error_of([] { Div(0, 0); }), kOverflow);
  EXPECT_EQ(error_of([] { Log(0); }), kInvalidCall);
  EXPECT_EQ(error_of([] { Log(-1); }), kInvalidCall);
  EXPECT_EQ(error_of([] { Exp(1000); }), kOverflow);
  EXPECT_EQ(error_of([] { Sqr(-1); }), kInvalidCall);
  EXPECT_DOUBLE_EQ(Div(1, 4), 0.25);
}

TEST(Arithmetic, CellsKeepTheirKindAndCountAsZeroWhenEmpty) {
  Cell empty;
  EXPECT_TRUE(empty.empty());
  EXPECT_EQ(empty.num(), 0.0);
  Cell single(0.1f);
  EXPECT_EQ(single.kind(), Kind::Single);
  // A single multiplies in single precision, a double in double.
  EXPECT_EQ(single.times(3.0), static_cast<double>(0.1f * 3.0f));
  EXPECT_EQ(Cell(0.1).times(3.0), 0.1 * 3.0);
  EXPECT_EQ(Cell(int16_t{7}).times(10.0), 70.0);
}

TEST(Arithmetic, TablesCheckEveryIndex) {
  Table<Cell, 52, 8> t;
  t(51, 7) = 1.0;
  EXPECT_EQ(t(51, 7).num(), 1.0);
  EXPECT_EQ(error_of([] {
              Table<Cell, 52, 8> u;
              u(52, 1) = 1.0;
            }),
            kSubscript);
  EXPECT_EQ(error_of([] {
              Array1<int, 22> a;
              a[-1] = 0;
            }),
            kSubscript);
  t.erase();
  EXPECT_TRUE(t(51, 7).empty());
}

TEST(Arithmetic, SkippedStatementsLetTheNextOneRun) {
  int ran = 0;
  EXPECT_FALSE(skip([&] { Div(1, 0); }));
  EXPECT_TRUE(skip([&] { ++ran; }));
  EXPECT_EQ(ran, 1);
}

}  // namespace
}  // namespace tellux::rt
