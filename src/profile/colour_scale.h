#pragma once
// The frame "Resitivity color scale" of the tab "Profile data": 16 class patches whose texts are
// the classes' lower limits, three anchor patches and the nine boxes of their red, green and
// blue. The 13 colours between the anchors are interpolated by `calcul_RGB`; the colours live in
// the patches and reach the settings file only through `Command10`.
#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "core/session.h"
#include "core/settings.h"
#include "platform/controls.h"
#include "profile/class_limits.h"

namespace tellux {

inline constexpr const char* kColourDialogTitle = "Tellux color selection";

// red + 256 x green + 65536 x blue
inline int32_t rgb(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }

class ColourScale {
 public:
  // The range's boxes `Text11` and `Text12` belong to the profile sheet.
  ColourScale(Session& session, const TextBox& Text11, const TextBox& Text12);

  std::array<TextBox, 17> ClassBox;     // 1..16: Text101..Text116
  std::array<TextBox, 4> AnchorColour;  // 1..3: Text117..Text119
  std::array<TextBox, 9> RGBBox;        // Text120..Text128: red, green, blue of anchors 1..3
  Button Command10;
  Label Label102;

  // The box of `component` (0 red, 1 green, 2 blue) of `anchor` (1..3).
  TextBox& rgb_box(int anchor, int component) {
    return RGBBox[static_cast<size_t>((anchor - 1) * 3 + component)];
  }

  // Start-up: the class colours from the settings, the anchors from classes 1, 8 and 16. The
  // interpolation does not run, so colours chosen box by box survive until an anchor changes.
  void load(const Settings& settings);
  // The anchors and the 16 class colours from the nine boxes.
  void calcul_RGB();
  // The texts of the 16 class boxes from the range.
  void affiche_resistivity();
  // The limits of the range as the boxes hold it now.
  ClassLimits limits() const;
  // The colour of resistivity r; -1 when no class holds it.
  int32_t colour_of_resistivity(double r) const;

  // A click on class patch k: the colour chosen becomes the patch's; Cancel changes nothing.
  void ClassBox_Click(int k);
  // A click on anchor patch a: the colour chosen becomes the anchor's, its three parts go to the
  // number boxes, and the scale is interpolated again. Cancel changes nothing.
  void AnchorColour_Click(int a);
  // Leaving number box n (0..8 for Text120..Text128): above 255 becomes "255", then calcul_RGB.
  // Text122 (n = 2) does this on a click as well.
  void RGBBox_LostFocus(int n);
  void RGBBox_Click(int n);
  // "OK, Save": the 16 class colours to the settings' `PALETTE_A`. False when the file could not
  // be written (nothing is shown).
  bool Command10_Click(Settings& settings, const std::string& settings_path);
  // The colour dialog, opened on `present`: the colour chosen, none on Cancel.
  std::optional<int32_t> pick_colour(int32_t present);

 private:
  void clamp_and_interpolate(int n);

  Session& session_;
  const TextBox& Text11_;
  const TextBox& Text12_;
};

}  // namespace tellux
