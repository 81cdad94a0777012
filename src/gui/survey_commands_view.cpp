#include "gui/survey_commands_view.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QProgressDialog>
#include <QPushButton>
#include <QThread>
#include <thread>

#include "app/application.h"
#include "app/survey_commands.h"
#include "gui/profile_widget.h"

namespace tellux {

void fit_all_soundings(QWidget* parent, Application& app) {
  const std::vector<std::string> files = profile_files(app.profile.sheet);
  if (files.empty()) {
    app.session.tell(app.session.text("Sélectionnez d'abord les sondages",
                                      "Primero, seleccione los sondeos",
                                      "Select the soundings first"));
    return;
  }
  SurveyProgress progress;
  std::vector<FittedSounding> fitted;
  const SoundingState start = app.s;
  const FitChoices choices = profile_fit_choices(app.s);
  std::thread worker([&] { fitted = fit_survey(start, choices, files, 0, &progress); });
  QProgressDialog bar(
      QString::fromUtf8(app.session.text("Ajustement des sondages...", "Ajuste de los sondeos...",
                                         "Fitting the soundings...")),
      QString::fromUtf8(app.session.text("Annuler", "Cancelar", "Cancel")), 0,
      static_cast<int>(files.size()), parent);
  bar.setObjectName(QStringLiteral("FitAllProgress"));
  bar.setWindowTitle(QString::fromUtf8(kProgramTitle));
  bar.setWindowModality(Qt::WindowModal);
  bar.setMinimumDuration(0);
  bool cancelled = false;
  while (progress.done.load() < static_cast<int>(files.size())) {
    bar.setValue(progress.done.load());
    QApplication::processEvents(QEventLoop::AllEvents, 30);
    if (bar.wasCanceled()) {
      progress.cancel = true;
      cancelled = true;
      break;
    }
    QThread::msleep(15);
  }
  worker.join();
  bar.setValue(static_cast<int>(files.size()));
  if (!cancelled) write_fitted_survey(app.session, app.profile, fitted);
}

void add_survey_buttons(ProfileWidget& profile, Application& app, std::function<void()> changed) {
  auto* row = profile.findChild<QHBoxLayout*>(QStringLiteral("SurveyCommands"));
  if (!row) return;
  auto* fit = new QPushButton;
  fit->setObjectName(QStringLiteral("FitAll"));
  QObject::connect(fit, &QPushButton::clicked, &profile, [&profile, &app, changed] {
    fit_all_soundings(&profile, app);
    changed();
  });
  auto* out = new QPushButton;
  out->setObjectName(QStringLiteral("ExportModels"));
  QObject::connect(out, &QPushButton::clicked, &profile, [&app, changed] {
    export_profile_models(app.session, app.profile.sheet);
    changed();
  });
  row->insertWidget(1, fit);
  row->insertWidget(2, out);
  caption_survey_commands(profile, app);
}

const char* import_table_caption(const Application& app) {
  return app.session.text("&Importer un tableau...", "&Importar una tabla...",
                          "&Import a table...");
}

void caption_survey_commands(QWidget& window, const Application& app) {
  const auto text = [&](const char* french, const char* spanish, const char* english) {
    return QString::fromUtf8(app.session.text(french, spanish, english));
  };
  if (auto* fit = window.findChild<QPushButton*>(QStringLiteral("FitAll")))
    fit->setText(text("Ajuster tout", "Ajustar todo", "Fit all"));
  if (auto* out = window.findChild<QPushButton*>(QStringLiteral("ExportModels")))
    out->setText(text("Exporter les modèles...", "Exportar los modelos...", "Export models..."));
  if (auto* import = window.findChild<QAction*>(QStringLiteral("ImportTable")))
    import->setText(QString::fromUtf8(import_table_caption(app)));
}

}  // namespace tellux
