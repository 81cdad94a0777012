#pragma once
// The items of an instrument's text file: separated by commas, blanks, tabs and line ends, as
// the files of field instruments and inversion programs write them.
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace tellux {

// The items of `text`, the first `most` of them: a reader that needs no more than a table holds
// says so, and a hostile file of a million items costs no memory.
std::vector<std::string> split_items(const std::string& text,
                                     size_t most = std::numeric_limits<size_t>::max());

// The first line of a text, without its line end; `rest` gets what follows it.
std::string first_line(const std::string& text, std::string& rest);

}  // namespace tellux
