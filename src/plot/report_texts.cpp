// The fixed texts of the report and the numbers set in its columns.
#include <algorithm>

#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "model/layer_depths.h"
#include "plot/report_page.h"
#include "plot/report_parts.h"

namespace tellux {

namespace {

// French first, then English, then Spanish, then German; nothing set reads as English.
const char* by_language(const LanguageFlags& l, const char* fr, const char* en, const char* es,
                        const char* de) {
  if (l.French) return fr;
  if (l.English) return en;
  if (l.Spanish) return es;
  if (l.German) return de;
  return en;
}

}  // namespace

std::string PageText(const SoundingState& s, int number) {
  const LanguageFlags& l = s.Language;
  switch (number) {
    case 1:
      return by_language(l, "Sondage électrique Schlumberger - ",
                         "Electrical sounding Schlumberger - ", "Sondeo eléctrico Schlumberger - ",
                         "Elektrische Tiefensondierung Schlumberger - ") +
             s.FileName;
    case 2:
      return by_language(l, "Sondage électrique dipôle - ", "Dipole electrical sounding - ",
                         "Sondeo eléctrico dipolar - ", "Elektrische Tiefensondierung Dipole  - ") +
             s.FileName;
    case 3:
      return by_language(l, "Situation du SE ", "Location   ", "Ubicación del SEV  ",
                         "Situation der ETS  ");
    case 4:
      return by_language(l, "Modèle ", "Model ", "Modelo ", "Modell ");
    case 5:
      return by_language(l, "Débrayages lissés ", "Shift on new MN ", "Empalmes compensados",
                         "Anpassung bei neuen MN");
    case 6:
      return by_language(l, "Résistivité     Epaisseur    Profondeur    Altitude",
                         "Resistivity     Thickness      Depth        Altitude",
                         "Resistividad    Espesor    Profundidad     Altitud",
                         "Resistivität    Mächtigkeit    Tiefe        Höhe");
    case 7:
      return by_language(
          l, "Résistivité     Epaisseur    Profondeur", "Resistivity     Thickness      Depth",
          "Resistividad     Espesor     Profundidad", "Resistivität    Mächtigkeit    Tiefe");
    case 8:
      return by_language(l, "Mesures de terrain et valeurs calculées",
                         "Field data and calculated values", "Datos de campo y valores calculados",
                         "Felddaten und ausgerechnete Werte");
    case 9:
      return by_language(l, "Sondage électrique Wenner - ", "Electrical sounding Wenner - ",
                         "Sondeo eléctrico Wenner - ", "Elektrische Tiefensondierung Wenner  - ") +
             s.FileName;
    default:
      return number >= 10 && number <= 19 ? " " : "";
  }
}

std::string report_title(const SoundingState& s) {
  return PageText(s, s.Spread == SpreadType::Schlumberger ? 1
                     : s.Spread == SpreadType::Wenner     ? 9
                                                          : 2);
}

std::string PadNumberLeft(double value, rt::Kind kind) {
  if (value == 0) return "";
  const std::string text = rt::CStr(value, kind);
  const int blanks =
      12 - 2 * static_cast<int>(text.size()) + (text.find('.') != std::string::npos ? 1 : 0);
  return std::string(static_cast<size_t>(std::max(0, blanks)), ' ') + text;
}

namespace report {

const char* resistivity_word(const LanguageFlags& l) {
  return by_language(l, "Résistivité", "Resistivity", "Resistividad", "Resistivität");
}

std::string location_text(const SoundingState& s) {
  if (s.LocationX.empty() || s.LocationY.empty()) return {};
  std::string line = PageText(s, 3) + "X = " + s.LocationX + "    Y = " + s.LocationY;
  if (!s.LocationAzimuth.empty())
    line += "    Z = " + s.LocationZ + "    Azim = " + s.LocationAzimuth;
  else if (!s.LocationZ.empty())
    line += "    Z = " + s.LocationZ;
  return line;
}

std::string altitude_text(const SoundingState& s, int r) {
  std::string text;
  rt::skip([&] { text = FormatThickness(s, LayerAltitude(s, r)); });
  return text;
}

}  // namespace report

}  // namespace tellux
