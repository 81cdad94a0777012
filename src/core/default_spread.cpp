#include "core/default_spread.h"

#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"

namespace tellux {

int read_default_spread(SoundingState& s, const std::string& path) {
  s.FieldTable.erase();
  const bool wenner = s.SpreadTag == "2";
  int rows = 0;
  try {
    rt::TokenReader in = rt::TokenReader::open(path);
    for (int i = 1; i <= 51 && !in.at_end(); ++i) {
      if (wenner) {
        s.FieldTable(i, 3) = in.number();
        rows = i;
      } else {
        s.FieldTable(i, 1) = in.number();
        rows = i;
        s.FieldTable(i, 3) = in.number();
      }
    }
  } catch (const rt::RuntimeError&) {
    // What was read stands: the sheet offers those rows and leaves the rest to the user.
  }
  return rows;
}

}  // namespace tellux
