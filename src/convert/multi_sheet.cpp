#include "convert/multi_sheet.h"

#include <sstream>

#include "core/file_names.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"
#include "core/runtime/token_file.h"
#include "core/sounding_file.h"
#include "model/automatic_model.h"
#include "model/forward.h"
#include "model/layer_depths.h"

namespace tellux {

namespace {

// No survey comes near this many soundings. A sheet of more is converted in parts, so that one
// command stays within a second of work and a hostile file cannot make files by the ten thousand.
constexpr int kMostSoundings = 1000;

bool field_character(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code >= 35 && code <= 122;
}

std::optional<std::string> choose(Session& session, const char* title) {
  const auto chosen = session.dialogs.open_file({"Text file (*.TXT)| *.TXT    ", title, "*.TXT"});
  if (!chosen || chosen->empty()) {
    session.tell(session.text("Sélectionnez d'abord un fichier ", "Primero, seleccione un fichero ",
                              "First select a File "));
    return std::nullopt;
  }
  return chosen;
}

}  // namespace

std::vector<std::string> multiple_soundings_sheet(Session& session, const std::string& out_dir) {
  SoundingState& s = session.s;
  std::vector<std::string> written;
  s.WorkMode = mode::kField;
  const auto spreads_path = choose(session, "Spread data file selection");
  if (!spreads_path) return written;
  try {
    s.FieldTable.erase();
    s.MaxAbHalf = 1;
    int n = 0;
    rt::TokenReader spreads(rt::read_whole_file(*spreads_path));
    while (!spreads.at_end()) {
      const double ab = spreads.number();
      s.FieldTable(++n, 1) = ab;  // a 52nd spread fails on the table's bound
      s.MaxAbHalf = rt::CInt(ab);
    }
    s.WorkMode = mode::kNormal;
    const auto values_path = choose(session, "Resistivity data file selection");
    if (!values_path) return written;
    // The files land beside the resistivities, the file the dialog left.
    const std::string folder = out_dir.empty() ? folder_of(*values_path) : out_dir + "/";
    std::istringstream lines(rt::read_whole_file(*values_path));
    std::string line;
    int C = 0, seen = 0;
    const TellEachOnce once(session.dialogs);
    while (std::getline(lines, line)) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (line.empty()) continue;  // a blank line is no sounding
      if (++seen > kMostSoundings) {
        session.tell("Only the first " + std::to_string(kMostSoundings) +
                         " soundings of the sheet were read: put the others in a file of their own",
                     Icon::Information);
        break;
      }
      ++C;
      // Each character that is not a field character ends a field: 0 the name, 1 X, 2 Y, 3 Z,
      // from 4 the resistivity of row index - 3. The token left at the line's end goes to row
      // index - 2 only when above 0, so a line ended by a separator or a 0 keeps what the
      // sounding before left there.
      int index = -1;
      std::string token, name;
      for (char c : line) {
        if (field_character(c)) {
          token += c;
          continue;
        }
        ++index;
        // Texts are decoded as those of any file: UTF-8, else Windows-1252.
        if (index == 0) name = rt::to_utf8(token);
        if (index == 1) s.LocationX = rt::to_utf8(token);
        if (index == 2) s.LocationY = rt::to_utf8(token);
        if (index == 3) s.LocationZ = rt::to_utf8(token);
        if (index >= 4) s.FieldTable(index - 3, 2) = rt::Val(token);
        token.clear();
      }
      if (rt::Val(token) > 0) s.FieldTable(index - 2, 2) = rt::Val(token);
      if (index - 2 <= n) {
        s.FieldCount = static_cast<int16_t>(std::max(0, index - 2));
        s.WorkMode.clear();
        AutomaticModel(session);
        s.WorkMode = mode::kFile;
        ForwardCurve(session);
        rt::skip([&] { ComputeDepths(session); });
        session.forms.refresh_model_grid();
        std::string path = folder + name + ".TX3";
        s.FilePath = path;
        s.FileName = name + ".TX3";
        if (write_sounding_file(session, path)) written.push_back(path);
        s.WorkMode.clear();
      } else {
        session.tell("Spread data missing for sounding " + name, Icon::Information);
        --C;
      }
    }
    session.tell(rt::Str(C) + " soundings have been saved as *.TX3 files", Icon::Information);
  } catch (const rt::RuntimeError&) {
    session.tell("Error during reading");
  }
  s.WorkMode.clear();
  return written;
}

}  // namespace tellux
