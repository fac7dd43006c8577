// SPDX-License-Identifier: LicenseRef-ORVALD
// "Select objects": what its answers choose, one token after the other. Entities and sets by name;
// points, windows, polygons and fences by where things are drawn; Last, Previous, ALL; Add, Remove
// and Undo.
#pragma once

#include "commands/token.h"
#include "drawing/drawing.h"
#include "drawing/picking.h"

#include <functional>
#include <vector>

namespace orvald {

class Document;

class ObjectChooser
{
public:
    /// Only what `fits` is taken.
    ObjectChooser(Document& document, std::function<bool(drawing::Index)> fits)
        : document_(document), fits_(std::move(fits))
    {
    }

    /// Enter ends the choice.
    Taken take(const Token& token);
    /// What the next token is asked for with.
    std::u16string_view prompt() const;
    /// In the order of their choice.
    const std::vector<drawing::Index>& chosen() const { return chosen_; }
    /// The polygon of the last crossing window, in user coordinates; empty without one.
    const std::vector<drawing::Point>& crossing() const { return crossing_; }

private:
    enum class Wants
    {
        objects,
        corners, // of a rectangle
        implied, // the same, begun by a point where nothing is
        chain    // points up to Enter
    };
    Taken takeCorner(const Token& token);
    Taken takeWord(const Token& token);
    Taken takePoint(drawing::Point place);
    void begin(Wants wants, drawing::Border border);
    void putBorder();
    void put(const std::vector<drawing::Index>& entities);
    std::optional<drawing::Point> pointOf(const Token& token);

    Document& document_;
    std::function<bool(drawing::Index)> fits_;
    Wants wants_ = Wants::objects;
    drawing::Border border_ = drawing::Border::window;
    std::vector<drawing::Point> points_;
    bool removing_ = false;
    std::vector<drawing::Index> chosen_, before_; // before_: as of the last answer that changed it
    std::vector<drawing::Point> crossing_;
};

} // namespace orvald
