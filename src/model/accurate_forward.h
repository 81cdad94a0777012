#pragma once
// The accurate forward calculation: the apparent resistivity of a horizontally layered earth to
// better than 0.1 % for spacings of 0.1 m to 10 km, contrasts up to 10^4 and up to 20 layers,
// for the three arrays. It stands beside `ForwardCurve`, whose short filter is fast but leaves
// its accuracy domain on strong contrasts.
//
// Method: the resistivity transform T(lambda) is sampled 24 times a decade by the recurrence
// (with the exact tanh, no cut-off) and the Hankel integral of the array's kernel is taken as a
// convolution with weights that integrate the kernel exactly against the cardinal quintic
// spline through the samples (tools/design_accurate_filter.cpp). Before that, the part of the
// transform known in closed form (its two limits, joined by an exponential) is taken out, so
// the sampled remainder vanishes at both ends and the convolution's truncation costs nothing.
#include "core/sounding_state.h"

namespace tellux {

// A layered earth: rho[0..layers-1] in ohm-m from the surface down, thickness[0..layers-2] in m
// (the last layer is the half space; its thickness is not read).
struct Earth {
  const double* rho;
  const double* thickness;
  int layers;
};

// True when every resistivity is finite and positive and every thickness finite and >= 0.
bool valid_earth(const Earth& earth);

// The apparent resistivity at rows 0..rows-1 of the diagram's grid, AB/2 (Wenner: a; dipole:
// AM) = 10^(row / 8 + decade_start). Returns false, leaving `out` alone, for an invalid earth.
bool accurate_curve(SpreadType spread, const Earth& earth, int decade_start, int rows, double* out);

// The apparent resistivity at one spacing (slower: one row's worth of samples).
double accurate_apparent(SpreadType spread, const Earth& earth, double spacing);

}  // namespace tellux
