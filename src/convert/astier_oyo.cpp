// Astier (*.dat) and OYO (*.csv): each writes the TX3 layout itself from a local table of 99 rows,
// its reading statements skipped one by one when they fail. A value too large for the file stops
// the conversion with its message: nothing is written then.
#include <functional>

#include "convert/conversion_stop.h"
#include "convert/instruments.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/token_file.h"

namespace tellux {

namespace {

constexpr int kMostRows = 99;

// The TX3 layout written line by line, as these converters do themselves.
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

// The `n` rows of the local table, each made by `row`, then the empty layers; false after the
// message when the table cannot hold them or a value overflows the file's 32-bit integers.
bool write_rows(Session& session, const std::string& file, int n, Tx3Text& out,
                const std::function<void(Tx3Text&)>& row) {
  if (n > kMostRows) {
    tell_stop(session, file, kMostRows + 1, "more than 99 rows");
    return false;
  }
  session.s.FieldCount = static_cast<int16_t>(n);
  out.count(n);
  int i = 1;
  try {
    for (; i <= n; ++i) row(out);
  } catch (const rt::RuntimeError& e) {
    tell_stop(session, file, i, cause_of(e));
    return false;
  }
  out.empty_layers();
  return true;
}

}  // namespace

std::string astier_tx3(Session& session, const std::string& text, const std::string& file) {
  SoundingState& s = session.s;
  rt::TokenReader in(text);
  std::string profile, number, elevation;
  int n = 0;
  rt::skip([&] { profile = in.text(); });
  rt::skip([&] { number = in.text(); });
  rt::skip([&] { elevation = in.text(); });
  for (int k = 0; k < 3; ++k) rt::skip([&] { in.number(); });
  rt::skip([&] { n = in.integer16(); });
  Tx3Text out;
  const bool written = write_rows(session, file, n, out, [&](Tx3Text& o) {
    double ab = 0, rho = 0;  // a short file leaves zeros
    rt::skip([&] { ab = in.number(); });
    rt::skip([&] { rho = in.number(); });
    o.row({ab * 10, rho * 100, 0, 0, 0, 0});
  });
  if (!written) return {};
  out.strings(
      {"Profil " + profile + " SEV No " + number, "", "2", "0", "0", elevation, s.LocationAzimuth});
  return out.w.content();
}

std::string oyo_tx3(Session& session, const std::string& text, const std::string& file) {
  SoundingState& s = session.s;
  rt::TokenReader in(text);
  const auto drop_lines = [&](int count) {
    for (int k = 0; k < count; ++k) rt::skip([&] { in.line(); });
  };
  // The second of a line's two items.
  const auto second = [&] {
    std::string value;
    rt::skip([&] { in.text(); });
    rt::skip([&] { value = in.text(); });
    return value;
  };
  drop_lines(4);
  if (second() != "Resistivity") {
    session.tell("Only resistivity mode");
    return {};
  }
  drop_lines(4);
  const std::string spread = second();
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
  rt::skip([&] { in.text(); });
  rt::skip([&] { n = in.integer16(); });
  drop_lines(3);
  Tx3Text out;
  const bool written = write_rows(session, file, n, out, [&](Tx3Text& o) {
    double item[13] = {};
    for (double& v : item) rt::skip([&] { v = in.number(); });
    // AB/2, resistivity, MN/2, DeltaV, no K, I.
    o.row({item[1] * 10, item[6] * 100, item[2] * 100, item[4] * 10, 0, item[3]});
  });
  if (!written) return {};
  out.strings({"", "", "", "", "", "", ""});
  return out.w.content();
}

}  // namespace tellux
