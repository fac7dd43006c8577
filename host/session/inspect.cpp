// SPDX-License-Identifier: LicenseRef-ORVALD
#include "session/inspect.h"

#include "drawing/contents.h"
#include "dxf/audit.h"
#include "text/json.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace orvald {
namespace {

using text::jsonNumber;
using text::jsonText;

struct Release
{
    std::string_view version, name;
};
constexpr std::array kReleases = {Release{"AC1006", "R10"},   Release{"AC1009", "R12"},
                                  Release{"AC1012", "R13"},   Release{"AC1014", "R14"},
                                  Release{"AC1015", "R2000"}, Release{"AC1018", "R2004"},
                                  Release{"AC1021", "R2007"}, Release{"AC1024", "R2010"},
                                  Release{"AC1027", "R2013"}, Release{"AC1032", "R2018"}};

std::string_view releaseOf(std::string_view version)
{
    const auto found = std::find_if(kReleases.begin(), kReleases.end(),
                                    [&](const Release& r) { return r.version == version; });
    return found == kReleases.end() ? "" : found->name;
}

// As lines ---------------------------------------------------------------------------------------

/// A coordinate with at most six places.
std::string coordinate(double value)
{
    char digits[512];
    std::string out(
        digits,
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 6).ptr);
    out.erase(out.find_last_not_of('0') + 1);
    if (out.ends_with('.')) out.pop_back();
    return out == "-0" ? "0" : out;
}

std::string pointText(drawing::Point p)
{
    return coordinate(p.x) + ", " + coordinate(p.y) + ", " + coordinate(p.z);
}

std::string padded(std::string text, std::size_t width)
{
    // Characters, not bytes: names have umlauts.
    const auto size = static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
    return text.append(size < width ? width - size : 1, ' ');
}

std::string number(std::size_t count) { return std::to_string(count); }

constexpr std::size_t kNameWidth = 28;

void addCounts(std::string& out, std::string_view title,
               const std::map<std::string, std::size_t>& counts)
{
    if (counts.empty()) return;
    out += std::string(title) + "\n";
    for (const auto& [type, count] : counts)
        out += "  " + padded(type, kNameWidth) + number(count) + "\n";
}

std::string contentsText(const dxf::Loaded& loaded, const drawing::Contents& contents)
{
    std::string out =
        "version   " + loaded.version + " (" + std::string(releaseOf(loaded.version)) + ")\n";
    out += "units     " + (contents.units.empty() ? "none" : contents.units) + "\n";
    out += "extents   " +
           (contents.model.empty()
                ? "the model is empty"
                : pointText(contents.model.min()) + " to " + pointText(contents.model.max())) +
           "\n";
    out += "entities  " + number(contents.inModel) + " in the model, " + number(contents.inSheets) +
           " on sheets, " + number(contents.inBlocks) + " in blocks\n";
    addCounts(out, "entities by kind", contents.entities);
    addCounts(out, "objects by kind", contents.objects);
    out += "layers\n";
    for (const drawing::LayerContents& layer : contents.layers) {
        out += "  " + padded(layer.name, kNameWidth) + padded(number(layer.entities), 10) +
               "colour " + padded(std::to_string(layer.colour), 4) + layer.lineType;
        for (const auto& [is, word] : {std::pair{layer.off, ", off"},
                                       {layer.frozen, ", frozen"},
                                       {layer.locked, ", locked"}})
            if (is) out += word;
        out += "\n";
    }
    out += "layouts\n";
    for (const std::string& layout : contents.layouts) out += "  " + layout + "\n";
    if (!contents.blocks.empty()) out += "blocks\n";
    for (const drawing::BlockContents& block : contents.blocks) {
        out += "  " + padded(block.name, kNameWidth) + padded(number(block.entities), 10) +
               "inserted " + number(block.inserts) + (block.inserts == 1 ? " time" : " times");
        if (block.isReference) out += ", external reference to " + block.path;
        out += "\n";
    }
    if (!contents.foreign.empty()) out += "kinds of other applications\n";
    for (const auto& [type, foreign] : contents.foreign)
        out += "  " + padded(type, kNameWidth) + padded(number(foreign.count), 10) +
               foreign.className + (foreign.application.empty() ? "" : ", ") + foreign.application +
               "\n";
    if (!loaded.warnings.empty()) {
        out += "mended on loading\n";
        for (const dxf::Warning& warning : loaded.warnings)
            out += "  " + (warning.line == 0 ? "" : "line " + std::to_string(warning.line) + ": ") +
                   warning.text + "\n";
    }
    return out;
}

