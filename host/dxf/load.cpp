// SPDX-License-Identifier: LicenseRef-ORVALD
// Loading a drawing: a whole one, or none and the reason.
#include "dxf/dxf.h"

#include "mend.h"
#include "open_file.h"
#include "text/encoding.h"

#include <new>

namespace orvald::dxf {
namespace {

Loaded loadLines(LineSource& lines, std::string file)
{
    Loaded loaded;
    Warnings warnings;
    const auto refuse = [&](DxfError error) {
        error.file = std::move(file);
        loaded.error = std::move(error);
        loaded.drawing.reset();
    };
    try {
        loaded.drawing = std::make_unique<drawing::Drawing>();
        Loader loader(*loaded.drawing, warnings);
        Parser parser(lines, loader);
        parser.run();
        loaded.version = parser.version();
        loader.finish();
        // What old versions did not know is no fault of their files.
        Warnings untold;
        Warnings& ofStructure = loader.isOld() ? untold : warnings;
        mendStructure(*loaded.drawing, ofStructure);
        bringUp(*loaded.drawing, loaded.version, warnings);
        completeDrawing(*loaded.drawing, ofStructure);
    } catch (const Fail& fail) {
        refuse(fail.error);
    } catch (const std::bad_alloc&) {
        refuse({{}, lines.number(), DxfError::kNoGroup, "not enough memory", 0});
    }
    loaded.warnings = warnings.take();
    return loaded;
}

} // namespace

Loaded load(const std::string& path)
{
    Loaded loaded;
    OpenFile file(path, loaded.error);
    if (!file.isOpen()) return loaded;
    LineSource lines(file.number());
    return loadLines(lines, path);
}

Loaded loadText(std::string_view text, std::string name)
{
    LineSource lines(text);
    return loadLines(lines, std::move(name));
}

std::string DxfError::message() const
{
    std::string out = file;
    const auto part = [&out](std::string text) {
        if (!out.empty()) out += ": ";
        out += text;
    };
    if (line != 0) {
        std::string place = "line " + std::to_string(line);
        if (group != kNoGroup) place += ", group " + std::to_string(group);
        part(place);
    }
    part(text::isUtf8(reason) ? reason : text::utf8(text::utf16(reason), text::Lone::replaced));
    if (handle != 0) out += " (handle " + drawing::handleText(handle) + ")";
    return out;
}

} // namespace orvald::dxf
