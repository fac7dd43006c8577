// SPDX-License-Identifier: LicenseRef-ORVALD
// Drawings made in a line or two, and questions to their pictures.
#pragma once

#include "picture/picture.h"
#include "png_reader.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace test {

using orvald::drawing::Drawing;
using orvald::drawing::Index;
using orvald::drawing::Kind;
using orvald::drawing::Point;
using orvald::drawing::TagList;

struct Group
{
    int code;
    std::variant<double, int, const char*, Point> value;
};
using Groups = std::vector<Group>;

inline void addGroup(TagList& tags, const Group& group)
{
    if (const auto* real = std::get_if<double>(&group.value)) tags.addReal(group.code, *real);
    else if (const auto* whole = std::get_if<int>(&group.value))
        tags.addInteger(group.code, *whole);
    else if (const auto* text = std::get_if<const char*>(&group.value))
        tags.addText(group.code, *text);
    else tags.addPoint(group.code, std::get<Point>(group.value));
}

/// A drawing that grows entity by entity.
class Sheet
{
public:
    Sheet() : drawing_(Drawing::createNew()) {}

    Drawing& drawing() { return *drawing_; }
    const Drawing& drawing() const { return *drawing_; }

    /// Common groups (layer, colour ...) stand before the marker of the kind, the others behind it.
    Index addTo(Index owner, Kind kind, const Groups& own, const Groups& common = {})
    {
        orvald::drawing::Record record(kind, orvald::drawing::Family::entity);
        record.tags.addText(100, "AcDbEntity");
        for (const Group& group : common) addGroup(record.tags, group);
        record.tags.addText(100, kind == Kind::hatch ? "AcDbHatch" : "AcDbOwn");
        for (const Group& group : own) addGroup(record.tags, group);
        const Index index = drawing_->add(std::move(record));
        drawing_->appendChild(owner, index);
        return index;
    }
    /// The same for a type by its name in files.
    Index addNamed(std::string_view type, const Groups& own, const Groups& common = {})
    {
        orvald::drawing::Record record(type, orvald::drawing::Family::entity);
        record.tags.addText(100, "AcDbEntity");
        for (const Group& group : common) addGroup(record.tags, group);
        record.tags.addText(100, "AcDbOwn");
        for (const Group& group : own) addGroup(record.tags, group);
        const Index index = drawing_->add(std::move(record));
        drawing_->appendChild(drawing_->modelSpace(), index);
        return index;
    }
    Index add(Kind kind, const Groups& own, const Groups& common = {})
    {
        return addTo(drawing_->modelSpace(), kind, own, common);
    }
    Index line(Point from, Point to, const Groups& common = {})
    {
        return add(Kind::line, {{10, from}, {11, to}}, common);
    }
    /// A solid rectangle.
    Index box(Index owner, double left, double bottom, double right, double top,
              const Groups& common = {})
    {
        return addTo(owner, Kind::solid,
                     {{10, Point{left, bottom, 0}},
                      {11, Point{right, bottom, 0}},
                      {12, Point{left, top, 0}},
                      {13, Point{right, top, 0}}},
                     common);
    }
    Index box(double left, double bottom, double right, double top, const Groups& common = {})
    {
        return box(drawing_->modelSpace(), left, bottom, right, top, common);
    }
    /// Sets groups of a layer, which is made when it is missing.
    void layer(const char* name, const Groups& groups)
    {
        const Index index = drawing_->needLayer(name);
        for (const Group& group : groups) {
            TagList& tags = drawing_->edit(index).tags;
            const auto old = tags.find(group.code);
            if (old != tags.end()) tags.erase(old);
            addGroup(tags, group);
        }
    }

private:
    std::unique_ptr<Drawing> drawing_;
};

/// One pixel a unit: the window (0 0) to (width height), the lower left pixel is (0 0) here too.
class Picture
{
public:
    Picture(const Sheet& sheet, double width, double height, orvald::picture::Options options = {})
        : image_(read(sheet, width, height, std::move(options)))
    {
    }
    std::uint32_t at(int x, int y) const { return image_.at(x, image_.height - 1 - y); }
    /// Number of pixels of that colour.
    int count(std::uint32_t colour) const
    {
        return int(std::count(image_.pixels.begin(), image_.pixels.end(), colour));
    }
    /// Number of pixels that are not the background's white.
    int inked() const
    {
        int count = 0;
        for (const std::uint32_t pixel : image_.pixels) count += pixel != 0xFFFFFF ? 1 : 0;
        return count;
    }

    /// Black area on white, in pixels, with the parts of pixels at its borders.
    double blackened() const
    {
        double sum = 0.0;
        for (const std::uint32_t pixel : image_.pixels) sum += (255 - (pixel & 255)) / 255.0;
        return sum;
    }

private:
    static Image read(const Sheet& sheet, double width, double height,
                      orvald::picture::Options options)
    {
        options.width = int(width);
        options.height = int(height);
        options.window = orvald::picture::Window{0.0, 0.0, width, height};
        return readPng(orvald::picture::png(sheet.drawing(), options));
    }
    Image image_;
};

inline constexpr std::uint32_t kWhite = 0xFFFFFF, kBlack = 0, kRed = 0xFF0000, kGreen = 0x00FF00,
                               kBlue = 0x0000FF, kYellow = 0xFFFF00;

} // namespace test
