#pragma once
// Every way of opening a sounding ends in `open_sounding`: the open dialog (`Read_TX3`, the menu
// entry `NFile`), the five recent-file entries, the start window's "Load last Tellux file", and
// the conversions that open what they wrote.
#include "core/session.h"

namespace tellux {

// The filter of the open dialog, older layouts included.
inline constexpr const char* kOpenFilter =
    "Tellux 5 & 6 (*.TX3)|*.TX3|Tellux 2.2 (*.TXW)|*.TXW|Tellux 1.0 (*.TXE)|*.TXE|"
    "TL! DOS (*.SEV)|*.SEV";

// Opens `FilePath`: enters it in the recent files, cuts `FileName` and `FileDir` from it, empties
// the field table, reads the file by the last three letters of its name ("SEV", "TXE", "TXW",
// else TX3; an older layout is renamed to TX3 so that it is saved beside itself), raises
// `MaxAbHalf`, shows the model window when the file holds a model, and fills the sheet.
// Failing statements are passed over: only the TX3 reader reports its failures.
void open_sounding(Session& session);

// What every open does once the file is read: raises `MaxAbHalf`, sets `WorkMode` to "NORMAL",
// shows the model window when the sounding holds a model (unloads it otherwise), and fills the
// sheet. Restoring a backup ends in it too.
void finish_open(Session& session);

// The toolbar's "open": the open dialog, then `open_sounding`. Returns false on Cancel, which
// changes nothing but the diagram's pointer.
bool Read_TX3(Session& session);

// The File menu's "Read": as `Read_TX3`, after marking that no model was computed yet and that
// the setup tab needs no redraw.
bool NFile(Session& session);

// The recent-file entries F1_F..F5_F (`slot` 1..5): opens the path kept in that slot. An empty
// entry ends in the reader's message.
void open_recent(Session& session, int slot);

// The start window's "Load last Tellux file", after the caller has closed the start window:
// opens recent entry 1.
void load_last_file(Session& session);

}  // namespace tellux
