#include "core/settings.h"

#include <cstdlib>

#include "core/language.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"

namespace tellux {

namespace {

constexpr const char* kTellux = "Tellux";
constexpr const char* kFile = "File";
constexpr const char* kMarge = "Marge";
constexpr const char* kDraw = "Draw_Parameter";
constexpr const char* kPalette = "PALETTE_A";
constexpr const char* kProfile = "Profile";

// The key of the model representation: the reader spells it "modèle", the writer "Modèle"; keys
// are compared without regard to case, so both are one key.
constexpr const char* kModelKeyRead = "modèle";
constexpr const char* kModelKeyWritten = "Modèle";

constexpr int32_t kDefaultColours[8] = {0, 16512, 255, 255, 16711935, 255, 255, 32768};

// The number of a value's text, as the language converts text to a number: an empty or
// non-numeric text is a type mismatch.
double number_of(const std::string& text) {
  const size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) rt::raise(rt::kTypeMismatch);
  if (text[first] == '&') return rt::Val(text);
  return rt::parse_number_token(text);
}
int16_t int16_of(const std::string& text) { return rt::CInt(number_of(text)); }
int32_t int32_of(const std::string& text) { return rt::CLng(number_of(text)); }

std::string entry_key(int n) { return "File " + std::to_string(n); }
std::string colour_key(int n) { return "Color" + std::to_string(n); }
std::string amplitude_key(int n) { return "Amplitude" + std::to_string(n); }

// The seven colours of the section "File", keys "Color1".."Color7".
template <typename State>
auto& colour_of(State& s, int n) {
  switch (n) {
    case 1:
      return s.GridColour;
    case 2:
      return s.CurveColour;
    case 3:
      return s.PointsColour;
    case 4:
      return s.ModelColour;
    case 5:
      return s.ErrorColour;
    case 6:
      return s.BackColour;
    default:
      return s.SuperposedColour;
  }
}

// An axis limit: the exponent converted to an integer, and 10 to that power rounded beside it.
template <typename Exponent, typename Value>
void read_axis(const IniFile& ini, const char* key, const char* fallback, Exponent& exponent,
               Value& value) {
  rt::skip([&] {
    if constexpr (sizeof(Exponent) == 2)
      exponent = int16_of(ini.read(kTellux, key, fallback));
    else
      exponent = int32_of(ini.read(kTellux, key, fallback));
  });
  rt::skip([&] {
    const double power = rt::Pow(10.0, exponent);
    if constexpr (sizeof(Value) == 2)
      value = rt::CInt(power);
    else
      value = rt::CLng(power);
  });
}

void apply_spread_tag(SoundingState& s) {
  if (s.SpreadTag == "0") s.Spread = SpreadType::Schlumberger;
  if (s.SpreadTag == "1") s.Spread = SpreadType::Dipole;
  if (s.SpreadTag == "2") s.Spread = SpreadType::Wenner;
}

// Margins, plot size and graphical program. They are read twice, and the two reads differ in
// the default of the bottom margin: the second read wins.
void read_page(const IniFile& ini, Settings& st, const char* bottom_default) {
  rt::skip([&] { st.LeftMargin = int16_of(ini.read(kMarge, "Left_Margin", "1134")); });
  rt::skip([&] { st.UpperMargin = int16_of(ini.read(kMarge, "Upper_Margin", "1134")); });
  rt::skip([&] { st.RightMargin = int16_of(ini.read(kMarge, "Right_Margin", "1134")); });
  rt::skip([&] { st.BottomMargin = int16_of(ini.read(kMarge, "Bottom_Margin", bottom_default)); });
  st.GraphicalProg = ini.read(kDraw, "Graphical_Prog", " ");
  rt::skip([&] { st.LargePlot = int16_of(ini.read(kDraw, "Large_plot", "2000")); });
  rt::skip([&] { st.HautPlot = int16_of(ini.read(kDraw, "Haut_plot", "2000")); });
}

void put_tellux(IniFile& ini, const SoundingState& s, const Settings& st, const char* model_key) {
  ini.set(kTellux, "Chemin", s.FileDir);
  ini.set(kTellux, "Langue", letter_from_flags(s.Language, st.Langue));
  ini.set(kTellux, "SEV File", st.SevFile);
  ini.set(kTellux, "Niveau", s.SpreadTag);
  ini.set(kTellux, "AB2min", std::to_string(s.DecadeStart));
  ini.set(kTellux, "AB2max", std::to_string(s.DecadeEnd));
  ini.set(kTellux, "RHOmin", std::to_string(s.RhoDecadeStart));
  ini.set(kTellux, "RHOmax", std::to_string(s.RhoDecadeEnd));
  ini.set(kTellux, model_key, std::to_string(s.ShowModelSteps));
  ini.set(kTellux, "RMS", std::to_string(s.ShowErrorCurve));
  // The option "Accurate curves" (off unless the file says "1"); written once it was ever set.
  if (s.AccurateCurves || !ini.read(kTellux, "Accurate", "").empty())
    ini.set(kTellux, "Accurate", s.AccurateCurves ? "1" : "0");
}

void put_page(IniFile& ini, const Settings& st) {
  ini.set(kMarge, "Left_Margin", std::to_string(st.LeftMargin));
  ini.set(kMarge, "Upper_Margin", std::to_string(st.UpperMargin));
  ini.set(kMarge, "Right_Margin", std::to_string(st.RightMargin));
  ini.set(kMarge, "Bottom_Margin", std::to_string(st.BottomMargin));
  ini.set(kDraw, "Graphical_Prog", st.GraphicalProg);
  ini.set(kDraw, "Large_plot", std::to_string(st.LargePlot));
  ini.set(kDraw, "Haut_plot", std::to_string(st.HautPlot));
}

void put_recent_files(IniFile& ini, const SoundingState& s) {
  for (int n = 1; n <= 5; ++n) ini.set(kFile, entry_key(n), s.RecentFiles[static_cast<size_t>(n)]);
}

void put_colours(IniFile& ini, const SoundingState& s) {
  for (int n = 1; n <= 7; ++n) ini.set(kFile, colour_key(n), std::to_string(colour_of(s, n)));
}

void put_named_colours(IniFile& ini, const Settings& st) {
  ini.set(kDraw, "couleur_de_la_courbe", st.CurveColourName);
  ini.set(kDraw, "couleur_du_modèle", st.ModelColourName);
  ini.set(kDraw, "couleur_des_points", st.PointsColourName);
  ini.set(kDraw, "couleur_des_erreurs", st.ErrorColourName);
}

void put_palette(IniFile& ini, const Settings& st) {
  for (int n = 1; n <= 16; ++n)
    ini.set(kPalette, amplitude_key(n), std::to_string(st.Amplitude[static_cast<size_t>(n)]));
}

void put_profile(IniFile& ini, const Settings& st) {
  ini.set(kProfile, "Vscale", st.Vscale);
  ini.set(kProfile, "Hscale", st.Hscale);
  ini.set(kProfile, "SEVlarge", st.SEVlarge);
  ini.set(kProfile, "MinRes", st.MinRes);
  ini.set(kProfile, "MaxRes", st.MaxRes);
}

// The settings file as it stands; nothing when it is there but cannot be read, so that it is
// neither trusted nor written over.
std::optional<IniFile> current(const std::string& path) {
  try {
    return IniFile::load(path);
  } catch (const rt::RuntimeError&) {
    return std::nullopt;
  }
}

bool write(const IniFile& ini, const std::string& path) {
  try {
    ini.save(path);
    return true;
  } catch (const rt::RuntimeError&) {
    return false;
  }
}

}  // namespace

