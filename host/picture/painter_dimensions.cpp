// SPDX-License-Identifier: LicenseRef-ORVALD
// Dimensions. Most carry their picture in a block; one that has none, as programs make them, is
// drawn from its points: extension lines, dimension line with arrows, text.
#include "dim_settings.h"
#include "drawing/text.h"
#include "painter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>

namespace orvald::picture {

using drawing::Index;
using drawing::Point;
using drawing::Record;

namespace {

constexpr double kPi = std::numbers::pi, kDegree = kPi / 180.0;

// The looks of the parts, and their sizes in drawing units.
struct DimForm
{
    double arrow, offset, beyond, text, gap, tick, factor;
    Look line, extension, letters;
    drawing::Handle firstArrow, secondArrow;
};

Point unitOf(Point v)
{
    const double size = length(v);
    return size > 0.0 ? 1.0 / size * v : Point{};
}
Point leftOf(Point v) { return {-v.y, v.x, 0.0}; }
Point towards(double angle) { return {std::cos(angle), std::sin(angle), 0.0}; }
double angleOf(Point v) { return std::atan2(v.y, v.x); }
Point middle(Point a, Point b) { return 0.5 * (a + b); }
// Of two lines by a point and a direction each; the first point for parallels.
Point crossingOf(Point p, Point u, Point q, Point v)
{
    const double area = u.x * v.y - u.y * v.x;
    if (!(std::abs(area) > 0.0)) return p;
    const Point d = q - p;
    return p + (d.x * v.y - d.y * v.x) / area * u;
}

// With as many decimals as asked for; `dropZeros`: without those at the end.
std::string decimal(double value, std::int64_t decimals, bool dropZeros, char mark)
{
    char digits[64];
    const auto written =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed,
                      int(std::clamp<std::int64_t>(decimals, 0, 8)));
    if (written.ec != std::errc{}) return "?";
    std::string out(digits, written.ptr);
    if (const std::size_t dot = out.find('.'); dot != out.npos) {
        if (dropZeros) out.erase(std::max(out.find_last_not_of('0') + 1, dot));
        if (out.back() == '.') out.pop_back();
        else out[dot] = mark;
    }
    return out;
}

// The text that the user gave, "<>" in it the measured one.
std::string dimText(const Record& record, const std::string& measured)
{
    std::string text = drawing::text8(record.tags.text(1));
    if (text.empty()) return measured;
    if (const std::size_t at = text.find("<>"); at != text.npos) text.replace(at, 2, measured);
    return text;
}

} // namespace

class DimPainter
{
public:
    DimPainter(Painter& painter, const Record& record, const Look& look,
               const Painter::Place& place)
        : painter_(painter), record_(record), place_(place), settings_(painter.drawing_, record)
    {
        const auto coloured = [&](int code) {
            Look own = look;
            const int number = int(std::clamp<std::int64_t>(settings_.integer(code, 0), 0, 256));
            // A dimension is a block to its parts: by block means as the dimension.
            if (number != 0) own.colour = painter.looks_.colour(number, look, &look);
            return own;
        };
        form_ = {settings_.size(41, 2.5),
                 settings_.size(42, 0.625),
                 settings_.size(44, 1.25),
                 settings_.size(140, 2.5),
                 settings_.size(147, 0.625),
                 settings_.size(142, 0.0),
                 settings_.real(144, 1.0),
                 coloured(176),
                 coloured(177),
                 coloured(178),
                 settings_.handle(342),
                 settings_.handle(342)};
        if (settings_.integer(173, 0) != 0) {
            form_.firstArrow = settings_.handle(343);
            form_.secondArrow = settings_.handle(344);
        }
        if (const drawing::TagList& tags = record.tags; tags.has(11)) {
            textAt_ = drawing::entityToWorld(tags.point(210, {0.0, 0.0, 1.0}))(tags.point(11));
            placed_ = !(textAt_ == Point{});
        }
    }

    void draw()
    {
        switch (record_.tags.integer(70) & 7) {
        case 0: return linear(towards(record_.tags.real(50) * kDegree));
        case 1: return linear(unitOf(at(14) - at(13)));
        case 2: return angular(at(13), at(14), at(15), at(10), at(16), true);
        case 3: return diameter();
        case 4: return radius();
        case 5: return angular(at(15), at(13), at(15), at(14), at(10), false);
        case 6: return ordinate();
        default: return;
        }
    }

private:
    Point at(int code) const { return record_.tags.point(code); }

