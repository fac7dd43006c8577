// SPDX-License-Identifier: LicenseRef-ORVALD
// Counts that an entity tells against what it has.
#include "audit/auditor.h"

#include "drawing/text.h"
#include "number_in.h"

#include <algorithm>

namespace orvald::dxf {

using namespace drawing;

namespace {

/// A count in a part of an entity, and the group that begins each of the things it counts.
struct Count
{
    std::string_view type, marker;
    int told, each;
    std::string_view things;
};
constexpr Count kCounts[] = {{"SPLINE", "AcDbSpline", 72, 40, "knots"},
                             {"SPLINE", "AcDbSpline", 73, 10, "control points"},
                             {"SPLINE", "AcDbSpline", 74, 11, "fit points"},
                             {"HELIX", "AcDbSpline", 72, 40, "knots"},
                             {"HELIX", "AcDbSpline", 73, 10, "control points"},
                             {"LEADER", "AcDbLeader", 76, 10, "vertices"},
                             {"MLINE", "AcDbMline", 72, 11, "vertices"},
                             {"IMAGE", "AcDbRasterImage", 91, 14, "points of its clip"},
                             {"WIPEOUT", "AcDbWipeout", 91, 14, "points of its clip"}};

} // namespace

void Auditor::checkCounts()
{
    if (record_.is("LWPOLYLINE")) return checkVertexCount();
    if (record_.is("HATCH")) return checkHatch();
    for (const Count& count : kCounts) {
        if (!record_.is(count.type)) continue;
        std::size_t i = record_.marker(count.marker);
        bool isTold = false;
        std::int64_t told = 0, found = 0;
        for (++i; record_.isInBody(i) && record_[i].code != 100; ++i) {
            if (record_[i].code == count.told && !isTold)
                isTold = readWhole(record_[i].value, told) == Reading::good;
            found += record_[i].code == count.each ? 1 : 0;
        }
        if (isTold && told != found)
            error("counts", "it tells " + std::to_string(told) + " " + std::string(count.things) +
                                " and has " + std::to_string(found));
    }
}

void Auditor::checkVertexCount()
{
    const std::size_t marker = record_.marker("AcDbPolyline");
    const std::size_t first = marker + 1;
    if (first >= record_.size() || record_[first].code != 90)
        return error("vertex-count", "the number of vertices (90) must come first");
    std::int64_t told = 0, found = 0;
    readWhole(record_[first].value, told);
    for (std::size_t i = first; record_.isInBody(i); ++i) found += record_[i].code == 10 ? 1 : 0;
    if (told != found)
        error("vertex-count",
              "it tells " + std::to_string(told) + " vertices and has " + std::to_string(found));
}

void Auditor::checkHatch()
{
    struct Path
    {
        std::int64_t flags, told = -1, found = 0;
    };
    std::vector<Path> paths;
    std::int64_t told = -1;
    bool derived = false;
    for (std::size_t i = record_.bodyBegin(); record_.isInBody(i); ++i) {
        const AuditRecord::Group group = record_[i];
        if (group.code == 75) break;
        std::int64_t number = 0;
        readWhole(group.value, number);
        if (group.code == 91) {
            told = number;
        } else if (group.code == 92) {
            paths.push_back({number});
            derived = derived || (number & 4) != 0;
        } else if (paths.empty()) {
            continue;
        } else if (group.code == 93 && paths.back().told < 0) {
            paths.back().told = number;
        } else if (paths.back().told >= 0 &&
                   group.code == ((paths.back().flags & 2) != 0 ? 10 : 72)) {
            ++paths.back().found;
        }
    }
    const bool hold = std::all_of(paths.begin(), paths.end(),
                                  [](const Path& path) { return path.told == path.found; });
    if (!hold || (told >= 0 && told != static_cast<std::int64_t>(paths.size())))
        error("hatch-counts", "the counts of its boundary (91, 93) do not hold");
    if (marked_ && derived != record_.isInBody(record_.find(47)))
        error("hatch-pixel-size",
              "a pixel size (47) belongs to derived boundaries and only to them");
}

} // namespace orvald::dxf
