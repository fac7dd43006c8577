// SPDX-License-Identifier: LicenseRef-ORVALD
// System variables whose values are worked out when they are asked for.
#include "coordinate_systems.h"
#include "document.h"
#include "drawing/annotation.h"
#include "drawing/text.h"
#include "registries.h"
#include "system_variable_table.h"
#include "text/letters.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <pwd.h>
#include <sys/utsname.h>
#include <unistd.h>

namespace orvald {
namespace {

namespace fs = std::filesystem;
using drawing::Index;
using drawing::Point;
using lisp::toUtf16;
using enum VariableHome;
using enum VariableType;

// -- the file

std::u16string folderText(const fs::path& folder)
{
    std::string text = folder.string();
    if (!text.ends_with('/')) text += '/';
    return toUtf16(text);
}

VariableValue dwgName(Document& document)
{
    return toUtf16(fs::path(lisp::toUtf8(document.fileName())).filename().string());
}
VariableValue dwgPrefix(Document& document)
{
    std::error_code error;
    const fs::path file = fs::absolute(document.path(), error);
    return folderText(document.path().empty() || error ? fs::current_path(error)
                                                       : file.parent_path());
}
VariableValue dwgTitled(Document& document) { return document.path().empty() ? 0 : 1; }
VariableValue saveName(Document& document) { return toUtf16(document.path()); }
VariableValue dbMod(Document& document) { return document.isModified() ? 1 : 0; }

VariableValue undoControl(Document& document)
{
    constexpr int kOn = 1, kInGroup = 8, kZoomsCombined = 4;
    return kOn | kZoomsCombined | (document.drawing().journal().inGroup() ? kInGroup : 0);
}

// -- time and machine

/// Local civil time, with its fraction of a second.
struct LocalTime
{
    std::tm civil = {};
    double fraction = 0.0;
};

LocalTime localNow()
{
    using namespace std::chrono;
    const auto now = system_clock::now();
    const std::time_t seconds = system_clock::to_time_t(floor<std::chrono::seconds>(now));
    LocalTime local;
    localtime_r(&seconds, &local.civil);
    local.fraction = duration<double>(now - floor<std::chrono::seconds>(now)).count();
    return local;
}

/// Julian day number and the fraction of the civil day.
VariableValue date(Document&)
{
    const LocalTime now = localNow();
    using namespace std::chrono;
    const sys_days day = year(now.civil.tm_year + 1900) /
                         month(static_cast<unsigned>(now.civil.tm_mon + 1)) /
                         std::chrono::day(static_cast<unsigned>(now.civil.tm_mday));
    constexpr double kJulianDayOf1970 = 2440588.0;
    constexpr double kSecondsOfDay = 86400.0;
    const double seconds =
        now.civil.tm_hour * 3600.0 + now.civil.tm_min * 60.0 + now.civil.tm_sec + now.fraction;
    return kJulianDayOf1970 + static_cast<double>(day.time_since_epoch().count()) +
           seconds / kSecondsOfDay;
}
/// YYYYMMDD.HHMMSSmmm.
VariableValue calendarDate(Document&)
{
    const LocalTime now = localNow();
    const double day =
        (now.civil.tm_year + 1900) * 1e4 + (now.civil.tm_mon + 1) * 1e2 + now.civil.tm_mday;
    const double time = now.civil.tm_hour * 1e4 + now.civil.tm_min * 1e2 + now.civil.tm_sec +
                        std::floor(now.fraction * 1e3) / 1e3;
    return day + time / 1e6;
}
VariableValue milliseconds(Document&)
{
    using namespace std::chrono;
    static const auto start = steady_clock::now();
    const auto passed = duration_cast<std::chrono::milliseconds>(steady_clock::now() - start);
    return static_cast<std::int32_t>(passed.count() & 0x7FFFFFFF);
}
VariableValue loginName(Document&)
{
    if (const char* user = std::getenv("USER")) return toUtf16(user);
    const passwd* entry = getpwuid(getuid());
    return entry == nullptr ? std::u16string() : toUtf16(entry->pw_name);
}
VariableValue platform(Document&)
{
    utsname system = {};
    if (uname(&system) != 0) return std::u16string(u"Linux");
    return toUtf16(std::string("Linux Version ") + system.release + " (" + system.machine + ")");
}
/// Where settings of the user are kept.
VariableValue settingsPrefix(Document&)
{
    if (const char* folder = std::getenv("KEX_HOME")) return folderText(folder);
    if (const char* folder = std::getenv("XDG_CONFIG_HOME"))
        return folderText(fs::path(folder) / "orvald");
    const char* home = std::getenv("HOME");
    return folderText(fs::path(home == nullptr ? "/" : home) / ".config/orvald");
}
VariableValue documentsPrefix(Document&)
{
    const char* home = std::getenv("HOME");
    return folderText(home == nullptr ? "/" : home);
}
VariableValue tempPrefix(Document&)
{
    std::error_code error;
    return folderText(fs::temp_directory_path(error));
}

// -- commands

VariableValue commandActive(Document& document) { return document.user().command.empty() ? 0 : 1; }
VariableValue commandNames(Document& document) { return document.user().command; }

// -- properties and sheets

/// The current colour as people name it.
VariableValue currentColour(Document& document)
{
    const std::int64_t colour = document.drawing().header.integer("$CECOLOR", 256);
    if (colour == 256) return std::u16string(u"BYLAYER");
    if (colour == 0) return std::u16string(u"BYBLOCK");
    return toUtf16(std::to_string(colour));
}
bool setCurrentColour(Document& document, const VariableValue& value)
{
    constexpr std::u16string_view kNames[] = {u"BYBLOCK", u"RED",  u"YELLOW",  u"GREEN",
                                              u"CYAN",    u"BLUE", u"MAGENTA", u"WHITE"};
    const std::u16string name = text::upperText(std::get<std::u16string>(value));
    const auto known = std::ranges::find(kNames, name);
    int colour = 256;
    if (known != std::end(kNames)) {
        colour = static_cast<int>(known - std::begin(kNames));
    } else if (name != u"BYLAYER") {
        const std::string digits = lisp::toUtf8(name);
        const char* end = digits.data() + digits.size();
        const auto read = std::from_chars(digits.data(), end, colour);
        if (read.ec != std::errc() || read.ptr != end || colour < 0 || colour > 256) return false;
    }
    drawing::Drawing& drawing = document.drawing();
    if (drawing.header.integer("$CECOLOR", 256) != colour) {
        drawing.header.setInteger("$CECOLOR", 62, colour);
        drawing.noteChange();
    }
    return true;
}

bool inModel(Document& document) { return document.drawing().header.integer("$TILEMODE", 1) != 0; }
VariableValue currentViewport(Document& document) { return inModel(document) ? 2 : 1; }
/// There is one view port each in the model and on a sheet: it cannot be left for another one.
bool setCurrentViewport(Document& document, const VariableValue& value)
{
    return value == currentViewport(document);
}
VariableValue currentTab(Document& document)
{
    const drawing::Drawing& drawing = document.drawing();
    return drawing::text16(drawing.layoutName(drawing.currentSpace()));
}
/// Only the model and the active sheet: another sheet would have to become the active one first.
bool setCurrentTab(Document& document, const VariableValue& value)
{
    drawing::Drawing& drawing = document.drawing();
    const std::string name = drawing::fileForm(std::get<std::u16string>(value));
    const auto is = [&](Index space) {
        return space != drawing::kNone && drawing::sameName(drawing.layoutName(space), name);
    };
    const bool model = is(drawing.modelSpace());
    if (!model && !is(drawing.paperSpace())) return false;
    if (model != inModel(document)) {
        drawing.header.setInteger("$TILEMODE", 70, model ? 1 : 0);
        drawing.noteChange();
    }
    return true;
}

// -- annotation scale

/// Paper length by drawing length of a scale in the drawing's list; nothing when it is not there.
std::optional<double> scaleFactor(const drawing::Drawing& drawing, std::u16string_view name)
{
    const Index scale = drawing::findScale(drawing, drawing::fileForm(name));
    return scale == drawing::kNone ? std::nullopt : drawing::scaleFactor(drawing.at(scale));
}
VariableValue annotationScale(Document& document) { return document.user().annotationScale; }
bool setAnnotationScale(Document& document, const VariableValue& value)
{
    const std::u16string& name = std::get<std::u16string>(value);
    if (!scaleFactor(document.drawing(), name)) return false;
    document.user().annotationScale = name;
    return true;
}
VariableValue annotationScaleValue(Document& document)
{
    return scaleFactor(document.drawing(), document.user().annotationScale).value_or(1.0);
}

// -- the view

/// A point of the display plane in user coordinates.
Point onDisplay(Document& document, double x, double y)
{
    const drawing::Drawing& drawing = document.drawing();
    const Point world = displayToWorld(drawing)({x, y, 0.0});
    return inverseRigid(userToWorld(drawing))(world);
}
VariableValue viewCorner(Document& document, double sign)
{
    const Index viewport = activeViewport(document.drawing());
    if (viewport == drawing::kNone) return onDisplay(document, 0.0, 0.0);
    const drawing::TagList& tags = document.drawing().at(viewport).tags;
    const Point centre = tags.point(12);
    const double half = 0.5 * tags.real(40, 1.0) * sign;
    return onDisplay(document, centre.x + half * tags.real(41, 1.5), centre.y + half);
}
VariableValue viewCentre(Document& document) { return viewCorner(document, 0.0); }
VariableValue viewLowerLeft(Document& document) { return viewCorner(document, -1.0); }
VariableValue viewUpperRight(Document& document) { return viewCorner(document, 1.0); }

VariableValue extentsMin(Document& document)
{
    constexpr double kNothing = 1e20; // what the host tells of an empty space
    const drawing::Box box = document.variables().extents();
    return box.empty() ? Point{kNothing, kNothing, kNothing} : box.min();
}
VariableValue extentsMax(Document& document)
{
    constexpr double kNothing = -1e20;
    const drawing::Box box = document.variables().extents();
    return box.empty() ? Point{kNothing, kNothing, kNothing} : box.max();
}

VariableValue ucsOrigin(Document& document) { return userToWorld(document.drawing()).origin; }
VariableValue ucsXAxis(Document& document) { return userToWorld(document.drawing()).x; }
VariableValue ucsYAxis(Document& document) { return userToWorld(document.drawing()).y; }
VariableValue isWorldUcs(Document& document)
{
    const drawing::Transform ucs = userToWorld(document.drawing()), world;
    return ucs.origin == world.origin && ucs.x == world.x && ucs.y == world.y ? 1 : 0;
}

constexpr VariableRow answer(std::u16string_view name, VariableType type,
                             VariableValue (*get)(Document&),
                             bool (*set)(Document&, const VariableValue&) = nullptr)
{
    return {.name = name,
            .type = type,
            .home = computed,
            .readOnly = set == nullptr,
            .get = get,
            .set = set};
}

constexpr VariableRow kRows[] = {
    answer(u"CANNOSCALE", text, annotationScale, setAnnotationScale),
    answer(u"CANNOSCALEVALUE", real, annotationScaleValue),
    answer(u"CDATE", real, calendarDate),
    answer(u"CECOLOR", text, currentColour, setCurrentColour),
    answer(u"CMDACTIVE", integer, commandActive),
    answer(u"CMDNAMES", text, commandNames),
    answer(u"CTAB", text, currentTab, setCurrentTab),
    answer(u"CVPORT", integer, currentViewport, setCurrentViewport),
    answer(u"DATE", real, date),
    answer(u"DBMOD", integer, dbMod),
    answer(u"DWGNAME", text, dwgName),
    answer(u"DWGPREFIX", text, dwgPrefix),
    answer(u"DWGTITLED", integer, dwgTitled),
    answer(u"EXTMAX", point3, extentsMax),
    answer(u"EXTMIN", point3, extentsMin),
    answer(u"LOCALROOTPREFIX", text, settingsPrefix),
    answer(u"LOGINNAME", text, loginName),
    answer(u"MILLISECS", integer, milliseconds),
    answer(u"MYDOCUMENTSPREFIX", text, documentsPrefix),
    answer(u"PLATFORM", text, platform),
    answer(u"ROAMABLEROOTPREFIX", text, settingsPrefix),
    answer(u"SAVENAME", text, saveName),
    answer(u"TEMPPREFIX", text, tempPrefix),
    answer(u"UCSORG", point3, ucsOrigin),
    answer(u"UCSXDIR", point3, ucsXAxis),
    answer(u"UCSYDIR", point3, ucsYAxis),
    answer(u"UNDOCTL", integer, undoControl),
    answer(u"VIEWCTR", point3, viewCentre),
    answer(u"VSMAX", point3, viewUpperRight),
    answer(u"VSMIN", point3, viewLowerLeft),
    answer(u"WORLDUCS", integer, isWorldUcs),
};

} // namespace

std::span<const VariableRow> computedVariables() { return kRows; }

} // namespace orvald
