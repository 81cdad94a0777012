#include "model/overlay_store.h"

#include "model/forward.h"

namespace tellux {

void StoreModelInSlot(SoundingState& s, int slot) {
  HistorySlotT& stored = s.LayerHistory[slot];
  for (int r = 1; r <= 20; ++r) {
    stored(r, 1) = s.LayerModel(r, 1);
    stored(r, 2) = s.LayerModel(r, 2);
  }
  s.HistoryCounts[slot] = s.LayerCount;
}

void LoadModelRowsFromSlot(SoundingState& s, int slot) {
  const HistorySlotT& stored = s.LayerHistory[slot];
  for (int r = 1; r <= 20; ++r) {
    s.LayerModel(r, 1) = stored(r, 1);
    s.LayerModel(r, 2) = stored(r, 2);
  }
}

void LoadModelFromSlot(SoundingState& s, int slot) {
  LoadModelRowsFromSlot(s, slot);
  s.LayerCount = s.HistoryCounts[slot];
}

void KeepModelInWork(SoundingState& s) {
  const int current = s.HistoryLast + 1;
  if (s.LayerHistory[current](1, 1).num() == 0) StoreModelInSlot(s, current);
}

void DrawCurveOptions(Session& session) {
  if (!session.curve) return;
  if (session.s.ShowModelSteps == 1) session.curve->model_steps();
  if (session.s.ShowErrorCurve == 1) session.curve->error_curve();
}

void ReplayStoredModels(Session& session, int last_slot) {
  for (int slot = 1; slot <= last_slot; ++slot) {
    LoadModelFromSlot(session.s, slot);
    ForwardCurve(session);
    DrawCurveOptions(session);
  }
}

void ReplayOverlaysForSheet(Session& session) {
  SoundingState& s = session.s;
  s.FitMisfit = int16_t{0};
  s.ColourGrid = false;
  KeepModelInWork(s);
  ReplayStoredModels(session, s.HistoryLast + s.HistoryBase);
  s.ColourGrid = true;
  LoadModelRowsFromSlot(s, s.HistoryShown + 1);
  s.LayerCount = s.HistoryCounts[s.HistoryLast + 1];
}

}  // namespace tellux
