#include "app/survey_commands.h"

#include <filesystem>

#include "core/open_flow.h"
#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"
#include "core/sounding_file.h"
#include "survey/model_export.h"

namespace tellux {

std::vector<std::string> profile_files(const ProfileSheet& sheet) {
  std::vector<std::string> files;
  const GridModel& grid = sheet.grid();
  for (int i = 1; i < grid.rows(); ++i)
    if (!grid.text(i, 1).empty()) files.push_back(sheet.folder + grid.text(i, 1));
  return files;
}

FitChoices profile_fit_choices(const SoundingState& s) {
  return {s.Spread, s.DecadeStart, s.ThicknessDecimals, 0.3, s.AccurateCurves};
}

std::string backup_path(const std::string& path) {
  return std::filesystem::path(path).replace_extension(".BAK").string();
}

namespace {

// Keeps the file's bytes as they are under the backup's name; empty or the reason it failed.
std::string keep_backup(const std::string& path) {
  try {
    rt::write_file_atomically(backup_path(path), rt::read_whole_file(path));
  } catch (const rt::RuntimeError& e) {
    return backup_path(path) + ": " + e.reason();
  }
  return {};
}

}  // namespace

int write_fitted_survey(Session& session, ProfileTab& tab, std::vector<FittedSounding>& fitted) {
  int ready = 0;
  for (const FittedSounding& f : fitted) ready += f.s ? 1 : 0;
  for (const FittedSounding& f : fitted)
    for (const std::string& m : f.messages)
      session.tell(std::filesystem::path(f.file).filename().string() + " : " + m);
  if (ready == 0) return 0;
  const std::string question =
      session.text("Enregistrer les modèles ajustés de ", "¿Salvar los modelos ajustados de ",
                   "Save the fitted models of ") +
      std::to_string(ready) +
      session.text(" sondages ?\r\nL'ancienne version de chaque fichier est gardée dans NOM.BAK.",
                   " sondeos?\r\nLa versión anterior de cada fichero se guarda en NOMBRE.BAK.",
                   " soundings?\r\nThe previous version of each file is kept as NAME.BAK.");
  if (session.dialogs.message(question, Buttons::YesNo, Icon::Question, kProgramTitle) !=
      Answer::Yes)
    return 0;
  int written = 0;
  std::string failures;
  for (FittedSounding& f : fitted) {
    if (!f.s) continue;
    std::string failure = keep_backup(f.file);
    if (failure.empty()) failure = write_fitted(f, f.file);
    if (failure.empty())
      ++written;
    else
      failures += "\r\n" + failure;
  }
  if (!failures.empty())
    session.tell(session.text("Erreur lors de l'enregistrement du fichier...",
                              "Error al salvar fichero...", "Recording File Error...") +
                 failures);
  tab.sheet.select(profile_files(tab.sheet));
  tab.Frame10_Click();
  return written;
}

void export_profile_models(Session& session, const ProfileSheet& sheet) {
  const std::vector<std::string> files = profile_files(sheet);
  if (files.empty()) {
    session.tell(session.text("Sélectionnez d'abord les sondages",
                              "Primero, seleccione los sondeos", "Select the soundings first"));
    return;
  }
  FileDialogRequest request;
  request.filter = "GeoJSON (*.geojson)|*.geojson";
  request.title = session.text("Exporter les modèles", "Exportar los modelos", "Export models");
  request.proposed = sheet.folder + "models.geojson";
  request.overwrite_prompt = true;
  const auto chosen = session.dialogs.save_file(request);
  if (!chosen) return;
  std::vector<std::string> messages;
  std::vector<SoundingModel> models;
  for (const std::string& file : files)
    if (auto model = read_sounding_model(session.s, file, messages))
      models.push_back(std::move(*model));
  const auto collection = models_geojson(models, session.s.Language, messages);
  const std::string csv = std::filesystem::path(*chosen).replace_extension(".csv").string();
  try {
    rt::write_file_atomically(*chosen, collection.dump(1) + "\n");
    rt::write_file_atomically(csv, models_csv(models));
  } catch (const rt::RuntimeError& e) {
    messages.push_back(e.reason());
  }
  std::string text = std::to_string(collection["features"].size()) +
                     session.text(" sondages exportés dans ", " sondeos exportados en ",
                                  " soundings exported to ") +
                     *chosen + "\r\n" + csv;
  for (const std::string& m : messages) text += "\r\n" + m;
  session.tell(text, messages.empty() ? Icon::Information : Icon::Exclamation);
}

bool import_table_file(Session& session, const std::string& path, const TableLayout& layout) {
  std::string content;
  try {
    content = rt::read_whole_file(path);
  } catch (const rt::RuntimeError& e) {
    session.tell(path + ": " + e.reason());
    return false;
  }
  auto table = std::make_unique<SoundingState>(session.s);
  TableImport import =
      import_table(*table, content, layout, std::filesystem::path(path).filename().string());
  if (import.roles_missing)
    import.messages.front() +=
        session.text(". Donnez son rôle à chaque colonne dans « Importer un tableau... »",
                     ". Dé su papel a cada columna en «Importar una tabla...»",
                     ". Give each column its role in \"Import a table...\"");
  std::string told;
  for (const std::string& m : import.messages) told += (told.empty() ? "" : "\r\n") + m;
  if (!import.ok) {
    session.tell(told);
    return false;
  }
  if (!told.empty()) session.tell(told, Icon::Information);
  std::string target = std::filesystem::path(path).replace_extension(".TX3").string();
  table->FileName = table->FilePath = target;
  Session writing{*table, session.dialogs, session.forms};
  if (!write_sounding_file(writing, target)) return false;
  session.s.FilePath = session.s.FileName = target;
  open_sounding(session);
  return true;
}

}  // namespace tellux
