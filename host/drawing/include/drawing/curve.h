// SPDX-License-Identifier: LicenseRef-ORVALD
// Entities as curves over a parameter, in world coordinates. The parameter is the host's: the
// length along lines and rays, the angle of arcs and circles, the eccentric angle of ellipses, the
// number of the vertex of polylines, the knots of splines. Lengths in drawing units.
#pragma once

#include "drawing/drawing.h"
#include "drawing/point.h"
#include "drawing/spline.h"

#include <optional>
#include <variant>
#include <vector>

namespace orvald::drawing {

struct LinePiece
{
    Point start; // at parameter `zero`
    Point along; // for one unit of the parameter
    double zero = 0.0;
};
struct ConicPiece // centre + cos(a) u + sin(a) v; u and v stand at right angles
{
    Point centre, u, v;
    double angle = 0.0, rate = 1.0; // a = angle + rate * (parameter - from)
    bool circular = true;
};

/// One smooth piece of a curve, over parameters `from` to `to` (infinite at the end of a ray).
class CurvePiece
{
public:
    double from = 0.0, to = 1.0;
    std::variant<LinePiece, ConicPiece, BezierPiece> form;

    Jet at(double parameter) const;
    /// Length between two parameters a <= b. Lines and circles exactly, others to 12 digits.
    double length(double a, double b) const;
    /// The parameter in [from, to] at that length from `from`.
    double parameterAt(double length) const;
    /// Parameter in [low, high] where the piece comes nearest to `place`, both seen along `sight`
    /// (a unit vector) where it is given.
    double nearest(Point place, double low, double high, const Point* sight) const;
    /// Twice the area swept by the ray from `origin` to the piece, seen against `normal` (a unit
    /// vector); the piece has two ends.
    double sweep(Point origin, Point normal) const;
};

class Curve
{
public:
    /// Nothing for entities that are no curves: texts, inserts, meshes, and those without a valid
    /// form. LINE, RAY, XLINE, ARC, CIRCLE, ELLIPSE, LWPOLYLINE, POLYLINE, SPLINE, LEADER are.
    static std::optional<Curve> of(const Drawing& drawing, Index entity);

    /// First and last parameter; infinite where a curve has no end.
    double start() const { return pieces_.front().from; }
    double end() const { return pieces_.back().to; }
    const std::vector<CurvePiece>& pieces() const { return pieces_; }

    /// Both ends are one point.
    bool isClosed() const;
    /// Closed, and smooth where it closes.
    bool isPeriodic() const { return periodic_; }
    bool isPlanar() const;

    /// Nothing beyond the ends, here and below.
    std::optional<Jet> at(double parameter) const;
    /// Length from the start; nothing for a curve without a start.
    std::optional<double> lengthTo(double parameter) const;
    std::optional<double> parameterAtLength(double length) const;
    /// Parameter of a point on the curve; nothing for a point that lies beside it.
    std::optional<double> parameterOf(Point place) const;
    /// The point nearest to `place`; `extended`: lines and arcs at the ends go on. With `normal`,
    /// both are seen along it; its length does not matter unless it has none.
    Point nearest(Point place, bool extended, const Point* normal = nullptr) const;
    /// Area that the curve and a line between its ends enclose; nothing for an endless curve and
    /// for one that does not lie in a plane.
    std::optional<double> area() const;

private:
    struct Plane
    {
        Point normal; // no length: the curve is straight
    };
    struct Place
    {
        double parameter = 0.0;
        Point at;
    };
    Place nearestPlace(Point place, bool extended, const Point* sight) const;
    /// The piece of a parameter; null beyond the ends. Brings one that lies beyond by rounding
    /// back.
    const CurvePiece* pieceOf(double& parameter) const;
    std::optional<Plane> plane() const;

    std::vector<CurvePiece> pieces_; // at least one; parameters join without gaps
    bool periodic_ = false;
};

} // namespace orvald::drawing
