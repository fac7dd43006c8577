// SPDX-License-Identifier: LicenseRef-ORVALD
#include "commands/selecting.h"

#include "document.h"
#include "drawing/text.h"
#include "screen_picking.h"

#include <algorithm>

namespace orvald {

using drawing::Index;
using drawing::ObjectId;

namespace {

/// True for a main entity that is there, in the space where the user works, on no frozen layer.
bool isInReach(const drawing::Drawing& drawing, Index entity)
{
    if (entity == drawing::kNone || !drawing.at(entity).isMainEntity() || drawing.isGone(entity)) {
        return false;
    }
    constexpr std::int64_t kFrozen = 1;
    const Index layer = drawing.findRecord(drawing::TableId::layer, drawing.at(entity).layer());
    const bool frozen =
        layer != drawing::kNone && (drawing.at(layer).tags.integer(70) & kFrozen) != 0;
    return !frozen && drawing.blockOf(entity) == drawing.currentSpace();
}

const Keywords kLast(u"Last");

} // namespace

std::optional<Picked> pickedBy(Command& command, const Token& token)
{
    drawing::Drawing& drawing = command.drawing();
    ObjectId id;
    std::optional<drawing::Point> at = token.point;
    if (token.kind == Token::Kind::entity || token.kind == Token::Kind::set) {
        if (token.entities.size() != 1) return std::nullopt;
        id = token.entities.front();
    } else if (token.kind == Token::Kind::text && kLast.match(token.text)) {
        id = command.document().entities().entLast();
    } else if (token.kind == Token::Kind::text && token.text.starts_with(u'\'')) {
        command.document().entities().handEnt(std::u16string_view(token.text).substr(1), id);
    } else {
        at = command.pointOf(token);
        const auto hit = at ? objectAt(command.document(), *at) : std::nullopt;
        if (hit) id = drawing.idOf(hit->entity);
    }
    const Index index = drawing.indexOf(id);
    if (!isInReach(drawing, index)) return std::nullopt;
    if (at) command.document().variables().setPoint(u"LASTPOINT", *at); // "@" is this one
    return Picked{index, at};
}

SelectionWait::SelectionWait(Command& command, bool changeable, bool once)
    : Wait(command, {}),
      changeable_(changeable),
      once_(once),
      chooser_(command.document(),
               [&drawing = command.drawing()](Index entity) { return isInReach(drawing, entity); })
{
}

Taken SelectionWait::take(const Token& token)
{
    const Taken taken = chooser_.take(token);
    const bool chosen = taken == Taken::more && once_ && !chooser_.chosen().empty();
    return chosen ? Taken::done : taken;
}

std::vector<Index> SelectionWait::await_resume()
{
    checkCancelled();
    drawing::Drawing& drawing = command_.drawing();
    std::vector<Index> objects = chooser_.chosen();
    command_.setCrossing(chooser_.crossing());
    if (!objects.empty()) {
        std::vector<std::uint64_t>& previous = command_.document().user().previous;
        previous.clear();
        for (const Index entity : objects) previous.push_back(drawing.idOf(entity).value);
    }
    if (changeable_) {
        const auto locked = std::erase_if(objects, [&](Index entity) {
            return drawing.isLayerLocked(drawing.at(entity).layer());
        });
        if (locked != 0) {
            command_.print(drawing::text16(std::to_string(locked)) + u" on a locked layer.");
        }
    }
    return objects;
}

} // namespace orvald
