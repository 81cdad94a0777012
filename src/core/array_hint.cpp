#include "core/array_hint.h"

namespace tellux {

bool readings_deny_schlumberger(const SoundingState& s) {
  if (s.Spread != SpreadType::Schlumberger) return false;
  for (int i = 1; i <= field_rows(s); ++i) {
    const double ab = s.FieldTable(i, 1).num(), mn = s.FieldTable(i, 3).num();
    if (ab > 0 && mn >= ab) return true;
  }
  return false;
}

std::string array_hint(const Session& session) {
  if (!readings_deny_schlumberger(session.s)) return {};
  // Short enough for the status line of a small screen.
  return session.text("MN/2 >= AB/2 : dispositif Schlumberger ?",
                      "MN/2 >= AB/2: ¿dispositivo Schlumberger?",
                      "MN/2 >= AB/2: is the array Schlumberger?");
}

}  // namespace tellux
