#pragma once
// How the forward calculation hands its work to the diagram without knowing about drawing: the
// caller routes these calls to the screen, the page or the printer by work mode.
namespace tellux {

class CurveObserver {
 public:
  virtual ~CurveObserver() = default;
  // Mouse pointer of the diagram (hourglass 11 while computing, cross 2 when ready).
  virtual void set_pointer(int /*shape*/) {}
  // One sample of the computed curve, `point` counted from 1, before it is stored.
  virtual void segment(int /*point*/, double /*value*/) {}
  // The whole-diagram drawings at the end of a run, as the diagram's options ask.
  virtual void error_curve() {}
  virtual void model_steps() {}
};

}  // namespace tellux
