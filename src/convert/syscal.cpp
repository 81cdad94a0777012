#include "convert/syscal.h"

#include <cmath>

#include "convert/conversion_stop.h"
#include "core/file_names.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"
#include "core/runtime/token_file.h"
#include "core/sounding_file.h"

namespace tellux {

namespace {

constexpr int kMostRows = 500;

// Fills row `n` of `FieldTable` from a reading, with K and the apparent resistivity.
void fill_row(SoundingState& s, int n, const SyscalRow& r) {
  FieldTableT& t = s.FieldTable;
  t(n, 1) = std::floor(100 * r.P3) / 100;
  t(n, 3) = std::floor(100 * r.P4) / 100;
  t(n, 4) = static_cast<double>(rt::CLng(1000 * r.P1));
  t(n, 6) = static_cast<double>(rt::CLng(1000 * r.P2));
  if (r.P3 > s.MaxAbHalf) s.MaxAbHalf = rt::CInt(r.P3);
  double K = 0;
  if (r.P3 + r.P4 + r.P1 + r.P2 > 0) {
    const double L = r.P3, l = r.P4, d = L - l, sum = 2 * l + d;
    K = rt::Div(3.1416 * sum * d, 2 * l);  // l = 0 ends the command
    K = K < 100 ? rt::CInt(K * 100) / 100.0 : static_cast<double>(rt::CLng(K));
  }
  t(n, 5) = K;
  if (r.P2 > 0) t(n, 2) = static_cast<double>(rt::CLng(rt::Div(K * r.P1, r.P2)));
}

// Bubble sort of the rows by AB/2, then MN/2.
void sort_rows(SoundingState& s) {
  FieldTableT& t = s.FieldTable;
  const int n = s.FieldCount;
  for (int pass = 1; pass < n; ++pass)
    for (int j = 1; j < n; ++j) {
      const bool later = t(j, 1).num() > t(j + 1, 1).num() ||
                         (t(j, 1).num() == t(j + 1, 1).num() && t(j, 3).num() > t(j + 1, 3).num());
      if (!later) continue;
      for (int c = 1; c <= 6; ++c) std::swap(t(j, c), t(j + 1, c));
    }
}

}  // namespace

SyscalFile read_syscal(const std::string& text) {
  SyscalFile file;
  rt::TokenReader in(text);
  try {
    in.line();  // the header, dropped
    while (file.rows.size() < kMostRows && !in.at_end()) {
      SyscalRow r;
      r.name = in.text();
      in.integer16();
      in.integer16();
      r.P1 = in.number();
      r.P2 = in.number();
      r.P3 = in.number();
      r.P4 = in.number();
      file.rows.push_back(r);
      if (r.P1 > 0) ++file.counted;
    }
  } catch (const rt::RuntimeError& e) {
    // The rows before the bad item are converted.
    file.stopped_at = static_cast<int>(file.rows.size()) + 1;
    file.stop = cause_of(e);
  }
  return file;
}

std::vector<std::string> syscal_soundings(const SyscalFile& file) {
  std::vector<std::string> names;
  const int count = std::min<int>(file.counted, static_cast<int>(file.rows.size()));
  for (int i = 0; i < count; ++i) {
    const std::string& name = file.rows[static_cast<size_t>(i)].name;
    if (names.empty() || name != names.back()) names.push_back(name);
  }
  return names;
}

namespace {

// The first `count` characters of a UTF-8 text.
std::string first_characters(const std::string& text, size_t count) {
  size_t at = 0;
  for (size_t seen = 0; at < text.size(); ++at) {
    // A character starts at every byte that does not continue one.
    if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80 && seen++ == count) break;
  }
  return text.substr(0, at);
}

// Why a sounding could not be made of its rows.
std::string cause_in_rows(const rt::RuntimeError& e) {
  if (e.number() == rt::kDivisionByZero) return "MN/2 is 0, which K divides by";
  if (e.number() == rt::kSubscript) return "more than 51 readings in one sounding";
  return cause_of(e);
}

}  // namespace

std::vector<std::string> Syscal(Session& session, const std::string& out_dir) {
  SoundingState& s = session.s;
  std::vector<std::string> written;
  const auto chosen =
      session.dialogs.open_file({"File Syscal *.DAT", "TELLUX File selection", "*.DAT"});
  if (!chosen) return written;
  const std::string input = *chosen;
  s.FilePath = input;
  s.FileName = bare_name(input);
  SyscalFile file;
  try {
    file = read_syscal(rt::read_whole_file(input));
  } catch (const rt::RuntimeError&) {
    tell_read_error(session);  // a file it will not read: missing, a pipe or device, too large
    return written;
  }
  // The files land beside the input; until one is written, a Save does not go to the input.
  const std::string folder = out_dir.empty() ? folder_of(input) : out_dir + "/";
  s.FilePath = with_extension(input, ".TX3");
  s.FileName = bare_name(s.FilePath);
  const std::vector<std::string> names = syscal_soundings(file);
  if (names.empty()) {
    tell_stop(session, input, file.stopped_at,
              file.stop.empty() ? "no reading has a potential above 0" : file.stop);
    return written;
  }
  const int count = std::min<int>(file.counted, static_cast<int>(file.rows.size()));
  int at = 0;  // the row of the file being converted
  try {
    const TellEachOnce once(session.dialogs);
    for (size_t k = 0; k < names.size(); ++k) {
      for (int r = 0; r <= 51; ++r)
        for (int c = 0; c <= 6; ++c) s.FieldTable(r, c) = 0.0;
      s.FieldCount = 0;
      s.MaxAbHalf = 1;
      for (int i = 0; i < count; ++i) {
        const SyscalRow& row = file.rows[static_cast<size_t>(i)];
        if (row.name != names[k]) continue;
        at = i + 1;
        ++s.FieldCount;  // a 52nd row of one sounding fails on the table's bound
        fill_row(s, s.FieldCount, row);
      }
      s.WorkMode = mode::kNormal;
      session.forms.redraw_bilog_frame();
      const std::string number = std::to_string(k + 1);
      const std::string prompt =
          s.Language.French ? "Entrez un nom (sans extension) pour le fichier N° " + number
          : s.Language.Spanish
              ? "Entre un nombre de fichero (sin extension) para Syscal   N° " + number
              : "Enter a file name (without extension) for Syscal  data N° " + number;
      // Eight characters at most, as short file names had.
      const std::string answer =
          session.dialogs.input(prompt, "Tellux file name", names[k]).value_or("");
      s.FilePath = folder + first_characters(answer, 8) + ".TX3";
      s.FileName = bare_name(s.FilePath);
      sort_rows(s);
      std::string path = s.FilePath;
      if (write_sounding_file(session, path)) written.push_back(path);
    }
  } catch (const rt::RuntimeError& e) {
    tell_stop(session, input, at, cause_in_rows(e));
    return written;  // the error exit: what is written stays
  }
  if (file.stopped_at > 0) {
    // The rows after a bad item were not read: the file is not all converted.
    tell_stop(session, input, file.stopped_at, file.stop);
    return written;
  }
  session.dialogs.tell(session.text("Tous les fichiers SYSCAL sont convertis ",
                                    "Todos los ficheros SYSCAL han sido convertidos",
                                    "All Syscal files have been converte"),
                       Icon::Information, "Tellux file name");
  return written;
}

}  // namespace tellux
