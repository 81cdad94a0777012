#include "convert/syscal.h"

#include <cmath>

#include "convert/items.h"

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
  std::string rest;
  first_line(text, rest);  // the header, dropped
  const std::vector<std::string> items = split_items(rest, 7 * kMostRows);
  for (size_t i = 0; i + 7 <= items.size() && file.rows.size() < kMostRows; i += 7) {
    SyscalRow r;
    try {
      r.name = items[i];
      rt::CInt(rt::parse_number_token(items[i + 1]));
      rt::CInt(rt::parse_number_token(items[i + 2]));
      r.P1 = rt::parse_number_token(items[i + 3]);
      r.P2 = rt::parse_number_token(items[i + 4]);
      r.P3 = rt::parse_number_token(items[i + 5]);
      r.P4 = rt::parse_number_token(items[i + 6]);
    } catch (const rt::RuntimeError&) {
      break;  // the rows before the bad item are converted
    }
    file.rows.push_back(r);
    if (r.P1 > 0) ++file.counted;
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

std::vector<std::string> Syscal(Session& session) {
  SoundingState& s = session.s;
  std::vector<std::string> written;
  const auto chosen =
      session.dialogs.open_file({"File Syscal *.DAT", "TELLUX File selection", "*.DAT"});
  if (!chosen) return written;
  s.FilePath = *chosen;
  s.FileName = bare_name(s.FilePath);
  SyscalFile file;
  try {
    file = read_syscal(rt::read_whole_file(s.FilePath));
  } catch (const rt::RuntimeError&) {
    tell_read_error(session);  // a file it will not read: missing, a pipe or device, too large
    return written;
  }
  const std::vector<std::string> names = syscal_soundings(file);
  const int count = std::min<int>(file.counted, static_cast<int>(file.rows.size()));
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
      s.FilePath = answer.substr(0, 8) + ".TX3";
      sort_rows(s);
      std::string path = s.FilePath;
      if (write_sounding_file(session, path)) written.push_back(path);
    }
  } catch (const rt::RuntimeError&) {
    return written;  // the error exit: what is written stays
  }
  session.dialogs.tell(session.text("Tous les fichiers SYSCAL sont convertis ",
                                    "Todos los ficheros SYSCAL han sido convertidos",
                                    "All Syscal files have been converte"),
                       Icon::Information, "Tellux file name");
  return written;
}

}  // namespace tellux
