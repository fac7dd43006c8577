// SPDX-License-Identifier: LicenseRef-ORVALD
// The view of a HATCH: its groups mean what the groups in front of them say.
// The counts in the record are not used; a group in a place where it means nothing is left out.
#include "angles.h"
#include "drawing/views.h"

#include <algorithm>
#include <cmath>

namespace orvald::drawing {
namespace {

class HatchReader
{
public:
    explicit HatchReader(HatchView& view) : view_(view) {}

    void take(Tag tag)
    {
        const int code = tag.code();
        if (code == 210) {
            view_.normal = tag.point();
        } else if (code == 75) {
            closeEdge();
            inTail_ = true;
            view_.style = static_cast<int>(std::clamp<std::int64_t>(tag.integer(), 0, 2));
        } else if (inTail_) {
            takeTail(tag);
        } else if (code == 92) {
            closeEdge();
            HatchPath& path = view_.paths.emplace_back();
            path.flags = static_cast<int>(tag.integer() & 0xFFFF);
            path.isPolyline = (path.flags & 2) != 0;
        } else if (view_.paths.empty()) {
            takeHead(tag);
        } else if (view_.paths.back().isPolyline) {
            takeVertex(tag, view_.paths.back());
        } else {
            takeEdge(tag, view_.paths.back());
        }
    }
    void finish() { closeEdge(); }

private:
    void takeHead(Tag tag)
    {
        if (tag.code() == 10) view_.elevation = tag.point().z;
        else if (tag.code() == 2) view_.pattern = tag.text();
        else if (tag.code() == 70) view_.solid = tag.integer() != 0;
    }

    static void takeVertex(Tag tag, HatchPath& path)
    {
        if (tag.code() == 73) path.closed = tag.integer() != 0;
        else if (tag.code() == 10) path.vertices.push_back({tag.point(), 0.0, 0.0, 0.0});
        else if (tag.code() == 42 && !path.vertices.empty())
            path.vertices.back().bulge = tag.real();
    }

    void takeEdge(Tag tag, HatchPath& path)
    {
        if (tag.code() == 72) {
            closeEdge();
            const std::int64_t type = tag.integer();
            if (type < 1 || type > 4) return;
            path.edges.emplace_back().type = static_cast<HatchEdge::Type>(type - 1);
            inEdge_ = true;
            counterClockwise_ = true;
            return;
        }
        if (tag.code() == 97) closeEdge();
        if (!inEdge_) return;
        HatchEdge& edge = path.edges.back();
        const bool spline = edge.type == HatchEdge::Type::spline;
        switch (tag.code()) {
        case 10:
            if (spline) edge.controls.push_back(tag.point());
            else edge.start = tag.point();
            break;
        case 11:
            if (!spline) edge.end = tag.point();
            break;
        case 40:
            if (spline) edge.knots.push_back(tag.real());
            else edge.radius = tag.real();
            break;
        case 42:
            if (spline) edge.weights.push_back(tag.real());
            break;
        case 50: edge.from = toRadians(tag.real()); break;
        case 51: edge.to = toRadians(tag.real()); break;
        case 73: counterClockwise_ = tag.integer() != 0; break;
        case 94:
            edge.degree = static_cast<int>(std::clamp<std::int64_t>(tag.integer(), 0, 25));
            break;
        default: break;
        }
    }

    /// Brings the angles of the last edge to their running sense: files give those of clockwise
    /// edges mirrored at the X axis.
    void closeEdge()
    {
        if (!inEdge_) return;
        inEdge_ = false;
        HatchEdge& edge = view_.paths.back().edges.back();
        if (edge.type != HatchEdge::Type::arc && edge.type != HatchEdge::Type::ellipse) return;
        constexpr double turn = 2.0 * std::numbers::pi;
        double sweep = std::fmod(edge.to - edge.from, turn);
        if (sweep < 0.0) sweep += turn;
        if (sweep == 0.0) sweep = turn;
        if (counterClockwise_) {
            edge.to = edge.from + sweep;
        } else {
            edge.from = -edge.from;
            edge.to = edge.from - sweep;
        }
    }

    void takeTail(Tag tag)
    {
        HatchLine* line = view_.lines.empty() ? nullptr : &view_.lines.back();
        switch (tag.code()) {
        case 450: isGradient_ = tag.integer() != 0; break;
        case 460: view_.gradient.angle = tag.real(); break; // radians in files as well
        case 421: view_.gradient.colours.push_back(tag.integer()); break;
        case 470:
            if (isGradient_) view_.gradient.shape = tag.text();
            break;
        case 52: view_.angle = toRadians(tag.real()); break;
        case 41: view_.scale = tag.real(); break;
        case 53: view_.lines.emplace_back().angle = toRadians(tag.real()); break;
        case 43:
            if (line != nullptr) line->base.x = tag.real();
            break;
        case 44:
            if (line != nullptr) line->base.y = tag.real();
            break;
        case 45:
            if (line != nullptr) line->offset.x = tag.real();
            break;
        case 46:
            if (line != nullptr) line->offset.y = tag.real();
            break;
        case 49:
            if (line != nullptr) line->dashes.push_back(tag.real());
            break;
        default: break;
        }
    }

    HatchView& view_;
    bool isGradient_ = false;
    bool inTail_ = false, inEdge_ = false, counterClockwise_ = true;
};

} // namespace

HatchView hatchView(const Record& record)
{
    HatchView view;
    HatchReader reader(view);
    const auto marker = record.tags.findMarker("AcDbHatch");
    auto it = marker == record.tags.end() ? record.tags.begin() : std::next(marker);
    for (; it != record.tags.end(); ++it) reader.take(*it);
    reader.finish();
    return view;
}

} // namespace orvald::drawing
