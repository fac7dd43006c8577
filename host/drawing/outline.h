// SPDX-License-Identifier: LicenseRef-ORVALD
// What is drawn of an entity, as chains of points in the plane of a view.
#pragma once

#include "drawing/curve.h"
#include "drawing/drawing.h"
#include "drawing/point.h"

#include <functional>
#include <span>
#include <vector>

namespace orvald::drawing {

struct OutlinePath
{
    std::vector<Point> points; // one: a dot
    bool area = false;         // closed, and its inside counts as well
    bool endless = false;
};

/// Walks through an entity and what it is made of.
class Outline
{
public:
    /// `toView` maps the entity's space; chords deviate by less than `tolerance`, where that takes
    /// fewer points than some thousands.
    Outline(const Drawing& drawing, const Transform& toView, double tolerance)
        : drawing_(drawing), toView_(toView), tolerance_(tolerance)
    {
    }
    /// Told of each path; false ends the walk.
    using Visitor = std::function<bool(const OutlinePath&)>;
    /// False when the visitor has ended it.
    bool walk(Index entity, const Visitor& visitor);

    // While the visitor runs: whose path it is.
    Index part() const { return part_; }
    const std::vector<Index>& inserts() const { return inserts_; } // outermost first
    const Transform& toSpace() const { return map_; }              // of the part's block

private:
    bool follow(Index entity);
    bool block(Index blockRecord, const Transform& placed);
    bool insert(Index index);
    bool curve(const Curve& curve);
    bool corners(std::span<const Point> points, const Transform& map);
    bool mesh(Index index);
    bool box(Index index);
    bool isVisible(const Record& record) const;
    void chords(const CurvePiece& piece, std::vector<Point>& points) const;
    bool tell(OutlinePath path);

    const Drawing& drawing_;
    Transform toView_;
    double tolerance_;
    const Visitor* visitor_ = nullptr;
    Transform map_; // to the space of the main entity
    Index part_ = kNone;
    std::vector<Index> inserts_;
    std::size_t budget_ = 0; // entities in blocks that are still looked at
};

/// True for an entity that a user sees: not erased, not invisible, on a layer that is on.
bool isSeen(const Drawing& drawing, const Record& record);

} // namespace orvald::drawing
