#pragma once
// The last guard of the desktop program: a run-time error that escaped every routine is shown with
// its number and text, the sounding in work may be saved beside its file, and the program goes on.
#include <optional>
#include <string>

#include "core/session.h"

namespace tellux {

// The recovery file of the sounding in work: "NAME.recovered.TX3" beside its file ("NEW" for a
// sounding never saved, in `FileDir`).
std::string recovery_path(const SoundingState& s);

// Writes the sounding to its recovery file through the safe writer; the path written, or nothing
// (with `file_failure` set) when it could not be written. `FilePath` stays as it is.
std::optional<std::string> save_recovery(Session& session);

// The error box of an escaped error: "Run-time error 'N':" and its text, and the offer to save
// the sounding to its recovery file; on Yes the file is written.
void report_escaped_error(Session& session, int number, const std::string& text);

}  // namespace tellux
