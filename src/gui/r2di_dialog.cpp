#include "gui/r2di_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>

#include "core/session.h"

namespace tellux {

void show_r2di_dialog(R2diForm& form, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("R2DI_par"));
  dialog.setWindowTitle(QString::fromUtf8(kProgramTitle));
  auto* layout = new QFormLayout(&dialog);
  const auto edit = [&](const char* name, const std::string& text) {
    auto* e = new QLineEdit(QString::fromStdString(text));
    e->setObjectName(QLatin1String(name));
    return e;
  };
  QLineEdit* n = edit("Text1", form.Text1.empty() ? "10" : form.Text1);
  QLineEdit* x = edit("Text2", form.Text2.empty() ? "0" : form.Text2);
  QLineEdit* y = edit("Text3", form.Text3.empty() ? "0" : form.Text3);
  QLineEdit* azimuth = edit("Text4", form.Text4.empty() ? "0" : form.Text4);
  QLineEdit* altitude = edit("Text5", form.Text5.empty() ? "0" : form.Text5);
  auto* xy = new QHBoxLayout;
  xy->addWidget(x);
  xy->addWidget(y);
  layout->addRow(QString::fromStdString(form.Label1.Caption), n);
  layout->addRow(QString::fromStdString(form.Label2.Caption), xy);
  layout->addRow(QString::fromStdString(form.Label4.Caption), azimuth);
  layout->addRow(QString::fromStdString(form.Label5.Caption), altitude);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  layout->addRow(buttons);
  if (dialog.exec() != QDialog::Accepted) return;
  form.Text1 = n->text().toStdString();
  form.Text2 = x->text().toStdString();
  form.Text3 = y->text().toStdString();
  form.Text4 = azimuth->text().toStdString();
  form.Text5 = altitude->text().toStdString();
  form.done = true;
}

}  // namespace tellux
