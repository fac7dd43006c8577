// SPDX-License-Identifier: LicenseRef-ORVALD
// Layers and line types are read from their tables on first use.
#include "looks.h"

#include "drawing/text.h"

#include <algorithm>
#include <cstdlib>

namespace orvald::picture {

using drawing::Record;
using drawing::Tag;

namespace {

constexpr int kByBlock = 0, kByLayer = 256;
constexpr int kWeightByLayer = -1, kWeightByBlock = -2;
constexpr int kDefaultWeight = 25; // hundredths of a millimetre

int held(std::int64_t value) { return int(std::clamp<std::int64_t>(value, -1000, 1000)); }

// The values of group 440: an opacity behind this head, the block's, or else the layer's.
constexpr std::int64_t kOwnOpacity = 0x02000000, kOpacityByBlock = 0x01000000;

std::uint8_t opacityIn(std::int64_t stored) { return static_cast<std::uint8_t>(stored & 255); }

// Layers keep theirs in extended data.
std::uint8_t layerOpacity(const Record& layer)
{
    if (layer.extras() == nullptr) return 255;
    bool inData = false;
    for (const Tag tag : layer.extras()->xdata) {
        if (tag.code() == 1001) inData = tag.text() == "AcCmTransparency";
        else if (inData && tag.code() == 1071 && (tag.integer() & kOwnOpacity) != 0)
            return opacityIn(tag.integer());
    }
    return 255;
}

} // namespace

Looks::Looks(const drawing::Drawing& drawing, Background background)
    : drawing_(drawing), background_(background), dashScale_(drawing.header.real("$LTSCALE", 1.0))
{
}

int Looks::weight(std::int64_t stored) const { return stored >= 0 ? held(stored) : kDefaultWeight; }

const LineType* Looks::lineType(std::string_view name)
{
    auto found = lineTypes_.find(name);
    if (found == lineTypes_.end()) {
        const drawing::Index index = drawing_.findRecord(drawing::TableId::ltype, name);
        LineType type = index != drawing::kNone ? readLineType(drawing_, index) : LineType{};
        found = lineTypes_.emplace(name, std::move(type)).first;
    }
    return found->second.lengths.empty() ? nullptr : &found->second;
}

const Layer& Looks::layer(std::string_view name)
{
    if (lastLayer_ != nullptr && name == lastName_) return *lastLayer_;
    auto found = layers_.find(name);
    if (found == layers_.end()) {
        Layer layer;
        layer.colour = numberedColour(7, background_);
        layer.weight = kDefaultWeight;
        const drawing::Index index = drawing_.findRecord(drawing::TableId::layer, name);
        if (index != drawing::kNone) {
            const Record& record = drawing_.at(index);
            layer.record = index;
            const auto number = record.tags.integer(62, 7);
            layer.colour = numberedColour(held(std::abs(number)), background_);
            const auto rgb = record.tags.integer(420, -1);
            if (rgb >= 0) layer.colour = trueColour(rgb);
            layer.colour.opacity = layerOpacity(record);
            layer.weight = weight(record.tags.integer(370, -3));
            layer.lineType = lineType(record.tags.text(6));
            layer.off = number < 0;
            layer.frozen = (record.tags.integer(70) & 1) != 0;
        }
        found = layers_.emplace(name, layer).first;
        found->second.name = found->first;
    }
    lastLayer_ = &found->second;
    lastName_ = name;
    return *lastLayer_;
}

Colour Looks::colour(int number, const Look& look, const Look* block) const
{
    if (number == kByLayer) return look.layer->colour;
    if (number == kByBlock && block != nullptr) return block->colour;
    return numberedColour(number, background_);
}

Look Looks::of(const Record& entity, const Look* block)
{
    std::string_view layerName = "0", typeName = "ByLayer";
    std::int64_t number = kByLayer, rgb = -1, opacity = 0, stored = kWeightByLayer;
    Look look;
    int markers = 0;
    for (auto at = entity.body(); at != entity.tags.end() && markers < 2; ++at) {
        const Tag tag = *at;
        switch (tag.code()) {
        case 100: ++markers; break; // behind the second one stand the groups of its own kind
        case 6: typeName = tag.text(); break;
        case 8: layerName = tag.text(); break;
        case 48: look.dashScale = tag.real(); break;
        case 60: look.invisible = tag.integer() != 0; break;
        case 62: number = tag.integer(); break;
        case 370: stored = tag.integer(); break;
        case 420: rgb = tag.integer(); break;
        case 440: opacity = tag.integer(); break;
        default: break;
        }
    }
    // What stands on layer 0 in a block takes the layer of the insert.
    look.layer = block != nullptr && layerName == "0" ? block->layer : &layer(layerName);
    look.frozen = look.layer->frozen || std::find(frozenHere_.begin(), frozenHere_.end(),
                                                  look.layer->record) != frozenHere_.end();
    look.colour = rgb >= 0 ? trueColour(rgb) : colour(held(number), look, block);
    if ((opacity & kOwnOpacity) != 0) look.colour.opacity = opacityIn(opacity);
    else if ((opacity & kOpacityByBlock) != 0)
        look.colour.opacity = block != nullptr ? block->colour.opacity : std::uint8_t{255};
    else look.colour.opacity = look.layer->colour.opacity;
    if (stored == kWeightByLayer) look.weight = look.layer->weight;
    else if (stored == kWeightByBlock && block != nullptr) look.weight = block->weight;
    else look.weight = weight(stored);
    if (drawing::sameName(typeName, "ByLayer")) look.lineType = look.layer->lineType;
    else if (drawing::sameName(typeName, "ByBlock"))
        look.lineType = block != nullptr ? block->lineType : nullptr;
    else look.lineType = lineType(typeName);
    look.dashScale *= dashScale_;
    return look;
}

} // namespace orvald::picture
