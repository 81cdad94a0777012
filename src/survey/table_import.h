#pragma once
// Field readings from a table into the sounding record, as the field sheet's Compute would store
// the same readings typed: K from the spacings by the array's geometric factor and rounded as the
// sheet rounds it, the apparent resistivity K x DeltaV / I rounded as the sheet rounds it, rows in
// rising AB/2 with repeated spacings and changes of MN/2 (segments) kept in the order read.
#include <string>
#include <vector>

#include "core/session.h"
#include "survey/table_text.h"

namespace tellux {

// How to read a table: the text's format and the columns' roles (none: from the header).
struct TableLayout {
  TableFormat format;
  std::vector<ColumnRole> roles;
};

// What the import did: the roles that counted, the messages (readings left out, with their line),
// and whether the table gave readings at all.
struct TableImport {
  std::vector<ColumnRole> roles;
  std::vector<std::string> messages;
  bool ok = false;             // false: nothing stored; the first message says why
  bool roles_missing = false;  // the columns' roles do not give a reading (first message)
};

// Roles from "ab2,mn2,r,r,-": none when a name is not a role.
std::optional<std::vector<ColumnRole>> roles_from_list(const std::string& list);

// Reads the table's text into `FieldTable`, `FieldCount` and `MaxAbHalf` of `s` (with `Spread`
// and `HalfArray` as they stand), emptying the model and the strings; `DataOrigin` names the
// table. A resistance R (ohm) is kept as DeltaV = 1000 R mV for I = 1000 mA, which is how the
// sheet takes a resistance typed as a voltage for one ampere.
TableImport import_table(SoundingState& s, const std::string& content, const TableLayout& layout,
                         const std::string& origin);

}  // namespace tellux
