// SPDX-License-Identifier: LicenseRef-ORVALD
// From a drawing and options to the bytes of a picture, and to its file.
#include "picture/picture.h"

#include "drawing/text.h"
#include "measure_canvas.h"
#include "painter.h"
#include "png.h"
#include "raster_canvas.h"
#include "svg_canvas.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace orvald::picture {

using drawing::Drawing;
using drawing::Index;

namespace {

View viewOf(const Drawing& drawing, const Options& options, Index space)
{
    if (options.window) return fitView(options, {});
    MeasureCanvas canvas;
    Summary unused;
    Painter painter(drawing, options, nullptr, canvas, unused);
    if (space != drawing::kNone) painter.space(space);
    painter.overlay(options.overlay);
    return fitView(options, canvas.bounds());
}

void paint(const Drawing& drawing, const Options& options, Index space, const View& view,
           Canvas& canvas, Summary* summary)
{
    Summary unused;
    Summary& result = summary != nullptr ? *summary : unused;
    result = {};
    Painter painter(drawing, options, &view, canvas, result);
    if (space != drawing::kNone) painter.space(space);
    painter.overlay(options.overlay);
}

// Writes beside the target and renames: what stands at `path` is whole at every moment. Gives an
// errno value, 0 for success.
int writeWhole(const std::string& path, const std::string& bytes)
{
    const std::string beside = path + ".part" + std::to_string(::getpid());
    const int file = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0) return errno;
    int error = 0;
    for (std::size_t at = 0; at < bytes.size() && error == 0;) {
        const ssize_t count = ::write(file, bytes.data() + at, bytes.size() - at);
        if (count >= 0) at += std::size_t(count);
        else if (errno != EINTR) error = errno;
    }
    if (error == 0 && ::fsync(file) != 0) error = errno;
    if (::close(file) != 0 && error == 0) error = errno;
    if (error == 0 && std::rename(beside.c_str(), path.c_str()) != 0) error = errno;
    if (error != 0) ::unlink(beside.c_str());
    return error;
}

} // namespace

Index spaceOf(const Drawing& drawing, std::string_view layout)
{
    if (layout.empty()) return drawing.modelSpace();
    const std::string name = drawing::fileForm(layout);
    for (const Index block : drawing.tableRecords(drawing::TableId::blockRecord)) {
        if (!drawing.at(block).erased && drawing.isLayoutBlock(block) &&
            drawing::sameName(drawing.layoutName(block), name))
            return block;
    }
    return drawing::kNone;
}

std::string svg(const Drawing& drawing, const Options& options, Summary* summary)
{
    const Index space = spaceOf(drawing, options.layout);
    const View view = viewOf(drawing, options, space);
    SvgCanvas canvas(view, options.background);
    paint(drawing, options, space, view, canvas, summary);
    return canvas.finish();
}

std::string png(const Drawing& drawing, const Options& options, Summary* summary)
{
    const Index space = spaceOf(drawing, options.layout);
    const View view = viewOf(drawing, options, space);
    RasterCanvas canvas(view, options.background);
    paint(drawing, options, space, view, canvas, summary);
    return pngFile(canvas.width(), canvas.height(), canvas.pixels());
}

bool savePicture(const Drawing& drawing, const std::string& path, const Options& options,
                 std::string& problem, Summary* summary)
{
    const std::string ending = std::filesystem::path(path).extension().string();
    const bool asSvg = drawing::sameName(ending, ".svg");
    if (!asSvg && !drawing::sameName(ending, ".png")) {
        problem = path + ": a picture is named .svg or .png";
        return false;
    }
    if (spaceOf(drawing, options.layout) == drawing::kNone && !options.layout.empty()) {
        problem = "there is no layout \"" + options.layout + '"';
        return false;
    }
    const int error =
        writeWhole(path, asSvg ? svg(drawing, options, summary) : png(drawing, options, summary));
    if (error == 0) return true;
    problem = path + ": " + std::generic_category().message(error);
    return false;
}

} // namespace orvald::picture
