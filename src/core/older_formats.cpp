#include "core/older_formats.h"

#include <algorithm>

#include "core/file_names.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/token_file.h"
#include "core/sounding_file.h"

namespace tellux {

namespace {

constexpr double kLog10Factor = 0.4343;  // the program's log10(e); keep it so

// Opens the file for the skipped-statement readers: a file that cannot be opened reads as an
// empty one, so that every read after it fails and is passed over.
rt::TokenReader open_quietly(const std::string& path) {
  rt::TokenReader in("");
  rt::skip([&] { in = rt::TokenReader::open(path); });
  return in;
}

}  // namespace

void read_sev_file(Session& session, std::string& path) {
  SoundingState& s = session.s;
  if (path.empty()) {
    session.tell(session.text("Sélectionnez d'abord un fichier ", "Primero, seleccione un fichero ",
                              "First select a File "));
    return;
  }
  rt::TokenReader in = open_quietly(path);
  s.MaxAbHalf = 1;

  rt::skip([&] { s.GraphTitle = in.text(); });
  rt::skip([&] { in.line(); });
  // Each row is one input statement: its items are stored as they are read, so a row that fails
  // halfway keeps its first items, and the next row goes on from where the file stopped.
  int16_t layer_rows = 0;
  rt::skip([&] {
    in.integer16();
    s.FieldCount = in.integer16();
    layer_rows = in.integer16();
  });
  for (int i = 1; i <= layer_rows; ++i) {
    rt::skip([&] {
      in.number();
      in.number();
      s.FieldTable(i, 2) = in.number();
      s.FieldTable(i, 1) = in.number();
      s.LayerModel(i, 1) = in.number();
      s.LayerModel(i, 2) = in.number();
      in.number();
    });
  }
  for (int i = layer_rows + 1; i <= field_rows(s); ++i) {
    rt::skip([&] {
      in.number();
      in.number();
      s.FieldTable(i, 2) = in.number();
      s.FieldTable(i, 1) = in.number();
    });
    rt::skip([&] {
      const double ab = s.FieldTable(i, 1).num();
      if (ab > s.MaxAbHalf) s.MaxAbHalf = rt::CInt(ab);
    });
    rt::skip([&] {
      for (int c = 3; c <= 6; ++c) s.FieldTable(i, c) = int16_t{0};
    });
  }

  s.DataOrigin.clear();
  s.CommentText.clear();
  s.LocationX.clear();
  s.LocationY.clear();
  s.LocationZ.clear();
  s.LocationAzimuth.clear();
  // Kept as the predecessor had it: the exponent of the largest spacing, which find_max_ab then
  // raises again row by row.
  rt::skip([&] { s.MaxAbHalf = rt::CInt(rt::Log(s.MaxAbHalf) * kLog10Factor); });
}

void read_txe_file(Session& session, std::string& path) {
  SoundingState& s = session.s;
  s.MaxAbHalf = 1;
  rt::TokenReader in = open_quietly(path);

  rt::skip([&] { s.FieldCount = in.integer16(); });
  for (int i = 1; i <= field_rows(s); ++i) {
    rt::skip([&] {
      s.FieldTable(i, 1) = in.single();
      s.FieldTable(i, 2) = in.single();
    });
    rt::skip([&] {
      s.FieldTable(i, 1) = static_cast<float>(static_cast<float>(s.FieldTable(i, 1).num()) / 100.f);
    });
    rt::skip([&] {
      for (int c = 3; c <= 6; ++c) s.FieldTable(i, c) = int16_t{0};
    });
    rt::skip([&] {
      const double ab = s.FieldTable(i, 1).num();
      if (ab > s.MaxAbHalf) s.MaxAbHalf = rt::CInt(ab);
    });
  }
  // Thickness and depth are stored in centimetres. Each value is scaled as it is read, so that a
  // file cut short leaves the rest of the model as it was.
  const auto metres = [&in] { return static_cast<float>(in.single() / 100.f); };
  for (int r = 1; r <= 10; ++r) {
    rt::skip([&] {
      s.LayerModel(r, 1) = in.single();
      s.LayerModel(r, 2) = metres();
      s.LayerModel(r, 3) = metres();
    });
  }
  for (std::string* text : {&s.CommentText, &s.DataOrigin, &s.GraphTitle, &s.LocationX,
                            &s.LocationY, &s.LocationZ, &s.LocationAzimuth})
    rt::skip([&] { *text = in.text(); });
}

void convert_txe_file(Session& session) {
  SoundingState& s = session.s;
  s.WorkMode = mode::kNormal;
  const auto chosen =
      session.dialogs.open_file({"Fichier Tellux *.TXE", "TELLUX File selection", "*.TXE"});
  if (!chosen) {
    session.forms.set_pointer(PointerTarget::Bilog, kPointerCross);
    return;
  }
  s.FilePath = *chosen;
  s.FileName = bare_name(s.FilePath);
  s.FileDir = directory_part(s.FilePath, s.FileName);
  s.FieldTable.erase();
  s.LayerModel.erase();
  s.CommentText.clear();
  s.GraphTitle.clear();
  read_txe_file(session, s.FilePath);
  if (!s.FilePath.empty()) s.FilePath = with_extension(s.FilePath, ".TX3");
  write_sounding_file(session, s.FilePath);
}

}  // namespace tellux
