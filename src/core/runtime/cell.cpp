#include "core/runtime/cell.h"

namespace tellux::rt {

double Cell::times(double factor) const {
  switch (kind_) {
    case Kind::Single:
      return static_cast<float>(static_cast<float>(value_) * static_cast<float>(factor));
    default:
      return value_ * factor;
  }
}

}  // namespace tellux::rt
