#pragma once
// The store of models kept for superposition (`LayerHistory`, `HistoryCounts`): slot s holds the
// resistivities and thicknesses of rows 1 to 20 of a model and, in `HistoryCounts`, its layer
// count. Slots 1 to `HistoryLast` hold the stored models; slot `HistoryLast` + 1 is the model in
// work. The replays here are shared by the model window, the field sheet's Quit and the redraw of
// the setup tab.
#include "core/session.h"

namespace tellux {

// Rows 1 to 20 of `LayerModel` (resistivity and thickness) and `LayerCount` go to `slot`.
void StoreModelInSlot(SoundingState& s, int slot);
// Rows 1 to 20 of `slot` come back to `LayerModel`, and `LayerCount` takes the slot's count.
void LoadModelFromSlot(SoundingState& s, int slot);
// Rows 1 to 20 of `slot` come back to `LayerModel`; `LayerCount` is left alone.
void LoadModelRowsFromSlot(SoundingState& s, int slot);
// The model in work is not lost in a replay: it goes to slot `HistoryLast` + 1 unless that slot
// already holds a model (a first resistivity above 0).
void KeepModelInWork(SoundingState& s);

// The drawings the diagram's options ask for after a curve: the model steps, then the error curve.
void DrawCurveOptions(Session& session);

// For each slot from 1 to `last_slot`: the slot is loaded into `LayerModel`, its curve computed
// and drawn with the optional drawings. The caller chooses the colours through `ColourGrid`.
void ReplayStoredModels(Session& session, int last_slot);

// The replay that the field sheet's Quit makes when the overlay box is ticked: every stored curve
// in the superposed colour, then the rows of the model shown (slot `HistoryShown` + 1) back in
// `LayerModel`, with the count of slot `HistoryLast` + 1: rows and count come from different slots
// when the user stands on an earlier model, and that is kept. Does not compute the final curve.
void ReplayOverlaysForSheet(Session& session);

}  // namespace tellux
