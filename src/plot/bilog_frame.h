#pragma once
// The frame of the bilogarithmic diagram on the screen surface `Bilog`: ranges, the logical
// coordinate system, decade and minor lines, labels, the marks of the field points, and the
// read-out of the mouse position.
#include "core/sounding_state.h"
#include "platform/controls.h"
#include "platform/drawing_surface.h"

namespace tellux {

// The screen diagram's own settings: Arial bold 7.5 point, window-text foreground, persistent.
void prepare_bilog_surface(DrawingSurface& Bilog);

// Erases `Bilog` and draws the frame for the limits of the record, with the marks of the field
// points that lie inside the limits (none in the work mode "FIELD"). Sets `MarkHalfSize`. A field
// row of value 0 admitted by a limit held as 0 raises error 5 to the caller.
void DrawBilogFrame(SoundingState& s, DrawingSurface& Bilog);

// Field row n lies within the limits of the axes and gets a mark.
bool inside_limits(const SoundingState& s, int n);

// The text of the read-out at logical (X, Y): "AB/2= 3.1  R= 100".
std::string bilog_readout(const SoundingState& s, float X, float Y);

// On mouse press and movement over `Bilog`: the cross pointer, and the read-out in the status
// line `Text1`.
void ShowBilogReadout(const SoundingState& s, DrawingSurface& Bilog, TextBox& Text1, float X,
                      float Y);

}  // namespace tellux
