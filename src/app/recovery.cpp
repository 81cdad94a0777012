#include "app/recovery.h"

#include "core/file_names.h"
#include "core/runtime/error_report.h"
#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"
#include "core/sounding_file.h"

namespace tellux {

std::string recovery_path(const SoundingState& s) {
  const bool saved = !s.FilePath.empty() && s.FileName != "NEW";
  std::string name = saved ? bare_name(s.FilePath) : std::string("NEW");
  const std::string folder =
      saved ? s.FilePath.substr(0, s.FilePath.size() - name.size()) : s.FileDir;
  // The real extension goes, whatever its length; a name without one keeps all its letters.
  if (const size_t point = name.rfind('.'); point != std::string::npos && point > 0)
    name.resize(point);
  return folder + name + ".recovered.TX3";
}

std::optional<std::string> save_recovery(Session& session) {
  const std::string path = recovery_path(session.s);
  try {
    rt::write_file_atomically(path, tx3_text(session.s));
  } catch (const rt::RuntimeError& e) {
    session.file_failure =
        path + ": " + (e.reason().empty() ? rt::error_text(e.number()) : e.reason());
    return std::nullopt;
  }
  return path;
}

void report_escaped_error(Session& session, int number, const std::string& text) {
  const std::string path = recovery_path(session.s);
  const std::string question = "Run-time error '" + std::to_string(number) + "':\n\n" + text +
                               "\n\nSave the sounding as " + path + " ?";
  if (session.dialogs.message(question, Buttons::YesNo, Icon::Critical, kProgramTitle) !=
      Answer::Yes)
    return;
  session.file_failure.clear();
  if (!save_recovery(session))
    session.tell(session.text("Erreur lors de l'enregistrement du fichier...",
                              "Error al salvar fichero...", "Recording File Error..."));
}

}  // namespace tellux
