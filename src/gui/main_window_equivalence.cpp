// The main window's part of the equivalence analysis: the window, then the diagram again with
// the band of the equivalent models.
#include "gui/equivalence_dialog.h"
#include "gui/main_window.h"

namespace tellux {

void MainWindow::show_equivalence() {
  show_equivalence_dialog(app_.session, this, [this] {
    if (app_.main.compute_model) app_.main.compute_model();
    refresh();
  });
}

}  // namespace tellux
