// SPDX-License-Identifier: LicenseRef-ORVALD
// How an entity looks once its layer, its block and the line types have had their say.
#pragma once

#include "colour.h"
#include "drawing/drawing.h"
#include "line_types.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvald::picture {

struct Layer
{
    std::string_view name; // file form
    Colour colour;
    int weight = 0;                     // hundredths of a millimetre
    const LineType* lineType = nullptr; // null: continuous
    bool off = false, frozen = false;
    drawing::Index record = drawing::kNone;
};

struct Look
{
    Colour colour;
    const Layer* layer = nullptr;       // never null once it is resolved
    int weight = 0;                     // hundredths of a millimetre
    const LineType* lineType = nullptr; // null: continuous
    double dashScale = 1.0;             // with the drawing's own scale of line types
    bool invisible = false;             // the entity itself says so
    bool frozen = false;                // its layer is, everywhere or here

    bool hidden() const { return invisible || frozen || layer->off; }
};

class Looks
{
public:
    Looks(const drawing::Drawing& drawing, Background background);

    /// `block` is the look of the insert that shows the entity; null in a space.
    Look of(const drawing::Record& entity, const Look* block);
    /// What a colour number means for an entity of that look: 0 its block's, 256 its layer's.
    Colour colour(int number, const Look& look, const Look* block) const;
    /// Of a line type by name; null: continuous.
    const LineType* lineType(std::string_view name);
    Background background() const { return background_; }
    /// From now on these layers, too, are frozen.
    void freeze(std::vector<drawing::Index> layers) { frozenHere_ = std::move(layers); }

private:
    const Layer& layer(std::string_view name);
    int weight(std::int64_t stored) const;

    const drawing::Drawing& drawing_;
    Background background_;
    double dashScale_; // of the whole drawing
    std::vector<drawing::Index> frozenHere_;
    // By the name as entities spell it. Nodes of a map stay where they are.
    std::map<std::string, Layer, std::less<>> layers_;
    std::map<std::string, LineType, std::less<>> lineTypes_;
    const Layer* lastLayer_ = nullptr; // most entities share the layer of the one before
    std::string lastName_;
};

} // namespace orvald::picture
