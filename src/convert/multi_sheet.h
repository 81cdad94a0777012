#pragma once
// "Multiple soundings sheet": a file of the spreads shared by many soundings (AB/2 values) and a
// file of one line per sounding (name, X, Y, Z, then its apparent resistivities) become one
// modelled TX3 file per line.
#include <string>
#include <vector>

#include "core/session.h"

namespace tellux {

// The menu command: the two dialogs, then the soundings, written in the folder of the file of
// resistivities (or in `out_dir`); returns the files written.
std::vector<std::string> multiple_soundings_sheet(Session& session,
                                                  const std::string& out_dir = {});

}  // namespace tellux
