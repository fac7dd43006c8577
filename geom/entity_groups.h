// SPDX-License-Identifier: LicenseRef-ORVALD
// The groups of an entity, as the host gives them to every application, and the system in which a
// plane entity keeps its points.
#pragma once

#include "hostapi/resbuf.h"
#include "kex/matrix.h"
#include "kex/resbuf_chain.h"

namespace KEX {

class EntityGroups
{
public:
    /// Empty for the null name and for an erased entity.
    explicit EntityGroups(const CAdsName& entity);

    const resbuf* first() const { return chain_.get(); }
    /// First group with that code, null when there is none.
    const resbuf* find(int code) const;
    /// Name of the kind: "LINE"; "" when empty.
    TextView type() const;

    // Values of the first group with that code.
    double real(int code, double none = 0.0) const;
    int flags(int code) const;
    CKexPoint3d point(int code) const;
    /// Group 210 with length 1; Z when it is missing.
    CKexVector3d normal() const;

private:
    CSmartResbuf chain_;
};

/// The plane of an entity, and where its outline is given back: in the world when its normal is Z
/// or -Z, else in the system of toWorld(), whose XY plane is the entity's.
class EntityPlane
{
public:
    /// The world's XY plane.
    EntityPlane() = default;
    /// `elevation`: height of the plane along the normal.
    EntityPlane(const CKexVector3d& normal, double elevation);

    bool isTilted() const { return tilted_; }
    /// The normal is -Z: bulges and angles turn round.
    bool isFlipped() const { return flipped_; }
    const CKexVector3d& normal() const { return normal_; }
    double elevation() const { return elevation_; }
    /// Arbitrary axes with the origin on the plane; for any normal.
    CKexMatrix3d toWorld() const;

    /// Where a point of the entity's own coordinates is given back.
    CKexPoint3d fromEntity(const CKexPoint3d& p) const;
    /// The same for a point that the entity keeps in world coordinates.
    CKexPoint3d fromWorld(const CKexPoint3d& p) const;
    double bulge(double value) const { return flipped_ ? 0.0 - value : value; }

private:
    CKexVector3d normal_{0.0, 0.0, 1.0};
    double elevation_ = 0.0;
    bool flipped_ = false, tilted_ = false;
};

/// Plane of an entity of a kind that has one: circle, arc, ellipse, plane polyline, solid, trace,
/// text, attribute, hatch, insert, shape. Nothing for others.
std::optional<EntityPlane> entityPlane(const EntityGroups& groups);

} // namespace KEX
