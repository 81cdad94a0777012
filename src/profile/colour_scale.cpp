#include "profile/colour_scale.h"

#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"

namespace tellux {

ColourScale::ColourScale(Session& session, const TextBox& Text11, const TextBox& Text12)
    : session_(session), Text11_(Text11), Text12_(Text12) {
  Command10.Caption = "OK, Save";
  Label102.Caption = "Click on the 3 large boxes to select colors";
}

void ColourScale::load(const Settings& settings) {
  for (size_t k = 1; k <= 16; ++k) ClassBox[k].BackColor = settings.Amplitude[k];
  constexpr size_t kFrom[4] = {0, 1, 8, 16};
  for (int a = 1; a <= 3; ++a) {
    const int32_t colour = settings.Amplitude[kFrom[a]];
    AnchorColour[static_cast<size_t>(a)].BackColor = colour;
    rgb_box(a, 0).Text = rt::CStr(colour % 256);
    rgb_box(a, 1).Text = rt::CStr(colour / 256 % 256);
    rgb_box(a, 2).Text = rt::CStr(colour / 65536);
  }
}

void ColourScale::calcul_RGB() {
  // anchor[a][c]: component c of anchor a; a box that does not read keeps 0.
  int anchor[4][3] = {};
  for (int a = 1; a <= 3; ++a)
    for (int c = 0; c < 3; ++c)
      rt::skip([&] { anchor[a][c] = rt::CInt(rt::Val(rgb_box(a, c).Text)); });
  for (size_t a = 1; a <= 3; ++a) {
    const int32_t colour = rgb(anchor[a][0], anchor[a][1], anchor[a][2]);
    AnchorColour[a].BackColor = colour;
    AnchorColour[a].Text = rt::CStr(colour);
  }
  // Box `box` takes step k of 7 from anchor `from` to anchor `to`.
  const auto between = [&](size_t box, int from, int to, int k) {
    int part[3];
    for (int c = 0; c < 3; ++c) {
      // Box 10's blue takes an eighth of the way, not a seventh: kept as the scale has always been.
      const double steps = box == 10 && c == 2 ? 8.0 : 7.0;
      part[c] = rt::CInt(anchor[from][c] + k * (anchor[to][c] - anchor[from][c]) / steps);
    }
    rt::skip([&] { ClassBox[box].BackColor = rgb(part[0], part[1], part[2]); });
  };
  between(1, 1, 2, 0);
  for (int k = 1; k <= 6; ++k) between(static_cast<size_t>(1 + k), 1, 2, k);
  between(8, 2, 3, 0);
  between(9, 2, 3, 0);
  for (int k = 1; k <= 6; ++k) between(static_cast<size_t>(9 + k), 2, 3, k);
  between(16, 3, 3, 0);
}

ClassLimits ColourScale::limits() const { return class_limits(Text11_.Text, Text12_.Text); }

void ColourScale::affiche_resistivity() {
  const ClassLimits l = limits();
  for (int k = 1; k <= 16; ++k) ClassBox[static_cast<size_t>(k)].Text = l.text(k);
}

int32_t ColourScale::colour_of_resistivity(double r) const {
  const int k = limits().class_of(r);
  return k == 0 ? -1 : ClassBox[static_cast<size_t>(k)].BackColor;
}

std::optional<int32_t> ColourScale::pick_colour(int32_t present) {
  return session_.dialogs.colour(kColourDialogTitle, present);
}

void ColourScale::ClassBox_Click(int k) {
  if (k < 1 || k > 16) return;
  TextBox& box = ClassBox[static_cast<size_t>(k)];
  if (const auto colour = pick_colour(box.BackColor)) box.BackColor = *colour;
}

void ColourScale::AnchorColour_Click(int a) {
  if (a < 1 || a > 3) return;
  TextBox& anchor = AnchorColour[static_cast<size_t>(a)];
  const auto chosen = pick_colour(anchor.BackColor);
  if (!chosen) return;
  const int32_t colour = *chosen;
  anchor.BackColor = colour;
  rgb_box(a, 0).Text = rt::CStr(colour % 256);
  rgb_box(a, 1).Text = rt::CStr(colour / 256 % 256);
  rgb_box(a, 2).Text = rt::CStr(colour / 65536);
  calcul_RGB();
}

void ColourScale::clamp_and_interpolate(int n) {
  TextBox& box = RGBBox[static_cast<size_t>(n)];
  if (rt::Val(box.Text) > 255) box.Text = "255";
  calcul_RGB();
}

void ColourScale::RGBBox_LostFocus(int n) {
  if (n >= 0 && n <= 8) clamp_and_interpolate(n);
}

void ColourScale::RGBBox_Click(int n) {
  if (n == 2) clamp_and_interpolate(n);
}

bool ColourScale::Command10_Click(Settings& settings, const std::string& settings_path) {
  for (size_t k = 1; k <= 16; ++k) settings.Amplitude[k] = ClassBox[k].BackColor;
  return save_palette(settings, settings_path);
}

}  // namespace tellux
