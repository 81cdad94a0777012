#include "profile/extraction.h"

#include <charconv>
#include <optional>

#include "core/file_names.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"
#include "core/runtime/token_file.h"
#include "profile/profile_sheet.h"

namespace tellux {

namespace {

// The shortest text of a number that reads back as the same value, in plain notation.
template <typename T>
std::string shortest(T value) {
  char buffer[400];
  const auto result =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
  return std::string(buffer, result.ptr);
}

// Reads one file in the TX3 order into the record: the field count, the model rows (each stored
// value in hundredths) and the location. A read that fails ends the reading, since every later
// one would fail the same way; what was not read keeps the values of the file before. Returns the
// stored depth of the 20th model row (0 when the model has fewer layers).
double read_for_slice(SoundingState& s, const std::string& path) {
  std::optional<rt::TokenReader> in;
  double last_depth = 0;
  const auto read = [&](auto&& statement) { return in && rt::skip(statement); };
  if (!rt::skip([&] { in.emplace(rt::TokenReader::open(path)); })) return last_depth;
  double count = 0;
  if (!read([&] { count = in->single(); })) return last_depth;
  rt::skip([&] { s.FieldCount = rt::CInt(rt::Fix(count)); });
  for (double row = 1; row <= count; ++row)
    for (int c = 1; c <= 6; ++c)
      if (!read([&] { in->single(); })) return last_depth;
  for (int row = 1; row <= 20; ++row)
    for (int c = 1; c <= 3; ++c) {
      float stored = 0;
      if (!read([&] { stored = in->single(); })) return last_depth;
      s.LayerModel(row, c) = static_cast<float>(stored / 100.f);
      if (row == 20 && c == 3) last_depth = stored;
    }
  for (int k = 0; k < 3; ++k)
    if (!read([&] { in->text(); })) return last_depth;
  for (std::string* text : {&s.LocationX, &s.LocationY, &s.LocationZ, &s.LocationAzimuth})
    if (!read([&] { *text = in->text(); })) break;
  if (s.LocationY.empty()) s.LocationY = "0";
  if (s.LocationZ.empty()) s.LocationZ = "0";
  return last_depth;
}

// The value the slice takes from the model in the record, if a layer gives one.
std::optional<float> slice_value(const SoundingState& s, Slice slice, double A, double L,
                                 double H) {
  const double Z = rt::Val(s.LocationZ);
  const auto D = [&](int k) { return s.LayerModel(k, 3).num(); };
  for (int k = 1; k <= 19; ++k) {
    const bool bracket = Z - D(k) >= A && Z - D(k + 1) < A;
    switch (slice) {
      case Slice::ResistivityAtAltitude:
        // The second branch lets the altitude fall in the half space, below the last boundary.
        if (bracket || (D(k + 1) == 0 && Z - D(k) >= A && A > H))
          return static_cast<float>(s.LayerModel(k, 1).num());
        break;
      case Slice::ThicknessAtAltitude:
        if (bracket) return static_cast<float>(s.LayerModel(k, 2).num());
        break;
      case Slice::ResistivityOfLayer:
        if (k == L) return static_cast<float>(s.LayerModel(k, 1).num());
        break;
      case Slice::ThicknessOfLayer:
        if (k == L) return static_cast<float>(s.LayerModel(k, 2).num());
        break;
      case Slice::DepthOfLayer:
        if (k == L) return static_cast<float>(D(k));
        break;
    }
  }
  return std::nullopt;
}

bool by_altitude(Slice slice) {
  return slice == Slice::ResistivityAtAltitude || slice == Slice::ThicknessAtAltitude;
}

}  // namespace

void ExtractionForm::set_captions(const Session& session) {
  const auto t = [&](const char* fr, const char* es, const char* en) {
    return std::string(session.text(fr, es, en));
  };
  Option1.Caption =
      t("Résistivité pour une altitude", "Resistividad por altitud", "Resistivity by altitude");
  Option2.Caption =
      t("Résistivité pour une couche", "Resistividad por capa", "Resistivity by layer");
  Option3.Caption =
      t("Epaisseur pour une altitude", "Espesor por altitud", "Thickness by altitude");
  Option4.Caption = t("Epaisseur pour une couche", "Espessor por capa", "Thickness by layer");
  Option5.Caption = t("Profondeur pour une couche", "Profundidat por capa", "Depth by layer");
  Label7.Caption = t("N° de la couche", "Numero de la capa", "# of layer");
  Label6.Caption = "Altitude";
}

std::optional<Slice> slice_of(Session& session, const ExtractionForm& form) {
  const auto slice = static_cast<Slice>(form.option);
  const bool chosen = form.option >= 1 && form.option <= 5;
  if (!chosen || (by_altitude(slice) ? form.Text1 : form.Text2).empty()) {
    session.tell("Extraction aborted", Icon::Information);
    return std::nullopt;
  }
  return slice;
}

std::string extraction_file_name(Slice slice, const std::string& A, const std::string& L) {
  switch (slice) {
    case Slice::ResistivityAtAltitude:
      return "Res_by_alt_" + A + ".DAT";
    case Slice::ResistivityOfLayer:
      return "Res_by_layer_" + L + ".DAT";
    case Slice::ThicknessAtAltitude:
      return "Thick_by_alt_" + A + ".DAT";
    case Slice::ThicknessOfLayer:
      return "Thick_by_layer_" + L + ".DAT";
    case Slice::DepthOfLayer:
      return "Depht_by_layer_" + L + ".DAT";
  }
  return {};
}

std::string surfer_file_name(const std::string& typed) {
  const size_t point = typed.find('.');
  return point == std::string::npos ? typed + ".DAT" : typed.substr(0, point + 1) + "DAT";
}

int write_slice(SoundingState& s, const std::vector<std::string>& files, Slice slice,
                const std::string& A, const std::string& L, const std::string& out) {
  const double a = rt::Val(A), l = rt::Val(L);
  std::string text;
  int lines = 0;
  for (const std::string& file : files) {
    // H is three times the stored depth of the 20th row, without the division: 0 for a model of
    // fewer than 20 layers.
    const double H = 3 * read_for_slice(s, file);
    if (const auto value = slice_value(s, slice, a, l, H)) {
      text += shortest(rt::Val(s.LocationX)) + "," + shortest(rt::Val(s.LocationY)) + "," +
              shortest(*value) + "\r\n";
      ++lines;
    }
  }
  rt::write_file_atomically(out, text);
  return lines;
}

std::string HORSLICE(Session& session, const std::function<void(ExtractionForm&)>& show_form) {
  SoundingState& s = session.s;
  const auto files = session.dialogs.open_files(sev_selection_request());
  if (!files || files->size() < 2) {
    session.tell("Impossible with only 1 file", Icon::Critical);
    return {};
  }

  ExtractionForm form;
  form.set_captions(session);
  show_form(form);
  const auto chosen_slice = slice_of(session, form);
  if (!chosen_slice) return {};
  const Slice slice = *chosen_slice;

  // The current folder is the one the file dialog left: that of the soundings chosen.
  std::string out = folder_of(files->front()) + extraction_file_name(slice, form.Text1, form.Text2);
  const std::string question =
      std::string(session.text("Sauvegarde du fichier ", "Salvar fichero ", "Recording File ")) +
      out;
  if (session.dialogs.message(question, Buttons::YesNo, Icon::Question, kProgramTitle) ==
      Answer::No) {
    FileDialogRequest save;
    save.filter = "Surfer data file (*.DAT)|*.DAT";
    save.title = "Record Surfer data file";
    save.proposed = out;
    save.overwrite_prompt = true;
    const auto chosen = session.dialogs.save_file(save);
    if (!chosen) return {};  // the dialog's own error exit: nothing is written
    s.FilePath = *chosen;
    s.FileName = bare_name(s.FilePath);
    s.FileDir = directory_part(s.FilePath, s.FileName);
    out = s.FileDir + surfer_file_name(s.FileName);
  }
  // Run-time errors are passed over, that of the write too; the batch command names it.
  try {
    write_slice(s, *files, slice, form.Text1, form.Text2, out);
  } catch (const rt::RuntimeError& e) {
    session.file_failure = out + ": " + e.reason();
    return {};
  }
  return out;
}

}  // namespace tellux
