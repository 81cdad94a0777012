#pragma once
// Sequential text files as the program reads and writes them. Items are separated by commas and
// line ends; numbers end at a comma or the line's end, strings stand in double quotes. Reading
// past the end raises error 62. The decimal mark is always the point. Lines are written with CRLF
// and read with CRLF or LF.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/runtime/cell.h"

namespace tellux::rt {

// Raises unless `path` is a plain file of at most `largest` bytes that can be read: error 53
// when it does not exist, 76 when its folder does not, 75 for a folder, a pipe, a device or a
// larger file, each with the reason. It never blocks: a pipe is not opened. No file of the
// program comes near 4 MB; a larger one is not read into memory.
void check_readable(const std::string& path, std::uintmax_t largest = 4u << 20);

// Reads a whole file into memory once `check_readable` lets it.
std::string read_whole_file(const std::string& path, std::uintmax_t largest = 4u << 20);

class TokenReader {
 public:
  explicit TokenReader(std::string content) : text_(std::move(content)) {}
  static TokenReader open(const std::string& path) { return TokenReader(read_whole_file(path)); }

  double number();      // error 13 for a token that is not a number
  float single();       // a number kept in single precision
  int16_t integer16();  // a number rounded half to even into 16 bits (error 6 outside)
  std::string text();   // a quoted or plain string item, as UTF-8
  std::string line();   // the rest of the current line, as UTF-8
  bool at_end() const;  // nothing but line ends and blanks remain

 private:
  void skip_separators_before_item();
  void finish_item();
  std::string raw_item();
  std::string text_;
  size_t pos_ = 0;
};

// Builds the text of a file written item by item (`Write #`) or line by line (`Print #`).
class TokenWriter {
 public:
  void number(double v, Kind kind = Kind::Double);  // comma-separated, no blank, point decimal
  void text(std::string_view s);                    // in double quotes
  void end_line();                                  // CRLF
  void print_line(std::string_view s);              // a plain line, CRLF
  const std::string& content() const { return out_; }

 private:
  void separate();
  std::string out_;
  bool line_started_ = false;
};

// Writes a file so that a failure leaves any old file whole: the text goes to a temporary file
// beside the target, which then replaces it. Errors: 76 no such folder, 70 folder not writable or
// read-only disk, 75 target file write-protected, 61 disk full, 57 other device errors.
void write_file_atomically(const std::string& path, std::string_view content);

// Text of the older files is Windows-1252; text written by this program is UTF-8. Valid UTF-8
// stays as it is, anything else is read as Windows-1252.
std::string to_utf8(std::string_view bytes);

}  // namespace tellux::rt