std::string settings_file_path() {
  if (const char* explicit_path = std::getenv("TELLUX_INI"); explicit_path && *explicit_path)
    return explicit_path;
  std::string folder;
  if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && xdg[0] == '/') {
    folder = xdg;
  } else if (const char* home = std::getenv("HOME"); home && *home) {
    folder = std::string(home) + "/.config";
  } else {
    folder = ".";
  }
  return folder + "/Tellux/Tellux6.ini";
}

void load_settings(SoundingState& s, Settings& st, const std::string& path) {
  const IniFile ini = current(path).value_or(IniFile());

  s.FileDir = ini.read(kTellux, "Chemin", "C:\\Tellux\\");
  st.Langue = ini.read(kTellux, "Langue", "E");
  s.Language = language_from_letter(st.Langue);
  st.SevFile = ini.read(kTellux, "SEV File", "C:\\Tellux\\DataVes.txt");
  s.SpreadTag = ini.read(kTellux, "Niveau", "0");
  apply_spread_tag(s);
  read_axis(ini, "AB2min", "-1", s.DecadeStart, s.AB2min);
  read_axis(ini, "AB2max", "4", s.DecadeEnd, s.AB2max);
  read_axis(ini, "RHOmin", "0", s.RhoDecadeStart, s.RHOmin);
  read_axis(ini, "RHOmax", "4", s.RhoDecadeEnd, s.RHOmax);
  rt::skip([&] { s.ShowModelSteps = int16_of(ini.read(kTellux, kModelKeyRead, "1")); });
  rt::skip([&] { s.ShowErrorCurve = int16_of(ini.read(kTellux, "RMS", "0")); });
  s.AccurateCurves = ini.read(kTellux, "Accurate", "0") == "1";
  read_page(ini, st, "1250");

  for (int n = 1; n <= 5; ++n)
    s.RecentFiles[static_cast<size_t>(n)] = ini.read(kFile, entry_key(n), "");
  for (int n = 1; n <= 7; ++n) {
    rt::skip([&] {
      colour_of(s, n) =
          int32_of(ini.read(kFile, colour_key(n), std::to_string(kDefaultColours[n])));
    });
  }
  read_page(ini, st, "1245");

  st.CurveColourName = ini.read(kDraw, "couleur_de_la_courbe", "RED");
  st.ModelColourName = ini.read(kDraw, "couleur_du_modèle", "MAGENTA");
  st.PointsColourName = ini.read(kDraw, "couleur_des_points", "RED");
  st.ErrorColourName = ini.read(kDraw, "couleur_des_erreurs", "RED");
  const Settings defaults;
  for (int n = 1; n <= 16; ++n) {
    const auto slot = static_cast<size_t>(n);
    rt::skip([&] {
      st.Amplitude[slot] =
          int32_of(ini.read(kPalette, amplitude_key(n), std::to_string(defaults.Amplitude[slot])));
    });
  }
  st.Vscale = ini.read(kProfile, "Vscale", "1000");
  st.Hscale = ini.read(kProfile, "Hscale", "250");
  st.SEVlarge = ini.read(kProfile, "SEVlarge", "2");
  st.MinRes = ini.read(kProfile, "MinRes", "10");
  st.MaxRes = ini.read(kProfile, "MaxRes", "2000");

  // An axis that ends below 100 is taken as a damaged setting: back to 10000.
  if (s.DecadeEnd < 2) {
    s.DecadeEnd = 4;
    s.AB2max = 10000;
  }
  if (s.RhoDecadeEnd < 2) {
    s.RhoDecadeEnd = 4;
    s.RHOmax = 10000;
  }
}

