#include "convert/backups.h"

#include <filesystem>

#include "core/file_names.h"
#include "core/open_flow.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"
#include "core/runtime/token_file.h"
#include "core/sounding_file.h"
#include "model/forward.h"
#include "model/overlay_store.h"

namespace tellux {

namespace {

std::string as_tx3(const std::string& path) { return with_extension(path, ".TX3"); }

// The first seven characters of a number's text; a shorter text is not filled out.
std::string cell7(double v) { return rt::Str(v).substr(0, 7); }

}  // namespace

std::optional<std::string> rename_backup(Session& session) {
  const auto chosen =
      session.dialogs.open_file({"Tellux 6(*.BAK)|*.BAK", "TELLUX Backup File selection", "*.BAK"});
  if (!chosen) return std::nullopt;
  const std::string target = as_tx3(*chosen);
  if (session.dialogs.message("Rename " + *chosen + " as " + target, Buttons::OkCancel, Icon::None,
                              "Backup to TX3") != Answer::Ok)
    return std::nullopt;
  // An existing TX3 file stops the rename: both files stay as they are.
  std::error_code error;
  if (std::filesystem::exists(target, error) || error) {
    session.tell(session.text("Erreur lors de l'enregistrement du fichier...",
                              "Error al salvar fichero...", "Recording File Error..."));
    session.file_failure = target + ": File exists";
    return std::nullopt;
  }
  std::filesystem::rename(*chosen, target, error);
  if (error) {
    session.file_failure = target + ": " + error.message();
    session.tell(session.text("Erreur lors de l'enregistrement du fichier...",
                              "Error al salvar fichero...", "Recording File Error..."));
    return std::nullopt;
  }
  return target;
}

bool restore_backup(Session& session) {
  SoundingState& s = session.s;
  const auto chosen =
      session.dialogs.open_file({"Fichier Tellux (*.BAK)|*.BAK", "TELLUX File selection", "*.BAK"});
  if (!chosen) return false;
  s.FilePath = *chosen;
  s.FileName = bare_name(s.FilePath);
  s.FormatLevel = 3;
  if (!read_sounding_file(session, s.FilePath)) return false;
  s.FilePath = as_tx3(s.FilePath);
  s.FileName = as_tx3(s.FileName);
  session.tell(s.FileName + " is restored", Icon::Information);
  finish_open(session);
  s.WorkMode = mode::kNormal;
  session.forms.redraw_bilog_frame();
  return true;
}

std::string txl_name(const std::string& typed) {
  const std::string name = bare_name(typed);
  const std::string folder = typed.substr(0, typed.size() - name.size());
  const size_t point = name.find('.');
  return folder + (point == std::string::npos ? name + ".TXL" : name.substr(0, point + 1) + "TXL");
}

std::optional<std::string> export_txl(Session& session) {
  SoundingState& s = session.s;
  bool ask_dialog = s.SheetFileName.empty() || s.SheetFileName == "NEW";
  if (!ask_dialog) {
    const std::string question =
        std::string(session.text("Sauvegarde du fichier ", "Salvar fichero ", "Recording File ")) +
        s.SheetPath;
    ask_dialog = session.dialogs.message(question, Buttons::YesNo, Icon::Question, kProgramTitle) ==
                 Answer::No;
  }
  if (ask_dialog) {
    FileDialogRequest request{"File Tellux (*.TXL)|*.TXL", "Record File for XL", s.SheetPath};
    request.overwrite_prompt = true;
    const auto chosen = session.dialogs.save_file(request);
    if (!chosen) return std::nullopt;
    s.SheetPath = *chosen;
    s.SheetFileName = bare_name(*chosen);
  }
  const std::string path = txl_name(s.SheetPath);
  s.WorkMode = mode::kFile;

  rt::TokenWriter out;
  out.print_line(rt::Str(s.FieldCount));
  for (int n = 1; n <= s.FieldCount; ++n) {
    std::string line;
    for (int c = 1; c <= 6; ++c) line += rt::Str(s.FieldTable(n, c));
    out.print_line(line);
  }
  const int work_slot = s.HistoryLast + 1;
  StoreModelInSlot(s, work_slot);
  for (int r = 1; r <= 20; ++r) {
    std::string line;
    for (int slot = work_slot; slot >= 1; --slot)
      line += rt::Str(s.LayerHistory[slot](r, 1)) + rt::Str(s.LayerHistory[slot](r, 2));
    out.print_line(line);
  }
  // The curve of every stored model, side by side.
  std::vector<std::string> lines;
  for (int slot = work_slot; slot >= 1; --slot) {
    LoadModelFromSlot(s, slot);
    rt::skip([&] { ForwardCurve(session); });
    if (slot == work_slot) {
      int last = 1;
      while (last <= 100 && s.ModelCurve(last, 2).num() > 0) {
        lines.push_back(cell7(s.ModelCurve(last, 2).num() + 0.000011));
        ++last;
      }
      s.ModelCurveLast = static_cast<int16_t>(last);
    }
    for (size_t i = 0; i < lines.size() && static_cast<int>(i) + 1 < s.ModelCurveLast; ++i)
      lines[i] += cell7(s.ModelCurve(static_cast<int>(i) + 1, 1).num());
  }
  s.LayerCount = s.HistoryCounts[static_cast<size_t>(work_slot)];
  out.print_line(rt::Str(s.ModelCurveLast));
  // Entries 1 to ModelCurveLast - 1; the last run of the curve may have moved that count.
  for (size_t i = 0; i < lines.size() && static_cast<int>(i) + 1 < s.ModelCurveLast; ++i)
    out.print_line(lines[i]);
  s.WorkMode.clear();
  try {
    rt::write_file_atomically(path, out.content());
  } catch (const rt::RuntimeError& e) {
    session.file_failure = path + ": " + e.reason();
    session.tell(session.text("Erreur lors de l'enregistrement du fichier...",
                              "Error al salvar fichero...", "Recording File Error..."));
    return std::nullopt;
  }
  session.forms.set_main_caption(std::string(kProgramTitle) + " [" + path + "]");
  return path;
}

}  // namespace tellux
