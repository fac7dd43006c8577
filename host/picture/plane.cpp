// SPDX-License-Identifier: LicenseRef-ORVALD
// Boxes, chords and axes of plane curves.
#include "plane.h"

#include <algorithm>
#include <numbers>

namespace orvald::picture {

void Bounds::add(Vec p)
{
    if (empty) {
        left = right = p.x;
        bottom = top = p.y;
        empty = false;
        return;
    }
    left = std::min(left, p.x);
    right = std::max(right, p.x);
    bottom = std::min(bottom, p.y);
    top = std::max(top, p.y);
}

void Bounds::grow(double by)
{
    left -= by;
    bottom -= by;
    right += by;
    top += by;
}

bool meet(const Bounds& a, const Bounds& b)
{
    return !a.empty && !b.empty && a.left <= b.right && b.left <= a.right && a.bottom <= b.top &&
           b.bottom <= a.top;
}

Bounds common(const Bounds& a, const Bounds& b)
{
    if (!meet(a, b)) return {};
    return {std::max(a.left, b.left), std::max(a.bottom, b.bottom), std::min(a.right, b.right),
            std::min(a.top, b.top), false};
}

Arc bulgeArc(Vec from, Vec to, double bulge)
{
    const Vec half = 0.5 * (to - from);
    const double rise = (1.0 - bulge * bulge) / (2.0 * bulge); // of the centre, in half chords
    // From the start, so that large coordinates take nothing from the radius.
    const Vec toCentre = half + rise * Vec{-half.y, half.x};
    const Vec u = Vec{} - toCentre;
    return {from + toCentre, u, {-u.y, u.x}, 0.0, 4.0 * std::atan(bulge)};
}

bool Affine::isSimilarity() const
{
    constexpr double kSquare = 1e-6;
    const double xx = dot(x, x), yy = dot(y, y);
    return std::abs(xx - yy) <= kSquare * xx && std::abs(dot(x, y)) <= kSquare * xx;
}

Affine Affine::inverse() const
{
    const double area = cross(x, y);
    const Vec inverseX{y.y / area, -x.y / area}, inverseY{-y.x / area, x.x / area};
    const Affine linear{inverseX, inverseY, {}};
    return {inverseX, inverseY, Vec{} - linear.direction(origin)};
}

// Singular values of the matrix (u v), in the closed form for two by two.
EllipseAxes axesOf(const Arc& arc)
{
    const double e = (arc.u.x + arc.v.y) / 2.0, f = (arc.u.x - arc.v.y) / 2.0;
    const double g = (arc.u.y + arc.v.x) / 2.0, h = (arc.u.y - arc.v.x) / 2.0;
    const double q = std::hypot(e, h), r = std::hypot(f, g);
    EllipseAxes axes;
    axes.longHalf = q + r;
    axes.shortHalf = std::abs(q - r);
    // atan2(0, 0) is 0: a circle, mirrored or not, gets the direction 0 up to half of a turn.
    axes.direction = (std::atan2(g, f) + std::atan2(h, e)) / 2.0;
    axes.mirrored = cross(arc.u, arc.v) < 0.0;
    return axes;
}

void Path::bulgeTo(Vec p, double bulge)
{
    // Below this a segment of any length on a page rises by no part of a pixel.
    constexpr double kStraight = 1e-9;
    if (std::abs(bulge) > kStraight && !pieces_.empty())
        arcTo(bulgeArc(pieces_.back().to, p, bulge), p);
    else lineTo(p);
}

void Path::addMapped(const Path& other, const Affine& map)
{
    for (const Piece& piece : other.pieces_) {
        Piece mapped{piece.step, map(piece.to), {}};
        if (piece.step == Step::arc) mapped.arc = map.mapped(piece.arc);
        pieces_.push_back(mapped);
    }
}

void Path::close()
{
    if (!pieces_.empty()) pieces_.push_back({Step::close, {}, {}});
}

namespace {

// The parameters at which the arc is farthest along x or y repeat every half turn.
void addExtremes(Bounds& bounds, const Arc& arc, double first)
{
    const double low = std::min(arc.from, arc.to), high = std::max(arc.from, arc.to);
    const double steps = std::ceil((low - first) / std::numbers::pi);
    for (int i = 0; i < 4; ++i) {
        const double t = first + (steps + i) * std::numbers::pi;
        if (t > high) break;
        bounds.add(arc.at(t));
    }
}

bool isNear(double value) { return std::abs(value) < Path::kFar; } // false for not a number
bool isNear(Vec v) { return isNear(v.x) && isNear(v.y); }

} // namespace

Bounds Path::bounds() const
{
    Bounds bounds;
    for (const Piece& piece : pieces_) {
        if (piece.step == Step::close) continue;
        bounds.add(piece.to);
        if (piece.step != Step::arc) continue;
        addExtremes(bounds, piece.arc, std::atan2(piece.arc.v.x, piece.arc.u.x));
        addExtremes(bounds, piece.arc, std::atan2(piece.arc.v.y, piece.arc.u.y));
    }
    return bounds;
}

bool Path::isDrawable() const
{
    return std::all_of(pieces_.begin(), pieces_.end(), [](const Piece& piece) {
        if (piece.step == Step::close) return true;
        if (!isNear(piece.to)) return false;
        const Arc& arc = piece.arc;
        return piece.step != Step::arc || (isNear(arc.centre) && isNear(arc.u) && isNear(arc.v) &&
                                           isNear(arc.from) && isNear(arc.to));
    });
}

int chordCount(const Arc& arc, double tolerance)
{
    const double radius = std::max(length(arc.u), length(arc.v));
    const double turn = std::abs(arc.to - arc.from);
    // A chord over the angle s rises by r (1 - cos(s/2)), which is just below r s^2 / 8.
    const double step =
        std::min(std::sqrt(8.0 * tolerance / std::max(radius, tolerance)), std::numbers::pi / 4.0);
    if (!(turn < step * kMostChords)) return kMostChords;
    return std::max(1, static_cast<int>(std::ceil(turn / step)));
}

std::size_t flatten(const Path& path, double tolerance, std::vector<Chords>& runs)
{
    std::size_t count = 0;
    for (const Path::Piece& piece : path.pieces()) {
        if (piece.step == Path::Step::move || count == 0) {
            if (count == runs.size()) runs.emplace_back();
            runs[count].points.clear();
            runs[count].closed = false;
            ++count;
        }
        Chords& run = runs[count - 1];
        switch (piece.step) {
        case Path::Step::move:
        case Path::Step::line: run.points.push_back(piece.to); break;
        case Path::Step::arc: {
            const int chords = chordCount(piece.arc, tolerance);
            for (int i = 1; i < chords; ++i) {
                const double t =
                    piece.arc.from + (piece.arc.to - piece.arc.from) * (double(i) / chords);
                run.points.push_back(piece.arc.at(t));
            }
            run.points.push_back(piece.to);
            break;
        }
        case Path::Step::close:
            run.closed = true;
            if (run.points.size() > 1 && run.points.back() == run.points.front())
                run.points.pop_back();
            break;
        }
    }
    return count;
}

} // namespace orvald::picture
