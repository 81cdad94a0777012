#include "core/recent_files.h"

namespace tellux {

std::string recent_caption(int slot, const std::string& path) {
  return "&" + std::to_string(slot) + " " + path;
}

void enter_recent_file(Session& session, const std::string& path) {
  auto& files = session.s.RecentFiles;
  if (path == files[1]) return;
  for (int slot = 4; slot >= 1; --slot) {
    files[static_cast<size_t>(slot + 1)] = files[static_cast<size_t>(slot)];
    session.forms.set_recent_caption(
        slot + 1, recent_caption(slot + 1, files[static_cast<size_t>(slot + 1)]));
  }
  files[1] = path;
  session.forms.set_recent_caption(1, recent_caption(1, path));
}

}  // namespace tellux
