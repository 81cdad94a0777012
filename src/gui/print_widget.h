#pragma once
// The tab "Print Bilog" on the screen: the preview of the report's pages beside its controls
// (zoom, zoom mode, page, copies, physical page, guides, first page only, font, print, page setup,
// printer setup). The preview paints the page document exactly as the printer does.
#include <QPrinter>
#include <QWidget>
#include <functional>
#include <memory>

#include "app/print_tab.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QScrollBar;

namespace tellux {

// The pages of a document as the zoom mode shows them.
class PagePreview : public QWidget {
 public:
  PagePreview(const PageDocument& document, QWidget* parent = nullptr);
  int mode = 0;  // the index of the zoom mode list
  bool physical_page = true, show_guides = false;
  // The size the pages take for a viewport of `view`.
  void lay_out(QSize view);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSizeF page_size(QSize view) const;
  const PageDocument& document_;
  QSize view_;
};

class PrintWidget : public QWidget {
 public:
  PrintWidget(PrintTab& tab, PageDocument& document, QWidget* parent = nullptr);

  // Shows the models again, and the pages.
  void refresh();
  QComboBox* percent_box() const { return percent_; }
  QComboBox* mode_box() const { return mode_; }
  QPushButton* print_button() const { return print_; }
  QLabel* page_label() const { return page_label_; }
  PagePreview* preview() const { return preview_; }
  QPrinter& printer() { return *printer_; }

  std::function<void()> on_changed;
  // The buttons that send the page out: a picture file, the clipboard, a PDF.
  std::function<void()> record_picture, copy_page, save_pdf, graphical_program;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void run(const std::function<void()>& action);
  // 0 when the pages went out; else 1, and the printer that could not begin is replaced by a
  // fresh one on the same sheet, so that the next setup and print start clean.
  int print(int from, int to);
  void setup(int kind);

  PrintTab& tab_;
  PageDocument& document_;
  std::unique_ptr<QPrinter> printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  QComboBox *percent_, *mode_, *fonts_;
  QScrollBar* page_;
  QLabel *page_label_, *paper_;
  QLineEdit* copies_;
  QCheckBox *physical_, *guides_, *first_page_;
  QPushButton* print_;
  QScrollArea* scroll_;
  PagePreview* preview_;
  bool refreshing_ = false;
};

}  // namespace tellux
