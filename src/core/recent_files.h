#pragma once
// The list of the five files opened last, most recent first, shown in the File menu.
#include <string>

#include "core/session.h"

namespace tellux {

// Unless `path` is already entry 1, moves entries 1..4 down one slot (the fifth falls out) and
// puts `path` at the head, rewriting the captions of the moved entries. There is no search
// beyond entry 1: a path that stands lower in the list is entered a second time.
void enter_recent_file(Session& session, const std::string& path);

// The menu caption of entry `slot`: "&1 " followed by the path.
std::string recent_caption(int slot, const std::string& path);

}  // namespace tellux
