// The instruments' files read item by item: ABEM (*.VES) and PASI (*.TXT).
#include <cctype>

#include "convert/conversion_stop.h"
#include "convert/instrument_reading.h"
#include "convert/instruments.h"
#include "core/runtime/cell.h"
#include "core/runtime/token_file.h"

namespace tellux {

bool read_abem(Session& session, const std::string& text, const std::string& file) {
  SoundingState& s = session.s;
  rt::TokenReader in(text);
  s.FieldTable.erase();
  s.MaxAbHalf = 1;
  int row = 0, layer = 0;
  try {
    s.CommentText = in.text();
    in.integer16();
    const int n = in.integer16();
    for (row = 1; row <= n; ++row) {
      s.FieldTable(row, 1) = in.single();  // a 52nd row fails on the table's bound
      s.FieldTable(row, 2) = in.single();
      in.single();
      for (int c = 3; c <= 6; ++c) s.FieldTable(row, c) = 0.0;
      raise_max_ab(s, s.FieldTable(row, 1).num());
    }
    s.FieldCount = static_cast<int16_t>(n);
    const int m = in.integer16();
    for (layer = 1; layer <= m; ++layer) {
      float item[7];
      for (float& v : item) v = in.single();
      s.LayerModel(layer, 1) = item[0];  // a 22nd row fails on the model's bound
      s.LayerModel(layer, 2) = item[2];
      s.LayerModel(layer, 3) = item[4];
    }
  } catch (const rt::RuntimeError& e) {
    const bool bound = e.number() == rt::kSubscript;
    if (layer > 0)
      tell_stop(session, file, layer,
                bound ? "more than 21 model rows" : "model row: " + cause_of(e));
    else
      tell_stop(session, file, row, bound ? "more than 51 readings" : cause_of(e));
    return false;
  }
  for (std::string* t :
       {&s.DataOrigin, &s.GraphTitle, &s.LocationX, &s.LocationY, &s.LocationZ, &s.LocationAzimuth})
    t->clear();
  max_ab_as_decades(s);
  return true;
}

bool read_pasi(Session& session, const std::string& text, const std::string& file) {
  SoundingState& s = session.s;
  rt::TokenReader in(text);
  clear_strings(s);
  s.MaxAbHalf = 1;
  try {
    if (in.text() == "SCHLUMBERGER") {
      s.Spread = SpreadType::Schlumberger;
      s.SpreadTag = "0";
    }
    // The date's three parts joined by points.
    std::string date;
    for (char c : in.text()) date += std::isdigit(static_cast<unsigned char>(c)) ? c : '.';
    int n = 0;
    FieldTableT& t = s.FieldTable;
    while (!in.at_end()) {
      ++n;  // a 52nd row fails on the table's bound
      double item[7];
      for (double& v : item) v = in.number();  // a row cut short is a damaged file
      t(n, 1) = item[0];
      t(n, 3) = item[1];
      t(n, 6) = item[3] * 1000000;  // micro units
      t(n, 4) = item[4] * 1000000;
      raise_max_ab(s, t(n, 1).num());
    }
    s.FieldCount = static_cast<int16_t>(n);
    s.DataOrigin = "PASI";
    s.CommentText = "Date : " + date;
  } catch (const rt::RuntimeError&) {
    session.tell(std::string(session.text("Le fichier ", "Fichero ", "File ")) + file +
                 session.text(" est inutilisable....", " corrompido....", " is corrupted...."));
    return false;
  }
  max_ab_as_decades(s);
  return true;
}

}  // namespace tellux
