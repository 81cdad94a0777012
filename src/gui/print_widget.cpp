#include "gui/print_widget.h"

#include <cmath>

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "platform/qt/qt_page_painter.h"

namespace tellux {

namespace {

constexpr double kTwipsPerPixel = 15.0;  // 96 pixels to the inch at 100 %
constexpr int kGap = 12;

QString q(const std::string& s) { return QString::fromStdString(s); }

enum Mode { Percentage, Thumbnail, TwoPages, WholePage, PageWidth, Stretch };

}  // namespace

PagePreview::PagePreview(const PageDocument& document, QWidget* parent)
    : QWidget(parent), document_(document) {
  setAutoFillBackground(true);
  QPalette p = palette();
  p.setColor(QPalette::Window, QColor(0x80, 0x80, 0x80));
  setPalette(p);
}

QSizeF PagePreview::page_size(QSize view) const {
  const double w = document_.PageWidth, h = document_.PageHeight;
  const double room_w = view.width() - 2 * kGap, room_h = view.height() - 2 * kGap;
  switch (mode) {
    case Thumbnail:
      return QSizeF(w, h) * (std::max(40.0, room_w / 4 - kGap) / w);
    case TwoPages: {
      const double f = std::min((room_w - kGap) / 2 / w, room_h / h);
      return QSizeF(w, h) * std::max(f, 0.01);
    }
    case WholePage:
      return QSizeF(w, h) * std::max(std::min(room_w / w, room_h / h), 0.01);
    case PageWidth:
      return QSizeF(w, h) * std::max(room_w / w, 0.01);
    case Stretch:
      return QSizeF(std::max(room_w, 10.0), std::max(room_h, 10.0));
    default:
      return QSizeF(w, h) * (document_.Zoom / 100.0 / kTwipsPerPixel);
  }
}

void PagePreview::lay_out(QSize view) {
  view_ = view;
  const QSizeF page = page_size(view);
  const int pages = document_.PageCount();
  QSize size(static_cast<int>(page.width()) + 2 * kGap, static_cast<int>(page.height()) + 2 * kGap);
  if (mode == TwoPages) size.setWidth(2 * static_cast<int>(page.width()) + 3 * kGap);
  if (mode == Thumbnail) {
    const int per_row = 4;
    const int rows = (pages + per_row - 1) / per_row;
    size = QSize(per_row * (static_cast<int>(page.width()) + kGap) + kGap,
                 std::max(1, rows) * (static_cast<int>(page.height()) + kGap) + kGap);
  }
  resize(size.expandedTo(view));
  update();
}

void PagePreview::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QSizeF page = page_size(view_);
  const int count = document_.PageCount();
  const int first = std::clamp(document_.PreviewPage, 1, std::max(1, count));
  // The pages shown: one, two from the current one, or all of them as thumbnails.
  std::vector<std::pair<int, QPointF>> shown;
  if (mode == Thumbnail) {
    for (int i = 0; i < count; ++i)
      shown.emplace_back(i + 1, QPointF(kGap + (i % 4) * (page.width() + kGap),
                                        kGap + (i / 4) * (page.height() + kGap)));
  } else {
    // Centred across the width the pages leave.
    const double used = mode == TwoPages ? 2 * page.width() + kGap : page.width();
    const double left = std::max<double>(kGap, (width() - used) / 2);
    shown.emplace_back(first, QPointF(left, kGap));
    if (mode == TwoPages && first + 1 <= count)
      shown.emplace_back(first + 1, QPointF(left + kGap + page.width(), kGap));
  }
  for (const auto& [number, at] : shown) {
    const QRectF sheet(at, page);
    painter.fillRect(sheet.translated(3, 3), QColor(0x50, 0x50, 0x50));
    if (physical_page) {
      paint_page(document_, number - 1, painter, sheet);
    } else {
      // The printed area alone: the sheet less its margins.
      const double f = page.width() / document_.PageWidth;
      const QRectF area = sheet.adjusted(document_.MarginLeft * f, document_.MarginTop * f,
                                         -document_.MarginRight * f, -document_.MarginBottom * f);
      painter.fillRect(sheet, QColor(0xA0, 0xA0, 0xA0));
      painter.save();
      painter.setClipRect(area);
      paint_page(document_, number - 1, painter, sheet);
      painter.restore();
    }
    if (show_guides) {
      const double f = page.width() / document_.PageWidth;
      painter.setPen(QPen(QColor(0, 0, 0xC0), 1, Qt::DashLine));
      painter.setBrush(Qt::NoBrush);
      painter.drawRect(sheet.adjusted(document_.MarginLeft * f, document_.MarginTop * f,
                                      -document_.MarginRight * f, -document_.MarginBottom * f));
    }
  }
}

