#pragma once
// The TX3 sounding file and the older layouts of the same shape (TXE-derived level 3, TXW
// level 2): field rows, a model of up to 20 layers and the seven strings, one item per line.
#include <string>

#include "core/session.h"

namespace tellux {

// Reads the file at `path` into the record, at the layout the caller set in `FormatLevel` (2 for
// TXW, 3 otherwise; a ".5" on the first line raises it to 5). A failure shows "Reading File
// Error..." and keeps what was read so far. Returns false on a failure or when no file is set.
bool read_sounding_file(Session& session, std::string& path);

// Shows "Reading File Error..." in the program's language.
void tell_read_error(Session& session);

// Writes the current sounding as TX3. Asks first (unless the work mode is "FICHIER"), offers the
// save dialog when the sounding has no name or the user says No, and after a failed write starts
// again so that the user can choose another name or cancel. The old file stays whole until the
// new one is complete. Returns true when the file was written.
bool write_sounding_file(Session& session, std::string& path);

// The text of the TX3 file of the current sounding. Raises error 6 when a scaled value overflows.
std::string tx3_text(const SoundingState& s);

// Takes the loaded sounding to the tab "SEV model".
void Calcul_TX3(Session& session);

}  // namespace tellux
