// The instruments' files of fixed columns: SAS1000 (*.amp), whose header lines hold their values
// at fixed columns and whose rows are items, and Geotrade (*.GTR), one reading a line.
#include <sstream>
#include <vector>

#include "convert/conversion_stop.h"
#include "convert/instrument_reading.h"
#include "convert/instruments.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "core/runtime/token_file.h"
#include "model/geometric_factor.h"

namespace tellux {

namespace {

// AB/2 and MN/2 of a SAS1000 row by the spread code; other codes leave them as they were.
void sas1000_spacings(FieldTableT& t, int i, int code, bool xyz, const double (&item)[10],
                      double spacing) {
  if (xyz && code == 10) {
    t(i, 1) = (item[3] - item[2]) / 2;  // (B - A) / 2
    t(i, 3) = (item[5] - item[4]) / 2;  // (N - M) / 2
  } else if (xyz && code >= 1 && code <= 3) {
    t(i, 1) = item[5] - item[4];  // N - M, not halved
    t(i, 3) = 0.0;
  } else if (code == 10) {
    t(i, 1) = (2 * item[3] + item[4]) * spacing / 2;  // index a and n
    t(i, 3) = spacing * item[4] / 2;
  } else if (code >= 1 && code <= 3) {
    t(i, 1) = spacing * item[3];
    t(i, 3) = 0.0;
  }
}

// A reading already in milli units keeps its number; volts and amperes are made milli.
double milli(const std::string& text) {
  const double v = rt::Val(text);
  return text.find('m') != std::string::npos ? v : v * 1000;
}

}  // namespace

bool read_sas1000(Session& session, const std::string& text) {
  SoundingState& s = session.s;
  rt::TokenReader in(text);
  s.FieldTable.erase();
  s.MaxAbHalf = 1;
  try {
    std::vector<std::string> head;
    for (int k = 1; k <= 28; ++k) head.push_back(in.line());
    // The location strings keep the blanks of their columns, as the type keeps its five.
    const std::string x = mid(head[3], 32, 44), y = mid(head[3], 45, 57), z = mid(head[3], 58, 69);
    const int n = rt::CInt(rt::Val(columns(head[4], 44, 56)));  // error 6 beyond 16 bits
    const int code = rt::CInt(rt::Val(columns(head[8], 32, 33)));
    const std::string type = mid(head[9], 32, 36);
    const double spacing = rt::Val(columns(head[10], 32, 41));
    if (type != "Index" && type != "XYZ:1") {
      session.tell("Coordinate types other than Index and XYZ:1 not supported");
      return false;
    }
    const bool xyz = type == "XYZ:1";
    FieldTableT& t = s.FieldTable;
    for (int i = 1; i <= n; ++i) {
      double item[10] = {};
      for (int k = 0; k < (xyz ? 10 : 9); ++k) item[k] = in.number();
      // I, DeltaV and the apparent resistivity follow the four electrodes or the two indices.
      const int at = xyz ? 6 : 5;
      t(i, 6) = item[at];  // a 52nd row fails on the table's bound
      t(i, 4) = item[at + 1];
      t(i, 2) = item[at + 2];
      sas1000_spacings(t, i, code, xyz, item, spacing);
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

bool read_geotrade(Session& session, const std::string& text, const std::string& file) {
  SoundingState& s = session.s;
  clear_strings(s);
  s.FieldTable.erase();
  s.MaxAbHalf = 1;
  int i = 0;
  try {
    // 52 readings at most: the 52nd fails on the table's bound.
    std::istringstream lines(text);
    for (std::string line; next_line(lines, line);) {
      if (line.empty()) continue;
      ++i;
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
  } catch (const rt::RuntimeError& e) {
    tell_stop(session, file, i,
              e.number() == rt::kSubscript ? "more than 51 readings" : cause_of(e));
    return false;
  }
  s.FieldCount = static_cast<int16_t>(i);
  max_ab_as_decades(s);
  return true;
}

}  // namespace tellux