PrintWidget::PrintWidget(PrintTab& tab, PageDocument& document, QWidget* parent)
    : QWidget(parent), tab_(tab), document_(document) {
  setObjectName(QStringLiteral("PrintBilog"));
  auto* controls = new QWidget;
  auto* form = new QFormLayout(controls);
  percent_ = new QComboBox;
  percent_->setObjectName(QStringLiteral("cmbPercent"));
  percent_->setToolTip(QStringLiteral("Zoom"));
  for (int i = 0; i < tab.cmbPercent.ListCount(); ++i) percent_->addItem(q(tab.cmbPercent.List(i)));
  mode_ = new QComboBox;
  mode_->setObjectName(QStringLiteral("cmbZoomMode"));
  mode_->setToolTip(QStringLiteral("Secect presentation mode"));
  for (int i = 0; i < tab.cmbZoomMode.ListCount(); ++i) mode_->addItem(q(tab.cmbZoomMode.List(i)));
  page_ = new QScrollBar(Qt::Horizontal);
  page_->setObjectName(QStringLiteral("scrlpage"));
  page_->setMinimum(1);
  page_label_ = new QLabel;
  page_label_->setObjectName(QStringLiteral("lblpage"));
  copies_ = new QLineEdit;
  copies_->setObjectName(QStringLiteral("Text23"));
  copies_->setToolTip(QStringLiteral("Enter number of copies"));
  physical_ = new QCheckBox(q(tab.chkPhysicalPage.Caption));
  guides_ = new QCheckBox(q(tab.chkShowGuides.Caption));
  first_page_ = new QCheckBox(q(tab.First_page.Caption));
  fonts_ = new QComboBox;
  fonts_->setObjectName(QStringLiteral("ListePolices"));
  print_ = new QPushButton(QStringLiteral("&Print"));
  print_->setObjectName(QStringLiteral("cmdPrint"));
  auto* page_setup = new QPushButton(QStringLiteral("Page setup"));
  page_setup->setObjectName(QStringLiteral("cmdPageSetup"));
  auto* printer_setup = new QPushButton(QStringLiteral("Printer setup"));
  printer_setup->setObjectName(QStringLiteral("cmdPrinterSetup"));
  form->addRow(QStringLiteral("Zoom"), percent_);
  form->addRow(mode_);
  form->addRow(page_);
  form->addRow(page_label_);
  form->addRow(q(tab.Label10.Caption), copies_);
  form->addRow(physical_);
  form->addRow(guides_);
  form->addRow(first_page_);
  form->addRow(fonts_);
  form->addRow(print_);
  form->addRow(page_setup);
  form->addRow(printer_setup);
  const auto out = [this, form](const char* name, const QString& caption,
                                std::function<void()> PrintWidget::*hook) {
    auto* b = new QPushButton(caption);
    b->setObjectName(QLatin1String(name));
    connect(b, &QPushButton::clicked, this, [this, hook] {
      if (this->*hook) run(this->*hook);
    });
    form->addRow(b);
  };
  out("Record_WMF", QStringLiteral("Record picture (SVG)"), &PrintWidget::record_picture);
  out("Command21", QStringLiteral("Copy the page"), &PrintWidget::copy_page);
  out("SavePdf", QStringLiteral("Save as PDF"), &PrintWidget::save_pdf);
  out("Command24", QStringLiteral("Graphical program"), &PrintWidget::graphical_program);
  paper_ = new QLabel;
  paper_->setObjectName(QStringLiteral("Label18"));
  form->addRow(paper_);
  controls->setFixedWidth(170);

  preview_ = new PagePreview(document_);
  scroll_ = new QScrollArea;
  scroll_->setWidget(preview_);
  scroll_->setAlignment(Qt::AlignHCenter);
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(controls, 0, Qt::AlignTop);
  layout->addWidget(scroll_, 1);

  connect(percent_, &QComboBox::activated, this, [this](int i) {
    run([this, i] {
      tab_.cmbPercent.ListIndex(i);
      tab_.cmbPercent_Click();
    });
  });
  connect(mode_, &QComboBox::activated, this, [this](int i) {
    run([this, i] {
      tab_.cmbZoomMode.ListIndex(i);
      tab_.cmbZoomMode_Click();
    });
  });
  connect(page_, &QScrollBar::valueChanged, this, [this](int v) {
    if (!refreshing_) run([this, v] { tab_.scrlpage_Change(v); });
  });
  connect(copies_, &QLineEdit::textEdited, this,
          [this](const QString& t) { tab_.Text23.Text = t.toStdString(); });
  const auto box = [this](QCheckBox* b, CheckBox& model) {
    connect(b, &QCheckBox::toggled, this, [this, &model](bool on) {
      if (!refreshing_) run([&model, on] { model.Value = on ? 1 : 0; });
    });
  };
  box(physical_, tab_.chkPhysicalPage);
  box(guides_, tab_.chkShowGuides);
  box(first_page_, tab_.First_page);
  connect(fonts_, &QComboBox::activated, this, [this](int i) {
    run([this, i] {
      tab_.ListePolices.ListIndex(i);
      tab_.ListePolices_Click();
    });
  });
  connect(print_, &QPushButton::clicked, this, [this] { run([this] { tab_.cmdPrint_Click(); }); });
  connect(page_setup, &QPushButton::clicked, this,
          [this] { run([this] { tab_.cmdPageSetup_Click(); }); });
  connect(printer_setup, &QPushButton::clicked, this,
          [this] { run([this] { tab_.cmdPrinterSetup_Click(); }); });

  tab_.font_names = [] {
    std::vector<std::string> names;
    for (const QString& family : QFontDatabase::families()) names.push_back(family.toStdString());
    return names;
  };
  tab_.print_pages = [this](int from, int to) { return print(from, to); };
  tab_.paper = [this] {
    const QRectF sheet = printer_->pageLayout().fullRect(QPageLayout::Point);
    return std::pair<double, double>(sheet.width() * 20, sheet.height() * 20);
  };
  tab_.print_dialog = [this](int kind) { setup(kind); };
  refresh();
}

