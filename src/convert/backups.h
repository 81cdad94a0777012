#pragma once
// Backup files (*.BAK, in the TX3 layout, made by the user or by other tools) and the export of
// the sounding as a text file for a spreadsheet (*.TXL).
#include <optional>
#include <string>

#include "core/session.h"

namespace tellux {

// "Rename a backup": the OK/Cancel question, then the rename to the TX3 name, which fails (and
// changes nothing) when that file exists. Returns the new path when renamed.
std::optional<std::string> rename_backup(Session& session);

// "Restore a backup": read as a TX3 file; the next save goes to the TX3 name. Writes nothing.
bool restore_backup(Session& session);

// The TXL name of a typed name: up to its first point, then "TXL" ("data.old.txt" gives
// "data.TXL"); ".TXL" added when it has none.
std::string txl_name(const std::string& typed);

// "Save for XL": the field data, the layers of every stored model and their curves side by
// side. Returns the path written.
std::optional<std::string> export_txl(Session& session);

}  // namespace tellux
