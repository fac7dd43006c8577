// SPDX-License-Identifier: LicenseRef-ORVALD
#include "geom/entity_make.h"

#include "entity_groups.h"
#include "hostapi/entity.h"

#include <algorithm>
#include <cmath>

namespace KEX {
namespace {

/// A chain of DXF groups.
class GroupList
{
public:
    void text(int code, TextView value)
    {
        resbuf* const node = add(code);
        acutNewString(CKexString(value).c_str(), node->resval.rstring);
    }
    void real(int code, double value) { add(code)->resval.rreal = value; }
    void integer(int code, int value)
    {
        resbuf* const node = add(code);
        if (rbKind(code) == RbKind::int32) node->resval.rlong = value;
        else node->resval.rint = static_cast<short>(value);
    }
    void point(int code, const CKexPoint3d& value)
    {
        std::copy_n(value.asArray(), 3, add(code)->resval.rpoint);
    }
    void copy(const resbuf& node)
    {
        resbuf alone = node;
        alone.rbnext = nullptr;
        CSmartResbuf copied = rbCopyAll(&alone);
        append(copied.release());
    }
    const resbuf* get() const { return first_; }

private:
    resbuf* add(int code)
    {
        resbuf* const node = acutNewRb(code);
        if (node == nullptr) throw std::bad_alloc();
        append(node);
        return node;
    }
    void append(resbuf* node)
    {
        if (last_ == nullptr) first_.reset(node);
        else last_->rbnext = node;
        last_ = node;
    }
    CSmartResbuf first_;
    resbuf* last_ = nullptr;
};

enum class Shape
{
    none,
    line,
    arc,
    circle,
    path
};

bool isLevel(const CKexVertexArray& list)
{
    const double z = list.first().startPoint().z, tol = CKexPoint3d::tol;
    return std::ranges::all_of(list, [&](const CKexVertex& vertex) {
        return std::abs(vertex.startPoint().z - z) <= tol &&
               std::abs(vertex.endPoint().z - z) <= tol;
    });
}

/// Arcs about one centre that go round once.
bool isCircle(const CKexVertexArray& list)
{
    if (!list.isClosed()) return false;
    const CKexVertex& first = list.first();
    const double tol = CKexPoint3d::tol;
    double sweep = 0.0;
    for (const CKexVertex& vertex : list) {
        const bool round = !vertex.isStraight() && vertex.bulge() * first.bulge() > 0.0 &&
                           vertex.center().isEqualTo(first.center(), tol) &&
                           std::abs(vertex.radius() - first.radius()) <= tol;
        if (!round) return false;
        sweep += std::abs(vertex.sweep());
    }
    return sweep < 1.5 * kTwoPi; // once, and not twice over the same way
}

Shape shapeOf(const CKexVertexArray& list)
{
    if (list.isEmpty() || list.numOpens() > 0) return Shape::none;
    if (list.length() == 1 && list.first().isStraight()) return Shape::line;
    if (!isLevel(list)) return Shape::none;
    if (list.length() == 1) return Shape::arc;
    return isCircle(list) ? Shape::circle : Shape::path;
}

/// Where the coordinates of a list are kept: as they are, or turned round for a normal of -Z.
struct Keeping
{
    bool flipped = false;
    double elevation = 0.0; // of a plane that is tilted, whose lists begin there

