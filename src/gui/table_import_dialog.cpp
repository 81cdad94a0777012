// "Import a table...": the table's first lines as they stand and cut into cells, with a role to
// choose above each column, and the delimiter, decimal comma and lines to pass over.
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "app/application.h"
#include "app/survey_commands.h"
#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"
#include "gui/survey_commands_view.h"

namespace tellux {

namespace {

constexpr int kPreviewLines = 12;
constexpr ColumnRole kRoles[] = {ColumnRole::Skip,    ColumnRole::AbHalf,     ColumnRole::MnHalf,
                                 ColumnRole::Rhoa,    ColumnRole::Resistance, ColumnRole::DeltaV,
                                 ColumnRole::Current, ColumnRole::K};

const char* role_caption(ColumnRole role) {
  switch (role) {
    case ColumnRole::AbHalf:
      return "AB/2";
    case ColumnRole::MnHalf:
      return "MN/2";
    case ColumnRole::Rhoa:
      return "Rho a";
    case ColumnRole::Resistance:
      return "R = DeltaV/I";
    case ColumnRole::DeltaV:
      return "DeltaV (mV)";
    case ColumnRole::Current:
      return "I (mA)";
    case ColumnRole::K:
      return "K";
    case ColumnRole::Skip:
      break;
  }
  return "-";
}

class TableImportDialog : public QDialog {
 public:
  TableImportDialog(const std::string& content, const Application& app, QWidget* parent)
      : QDialog(parent), content_(content) {
    setObjectName(QStringLiteral("TableImport"));
    setWindowTitle(QString::fromUtf8(import_table_caption(app)).remove(QLatin1Char('&')));
    auto* layout = new QVBoxLayout(this);
    auto* raw = new QPlainTextEdit;
    raw->setReadOnly(true);
    raw->setObjectName(QStringLiteral("FirstLines"));
    std::string first;
    size_t at = 0;
    for (int n = 0; n < kPreviewLines && at < content.size(); ++n) {
      const size_t end = std::min(content.find('\n', at), content.size());
      first += content.substr(at, end - at) + "\n";
      at = end + 1;
    }
    raw->setPlainText(QString::fromStdString(rt::to_utf8(first)));
    raw->setMaximumHeight(140);
    layout->addWidget(raw);

    auto* form = new QFormLayout;
    delimiter_ = new QComboBox;
    delimiter_->setObjectName(QStringLiteral("Delimiter"));
    delimiter_->addItems(
        {QStringLiteral("auto"), QStringLiteral(","), QStringLiteral(";"), QStringLiteral("tab")});
    decimal_comma_ = new QCheckBox;
    decimal_comma_->setObjectName(QStringLiteral("DecimalComma"));
    skip_ = new QSpinBox;
    skip_->setObjectName(QStringLiteral("Skip"));
    skip_->setRange(0, 1000);
    const auto& s = app.session;
    form->addRow(QString::fromUtf8(s.text("Séparateur", "Separador", "Delimiter")), delimiter_);
    form->addRow(QString::fromUtf8(s.text("Virgule décimale", "Coma decimal", "Decimal comma")),
                 decimal_comma_);
    form->addRow(QString::fromUtf8(s.text("Lignes à passer", "Líneas a saltar", "Lines to skip")),
                 skip_);
    layout->addLayout(form);
    cells_ = new QTableWidget;
    cells_->setObjectName(QStringLiteral("Columns"));
    layout->addWidget(cells_, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    const auto again = [this] { fill(); };
    connect(delimiter_, &QComboBox::currentIndexChanged, this, again);
    connect(decimal_comma_, &QCheckBox::toggled, this, again);
    connect(skip_, &QSpinBox::valueChanged, this, again);
    resize(640, 480);
    fill();
  }

  TableLayout chosen() const {
    TableLayout layout;
    layout.format = format();
    for (QComboBox* box : roles_)
      layout.roles.push_back(kRoles[static_cast<size_t>(box->currentIndex())]);
    return layout;
  }

 private:
  TableFormat format() const {
    TableFormat f;
    const char delimiters[] = {0, ',', ';', '\t'};
    f.delimiter = delimiters[delimiter_->currentIndex()];
    f.decimal_comma = decimal_comma_->isChecked();
    f.skip = skip_->value();
    return f;
  }

  // The cells of the first lines under one role box a column; the roles from the header.
  void fill() {
    const TableText table = read_table_text(content_, format());
    if (table.decimal_comma && !decimal_comma_->isChecked()) {
      const QSignalBlocker quiet(decimal_comma_);
      decimal_comma_->setChecked(true);  // found in the cells
    }
    size_t columns = table.header ? table.header->cells.size() : 0;
    for (const TableLine& line : table.rows) columns = std::max(columns, line.cells.size());
    const int shown = std::min<int>(static_cast<int>(table.rows.size()), kPreviewLines);
    cells_->clear();
    cells_->setColumnCount(static_cast<int>(columns));
    cells_->setRowCount(shown + (table.header ? 2 : 1));
    roles_.clear();
    for (size_t c = 0; c < columns; ++c) {
      auto* box = new QComboBox;
      box->setObjectName(QStringLiteral("Role%1").arg(c + 1));
      for (ColumnRole role : kRoles) box->addItem(QString::fromUtf8(role_caption(role)));
      ColumnRole role = ColumnRole::Skip;
      if (table.header && c < table.header->cells.size())
        role = role_from_title(table.header->cells[c]).value_or(ColumnRole::Skip);
      box->setCurrentIndex(static_cast<int>(std::find(std::begin(kRoles), std::end(kRoles), role) -
                                            std::begin(kRoles)));
      cells_->setCellWidget(0, static_cast<int>(c), box);
      roles_.push_back(box);
    }
    int row = 1;
    const auto show = [&](const TableLine& line) {
      for (size_t c = 0; c < line.cells.size(); ++c)
        cells_->setItem(row, static_cast<int>(c),
                        new QTableWidgetItem(QString::fromStdString(rt::to_utf8(line.cells[c]))));
      ++row;
    };
    if (table.header) show(*table.header);
    for (int n = 0; n < shown; ++n) show(table.rows[static_cast<size_t>(n)]);
  }

  std::string content_;
  QComboBox* delimiter_;
  QCheckBox* decimal_comma_;
  QSpinBox* skip_;
  QTableWidget* cells_;
  std::vector<QComboBox*> roles_;
};

}  // namespace

void import_table_command(QWidget* parent, Application& app) {
  Session& session = app.session;
  FileDialogRequest request;
  request.filter = "CSV (*.csv;*.txt)|*.csv;*.txt|* (*.*)|*.*";
  request.title = std::string(import_table_caption(app));
  std::erase(request.title, '&');
  const auto chosen = session.dialogs.open_files(request);
  if (!chosen || chosen->empty()) return;
  const std::string path = chosen->front();
  std::string content;
  try {
    content = rt::read_whole_file(path);
  } catch (const rt::RuntimeError& e) {
    session.tell(path + ": " + e.reason());
    return;
  }
  TableImportDialog dialog(content, app, parent);
  if (dialog.exec() != QDialog::Accepted) return;
  import_table_file(session, path, dialog.chosen());
}

}  // namespace tellux
