// SPDX-License-Identifier: LicenseRef-ORVALD
// Lines, arcs, circles and polylines as chains of straight and round segments in the user's plane,
// for the commands that cut, join and move them. A position on a chain is the number of a segment
// plus the part of it, 0 to 1; it grows along the chain.
#pragma once

#include "commands/command.h"
#include "drawing/views.h"

#include <optional>
#include <vector>

namespace orvald {

/// From `a` to `b`; `bulge` as polylines have it.
struct Segment
{
    drawing::Point a, b;
    double bulge = 0.0;

    bool isRound() const { return bulge != 0.0; }
    // Of a round one.
    drawing::Point centre() const;
    double radius() const;
    double startAngle() const;
    double sweep() const; // positive to the left

    double length() const;
    drawing::Point at(double part) const;
    /// Direction of travel, an angle.
    double direction(double part) const;
    /// The part nearest to a place, beyond 0 and 1 where the segment, made longer, comes nearest.
    double partOf(drawing::Point place) const;
    /// Parts of this one where it meets the other one. `extended`: this one goes on at its end.
    std::vector<double> meets(const Segment& other, bool extended = false) const;
};

/// Where the whole lines and circles meet that two segments are parts of.
std::vector<drawing::Point> carriersMeet(const Segment& a, const Segment& b);

struct FlatCurve
{
    std::vector<drawing::PolylineVertex> vertices; // at least two
    bool closed = false;

    std::size_t segmentCount() const { return closed ? vertices.size() : vertices.size() - 1; }
    Segment segment(std::size_t index) const;
    /// Position of the end.
    double end() const { return static_cast<double>(segmentCount()); }
    drawing::Point at(double position) const;
    double direction(double position) const;
    double nearest(drawing::Point place) const;
    /// Positions, in order, where the other one crosses or touches this one.
    std::vector<double> meets(const FlatCurve& other) const;
    /// What lies between two positions; of a closed one also over its start.
    FlatCurve part(double from, double to) const;
    double length() const;
    void reverse();

    /// Nothing for entities of another kind and for those that do not lie parallel to the user's
    /// plane.
    static std::optional<FlatCurve> of(Command& command, drawing::Index entity);
};

/// Gives an entity the shape of the pieces: the first one itself where it can have it, the others
/// as new ones like it. Without a piece it is erased.
void reshape(Command& command, drawing::Index entity, const std::vector<FlatCurve>& pieces);
/// A new polyline, arc or line with the properties of an entity; of a polyline, a polyline.
drawing::Index makeLike(Command& command, drawing::Index entity, const FlatCurve& curve);
/// A new polyline with the properties of an entity.
drawing::Index makePolylineLike(Command& command, drawing::Index entity, const FlatCurve& curve);

} // namespace orvald
