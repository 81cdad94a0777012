#include "convert/instruments.h"

#include <cmath>
#include <sstream>
#include <vector>

#include "convert/items.h"
#include "core/data_dir.h"
#include "core/default_spread.h"
#include "core/file_names.h"
#include "core/open_flow.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"
#include "core/runtime/token_file.h"
#include "core/sounding_file.h"
#include "model/geometric_factor.h"

namespace tellux {

namespace {

// The next line of `in` without its line end (CRLF or LF).
bool next_line(std::istringstream& in, std::string& line) {
  if (!std::getline(in, line)) return false;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

// The first `most` lines of a text: a reader holds no more than its layout can use, so a file of
// a million empty lines costs no memory.
std::vector<std::string> lines_of(const std::string& text, size_t most) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  std::string line;
  while (lines.size() < most && next_line(in, line)) lines.push_back(line);
  return lines;
}

// Columns `first` to `last` of a line, counted from 1, as they stand (blanks included).
std::string mid(const std::string& line, size_t first, size_t last) {
  return line.size() < first ? std::string() : line.substr(first - 1, last - first + 1);
}

// The same columns without the blanks that pad them.
std::string columns(const std::string& line, size_t first, size_t last) {
  std::string text = mid(line, first, last);
  while (!text.empty() && text.back() == ' ') text.pop_back();
  while (!text.empty() && text.front() == ' ') text.erase(text.begin());
  return text;
}

void clear_strings(SoundingState& s) {
  for (std::string* t : {&s.CommentText, &s.DataOrigin, &s.GraphTitle, &s.LocationX, &s.LocationY,
                         &s.LocationZ, &s.LocationAzimuth})
    t->clear();
}

void raise_max_ab(SoundingState& s, double ab) {
  if (ab > s.MaxAbHalf) s.MaxAbHalf = rt::CInt(ab);
}

// The largest spacing becomes a number of decades, with the program's 0.4343.
void max_ab_as_decades(SoundingState& s) {
  rt::skip([&] { s.MaxAbHalf = rt::CInt(rt::Log(s.MaxAbHalf) * 0.4343); });
}

const char* select_first(const Session& session) {
  return session.text("Sélectionnez d'abord un fichier ", "Primero, seleccione un fichero ",
                      "First select a File ");
}

}  // namespace

bool read_abem(Session& session, const std::string& text) {
  SoundingState& s = session.s;
  rt::TokenReader in(text);
  s.FieldTable.erase();
  s.MaxAbHalf = 1;
  try {
    s.CommentText = in.text();
    in.integer16();
    const int n = in.integer16();
    for (int i = 1; i <= n; ++i) {
      s.FieldTable(i, 1) = in.single();  // a 52nd row fails on the table's bound
      s.FieldTable(i, 2) = in.single();
      in.single();
      for (int c = 3; c <= 6; ++c) s.FieldTable(i, c) = 0.0;
      raise_max_ab(s, s.FieldTable(i, 1).num());
    }
    s.FieldCount = static_cast<int16_t>(n);
    const int m = in.integer16();
    for (int r = 1; r <= m; ++r) {
      float item[7];
      for (float& v : item) v = in.single();
      s.LayerModel(r, 1) = item[0];  // a 22nd row fails on the model's bound
      s.LayerModel(r, 2) = item[2];
      s.LayerModel(r, 3) = item[4];
    }
  } catch (const rt::RuntimeError&) {
    return false;
  }
  for (std::string* t :
       {&s.DataOrigin, &s.GraphTitle, &s.LocationX, &s.LocationY, &s.LocationZ, &s.LocationAzimuth})
    t->clear();
  max_ab_as_decades(s);
  return true;
}

bool read_sas1000(Session& session, const std::string& text) {
  SoundingState& s = session.s;
  const std::vector<std::string> lines = lines_of(text, 28 + 52);  // the 52nd row fails
  s.FieldTable.erase();
  s.MaxAbHalf = 1;
  try {
    if (lines.size() < 28) rt::raise(rt::kInputPastEnd);
    // The location strings keep the blanks of their columns, as the type keeps its five.
    const std::string x = mid(lines[3], 32, 44), y = mid(lines[3], 45, 57),
                      z = mid(lines[3], 58, 69);
    const int n = rt::CInt(rt::Val(columns(lines[4], 44, 56)));  // error 6 beyond 16 bits
    const int code = rt::CInt(rt::Val(columns(lines[8], 32, 33)));
    const std::string type = mid(lines[9], 32, 36);
    const double spacing = rt::Val(columns(lines[10], 32, 41));
    if (type != "Index" && type != "XYZ:1") {
      session.tell("Coordinate types other than Index and XYZ:1 not supported");
      return false;
    }
    const bool xyz = type == "XYZ:1";
    for (int i = 1; i <= n; ++i) {
      const size_t at = 27 + static_cast<size_t>(i);
      if (at >= lines.size()) rt::raise(rt::kInputPastEnd);
      const std::vector<std::string> items = split_items(lines[at]);
      if (items.size() < (xyz ? 10u : 9u)) rt::raise(rt::kInputPastEnd);
      const auto item = [&](size_t k) { return rt::parse_number_token(items[k - 1]); };
      FieldTableT& t = s.FieldTable;
      if (xyz) {
        const double A = item(3), B = item(4), M = item(5), N = item(6);
        t(i, 6) = item(7);
        t(i, 4) = item(8);
        t(i, 2) = item(9);
        if (code == 10) {
          t(i, 1) = (B - A) / 2;
          t(i, 3) = (N - M) / 2;
        } else if (code >= 1 && code <= 3) {
          t(i, 1) = N - M;  // not halved
          t(i, 3) = 0.0;
        }
      } else {
        const double a = item(4), nn = item(5);
        t(i, 6) = item(6);
        t(i, 4) = item(7);
        t(i, 2) = item(8);
        if (code == 10) {
          t(i, 1) = (2 * a + nn) * spacing / 2;
          t(i, 3) = spacing * nn / 2;
        } else if (code >= 1 && code <= 3) {
          t(i, 1) = spacing * a;
          t(i, 3) = 0.0;
        }
      }
      t(i, 5) = 0.0;
      t(i, 4) = t(i, 4).num() * 1000;
      raise_max_ab(s, t(i, 1).num());
      s.FieldCount = static_cast<int16_t>(i);
    }
    clear_strings(s);
    s.LocationX = x;
    s.LocationY = y;
    s.LocationZ = z;
  } catch (const rt::RuntimeError&) {
    session.tell("Erreur lors de la lecture du fichier...");
    return false;
  }
  max_ab_as_decades(s);
  return true;
}

namespace {

// A reading already in milli units keeps its number; volts and amperes are made milli.
double milli(const std::string& text) {
  const double v = rt::Val(text);
  return text.find('m') != std::string::npos ? v : v * 1000;
}

}  // namespace

bool read_geotrade(Session& session, const std::string& text) {
  SoundingState& s = session.s;
  clear_strings(s);
  s.FieldTable.erase();
  s.MaxAbHalf = 1;
  int i = 0;
  try {
    std::istringstream in(text);
    for (std::string line; next_line(in, line);) {
      if (line.empty()) continue;
      ++i;  // a 52nd reading fails on the table's bound
      FieldTableT& t = s.FieldTable;
      t(i, 4) = milli(columns(line, 11, 19));
      t(i, 6) = milli(columns(line, 22, 30));
      t(i, 1) = rt::Val(columns(line, 87, 92)) / 2;
      t(i, 3) = rt::Val(columns(line, 97, 99)) / 2;
      double K = 0, rho = 0;
      rt::skip([&] {
        K = round_geometric_factor(
            geometric_factor(SpreadType::Schlumberger, 1, t(i, 1).num(), t(i, 3).num()));
        rho = rt::Div(K * t(i, 4).num(), t(i, 6).num());
      });
      t(i, 5) = K;
      t(i, 2) = rho;
      // A reading of 0.1 ohm.m or below is dropped: the next line takes its row.
      if (!(rho > 0.1)) {
        for (int c = 1; c <= 6; ++c) t(i, c) = 0.0;
        --i;
        continue;
      }
      raise_max_ab(s, t(i, 1).num());
    }
  } catch (const rt::RuntimeError&) {
    return false;
  }
  s.FieldCount = static_cast<int16_t>(i);
  max_ab_as_decades(s);
  return true;
}

bool read_pasi(Session& session, const std::string& text) {
  SoundingState& s = session.s;
  // The name and date, then rows of 7 up to the 52nd, which fails on the table's bound.
  std::vector<std::string> items = split_items(text, 2 + 7 * 52);
  clear_strings(s);
  s.MaxAbHalf = 1;
  try {
    if (items.size() < 2) rt::raise(rt::kInputPastEnd);
    for (std::string* name : {&items[0], &items[1]})  // strings may stand in quotes
      if (name->size() >= 2 && name->front() == '"' && name->back() == '"')
        *name = name->substr(1, name->size() - 2);
    if (items[0] == "SCHLUMBERGER") {
      s.Spread = SpreadType::Schlumberger;
      s.SpreadTag = "0";
    }
    // The date's three parts joined by points.
    std::string date;
    for (char c : items[1]) date += std::isdigit(static_cast<unsigned char>(c)) ? c : '.';
    int n = 0;
    for (size_t k = 2; k + 7 <= items.size(); k += 7) {
      ++n;  // a 52nd row fails on the table's bound
      const auto item = [&](size_t j) { return rt::parse_number_token(items[k + j]); };
      FieldTableT& t = s.FieldTable;
      t(n, 1) = item(0);
      t(n, 3) = item(1);
      t(n, 6) = item(3) * 1000000;  // micro units
      t(n, 4) = item(4) * 1000000;
      raise_max_ab(s, t(n, 1).num());
    }
    if ((items.size() - 2) % 7 != 0) rt::raise(rt::kInputPastEnd);  // a row cut short
    s.FieldCount = static_cast<int16_t>(n);
    s.DataOrigin = "PASI";
    s.CommentText = "Date : " + date;
  } catch (const rt::RuntimeError&) {
    session.tell(std::string(session.text("Le fichier ", "Fichero ", "File ")) + s.FileName +
                 session.text(" est inutilisable....", " corrompido....", " is corrupted...."));
    return false;
  }
  max_ab_as_decades(s);
  return true;
}

namespace {

// The TX3 layout written line by line, as the Astier and OYO converters do themselves.
struct Tx3Text {
  rt::TokenWriter w;
  void count(int n) {
    w.number(static_cast<float>(n + 0.5), rt::Kind::Single);
    w.end_line();
  }
  void row(std::initializer_list<double> values) {
    for (double v : values) w.number(static_cast<double>(rt::CLng(v)), rt::Kind::Int32);
    w.end_line();
  }
  void empty_layers() {
    for (int r = 0; r < 20; ++r) row({0, 0, 0});
  }
  void strings(std::initializer_list<std::string> texts) {
    for (const std::string& t : texts) {
      w.text(t);
      w.end_line();
    }
  }
};

}  // namespace

std::string astier_tx3(SoundingState& s, const std::string& text) {
  // Errors are passed over statement by statement: a short file leaves zeros.
  rt::TokenReader in(text);
  std::string profile, number, elevation;
  int n = 0;
  rt::skip([&] { profile = in.text(); });
  rt::skip([&] { number = in.text(); });
  rt::skip([&] { elevation = in.text(); });
  for (int k = 0; k < 3; ++k) rt::skip([&] { in.number(); });
  rt::skip([&] { n = in.integer16(); });
  if (n > 99) return {};  // the local table holds 99 rows
  s.FieldCount = static_cast<int16_t>(n);
  Tx3Text out;
  out.count(n);
  for (int i = 0; i < n; ++i) {
    double ab = 0, rho = 0;
    rt::skip([&] { ab = in.number(); });
    rt::skip([&] { rho = in.number(); });
    out.row({ab * 10, rho * 100, 0, 0, 0, 0});
  }
  out.empty_layers();
  out.strings(
      {"Profil " + profile + " SEV No " + number, "", "2", "0", "0", elevation, s.LocationAzimuth});
  return out.w.content();
}

std::string oyo_tx3(Session& session, const std::string& text) {
  SoundingState& s = session.s;
  const std::vector<std::string> lines = lines_of(text, 14 + 99);  // the header, 99 rows at most
  const auto line_items = [&](size_t k) {
    return k < lines.size() ? split_items(lines[k]) : std::vector<std::string>{};
  };
  const auto second = [&](size_t k) {
    const auto items = line_items(k);
    return items.size() > 1 ? items[1] : std::string();
  };
  if (second(4) != "Resistivity") {
    session.tell("Only resistivity mode");
    return {};
  }
  const std::string spread = second(9);
  if (spread == "SCHLUMBERGER") {
    s.Spread = SpreadType::Schlumberger;
    s.SpreadTag = "0";
  } else if (spread == "DIPOLE_DIPOLE") {
    s.Spread = SpreadType::Dipole;
    s.SpreadTag = "1";
  } else {
    s.Spread = SpreadType::Wenner;
    s.SpreadTag = "2";
  }
  int n = 0;
  rt::skip([&] { n = rt::CInt(rt::Val(second(10))); });
  if (n > 99) return {};
  s.FieldCount = static_cast<int16_t>(n);
  Tx3Text out;
  out.count(n);
  for (int i = 0; i < n; ++i) {
    const auto items = line_items(14 + static_cast<size_t>(i));
    const auto item = [&](size_t k) { return k <= items.size() ? rt::Val(items[k - 1]) : 0.0; };
    out.row({item(2) * 10, item(7) * 100, item(3) * 100, item(5) * 10, 0, item(4)});
  }
  out.empty_layers();
  out.strings({"", "", "", "", "", "", ""});
  return out.w.content();
}

std::optional<std::string> convert_instrument(Session& session, Instrument kind,
                                              const std::string& sev_file, const std::string& out) {
  SoundingState& s = session.s;
  struct Dialog {
    const char *filter, *title, *preset;
  };
  static const Dialog kDialogs[] = {{"Fichier Tellux *.VES", "TELLUX File selection", "*.VES"},
                                    {"Fichier Tellux *.amp", "TELLUX File selection", "*.amp"},
                                    {"Fichier Tellux *.GTR    ", "TELLUX File selection", "*.GTR"},
                                    {"Fichier Tellux *.TXT    ", "TELLUX File selection", "*.TXT"},
                                    {"Fichier Astier *.dat", "ASTIER file selection", "*.dat"},
                                    {"File OYO *.csv", "OYO file selection", "*.csv"}};
  const Dialog& d = kDialogs[static_cast<int>(kind)];

  if (kind == Instrument::Pasi) {
    // The spreads first: the default spread file, or the one the user points to.
    const std::string spreads = usable_spread_file(sev_file, s.SpreadTag);
    if (read_default_spread(s, spreads) == 0) {
      session.tell(std::string(session.text("Le fichier ", "Fichero ", "File ")) + spreads +
                   session.text(" est introuvable ou faux.  Cherchez-le et vérifiez...",
                                " falso o no existe.  Find it and verify...",
                                " is wrong or not found.  Find it and verify..."));
      s.WorkMode = mode::kField;
      const auto chosen =
          session.dialogs.open_file({"AB/MN File (*.TXT)|*.TXT", "AB/MN file location", "*.TXT"});
      if (!chosen) return std::nullopt;
      session.forms.set_main_caption(std::string(kProgramTitle) + " [" + *chosen + "]");
      read_default_spread(s, *chosen);
    }
  }
  if (kind == Instrument::Astier || kind == Instrument::Oyo) {
    s.FieldTable.erase();
    s.LayerModel.erase();
    s.CommentText.clear();
    s.GraphTitle.clear();
  }
  s.WorkMode = mode::kNormal;
  const auto chosen = session.dialogs.open_file({d.filter, d.title, d.preset});
  if (!chosen || chosen->empty()) {
    if (chosen) session.tell(select_first(session));
    return std::nullopt;
  }
  s.FilePath = *chosen;
  s.FileName = bare_name(s.FilePath);
  std::string text;
  try {
    text = rt::read_whole_file(s.FilePath);
  } catch (const rt::RuntimeError&) {
    session.tell(select_first(session));
    return std::nullopt;
  }
  std::string path =
      out.empty()
          ? s.FilePath.substr(0, s.FilePath.size() - std::min<size_t>(3, s.FilePath.size())) + "TX3"
          : out;
  if (kind == Instrument::Astier || kind == Instrument::Oyo) {
    const std::string tx3 =
        kind == Instrument::Astier ? astier_tx3(s, text) : oyo_tx3(session, text);
    if (tx3.empty()) return std::nullopt;
    try {
      rt::write_file_atomically(path, tx3);
    } catch (const rt::RuntimeError& e) {
      session.file_failure = path + ": " + e.reason();
      session.tell(session.text("Erreur lors de l'enregistrement du fichier...",
                                "Error al salvar fichero...", "Recording File Error..."));
      return std::nullopt;
    }
    // Opened again as any sounding, which rebuilds the sheet.
    s.FilePath = path;
    s.FileName = bare_name(path);
    open_sounding(session);
    return path;
  }
  bool read = false;
  switch (kind) {
    case Instrument::Abem:
      read = read_abem(session, text);
      break;
    case Instrument::Sas1000:
      read = read_sas1000(session, text);
      break;
    case Instrument::Geotrade:
      read = read_geotrade(session, text);
      break;
    default:
      read = read_pasi(session, text);
      break;
  }
  if (!read) return std::nullopt;
  s.FileName = bare_name(path);
  if (!write_sounding_file(session, path)) return std::nullopt;
  session.forms.fill_sheet();
  session.forms.redraw_bilog_frame();
  return path;
}

}  // namespace tellux
