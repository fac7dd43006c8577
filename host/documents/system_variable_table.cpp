// SPDX-License-Identifier: LicenseRef-ORVALD
// The system variables that a drawing keeps, and the list of all. Values are those of a new metric
// drawing; a range of the host's documentation is kept where programs meet it.
#include "variable_rows.h"

#include "text/letters.h"

#include <algorithm>
#include <vector>

namespace orvald {
namespace {

using drawing::TableId;
using enum VariableHome;
using enum VariableType;

constexpr VariableRow switchIn(VariableHome home, std::u16string_view name, std::int16_t group,
                               double value)
{
    return {.name = name, .home = home, .group = group, .most = 1.0, .number = value};
}
constexpr VariableRow number(std::u16string_view name, std::int16_t group, double least,
                             double most, double value)
{
    return {.name = name,
            .home = header,
            .group = group,
            .least = least,
            .most = most,
            .number = value};
}
constexpr VariableRow size(std::u16string_view name, double value, double least = -kAny,
                           std::int16_t group = 40)
{
    return {.name = name,
            .type = real,
            .home = header,
            .group = group,
            .least = least,
            .most = kAny,
            .number = value};
}
constexpr VariableRow named(std::u16string_view name, std::int16_t group, std::u16string_view value,
                            std::optional<TableId> table = {})
{
    return {.name = name,
            .type = text,
            .home = header,
            .group = group,
            .text = value,
            .namesIn = table};
}
constexpr VariableRow kHeaderRows[] = {
    size(u"ANGBASE", 0.0, -kAny, 50),
    number(u"ANGDIR", 70, 0, 1, 0),
    number(u"ATTMODE", 70, 0, 2, 1),
    number(u"AUNITS", 70, 0, 4, 0),
    number(u"AUPREC", 70, 0, 8, 0),
    size(u"CELTSCALE", 1.0, kAboveZero),
    named(u"CELTYPE", 6, u"ByLayer", TableId::ltype),
    number(u"CELWEIGHT", 370, -3, 211, -1),
    size(u"CHAMFERA", 0.0, 0.0),
    size(u"CHAMFERB", 0.0, 0.0),
    size(u"CHAMFERC", 0.0, 0.0),
    size(u"CHAMFERD", 0.0),
    named(u"CLAYER", 8, u"0", TableId::layer),
    number(u"CMLJUST", 70, 0, 2, 0),
    size(u"CMLSCALE", 20.0),
    fixed(named(u"CMLSTYLE", 2, u"Standard")),
    number(u"DIMADEC", 70, -1, 8, 0),
    number(u"DIMALT", 70, 0, 1, 0),
    number(u"DIMALTD", 70, 0, 8, 3),
    size(u"DIMALTF", 0.03937007874015748, kAboveZero),
    size(u"DIMALTRND", 0.0, 0.0),
    number(u"DIMALTTD", 70, 0, 8, 3),
    number(u"DIMALTTZ", 70, 0, 15, 0),
    number(u"DIMALTU", 70, 1, 8, 2),
    number(u"DIMALTZ", 70, 0, 15, 0),
    named(u"DIMAPOST", 1, u""),
    number(u"DIMARCSYM", 70, 0, 2, 0),
    number(u"DIMASSOC", 280, 0, 2, 2),
    size(u"DIMASZ", 2.5, 0.0),
    number(u"DIMATFIT", 70, 0, 3, 3),
    number(u"DIMAUNIT", 70, 0, 4, 0),
    number(u"DIMAZIN", 70, 0, 3, 0),
    named(u"DIMBLK", 1, u""),
    named(u"DIMBLK1", 1, u""),
    named(u"DIMBLK2", 1, u""),
    size(u"DIMCEN", 2.5),
    number(u"DIMCLRD", 70, 0, 256, 0),
    number(u"DIMCLRE", 70, 0, 256, 0),
    number(u"DIMCLRT", 70, 0, 256, 0),
    number(u"DIMDEC", 70, 0, 8, 2),
    size(u"DIMDLE", 0.0, 0.0),
    size(u"DIMDLI", 3.75, 0.0),
    number(u"DIMDSEP", 70, 0, kShort, 44),
    size(u"DIMEXE", 1.25, 0.0),
    size(u"DIMEXO", 0.625, 0.0),
    number(u"DIMFRAC", 70, 0, 2, 0),
    size(u"DIMFXL", 1.0, 0.0),
    number(u"DIMFXLON", 70, 0, 1, 0),
    size(u"DIMGAP", 0.625),
    size(u"DIMJOGANG", 0.7853981633974483, 0.0),
    number(u"DIMJUST", 70, 0, 4, 0),
    named(u"DIMLDRBLK", 1, u""),
    size(u"DIMLFAC", 1.0),
    number(u"DIMLIM", 70, 0, 1, 0),
    number(u"DIMLUNIT", 70, 1, 6, 2),
    number(u"DIMLWD", 70, -3, 211, -2),
    number(u"DIMLWE", 70, -3, 211, -2),
    named(u"DIMPOST", 1, u""),
    size(u"DIMRND", 0.0, 0.0),
    number(u"DIMSAH", 70, 0, 1, 0),
    size(u"DIMSCALE", 1.0, 0.0),
    number(u"DIMSD1", 70, 0, 1, 0),
    number(u"DIMSD2", 70, 0, 1, 0),
    number(u"DIMSE1", 70, 0, 1, 0),
    number(u"DIMSE2", 70, 0, 1, 0),
    number(u"DIMSOXD", 70, 0, 1, 0),
    fixed(named(u"DIMSTYLE", 2, u"Standard")),
    number(u"DIMTAD", 70, 0, 4, 1),
    number(u"DIMTDEC", 70, 0, 8, 2),
    size(u"DIMTFAC", 1.0, kAboveZero),
    number(u"DIMTFILL", 70, 0, 2, 0),
    number(u"DIMTFILLCLR", 70, 0, 256, 0),
    number(u"DIMTIH", 70, 0, 1, 0),
    number(u"DIMTIX", 70, 0, 1, 0),
    size(u"DIMTM", 0.0),
    number(u"DIMTMOVE", 70, 0, 2, 0),
    number(u"DIMTOFL", 70, 0, 1, 1),
    number(u"DIMTOH", 70, 0, 1, 0),
    number(u"DIMTOL", 70, 0, 1, 0),
    number(u"DIMTOLJ", 70, 0, 2, 0),
    size(u"DIMTP", 0.0),
    size(u"DIMTSZ", 0.0, 0.0),
    size(u"DIMTVP", 0.0),
    named(u"DIMTXSTY", 7, u"Standard", TableId::style),
    size(u"DIMTXT", 2.5, kAboveZero),
    number(u"DIMTXTDIRECTION", 70, 0, 1, 0),
    number(u"DIMTZIN", 70, 0, 15, 8),
    number(u"DIMUPT", 70, 0, 1, 0),
    number(u"DIMZIN", 70, 0, 15, 8),
    number(u"DISPSILH", 70, 0, 1, 0),
    size(u"ELEVATION", 0.0),
    size(u"FILLETRAD", 10.0, 0.0),
    number(u"FILLMODE", 70, 0, 1, 1),
    number(u"HALOGAP", 280, 0, 100, 0),
    named(u"HYPERLINKBASE", 1, u""),
    number(u"INDEXCTL", 280, 0, 3, 0),
    place(u"INSBASE", point3),
    number(u"INSUNITS", 70, 0, 24, 4),
    number(u"INTERSECTIONCOLOR", 70, 0, 257, 257),
    number(u"INTERSECTIONDISPLAY", 280, 0, 1, 0),
    fixed(named(u"LASTSAVEDBY", 1, u"")),
    number(u"LIMCHECK", 70, 0, 1, 0),
    place(u"LIMMAX", point2, {420.0, 297.0, 0.0}),
    place(u"LIMMIN", point2),
    size(u"LTSCALE", 1.0, kAboveZero),
    number(u"LUNITS", 70, 1, 5, 2),
    number(u"LUPREC", 70, 0, 8, 4),
    switchIn(header, u"LWDISPLAY", 290, 0),
    number(u"MAXACTVP", 70, 2, 64, 64),
    number(u"MEASUREMENT", 70, 0, 1, 1),
    number(u"MIRRTEXT", 70, 0, 1, 0),
    number(u"ORTHOMODE", 70, 0, 1, 0),
    number(u"PDMODE", 70, 0, 100, 0),
    size(u"PDSIZE", 0.0),
    number(u"PLINEGEN", 70, 0, 1, 0),
    size(u"PLINEWID", 0.0, 0.0),
    fixed(named(u"PROJECTNAME", 1, u"")),
    number(u"PROXYGRAPHICS", 70, 0, 1, 1),
    number(u"PSLTSCALE", 70, 0, 1, 1),
    fixed(switchIn(header, u"PSTYLEMODE", 290, 1)),
    named(u"PUCSBASE", 2, u""),
    number(u"QTEXTMODE", 70, 0, 1, 0),
    number(u"REGENMODE", 70, 0, 1, 1),
    number(u"SHADEDGE", 70, 0, 3, 3),
    number(u"SHADEDIF", 70, 0, 100, 70),
    size(u"SKETCHINC", 1.0, kAboveZero),
    number(u"SKPOLY", 70, 0, 2, 0),
    number(u"SORTENTS", 280, 0, 127, 127),
    number(u"SPLFRAME", 70, 0, 1, 0),
    number(u"SPLINESEGS", 70, -kShort, kShort, 8),
    number(u"SPLINETYPE", 70, 5, 6, 6),
    number(u"SURFTAB1", 70, 2, kShort, 6),
    number(u"SURFTAB2", 70, 2, kShort, 6),
    number(u"SURFTYPE", 70, 5, 8, 6),
    number(u"SURFU", 70, 0, 200, 6),
    number(u"SURFV", 70, 0, 200, 6),
    fixed(size(u"TDCREATE", 0.0)),
    fixed(size(u"TDINDWG", 0.0)),
    fixed(size(u"TDUPDATE", 0.0)),
    fixed(size(u"TDUSRTIMER", 0.0)),
    size(u"TEXTSIZE", 2.5, kAboveZero),
    named(u"TEXTSTYLE", 7, u"Standard", TableId::style),
    size(u"THICKNESS", 0.0),
    number(u"TILEMODE", 70, 0, 1, 1),
    number(u"TIMEZONE", 70, -12800, 13000, 0),
    size(u"TRACEWID", 1.0, kAboveZero),
    number(u"TREEDEPTH", 70, -kShort, kShort, 3020),
    named(u"UCSBASE", 2, u""),
    fixed(named(u"UCSNAME", 2, u"")),
    number(u"UNITMODE", 70, 0, 1, 0),
    number(u"USERI1", 70, -kShort - 1, kShort, 0),
    number(u"USERI2", 70, -kShort - 1, kShort, 0),
    number(u"USERI3", 70, -kShort - 1, kShort, 0),
    number(u"USERI4", 70, -kShort - 1, kShort, 0),
    number(u"USERI5", 70, -kShort - 1, kShort, 0),
    size(u"USERR1", 0.0),
    size(u"USERR2", 0.0),
    size(u"USERR3", 0.0),
    size(u"USERR4", 0.0),
    size(u"USERR5", 0.0),
    number(u"VISRETAIN", 70, 0, 1, 1),
    number(u"WORLDVIEW", 70, 0, 2, 1),
    number(u"XCLIPFRAME", 280, 0, 2, 0),
    switchIn(header, u"XEDIT", 290, 1),
};

constexpr VariableRow kViewportRows[] = {
    fixed({.name = u"BACKZ", .type = real, .home = viewport, .group = 44}),
    fixed({.name = u"FRONTZ", .type = real, .home = viewport, .group = 43}),
    switchIn(viewport, u"GRIDMODE", 76, 0),
    place(u"GRIDUNIT", point2, {10.0, 10.0, 0.0}, viewport, 15),
    fixed({.name = u"LENSLENGTH", .type = real, .home = viewport, .group = 42, .number = 50.0}),
    {.name = u"SNAPANG", .type = real, .home = viewport, .group = 50, .least = -kAny, .most = kAny},
    place(u"SNAPBASE", point2, {}, viewport, 13),
    {.name = u"SNAPISOPAIR", .home = viewport, .group = 78, .most = 2.0},
    switchIn(viewport, u"SNAPMODE", 75, 0),
    switchIn(viewport, u"SNAPSTYL", 77, 0),
    place(u"SNAPUNIT", point2, {10.0, 10.0, 0.0}, viewport, 14),
    fixed(place(u"TARGET", point3, {}, viewport, 17)),
    {.name = u"UCSICON", .home = viewport, .group = 74, .most = 7.0, .number = 3.0},
    fixed(place(u"VIEWDIR", point3, {0.0, 0.0, 1.0}, viewport, 16)),
    fixed({.name = u"VIEWMODE", .home = viewport, .group = 71}),
    fixed({.name = u"VIEWSIZE", .type = real, .home = viewport, .group = 40, .number = 297.0}),
    fixed({.name = u"VIEWTWIST", .type = real, .home = viewport, .group = 51}),
};

/// Every row, sorted: the tables above are kept in the order that people read them in.
std::vector<VariableRow> sortedRows()
{
    std::vector<VariableRow> rows;
    for (const std::span<const VariableRow> table :
         {std::span<const VariableRow>(kHeaderRows), std::span<const VariableRow>(kViewportRows),
          sessionVariables(), computedVariables()}) {
        rows.insert(rows.end(), table.begin(), table.end());
    }
    std::ranges::sort(rows, {}, &VariableRow::name);
    return rows;
}

} // namespace

std::span<const VariableRow> variableRows()
{
    static const std::vector<VariableRow> rows = sortedRows();
    return rows;
}

const VariableRow* findVariable(std::u16string_view name)
{
    const std::u16string wanted = text::upperText(name);
    const std::span<const VariableRow> rows = variableRows();
    const auto row = std::ranges::lower_bound(rows, wanted, {}, &VariableRow::name);
    return row != rows.end() && row->name == wanted ? &*row : nullptr;
}

} // namespace orvald
