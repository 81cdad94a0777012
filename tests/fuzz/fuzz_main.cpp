// One libFuzzer target: the reader named by TELLUX_FUZZ_TARGET at compile time.
#include <cstddef>
#include <cstdint>

#include "fuzz_targets.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  tellux::fuzz::run_target(TELLUX_FUZZ_TARGET, data, size);
  return 0;
}
