// SPDX-License-Identifier: LicenseRef-ORVALD
// LEADER and MULTILEADER, and the arrow heads that they share with dimensions.
#include "dim_settings.h"
#include "drawing/text.h"
#include "painter.h"
#include "splines.h"

#include <algorithm>
#include <cmath>

namespace orvald::picture {

using drawing::Index;
using drawing::Point;
using drawing::Record;
using drawing::Tag;
using drawing::Transform;

namespace {

struct LeaderLine
{
    std::vector<Point> points;
};
struct LeaderRoot
{
    std::vector<LeaderLine> lines;
    bool hasEnd = false, hasLanding = false;
    Point end, landing; // landing: direction
    double landingLength = 0.0;
};
// A colour as these entities store it: the highest byte says what the others are.
using RawColour = std::int64_t;
constexpr RawColour kRawByBlock = 0xC1000000;

struct MLeaderView
{
    std::vector<LeaderRoot> roots;
    bool hasText = false, hasBlock = false;
    drawing::MTextView text;
    drawing::Handle textStyle = 0;
    RawColour textColour = kRawByBlock, lineColour = kRawByBlock, blockColour = kRawByBlock;
    drawing::Handle block = 0;
    Point blockAt, blockScale{1.0, 1.0, 1.0};
    double blockTurn = 0.0;
    std::map<drawing::Handle, std::string> attributes; // by their definition, UTF-8
    double arrowSize = 4.0;
    drawing::Handle arrow = 0;
    int lineKind = 1; // 0 none, 1 straight, 2 curved
    bool landings = true;
};

// Groups mean what the braces around them say: the entity, its context, a leader, one of its lines.
class MLeaderReader
{
public:
    explicit MLeaderReader(const Record& record)
    {
        for (const Tag tag : record.tags) take(tag);
    }
    MLeaderView view;

private:
    enum class In
    {
        entity,
        context,
        leader,
        line
    };

    void take(Tag tag)
    {
        switch (in_) {
        case In::entity: return takeEntity(tag);
        case In::context: return takeContext(tag);
        case In::leader: return takeLeader(tag);
        case In::line: return takeLine(tag);
        }
    }

    void takeEntity(Tag tag)
    {
        switch (tag.code()) {
        case 300:
            if (tag.text() == "CONTEXT_DATA{") in_ = In::context;
            break;
        case 91: view.lineColour = tag.integer(); break;
        case 93: view.blockColour = tag.integer(); break;
        case 170: view.lineKind = int(std::clamp<std::int64_t>(tag.integer(), 0, 2)); break;
        case 291: view.landings = tag.integer() != 0; break;
        case 302: view.attributes[definition_] = drawing::text8(tag.text()); break;
        case 330: definition_ = tag.handle(); break;
        case 342: view.arrow = tag.handle(); break;
        default: break;
        }
    }

    void takeContext(Tag tag)
    {
        drawing::MTextView& text = view.text;
        switch (tag.code()) {
        case 301: in_ = In::entity; break;
        case 302:
            view.roots.emplace_back();
            in_ = In::leader;
            break;
        case 290: view.hasText = tag.integer() != 0; break;
        case 304: text.text = drawing::text8(tag.text()); break;
        case 11: text.normal = tag.point(); break;
        case 12: text.insert = tag.point(); break;
        case 13: {
            const Point along = tag.point();
            text.rotation = std::atan2(along.y, along.x);
            break;
        }
        case 41: text.height = tag.real(); break;
        case 43: text.width = tag.real(); break;
        case 45: text.lineSpacing = tag.real(); break;
        case 90: view.textColour = tag.integer(); break;
        case 171: text.attachment = int(std::clamp<std::int64_t>(tag.integer(), 1, 3)); break;
        case 340: view.textStyle = tag.handle(); break;
        case 296: view.hasBlock = tag.integer() != 0; break;
        case 341: view.block = tag.handle(); break;
        case 15: view.blockAt = tag.point(); break;
        case 16: view.blockScale = tag.point(); break;
        case 46: view.blockTurn = tag.real(); break;
        case 140: view.arrowSize = tag.real(); break;
        default: break;
        }
    }

    void takeLeader(Tag tag)
    {
        LeaderRoot& root = view.roots.back();
        switch (tag.code()) {
        case 303: in_ = In::context; break;
        case 304:
            root.lines.emplace_back();
            in_ = In::line;
            break;
        case 290: root.hasEnd = tag.integer() != 0; break;
        case 291: root.hasLanding = tag.integer() != 0; break;
        case 10: root.end = tag.point(); break;
        case 11: root.landing = tag.point(); break;
        case 40: root.landingLength = tag.real(); break;
        default: break;
        }
    }

