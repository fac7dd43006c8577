// SPDX-License-Identifier: LicenseRef-ORVALD
#include "geom/graphics.h"

#include "geom/graphics_rows.h"
#include "hostapi/entity.h"
#include "kex/direction.h"
#include "kex/system.h"

namespace KEX {
namespace {

// Sizes of the symbols in heights of the view.
constexpr double kCross = 0.025, kSign = 0.015, kCoordinates = 0.1, kQuarterCircle = 0.45;
constexpr double kBarbs = 20.0; // one part in so many
/// Directions from an arrow's tip to its barbs, from that in which it points: 6π/7.
constexpr double kBarbAngle = 2.6927937030769655;

std::optional<double> viewHeight() { return sysVarReal(KT("VIEWSIZE")); }

void stroke(const CKexPoint3d& from, const CKexPoint3d& to, int colour = kComplement,
            bool highlight = false)
{
    acedGrDraw(from.asArray(), to.asArray(), colour, highlight ? 1 : 0);
}

/// Through p, `half` to either side, from the side that lies against the direction.
void strokeThrough(const CKexPoint3d& p, double angle, double half)
{
    stroke(polar(p, angle + kPi, half), polar(p, angle, half));
}

std::optional<CKexPoint3d> viewCorner(const ACHAR* name)
{
    const std::optional<CKexPoint3d> corner = sysVarPoint(name);
    const std::optional<CKexPoint3d> centre = sysVarPoint(KT("VIEWCTR"));
    if (!corner || !centre) return std::nullopt;
    return CKexPoint3d(corner->x, corner->y, centre->z);
}

/// Handler of a symbol at one point, which is the result.
int symbolAt(const resbuf* args, void (*draw)(const CKexPoint3d&))
{
    ArgReader in(args);
    const CKexPoint3d p = in.point(0);
    if (in.failed()) return in.fail();
    draw(p);
    return adapting::give(p);
}

} // namespace

int g_cross(const CKexPoint3d& p)
{
    if (const auto height = viewHeight()) {
        strokeThrough(p, 0.25 * kPi, *height * kCross);
        strokeThrough(p, 0.75 * kPi, *height * kCross);
    }
    return 0;
}

CKexPoint3d g_arrow(const CKexPoint3d& p, double angle, int colour, bool highlight)
{
    const auto height = viewHeight();
    if (!height) return p;
    const CKexPoint3d left = polar(p, angle + kBarbAngle, *height / kBarbs);
    const CKexPoint3d right = polar(p, angle - kBarbAngle, *height / kBarbs);
    stroke(p, left, colour, highlight);
    stroke(left, right, colour, highlight);
    stroke(right, p, colour, highlight);
    return left + (right - left) * 0.5;
}

void g_rect(const CKexPoint3d& p1, const CKexPoint3d& p2, int colour, bool highlight)
{
    const CKexPoint3d alongX(p2.x, p1.y, p1.z), alongY(p1.x, p2.y, p1.z);
    const CKexPoint3d opposite(p2.x, p2.y, p1.z);
    const bool xFirst = (p2.x < p1.x) == (p2.y < p1.y);
    const CKexPoint3d corners[] = {p1, xFirst ? alongX : alongY, opposite,
                                   xFirst ? alongY : alongX};
    for (int i = 0; i < 4; ++i) stroke(corners[i], corners[(i + 1) % 4], colour, highlight);
}

void g_rhombus(const CKexPoint3d& p, int colour, bool highlight)
{
    const auto height = viewHeight();
    if (!height) return;
    const auto corner = [&](int i) { return polar(p, 0.5 * kPi * i, *height * kCross); };
    for (int i = 0; i < 4; ++i) stroke(corner(i), corner((i + 1) % 4), colour, highlight);
}

void g_minus_sig(const CKexPoint3d& p)
{
    if (const auto height = viewHeight()) strokeThrough(p, 0.0, *height * kSign);
}

void g_plus_sig(const CKexPoint3d& p)
{
    g_minus_sig(p);
    if (const auto height = viewHeight()) strokeThrough(p, 0.5 * kPi, *height * kSign);
}

void g_xline(const CKexPoint3d& p)
{
    const auto from = g_vsmin(), to = g_vsmax();
    if (from && to) stroke({from->x, p.y, p.z}, {to->x, p.y, p.z});
}

void g_yline(const CKexPoint3d& p)
{
    const auto from = g_vsmin(), to = g_vsmax();
    if (from && to) stroke({p.x, from->y, p.z}, {p.x, to->y, p.z});
}

void g_bksymbol(const CKexPoint3d& p)
{
    const auto height = viewHeight();
    if (!height) return;
    const double size = *height * kCoordinates;
    stroke(p, polar(p, 0.0, size));
    stroke(p, polar(p, 0.5 * kPi, size));
    constexpr int kChords = 6;
    const auto onCircle = [&](int i) {
        return polar(p, 0.5 * kPi * i / kChords, size * kQuarterCircle);
    };
    for (int i = 0; i < kChords; ++i) stroke(onCircle(i), onCircle(i + 1));
}

std::optional<CKexPoint3d> g_vsmin() { return viewCorner(KT("VSMIN")); }
std::optional<CKexPoint3d> g_vsmax() { return viewCorner(KT("VSMAX")); }

std::optional<double> g_af_fact()
{
    const auto from = g_vsmin(), to = g_vsmax();
    const auto height = viewHeight();
    if (!from || !to || !height || *height == 0.0) return std::nullopt;
    return (to->x - from->x) / *height;
}

int grCross(const resbuf* args)
{
    return symbolAt(args, [](const CKexPoint3d& p) { g_cross(p); });
}

int grArrow(const resbuf* args)
{
    ArgReader in(args);
    const CKexPoint3d p = in.point(1);
    const double angle = in.number(2);
    if (in.failed()) return in.fail();
    return adapting::give(g_arrow(p, angle));
}

int grRect(const resbuf* args)
{
    ArgReader in(args);
    const double x1 = in.number(1);
    const double y1 = in.number(2);
    const double x2 = in.number(3);
    const double y2 = in.number(4);
    if (in.failed()) return in.fail();
    g_rect({x1, y1}, {x2, y2});
    return retAds(false);
}

int grRhombus(const resbuf* args)
{
    return symbolAt(args, [](const CKexPoint3d& p) { g_rhombus(p); });
}

int grPlus(const resbuf* args) { return symbolAt(args, g_plus_sig); }
int grMinus(const resbuf* args) { return symbolAt(args, g_minus_sig); }
int grXline(const resbuf* args) { return symbolAt(args, g_xline); }
int grYline(const resbuf* args) { return symbolAt(args, g_yline); }
int grUcs(const resbuf* args) { return symbolAt(args, g_bksymbol); }

int viewMin(const resbuf*) { return retAds(g_vsmin()); }
int viewMax(const resbuf*) { return retAds(g_vsmax()); }
int viewAspect(const resbuf*) { return retAds(g_af_fact()); }

} // namespace KEX