void load_settings(SoundingState& s, Settings& settings) {
  load_settings(s, settings, settings_file_path());
}

bool save_settings(SoundingState& s, Settings& st, const std::string& path) {
  std::optional<IniFile> file = current(path);
  if (!file) return false;
  IniFile& ini = *file;
  // Without the keep box the section "Tellux" is not written, so the file keeps its start-up
  // values; the running record keeps the user's choices for the rest of the run.
  if (st.garder_config) {
    st.Langue = letter_from_flags(s.Language, st.Langue);
    put_tellux(ini, s, st, kModelKeyWritten);
    put_page(ini, st);
    put_colours(ini, s);
  }
  put_recent_files(ini, s);
  put_page(ini, st);
  put_named_colours(ini, st);
  put_profile(ini, st);
  return write(ini, path);
}

bool save_settings(SoundingState& s, Settings& settings) {
  return save_settings(s, settings, settings_file_path());
}

bool save_palette(const Settings& settings, const std::string& path) {
  std::optional<IniFile> ini = current(path);
  if (!ini) return false;
  put_palette(*ini, settings);
  return write(*ini, path);
}

IniFile held_settings(const SoundingState& s, const Settings& st) {
  IniFile ini;
  put_tellux(ini, s, st, kModelKeyRead);
  put_recent_files(ini, s);
  put_colours(ini, s);
  put_page(ini, st);
  put_named_colours(ini, st);
  put_palette(ini, st);
  put_profile(ini, st);
  return ini;
}

}  // namespace tellux