    void takeLine(Tag tag)
    {
        if (tag.code() == 305) in_ = In::leader;
        else if (tag.code() == 10) view.roots.back().lines.back().points.push_back(tag.point());
    }

    In in_ = In::entity;
    drawing::Handle definition_ = 0;
};

Colour colourOf(RawColour raw, const Look& look, Background background)
{
    switch (raw >> 24 & 255) {
    case 0xC0: return look.layer->colour;
    case 0xC2: return trueColour(raw & 0xFFFFFF);
    case 0xC3: return numberedColour(int(raw & 255), background);
    default: return look.colour;
    }
}

} // namespace

void Painter::arrow(Point tip, Point along, double size, drawing::Handle blockRecord,
                    const Look& look, const Place& place)
{
    const double far = length(along);
    if (!(far > 0.0) || !(size > 0.0)) return;
    const Point unit = 1.0 / far * along, side{-unit.y, unit.x, 0.0};
    const Index shape = drawing_.byHandle(blockRecord);
    if (shape != drawing::kNone && drawing_.at(shape).kind() == drawing::Kind::blockRecord) {
        // Drawn one unit large, pointing to the right, its tip at the origin.
        const Transform map{-size * unit, -size * side, {0.0, 0.0, size}, tip};
        return block(shape, {place.map.after(map), &look});
    }
    path_.clear();
    path_.moveTo(flat(place.map(tip)));
    path_.lineTo(flat(place.map(tip + size * unit + size / 6.0 * side)));
    path_.lineTo(flat(place.map(tip + size * unit + -size / 6.0 * side)));
    path_.close();
    fill(path_, look, FillRule::nonZero);
}

void Painter::leader(const Record& record, const Look& look, const Place& place)
{
    std::vector<Point> bends;
    for (const Tag tag : record.tags)
        if (tag.code() == 10) bends.push_back(tag.point());
    if (bends.size() < 2) return;
    const DimSettings settings(drawing_, record);
    const double size = settings.size(41, 2.5);
    const Point along = bends[1] - bends[0];
    Look line = look;
    const int colour = int(std::clamp<std::int64_t>(settings.integer(176, 0), 0, 256));
    if (colour != 0) line.colour = looks_.colour(colour, look, place.block);
    // An arrow needs twice its length, as in the host.
    const bool pointed = record.tags.integer(71, 1) != 0 && length(along) >= 2.0 * size;
    points(throughBends(bends, record.tags.integer(72) == 1, place), false, line, place);
    if (pointed) arrow(bends[0], along, size, settings.handle(341), line, place);
}

std::vector<Point> Painter::throughBends(const std::vector<Point>& bends, bool curved,
                                         const Place& place) const
{
    if (!curved) return bends;
    drawing::SplineView spline;
    spline.fits = bends;
    return splinePoints(spline, scaleOf(place.map));
}

void Painter::multiLeader(const Record& record, const Look& look, const Place& place)
{
    const MLeaderView view = MLeaderReader(record).view;
    const Background background = looks_.background();
    Look line = look;
    line.colour = colourOf(view.lineColour, look, background);
    for (const LeaderRoot& root : view.roots) {
        if (view.lineKind == 0) break;
        for (const LeaderLine& leaderLine : root.lines) {
            std::vector<Point> bends = leaderLine.points;
            if (root.hasEnd) bends.push_back(root.end);
            if (bends.size() < 2) continue;
            points(throughBends(bends, view.lineKind == 2, place), false, line, place);
            arrow(bends[0], bends[1] - bends[0], view.arrowSize, view.arrow, line, place);
        }
        if (view.landings && root.hasEnd && root.hasLanding)
            points({root.end, root.end + root.landingLength * root.landing}, false, line, place);
    }
    if (view.hasText && view.text.height > 0.0) {
        Look text = look;
        text.colour = colourOf(view.textColour, look, background);
        drawing::MTextView label = view.text;
        const Index style = drawing_.byHandle(view.textStyle);
        label.style = style != drawing::kNone ? drawing_.at(style).name() : "Standard";
        paragraph(label, text, place);
    }
    const Index shape = drawing_.byHandle(view.block);
    if (view.hasBlock && shape != drawing::kNone &&
        drawing_.at(shape).kind() == drawing::Kind::blockRecord) {
        drawing::InsertView insert;
        insert.insert = view.blockAt;
        insert.scale = view.blockScale;
        insert.rotation = view.blockTurn;
        Look shown = look;
        shown.colour = colourOf(view.blockColour, look, background);
        Place inside{place.map.after(insert.transform(drawing::blockBase(drawing_, shape))),
                     &shown};
        inside.attributes = &view.attributes;
        block(shape, inside);
    }
}

} // namespace orvald::picture