void PrintWidget::run(const std::function<void()>& action) {
  action();
  refresh();
  if (on_changed) on_changed();
}

int PrintWidget::print(int from, int to) {
  if (print_pages(document_, *printer_, from, to)) return 0;
  const QPageLayout sheet = printer_->pageLayout();
  printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  printer_->setPageLayout(sheet);
  return 1;
}

// The dialog works on the printer, with the report's margins; the page document takes the sheet
// and the margins it leaves.
void PrintWidget::setup(int kind) {
  constexpr double kTwipsPerPoint = 20, kTwipsPerMm = 56.7;
  printer_->setPageMargins(QMarginsF(document_.MarginLeft, document_.MarginTop,
                                     document_.MarginRight, document_.MarginBottom) /
                               kTwipsPerMm,
                           QPageLayout::Millimeter);
  if (kind == 1) {
    QPageSetupDialog dialog(printer_.get(), this);
    if (dialog.exec() != QDialog::Accepted) return;
  } else {
    QPrintDialog dialog(printer_.get(), this);
    if (dialog.exec() != QDialog::Accepted) return;
  }
  const QRectF sheet = printer_->pageLayout().fullRect(QPageLayout::Point);
  document_.PageWidth = sheet.width() * kTwipsPerPoint;
  document_.PageHeight = sheet.height() * kTwipsPerPoint;
  // The printer keeps margins to its own grain (whole points): a margin the user did not change
  // comes back within half a point and stays as it was.
  const QMarginsF m = printer_->pageLayout().margins(QPageLayout::Millimeter) * kTwipsPerMm;
  const auto take = [](double& margin, double given) {
    if (std::abs(given - margin) > 11) margin = given;
  };
  take(document_.MarginLeft, m.left());
  take(document_.MarginTop, m.top());
  take(document_.MarginRight, m.right());
  take(document_.MarginBottom, m.bottom());
}

void PrintWidget::refresh() {
  refreshing_ = true;
  percent_->setCurrentIndex(tab_.cmbPercent.ListIndex());
  percent_->setEnabled(tab_.cmbPercent_Enabled);
  mode_->setCurrentIndex(tab_.cmbZoomMode.ListIndex());
  page_->setMaximum(tab_.scrlpage_Max);
  page_->setValue(document_.PreviewPage);
  page_->setPageStep(1);
  page_label_->setText(q(tab_.lblpage.Caption));
  paper_->setText(q(tab_.Label18.Caption));
  if (copies_->text().toStdString() != tab_.Text23.Text) copies_->setText(q(tab_.Text23.Text));
  physical_->setChecked(tab_.chkPhysicalPage.Value == 1);
  guides_->setChecked(tab_.chkShowGuides.Value == 1);
  first_page_->setChecked(tab_.First_page.Value == 1);
  if (fonts_->count() != tab_.ListePolices.ListCount()) {
    fonts_->clear();
    for (int i = 0; i < tab_.ListePolices.ListCount(); ++i)
      fonts_->addItem(q(tab_.ListePolices.List(i)));
  }
  fonts_->setCurrentText(q(document_.DefaultFont.name));
  preview_->mode = tab_.ZoomMode;
  preview_->physical_page = tab_.chkPhysicalPage.Value == 1;
  preview_->show_guides = tab_.chkShowGuides.Value == 1;
  preview_->lay_out(scroll_->viewport()->size());
  refreshing_ = false;
}

void PrintWidget::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  preview_->lay_out(scroll_->viewport()->size());
}

}  // namespace tellux
