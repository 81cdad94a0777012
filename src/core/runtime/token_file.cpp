#include "core/runtime/token_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/runtime/arithmetic.h"
#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"
#include "core/runtime/utf8.h"

namespace tellux::rt {

namespace fs = std::filesystem;

void check_readable(const std::string& path, std::uintmax_t largest) {
  std::error_code ec;
  const fs::path p(path);
  if (path.empty() || !fs::exists(p, ec)) {
    const fs::path parent = p.parent_path();
    raise(parent.empty() || fs::is_directory(parent, ec) ? kFileNotFound : kPathNotFound,
          std::strerror(ENOENT));
  }
  if (fs::is_directory(p, ec)) raise(kPathFileAccess, std::strerror(EISDIR));
  // Only plain files: a pipe would block for ever and a device never end.
  if (!fs::is_regular_file(p, ec)) raise(kPathFileAccess, "not a regular file");
  if (fs::file_size(p, ec) > largest) raise(kPathFileAccess, "file too large");
  if (::access(path.c_str(), R_OK) != 0) raise(kPathFileAccess, std::strerror(errno));
}

std::string read_whole_file(const std::string& path, std::uintmax_t largest) {
  check_readable(path, largest);
  std::ifstream in(path, std::ios::binary);
  if (!in) raise(kPathFileAccess, std::strerror(EACCES));
  std::ostringstream all;
  all << in.rdbuf();
  return all.str();
}

namespace {
bool is_blank(char c) { return c == ' ' || c == '\t'; }
bool is_line_end(char c) { return c == '\r' || c == '\n'; }

// A comma that ends its line (or the file) leaves an empty item behind it: "1,2,\r\n" holds three
// items. Takes that line end and says so.
bool empty_item_at_line_end(const std::string& text, size_t& pos) {
  size_t back = pos;
  while (back > 0 && is_blank(text[back - 1])) --back;
  if (back == 0 || text[back - 1] != ',') return false;
  size_t at = pos;
  while (at < text.size() && is_blank(text[at])) ++at;
  if (at < text.size() && !is_line_end(text[at])) return false;
  if (at < text.size() && text[at] == '\r') ++at;
  if (at < text.size() && text[at] == '\n') ++at;
  pos = at;
  return true;
}
}  // namespace

bool TokenReader::at_end() const {
  for (size_t i = pos_; i < text_.size(); ++i)
    if (!is_blank(text_[i]) && !is_line_end(text_[i]) && text_[i] != '\x1a') return false;
  return true;
}

void TokenReader::skip_separators_before_item() {
  while (pos_ < text_.size() && (is_blank(text_[pos_]) || is_line_end(text_[pos_]))) ++pos_;
  if (pos_ >= text_.size() || text_[pos_] == '\x1a') raise(kInputPastEnd);
}

// After an item: blanks, then one comma or one line end (CRLF counts as one).
void TokenReader::finish_item() {
  while (pos_ < text_.size() && is_blank(text_[pos_])) ++pos_;
  if (pos_ >= text_.size()) return;
  if (text_[pos_] == ',') {
    ++pos_;
  } else if (text_[pos_] == '\r') {
    ++pos_;
    if (pos_ < text_.size() && text_[pos_] == '\n') ++pos_;
  } else if (text_[pos_] == '\n') {
    ++pos_;
  }
}

std::string TokenReader::raw_item() {
  if (empty_item_at_line_end(text_, pos_)) return {};
  skip_separators_before_item();
  std::string item;
  if (text_[pos_] == '"') {
    const size_t close = text_.find('"', pos_ + 1);
    const size_t end = close == std::string::npos ? text_.size() : close;
    item = text_.substr(pos_ + 1, end - pos_ - 1);
    pos_ = close == std::string::npos ? text_.size() : close + 1;
    // Anything between the closing quote and the separator is dropped.
    while (pos_ < text_.size() && text_[pos_] != ',' && !is_line_end(text_[pos_])) ++pos_;
  } else {
    const size_t start = pos_;
    while (pos_ < text_.size() && text_[pos_] != ',' && !is_line_end(text_[pos_])) ++pos_;
    item = text_.substr(start, pos_ - start);
    while (!item.empty() && is_blank(item.back())) item.pop_back();
  }
  finish_item();
  return item;
}

// A number that does not stand in quotes also ends at a blank, so that "1.5 100 0" is three
// numbers as the field instruments write them; a text keeps its blanks.
double TokenReader::number() {
  if (empty_item_at_line_end(text_, pos_)) return 0.0;
  skip_separators_before_item();
  if (text_[pos_] == '"') return parse_number_token(raw_item());
  const size_t start = pos_;
  while (pos_ < text_.size() && text_[pos_] != ',' && !is_line_end(text_[pos_]) &&
         !is_blank(text_[pos_]))
    ++pos_;
  const std::string item = text_.substr(start, pos_ - start);
  finish_item();
  return parse_number_token(item);
}
float TokenReader::single() { return CSng(number()); }
int16_t TokenReader::integer16() { return CInt(number()); }
std::string TokenReader::text() { return to_utf8(raw_item()); }

std::string TokenReader::line() {
  if (pos_ >= text_.size()) raise(kInputPastEnd);
  const size_t start = pos_;
  while (pos_ < text_.size() && !is_line_end(text_[pos_])) ++pos_;
  std::string l = text_.substr(start, pos_ - start);
  if (pos_ < text_.size() && text_[pos_] == '\r') ++pos_;
  if (pos_ < text_.size() && text_[pos_] == '\n') ++pos_;
  return to_utf8(l);
}

void TokenWriter::separate() {
  if (line_started_) out_ += ',';
  line_started_ = true;
}

void TokenWriter::number(double v, Kind kind) {
  separate();
  out_ += CStr(v, kind);
}

void TokenWriter::text(std::string_view s) {
  separate();
  out_ += '"';
  out_ += s;
  out_ += '"';
}

void TokenWriter::end_line() {
  out_ += "\r\n";
  line_started_ = false;
}

void TokenWriter::print_line(std::string_view s) {
  out_ += s;
  end_line();
}

namespace {

[[noreturn]] void raise_for_errno(int err) {
  std::string reason = std::strerror(err);
  switch (err) {
    case ENOENT:
    case ENOTDIR:
      raise(kPathNotFound, reason);
    case EACCES:
    case EPERM:
    case EROFS:
      raise(kPermissionDenied, reason);
    case ENOSPC:
    case EDQUOT:
      raise(kDiskFull, reason);
    default:
      raise(57, reason);
  }
}

}  // namespace

void write_file_atomically(const std::string& given, std::string_view content) {
  if (given.empty()) raise(kPathNotFound, std::strerror(ENOENT));
  std::error_code ec;
  // Through a symbolic link the file it points to is replaced and the link is kept.
  std::string path = given;
  for (int hops = 0; hops < 40 && fs::is_symlink(path, ec); ++hops) {
    const fs::path link = fs::read_symlink(path, ec);
    path = (link.is_absolute() ? link : fs::path(path).parent_path() / link).string();
  }
  const fs::path target(path);
  // Only plain files are replaced: a device or a pipe used as a target stays as it is.
  if (fs::exists(target, ec) && !fs::is_regular_file(target, ec) && !fs::is_directory(target, ec))
    raise(kPathFileAccess, "not a regular file");
  if (fs::is_directory(target, ec)) raise(kPathFileAccess, std::strerror(EISDIR));
  // A write-protected file stays protected: replacing it by a rename would bypass that. A file
  // nobody may write counts as read-only even for the super-user.
  struct stat existing {};
  if (::stat(path.c_str(), &existing) == 0 &&
      ((existing.st_mode & 0222) == 0 || ::access(path.c_str(), W_OK) != 0))
    raise(kPathFileAccess, "the file is write-protected");
  const fs::path dir = target.has_parent_path() ? target.parent_path() : fs::path(".");
  if (!fs::is_directory(dir, ec)) raise(kPathNotFound, std::strerror(ENOENT));

  std::string temp = (dir / ("." + target.filename().string() + ".XXXXXX")).string();
  const int fd = ::mkstemp(temp.data());
  if (fd < 0) raise_for_errno(errno);
  size_t done = 0;
  while (done < content.size()) {
    const ssize_t n = ::write(fd, content.data() + done, content.size() - done);
    if (n < 0) {
      if (errno == EINTR) continue;
      const int err = errno;
      ::close(fd);
      ::unlink(temp.c_str());
      raise_for_errno(err);
    }
    done += static_cast<size_t>(n);
  }
  struct stat old_stat {};
  const mode_t mode = ::stat(path.c_str(), &old_stat) == 0 ? (old_stat.st_mode & 07777) : 0644;
  ::fchmod(fd, mode);
  if (::fsync(fd) != 0 || ::close(fd) != 0) {
    const int err = errno;
    ::unlink(temp.c_str());
    raise_for_errno(err);
  }
  if (::rename(temp.c_str(), path.c_str()) != 0) {
    const int err = errno;
    ::unlink(temp.c_str());
    raise_for_errno(err);
  }
}

namespace {

void append_code_point(std::string& out, unsigned cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// Windows-1252 code points of 0x80..0x9F; the undefined ones map to themselves.
constexpr unsigned kCp1252High[32] = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

}  // namespace

bool is_utf8(std::string_view s) {
  for (size_t i = 0; i < s.size();) {
    const auto c = static_cast<unsigned char>(s[i]);
    if (c < 0x80) {
      ++i;
      continue;
    }
    // The lead byte fixes the length and the range of the second byte: that range rules out the
    // overlong forms (C0, C1, E0 80..9F, F0 80..8F), the surrogates (ED A0..BF) and what lies
    // above U+10FFFF (F4 90..BF, F5..FF).
    size_t extra = 0;
    unsigned low = 0x80, high = 0xBF;
    if (c >= 0xC2 && c <= 0xDF) {
      extra = 1;
    } else if (c >= 0xE0 && c <= 0xEF) {
      extra = 2;
      if (c == 0xE0) low = 0xA0;
      if (c == 0xED) high = 0x9F;
    } else if (c >= 0xF0 && c <= 0xF4) {
      extra = 3;
      if (c == 0xF0) low = 0x90;
      if (c == 0xF4) high = 0x8F;
    } else {
      return false;
    }
    if (i + extra >= s.size()) return false;
    for (size_t k = 1; k <= extra; ++k) {
      const auto next = static_cast<unsigned char>(s[i + k]);
      if (next < (k == 1 ? low : 0x80) || next > (k == 1 ? high : 0xBF)) return false;
    }
    i += extra + 1;
  }
  return true;
}

std::string to_utf8(std::string_view bytes) {
  if (is_utf8(bytes)) return std::string(bytes);
  std::string out;
  out.reserve(bytes.size() * 2);
  for (char ch : bytes) {
    const auto c = static_cast<unsigned char>(ch);
    append_code_point(out, c >= 0x80 && c < 0xA0 ? kCp1252High[c - 0x80] : c);
  }
  return out;
}

}  // namespace tellux::rt
