#pragma once
// The items of an instrument's text file: separated by commas, blanks, tabs and line ends, as
// the files of field instruments and inversion programs write them.
#include <string>
#include <vector>

namespace tellux {

std::vector<std::string> split_items(const std::string& text);

// The first line of a text, without its line end; `rest` gets what follows it.
std::string first_line(const std::string& text, std::string& rest);

}  // namespace tellux
