// SPDX-License-Identifier: LicenseRef-ORVALD
// A HATCH's groups mean what the groups in front of them say.
#include "hatch_loops.h"

#include "curve_arcs.h"
#include "kex/vertex_area.h"
#include "spline.h"

#include <algorithm>
#include <cmath>

namespace KEX {
namespace {

enum EdgeType
{
    kLine = 1,
    kArc,
    kEllipse,
    kSpline
};

/// Parameters at which a curve over angles turns round.
std::vector<double> quartersBetween(double from, double to)
{
    std::vector<double> quarters;
    constexpr double kQuarter = kPi / 2.0;
    for (double t = std::ceil(from / kQuarter) * kQuarter; t < to - kAngleNoise; t += kQuarter) {
        if (t > from + kAngleNoise) quarters.push_back(t);
    }
    return quarters;
}

CKexVertex reversed(const CKexVertex& vertex)
{
    return CKexVertex(vertex.endPoint(), vertex.startPoint(), 0.0 - vertex.bulge());
}

/// One edge while its groups come in.
struct Edge
{
    int type = 0;
    bool forward = true;
    CKexPoint3d start, end; // arc and ellipse: centre, end of the major axis from it
    double size = 0.0;      // radius, ratio of the axes
    double from = 0.0, to = 0.0;
    Spline spline{0};

    void appendTo(CKexVertexArray& loop, double dif) const;
};

void Edge::appendTo(CKexVertexArray& loop, double dif) const
{
    if (type == kLine) {
        if (!(start == end)) loop.append(CKexVertex(start, end));
        return;
    }
    if (type == kSpline) {
        if (!spline.isGood()) return;
        arcsAlong([this](double t) { return spline.at(t); }, spline.from(), spline.to(),
                  spline.breaks(), dif, loop);
        return;
    }
    if (type != kArc && type != kEllipse) return;
    // Angles of edges that run clockwise are kept mirrored at the X axis.
    double sweep = g_ang(to - from);
    if (sweep == 0.0) sweep = kTwoPi;
    const CKexVector3d major = type == kArc ? CKexVector3d(size, 0.0) : end.asVector();
    const CKexVector3d minor = major.perpXY() * (type == kArc ? 1.0 : size);
    const double sense = forward ? 1.0 : -1.0;
    const auto at = [&](double t) {
        return start + major * std::cos(sense * t) + minor * std::sin(sense * t);
    };
    if (type == kEllipse) {
        arcsAlong(at, from, from + sweep, quartersBetween(from, from + sweep), dif, loop);
        return;
    }
    // Two halves, so that a full circle has chords.
    const double bulge = sense * g_ang_bulg(0.5 * sweep);
    const CKexPoint3d middle = at(from + 0.5 * sweep);
    loop.append(CKexVertex(at(from), middle, bulge));
    loop.append(CKexVertex(middle, at(from + sweep), bulge));
}

/// Edges may stand turned round: each begins where the one before ends.
void appendTurned(CKexVertexArray& loop, const CKexVertexArray& edge)
{
    if (edge.isEmpty()) return;
    const auto turn =
        !loop.isEmpty() && loop.last().endPoint().distanceTo(edge.last().endPoint()) <
                               loop.last().endPoint().distanceTo(edge.first().startPoint());
    if (!turn) return loop.append(edge);
    for (int i = edge.length() - 1; i >= 0; --i) loop.append(reversed(edge[i]));
}

class LoopReader
{
public:
    LoopReader(std::vector<CKexVertexArray>& loops, double dif) : loops_(loops), dif_(dif) {}

    void take(const resbuf& node)
    {
        if (node.restype == 75) ended_ = true; // the pattern follows
        if (ended_) return;
        if (node.restype == 92) beginPath((node.resval.rlong & 2) != 0);
        else if (!inPath_) return;
        else if (polyline_) takeVertex(node);
        else takeEdge(node);
    }
    void finish() { closePath(); }

private:
    void beginPath(bool polyline)
    {
        closePath();
        inPath_ = true;
        polyline_ = polyline;
    }

    void takeVertex(const resbuf& node)
    {
        if (node.restype == 10) corners_.append(CKexVertex(pointOf(node), pointOf(node)));
        if (node.restype == 42 && !corners_.isEmpty()) corners_.last().setBulge(node.resval.rreal);
    }

    void takeEdge(const resbuf& node)
    {
        switch (node.restype) {
        case 72:
            closeEdge();
            edge_.type = node.resval.rint;
            break;
        case 10:
            if (edge_.type == kSpline) edge_.spline.addControl(pointOf(node));
            else edge_.start = pointOf(node);
            break;
        case 11: edge_.end = pointOf(node); break;
        case 40:
            if (edge_.type == kSpline) edge_.spline.addKnot(node.resval.rreal);
            else edge_.size = node.resval.rreal;
            break;
        case 42: edge_.spline.addWeight(node.resval.rreal); break;
        case 50: edge_.from = node.resval.rreal; break;
        case 51: edge_.to = node.resval.rreal; break;
        case 73: edge_.forward = node.resval.rint != 0; break;
        case 94: edge_.spline = Spline(static_cast<int>(node.resval.rlong)); break;
        case 97: closeEdge(); break;
        default: break;
        }
    }

    void closeEdge()
    {
        CKexVertexArray edge;
        edge_.appendTo(edge, dif_);
        appendTurned(loop_, edge);
        edge_ = Edge();
    }

    void closePath()
    {
        closeEdge();
        for (int i = 0; i < corners_.length(); ++i) {
            const CKexPoint3d& next = corners_[(i + 1) % corners_.length()].startPoint();
            const CKexVertex& corner = corners_[i];
            if (!(corner.startPoint() == next)) {
                loop_.append(CKexVertex(corner.startPoint(), next, corner.bulge()));
            }
        }
        if (!loop_.isEmpty()) loops_.push_back(loop_);
        loop_.clear();
        corners_.clear();
    }

    static CKexPoint3d pointOf(const resbuf& node)
    {
        return {node.resval.rpoint[0], node.resval.rpoint[1]};
    }

    std::vector<CKexVertexArray>& loops_;
    double dif_;
    bool inPath_ = false, polyline_ = false, ended_ = false;
    CKexVertexArray loop_, corners_;
    Edge edge_;
};

} // namespace

std::vector<CKexVertexArray> hatchLoops(const EntityGroups& hatch, double dif)
{
    std::vector<CKexVertexArray> loops;
    LoopReader reader(loops, dif);
    for (const resbuf* node = hatch.first(); node != nullptr; node = node->rbnext) {
        reader.take(*node);
    }
    reader.finish();
    return loops;
}

std::optional<double> hatchArea(const EntityGroups& hatch)
{
    constexpr double kDif = 1e-6; // drawing units
    const std::vector<CKexVertexArray> loops = hatchLoops(hatch, kDif);
    if (loops.empty()) return std::nullopt;
    double area = 0.0;
    for (const CKexVertexArray& loop : loops) {
        const CKexPoint3d inner = loop.first().mid();
        const auto around = std::ranges::count_if(loops, [&](const CKexVertexArray& other) {
            return &other != &loop && vl_inside(other, inner) == 1;
        });
        area += (around % 2 == 0 ? 1.0 : -1.0) * std::abs(vl_area(loop));
    }
    return area;
}

} // namespace KEX