    std::string lengthText(double value, const char* prefix) const
    {
        const std::int64_t mark = settings_.integer(278, '.');
        std::string text = prefix;
        text += decimal(std::abs(value * form_.factor), settings_.integer(271, 2),
                        (settings_.integer(78, 8) & 8) != 0,
                        mark > ' ' && mark < 127 ? char(mark) : '.');
        // Words around the number stand in a pattern of their own.
        std::string pattern = drawing::text8(settings_.text(3));
        if (const std::size_t hole = pattern.find("<>"); hole != pattern.npos)
            return pattern.replace(hole, 2, text);
        return text + pattern;
    }

    void segment(Point a, Point b, const Look& look)
    {
        painter_.points({a, b}, false, look, place_);
    }
    void extension(Point from, Point to)
    {
        const Point along = unitOf(to - from);
        if (along == Point{}) return;
        segment(from + form_.offset * along, to + form_.beyond * along, form_.extension);
    }
    void pointer(Point tip, Point along, drawing::Handle shape)
    {
        if (form_.tick > 0.0) {
            const Point slant = form_.tick * unitOf(unitOf(along) + leftOf(unitOf(along)));
            segment(tip - slant, tip + slant, form_.line);
        } else {
            painter_.arrow(tip, along, form_.arrow, shape, form_.line, place_);
        }
    }
    // Upright or falling to the left would stand on its head.
    static double readable(double angle)
    {
        angle = std::remainder(angle, 2.0 * kPi);
        constexpr double kHair = 1e-6;
        if (angle > kPi / 2.0 + kHair) return angle - kPi;
        return angle <= -kPi / 2.0 + kHair ? angle + kPi : angle;
    }
    void label(const std::string& text, Point where, double angle)
    {
        drawing::MTextView view;
        view.text = dimText(record_, text);
        view.insert = where;
        view.height = form_.text;
        view.style = settings_.textStyle();
        view.rotation = record_.tags.has(53) ? record_.tags.real(53) * kDegree : readable(angle);
        constexpr int kMiddleCentre = 5;
        view.attachment = kMiddleCentre;
        painter_.paragraph(view, form_.letters, place_);
    }
    // Above the middle of a line, if the dimension does not say where.
    Point textPlace(Point onLine, double angle) const
    {
        if (placed_) return textAt_;
        return onLine + (form_.gap + form_.text / 2.0) * leftOf(towards(readable(angle)));
    }

    void linear(Point along)
    {
        const Point first = at(13), second = at(14), line = at(10);
        if (along == Point{}) return;
        const auto foot = [&](Point p) { return p + dot(line - p, leftOf(along)) * leftOf(along); };
        const Point a = foot(first), b = foot(second);
        extension(first, a);
        extension(second, b);
        segment(a, b, form_.line);
        const Point inward = b - a;
        pointer(a, inward, form_.firstArrow);
        pointer(b, -1.0 * inward, form_.secondArrow);
        label(lengthText(length(inward), ""), textPlace(middle(a, b), angleOf(along)),
              angleOf(along));
    }

    void radius()
    {
        const Point centre = at(10), end = at(15), out = unitOf(end - centre);
        const double size = length(end - centre);
        const bool outside = placed_ && length(textAt_ - centre) > size;
        segment(end, outside ? textAt_ : centre, form_.line);
        pointer(end, outside ? out : -1.0 * out, form_.secondArrow);
        label(lengthText(size, "R"), textPlace(middle(centre, end), angleOf(out)), angleOf(out));
    }

    void diameter()
    {
        const Point a = at(15), b = at(10), along = b - a;
        segment(a, b, form_.line);
        pointer(a, along, form_.firstArrow);
        pointer(b, -1.0 * along, form_.secondArrow);
        label(lengthText(length(along), "%%c"), textPlace(middle(a, b), angleOf(along)),
              angleOf(along));
    }

