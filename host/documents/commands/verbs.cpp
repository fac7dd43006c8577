// SPDX-License-Identifier: LicenseRef-ORVALD
#include "commands/verbs.h"

#include <algorithm>

namespace orvald {
namespace {

/// Commands of drawing programs that draw, change or write something, so that a program must not
/// go on as if they had.
constexpr std::u16string_view kElsewhere[] = {
    u"3DARRAY",    u"3DFACE",      u"3DMESH",      u"3DPOLY",      u"ALIGN",     u"AREA",
    u"ARRAY",      u"ATTDEF",      u"ATTEDIT",     u"ATTEXT",      u"ATTSYNC",   u"BHATCH",
    u"BOUNDARY",   u"CHAMFER",     u"DDEDIT",      u"DIM",         u"DIM1",      u"DIMALIGNED",
    u"DIMANGULAR", u"DIMBASELINE", u"DIMCONTINUE", u"DIMDIAMETER", u"DIMLINEAR", u"DIMORDINATE",
    u"DIMRADIUS",  u"DIMSTYLE",    u"DIVIDE",      u"DONUT",       u"DRAWORDER", u"DXFIN",
    u"DXFOUT",     u"ELLIPSE",     u"EXPORT",      u"EXTRUDE",     u"GROUP",     u"HATCH",
    u"HATCHEDIT",  u"IMAGE",       u"INTERSECT",   u"JOIN",        u"LAYOUT",    u"LEADER",
    u"LENGTHEN",   u"LIST",        u"MATCHPROP",   u"MEASURE",     u"MENU",      u"MINSERT",
    u"MLEADER",    u"MLINE",       u"MSLIDE",      u"MSPACE",      u"MTEXT",     u"MVIEW",
    u"NEW",        u"OOPS",        u"OPEN",        u"OVERKILL",    u"PLOT",      u"POLYGON",
    u"PROPERTIES", u"PSPACE",      u"QSAVE",       u"QUIT",        u"REFEDIT",   u"REGION",
    u"RENAME",     u"REVOLVE",     u"ROTATE3D",    u"SAVE",        u"SAVEAS",    u"SCRIPT",
    u"SHELL",      u"SKETCH",      u"SOLID",       u"SPLINE",      u"SUBTRACT",  u"TABLE",
    u"THICKEN",    u"TRACE",       u"UNION",       u"UNITS",       u"VIEW",      u"VPORTS",
    u"WBLOCK",     u"WIPEOUT",     u"XATTACH",     u"XCLIP",       u"XLINE",     u"XREF",
};

std::span<const Verb> (*const kFamilies[])() = {
    curveVerbs,   polylineVerbs, textVerbs, moveVerbs,   layerVerbs,
    settingVerbs, systemVerbs,   viewVerbs, undoVerbs,   blockVerbs,
    explodeVerbs, changeVerbs,   cutVerbs,  offsetVerbs, peditVerbs};

/// "-LAYER" asks at the command line what "LAYER" asks in a dialog; here it is one.
std::u16string_view withoutDash(std::u16string_view name)
{
    return name.size() > 1 && name.front() == u'-' ? name.substr(1) : name;
}

} // namespace

std::optional<Verb> findVerb(std::u16string_view name)
{
    name = withoutDash(name);
    for (const auto family : kFamilies) {
        const std::span<const Verb> verbs = family();
        const auto found = std::ranges::find(verbs, name, &Verb::name);
        if (found != verbs.end()) return *found;
    }
    return std::nullopt;
}

std::vector<std::u16string_view> verbNames()
{
    std::vector<std::u16string_view> names;
    for (const auto family : kFamilies)
        for (const Verb& verb : family()) names.push_back(verb.name);
    return names;
}

bool isVerbElsewhere(std::u16string_view name)
{
    return std::ranges::find(kElsewhere, withoutDash(name)) != std::end(kElsewhere);
}

} // namespace orvald
