// The main window's parts take their share of the window as the old form gave them.
#include <QLayout>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>

#include "gui/main_window.h"

namespace tellux {

// The parts take their share of the window as the old form gave them, in twips of 15 to the
// pixel: the tabs 0.97 of the width and 0.89 of the height, the diagram 0.98 and 0.87 of the tabs.
void MainWindow::apply_layout() {
  const int w = width() * kTwipsPerPixel, h = height() * kTwipsPerPixel;
  const MainLayout l = main_layout(w, h);
  QWidget* central = centralWidget();
  const int tab_w = std::min(l.tab_width / kTwipsPerPixel, central->width());
  const int tab_h = std::min(l.tab_height / kTwipsPerPixel, central->height() - 2);
  tabs_->setGeometry((central->width() - tab_w) / 2, 2, tab_w, tab_h);

  const int bar = tabs_->tabBar()->sizeHint().height();
  const int page_h = tab_h - bar - 4;
  // The model window, docked where the screen had no room beside, takes the diagram's right edge.
  const bool docked = model_view_ && model_view_->docked() && model_view_->isVisible();
  if (docked) model_view_->layout()->activate();
  const int dock_w = docked ? model_view_->sizeHint().width() : 0;
  const int bilog_w =
      std::min(l.bilog_width / kTwipsPerPixel, tab_w - 4 - (docked ? dock_w + 6 : 0));
  const int status_h = text1_->sizeHint().height();
  const int bilog_h = std::min(l.bilog_height / kTwipsPerPixel, page_h - status_h - 10);
  const int x = docked ? 2 : std::max(0, (tab_w - 4 - bilog_w) / 2);
  bilog_->setGeometry(x, 4, bilog_w, bilog_h);
  if (docked) model_view_->setGeometry(x + bilog_w + 6, 4, dock_w, page_h - 8);
  const int y = 4 + bilog_h + 4;
  const int text1_w = bilog_w * 34 / 100, name_w = bilog_w * 36 / 100, text3_w = bilog_w * 12 / 100;
  const int gap = 4;
  text1_->setGeometry(x, y, text1_w - gap, status_h);
  name_box_->setGeometry(x + text1_w, y, name_w - gap, status_h);
  text3_->setGeometry(x + text1_w + name_w, y, text3_w - gap, status_h);
  text4_->setGeometry(x + text1_w + name_w + text3_w, y, bilog_w - text1_w - name_w - text3_w,
                      status_h);

  if (!loaded_) return;
  bilog_->fit_surface();
  app_.main.Form_Resize(w, h);
  bilog_->update();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  apply_layout();
}

}  // namespace tellux