    CKexPoint3d point(const CKexPoint3d& p) const
    {
        return flipped ? CKexPoint3d(0.0 - p.x, p.y, 0.0 - p.z)
                       : CKexPoint3d(p.x, p.y, p.z + elevation);
    }
    CKexVertex vertex(const CKexVertex& v) const
    {
        return CKexVertex(point(v.startPoint()), point(v.endPoint()),
                          flipped ? 0.0 - v.bulge() : v.bulge());
    }
};

void lineGroups(GroupList& to, const CKexVertex& line)
{
    to.point(10, line.startPoint());
    to.point(11, line.endPoint());
}

void arcGroups(GroupList& to, const CKexVertex& arc, bool whole)
{
    const CKexPoint3d centre = arc.center();
    to.point(10, centre);
    to.real(40, arc.radius());
    if (whole) return;
    const auto direction = [&](const CKexPoint3d& p) {
        return g_ang(std::atan2(p.y - centre.y, p.x - centre.x));
    };
    const bool forward = arc.bulge() > 0.0;
    to.real(50, direction(forward ? arc.startPoint() : arc.endPoint()));
    to.real(51, direction(forward ? arc.endPoint() : arc.startPoint()));
}

void pathHead(GroupList& to, const CKexVertexArray& list, int flags, const Keeping& keeping)
{
    const bool closed = list.isClosed();
    to.integer(90, list.length() + (closed ? 0 : 1));
    constexpr int kClosed = 1;
    to.integer(70, (flags & ~kClosed) | (closed ? kClosed : 0));
    to.real(38, keeping.point(list.first().startPoint()).z);
}

void pathVertices(GroupList& to, const CKexVertexArray& list, const Keeping& keeping)
{
    for (const CKexVertex& given : list) {
        const CKexVertex vertex = keeping.vertex(given);
        to.point(10, vertex.startPoint());
        to.real(42, vertex.bulge());
    }
    if (!list.isClosed()) to.point(10, keeping.point(list.last().endPoint()));
}

/// Groups that say what and where an entity is.
bool isOwnGroup(int code)
{
    constexpr int kOwn[] = {-1, 0, 5, 100, 102, 330, 360, 90, 70, 38, 210, 40, 41, 42, 50, 51, 91};
    return std::ranges::find(kOwn, code) != std::end(kOwn) || (code >= 10 && code <= 37);
}

/// Groups that every entity has, in front of those of its kind.
bool isCommonGroup(int code)
{
    constexpr int kCommon[] = {6, 8, 48, 60, 62, 67, 284, 347, 370, 390, 410, 420, 430, 440};
    return std::ranges::find(kCommon, code) != std::end(kCommon);
}

TextView kindOf(Shape shape)
{
    switch (shape) {
    case Shape::line: return KT("LINE");
    case Shape::arc: return KT("ARC");
    case Shape::circle: return KT("CIRCLE");
    case Shape::path: return KT("LWPOLYLINE");
    case Shape::none: break;
    }
    return {};
}

} // namespace

std::optional<CAdsName> e_mk(const CKexVertexArray& list, const resbuf* properties)
{
    const Shape shape = shapeOf(list);
    if (shape == Shape::none) return std::nullopt;
    GroupList groups;
    groups.text(0, kindOf(shape));
    groups.text(100, KT("AcDbEntity"));
    const auto copyWhere = [&](bool common) {
        for (const resbuf* node = properties; node != nullptr; node = node->rbnext) {
            if (!isOwnGroup(node->restype) && isCommonGroup(node->restype) == common) {
                groups.copy(*node);
            }
        }
    };
    copyWhere(true);
    switch (shape) {
    case Shape::line:
        groups.text(100, KT("AcDbLine"));
        copyWhere(false);
        lineGroups(groups, list.first());
        break;
    case Shape::arc:
    case Shape::circle:
        groups.text(100, KT("AcDbCircle"));
        copyWhere(false);
        arcGroups(groups, list.first(), shape == Shape::circle);
        break;
    default:
        groups.text(100, KT("AcDbPolyline"));
        pathHead(groups, list, 0, {});
        copyWhere(false);
        pathVertices(groups, list, {});
    }
    CAdsName made;
    return acdbEntMakeX(groups.get(), made.asName()) == RTNORM ? std::optional(made) : std::nullopt;
}

std::optional<CAdsName> e_vl_set(const CAdsName& entity, const CKexVertexArray& list)
{
    const EntityGroups old(entity);
    Shape shape = shapeOf(list);
    const bool light = old.type() == KT("LWPOLYLINE");
    if (light && shape != Shape::none && isLevel(list)) shape = Shape::path;
    if (shape == Shape::none || old.type() != kindOf(shape)) return std::nullopt;
    Keeping keeping;
    if (shape != Shape::line) {
        const EntityPlane plane = entityPlane(old).value_or(EntityPlane());
        keeping = {plane.isFlipped(), plane.isTilted() ? plane.elevation() : 0.0};
    }
    GroupList groups;
    const CKexVertex first = keeping.vertex(list.first());
    bool written = false;
    for (const resbuf* node = old.first(); node != nullptr; node = node->rbnext) {
        const int code = node->restype;
        const bool kept = code == -1 || code == 0 || code == 100 || code == 210 || code == 330 ||
                          code == 5 || !isOwnGroup(code);
        if (light && code == 90) {
            pathHead(groups, list, old.flags(70), keeping);
        } else if (code == 10 && !written) {
            written = true;
            if (shape == Shape::line) lineGroups(groups, first);
            else if (light) pathVertices(groups, list, keeping);
            else arcGroups(groups, first, shape == Shape::circle);
        } else if (kept) {
            groups.copy(*node);
        }
    }
    return acdbEntMod(groups.get()) == RTNORM ? std::optional(entity) : std::nullopt;
}

} // namespace KEX
