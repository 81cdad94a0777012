#pragma once
// The outline (bookmarks) of a PDF written by the toolkit, which has no call for it: added as an
// incremental update at the end of the file, so that the pages as written stay untouched.
#include <string>
#include <vector>

namespace manual {

struct OutlineEntry {
  int level = 1;      // 1 chapter, 2 section, 3 subsection
  std::string title;  // UTF-8
  int page = 0;       // 0-based page of the document
  double top = 0;     // distance of the heading from the page's top edge, in points
};

// Appends the outline and makes the reader show it on opening. False when the file is not a PDF
// of the expected form (one classic cross-reference table, a catalog, a flat page tree).
bool add_outline(const std::string& pdf_path, const std::vector<OutlineEntry>& entries,
                 std::string& error);

}  // namespace manual
