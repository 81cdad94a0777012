#include "plot/bilog_frame.h"

#include <cmath>

#include "core/runtime/number_text.h"
#include "platform/forms.h"
#include "plot/bilog_scale.h"

namespace tellux {

namespace {

constexpr int32_t kWhite = 0xFFFFFF;
constexpr int32_t kBlack = 0;
constexpr int32_t kGrey = 0xC0C0C0;  // the label anchors: a grey point where each label starts

float f(double v) { return static_cast<float>(v); }

const char* axis_name(SpreadType spread) {
  switch (spread) {
    case SpreadType::Schlumberger:
      return "   AB/2 [m]";
    case SpreadType::Dipole:
      return "   AM [m]";
    case SpreadType::Wenner:
      break;
  }
  return "   a [m]";
}

// Eight minor lines per decade, in the decade below `decade`. The logarithm of the whole product
// minus one is kept as it is (not L(k) + decade - 1): it decides the last digits of the place.
double minor_line(int k, int decade) { return draw_log(k * std::pow(10.0, decade)) - 1; }

}  // namespace

bool inside_limits(const SoundingState& s, int n) {
  const double ab = s.FieldTable(n, 1).num();
  const double rho = s.FieldTable(n, 2).num();
  return ab >= s.AB2min && ab <= s.AB2max && rho <= s.RHOmax && rho >= s.RHOmin;
}

void prepare_bilog_surface(DrawingSurface& Bilog) {
  Bilog.Font(SurfaceFont{});
  Bilog.ForeColor(kBlack);
  Bilog.AutoRedraw(true);
}

void DrawBilogFrame(SoundingState& s, DrawingSurface& Bilog) {
  const double x0 = s.DecadeStart, x1 = s.DecadeEnd;
  const double y0 = s.RhoDecadeStart, y1 = s.RhoDecadeEnd;
  const double dX = x1 - x0;
  const double dY = y1 - y0;

  Bilog.MousePointer(kPointerHourglass);
  Bilog.DrawWidth(1);
  const int32_t minor = s.ColourGrid ? s.GridColour : s.SuperposedColour;
  Bilog.Cls();
  // The mark keeps its size on the surface as the number of decades grows.
  s.MarkHalfSize = (s.DecadeEnd + s.RhoDecadeEnd - s.RhoDecadeStart - s.DecadeStart) * 0.0018;
  // Margins: 2% of the span at the left, 10% at the right for the ordinate's labels, 2.5% at the
  // top and 10% at the bottom for the abscissa's labels.
  Bilog.Scale(f(x0 - 0.02 * dX + 0.0001), f(y1 + 0.025 * dY + 0.0001), f(x1 + 0.1 * dX),
              f(y0 - 0.1 * dY));
  Bilog.Line(f(x0), f(y1), f(x1), f(y0), kWhite, LineForm::FilledBox);
  Bilog.Line(f(x0), f(y1), f(x1), f(y0), kBlack, LineForm::Box);
  Bilog.DrawStyle(0);

  for (int i = s.DecadeStart; i <= s.DecadeEnd; ++i) {
    Bilog.Line(f(i), f(y0), f(i), f(y1));
    Bilog.PSet(f(i), f(y0 - 0.003 * dY), kGrey);
    Bilog.Print(std::pow(10.0, i));
  }
  for (int32_t j = s.RhoDecadeStart; j <= s.RhoDecadeEnd; ++j) Bilog.Line(f(x0), f(j), f(x1), f(j));
  // The bottom decade has no label: it would crowd the corner.
  for (int32_t j = s.RhoDecadeStart + 1; j <= s.RhoDecadeEnd; ++j) {
    Bilog.PSet(f(x1 + 0.0025 * dX), f(j), kGrey);
    Bilog.Print(std::pow(10.0, j));
  }
  Bilog.PSet(f(x1 + 0.0025 * dX), f(y1 - 0.05 * dY), kGrey);
  Bilog.Print(" [ohm\u00B7m]");
  // 0.15 is a number of decades, not a share of the span: between the first two labels.
  Bilog.PSet(f(x0 + 0.15), f(y0 - 0.003 * dY), kGrey);
  Bilog.Print(axis_name(s.Spread));

  for (int i = s.DecadeStart + 1; i <= s.DecadeEnd; ++i) {
    for (int k = 2; k <= 9; ++k) {
      const float p = f(minor_line(k, i));
      Bilog.Line(p, f(y0), p, f(y1), minor);
    }
  }
  for (int32_t j = s.RhoDecadeStart + 1; j <= s.RhoDecadeEnd; ++j) {
    for (int k = 2; k <= 9; ++k) {
      const float p = f(minor_line(k, j));
      Bilog.Line(f(x0), p, f(x1), p, minor);
    }
  }

  // While the sheet is being typed it adds the points itself.
  if (s.WorkMode != mode::kField) {
    const double m = s.MarkHalfSize;
    for (int n = 1; n <= s.FieldCount; ++n) {
      if (!inside_limits(s, n)) continue;
      const double x = draw_log(s.FieldTable(n, 1).num());
      const double y = draw_log(s.FieldTable(n, 2).num());
      Bilog.Line(f(x - m), f(y - m), f(x + m), f(y + m), s.PointsColour, LineForm::Box);
    }
  }
  Bilog.DrawWidth(1);
  Bilog.MousePointer(kPointerCross);
}

namespace {

// Below 1 (or not a number) one decimal, cut downward; from 1 on a whole number, half to even.
double readout_value(float coordinate) {
  const double v = std::pow(10.0, static_cast<double>(coordinate));
  double shown = 0.0;
  if (!(coordinate >= 1.0f)) {
    shown = std::floor(v * 10) / 10;
  } else {
    shown = std::nearbyint(v);
  }
  if (!(shown >= 0.0)) shown = 0.0;  // also a value that is not a number
  return shown;
}

}  // namespace

std::string bilog_readout(const SoundingState& s, float X, float Y) {
  const char* label = s.Spread == SpreadType::Schlumberger ? "AB/2="
                      : s.Spread == SpreadType::Dipole     ? "AM="
                                                           : "A=";
  return label + rt::Str(readout_value(X)).substr(0, 6) +
         "  R=" + rt::Str(readout_value(Y)).substr(0, 7);
}

void ShowBilogReadout(const SoundingState& s, DrawingSurface& Bilog, TextBox& Text1, float X,
                      float Y) {
  Bilog.MousePointer(kPointerCross);
  Text1.Text = bilog_readout(s, X, Y);
}

}  // namespace tellux