// As JSON ----------------------------------------------------------------------------------------

std::string jsonPoint(drawing::Point p)
{
    return "[" + jsonNumber(p.x) + ", " + jsonNumber(p.y) + ", " + jsonNumber(p.z) + "]";
}

std::string member(std::string_view name, const std::string& value)
{
    return jsonText(name) + ": " + value;
}

std::string boolean(bool value) { return value ? "true" : "false"; }

/// "[a, b]" or "{a, b}", an element a line.
template <class Range, class Element>
std::string jsonList(const Range& range, std::string_view brackets, Element element)
{
    std::string out;
    for (const auto& item : range)
        out += (out.empty() ? "\n    " : ",\n    ") + std::string(element(item));
    return std::string(brackets.substr(0, 1)) + out + (out.empty() ? "" : "\n  ") +
           std::string(brackets.substr(1));
}

std::string jsonCounts(const std::map<std::string, std::size_t>& counts)
{
    return jsonList(counts, "{}",
                    [](const auto& item) { return member(item.first, number(item.second)); });
}

std::string contentsJson(const std::string& path, const dxf::Loaded& loaded,
                         const drawing::Contents& contents)
{
    const std::string extents = contents.model.empty()
                                    ? "null"
                                    : "{" + member("min", jsonPoint(contents.model.min())) + ", " +
                                          member("max", jsonPoint(contents.model.max())) + "}";
    const std::string members[] = {
        member("file", jsonText(path)),
        member("version", jsonText(loaded.version)),
        member("release", jsonText(releaseOf(loaded.version))),
        member("units", jsonText(contents.units)),
        member("extents", extents),
        member("inModel", number(contents.inModel)),
        member("inSheets", number(contents.inSheets)),
        member("inBlocks", number(contents.inBlocks)),
        member("entities", jsonCounts(contents.entities)),
        member("objects", jsonCounts(contents.objects)),
        member("layers", jsonList(contents.layers, "[]",
                                  [](const drawing::LayerContents& layer) {
                                      return "{" + member("name", jsonText(layer.name)) + ", " +
                                             member("entities", number(layer.entities)) + ", " +
                                             member("colour", std::to_string(layer.colour)) + ", " +
                                             member("lineType", jsonText(layer.lineType)) + ", " +
                                             member("off", boolean(layer.off)) + ", " +
                                             member("frozen", boolean(layer.frozen)) + ", " +
                                             member("locked", boolean(layer.locked)) + "}";
                                  })),
        member("layouts", jsonList(contents.layouts, "[]", jsonText)),
        member("blocks", jsonList(contents.blocks, "[]",
                                  [](const drawing::BlockContents& block) {
                                      return "{" + member("name", jsonText(block.name)) + ", " +
                                             member("entities", number(block.entities)) + ", " +
                                             member("inserts", number(block.inserts)) + ", " +
                                             member("reference", block.isReference
                                                                     ? jsonText(block.path)
                                                                     : "null") +
                                             "}";
                                  })),
        member("foreign", jsonList(contents.foreign, "[]",
                                   [](const auto& item) {
                                       const drawing::ForeignType& type = item.second;
                                       return "{" + member("type", jsonText(item.first)) + ", " +
                                              member("count", number(type.count)) + ", " +
                                              member("class", jsonText(type.className)) + ", " +
                                              member("application", jsonText(type.application)) +
                                              "}";
                                   })),
        member("mended", jsonList(loaded.warnings, "[]", [](const dxf::Warning& warning) {
                   return "{" + member("line", std::to_string(warning.line)) + ", " +
                          member("text", jsonText(warning.text)) + "}";
               }))};
    std::string out;
    for (const std::string& m : members) out += (out.empty() ? "{\n  " : ",\n  ") + m;
    return out + "\n}\n";
}

