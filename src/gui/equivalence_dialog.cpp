#include "gui/equivalence_dialog.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "model/equivalence_store.h"

namespace tellux {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

double value_of(const QLineEdit* box, double fallback) {
  bool ok = false;
  const double v = box->text().trimmed().replace(',', '.').toDouble(&ok);
  return ok && v > 0 ? v : fallback;
}

void fill_table(QTableWidget* table, const EquivalenceResult& r, const LanguageFlags& l) {
  const auto titles = equivalence_table_titles(l);
  const auto rows = equivalence_table_rows(r, l);
  table->setColumnCount(static_cast<int>(titles.size()));
  table->setRowCount(static_cast<int>(rows.size()));
  for (size_t c = 0; c < titles.size(); ++c)
    table->setHorizontalHeaderItem(static_cast<int>(c), new QTableWidgetItem(q(titles[c])));
  for (size_t i = 0; i < rows.size(); ++i)
    for (size_t c = 0; c < rows[i].size(); ++c) {
      auto* item = new QTableWidgetItem(q(rows[i][c]));
      if (c >= 2) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      table->setItem(static_cast<int>(i), static_cast<int>(c), item);
    }
  table->resizeColumnsToContents();
}

}  // namespace

void show_equivalence_dialog(Session& session, QWidget* parent,
                             const std::function<void()>& redraw) {
  SoundingState& s = session.s;
  const auto t = [&](const char* fr, const char* es, const char* en) {
    return QString::fromUtf8(session.text(fr, es, en));
  };
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("Equivalence"));
  dialog.setWindowTitle(t("Équivalence", "Equivalencia", "Equivalence"));
  auto* layout = new QVBoxLayout(&dialog);
  auto* form = new QFormLayout;
  const auto box = [&](const char* name, const QString& text) {
    auto* edit = new QLineEdit(text);
    edit->setObjectName(QLatin1String(name));
    return edit;
  };
  EquivalenceOptions o;
  auto* tolerance = box("tolerance", QStringLiteral("1"));
  auto* threshold = box("threshold", QString());
  auto* min_res = box("min_res", QStringLiteral("0.1"));
  auto* max_res = box("max_res", QStringLiteral("100000"));
  auto* min_thick = box("min_thick", QStringLiteral("0.1"));
  auto* max_thick = box("max_thick", QStringLiteral("10000"));
  form->addRow(t("Tolérance (points de %)", "Tolerancia (puntos de %)", "Tolerance (% points)"),
               tolerance);
  form->addRow(t("ou seuil RMS (%)", "o umbral RMS (%)", "or RMS threshold (%)"), threshold);
  form->addRow(t("Résistivité min. / max. (ohm·m)", "Resistividad mín. / máx. (ohm·m)",
                 "Resistivity min / max (ohm·m)"),
               min_res);
  form->addRow(QString(), max_res);
  form->addRow(t("Épaisseur min. / max. (m)", "Espesor mín. / máx. (m)", "Thickness min / max (m)"),
               min_thick);
  form->addRow(QString(), max_thick);
  layout->addLayout(form);
  auto* progress = new QProgressBar;
  progress->setObjectName(QStringLiteral("progress"));
  layout->addWidget(progress);
  auto* summary = new QLabel;
  summary->setObjectName(QStringLiteral("summary"));
  layout->addWidget(summary);
  auto* table = new QTableWidget;
  table->setObjectName(QStringLiteral("ranges"));
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->verticalHeader()->hide();
  table->setMinimumSize(520, 260);
  layout->addWidget(table);
  auto* buttons = new QDialogButtonBox;
  auto* start = buttons->addButton(t("Calculer", "Calcular", "Run"), QDialogButtonBox::ActionRole);
  start->setObjectName(QStringLiteral("run"));
  // "Close" keeps the result of a run; while one runs the same button cancels it.
  const QString close = t("Fermer", "Cerrar", "Close");
  auto* cancel = buttons->addButton(close, QDialogButtonBox::RejectRole);
  cancel->setObjectName(QStringLiteral("cancel"));
  layout->addWidget(buttons);
  bool running = false, cancelled = false;
  QObject::connect(cancel, &QPushButton::clicked, &dialog, [&] {
    if (running)
      cancelled = true;
    else
      dialog.reject();
  });
  if (const EquivalenceResult* kept = equivalence_of_current_model(s))
    fill_table(table, *kept, s.Language);
  QObject::connect(start, &QPushButton::clicked, &dialog, [&] {
    o.tolerance = value_of(tolerance, 1.0);
    o.threshold = value_of(threshold, 0.0);
    o.min_res = value_of(min_res, 0.1), o.max_res = value_of(max_res, 1e5);
    o.min_thick = value_of(min_thick, 0.1), o.max_thick = value_of(max_thick, 1e4);
    running = true, cancelled = false;
    start->setEnabled(false);
    cancel->setText(t("Annuler", "Cancelar", "Cancel"));
    const EquivalenceResult r = analyse_equivalence(s, o, [&](int done, int total) {
      progress->setMaximum(total);
      progress->setValue(done);
      QApplication::processEvents();
      return !cancelled;
    });
    running = false;
    start->setEnabled(true);
    cancel->setText(close);
    progress->setValue(progress->maximum());
    summary->setText(t("RMS du modèle ", "RMS del modelo ", "Model RMS ") +
                     QString::number(r.best_rms, 'f', 2) + " %   " +
                     t("seuil ", "umbral ", "threshold ") + QString::number(r.threshold, 'f', 2) +
                     " %   " + t("modèles essayés ", "modelos probados ", "models tried ") +
                     QString::number(r.models_tried));
    if (r.ranges.empty()) return;
    fill_table(table, r, s.Language);
    if (!r.cancelled) keep_equivalence(r);
    if (redraw) redraw();
  });
  dialog.exec();
}

}  // namespace tellux
