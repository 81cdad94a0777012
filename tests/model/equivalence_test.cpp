// The equivalence analysis on synthetic soundings with 1.5 % noise: a thin conductor is known by
// its conductance, a thin resistor by its transverse resistance; the true model lies in every
// range; every extreme model is equivalent; and an independent search, a random walk of all the
// free parameters from each extreme and from the fitted model, finds nothing 10 % beyond a bound.
#include "model/equivalence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "session_fixture.h"
#include "synthetic_sounding.h"

namespace tellux {
namespace {

using testing::Layer;

class EquivalenceTest : public testing::SessionTest {
 protected:
  void make(const std::vector<Layer>& truth) {
    truth_ = truth;
    s.WorkMode = mode::kFile;
    s.DecadeStart = 0;
    testing::make_sounding(session, truth, testing::typical_spacings(26), 0.015);
  }

  // Random walk of every parameter from `start`, keeping only equivalent models that move the
  // quantity outward; returns the most extreme value it reached.
  double independent_search(const LayerPairs& start, const Extreme& e, double threshold) {
    std::mt19937 random(7);
    std::normal_distribution<double> step(0.0, 1.0);
    LayerPairs m = start;
    double best = quantity_value(m, static_cast<size_t>(e.layer - 1), e.quantity);
    double size = 0.1;
    for (int k = 0; k < 400; ++k, size = std::max(0.005, size * 0.99)) {
      LayerPairs y = m;
      for (size_t i = 0; i < y.size(); ++i) {
        y[i].first = std::clamp(y[i].first * std::exp(size * step(random)), 0.1, 1e5);
        if (i + 1 < y.size())
          y[i].second = std::clamp(y[i].second * std::exp(size * step(random)), 0.1, 1e4);
      }
      const double v = quantity_value(y, static_cast<size_t>(e.layer - 1), e.quantity);
      if ((e.maximum ? v > best : v < best) && equivalence_rms(s, y) <= threshold) m = y, best = v;
    }
    return best;
  }

  void check(const EquivalenceResult& r, Quantity narrow, int layer) {
    ASSERT_EQ(r.ranges.size(), truth_.size());
    EXPECT_LE(r.best_rms + 1.0, r.threshold + 1e-12);
    auto ratio = [&](Quantity q) {
      const auto& range = r.ranges[static_cast<size_t>(layer)][static_cast<size_t>(q)];
      return range.second / range.first;
    };
    for (Quantity q :
         {Quantity::Resistivity, Quantity::Thickness,
          narrow == Quantity::Conductance ? Quantity::TransverseResistance : Quantity::Conductance})
      EXPECT_LT(ratio(narrow), ratio(q)) << quantity_name(q);
    LayerPairs truth;
    for (const Layer& l : truth_) truth.emplace_back(l.rho, l.thickness);
    truth.back().second = 0;
    for (const Extreme& e : r.extremes) {
      const double v = quantity_value(truth, static_cast<size_t>(e.layer - 1), e.quantity);
      EXPECT_TRUE(e.maximum ? v <= e.value * 1.0001 : v >= e.value * 0.9999)
          << quantity_name(e.quantity) << e.layer << " true " << v << " bound " << e.value;
      EXPECT_LE(equivalence_rms(s, e.model), r.threshold);
      EXPECT_NEAR(quantity_value(e.model, static_cast<size_t>(e.layer - 1), e.quantity), e.value,
                  1e-9 * e.value);
      for (const LayerPairs* start : {&e.model, &r.fitted}) {
        const double found = independent_search(*start, e, r.threshold);
        EXPECT_TRUE(e.maximum ? found <= e.value * 1.1 : found >= e.value / 1.1)
            << quantity_name(e.quantity) << e.layer << (e.maximum ? " max " : " min ") << e.value
            << " beaten by " << found;
      }
    }
  }

  std::vector<Layer> truth_;
};

TEST_F(EquivalenceTest, AThinConductorIsKnownByItsConductance) {
  make({{100, 10}, {5, 2}, {100, 0}});
  const EquivalenceResult r = analyse_equivalence(s, {});
  check(r, Quantity::Conductance, 1);
  // The same result on one thread as on two: the analysis is deterministic for its seed.
  EquivalenceOptions one;
  one.jobs = 1;
  const EquivalenceResult single = analyse_equivalence(s, one);
  EXPECT_EQ(single.models_tried, r.models_tried);
  EXPECT_EQ(single.ranges, r.ranges);
}

TEST_F(EquivalenceTest, AThinResistorIsKnownByItsTransverseResistance) {
  make({{10, 5}, {500, 2}, {10, 0}});
  check(analyse_equivalence(s, {}), Quantity::TransverseResistance, 1);
}

// A locked value does not move, and a threshold under the model's RMS searches nothing.
TEST_F(EquivalenceTest, LocksHoldAndATooLowThresholdIsSaid) {
  make({{100, 10}, {5, 2}, {100, 0}});
  s.LayerLocks[2] = 1;
  EquivalenceResult r = analyse_equivalence(s, {});
  EXPECT_DOUBLE_EQ(r.ranges[1][0].first, 5);
  EXPECT_DOUBLE_EQ(r.ranges[1][0].second, 5);
  // Cancelled at the first word of progress: the ranges found so far, said so.
  int calls = 0;
  r = analyse_equivalence(s, {}, [&](int done, int total) {
    EXPECT_LT(done, total);
    return ++calls > 1;
  });
  EXPECT_TRUE(r.cancelled);
  EXPECT_EQ(r.messages.back(), "Cancelled: the ranges are those found so far.");
  EquivalenceOptions low;
  low.threshold = r.best_rms / 2;
  r = analyse_equivalence(s, low);
  ASSERT_EQ(r.messages.size(), 1u);
  EXPECT_EQ(r.ranges[1][1].first, r.ranges[1][1].second);
}

}  // namespace
}  // namespace tellux
