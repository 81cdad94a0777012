#pragma once
// The program's data folder: the default spread files ("DATAVES.TXT", "DATADIP.TXT",
// "DATAWEN.TXT") and the manual lie there.
#include <string>
#include <string_view>

namespace tellux {

// $TELLUX_DATA_DIR when set and not empty; else the installed share folder when it exists; else
// the data/ folder of the source tree, so that a program run from its build tree finds its files.
// No separator at the end.
std::string data_dir();

// The default spread file of an array by its `SpreadTag`: "1" dipole, "2" Wenner, anything else
// Schlumberger. Only the file's name.
const char* spread_file_name(std::string_view spread_tag);

// The full path of that file in the data folder: what the setting "SEV File" takes when an array
// is chosen.
std::string spread_file_for(std::string_view spread_tag);

// The spread file to read: the one the setting names when it exists, else the data folder's file
// for the array (a fresh settings file names a Windows path).
std::string usable_spread_file(const std::string& setting, std::string_view spread_tag);

}  // namespace tellux
