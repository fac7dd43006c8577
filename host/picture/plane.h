// SPDX-License-Identifier: LicenseRef-ORVALD
// Curves in the plane of the picture: lines and elliptic arcs, which every affine map of a
// drawing's lines and circles gives. Lengths in pixels, y downwards, once the view is settled;
// before that in drawing units, y upwards.
#pragma once

#include "drawing/point.h"

#include <cmath>
#include <vector>

namespace orvald::picture {

struct Vec
{
    double x = 0.0, y = 0.0;
    friend bool operator==(Vec, Vec) = default;
};
constexpr Vec operator+(Vec a, Vec b) { return {a.x + b.x, a.y + b.y}; }
constexpr Vec operator-(Vec a, Vec b) { return {a.x - b.x, a.y - b.y}; }
constexpr Vec operator*(double f, Vec v) { return {f * v.x, f * v.y}; }
constexpr double dot(Vec a, Vec b) { return a.x * b.x + a.y * b.y; }
constexpr double cross(Vec a, Vec b) { return a.x * b.y - a.y * b.x; }
inline double length(Vec v) { return std::hypot(v.x, v.y); }
/// What is seen from above.
constexpr Vec flat(drawing::Point p) { return {p.x, p.y}; }

/// An upright box; empty until the first point is added.
struct Bounds
{
    double left = 0.0, bottom = 0.0, right = 0.0, top = 0.0; // bottom is the least y
    bool empty = true;

    void add(Vec p);
    void grow(double by);
};
/// True when the boxes have a point in common.
bool meet(const Bounds& a, const Bounds& b);
/// What the boxes have in common.
Bounds common(const Bounds& a, const Bounds& b);

/// centre + cos(t) u + sin(t) v, for t from `from` to `to`. The axes u and v need not be square.
struct Arc
{
    Vec centre, u, v;
    double from = 0.0, to = 0.0; // radians, to < from runs backwards

    Vec at(double t) const { return centre + std::cos(t) * u + std::sin(t) * v; }
};

/// The arc from one point to another of a segment with that bulge, tan(angle / 4), not 0.
Arc bulgeArc(Vec from, Vec to, double bulge);

/// An affine map of the plane.
struct Affine
{
    Vec x{1.0, 0.0}, y{0.0, 1.0}, origin;

    Vec direction(Vec v) const { return v.x * x + v.y * y; }
    Vec operator()(Vec p) const { return direction(p) + origin; }
    Arc mapped(const Arc& arc) const
    {
        return {(*this)(arc.centre), direction(arc.u), direction(arc.v), arc.from, arc.to};
    }
    /// This map after `first`.
    Affine after(const Affine& first) const
    {
        return {direction(first.x), direction(first.y), (*this)(first.origin)};
    }
    /// Of lengths, the geometric mean over all directions; 0 when the plane is seen from the side.
    double scale() const { return std::sqrt(std::abs(cross(x, y))); }
    /// Circles stay circles, to a millionth.
    bool isSimilarity() const;
    /// Of a map whose scale is not 0.
    Affine inverse() const;
};

/// The half axes of an arc's ellipse and the direction of the long one, radians.
struct EllipseAxes
{
    double longHalf = 0.0, shortHalf = 0.0, direction = 0.0;
    bool mirrored = false; // the arc runs clockwise for growing t
};
EllipseAxes axesOf(const Arc& arc);

/// Runs of lines and arcs, each begun by moveTo.
class Path
{
public:
    enum class Step
    {
        move,
        line,
        arc,
        close // back to the start of the run
    };
    struct Piece
    {
        Step step = Step::move;
        Vec to;  // end of the piece
        Arc arc; // of an arc
    };

    void clear() { pieces_.clear(); }
    bool empty() const { return pieces_.empty(); }
    const std::vector<Piece>& pieces() const { return pieces_; }

    void moveTo(Vec p) { pieces_.push_back({Step::move, p, {}}); }
    void lineTo(Vec p) { pieces_.push_back({Step::line, p, {}}); }
    /// From the current point, which is where the arc begins.
    void arcTo(const Arc& arc) { pieces_.push_back({Step::arc, arc.at(arc.to), arc}); }
    /// As above, where the end is known better than the arc says.
    void arcTo(const Arc& arc, Vec end) { pieces_.push_back({Step::arc, end, arc}); }
    /// A line, or an arc where the bulge says more than nothing.
    void bulgeTo(Vec p, double bulge);
    void close();
    void addMapped(const Path& other, const Affine& map);

    /// Exact but for a hair of rounding.
    Bounds bounds() const;
    /// All coordinates are finite and below kFar.
    bool isDrawable() const;
    /// Coordinates beyond this are taken for damage: sums of squares stay far from overflow.
    static constexpr double kFar = 1e100;

private:
    std::vector<Piece> pieces_;
};

/// One run of points; a closed one does not repeat its first point.
struct Chords
{
    std::vector<Vec> points;
    bool closed = false;
};
/// A path as chords that stay within `tolerance` of its arcs (half as much again for slanting
/// ellipses). The vector's runs and their memory are used again; gives how many of them count.
std::size_t flatten(const Path& path, double tolerance, std::vector<Chords>& runs);
/// Number of chords for an arc within the tolerance, 1 to kMostChords.
int chordCount(const Arc& arc, double tolerance);
inline constexpr int kMostChords = 16384;

} // namespace orvald::picture
