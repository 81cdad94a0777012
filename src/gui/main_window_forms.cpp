// The window calls of the program's logic (`Forms`): caption, pointers, tabs, recent files,
// repaints and the sheet, answered by the main window's widgets.
#include <QApplication>
#include <QLineEdit>

#include "gui/grid_view.h"
#include "gui/main_window.h"
#include "gui/sheet_widget.h"

namespace tellux {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

// A recent-file caption keeps its "&1" key; an ampersand of the path is shown as it is.
QString menu_caption(const std::string& caption) {
  QString text = q(caption);
  if (text.size() > 3) text = text.left(3) + text.mid(3).replace(QLatin1Char('&'), "&&");
  return text;
}

}  // namespace

void MainWindow::wire_forms() {
  forms_.on_caption = [this](const std::string& caption) { setWindowTitle(q(caption)); };
  forms_.on_pointer = [this](PointerTarget target, int shape) {
    switch (target) {
      case PointerTarget::Bilog:
        bilog_->set_pointer(shape);
        break;
      case PointerTarget::MainForm:
        setCursor(shape == kPointerHourglass ? Qt::WaitCursor : Qt::ArrowCursor);
        break;
      case PointerTarget::Screen:
        set_screen_pointer(shape);
        break;
    }
  };
  forms_.on_select_tab = [this](int index) { tabs_->setCurrentIndex(index); };
  forms_.on_current_tab = [this] { return tabs_->currentIndex(); };
  forms_.on_recent_caption = [this](int slot, const std::string& caption) {
    if (slot < 1 || slot > 5) return;
    QAction* entry = recent_[static_cast<size_t>(slot)];
    entry->setText(menu_caption(caption));
    // An entry without a path ("&1 ") is not listed.
    entry->setVisible(caption.find_first_not_of(' ', 3) != std::string::npos);
  };
  forms_.on_repaint = [this] { refresh(); };
  forms_.on_fill_sheet = [this] {
    app_.sheet.refill();
    sheet_->refresh();
  };
  forms_.on_redraw_bilog_frame = [this] {
    app_.main.draw_empty_frame();
    bilog_->update();
  };
  forms_.on_show_sounding_alone = [this] {
    app_.main.show_sounding_alone();
    refresh();
  };
  forms_.on_focus_field_sheet = [this] { sheet_->grid()->setFocus(); };
  forms_.on_beep = [] { QApplication::beep(); };
  forms_.on_hint = [this](const std::string& hint) {
    app_.main.Text1.Text = hint;
    text1_->setText(q(hint));
    text1_->setCursorPosition(0);
  };
}

void MainWindow::show_model_window() { forms_.show_model_window(); }

void MainWindow::set_screen_pointer(int shape) {
  if (shape == kPointerHourglass && !screen_busy_) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    screen_busy_ = true;
  } else if (shape != kPointerHourglass && screen_busy_) {
    QApplication::restoreOverrideCursor();
    screen_busy_ = false;
  }
}

}  // namespace tellux