    // Between the directions of two lines, on the side of a point that the arc passes; or, from one
    // corner, counter-clockwise past it or the other way round.
    void angular(Point a0, Point a1, Point b0, Point b1, Point through, bool lines)
    {
        Point u = unitOf(a1 - a0), v = unitOf(b1 - b0);
        const Point corner = lines ? crossingOf(a0, u, b0, v) : a0;
        const Point side = through - corner;
        const double size = length(side);
        const double area = u.x * v.y - u.y * v.x;
        if (!(size > 0.0) || !(std::abs(area) > 0.0)) return;
        if (lines) { // the directions between which the point lies
            if ((side.x * v.y - side.y * v.x) / area < 0.0) u = -1.0 * u;
            if ((u.x * side.y - u.y * side.x) / (u.x * v.y - u.y * v.x) < 0.0) v = -1.0 * v;
        }
        const auto behind = [](double from, double angle) {
            const double sweep = std::fmod(angle - from, 2.0 * kPi);
            return sweep < 0.0 ? sweep + 2.0 * kPi : sweep;
        };
        double from = angleOf(u), sweep = behind(from, angleOf(v));
        if (behind(from, angleOf(side)) > sweep) { // the other way round
            from = angleOf(v);
            sweep = 2.0 * kPi - sweep;
            std::swap(a1, b1);
            std::swap(a0, b0);
        }
        const double to = from + sweep;
        const Point start = corner + size * towards(from), end = corner + size * towards(to);
        // From the nearer end of each side, if the arc lies beyond it.
        const auto side2 = [&](Point p, Point q, Point tip) {
            const Point last = length(tip - p) < length(tip - q) ? p : q;
            if (length(last - corner) < size) extension(last, tip);
        };
        side2(lines ? a0 : a1, a1, start);
        side2(lines ? b0 : b1, b1, end);
        const Affine plane{flat(place_.map.x), flat(place_.map.y), flat(place_.map(corner))};
        const Arc arc = plane.mapped({{}, {size, 0.0}, {0.0, size}, from, to});
        painter_.path_.clear();
        painter_.path_.moveTo(arc.at(from));
        painter_.path_.arcTo(arc);
        painter_.stroke(painter_.path_, form_.line, Painter::scaleOf(place_.map));
        pointer(start, leftOf(towards(from)), form_.firstArrow);
        pointer(end, -1.0 * leftOf(towards(to)), form_.secondArrow);
        const Point half = towards(from + sweep / 2.0);
        const double angle = angleOf(half) - kPi / 2.0;
        label(decimal(sweep / kDegree, settings_.integer(179, 0),
                      (settings_.integer(79, 0) & 2) != 0, '.') +
                  "%%d",
              textPlace(corner + size * half, angle), angle);
    }

    void ordinate()
    {
        constexpr std::int64_t kOfX = 64;
        const bool ofX = (record_.tags.integer(70) & kOfX) != 0;
        const Point from = at(13), to = at(14), origin = at(10);
        const Point along = ofX ? Point{0.0, 1.0, 0.0} : Point{1.0, 0.0, 0.0};
        const Point on = dot(to - from, along) < 0.0 ? -1.0 * along : along;
        const Point last = to - form_.arrow * on, knee = last - form_.arrow * on;
        const Point aside = dot(knee - from, along) * along + from; // straight over the point
        painter_.points({from + form_.offset * on, aside, last, to}, false, form_.extension,
                        place_);
        const double value = ofX ? from.x - origin.x : from.y - origin.y;
        const std::string text = lengthText(value, "");
        // Behind its end, about half a letter's width for each character.
        const double half = form_.gap + 0.35 * form_.text * double(text.size());
        label(text, placed_ ? textAt_ : to + half * on, angleOf(along));
    }

    Painter& painter_;
    const Record& record_;
    const Painter::Place& place_;
    DimSettings settings_;
    DimForm form_;
    Point textAt_;
    bool placed_ = false; // textAt_ is the middle of the text
};

void Painter::dimension(const Record& record, const Look& look, const Place& place)
{
    const Index picture = drawing_.findRecord(drawing::TableId::blockRecord, record.tags.text(2));
    // The block lies in the coordinates of the dimension's own space.
    if (picture != drawing::kNone && drawing_.firstChild(picture) != drawing::kNone)
        return block(picture, {place.map, &look});
    DimPainter(*this, record, look, place).draw();
}

} // namespace orvald::picture
