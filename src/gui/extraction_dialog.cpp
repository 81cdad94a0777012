#include "gui/extraction_dialog.h"

#include <QButtonGroup>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QIntValidator>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/session.h"

namespace tellux {

namespace {
QString q(const std::string& s) { return QString::fromStdString(s); }
}  // namespace

void show_extraction_dialog(ExtractionForm& form, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("Extraction"));
  dialog.setWindowTitle(QString::fromUtf8(kProgramTitle));
  auto* layout = new QVBoxLayout(&dialog);
  auto* group = new QButtonGroup(&dialog);
  const Label* captions[] = {&form.Option1, &form.Option2, &form.Option3, &form.Option4,
                             &form.Option5};
  for (int i = 0; i < 5; ++i) {
    auto* option = new QRadioButton(q(captions[i]->Caption));
    option->setObjectName(QStringLiteral("Option%1").arg(i + 1));
    group->addButton(option, i + 1);
    layout->addWidget(option);
  }
  group->button(1)->setChecked(true);
  auto* boxes = new QFormLayout;
  auto* altitude = new QLineEdit(q(form.Text1));
  altitude->setObjectName(QStringLiteral("Text1"));
  auto* layer = new QLineEdit(q(form.Text2));
  layer->setObjectName(QStringLiteral("Text2"));
  layer->setValidator(new QIntValidator(1, 20, layer));
  boxes->addRow(q(form.Label6.Caption), altitude);
  boxes->addRow(q(form.Label7.Caption), layer);
  layout->addLayout(boxes);
  // Each option asks for the one value it needs.
  const auto follow = [&] {
    const int id = group->checkedId();
    const bool by_altitude = id == 1 || id == 3;
    altitude->setEnabled(by_altitude);
    layer->setEnabled(!by_altitude);
  };
  QObject::connect(group, &QButtonGroup::idClicked, &dialog, follow);
  follow();
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  layout->addWidget(buttons);
  if (dialog.exec() != QDialog::Accepted) return;
  form.option = group->checkedId();
  form.Text1 = altitude->text().trimmed().toStdString();
  form.Text2 = layer->text().trimmed().toStdString();
}

}  // namespace tellux
