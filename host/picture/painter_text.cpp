// SPDX-License-Identifier: LicenseRef-ORVALD
// TEXT, ATTRIB, ATTDEF and MTEXT as strokes of the lettering.
#include "drawing/text.h"
#include "painter.h"
#include "stroke_font.h"

#include <algorithm>
#include <cmath>

namespace orvald::picture {

using drawing::Record;

namespace {

// Font units over and under the base line.
constexpr double kUnderline = -4.0, kOverline = kCapHeight + 4.0, kStrike = kCapHeight / 2.0;
// Pixels: lower letters cannot be read, and their lines become a grey bar.
constexpr double kLeastHeight = 1.5;
// Letters are written with a pen of this part of their height, as stencils ask, or with that of
// their line weight when it is wider; but no bolder than can be read. Pixels: the finest pen.
constexpr double kPen = 0.08, kBoldest = 0.13, kFinestPen = 0.6;
constexpr double kBoldPen = 0.13;  // as kPen, of bold letters
constexpr double kSteepest = 1.48; // radians of lean
constexpr double kItalic = 0.25;   // of the height, lean of italic letters

enum Horizontal
{
    left,
    centre,
    right,
    aligned,
    middle,
    fit
};

// Turned by an angle.
Affine turned(double angle, Vec origin)
{
    const double c = std::cos(angle), s = std::sin(angle);
    return {{c, s}, {-s, c}, origin};
}

} // namespace

void Painter::text(const Record& record, const Look& look, const Place& place,
                   const std::string* instead)
{
    drawing::TextView view = drawing::textView(record);
    if (view.invisible || !(view.height > 0.0)) return;
    // The definition of an attribute shows its name.
    const bool constant = (record.tags.integer(70) & 2) != 0;
    if (record.kind() == drawing::Kind::attdef && !constant)
        view.text = instead != nullptr ? *instead : drawing::text8(record.tags.text(2));

    LetterLook letterLook;
    letterLook.height = view.height;
    letterLook.widthFactor = view.widthFactor > 0.0 ? view.widthFactor : 1.0;
    letterLook.oblique =
        std::clamp(std::remainder(view.oblique, 6.283185307179586), -kSteepest, kSteepest);
    std::vector<Lettering> line = singleLine(view.text, letterLook);
    double width = lineWidth(line);

    Vec at = flat(view.insert);
    double turn = view.rotation;
    if (view.horizontal != left || view.vertical != 0) at = flat(view.align);
    Vec shift;
    if (view.horizontal == aligned || view.horizontal == fit) {
        // Between two points: the width is given, and with it the height or the width factor.
        const Vec along = flat(view.align) - flat(view.insert);
        at = flat(view.insert);
        turn = std::atan2(along.y, along.x);
        if (!(width > 0.0) || !(length(along) > 0.0)) return;
        const double stretch = length(along) / width;
        letterLook.widthFactor *= view.horizontal == fit ? stretch : 1.0;
        letterLook.height *= view.horizontal == aligned ? stretch : 1.0;
        line = singleLine(view.text, letterLook);
    } else if (view.horizontal == centre || view.horizontal == middle) {
        shift.x = -width / 2.0;
    } else if (view.horizontal == right) {
        shift.x = -width;
    }
    const double unit = view.height / kCapHeight;
    if (view.horizontal == middle || view.vertical == 2) shift.y = -view.height / 2.0;
    else if (view.vertical == 1) shift.y = -kDescent * unit;
    else if (view.vertical == 3) shift.y = -view.height;

    Affine toPlane = turned(turn, at);
    if (view.backward) toPlane.x = Vec{} - toPlane.x;
    if (view.upsideDown) toPlane.y = Vec{} - toPlane.y;
    toPlane.origin = toPlane(shift);
    const Affine plane = planeOf(place.map, view.normal, view.insert.z);
    letters(line, plane.after(toPlane), look, place.block);
}

void Painter::mtext(const Record& record, const Look& look, const Place& place)
{
    constexpr int kFilled = 1, kFilledAsPage = 2; // of group 90
    const auto background = record.tags.integer(90);
    if ((background & (kFilled | kFilledAsPage)) == 0)
        return paragraph(drawing::mtextView(record), look, place);
    TextGround ground;
    ground.border = record.tags.real(45, 1.5) - 1.0;
    ground.colour = backgroundColour(looks_.background());
    if ((background & kFilledAsPage) == 0) {
        ground.colour = numberedColour(int(record.tags.integer(63, 7) & 511), looks_.background());
        const auto rgb = record.tags.integer(421, -1);
        if (rgb >= 0) ground.colour = trueColour(rgb);
    }
    paragraph(drawing::mtextView(record), look, place, &ground);
}

void Painter::paragraph(const drawing::MTextView& view, const Look& look, const Place& place,
                        const TextGround* ground)
{
    if (!(view.height > 0.0)) return;
    LetterLook letterLook;
    letterLook.height = view.height;
    const drawing::Index style = drawing_.findRecord(drawing::TableId::style, view.style);
    if (style != drawing::kNone) {
        const drawing::TagList& tags = drawing_.at(style).tags;
        const double factor = tags.real(41, 1.0);
        letterLook.widthFactor = factor > 0.0 ? factor : 1.0;
        constexpr double kDegree = 0.017453292519943295;
        letterLook.oblique =
            std::clamp(std::remainder(tags.real(50), 360.0) * kDegree, -kSteepest, kSteepest);
    }
    const Paragraphs block = paragraphs(view, letterLook);
    // The insertion point is in world coordinates, the rotation counts in the text's own plane.
    const drawing::Transform world = drawing::entityToWorld(view.normal);
    const Affine axes{flat(place.map.direction(world.x)), flat(place.map.direction(world.y)),
                      flat(place.map(view.insert))};
    const Affine toCanvas = axes.after(turned(view.rotation, {}));

    if (ground != nullptr) {
        const double border = ground->border * view.height;
        Look area = look;
        area.colour = ground->colour;
        path_.clear();
        path_.moveTo(toCanvas({block.left - border, block.bottom - border}));
        path_.lineTo(toCanvas({block.right + border, block.bottom - border}));
        path_.lineTo(toCanvas({block.right + border, block.top + border}));
        path_.lineTo(toCanvas({block.left - border, block.top + border}));
        path_.close();
        fill(path_, area, FillRule::nonZero);
    }
    letters(block.pieces, toCanvas, look, place.block);
}

void Painter::letters(const std::vector<Lettering>& pieces, const Affine& toCanvas,
                      const Look& look, const Look* block)
{
    for (const Lettering& piece : pieces) {
        if (!spend(piece.text.size() + 1)) return;
        const LetterLook& form = piece.look;
        const double across = form.unit(), up = form.height / kCapHeight;
        if (!(across > 0.0) || !(up > 0.0)) continue; // too small for numbers
        const Affine toPlace =
            toCanvas.after({{across, 0.0},
                            {std::tan(form.oblique) * up + (form.italic ? kItalic * up : 0.0), up},
                            {piece.x, piece.y}});
        const double width = widthOf(piece) / across;
        path_.clear();
        const auto bar = [&](double y) {
            path_.moveTo(toPlace({0.0, y}));
            path_.lineTo(toPlace({width, y}));
        };
        const double pixels = length(toPlace.y) * kCapHeight;
        if (view_ != nullptr && pixels < kLeastHeight) {
            bar(kCapHeight / 2.0);
        } else {
            double x = 0.0;
            for (const char32_t c : piece.text) {
                const Glyph& glyph = glyphOf(c);
                Affine place = toPlace;
                place.origin = toPlace({x, 0.0});
                path_.addMapped(glyph.path, place);
                x += advanceOf(glyph) * form.tracking;
            }
            if (form.underline) bar(kUnderline);
            if (form.overline) bar(kOverline);
            if (form.strike) bar(kStrike);
        }
        if (path_.empty() || !path_.isDrawable()) continue;
        Colour colour = look.colour;
        if (form.colour) colour = looks_.colour(*form.colour, look, block);
        if (form.trueColour) colour = trueColour(*form.trueColour);
        const double pen =
            std::min(std::max(penWidth(look), (form.bold ? kBoldPen : kPen) * pixels),
                     std::max(kBoldest * pixels, kFinestPen));
        canvas_.stroke(path_, {colour, look.layer->name}, {pen, Ends::round, nullptr});
    }
}

} // namespace orvald::picture
