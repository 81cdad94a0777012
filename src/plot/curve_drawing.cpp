#include "plot/curve_drawing.h"

#include "core/runtime/discipline.h"
#include "core/runtime/errors.h"
#include "model/forward.h"
#include "plot/bilog_scale.h"

namespace tellux {

namespace {

enum class Target { Screen, Page, Printer };

Target target_of(const std::string& work_mode) {
  if (work_mode == mode::kPreview) return Target::Page;
  if (work_mode == mode::kPrinter) return Target::Printer;
  return Target::Screen;
}

float f(double v) { return static_cast<float>(v); }

// A routine whose handler shows its message and resumes at the next statement: each statement
// runs through this, so a failure may show more than once in a run.
class TrapNext {
 public:
  TrapNext(Session& session, const char* french, const char* spanish, const char* english)
      : session_(session), text_(session.text(french, spanish, english)) {}
  template <typename Statement>
  void operator()(Statement&& statement) {
    try {
      statement();
    } catch (const rt::RuntimeError&) {
      session_.tell(text_);
    }
  }

 private:
  Session& session_;
  std::string text_;
};

// One stroke point by point, in logical coordinates (logarithms), on the surface of the mode:
// `start` begins a stroke (a point, or on the page a line of no length), `to` continues it.
class Stroke {
 public:
  Stroke(const SoundingState& s, const BilogSurfaces& surfaces, Target target)
      : s_(s), target_(target) {
    surface_ = target == Target::Printer ? surfaces.printer : surfaces.screen;
    page_ = surfaces.page;
  }
  Target target() const { return target_; }
  DrawingSurface* surface() const { return target_ == Target::Page ? nullptr : surface_; }
  PageSurface* page() const { return target_ == Target::Page ? page_ : nullptr; }

  void start(double x, double y, int32_t colour) {
    if (PageSurface* p = page()) {
      const double px = page_x(s_, x), py = page_y(s_, y);
      p->DrawLine(px, py, px, py);
    } else if (DrawingSurface* d = surface()) {
      d->PSet(f(x), f(y), colour);
    }
  }
  void to(double x, double y, int32_t colour) {
    if (PageSurface* p = page()) {
      p->DrawLine(page_x(s_, x), page_y(s_, y));
    } else if (DrawingSurface* d = surface()) {
      d->LineTo(f(x), f(y), colour);
    }
  }
  // A point of a polyline: a start when `first`, else a continuation.
  void point(bool first, double x, double y, int32_t colour) {
    if (first) {
      start(x, y, colour);
    } else {
      to(x, y, colour);
    }
  }

