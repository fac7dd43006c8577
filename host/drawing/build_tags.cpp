// SPDX-License-Identifier: LicenseRef-ORVALD
// The groups of a new record out of the groups of a list: complete, in file order, with markers.
#include "build_tags.h"

#include "drawing/text.h"
#include "given.h"

namespace orvald::drawing {
namespace {

/// Groups of a list, put into the order of a schema. False when a required one is missing.
bool orderBySchema(const Schema& schema, const TagList& groups, TagList& out)
{
    std::vector<bool> used;
    const auto take = [&](int code, TagList& into, bool all) {
        std::size_t i = 0;
        bool found = false;
        for (const Tag tag : groups) {
            if (used.size() <= i) used.push_back(false);
            if (!used[i] && tag.code() == code && (all || !found)) {
                into.add(tag);
                used[i] = found = true;
            }
            ++i;
        }
        return found;
    };
    const bool isEntity = schema.sections[0].marker == commonSection().marker;
    for (const SectionRule& section : schema.sections) {
        out.addText(100, section.marker);
        for (const GroupRule& rule : section.groups) {
            TagList value;
            const bool repeats = schema.form == Form::list && &section != &schema.sections[0];
            const bool given = take(rule.code, value, repeats && rule.need == Need::optional);
            if (!given && rule.need == Need::required) return false;
            if (!given && rule.need == Need::always) rule.addDefault(value);
            if (given && (rule.need == Need::told || rule.need == Need::hidden)) {
                TagList none;
                rule.addDefault(none);
                const Tag a = *none.begin(), b = *value.begin();
                if (a.isText() ? b.isText() && sameName(a.text(), b.text()) : sameValue(a, b))
                    value.clear();
            }
            out.append(value);
        }
    }
    // A linetype's dashes follow its head in the order given.
    if (schema.form == Form::list && !isEntity) {
        std::size_t i = 0;
        for (const Tag tag : groups) {
            if (i < used.size() && !used[i] && tag.code() != 100) out.add(tag);
            ++i;
        }
    }
    return true;
}

bool makeLwpolyline(const TagList& groups, TagList& out)
{
    const Schema& schema = *schemaOf(Kind::lwpolyline);
    TagList head, vertices;
    bool inVertices = false;
    std::int64_t count = 0;
    for (const Tag tag : groups) {
        const int code = tag.code();
        inVertices = inVertices || code == 10;
        count += code == 10 ? 1 : 0;
        const bool ofVertex =
            code == 10 || (inVertices && (code == 40 || code == 41 || code == 42 || code == 91));
        if (ofVertex) vertices.add(tag);
        if (code == 90 || (ofVertex && code != 10)) continue; // counted here; not of the head
        if (code != 10 || count == 1) head.add(tag);          // the schema wants one vertex
    }
    if (count == 0 || !groups.has(90)) return false;
    head.addInteger(90, count);
    TagList ordered, points;
    if (!orderBySchema(schema, head, ordered)) return false;
    addVertices(points, vertices, ordered.real(43));
    ordered.replace(ordered.find(10), points);
    out = std::move(ordered);
    return true;
}

bool makeMtext(const TagList& groups, TagList& out)
{
    if (!groups.has(1)) return false;
    TagList head;
    for (const Tag tag : groups)
        if (tag.code() != 3 && tag.code() != 1) head.add(tag);
    head.addText(1, ""); // holds the place
    if (!orderBySchema(*schemaOf(Kind::mtext), head, out)) return false;
    TagList pieces;
    addMtextPieces(pieces, mtextOf(groups));
    out.replace(out.find(1), pieces);
    return true;
}

/// Kinds without schema: common properties first, then the list's own groups in their order.
bool makeAsGiven(const TagList& groups, bool isEntity, TagList& out)
{
    auto own = groups.find(100);
    if (own == groups.end()) return false;
    if (isEntity) {
        if ((*own).text() != "AcDbEntity") return false;
        own = groups.find(100, std::next(own));
        if (own == groups.end()) return false;
        out.addText(100, "AcDbEntity");
        TagList common;
        for (auto it = groups.begin(); it != own; ++it)
            if ((*it).code() != 100) common.add(*it);
        for (const GroupRule& rule : commonSection().groups) {
            const auto found = common.find(rule.code);
            if (found != common.end()) out.add(*found);
        }
        if (!out.has(8)) out.addText(8, "0");
    }
    for (; own != groups.end(); ++own) out.add(*own);
    return true;
}

} // namespace

bool buildTags(Kind kind, bool isEntity, const TagList& groups, TagList& tags)
{
    const Schema* schema = schemaOf(kind);
    if (schema == nullptr) return makeAsGiven(groups, isEntity, tags);
    if (schema->wantsMarkers) {
        for (const SectionRule& section : schema->sections)
            if (groups.findMarker(section.marker) == groups.end()) return false;
    }
    switch (schema->form) {
    case Form::lwpolyline: return makeLwpolyline(groups, tags);
    case Form::mtext: return makeMtext(groups, tags);
    default: return orderBySchema(*schema, groups, tags);
    }
}

} // namespace orvald::drawing
