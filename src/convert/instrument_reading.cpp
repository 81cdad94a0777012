#include "convert/instrument_reading.h"

#include <sstream>

#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"

namespace tellux {

bool next_line(std::istream& in, std::string& line) {
  if (!std::getline(in, line)) return false;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

std::string mid(const std::string& line, size_t first, size_t last) {
  return line.size() < first ? std::string() : line.substr(first - 1, last - first + 1);
}

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

void max_ab_as_decades(SoundingState& s) {
  rt::skip([&] { s.MaxAbHalf = rt::CInt(rt::Log(s.MaxAbHalf) * 0.4343); });
}

const char* select_first(const Session& session) {
  return session.text("Sélectionnez d'abord un fichier ", "Primero, seleccione un fichero ",
                      "First select a File ");
}

}  // namespace tellux
