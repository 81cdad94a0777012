#pragma once
// A cell of the program's numeric tables: empty, or a number that keeps the kind it arrived with.
// An empty cell counts as 0 everywhere; nothing tells a stored 0 from an empty cell in arithmetic,
// but the kind decides the precision of a product "in the precision the cell holds" and the
// number of digits of its text.
#include <cstdint>

namespace tellux::rt {

enum class Kind : uint8_t { Empty, Int16, Int32, Single, Double };

class Cell {
 public:
  constexpr Cell() = default;
  constexpr Cell(double v) : kind_(Kind::Double), value_(v) {}  // NOLINT: cells take numbers
  constexpr Cell(float v) : kind_(Kind::Single), value_(v) {}   // NOLINT
  constexpr Cell(int16_t v) : kind_(Kind::Int16), value_(v) {}  // NOLINT
  constexpr Cell(int32_t v) : kind_(Kind::Int32), value_(v) {}  // NOLINT

  constexpr Kind kind() const { return kind_; }
  constexpr bool empty() const { return kind_ == Kind::Empty; }
  // The number; 0 for an empty cell.
  constexpr double num() const { return value_; }
  constexpr operator double() const { return value_; }  // NOLINT: a cell reads as its number

  void clear() { *this = Cell(); }

  // value x factor computed as the language would in the cell's own kind: a single cell multiplies
  // in single precision, integers exactly, doubles in double.
  double times(double factor) const;

 private:
  Kind kind_ = Kind::Empty;
  double value_ = 0.0;
};

}  // namespace tellux::rt
