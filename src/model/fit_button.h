#pragma once
// The fit button of the model window (`Ajuste_Button`): checks that there is something to fit,
// offers the automatic model when the grid holds none, then computes the curve and fits it. The
// window's own routines that the button calls come in through `ModelWindowActions`, so that the
// flow stands apart from the window that shows it.
#include <string>

#include "core/session.h"
#include "platform/grid_model.h"

namespace tellux {

// Routines of the model window that the fit button calls.
class ModelWindowActions {
 public:
  virtual ~ModelWindowActions() = default;
  // The sounding's name shown in the main window's name box (nothing for a "NEW" sounding).
  virtual void show_sounding_name() = 0;
  // `Grid1` read into `LayerModel`.
  virtual void ReadModelGrid() = 0;
  // `LayerCount`, depths and altitudes worked out from `LayerModel`.
  virtual void ComputeDepths() = 0;
  // With the overlay box ticked: the model in work joins the store of superposed models.
  virtual void update_overlay_store() = 0;
  // The status box `Text3` of the main window gets the word that tells the splice shift is on.
  virtual void show_shift_word(const std::string& word) = 0;
  // The empty bilog frame is drawn again.
  virtual void redraw_bilog_frame() = 0;
};

// The click of `Ajuste_Button`. `grid1` is the model grid: row 1 holds the first layer, column 0
// its resistivity and column 1 its thickness.
void Ajuste_Button_Click(Session& session, GridModel& grid1, ModelWindowActions& window);

}  // namespace tellux
