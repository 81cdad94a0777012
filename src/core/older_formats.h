#pragma once
// The two older sounding layouts with readers of their own: the .SEV file of the DOS predecessor
// and TXE. Both run with failing statements skipped: a missing, short or damaged file shows no
// message, and whatever was read stands.
#include <string>

#include "core/session.h"

namespace tellux {

// A .SEV file: a title, a line that is ignored, three integers (ignored, FieldCount, L), then
// rows 1..L of seven numbers (ignored, ignored, resistivity, AB/2, layer resistivity, layer
// thickness, ignored) and rows L+1..FieldCount of four (ignored, ignored, resistivity, AB/2).
// Shows a box and leaves when `path` is empty.
void read_sev_file(Session& session, std::string& path);

// A TXE file: FieldCount, the field rows (AB/2 x 100, resistivity), always 10 layer rows
// (resistivity, thickness x 100, depth x 100) and the seven strings.
void read_txe_file(Session& session, std::string& path);

// The conversion of one TXE file to TX3: asks for the file, reads it and writes it beside itself
// with the extension TX3 (the writer asks first, as it always does).
void convert_txe_file(Session& session);

}  // namespace tellux
