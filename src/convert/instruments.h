#pragma once
// The files of field instruments, one sounding each: ABEM (*.VES), SAS1000 (*.amp), Geotrade
// (*.GTR) and PASI (*.TXT) through `FieldTable` and the TX3 writer; Astier (*.dat) and OYO (*.csv),
// which write the TX3 layout themselves and are opened again. Items are read by the token rules
// of the program's own files; `file` names the input in the messages of a conversion that stops.
#include <optional>
#include <string>
#include <string_view>

#include "core/session.h"

namespace tellux {

enum class Instrument { Abem, Sas1000, Geotrade, Pasi, Astier, Oyo };

// The readers fill `FieldTable`, `FieldCount`, `MaxAbHalf` (as decades at the end) and the
// strings. Each returns false, after its message, when the file cannot be converted.
bool read_abem(Session& session, const std::string& text, const std::string& file = {});
bool read_sas1000(Session& session, const std::string& text);
bool read_geotrade(Session& session, const std::string& text, const std::string& file = {});
// The rows of a PASI file over the spreads already in the table.
bool read_pasi(Session& session, const std::string& text, const std::string& file = {});

// The TX3 text an Astier or OYO file becomes; empty (after the message) when it is refused.
std::string astier_tx3(Session& session, const std::string& text, const std::string& file = {});
std::string oyo_tx3(Session& session, const std::string& text, const std::string& file = {});

// The spread file PASI reads: the one the setting "SEV File" names. Only a setting that names a
// Windows path, as a fresh settings file does, stands for the data folder's file of the array.
std::string pasi_spread_file(const std::string& setting, std::string_view spread_tag);

// The menu command of `kind`: the dialogs, the reader, the TX3 file beside the input (or at
// `out` when given), the display refreshed. `sev_file` is the setting "SEV File" (PASI's
// spreads). From the read on, `FilePath` names the TX3 file, never the input. Returns the path
// written.
std::optional<std::string> convert_instrument(Session& session, Instrument kind,
                                              const std::string& sev_file,
                                              const std::string& out = {});

}  // namespace tellux
