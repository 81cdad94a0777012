// The frame the instruments' converters share: the dialogs, the reader, the TX3 file beside the
// input, the display refreshed.
#include "convert/instruments.h"

#include "convert/instrument_reading.h"
#include "core/data_dir.h"
#include "core/default_spread.h"
#include "core/file_names.h"
#include "core/open_flow.h"
#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"
#include "core/sounding_file.h"

namespace tellux {

namespace {

// PASI's spreads: the default spread file, else the one the user points to. False when the user
// cancels that dialog.
bool read_pasi_spreads(Session& session, const std::string& sev_file) {
  SoundingState& s = session.s;
  const std::string spreads = pasi_spread_file(sev_file, s.SpreadTag);
  if (read_default_spread(s, spreads) > 0) return true;
  session.tell(std::string(session.text("Le fichier ", "Fichero ", "File ")) + spreads +
               session.text(" est introuvable ou faux.  Cherchez-le et vérifiez...",
                            " falso o no existe.  Find it and verify...",
                            " is wrong or not found.  Find it and verify..."));
  s.WorkMode = mode::kField;
  const auto chosen =
      session.dialogs.open_file({"AB/MN File (*.TXT)|*.TXT", "AB/MN file location", "*.TXT"});
  if (!chosen) return false;
  session.forms.set_main_caption(std::string(kProgramTitle) + " [" + *chosen + "]");
  read_default_spread(s, *chosen);
  return true;
}

bool read_instrument(Session& session, Instrument kind, const std::string& text,
                     const std::string& file) {
  switch (kind) {
    case Instrument::Abem:
      return read_abem(session, text, file);
    case Instrument::Sas1000:
      return read_sas1000(session, text);
    case Instrument::Geotrade:
      return read_geotrade(session, text, file);
    default:
      return read_pasi(session, text, file);
  }
}

}  // namespace

std::string pasi_spread_file(const std::string& setting, std::string_view spread_tag) {
  const bool windows_path =
      setting.find('\\') != std::string::npos || (setting.size() > 1 && setting[1] == ':');
  return setting.empty() || windows_path ? usable_spread_file(setting, spread_tag) : setting;
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
  const bool writes_itself = kind == Instrument::Astier || kind == Instrument::Oyo;

  if (kind == Instrument::Pasi && !read_pasi_spreads(session, sev_file)) return std::nullopt;
  if (writes_itself) {
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
  const std::string input = *chosen;
  s.FilePath = input;
  s.FileName = bare_name(input);
  std::string text;
  try {
    text = rt::read_whole_file(input);
  } catch (const rt::RuntimeError&) {
    session.tell(select_first(session));
    return std::nullopt;
  }
  // From here the record names the TX3 file: no later Save writes over the instrument's file.
  std::string path = out.empty() ? with_extension(input, ".TX3") : out;
  const std::string name = bare_name(input);
  s.FilePath = path;
  s.FileName = bare_name(path);
  if (writes_itself) {
    const std::string tx3 =
        kind == Instrument::Astier ? astier_tx3(session, text, name) : oyo_tx3(session, text, name);
    if (tx3.empty()) return std::nullopt;
    try {
      rt::write_file_atomically(path, tx3);
    } catch (const rt::RuntimeError& e) {
      session.file_failure = path + ": " + e.reason();
      session.tell(session.text("Erreur lors de l'enregistrement du fichier...",
                                "Error al salvar fichero...", "Recording File Error..."));
      return std::nullopt;
    }
    open_sounding(session);  // opened again as any sounding, which rebuilds the sheet
    return path;
  }
  // The model written is the instrument file's own (ABEM's rows), never the last sounding's.
  s.LayerModel.erase();
  if (!read_instrument(session, kind, text, name)) return std::nullopt;
  if (!write_sounding_file(session, path)) return std::nullopt;
  s.FilePath = path;       // the save dialog may have named another file
  open_sounding(session);  // the display as after any open: name, model window, recent files
  return path;
}

}  // namespace tellux
