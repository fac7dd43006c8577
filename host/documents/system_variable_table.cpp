// SPDX-License-Identifier: LicenseRef-ORVALD
// The system variables that are stored, by home. Values are those of a new metric drawing; a range
// of the host's documentation is kept where programs meet it.
#include "system_variable_table.h"

#include "registries.h"
#include "text/letters.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace orvald {
namespace {

using drawing::TableId;
using enum VariableHome;
using enum VariableType;

constexpr double kAny = std::numeric_limits<double>::max();
constexpr double kAboveZero = std::numeric_limits<double>::min();
constexpr double kShort = 32767.0;

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
constexpr VariableRow place(std::u16string_view name, VariableType type, drawing::Point value = {},
                            VariableHome home = header, std::int16_t group = 10)
{
    return {.name = name, .type = type, .home = home, .group = group, .point = value};
}
constexpr VariableRow fixed(VariableRow row)
{
    row.readOnly = true;
    return row;
}
constexpr VariableRow option(std::u16string_view name, double least, double most, double value)
{
    return {.name = name, .least = least, .most = most, .number = value};
}
constexpr VariableRow measure(std::u16string_view name, double value, double least = -kAny)
{
    return {.name = name, .type = real, .least = least, .most = kAny, .number = value};
}
constexpr VariableRow words(std::u16string_view name, std::u16string_view value = {})
{
    return {.name = name, .type = text, .text = value};
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
    named(u"HYPERLINKBASE", 1, u""),
    place(u"INSBASE", point3),
    number(u"INSUNITS", 70, 0, 24, 4),
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
    size(u"TEXTSIZE", 2.5, kAboveZero),
    named(u"TEXTSTYLE", 7, u"Standard", TableId::style),
    size(u"THICKNESS", 0.0),
    size(u"TRACEWID", 1.0, kAboveZero),
    number(u"TILEMODE", 70, 0, 1, 1),
    number(u"TREEDEPTH", 70, -kShort, kShort, 3020),
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

constexpr VariableRow kSessionRows[] = {
    option(u"ACADLSPASDOC", 0, 1, 0),
    fixed(words(u"ACADPREFIX")),
    fixed(words(u"ACADVER", u"20.0s (orvald)")),
    fixed(option(u"AFLAGS", 0, 31, 0)),
    option(u"ANNOAUTOSCALE", -4, 4, -4),
    option(u"APBOX", 0, 1, 0),
    option(u"APERTURE", 1, 50, 10),
    fixed(measure(u"AREA", 0.0)),
    option(u"ATTDIA", 0, 1, 0),
    option(u"ATTREQ", 0, 1, 1),
    option(u"AUDITCTL", 0, 1, 0),
    option(u"AUTOSNAP", 0, 127, 63),
    option(u"BACKGROUNDPLOT", 0, 3, 2),
    option(u"BLIPMODE", 0, 1, 0),
    words(u"CETRANSPARENCY", u"ByLayer"),
    option(u"CHAMMODE", 0, 1, 0),
    measure(u"CIRCLERAD", 0.0, 0.0),
    option(u"CMDDIA", 0, 1, 1),
    option(u"CMDECHO", 0, 1, 1),
    option(u"COORDS", 0, 3, 1),
    option(u"COPYMODE", 0, 1, 0),
    fixed(words(u"CPROFILE", u"<<Unnamed Profile>>")),
    option(u"CURSORSIZE", 1, 100, 5),
    option(u"DELOBJ", -3, 3, 3),
    option(u"DEMANDLOAD", 0, 3, 3),
    fixed(option(u"DIASTAT", 0, 1, 1)),
    option(u"DIMASO", 0, 1, 1),
    fixed(measure(u"DISTANCE", 0.0)),
    measure(u"DONUTID", 0.5, 0.0),
    measure(u"DONUTOD", 1.0, 0.0),
    option(u"DRAGMODE", 0, 2, 2),
    option(u"DRAWORDERCTL", 0, 3, 3),
    fixed(words(u"DWGCODEPAGE", u"ANSI_1252")),
    option(u"DYNMODE", -3, 3, 0),
    option(u"EDGEMODE", 0, 1, 0),
    option(u"ERRNO", -kShort - 1, kShort, 0),
    option(u"EXPERT", 0, 5, 0),
    option(u"EXPLMODE", 0, 1, 1),
    measure(u"FACETRES", 0.5, 0.01),
    option(u"FIELDEVAL", 0, 63, 31),
    option(u"FILEDIA", 0, 1, 1),
    words(u"FONTALT", u"simplex.shx"),
    words(u"FONTMAP"),
    fixed(option(u"FULLOPEN", 0, 1, 1)),
    option(u"GRIPBLOCK", 0, 1, 0),
    option(u"GRIPS", 0, 2, 2),
    fixed(option(u"HANDLES", 0, 1, 1)),
    option(u"HIGHLIGHT", 0, 1, 1),
    measure(u"HPANG", 0.0),
    option(u"HPASSOC", 0, 1, 1),
    option(u"HPDOUBLE", 0, 1, 0),
    measure(u"HPGAPTOL", 0.0, 0.0),
    words(u"HPNAME", u"ANSI31"),
    measure(u"HPSCALE", 1.0, kAboveZero),
    measure(u"HPSPACE", 1.0, kAboveZero),
    words(u"INSNAME"),
    option(u"ISAVEBAK", 0, 1, 1),
    option(u"ISAVEPERCENT", 0, 100, 50),
    option(u"ISOLINES", 0, 2047, 4),
    fixed(measure(u"LASTANGLE", 0.0)),
    place(u"LASTPOINT", point3, {}, session, 0),
    fixed(words(u"LASTPROMPT")),
    option(u"LAYOUTREGENCTL", 0, 2, 2),
    option(u"LISPINIT", 0, 1, 1),
    fixed(words(u"LOCALE", u"ENU")),
    option(u"LOGFILEMODE", 0, 1, 0),
    option(u"LWDEFAULT", 0, 211, 25),
    option(u"LWUNITS", 0, 1, 1),
    option(u"MAXSORT", 0, kShort, 1000),
    option(u"MBUTTONPAN", 0, 1, 1),
    option(u"MENUCTL", 0, 1, 1),
    option(u"MENUECHO", 0, 15, 0),
    fixed(words(u"MENUNAME", u".")),
    words(u"MODEMACRO"),
    words(u"MTEXTED", u"Internal"),
    option(u"NOMUTT", 0, 1, 0),
    measure(u"OFFSETDIST", -1.0),
    option(u"OFFSETGAPTYPE", 0, 2, 0),
    option(u"OSMODE", 0, kShort, 4133),
    option(u"OSNAPCOORD", 0, 2, 2),
    option(u"PAPERUPDATE", 0, 1, 0),
    option(u"PEDITACCEPT", 0, 1, 0),
    option(u"PELLIPSE", 0, 1, 0),
    fixed(measure(u"PERIMETER", 0.0)),
    option(u"PICKADD", 0, 2, 2),
    option(u"PICKAUTO", 0, 7, 5),
    option(u"PICKBOX", 0, 50, 3),
    option(u"PICKDRAG", 0, 2, 2),
    option(u"PICKFIRST", 0, 1, 1),
    option(u"PICKSTYLE", 0, 3, 1),
    option(u"PLINETYPE", 0, 2, 2),
    measure(u"POLARANG", 1.5707963267948966),
    option(u"POLARMODE", 0, 15, 0),
    option(u"POLYSIDES", 3, 1024, 4),
    option(u"PREVIEWEFFECT", 0, 2, 2),
    option(u"PROJMODE", 0, 2, 1),
    option(u"PROXYNOTICE", 0, 1, 1),
    option(u"PROXYSHOW", 0, 2, 1),
    option(u"RASTERPREVIEW", 0, 1, 1),
    option(u"ROLLOVERTIPS", 0, 1, 1),
    words(u"SAVEFILEPATH"),
    option(u"SAVETIME", 0, 600, 10),
    fixed(place(u"SCREENSIZE", point2, {1500.0, 1000.0, 0.0}, session, 0)),
    option(u"SDI", 0, 3, 0),
    option(u"SECURELOAD", 0, 2, 0),
    option(u"SELECTIONCYCLING", -2, 2, 0),
    option(u"SELECTIONPREVIEW", 0, 3, 0),
    words(u"SHPNAME"),
    option(u"SHORTCUTMENU", 0, 31, 11),
    option(u"STARTUP", 0, 3, 0),
    fixed(words(u"SYSCODEPAGE", u"ANSI_1252")),
    option(u"TABMODE", 0, 1, 0),
    option(u"TEXTEVAL", 0, 1, 0),
    option(u"TEXTFILL", 0, 1, 1),
    option(u"TEXTQLTY", 0, 100, 50),
    option(u"TOOLTIPS", 0, 1, 1),
    option(u"TRIMMODE", 0, 1, 1),
    words(u"TRUSTEDPATHS"),
    measure(u"TSPACEFAC", 1.0, 0.25),
    option(u"TSPACETYPE", 1, 2, 1),
    option(u"TSTACKALIGN", 0, 2, 1),
    option(u"TSTACKSIZE", 25, 125, 70),
    option(u"UCSFOLLOW", 0, 1, 0),
    option(u"UCSVIEW", 0, 1, 1),
    fixed(option(u"UNDOCTL", 0, 63, 5)),
    fixed(option(u"UNDOMARKS", 0, kShort, 0)),
    words(u"USERS1"),
    words(u"USERS2"),
    words(u"USERS3"),
    words(u"USERS4"),
    words(u"USERS5"),
    option(u"VTENABLE", 0, 7, 0),
    option(u"WHIPARC", 0, 1, 0),
    option(u"WMFBKGND", 0, 1, 0),
    fixed(option(u"WRITESTAT", 0, 1, 1)),
    option(u"XLOADCTL", 0, 2, 2),
    option(u"ZOOMFACTOR", 3, 100, 60),
};

/// Every row, sorted: the tables above are kept in the order that people read them in.
std::vector<VariableRow> sortedRows()
{
    std::vector<VariableRow> rows;
    for (const std::span<const VariableRow> table :
         {std::span<const VariableRow>(kHeaderRows), std::span<const VariableRow>(kViewportRows),
          std::span<const VariableRow>(kSessionRows), computedVariables()}) {
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
