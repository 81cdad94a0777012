#include "model/equivalence.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <memory>
#include <random>
#include <thread>

#include "model/equivalence_walk.h"

namespace tellux {

const char* quantity_name(Quantity q) {
  switch (q) {
    case Quantity::Resistivity:
      return "Resistivity";
    case Quantity::Thickness:
      return "Thickness";
    case Quantity::Conductance:
      return "Conductance";
    case Quantity::TransverseResistance:
      return "TransverseResistance";
  }
  return "";
}

double quantity_value(const LayerPairs& m, size_t layer, Quantity q) {
  const auto [rho, h] = m[layer];
  switch (q) {
    case Quantity::Resistivity:
      return rho;
    case Quantity::Thickness:
      return h;
    case Quantity::Conductance:
      return h / rho;
    case Quantity::TransverseResistance:
      break;
  }
  return h * rho;
}

namespace {

constexpr Quantity kQuantities[4] = {Quantity::Resistivity, Quantity::Thickness,
                                     Quantity::Conductance, Quantity::TransverseResistance};

struct Candidate {
  std::vector<double> x;
  double rms;
};

ParameterSpace space_of(const SoundingState& s, const EquivalenceOptions& o) {
  ParameterSpace sp;
  sp.layers = s.LayerCount;
  const int L = sp.layers;
  for (int k = 0; k < sp.size(); ++k) {
    const bool res = k < L;
    const int layer = res ? k : k - L;
    sp.lo.push_back(std::log10(res ? o.min_res : o.min_thick));
    sp.hi.push_back(std::log10(res ? o.max_res : o.max_thick));
    const int lock = s.LayerLocks[layer + 1];
    sp.free.push_back(!(lock == 3 || (res ? lock == 1 : lock == 2)));
  }
  return sp;
}

LayerPairs pairs_of(const ParameterSpace& sp, const std::vector<double>& x) {
  LayerPairs m;
  for (int i = 0; i < sp.layers; ++i)
    m.emplace_back(std::pow(10.0, x[static_cast<size_t>(i)]),
                   i + 1 < sp.layers ? std::pow(10.0, x[static_cast<size_t>(sp.layers + i)]) : 0.0);
  return m;
}

// Runs `work(thread_misfit, index)` for indices 0..count-1 over `jobs` threads, index i on
// thread i mod jobs; reports progress on the calling thread until all are done.
template <typename Work>
void share_out(const SoundingState& s, int jobs, int count, int done_before, int total,
               std::vector<std::unique_ptr<DeviationMisfit>>& misfits,
               const EquivalenceProgress& progress, std::atomic<bool>& cancel, Work work) {
  std::atomic<int> done{0};
  if (progress && !progress(done_before, total)) cancel = true;  // told once before any work
  if (cancel.load()) return;
  while (static_cast<int>(misfits.size()) < jobs)
    misfits.push_back(std::make_unique<DeviationMisfit>(s));
  std::vector<std::thread> threads;
  for (int t = 0; t < jobs; ++t)
    threads.emplace_back([&, t] {
      for (int i = t; i < count && !cancel.load(); i += jobs) {
        work(*misfits[static_cast<size_t>(t)], i);
        ++done;
      }
    });
  while (progress && done.load() < count && !cancel.load()) {
    if (!progress(done_before + done.load(), total)) cancel = true;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  for (std::thread& t : threads) t.join();
}

}  // namespace

double equivalence_rms(const SoundingState& s, const LayerPairs& model) {
  SoundingState copy = s;
  copy.LayerCount = static_cast<int16_t>(model.size());
  DeviationMisfit misfit(copy);
  std::vector<double> rho, h;
  for (const auto& [r, t] : model) rho.push_back(r), h.push_back(t);
  return misfit.rms(rho.data(), h.data());
}

EquivalenceResult analyse_equivalence(const SoundingState& s, const EquivalenceOptions& o,
                                      const EquivalenceProgress& progress) {
  EquivalenceResult result;
  const ParameterSpace sp = space_of(s, o);
  const int L = sp.layers;
  if (L < 1 || L > 20) {
    result.messages.push_back("The sounding has no model.");
    return result;
  }
  std::vector<double> x0;
  for (int i = 0; i < L; ++i) x0.push_back(std::log10(s.LayerModel(i + 1, 1).num()));
  for (int i = 0; i + 1 < L; ++i) x0.push_back(std::log10(s.LayerModel(i + 1, 2).num()));
  for (int k = 0; k < sp.size(); ++k) {
    const auto uk = static_cast<size_t>(k);
    if (!std::isfinite(x0[uk])) {
      result.messages.push_back("The model has a resistivity or a thickness of 0.");
      return result;
    }
    if (x0[uk] < sp.lo[uk] || x0[uk] > sp.hi[uk])
      result.messages.push_back("The model lies outside the bounds: it is taken to them.");
    x0[uk] = std::clamp(x0[uk], sp.lo[uk], sp.hi[uk]);
  }
  result.fitted = pairs_of(sp, x0);
  std::vector<std::unique_ptr<DeviationMisfit>> misfits;
  misfits.push_back(std::make_unique<DeviationMisfit>(s));
  {
    double rho[21], h[21];
    for (int i = 0; i < L; ++i) rho[i] = result.fitted[static_cast<size_t>(i)].first;
    for (int i = 0; i < L; ++i) h[i] = result.fitted[static_cast<size_t>(i)].second;
    result.best_rms = misfits[0]->rms(rho, h);
  }
  result.threshold = o.threshold > 0 ? o.threshold : result.best_rms + o.tolerance;
  std::vector<Bound> bounds;
  for (int i = 0; i < L; ++i)
    for (Quantity q : kQuantities)
      if (q == Quantity::Resistivity || i + 1 < L)
        for (int d : {-1, 1}) bounds.push_back({q, i, d});
  std::vector<Candidate> found(bounds.size() * 2, Candidate{x0, result.best_rms});
  const bool equivalent = result.best_rms <= result.threshold;
  if (!equivalent)
    result.messages.push_back("The model's RMS is above the threshold: no range was searched.");
  std::atomic<bool> cancel{false};
  const int jobs = std::clamp(o.jobs, 1, 16);
  const int n = static_cast<int>(bounds.size());
  if (equivalent) {
    // First pass: every walk from the fitted model.
    share_out(s, jobs, n, 0, 2 * n, misfits, progress, cancel, [&](DeviationMisfit& m, int i) {
      BoundWalk w(sp, m, result.threshold, cancel);
      Candidate& c = found[static_cast<size_t>(i)];
      if (w.movable(bounds[static_cast<size_t>(i)]))
        c.rms = w.walk(bounds[static_cast<size_t>(i)], c.x);
    });
    // Second pass: from the best model of the first for that bound, slightly shaken (seeded).
    share_out(s, jobs, n, n, 2 * n, misfits, progress, cancel, [&](DeviationMisfit& m, int i) {
      const Bound& b = bounds[static_cast<size_t>(i)];
      BoundWalk w(sp, m, result.threshold, cancel);
      if (!w.movable(b)) return;
      const Candidate* best = &found[static_cast<size_t>(i)];
      for (int k = 0; k < n; ++k) {
        const Candidate& c = found[static_cast<size_t>(k)];
        if (c.rms <= result.threshold &&
            b.direction * (quantity_value(sp, c.x, b.quantity, b.layer) -
                           quantity_value(sp, best->x, b.quantity, b.layer)) >
                0)
          best = &c;
      }
      Candidate& out = found[static_cast<size_t>(n + i)];
      out = *best;
      std::mt19937 random(o.seed * 2654435761u + static_cast<unsigned>(i));
      std::normal_distribution<double> shake(0.0, 0.05);
      std::vector<double> y = out.x;
      const double tau = quantity_value(sp, y, b.quantity, b.layer);
      for (int k = 0; k < sp.size(); ++k)
        if (sp.free[static_cast<size_t>(k)])
          y[static_cast<size_t>(k)] =
              std::clamp(y[static_cast<size_t>(k)] + shake(random), sp.lo[static_cast<size_t>(k)],
                         sp.hi[static_cast<size_t>(k)]);
      if (w.fit(y, &b, tau, false) <= result.threshold) out.x = y;
      out.rms = w.walk(b, out.x);
    });
  }
  result.cancelled = cancel.load();
  for (const auto& m : misfits) result.models_tried += m->evaluations();
  // Each range is the extreme over every equivalent model found, the fitted one included.
  found.push_back({x0, result.best_rms});
  result.ranges.resize(static_cast<size_t>(L));
  for (const Bound& b : bounds) {
    const Candidate* best = &found.back();
    for (const Candidate& c : found)
      if (c.rms <= result.threshold &&
          b.direction * (quantity_value(sp, c.x, b.quantity, b.layer) -
                         quantity_value(sp, best->x, b.quantity, b.layer)) >
              0)
        best = &c;
    const double v = std::pow(10.0, quantity_value(sp, best->x, b.quantity, b.layer));
    auto& range = result.ranges[static_cast<size_t>(b.layer)][static_cast<size_t>(b.quantity)];
    (b.direction > 0 ? range.second : range.first) = v;
    result.extremes.push_back(
        {b.quantity, b.layer + 1, b.direction > 0, v, pairs_of(sp, best->x), best->rms});
  }
  if (result.cancelled) result.messages.push_back("Cancelled: the ranges are those found so far.");
  return result;
}

}  // namespace tellux
