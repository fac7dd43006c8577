// SPDX-License-Identifier: LicenseRef-ORVALD
// Shapes of equal look that follow each other share a group.
#include "svg_canvas.h"

#include "dashes.h"
#include "drawing/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>

namespace orvald::picture {

namespace {

// Pixels: viewers compute in 32-bit reals, which are good for a tenth of a pixel up to here.
constexpr double kFarthest = 1e6;
// An ellipse flatter than this is drawn as the line that it looks like.
constexpr double kFlattest = 1e-5;
// Ends and radii describe an arc of about half a turn badly: its centre could be anywhere along a
// line. With thirds of a turn the rounding moves it by two thousandths at most.
constexpr double kMostTurn = 2.0 * std::numbers::pi / 3.0 + 1e-6;
constexpr double kTolerance = 0.05; // pixels, where an arc is written as chords

std::int64_t thousandths(double value)
{
    return std::llround(std::clamp(value, -1e12, 1e12) * 1000.0);
}

void appendInteger(std::string& out, std::int64_t value)
{
    char digits[24];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

// "12.5", "-.25".
void appendThousandths(std::string& out, std::int64_t value)
{
    if (value < 0) {
        out.push_back('-');
        value = -value;
    }
    const std::int64_t whole = value / 1000;
    int part = static_cast<int>(value % 1000);
    if (whole != 0 || part == 0) appendInteger(out, whole);
    if (part == 0) return;
    out.push_back('.');
    for (int unit = 100; part != 0; unit /= 10) {
        out.push_back(char('0' + part / unit));
        part %= unit;
    }
}

// "stroke="#ff0000" stroke-opacity=".5"", for the attribute "stroke"; of "stop" the colour has a
// name of its own.
void appendColour(std::string& out, std::string_view attribute, Colour colour)
{
    constexpr char kHex[] = "0123456789abcdef";
    (out += ' ').append(attribute) += attribute == "stop" ? "-color=\"#" : "=\"#";
    for (const int part : {int(colour.red), int(colour.green), int(colour.blue)}) {
        out.push_back(kHex[part >> 4]);
        out.push_back(kHex[part & 15]);
    }
    out += '"';
    if (colour.opacity == 255) return;
    (out += ' ').append(attribute) += "-opacity=\"";
    appendThousandths(out, colour.opacity * 1000 / 255);
    out += '"';
}

// What XML cannot hold becomes U+FFFD.
void appendLayer(std::string& out, std::string_view layer)
{
    out += " data-layer=\"";
    for (const char32_t c : text::codePoints(drawing::text16(layer), text::Lone::replaced)) {
        if (c == U'&') out += "&amp;";
        else if (c == U'<') out += "&lt;";
        else if (c == U'"') out += "&quot;";
        else text::appendUtf8(out, c < 0x20 || c == 0xFFFE || c == 0xFFFF ? 0xFFFD : c);
    }
    out += '"';
}

bool isFar(const Bounds& box)
{
    return box.left < -kFarthest || box.right > kFarthest || box.bottom < -kFarthest ||
           box.top > kFarthest;
}

} // namespace

SvgCanvas::SvgCanvas(const View& view, Background background) : page_(view.page())
{
    std::string size;
    appendInteger(size, view.width);
    size += "\" height=\"";
    appendInteger(size, view.height);
    out_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
           size + "\" viewBox=\"0 0 ";
    appendInteger(out_, view.width);
    out_ += ' ';
    appendInteger(out_, view.height);
    out_ += "\" fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n<rect width=\"" +
            size + '"';
    appendColour(out_, "fill", backgroundColour(background));
    out_ += "/>\n";
}

std::string SvgCanvas::finish()
{
    openGroup({});
    out_ += "</svg>\n";
    return std::move(out_);
}

void SvgCanvas::openGroup(const std::string& attributes)
{
    if (attributes == group_) return;
    if (!group_.empty()) out_ += "</g>\n";
    if (!attributes.empty()) out_ += "<g" + attributes + ">\n";
    group_ = attributes;
}

void SvgCanvas::stroke(const Path& path, const Ink& ink, const Pen& pen)
{
    Bounds bounds = path.bounds();
    bounds.grow(pen.width * 2.0 + 1.0); // mitres reach two widths
    if (!meet(bounds, page_)) return;
    std::string attributes;
    appendLayer(attributes, ink.layer);
    appendColour(attributes, "stroke", ink.colour);
    attributes += " stroke-width=\"";
    appendThousandths(attributes, thousandths(pen.width));
    attributes += '"';
    if (pen.ends == Ends::sharp) attributes += " stroke-linecap=\"butt\" stroke-linejoin=\"miter\"";
    openGroup(attributes);

    out_ += "<path";
    if (pen.dashes != nullptr) {
        out_ += " stroke-linecap=\"butt\" stroke-dasharray=\"";
        for (std::size_t i = 0; i < pen.dashes->lengths.size(); ++i) {
            if (i > 0) out_ += ' ';
            appendThousandths(out_, thousandths(pen.dashes->lengths[i]));
        }
        out_ += "\" stroke-dashoffset=\"";
        appendThousandths(out_, thousandths(pen.dashes->offset));
        out_ += '"';
    }
    out_ += " d=\"";
    if (isFar(bounds)) seenChords(path, pen.width);
    else pathData(path);
    out_ += "\"/>\n";
}

void SvgCanvas::fill(const Path& path, const Ink& ink, FillRule rule)
{
    if (!meet(path.bounds(), page_)) return;
    std::string attributes;
    appendLayer(attributes, ink.layer);
    if (ink.gradient != nullptr) {
        openGroup({});
        attributes += " fill=\"url(#" + gradient(*ink.gradient) + ")\"";
    } else {
        appendColour(attributes, "fill", ink.colour);
    }
    if (rule == FillRule::evenOdd) attributes += " fill-rule=\"evenodd\"";
    openGroup(attributes);
    out_ += "<path d=\"";
    pathData(path);
    out_ += "\"/>\n";
}

std::string SvgCanvas::gradient(const Gradient& gradient)
{
    std::string name = "g";
    appendInteger(name, ++gradientCount_);
    const char* const element = gradient.radial ? "radialGradient" : "linearGradient";
    ((out_ += '<') += element) += " id=\"" + name + "\" gradientUnits=\"userSpaceOnUse\"";
    const auto attribute = [&](const char* key, double value) {
        ((out_ += ' ') += key) += "=\"";
        appendThousandths(out_, thousandths(value));
        out_ += '"';
    };
    if (gradient.radial) {
        attribute("cx", gradient.from.x);
        attribute("cy", gradient.from.y);
        attribute("r", length(gradient.to - gradient.from));
    } else {
        attribute("x1", gradient.from.x);
        attribute("y1", gradient.from.y);
        attribute("x2", gradient.to.x);
        attribute("y2", gradient.to.y);
    }
    out_ += '>';
    for (const auto& [share, colour] : gradient.stops) {
        out_ += "<stop";
        attribute("offset", share);
        appendColour(out_, "stop", colour);
        out_ += "/>";
    }
    ((out_ += "</") += element) += ">\n";
    return name;
}

void SvgCanvas::pushClip(const Path& path)
{
    openGroup({});
    std::string name = "c";
    appendInteger(name, ++clipCount_);
    out_ += "<clipPath id=\"" + name + "\"><path clip-rule=\"evenodd\" d=\"";
    pathData(path);
    out_ += "\"/></clipPath>\n<g clip-path=\"url(#" + name + ")\">\n";
    outer_.push_back(page_);
    page_ = common(page_, path.bounds());
}

void SvgCanvas::popClip()
{
    openGroup({});
    out_ += "</g>\n";
    page_ = outer_.back();
    outer_.pop_back();
}

void SvgCanvas::pathData(const Path& path)
{
    lastCommand_ = '\0';
    for (const Path::Piece& piece : path.pieces()) {
        switch (piece.step) {
        case Path::Step::move: moveTo(piece.to); break;
        case Path::Step::line: lineTo(piece.to); break;
        case Path::Step::arc: arcTo(piece.arc, piece.to); break;
        case Path::Step::close: command('z'); break;
        }
    }
}

// What the page shows of a path that goes far beyond it, as separate lines.
void SvgCanvas::seenChords(const Path& path, double width)
{
    lastCommand_ = '\0';
    Bounds around = page_;
    around.grow(width * 2.0 + 1.0);
    const std::size_t count = flatten(path, kTolerance, runs_);
    for (std::size_t r = 0; r < count; ++r) {
        const std::vector<Vec>& points = runs_[r].points;
        for (std::size_t i = 0; i + (runs_[r].closed ? 0 : 1) < points.size(); ++i) {
            const Vec a = points[i], along = points[(i + 1) % points.size()] - a;
            double first = 0.0, last = 1.0;
            if (!clipSegment(a, a + along, around, first, last)) continue;
            moveTo(a + first * along);
            lineTo(a + last * along);
        }
    }
}

void SvgCanvas::moveTo(Vec p)
{
    x_ = thousandths(p.x);
    y_ = thousandths(p.y);
    command('M');
    number(x_);
    number(y_);
}

void SvgCanvas::lineTo(Vec p)
{
    const std::int64_t x = thousandths(p.x), y = thousandths(p.y);
    const char letter = y == y_ ? 'h' : x == x_ ? 'v' : 'l';
    command(letter);
    if (letter != 'v') number(x - x_);
    if (letter != 'h') number(y - y_);
    x_ = x;
    y_ = y;
}

void SvgCanvas::arcTo(const Arc& arc, Vec end)
{
    const EllipseAxes axes = axesOf(arc);
    if (axes.shortHalf <= axes.longHalf * kFlattest) {
        const int chords = chordCount(arc, kTolerance);
        for (int i = 1; i <= chords; ++i)
            lineTo(arc.at(arc.from + (arc.to - arc.from) * (double(i) / chords)));
        return;
    }
    const bool circle = axes.longHalf - axes.shortHalf < axes.longHalf * 1e-9;
    const std::int64_t across = thousandths(axes.longHalf), up = thousandths(axes.shortHalf);
    const double degrees = circle ? 0.0 : axes.direction * (180.0 / std::numbers::pi);
    const double turn = arc.to - arc.from;
    const int parts = static_cast<int>(std::clamp(std::ceil(std::abs(turn) / kMostTurn), 1.0, 4.0));
    // The page's y runs downwards, and so does the sense of the flag.
    const bool sweep = (turn > 0.0) != axes.mirrored;
    for (int i = 1; i <= parts; ++i) {
        const Vec to = i == parts ? end : arc.at(arc.from + turn * (double(i) / parts));
        const std::int64_t x = thousandths(to.x), y = thousandths(to.y);
        command('a');
        number(across);
        number(up);
        number(thousandths(degrees));
        number(0);
        number(sweep ? 1000 : 0);
        number(x - x_);
        number(y - y_);
        x_ = x;
        y_ = y;
    }
}

// A command that repeats need not be written again.
void SvgCanvas::command(char letter)
{
    if (letter == lastCommand_ && letter != 'M') return;
    out_.push_back(letter);
    lastCommand_ = letter;
    afterNumber_ = false;
}

void SvgCanvas::number(std::int64_t value)
{
    if (afterNumber_ && value >= 0) out_.push_back(' ');
    appendThousandths(out_, value);
    afterNumber_ = true;
}

} // namespace orvald::picture
