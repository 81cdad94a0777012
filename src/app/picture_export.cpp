#include "app/picture_export.h"

#include <filesystem>

#include "core/runtime/arithmetic.h"
#include "core/runtime/number_text.h"

namespace tellux {

std::string picture_file_name(const std::string& FilePath, bool section) {
  const size_t cut = section ? 4 : 3;
  const std::string stem = FilePath.size() > cut ? FilePath.substr(0, FilePath.size() - cut) : "";
  return stem + (section ? "profil.svg" : "svg");
}

std::string Record_WMF(Session& session, const PageDocument& page, bool section,
                       Pictures& pictures) {
  namespace fs = std::filesystem;
  // A cancelled box gives an empty name: the write then fails without a file.
  const std::string name = session.dialogs
                               .input("Enter the file name", "SVG file option",
                                      picture_file_name(session.s.FilePath, section))
                               .value_or("");
  std::error_code error;
  if (!name.empty() && fs::exists(name, error)) {
    if (session.dialogs.message(name + " alreday exists, replace this file ?", Buttons::YesNo,
                                Icon::Question, kProgramTitle) != Answer::Yes)
      return {};
  }
  pictures.copy_page(page, std::max(0, page.PreviewPage - 1));
  const std::string failure =
      name.empty() ? std::string("no file name")
                   : pictures.write_page(page, std::max(0, page.PreviewPage - 1), name);
  if (!failure.empty()) {
    session.file_failure = name + ": " + failure;
    session.tell(session.text("Erreur lors de l'enregistrement du fichier...",
                              "Error al salvar fichero...", "Recording File Error..."),
                 Icon::Exclamation);
    return {};
  }
  tell_recorded(session, name);
  return name;
}

void tell_recorded(Session& session, const std::string& name) {
  std::error_code error;
  const auto bytes = std::filesystem::file_size(name, error);
  const double kilobytes = rt::CLng(error ? 0.0 : static_cast<double>(bytes) / 1000);
  session.tell(name + " " + rt::CStr(kilobytes) + " Kb has been recorded", Icon::Information);
}

bool section_drawn(Session& session, const PageDocument& page) {
  if (page.PageCount() > 0) return true;
  session.tell(std::string("First, you must load SEV files\r\n") +
                   session.text("Onglet \"Profile data\" : \"Select SEV\"",
                                "Pestaña \"Profile data\": \"Select SEV\"",
                                "Tab \"Profile data\": \"Select SEV\""),
               Icon::Critical);
  return false;
}

void copy_diagram(Session& session, Pictures& pictures) {
  pictures.copy_diagram();
  session.tell("Your screen is now recorded in the clipbord, paste in with Crtl+C",
               Icon::Information);
}

}  // namespace tellux