 private:
  const SoundingState& s_;
  Target target_;
  DrawingSurface* surface_ = nullptr;
  PageSurface* page_ = nullptr;
};

// On the screen a mode other than "NORMAL" draws in the palette entry, whatever the options say
// (only entry 0, black, is ever chosen).
int32_t screen_colour(const SoundingState& s, int32_t colour) {
  return s.WorkMode == mode::kNormal ? colour : palette_colour(s.OverlayColourIndex);
}

}  // namespace

void DrawCurveSegment(Session& session, const BilogSurfaces& surfaces, int16_t point,
                      double value) {
  SoundingState& s = session.s;
  TrapNext run(session, "Erreur lors du tracé de la courbe", " Error al trazar curva",
               " Error occurs while Drawing Curve");
  int32_t colour = 0;
  double x = 0.0, y = 0.0;
  run([&] { colour = s.ColourGrid ? s.CurveColour : s.SuperposedColour; });
  run([&] {
    if (value > 0) y = draw_log(value);
  });
  // The abscissa comes from the sample number, not from the spacing: no sample may be skipped.
  x = (point - 1) * 0.125 + s.DecadeStart;
  if (!(x >= s.DecadeStart && x < s.DecadeEnd && y >= s.RhoDecadeStart && y < s.RhoDecadeEnd)) {
    s.FirstPoint = true;  // the curve starts anew where it comes back into the frame
    return;
  }
  Stroke stroke(s, surfaces, target_of(s.WorkMode));
  switch (stroke.target()) {
    case Target::Screen:
      if (DrawingSurface* d = stroke.surface()) {
        run([&] { d->DrawWidth(1); });
        run([&] { stroke.point(s.FirstPoint, x, y, screen_colour(s, colour)); });
      }
      break;
    case Target::Page:
      if (PageSurface* p = stroke.page()) {
        run([&] { p->PenColor(colour); });
        run([&] { stroke.point(s.FirstPoint, x, y, colour); });
      }
      break;
    case Target::Printer:
      run([&] { stroke.point(s.FirstPoint, x, y, colour); });
      break;
  }
  s.FirstPoint = false;
}

void DrawModelSteps(Session& session, const BilogSurfaces& surfaces) {
  SoundingState& s = session.s;
  const LayerTableT& model = s.WorkMode == mode::kSuperpose ? s.OverlayModel : s.LayerModel;
  Stroke stroke(s, surfaces, target_of(s.WorkMode));
  const bool on_page = stroke.target() == Target::Page;
  using rt::skip;

  int32_t colour = 0;
  skip([&] { colour = s.ColourGrid ? s.ModelColour : s.SuperposedColour; });
  double D = 0.0;
  double S = s.DecadeStart;  // abscissa where a stroke starts
  s.FirstPoint = true;
  for (int i = 1; i <= 20; ++i) {
    double R = 0.0, R2 = 0.0;
    skip([&] { R = model(i, 1).num(); });
    skip([&] { D = D + model(i, 2).num(); });
    skip([&] { R2 = model(i + 1, 1).num(); });
    double Rc = R;
    if (D >= s.AB2min && (!s.FirstPoint || (R2 >= s.RHOmin && R2 <= s.RHOmax))) {
      // The vertical run ends just outside a limit, so that the test below sees it outside.
      if (R2 < s.RHOmin) R2 = s.RHOmin - 0.001;
      if (R2 > s.RHOmax) R2 = s.RHOmax + 0.001;
      if (R < s.RHOmin) {
        Rc = s.RHOmin;
        skip([&] { S = draw_log(D); });
        R = Rc;
      }
      if (R > s.RHOmax) {
        Rc = s.RHOmax;
        skip([&] { S = draw_log(D); });
        R = Rc;
      }
      if (D > s.AB2max) D = s.AB2max;
      if (on_page && stroke.page()) skip([&] { stroke.page()->PenColor(colour); });
      if (s.FirstPoint) {
        skip([&] { stroke.start(S, draw_log(Rc), colour); });
        s.FirstPoint = false;
      }
      skip([&] { stroke.to(draw_log(D), draw_log(R), colour); });
      // On the page a row counts as having a thickness when either model table gives it one, so
      // a superposed model left behind can carry the staircase on: required as it is.
      bool next_has_thickness = false;
      skip([&] {
        next_has_thickness =
            model(i + 1, 2).num() > 0 || (on_page && s.OverlayModel(i + 1, 2).num() > 0);
      });
      skip([&] { stroke.to(draw_log(D), draw_log(R2), colour); });
      if (!next_has_thickness) {
        // The half space runs to the right edge, and the staircase ends.
        skip([&] { stroke.to(s.DecadeEnd, draw_log(R2), colour); });
        return;
      }
    }
    if (R2 > s.RHOmax || R2 < s.RHOmin) s.FirstPoint = true;  // left the frame: a new stroke
  }
  if (DrawingSurface* d = stroke.surface()) skip([&] { d->DrawWidth(1); });
}

void DrawErrorCurve(Session& session, const BilogSurfaces& surfaces) {
  SoundingState& s = session.s;
  compute_deviations(s);

  TrapNext run(session, "Erreur lors du tracé des RMS", " Error al trazar los errores de ajuste",
               " Error occurs while drawing RMS");
  Stroke stroke(s, surfaces, target_of(s.WorkMode));
  s.FirstPoint = true;
  int32_t colour = 0;
  run([&] { colour = s.ColourGrid ? s.ErrorColour : s.SuperposedColour; });
  // 1% lies on the bottom edge, 10% one decade above, 100% two decades above.
  double x = 0.0, y = 0.0;
  for (int n = 1; n <= field_rows(s); ++n) {
    run([&] {
      if (s.ModelCurve(n, 3).num() > 0) y = draw_log(s.ModelCurve(n, 3).num()) + s.RhoDecadeStart;
    });
    run([&] {
      if (s.FieldTable(n, 1).num() > 0) x = draw_log(s.FieldTable(n, 1).num());
    });
    if (!(x >= s.DecadeStart && x < s.DecadeEnd)) {
      s.FirstPoint = true;
      continue;
    }
    if (y < s.RhoDecadeStart) y = s.RhoDecadeStart;  // below 1% on the bottom edge
    switch (stroke.target()) {
      case Target::Screen:
        if (DrawingSurface* d = stroke.surface()) {
          run([&] { d->DrawWidth(1); });
          run([&] { stroke.point(s.FirstPoint, x, y, screen_colour(s, colour)); });
        }
        break;
      case Target::Page:
        if (PageSurface* p = stroke.page()) {
          run([&] { p->PenWidth(10); });
          run([&] { p->PenColor(colour); });
          run([&] { stroke.point(s.FirstPoint, x, y, colour); });
          run([&] { p->PenWidth(18); });  // the width of the report's curves
        }
        break;
      case Target::Printer:
        run([&] { stroke.point(s.FirstPoint, x, y, colour); });
        break;
    }
    s.FirstPoint = false;
  }
  // A count past the table's end meets its bound once, and says so once.
  if (s.FieldCount > kLastFieldRow) run([] { rt::raise(rt::kSubscript); });
}

}  // namespace tellux