// Problems ---------------------------------------------------------------------------------------

std::string_view severity(const dxf::Problem& problem)
{
    return problem.isError ? "error" : "warning";
}

/// "line 120: " or "".
std::string placeText(const dxf::Problem& problem)
{
    return problem.line == 0 ? "" : "line " + std::to_string(problem.line) + ": ";
}

std::string jsonProblem(const dxf::Problem& problem)
{
    return member("severity", jsonText(severity(problem))) + ", " +
           member("kind", jsonText(problem.kind)) + ", " +
           member("line", std::to_string(problem.line)) + ", " +
           member("handle",
                  jsonText(problem.handle == 0 ? "" : drawing::handleText(problem.handle))) +
           ", " + member("text", jsonText(problem.text));
}

std::string counted(std::size_t count, std::string_view what)
{
    return number(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

std::string sumsText(const dxf::Audit& audit)
{
    std::string out;
    for (const dxf::ProblemSum& sum : audit.kinds)
        out += padded(number(sum.count), 8) + padded(std::string(severity(sum.first)), 9) +
               padded(std::string(sum.first.kind), 22) + "first: " + placeText(sum.first) +
               sum.first.text + "\n";
    return out + counted(audit.errors, "error") + ", " + counted(audit.warnings, "warning") +
           (audit.version.empty()
                ? ""
                : " (" + audit.version + ", " + std::string(releaseOf(audit.version)) + ")") +
           "\n";
}

std::string sumsJson(const dxf::Audit& audit)
{
    return member("kinds", jsonList(audit.kinds, "[]",
                                    [](const dxf::ProblemSum& sum) {
                                        return "{" + member("count", number(sum.count)) +
                                               ", \"first\": {" + jsonProblem(sum.first) + "}}";
                                    })) +
           ",\n  " + member("version", jsonText(audit.version)) + ",\n  " +
           member("errors", number(audit.errors)) + ",\n  " +
           member("warnings", number(audit.warnings)) + "\n}\n";
}

} // namespace

bool describeDrawing(const std::string& path, bool json, std::string& text, std::string& problem)
{
    const dxf::Loaded loaded = dxf::load(path);
    if (loaded.drawing == nullptr) {
        problem = loaded.error.message();
        return false;
    }
    const drawing::Contents contents = drawing::contentsOf(*loaded.drawing);
    text = json ? contentsJson(path, loaded, contents) : contentsText(loaded, contents);
    return true;
}

Verdict checkDrawing(const std::string& path, bool json,
                     const std::function<void(std::string_view)>& print, std::string& problem)
{
    bool first = true;
    const dxf::Audit audit = dxf::audit(path, [&](const dxf::Problem& found) {
        if (json) {
            print((first ? "{\n  " + member("file", jsonText(path)) + ",\n  \"problems\": [\n    {"
                         : ",\n    {") +
                  jsonProblem(found) + "}");
        } else {
            print(path + ": " + placeText(found) + std::string(severity(found)) + ": " +
                  found.text + " [" + std::string(found.kind) + "]\n");
        }
        first = false;
    });
    if (!audit.error.reason.empty()) {
        problem = audit.error.message();
        return Verdict::unreadable;
    }
    if (json) {
        print(first ? "{\n  " + member("file", jsonText(path)) + ",\n  \"problems\": [],\n  "
                    : "\n  ],\n  ");
        print(sumsJson(audit));
    } else {
        print(sumsText(audit));
    }
    return audit.good() ? Verdict::good : Verdict::faulty;
}

} // namespace orvald
