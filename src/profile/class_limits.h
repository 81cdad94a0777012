#pragma once
// The 16 resistivity classes of the colour scale: their limits from the range's two ends and the
// class of a value. The boxes of the scale and every layer rectangle of a section use this one
// computation, so a box's text and the class a value falls in always agree.
#include <array>
#include <string>

namespace tellux {

struct ClassLimits {
  // T[1]..T[14] = floor(k x step + min), T[15] = floor(max); T[0] holds floor(min), the text of
  // the first box. There is no limit at 15/16 of the range: the 15th class spans two steps.
  std::array<double, 16> T{};

  static ClassLimits from(double min, double max);
  // The class (1..16) of r, each class tested in turn and the last that holds kept; 0 when none
  // holds, which only a range upside down allows.
  int class_of(double r) const;
  // The text of `ClassBox` k (1..16): its lower limit as a whole number.
  std::string text(int k) const;
};

// The limits from the texts of the range's boxes (`Text11`, `Text12`), read as numbers.
ClassLimits class_limits(const std::string& min_text, const std::string& max_text);

}  // namespace tellux
