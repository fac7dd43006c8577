// SPDX-License-Identifier: LicenseRef-ORVALD
// Names of the record types that code of ours asks for, in the order of the enumeration.
#include "drawing/kind.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace orvald::drawing {
namespace {

constexpr std::string_view kNames[] = {"",
                                       "ARC",
                                       "ATTDEF",
                                       "ATTRIB",
                                       "BLOCK",
                                       "BODY",
                                       "CIRCLE",
                                       "DIMENSION",
                                       "ELLIPSE",
                                       "ENDBLK",
                                       "3DFACE",
                                       "HATCH",
                                       "INSERT",
                                       "LEADER",
                                       "LINE",
                                       "LWPOLYLINE",
                                       "MLINE",
                                       "MTEXT",
                                       "POINT",
                                       "POLYLINE",
                                       "ACAD_PROXY_ENTITY",
                                       "RAY",
                                       "REGION",
                                       "SEQEND",
                                       "SOLID",
                                       "3DSOLID",
                                       "SPLINE",
                                       "TEXT",
                                       "TOLERANCE",
                                       "TRACE",
                                       "VERTEX",
                                       "VIEWPORT",
                                       "XLINE",
                                       "TABLE",
                                       "APPID",
                                       "BLOCK_RECORD",
                                       "DIMSTYLE",
                                       "LAYER",
                                       "LTYPE",
                                       "STYLE",
                                       "UCS",
                                       "VIEW",
                                       "VPORT",
                                       "DICTIONARY",
                                       "ACDBDICTIONARYWDFLT",
                                       "LAYOUT",
                                       "MATERIAL",
                                       "MLEADERSTYLE",
                                       "MLINESTYLE",
                                       "ACDBPLACEHOLDER",
                                       "PLOTSETTINGS",
                                       "ACAD_PROXY_OBJECT",
                                       "XRECORD"};
constexpr std::size_t kCount = std::size(kNames);
static_assert(kCount == static_cast<std::size_t>(Kind::xrecord) + 1, "one name for each kind");

constexpr std::array<std::uint8_t, kCount> sortedKinds()
{
    std::array<std::uint8_t, kCount> order{};
    std::iota(order.begin(), order.end(), std::uint8_t{0});
    std::sort(order.begin(), order.end(),
              [](std::uint8_t a, std::uint8_t b) { return kNames[a] < kNames[b]; });
    return order;
}
constexpr auto kSorted = sortedKinds();

} // namespace

std::string_view kindName(Kind kind) { return kNames[static_cast<std::size_t>(kind)]; }

Kind kindOf(std::string_view name)
{
    const auto found = std::lower_bound(
        kSorted.begin(), kSorted.end(), name,
        [](std::uint8_t kind, std::string_view wanted) { return kNames[kind] < wanted; });
    if (found == kSorted.end() || kNames[*found] != name) return Kind::other;
    return static_cast<Kind>(*found);
}

} // namespace orvald::drawing
