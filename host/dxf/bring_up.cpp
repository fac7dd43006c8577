// SPDX-License-Identifier: LicenseRef-ORVALD
// What versions other than AC1027 write otherwise: class rows, proxies, proxy graphics, embedded
// objects, the group of $ACADMAINTVER. All other records are the same in all of them, or are older
// forms that the host still reads.
#include "mend.h"

#include <algorithm>

namespace orvald::dxf {

using namespace drawing;

namespace {

/// Before AC1018 class rows have no instance count (91, behind 90).
void bringUpClasses(Drawing& drawing)
{
    TagList count;
    count.addInteger(91, 0);
    for (TagList& row : drawing.classes) {
        const auto flags = row.find(90);
        if (flags != row.end() && !row.has(91)) row.insert(std::next(flags), count);
    }
}

void renumber(TagList& tags, TagList::Iterator at, int code)
{
    TagList fresh;
    fresh.addInteger(code, (*at).integer());
    tags.replace(at, fresh);
}

/// Byte counts of graphics and data had 32-bit groups before AC1024: 92 and 93, now 160 and 161.
void widenCounts(Record& record)
{
    const bool proxy = record.kind() == Kind::proxyEntity || record.kind() == Kind::proxyObject;
    std::string_view marker;
    TagList wide;
    bool changed = false;
    for (const Tag tag : record.tags) {
        if (tag.code() == 100) marker = tag.text();
        const bool inProxy = proxy && (marker == "AcDbProxyEntity" || marker == "AcDbProxyObject");
        const bool countsGraphics = tag.code() == 92 && (inProxy || marker == "AcDbEntity");
        const bool countsData = tag.code() == 93 && inProxy;
        if (countsGraphics || countsData) wide.addInteger(countsData ? 161 : 160, tag.integer());
        else wide.add(tag);
        changed = changed || countsGraphics || countsData;
    }
    if (changed) record.tags = wide;
}

/// AC1032 splits a proxy's format (95: version in the low word, maintenance in the high one) into
/// 71 and 97.
void joinProxyFormat(Record& record)
{
    TagList& tags = record.tags;
    const auto version = tags.find(71), maintenance = tags.find(97);
    if (version == tags.end() || maintenance == tags.end() || tags.has(95)) return;
    const auto word = [](Tag tag) { return static_cast<std::uint32_t>(tag.integer()) & 0xFFFF; };
    const auto format = static_cast<std::int32_t>(word(*version) | word(*maintenance) << 16);
    tags.erase(tags.find(97));
    renumber(tags, tags.find(71), 95);
    TagList fresh;
    fresh.addInteger(95, format);
    tags.replace(tags.find(95), fresh);
}

/// Takes the objects embedded behind group 101 away: they repeat what older groups say (column
/// layout of texts, the multi-line form of attributes).
bool dropEmbedded(Record& record)
{
    const Kind kind = record.kind();
    const auto embedded = record.tags.find(101);
    if (embedded == record.tags.end() ||
        (kind != Kind::mtext && kind != Kind::attrib && kind != Kind::attdef))
        return false;
    record.tags.erase(embedded, record.tags.end());
    return true;
}

/// Before R13 dimension styles name the blocks of their arrows; now they point to block records.
void pointToArrows(Drawing& drawing, Index index)
{
    constexpr int groups[][2] = {{5, 342}, {6, 343}, {7, 344}}; // as it was, as it is
    TagList fresh;
    for (const Tag tag : drawing.at(index).tags) {
        const auto* arrow = std::find_if(std::begin(groups), std::end(groups),
                                         [&](const int* group) { return group[0] == tag.code(); });
        if (arrow == std::end(groups)) {
            fresh.add(tag);
            continue;
        }
        std::string name(tag.text());
        if (!name.empty() && drawing.findRecord(TableId::blockRecord, name) == kNone)
            name.insert(0, "_"); // the host's own arrows
        const Index block = name.empty() ? kNone : drawing.findRecord(TableId::blockRecord, name);
        if (block != kNone) fresh.addHandle((*arrow)[1], drawing.at(block).handle);
    }
    drawing.edit(index).tags = fresh;
}

/// Solids, regions, and surfaces, which are none of the kinds that are known by name.
bool mayHaveBody(Kind kind)
{
    return kind == Kind::solid3d || kind == Kind::region || kind == Kind::body ||
           kind == Kind::other;
}

/// Header variables that later versions keep elsewhere.
void dropOldVariables(HeaderVariables& header)
{
    for (const std::string_view name :
         {"$ATTDIA",   "$ATTREQ",   "$AXISMODE",    "$AXISUNIT", "$BLIPMODE",
          "$COORDS",   "$DRAGMODE", "$FASTZOOM",    "$FLATLAND", "$GRIDMODE",
          "$GRIDUNIT", "$HANDLING", "$HIGHLIGHT",   "$OSMODE",   "$PFACEVMAX",
          "$SNAPANG",  "$SNAPBASE", "$SNAPISOPAIR", "$SNAPMODE", "$SNAPSTYLE",
          "$SNAPUNIT", "$VIEWCTR",  "$VIEWDIR",     "$VIEWSIZE", "$VIEWTWIST"})
        header.remove(name);
}

} // namespace

void bringUp(Drawing& drawing, std::string_view version, Warnings& warnings)
{
    drawing.header.setText("$ACADVER", 1, "AC1027");
    if (version == "AC1027") return;
    bringUpClasses(drawing);
    if (version < kFirstMarkedVersion) {
        dropOldVariables(drawing.header);
        for (const Index style : drawing.tableRecords(TableId::dimstyle))
            pointToArrows(drawing, style);
    }
    std::size_t embedded = 0, bodies = 0;
    for (Index i = 0; i < drawing.recordCount(); ++i) {
        const Kind kind = drawing.at(i).kind();
        const bool proxy = kind == Kind::proxyEntity || kind == Kind::proxyObject;
        if (version < "AC1024" &&
            (proxy || (drawing.at(i).isEntity() && drawing.at(i).tags.has(310))))
            widenCounts(drawing.edit(i));
        if (version > "AC1027" && proxy) joinProxyFormat(drawing.edit(i));
        if (version > "AC1027" && dropEmbedded(drawing.edit(i))) ++embedded;
        if (version < "AC1027" && mayHaveBody(kind) &&
            drawing.at(i).tags.findMarker("AcDbModelerGeometry") != drawing.at(i).tags.end())
            ++bodies;
    }
    if (embedded != 0)
        warnings.add(0, std::to_string(embedded) + " texts lose their column or multi-line data, " +
                            "which AC1027 does not have");
    if (bodies != 0)
        warnings.add(0, std::to_string(bodies) + " solid bodies keep the text form of " +
                            std::string(version) + ", which AutoCAD may not read in AC1027");
    // The maintenance number has another group in AC1032.
    if (drawing.header.has("$ACADMAINTVER")) {
        TagList& maintenance = drawing.header.need("$ACADMAINTVER");
        maintenance.clear();
        maintenance.addInteger(70, 125);
    }
}

} // namespace orvald::dxf
