// SPDX-License-Identifier: LicenseRef-ORVALD
#include "drawing/markers.h"

#include "drawing/drawing.h"
#include "schema.h"

#include <algorithm>
#include <span>

namespace orvald::drawing {
namespace {

/// A subclass and the groups that belong to it; none: all that are left.
struct Part
{
    std::string_view marker;
    std::span<const int> codes;
};

constexpr int kDimension[] = {2, 3, 10, 11, 70, 71, 72, 41, 42, 1, 53, 51, 210};
constexpr int kLinear[] = {12, 13, 14, 50, 52};
constexpr int kAngular[] = {13, 14, 15, 16};
constexpr int kRadial[] = {15, 40};
constexpr int kOrdinate[] = {13, 14};

constexpr Part kRotated[] = {
    {"AcDbDimension", kDimension}, {"AcDbAlignedDimension", kLinear}, {"AcDbRotatedDimension", {}}};
constexpr Part kAligned[] = {{"AcDbDimension", kDimension}, {"AcDbAlignedDimension", kLinear}};
constexpr Part kTwoLines[] = {{"AcDbDimension", kDimension},
                              {"AcDb2LineAngularDimension", kAngular}};
constexpr Part kDiameter[] = {{"AcDbDimension", kDimension}, {"AcDbDiametricDimension", kRadial}};
constexpr Part kRadius[] = {{"AcDbDimension", kDimension}, {"AcDbRadialDimension", kRadial}};
constexpr Part kThreePoints[] = {{"AcDbDimension", kDimension},
                                 {"AcDb3PointAngularDimension", kAngular}};
constexpr Part kOrdinates[] = {{"AcDbDimension", kDimension}, {"AcDbOrdinateDimension", kOrdinate}};
/// By the low bits of group 70.
constexpr std::span<const Part> kDimensions[] = {kRotated, kAligned,     kTwoLines, kDiameter,
                                                 kRadius,  kThreePoints, kOrdinates};

/// Marker of an entity whose groups all belong to one subclass.
std::string_view onlyMarker(const Record& record)
{
    switch (record.kind()) {
    case Kind::block: return "AcDbBlockBegin";
    case Kind::endblk: return "AcDbBlockEnd";
    case Kind::viewport: return "AcDbViewport";
    default: return record.typeName() == "SHAPE" ? "AcDbShape" : "";
    }
}

class Sorter
{
public:
    explicit Sorter(const TagList& groups) : groups_(groups)
    {
        used_.resize(static_cast<std::size_t>(std::distance(groups.begin(), groups.end())));
    }

    void begin(std::string_view marker) { out_.addText(100, marker); }
    /// Moves the groups of the codes for which `wanted` is true; each code once unless `all`.
    template <class Wanted>
    void take(Wanted wanted, bool all)
    {
        std::vector<int> taken;
        std::size_t i = 0;
        for (const Tag tag : groups_) {
            const std::size_t at = i++;
            const bool again = std::find(taken.begin(), taken.end(), tag.code()) != taken.end();
            if (used_[at] || !wanted(tag.code()) || (again && !all)) continue;
            used_[at] = true;
            taken.push_back(tag.code());
            out_.add(tag);
        }
    }
    void takeRest()
    {
        take([](int) { return true; }, true);
    }
    TagList& result() { return out_; }

private:
    const TagList& groups_;
    std::vector<bool> used_;
    TagList out_;
};

void addEntityMarkers(Record& record, Sorter& sorter, std::int64_t polylineFlags)
{
    sorter.begin(commonSection().marker);
    sorter.take([](int code) { return commonSection().find(code) != SectionRule::npos; }, false);
    const Kind kind = record.kind();
    if (kind == Kind::dimension) {
        const auto type = static_cast<std::size_t>(record.tags.integer(70) & 7);
        const auto parts = kDimensions[type < std::size(kDimensions) ? type : 0];
        for (const Part& part : parts) {
            sorter.begin(part.marker);
            sorter.take(
                [&](int code) {
                    return std::find(part.codes.begin(), part.codes.end(), code) !=
                           part.codes.end();
                },
                false);
        }
        return; // what other types of dimension use means nothing here
    }
    if (const Schema* schema = schemaOf(kind)) {
        for (const SectionRule& section : schema->sections.subspan(1)) {
            sorter.begin(kind == Kind::polyline ? polylineMarker(record.tags.integer(70))
                         : section.marker == "AcDb2dVertex"
                             ? vertexMarker(polylineFlags, record.tags.integer(70))
                             : section.marker);
            sorter.take([&](int code) { return section.find(code) != SectionRule::npos; }, false);
        }
    } else if (const std::string_view marker = onlyMarker(record); !marker.empty()) {
        sorter.begin(marker);
    }
    sorter.takeRest();
}

} // namespace

void addMarkers(Record& record, std::int64_t polylineFlags)
{
    if (record.kind() == Kind::other && record.typeName() != "SHAPE") return;
    if (record.tags.has(100)) return;
    TagList groups;
    for (auto it = record.body(); it != record.tags.end(); ++it) groups.add(*it);
    Sorter sorter(groups);
    TableId table{};
    if (record.isEntity()) {
        addEntityMarkers(record, sorter, polylineFlags);
    } else if (record.family() == Family::tableHead) {
        sorter.take([](int code) { return code == 2; }, false);
        sorter.begin("AcDbSymbolTable");
        sorter.takeRest();
        if (record.name() == tableName(TableId::dimstyle)) sorter.begin("AcDbDimStyleTable");
    } else if (record.family() == Family::tableRecord && tableOf(record.typeName(), table)) {
        sorter.begin("AcDbSymbolTableRecord");
        sorter.begin(recordMarker(table));
        sorter.takeRest();
    } else {
        return;
    }
    TagList tags;
    for (auto it = record.tags.begin(); it != record.body(); ++it) tags.add(*it);
    tags.append(sorter.result());
    record.tags = std::move(tags);
}

} // namespace orvald::drawing
