// SPDX-License-Identifier: LicenseRef-ORVALD
// Rules for one entity, and for the extended data of any record.
#include "audit/auditor.h"

#include "drawing/text.h"
#include "number_in.h"

#include <algorithm>

namespace orvald::dxf {

using namespace drawing;

namespace {

constexpr int kLineWeights[] = {-3, -2, -1, 0,  5,  9,  13,  15,  18,  20,  25,  30,  35, 40,
                                50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
constexpr std::size_t kMostXdata = 16383;      // bytes of extended data an object may have
constexpr std::size_t kLongestXdataText = 255; // bytes
constexpr std::size_t kLongestChunk = 255;     // characters of a piece of a long text
constexpr int kDeepestXdata = 999;             // braces inside one another

/// Entities that name a record of a table.
struct Naming
{
    std::string_view type;
    int code;
    TableId table;
};
constexpr Naming kNaming[] = {
    {"INSERT", 2, TableId::blockRecord}, {"TEXT", 7, TableId::style},
    {"ATTRIB", 7, TableId::style},       {"ATTDEF", 7, TableId::style},
    {"MTEXT", 7, TableId::style},        {"DIMENSION", 2, TableId::blockRecord},
    {"DIMENSION", 3, TableId::dimstyle}, {"ARC_DIMENSION", 2, TableId::blockRecord},
    {"LEADER", 3, TableId::dimstyle},    {"TOLERANCE", 3, TableId::dimstyle}};

/// Bytes that a group of extended data takes in a drawing, about.
std::size_t sizeInDrawing(const AuditRecord::Group& group)
{
    TagKind kind = TagKind::text;
    fileKind(group.code, kind);
    switch (kind) {
    case TagKind::real:
    case TagKind::handle: return 10;
    case TagKind::int16: return 4;
    case TagKind::int32: return 6;
    case TagKind::binary: return group.value.size() / 2 + 3;
    default: return group.value.size() + 3;
    }
}

} // namespace

void Auditor::checkSequence()
{
    const bool end = record_.is("SEQEND");
    const bool part = record_.is("ATTRIB") || record_.is("VERTEX");
    if (!sequence_.empty() && !end && !record_.is(parts_)) {
        error("sequence", "the SEQEND of " + sequence_ + " is missing in front of it");
        sequence_.clear();
    }
    if ((end || part) && sequence_.empty()) error("sequence", "it stands alone");
    if (end) sequence_.clear();
    const bool polyline = record_.is("POLYLINE");
    if (polyline || (record_.is("INSERT") && record_.whole(66) == 1)) {
        sequence_ = record_.name();
        parts_ = polyline ? "VERTEX" : "ATTRIB";
    }
}

void Auditor::checkEntity()
{
    checkClass();
    if (marked_ && record_.text(100) != "AcDbEntity")
        error("no-marker", "no subclass marker AcDbEntity");
    checkLooks();
    checkNames();
    checkCounts();
    if (record_.is("MTEXT")) {
        for (std::size_t i = record_.find(3); record_.isInBody(i); i = record_.find(3, i + 1)) {
            const std::string_view piece = record_[i].value;
            const auto characters = std::count_if(piece.begin(), piece.end(), [](char c) {
                return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
            });
            if (characters <= std::ptrdiff_t{kLongestChunk}) continue;
            error("long-text", "a piece of more than 250 characters");
            break;
        }
    }
    const std::size_t normal = record_.find(210);
    if (!record_.isInBody(normal)) return;
    double x = 0.0, y = 0.0, z = 0.0;
    const bool numbers = readReal(record_[normal].value, x) == Reading::good &&
                         readReal(record_.text(220, "0"), y) == Reading::good &&
                         readReal(record_.text(230, "0"), z) == Reading::good;
    if (numbers && x == 0.0 && y == 0.0 && z == 0.0) error("normal", "a normal of no length");
}

void Auditor::checkLooks()
{
    std::string_view layer, lineType;
    bool hasLayer = false, hasLineType = false;
    // The groups that all entities have: up to the second subclass marker.
    const std::size_t first = record_.bodyBegin() + (marked_ ? 1 : 0);
    for (std::size_t i = first; record_.isInBody(i); ++i) {
        const AuditRecord::Group group = record_[i];
        if (group.code == 100 && marked_) break;
        std::int64_t number = 0;
        if (group.code == 8 && !hasLayer) {
            layer = group.value;
            hasLayer = true;
        } else if (group.code == 6 && !hasLineType) {
            lineType = group.value;
            hasLineType = true;
        } else if ((group.code == 62 || group.code == 370) &&
                   readWhole(group.value, number) == Reading::good) {
            const bool fits = group.code == 62
                                  ? number >= 0 && number <= 257
                                  : std::find(std::begin(kLineWeights), std::end(kLineWeights),
                                              number) != std::end(kLineWeights);
            if (!fits)
                error(group.code == 62 ? "colour" : "line-weight",
                      (group.code == 62 ? "colour " : "line weight ") + std::to_string(number));
        }
    }
    if (!hasLayer) {
        if (marked_) error("undefined-name", "no layer");
    } else {
        index_.use(record_, TableId::layer, layer, false);
    }
    // Before R13 the table lists only those that have dashes, and CONTINUOUS.
    const bool implied =
        !marked_ && (sameName(lineType, "ByLayer") || sameName(lineType, "ByBlock"));
    if (hasLineType && !implied) index_.use(record_, TableId::ltype, lineType);
}

void Auditor::checkNames()
{
    for (const Naming& naming : kNaming) {
        if (!record_.is(naming.type)) continue;
        const std::size_t at = record_.find(naming.code);
        if (record_.isInBody(at)) index_.use(record_, naming.table, record_[at].value);
        else if (record_.is("INSERT")) error("undefined-name", "it names no block");
    }
}

void Auditor::checkXdata()
{
    if (record_.bodyEnd() == record_.size()) return;
    std::set<std::string> applications;
    std::string application;
    std::size_t bytes = 0;
    int depth = 0;
    bool judged = false; // one error is enough for an application
    const auto fail = [&](std::string_view kind, std::string text) {
        if (!judged) error(kind, std::move(text) + " of " + quoted(application));
        judged = true;
    };
    const auto close = [&] {
        if (depth != 0) fail("xdata-braces", "open braces in the extended data");
        depth = 0;
        judged = false;
    };
    for (std::size_t i = record_.bodyEnd(); i < record_.size(); ++i) {
        const AuditRecord::Group group = record_[i];
        if (group.code == 1001) {
            close();
            application = group.value;
            index_.use(record_, TableId::appid, application);
            if (!applications.insert(nameKey(application)).second)
                error("xdata-twice", "second extended data of " + quoted(application));
            continue;
        }
        bytes += sizeInDrawing(group);
        if (group.code < 1000) {
            fail("xdata-group", "group " + std::to_string(group.code) + " in the extended data");
            depth = 0;
        } else if (group.code == 1002) {
            depth += group.value == "{" ? 1 : group.value == "}" ? -1 : kDeepestXdata + 1;
            if (depth < 0 || depth > kDeepestXdata) {
                fail("xdata-braces", "brace " + quoted(group.value) + " in the extended data");
                depth = 0;
            }
        } else if ((group.code == 1000 || group.code == 1003) &&
                   group.value.size() > kLongestXdataText) {
            error("xdata-text", "a text of " + std::to_string(group.value.size()) +
                                    " bytes in the extended data of " + quoted(application));
        }
    }
    close();
    if (bytes > kMostXdata)
        error("xdata-size", "about " + std::to_string(bytes) + " bytes of extended data, " +
                                std::to_string(kMostXdata) + " are allowed");
}

} // namespace orvald::dxf
