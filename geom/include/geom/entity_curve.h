// SPDX-License-Identifier: LicenseRef-ORVALD
// Entities as curves: lengths, places, tangents, areas. Points are of the world; lengths in drawing
// units. Curves are lines, arcs, circles, ellipses, splines and polylines that are no meshes;
// ellipses and splines are looked at through arcs within kCurveDif of them.
#pragma once

#include "kex/ename.h"
#include "kex/matrix.h"
#include "kex/vertex_place.h"

#include <optional>

namespace KEX {

/// Largest distance of a curve from the arcs that stand for it, drawing units.
inline constexpr double kCurveDif = 1e-6;

class EntityCurve
{
public:
    /// Nothing for an entity that is no curve, is erased or has no length.
    static std::optional<EntityCurve> of(const CAdsName& entity, double dif = kCurveDif);

    /// In the coordinates of entityOutline.
    const CKexVertexArray& list() const { return list_; }
    bool isTilted() const { return plane_.has_value(); }
    CKexPoint3d toWorld(const CKexPoint3d& p) const { return plane_ ? plane_->toWorld * p : p; }
    CKexVector3d toWorld(const CKexVector3d& v) const { return plane_ ? plane_->toWorld * v : v; }
    /// From those to the world.
    CKexMatrix3d system() const { return plane_ ? plane_->toWorld : CKexMatrix3d(); }
    CKexPoint3d fromWorld(const CKexPoint3d& p) const { return plane_ ? plane_->fromWorld * p : p; }
    /// It ends where it starts.
    bool isClosed() const;
    /// A single line or arc, which can be extended.
    bool isSingle() const { return list_.length() == 1; }

    double length() const { return list_.geomLength(); }
    /// Area enclosed, never negative; that of a straight outline in space is of the plane that fits
    /// it.
    double area() const;
    VertexPlace nearest(const CKexPoint3d& p, bool extended = false) const
    {
        return *vl_nearest(list_, fromWorld(p), extended && isSingle());
    }
    CKexPoint3d point(const VertexPlace& place) const { return toWorld(vl_point(list_, place)); }
    CKexVector3d tangent(const VertexPlace& place) const
    {
        return toWorld(vx_tangent(list_[place.vertex], place.share));
    }

private:
    struct System
    {
        CKexMatrix3d toWorld, fromWorld;
    };
    CKexVertexArray list_;
    std::optional<System> plane_; // of a tilted one
};

/// Length of a curve.
std::optional<double> e_len(const CAdsName& entity);
/// Area of a closed curve, or of a hatch, islands left out; never negative.
std::optional<double> e_area(const CAdsName& entity);
/// Point of a curve nearest to p; with `extend` lines and arcs go on beyond their ends.
std::optional<CKexPoint3d> e_near(const CAdsName& entity, const CKexPoint3d& p, bool extend);
/// Point at a length along a curve; nothing outside of it, within the point tolerance.
std::optional<CKexPoint3d> e_pt(const CAdsName& entity, double length);
/// Length along a curve up to its point nearest to p.
std::optional<double> e_dist(const CAdsName& entity, const CKexPoint3d& p);
/// Unit tangent of a curve, in running direction, at its point nearest to p; at a corner that of
/// the segment that begins there.
std::optional<CKexVector3d> e_tang(const CAdsName& entity, const CKexPoint3d& p);

} // namespace KEX
