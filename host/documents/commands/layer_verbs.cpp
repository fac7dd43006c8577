// SPDX-License-Identifier: LicenseRef-ORVALD
// LAYER: layers by name and by patterns of names.
#include "commands/making.h"
#include "commands/verbs.h"
#include "document.h"
#include "drawing/text.h"
#include "text/wildcard.h"
#include "typed_values.h"

#include <cmath>
#include <cstdlib>

namespace orvald {
namespace {

using drawing::Index;
using drawing::TableId;

constexpr int kFrozen = 1, kLocked = 4; // bits of group 70

std::u16string currentLayer(Command& command)
{
    return drawing::text16(command.drawing().header.text("$CLAYER", "0"));
}

/// Layers whose names match the patterns; the current one for none.
std::vector<Index> layersOf(Command& command, const std::u16string& patterns)
{
    const drawing::Drawing& drawing = command.drawing();
    const std::u16string wanted = patterns.empty() ? currentLayer(command) : patterns;
    std::vector<Index> found;
    for (const Index layer : drawing.tableRecords(TableId::layer)) {
        const drawing::Record& record = drawing.at(layer);
        const std::u16string name = drawing::text16(record.name());
        const bool itself = patterns.empty()
                                ? name == wanted
                                : text::matchesWildcard(name, wanted, text::Case::ignored);
        if (!record.erased && itself) found.push_back(layer);
    }
    if (found.empty()) command.print(u"No layer matches \"" + wanted + u"\".");
    return found;
}

bool isCurrent(Command& command, Index layer)
{
    return drawing::sameName(command.drawing().at(layer).name(),
                             command.drawing().header.text("$CLAYER", "0"));
}

void setFlag(Command& command, Index layer, int flag, bool on)
{
    const auto flags = static_cast<int>(command.drawing().at(layer).tags.integer(70));
    changeOf(command, layer).integer(70, on ? flags | flag : flags & ~flag).apply(command);
}

/// A negative colour is one that is off.
void setColour(Command& command, Index layer, int colour, bool on)
{
    changeOf(command, layer).integer(62, on ? colour : -colour).apply(command);
}
int colourOf(Command& command, Index layer)
{
    return std::abs(static_cast<int>(command.drawing().at(layer).tags.integer(62, 7)));
}
bool isOn(Command& command, Index layer)
{
    return command.drawing().at(layer).tags.integer(62, 7) >= 0;
}

/// The layers of a list of names apart by commas, made where they are missing.
void makeLayers(Command& command, std::u16string_view names)
{
    while (!names.empty()) {
        const std::size_t comma = std::min(names.find(u','), names.size());
        const std::string name = drawing::fileForm(trimmed(names.substr(0, comma)));
        names.remove_prefix(std::min(comma + 1, names.size()));
        if (name.empty()) continue;
        if (!drawing::isSymbolName(name)) {
            command.refuse(u"a layer cannot be called " + drawing::text16(name));
        }
        command.drawing().needLayer(name);
    }
}

void setCurrent(Command& command, const std::u16string& name)
{
    const Index layer =
        command.drawing().findRecord(TableId::layer, drawing::fileForm(trimmed(name)));
    if (layer == drawing::kNone) command.refuse(u"there is no layer " + name);
    if ((command.drawing().at(layer).tags.integer(70) & kFrozen) != 0) {
        command.refuse(u"the layer " + name + u" is frozen");
    }
    command.setText(u"CLAYER", trimmed(name));
}

// ... Off names: the current layer only when that is meant
Task<> off(Command& command)
{
    const std::u16string names = co_await command.text(u"Enter layer name(s) to turn off: ");
    for (const Index layer : layersOf(command, names)) {
        if (isCurrent(command, layer)) {
            const Answer<NoValue> sure = co_await command.option(
                u"Really want the current layer off? [Yes/No] <N>: ", u"Yes No");
            if (!sure.is(u"Yes")) continue;
        }
        setColour(command, layer, colourOf(command, layer), false);
    }
}

// ... Freeze names: never the current layer
Task<> freeze(Command& command)
{
    const std::u16string names = co_await command.text(u"Enter layer name(s) to freeze: ");
    for (const Index layer : layersOf(command, names)) {
        if (isCurrent(command, layer)) command.print(u"The current layer cannot be frozen.");
        else setFlag(command, layer, kFrozen, true);
    }
}

Task<std::vector<Index>> askLayers(Command& command)
{
    const std::u16string names = co_await command.text(u"Enter layer name(s): ");
    co_return layersOf(command, names);
}

// ... Thaw|LOck|Unlock names
Task<> flag(Command& command, int bit, bool on)
{
    const std::vector<Index> layers = co_await askLayers(command);
    for (const Index at : layers) setFlag(command, at, bit, on);
}

// ... ON names
Task<> on(Command& command)
{
    const std::vector<Index> layers = co_await askLayers(command);
    for (const Index at : layers) setColour(command, at, colourOf(command, at), true);
}

// ... Color colour names
Task<> colour(Command& command)
{
    const std::u16string typed = co_await command.text(u"New color: ");
    const std::optional<int> number = readColour(typed);
    if (!number || *number == 0 || *number > 255) command.refuse(typed + u" is not a colour");
    const std::vector<Index> layers = co_await askLayers(command);
    for (const Index layer : layers) setColour(command, layer, *number, isOn(command, layer));
}

// ... Ltype linetype names
Task<> linetype(Command& command)
{
    std::u16string name = co_await command.text(u"Enter loaded linetype name: ");
    if (name.empty()) name = u"Continuous";
    const Index found = command.drawing().findRecord(TableId::ltype, drawing::fileForm(name));
    if (found == drawing::kNone) command.refuse(u"there is no linetype " + name);
    name = drawing::text16(command.drawing().at(found).name());
    const std::vector<Index> layers = co_await askLayers(command);
    for (const Index layer : layers) changeOf(command, layer).text(6, name).apply(command);
}

// ... LWeight millimetres|Default names
Task<> lineWeight(Command& command)
{
    constexpr int kDefault = -3;
    const Answer<double> weight =
        co_await command.number(u"Enter lineweight (0.0mm - 2.11mm): ", u"Default");
    int hundredths =
        weight ? static_cast<int>(std::lround(100.0 * std::clamp(*weight, 0.0, 2.11))) : kDefault;
    const std::vector<Index> layers = co_await askLayers(command);
    for (const Index layer : layers)
        changeOf(command, layer).integer(370, hundredths).apply(command);
}

// ... Plot Plot|No names
Task<> plot(Command& command)
{
    const Answer<NoValue> answer =
        co_await command.option(u"Enter a plotting preference [Plot/No plot] <Plot>: ", u"Plot No");
    const int plotted = answer.is(u"No") ? 0 : 1;
    const std::vector<Index> layers = co_await askLayers(command);
    for (const Index layer : layers) changeOf(command, layer).integer(290, plotted).apply(command);
}

// ... Rename old new
Task<> rename(Command& command)
{
    const std::u16string from = co_await command.text(u"Enter old layer name: ");
    const std::u16string to = co_await command.text(u"Enter new layer name: ");
    drawing::Drawing& drawing = command.drawing();
    const Index layer = drawing.findRecord(TableId::layer, drawing::fileForm(from));
    const std::string name = drawing::fileForm(to);
    const bool fixed = drawing::sameName(drawing::fileForm(from), "0");
    if (layer == drawing::kNone || fixed || !drawing::isSymbolName(name) ||
        !drawing.renameRecord(TableId::layer, layer, name)) {
        command.refuse(from + u" cannot be called " + to);
    }
}

// LAYER Make|Set|New name, ON|OFf|Freeze|Thaw|LOck|Unlock names, Color|Ltype|LWeight|Plot x names,
// Rename old new, in any number, up to Enter
Task<> layer(Command& command)
{
    for (;;) {
        const Answer<NoValue> option = co_await command.option(
            u"Enter an option [?/Make/Set/New/Rename/ON/OFF/Color/Ltype/LWeight/Plot/Freeze/Thaw/"
            u"LOck/Unlock]: ",
            u"? Make Set New Rename ON OFF Color Ltype LWeight MATerial Plot Pstyle Freeze Thaw "
            u"LOck Unlock stAte TRansparency Description rEconcile");
        if (option.isEnter()) co_return;
        if (option.is(u"?")) {
            const std::u16string names =
                co_await command.text(u"Enter layer name(s) to list <*>: ");
            for (const Index one : layersOf(command, names.empty() ? u"*" : names))
                command.print(drawing::text16(command.drawing().at(one).name()));
        } else if (option.is(u"Make") || option.is(u"Set")) {
            const std::u16string name = co_await command.text(u"Enter layer name: ");
            if (name.empty()) continue; // the current one
            if (option.is(u"Make")) makeLayers(command, name);
            setCurrent(command, name);
        } else if (option.is(u"New")) {
            makeLayers(command, co_await command.text(u"Enter name list for new layer(s): "));
        } else if (option.is(u"ON")) co_await on(command);
        else if (option.is(u"OFF")) co_await off(command);
        else if (option.is(u"Color")) co_await colour(command);
        else if (option.is(u"Ltype")) co_await linetype(command);
        else if (option.is(u"LWeight")) co_await lineWeight(command);
        else if (option.is(u"Plot")) co_await plot(command);
        else if (option.is(u"Freeze")) co_await freeze(command);
        else if (option.is(u"Thaw")) co_await flag(command, kFrozen, false);
        else if (option.is(u"LOck")) co_await flag(command, kLocked, true);
        else if (option.is(u"Unlock")) co_await flag(command, kLocked, false);
        else if (option.is(u"Rename")) co_await rename(command);
        else command.refuse(u"the option " + option.keyword + u" is not available in this host");
    }
}

constexpr Verb kTable[] = {{u"LAYER", layer}};

} // namespace

std::span<const Verb> layerVerbs() { return kTable; }

} // namespace orvald
