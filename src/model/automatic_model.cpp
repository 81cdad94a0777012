#include "model/automatic_model.h"

#include <cmath>

#include "core/runtime/arithmetic.h"

namespace tellux {

namespace {

// The thickness of a layer under the Wenner array is three times what the same spacings give
// under Schlumberger: "a" spans a third of the whole spread.
constexpr double kWennerFactor = 3.0;
// A new interface sits at 0.8 times the spacing where the slope turned.
constexpr double kInterfaceFactor = 0.8;
// The last field point must lie within this log distance of the deepest layer, or a last layer is
// added to reach it.
constexpr double kEndTolerance = 0.2;

// value x factor in the precision of the cell, kept in the cell's kind: a single stays single.
Cell scaled(const Cell& c, double factor) {
  if (c.kind() == rt::Kind::Single) return Cell(static_cast<float>(c.times(factor)));
  return Cell(c.times(factor));
}

class Builder {
 public:
  explicit Builder(SoundingState& s) : s_(s), wenner_(s.Spread == SpreadType::Wenner) {}

  void run() {
    clear_model();
    auto& slope = s_.FieldSlopes;
    slope[1] = rt::CSng(
        rt::Div(rt::Log(F(2, 2)) - rt::Log(F(1, 2)), rt::Log(F(2, 1)) - rt::Log(F(1, 1) + 0.001)));
    slope[0] = slope[1];

    s_.LayerCount = 1;
    s_.LayerModel(1, 1) = s_.FieldTable(1, 2);
    s_.LayerModel(1, 2) = s_.FieldTable(1, 1);
    if (wenner_) s_.LayerModel(1, 2) = scaled(s_.LayerModel(1, 2), kWennerFactor);

    for (int i = 2; i <= s_.FieldCount - 1; ++i) {
      if (F(i + 1, 1) == F(i, 1)) {
        // Two readings at one spacing (a splice): the slopes shift and no layer is tested here.
        slope[i] = slope[i - 1];
        slope[i - 1] = slope[i - 2];
        continue;
      }
      slope[i] = rt::CSng(
          rt::Div(rt::Log(rt::Div(F(i + 1, 2), F(i, 2))), rt::Log(rt::Div(F(i + 1, 1), F(i, 1)))));
      const float s0 = slope[i - 2];
      const float s1 = slope[i - 1];
      const float s2 = slope[i];
      const bool flat = std::fabs(s0) > std::fabs(s1) && std::fabs(s2) > std::fabs(s1);
      const bool turn = s0 * s2 < 0.0f;
      const bool jump = std::fabs(s0 - s2) > s_.ModelSensitivity;
      if (flat && (turn || jump)) open_layer_at(i - 1);
    }

    const int last = s_.FieldCount;
    if (std::fabs(rt::Log(rt::Div(s_.LayerModel(s_.LayerCount, 1).num(), F(last, 2)))) >
        kEndTolerance)
      add_last_layer(last);

    s_.WorkMode = mode::kAutomatic;
    s_.LayerModel(s_.LayerCount, 2) = int16_t{0};  // the last layer is the half space
  }

 private:
  double F(int row, int col) const { return s_.FieldTable(row, col).num(); }

  void clear_model() {
    for (int r = 1; r <= 20; ++r) {
      s_.LayerModel(r, 1) = int16_t{0};
      s_.LayerModel(r, 2) = int16_t{0};
      s_.LayerLocks[r] = 0;
    }
  }

  // A new layer with the resistivity of field row `row`. Its thickness is measured from the
  // thickness of the layer above only, not from the depth of its base; that is how the first model
  // is meant to come out.
  void open_layer_at(int row) {
    const int n = ++s_.LayerCount;
    s_.LayerModel(n, 1) = s_.FieldTable(row, 2);
    double h = std::fabs(kInterfaceFactor * F(row, 1) - s_.LayerModel(n - 1, 2).num());
    if (wenner_) h *= kWennerFactor;
    s_.LayerModel(n, 2) = h;
  }

  // A last layer that reaches the last field point, its resistivity pushed by the final slope.
  void add_last_layer(int last) {
    const int n = ++s_.LayerCount;
    const float p = rt::CSng(s_.FieldSlopes[last - 1] * 3.0 + 5.0);
    double rho = rt::Int(p * F(last, 2) / 5.0);
    if (rho < 0.001) rho = 0.001;
    s_.LayerModel(n, 1) = rho;
    s_.LayerModel(n, 2) = s_.FieldTable(last, 1);
    if (wenner_) s_.LayerModel(n, 2) = scaled(s_.LayerModel(n, 2), kWennerFactor);
  }

  SoundingState& s_;
  bool wenner_;
};

void set_pointers(Session& session, int bilog, int main_form) {
  session.forms.set_pointer(PointerTarget::Bilog, bilog);
  session.forms.set_pointer(PointerTarget::MainForm, main_form);
}

}  // namespace

void AutomaticModel(Session& session) {
  set_pointers(session, kPointerHourglass, kPointerHourglass);
  try {
    Builder(session.s).run();
  } catch (const rt::RuntimeError&) {
    session.tell(session.text("Création du modèle automatique impossible...",
                              "Creación automática del modelo imposible...",
                              "Automatic model impossible..."));
  }
  set_pointers(session, kPointerCross, kPointerArrow);
}

}  // namespace tellux
