#include "core/sounding_file.h"

#include "core/recent_files.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/number_text.h"
#include "core/runtime/token_file.h"

namespace tellux {

namespace {

// Divisors of one layout; `mn` is 100 whenever the first line has a fraction.
struct Divisors {
  float ab, rho, mn, dv, k, i;
  int layer_rows;
};

Divisors divisors_for(int level, bool has_fraction) {
  switch (level) {
    case 5:
      return {10, 100, 100, 10, 100, 1, 20};
    case 2:
      return {10, 1, 100, 1000, 100, 100, 10};
    default:
      return {10, 10, has_fraction ? 100.f : 10.f, 10, 100, 1, 20};
  }
}

// The first line: FieldCount and the layout mark behind the point.
void read_first_line(SoundingState& s, rt::TokenReader& in, Divisors& d) {
  const float x = in.single();
  s.FieldCount = rt::CInt(rt::Fix(x));
  const float f = static_cast<float>(x - s.FieldCount);
  // The third character of the fraction's text (" .5" gives "5") tells the TX3 layout.
  const std::string text = rt::StrSingle(f);
  const int digit = text.size() >= 3 ? static_cast<int>(rt::Val(text.substr(2, 1))) : 0;
  if (digit == 5) s.FormatLevel = 5;
  d = divisors_for(s.FormatLevel, f > 0);
  s.ResistScale = static_cast<int16_t>(d.rho);
}

void read_field_rows(SoundingState& s, rt::TokenReader& in, const Divisors& d) {
  const float div[7] = {0, d.ab, d.rho, d.mn, d.dv, d.k, d.i};
  for (int i = 1; i <= s.FieldCount; ++i) {
    for (int c = 1; c <= 6; ++c) {
      const float v = in.single();
      s.FieldTable(i, c) = rt::CSng(static_cast<double>(v / div[c]));
    }
    s.FieldTable(i, 7) = s.FieldTable(i, 2);
    const double ab = s.FieldTable(i, 1).num();
    if (ab > s.MaxAbHalf) s.MaxAbHalf = rt::CInt(ab);
    // A splice that was already adjusted shows as two equal points.
    if (i > 1 && ab == s.FieldTable(i - 1, 1).num() &&
        s.FieldTable(i, 2).num() == s.FieldTable(i - 1, 2).num())
      s.ShiftCurves = 1;
  }
}

// A half array shows as a resistivity above what the full Schlumberger factor gives from the
// readings of row 1; 1.1 is a tolerance for the rounding of the stored values.
void detect_half_array(SoundingState& s) {
  const double current = s.FieldTable(1, 6).num();
  if (!(current > 0)) return;
  const double a = s.FieldTable(1, 1).num();
  const double b = s.FieldTable(1, 3).num();
  double k = 0.0;
  if (b == 0) k = a * 3.1416;
  if (b > 0) {
    k = rt::Div((2 * b + (a - b)) * (a - b), b * 2) * 3.1416;
    const double measured = k * rt::Div(s.FieldTable(1, 4).num() * 1.1, current);
    s.HalfArray = s.FieldTable(1, 7).num() > measured ? 2 : 1;
  }
}

// The model before this read goes to the history, so the previous sounding's model stays at hand.
void keep_previous_model(SoundingState& s) {
  if (s.HistoryLast < 20) {
    ++s.HistoryLast;
    s.HistoryShown = s.HistoryLast;
  }
  auto& slot = s.LayerHistory[s.HistoryLast];
  for (int r = 1; r <= 20; ++r) {
    slot(r, 1) = s.LayerModel(r, 1);
    slot(r, 2) = s.LayerModel(r, 2);
  }
  s.HistoryCounts[s.HistoryLast] = s.LayerCount;
  s.OverlayHold = 1;
}

void read_layer_rows(SoundingState& s, rt::TokenReader& in, const Divisors& d,
                     LayerTableT& resistivity_target, LayerTableT& depth_target) {
  for (int r = 1; r <= d.layer_rows; ++r) {
    const float rho = in.single();
    const float thickness = in.single();
    const float depth = in.single();
    resistivity_target(r, 1) =
        rt::CSng(static_cast<double>(rho / static_cast<float>(s.ResistScale)));
    resistivity_target(r, 2) = rt::CSng(static_cast<double>(thickness / 100.f));
    depth_target(r, 3) = rt::CSng(static_cast<double>(depth / 100.f));
  }
}

// The seven strings; an older file that ends early leaves the rest as they stand.
void read_strings(rt::TokenReader& in, std::string* const* targets) {
  for (int k = 0; k < 7; ++k) {
    try {
      *targets[k] = in.text();
    } catch (const rt::RuntimeError&) {
      return;
    }
  }
}

// The superpose branch: the overlaid sounding's rows go to FieldTable, its model to OverlayModel
// (its depths to LayerModel), its strings are dropped. No command sets this mode.
void read_overlay(SoundingState& s, rt::TokenReader& in) {
  Divisors d{};
  read_first_line(s, in, d);
  const float div[7] = {0, d.ab, d.rho, d.mn, d.dv, d.k, d.i};
  for (int i = 1; i <= s.FieldCount; ++i)
    for (int c = 1; c <= 6; ++c) s.FieldTable(i, c) = rt::CSng(in.single() / div[c]);
  Divisors twenty = d;
  twenty.layer_rows = 20;
  read_layer_rows(s, in, twenty, s.OverlayModel, s.LayerModel);
  std::string dropped[7];
  std::string* targets[7] = {&dropped[0], &dropped[1], &dropped[2], &dropped[3],
                             &dropped[4], &dropped[5], &dropped[6]};
  read_strings(in, targets);
}

}  // namespace

void tell_read_error(Session& session) {
  session.tell(session.text("Erreur lors de la lecture du fichier...", "Error al leer fichero...",
                            "Reading File Error..."));
}

bool read_sounding_file(Session& session, std::string& path) {
  SoundingState& s = session.s;
  if (s.FileName.empty() && s.OverlayFileName.empty()) {
    session.tell(session.text("Sélectionnez d'abord un fichier ",
                              "Primero, seleccione un fichero... ",
                              "First, select a SEV File... "));
    return false;
  }
  s.CommentText.clear();
  s.GraphTitle.clear();
  s.LocationX.clear();
  s.LocationY.clear();
  s.LocationZ.clear();
  s.LocationAzimuth.clear();
  s.ShiftCurves = 0;
  s.HalfArray = 1;
  s.ModelComputed = 0;
  s.ModelSensitivity = 0.3;

  if (s.WorkMode == mode::kSuperpose) {
    try {
      auto in = rt::TokenReader::open(s.OverlayFileName);
      read_overlay(s, in);
    } catch (const rt::RuntimeError&) {
      s.ModelOutdated = true;
      tell_read_error(session);
      return false;
    }
    s.ModelOutdated = true;
    return true;
  }

  rt::TokenReader in("");
  try {
    in = rt::TokenReader::open(path);
    Divisors d{};
    read_first_line(s, in, d);
    read_field_rows(s, in, d);
    detect_half_array(s);
    keep_previous_model(s);
    s.LayerModel.erase();
    read_layer_rows(s, in, d, s.LayerModel, s.LayerModel);
  } catch (const rt::RuntimeError&) {
    s.ModelOutdated = true;
    tell_read_error(session);
    return false;
  }
  std::string* targets[7] = {&s.CommentText, &s.DataOrigin, &s.GraphTitle,     &s.LocationX,
                             &s.LocationY,   &s.LocationZ,  &s.LocationAzimuth};
  read_strings(in, targets);
  s.ModelOutdated = true;
  return true;
}

std::string tx3_text(const SoundingState& s) {
  rt::TokenWriter out;
  out.number(static_cast<float>(s.FieldCount + 0.5), rt::Kind::Single);
  out.end_line();
  static constexpr double kFieldFactors[7] = {0, 10, 100, 100, 10, 100, 1};
  for (int i = 1; i <= s.FieldCount; ++i) {
    for (int c = 1; c <= 6; ++c) {
      const int32_t scaled = rt::CLng(s.FieldTable(i, c).times(kFieldFactors[c]));
      // Written as a single: seven significant digits, the loss is part of the format.
      out.number(static_cast<float>(scaled), rt::Kind::Single);
    }
    out.end_line();
  }
  for (int r = 1; r <= 20; ++r) {
    for (int c = 1; c <= 3; ++c)
      out.number(rt::CLng(s.LayerModel(r, c).times(100)), rt::Kind::Int32);
    out.end_line();
  }
  for (const std::string* text : {&s.CommentText, &s.DataOrigin, &s.GraphTitle, &s.LocationX,
                                  &s.LocationY, &s.LocationZ, &s.LocationAzimuth}) {
    out.text(*text);
    out.end_line();
  }
  return out.content();
}

namespace {

// The name rules of the save dialog: everything behind the first point becomes "TX3".
void take_dialog_name(SoundingState& s, std::string& path, const std::string& chosen) {
  path = chosen;
  const size_t slash = path.find_last_of("/\\");
  s.FileName = slash == std::string::npos ? path : path.substr(slash + 1);
  s.FileDir = path.substr(0, path.size() - s.FileName.size());
  const size_t dot = s.FileName.find('.');
  if (dot == std::string::npos) {
    path += ".TX3";
    s.FileName += ".TX3";
  } else {
    s.FileName = s.FileName.substr(0, dot + 1) + "TX3";
    path = s.FileDir + s.FileName;
  }
  s.FileDir = path.substr(0, path.size() - s.FileName.size());
}

const char* write_error_text(const Session& session, int number) {
  switch (number) {
    case rt::kPathFileAccess:
      return session.text("Fichier démo protégé en écriture...",
                          "Fichero protegido contra escritura...", "Write protected File...");
    case rt::kPermissionDenied:
      return session.text("Disquette protégée en écriture...",
                          "Disquete protegido contra escritura...", "Write protected disk...");
    case rt::kPathNotFound:
    case rt::kDeviceUnavailable:
      return session.text("Disque ou répertoire inexistant...", "Fichero o directorio no existe...",
                          "No such disk or directory...");
    default:
      return session.text("Erreur lors de l'enregistrement du fichier...",
                          "Error al salvar fichero...", "Recording File Error...");
  }
}

}  // namespace

bool write_sounding_file(Session& session, std::string& path) {
  SoundingState& s = session.s;
  bool failed_before = false;
  for (;;) {
    bool use_dialog = true;
    if (s.FileName != "NEW" && !s.FileName.empty()) {
      // In batch work the answer is yes, but only once: after a failed write the dialog is the
      // way out, so that a batch cannot loop on a target it cannot write.
      Answer answer = Answer::Yes;
      if (s.WorkMode != mode::kFile) {
        answer = session.dialogs.message(
            session.text("Sauvegarde du fichier ", "Salvar fichero ", "Recording File ") + path,
            Buttons::YesNo, Icon::Question, kProgramTitle);
      } else if (failed_before) {
        answer = Answer::No;
      }
      use_dialog = answer != Answer::Yes;
    }
    if (use_dialog) {
      const auto chosen = session.dialogs.save_file(
          {"File Tellux (*.TX3)|*.TX3", "Record TELLUX File", path, true, false});
      if (!chosen) {
        s.WorkMode.clear();
        return false;
      }
      take_dialog_name(s, path, *chosen);
    }
    try {
      s.ShiftCurvesSaved = s.ShiftCurves;
      rt::write_file_atomically(path, tx3_text(s));
    } catch (const rt::RuntimeError& e) {
      session.file_failure = path + ": " + e.reason();
      session.tell(write_error_text(session, e.number()));
      failed_before = true;
      continue;
    }
    session.forms.set_main_caption("Tellux [" + path + "]");
    s.WorkMode.clear();
    enter_recent_file(session, path);
    return true;
  }
}

void Calcul_TX3(Session& session) {
  SoundingState& s = session.s;
  if (!s.FileName.empty()) {
    s.WorkMode = mode::kNormal;
    session.forms.set_pointer(PointerTarget::Screen, kPointerDefault);
    session.forms.select_tab(1);
    return;
  }
  session.tell(
      session.text("Vous devez d'abord sélectionner un fichier ou entrer des données terrains",
                   "Primero, seleccione un fichero", "First select a file"));
  session.forms.set_pointer(PointerTarget::Screen, kPointerDefault);
}

}  // namespace tellux
