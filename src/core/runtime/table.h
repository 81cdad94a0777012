#pragma once
// Tables with declared bounds 0..N-1: every index is checked and a bad one raises error 9, as the
// language does. Storage is fixed, so a table never allocates.
#include <array>

#include "core/runtime/errors.h"

namespace tellux::rt {

template <typename T, int N>
class Array1 {
 public:
  static constexpr int size = N;
  T& operator[](int i) {
    check(i);
    return data_[static_cast<size_t>(i)];
  }
  const T& operator[](int i) const {
    check(i);
    return data_[static_cast<size_t>(i)];
  }
  void erase() { data_.fill(T{}); }
  // Unchecked access for hot loops whose bounds are proven.
  T* data() { return data_.data(); }
  const T* data() const { return data_.data(); }

 private:
  static void check(int i) {
    if (i < 0 || i >= N) raise(kSubscript);
  }
  std::array<T, N> data_{};
};

template <typename T, int Rows, int Cols>
class Table {
 public:
  static constexpr int rows = Rows;
  static constexpr int cols = Cols;
  T& operator()(int r, int c) {
    check(r, c);
    return data_[index(r, c)];
  }
  const T& operator()(int r, int c) const {
    check(r, c);
    return data_[index(r, c)];
  }
  void erase() { data_.fill(T{}); }

 private:
  static void check(int r, int c) {
    if (r < 0 || r >= Rows || c < 0 || c >= Cols) raise(kSubscript);
  }
  static size_t index(int r, int c) { return static_cast<size_t>(r * Cols + c); }
  std::array<T, static_cast<size_t>(Rows* Cols)> data_{};
};

}  // namespace tellux::rt
