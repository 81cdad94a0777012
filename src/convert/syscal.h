#pragma once
// "Syscal to TX3": a text file exported from a Syscal resistivity meter holds the readings of
// several soundings, each tagged with its name; each run of one name becomes a TX3 file. The
// record's sounding is overwritten.
#include <string>
#include <vector>

#include "core/session.h"

namespace tellux {

// One row of the file: the sounding's name, the potential (V), the current (A), AB/2 and MN/2.
struct SyscalRow {
  std::string name;
  double P1 = 0, P2 = 0, P3 = 0, P4 = 0;
};

// The rows of the file after its header line, at most 500, read by the token rules of the
// program's files (a name may stand in quotes; an empty item is 0). Reading stops at the first
// item that cannot be read, keeping the rows before it: `stop` says why, at row `stopped_at`.
// `counted` is the number of rows whose P1 is above 0 (rows after such a row still take their
// place, so the count can run short of the rows).
struct SyscalFile {
  std::vector<SyscalRow> rows;
  int counted = 0;
  int stopped_at = 0;
  std::string stop;
};
SyscalFile read_syscal(const std::string& text);

// The soundings by change of name among the counted rows: a name that comes back later is a new
// sounding.
std::vector<std::string> syscal_soundings(const SyscalFile& file);

// The menu command: the open dialog, one input box and one write per sounding, the closing
// message. The files go to the folder of the file chosen (or to `out_dir`). Returns the files
// written. A division by zero in K ends the command, with a message that names the row, as does
// a file without a row to convert.
std::vector<std::string> Syscal(Session& session, const std::string& out_dir = {});

}  // namespace tellux
