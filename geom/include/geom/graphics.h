// SPDX-License-Identifier: LicenseRef-ORVALD
// Temporary graphics: symbols that a program draws on the screen while it asks. They are no part of
// the drawing, vanish with the next regeneration, and a symbol in colour -1 drawn twice is gone.
// Points are in the current coordinate system; sizes follow the view's height (VIEWSIZE), and when
// that cannot be read nothing is drawn.
#pragma once

#include "kex/point.h"

#include <optional>

namespace KEX {

/// Colour that complements what it covers.
inline constexpr int kComplement = -1;

/// An X of half-diagonal VIEWSIZE·0.025. Always 0: the number says nothing.
int g_cross(const CKexPoint3d& p);
/// Head of an arrow with its tip at p, pointing in a direction: tip to left barb, left to right
/// barb, right barb to tip; barbs of length VIEWSIZE/20. The middle of the barb ends, where a shaft
/// goes on; p when nothing is drawn.
CKexPoint3d g_arrow(const CKexPoint3d& p, double angle, int colour = kComplement,
                    bool highlight = false);
/// Axis-parallel rectangle in four strokes, counter-clockwise from the first corner, at its height.
void g_rect(const CKexPoint3d& p1, const CKexPoint3d& p2, int colour = kComplement,
            bool highlight = false);
/// Rhombus of half-diagonals VIEWSIZE·0.025.
void g_rhombus(const CKexPoint3d& p, int colour = kComplement, bool highlight = false);
/// Plus and minus signs of half-length VIEWSIZE·0.015.
void g_plus_sig(const CKexPoint3d& p);
void g_minus_sig(const CKexPoint3d& p);
/// Horizontal and vertical line through p across the whole view.
void g_xline(const CKexPoint3d& p);
void g_yline(const CKexPoint3d& p);
/// Coordinate symbol of size VIEWSIZE·0.1: both axes, and between them a quarter circle of 0.45 of
/// it in six chords.
void g_bksymbol(const CKexPoint3d& p);

/// Lower left and upper right corner of the visible area, at the height of the view's centre.
std::optional<CKexPoint3d> g_vsmin();
std::optional<CKexPoint3d> g_vsmax();
/// Width of the view over its height; nothing when the height is 0.
std::optional<double> g_af_fact();

} // namespace KEX
