#include "core/runtime/errors.h"
#include "plot/bilog_scale.h"

namespace tellux {

int32_t palette_colour(int index) {
  // red + 256 x green + 65536 x blue
  static constexpr int32_t kPalette[16] = {
      0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
      0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
  if (index < 0 || index > 15) rt::raise(rt::kInvalidCall);
  return kPalette[index];
}

}  // namespace tellux
