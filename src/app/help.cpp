#include "app/help.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/picture_export.h"
#include "core/data_dir.h"

#ifndef TELLUX_BUILD_MANUAL_DIR
#define TELLUX_BUILD_MANUAL_DIR ""
#endif

namespace tellux {

std::string manual_path(const SoundingState& s) {
  const char* file = s.Language.French    ? "TELLUX6_FR.PDF"
                     : s.Language.Spanish ? "TELLUX6_ES.PDF"
                                          : "TELLUX6_US.PDF";
  const std::string installed = data_dir() + "/Manual/" + file;
  std::error_code error;
  // Before installation the manuals stand in the build's own folder.
  if (!std::filesystem::exists(installed, error) &&
      std::filesystem::exists(std::string(TELLUX_BUILD_MANUAL_DIR) + "/" + file, error))
    return std::string(TELLUX_BUILD_MANUAL_DIR) + "/" + file;
  return installed;
}

std::string help_topic_of_tab(int tab) {
  static const char* const topics[] = {"tab-bilog", "tab-sheet",   "tab-print",
                                       "tab-setup", "tab-profile", "tab-section"};
  return tab >= 0 && tab < 6 ? topics[tab] : "introduction";
}

ManualPlace manual_place(const std::string& manual, const std::string& topic) {
  std::string index = manual;
  if (const size_t dot = index.rfind('.'); dot != std::string::npos) index.erase(dot);
  std::ifstream in(index + ".TOC");
  std::string line;
  while (!topic.empty() && std::getline(in, line)) {
    std::istringstream fields(line);
    std::string name;
    ManualPlace place;
    if (fields >> name >> place.page && name == topic) {
      if (!(fields >> place.top)) place.top = 0;
      if (place.page < 1) place.page = 1;
      return place;
    }
  }
  return {};
}

void open_manual_file(Session& session, Programs& programs, const std::string& manual,
                      const std::string& topic) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(manual, error)) {
    session.tell(session.text("Le manuel ", "No se encuentra el manual ", "The manual ") + manual +
                     session.text(" est introuvable.", ".", " is missing."),
                 Icon::Exclamation);
    return;
  }
  if (programs.show_pdf(manual, manual_place(manual, topic))) return;
  const std::string viewer = programs.pdf_viewer();
  if (!viewer.empty()) {
    if (!programs.start(viewer, manual)) session.tell("Unable to shell " + manual);
    return;
  }
  session.tell("You must intstall ACROBAT READER to open the help file");
  session.tell("You must install a PDF reader from the CD-ROM");
}

void open_manual(Session& session, Programs& programs, const std::string& topic) {
  open_manual_file(session, programs, manual_path(session.s), topic);
}

void open_calculator(Session& session, Programs& programs) {
  const std::string calculator = programs.calculator();
  if (calculator.empty() || !programs.start(calculator, "")) {
    session.tell(session.text("Aucune calculatrice n'est installée sur ce bureau.",
                              "No hay calculadora instalada en este escritorio.",
                              "No calculator is installed on this desktop."),
                 Icon::Information);
  }
}

std::string video_path() {
  const std::string video = data_dir() + "/Manual/tellux.mp4";
  std::error_code error;
  return std::filesystem::exists(video, error) ? video : std::string();
}

bool open_graphical_program(Session& session, Settings& settings, Programs& programs) {
  if (settings.GraphicalProg.size() < 5) {
    session.tell("You must locate your program");
    const auto chosen = session.dialogs.open_file({"Programs|*", "Graphical tool selection", ""});
    if (!chosen) return false;
    settings.GraphicalProg = *chosen;
  }
  const std::string picture = picture_file_name(session.s.FilePath, false);
  if (!programs.start(settings.GraphicalProg, picture)) {
    session.tell("Unable to shell " + settings.GraphicalProg);
    return false;
  }
  return true;
}

std::string about_text(const SoundingState& s) {
  const std::string libraries =
      "\n\nTellux 6.4 is built on Qt 6 (LGPL 3), CLI11 (BSD 3-clause), nlohmann-json (MIT), "
      "GoogleTest and Google Benchmark (Apache 2.0, for its tests), and uses the Liberation "
      "fonts (SIL Open Font License).";
  if (s.Language.French)
    return "Ce programme sert à interpréter les sondages électriques en dispositif Schlumberger, "
           "Wenner ou dipôle. Les courbes théoriques sont calculées par les filtres numériques "
           "publiés par KOEFOED (Geosounding Principles, 1978), avec huit résistivités apparentes "
           "par module logarithmique, pour des modèles de 20 couches au plus.\n\n"
           "Attention : plusieurs modèles différents peuvent donner la même courbe "
           "(équivalence). Un bon ajustement ne prouve pas que le modèle est le bon ; "
           "contrôlez-le par les forages et la géologie." +
           libraries;
  return "This program is used for the interpretation of electrical soundings with "
         "Schlumberger, Wenner or dipole spread.  The theoretical curves are computed with the "
         "digital filters published by KOEFOED (Geosounding Principles, 1978), with eight apparent "
         "resistivities per logarithmic module, for models of at most 20 layers.\n\n"
         "Beware: different models can give the same curve (equivalence). A good fit does not "
         "prove that the model is the right one; check it against boreholes and the geology." +
         libraries;
}

}  // namespace tellux
