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

// The rows of the file after its header line, at most 500; reading stops at the first item that
// cannot be read, keeping the rows before it. `counted` is the number of rows whose P1 is above 0
// (rows after such a row still take their place, so the count can run short of the rows).
struct SyscalFile {
  std::vector<SyscalRow> rows;
  int counted = 0;
};
SyscalFile read_syscal(const std::string& text);

// The soundings by change of name among the counted rows: a name that comes back later is a new
// sounding.
std::vector<std::string> syscal_soundings(const SyscalFile& file);

// The menu command: the open dialog, one input box and one write per sounding, the closing
// message. Returns the files written. A division by zero in K ends the command.
std::vector<std::string> Syscal(Session& session);

}  // namespace tellux
