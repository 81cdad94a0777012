#pragma once
// The diagram as the forward calculation sees it: it receives the calculation's calls and draws
// them with the curve routines, which pick the screen, the page or the printer by work mode.
#include "core/session.h"
#include "platform/curve_observer.h"
#include "plot/curve_drawing.h"

namespace tellux {

class BilogDrawing : public CurveObserver {
 public:
  BilogDrawing(Session& session, BilogSurfaces on) : surfaces(on), session_(session) {}

  BilogSurfaces surfaces;  // the screen, the page and the printer; may change between drawings

  // Makes this drawing the session's curve observer.
  void attach() { session_.curve = this; }

  void set_pointer(int shape) override;
  void segment(int point, double value) override;
  void error_curve() override;
  void model_steps() override;

 private:
  Session& session_;
};

}  // namespace tellux
