// SPDX-License-Identifier: LicenseRef-ORVALD
#include "commands/selecting.h"

#include "document.h"
#include "drawing/selection.h"
#include "drawing/text.h"
#include "typed_points.h"

#include <algorithm>

namespace orvald {

using drawing::Index;
using drawing::ObjectId;

namespace {

/// True for a main entity that is there, in the space where the user works.
bool isInReach(const drawing::Drawing& drawing, Index entity)
{
    return entity != drawing::kNone && drawing.at(entity).isMainEntity() &&
           !drawing.isGone(entity) && drawing.blockOf(entity) == drawing.currentSpace();
}

bool isFrozen(const drawing::Drawing& drawing, std::string_view layer)
{
    constexpr std::int64_t kFrozen = 1;
    const Index record = drawing.findRecord(drawing::TableId::layer, layer);
    return record != drawing::kNone && (drawing.at(record).tags.integer(70) & kFrozen) != 0;
}

const Keywords kLast(u"Last");

} // namespace

std::optional<Picked> pickedBy(Command& command, const Token& token)
{
    drawing::Drawing& drawing = command.drawing();
    ObjectId id;
    if (token.kind == Token::Kind::entity || token.kind == Token::Kind::set) {
        if (token.entities.size() != 1) return std::nullopt;
        id = token.entities.front();
    } else if (token.kind == Token::Kind::text && kLast.match(token.text)) {
        id = command.document().entities().entLast();
    } else if (token.kind == Token::Kind::text && token.text.starts_with(u'\'')) {
        command.document().entities().handEnt(std::u16string_view(token.text).substr(1), id);
    }
    const Index index = drawing.indexOf(id);
    if (!isInReach(drawing, index)) return std::nullopt;
    return Picked{index, token.point};
}

void SelectionWait::put(Index entity)
{
    if (!isInReach(command_.drawing(), entity)) return;
    if (removing_) {
        if (chosen_.erase(entity) != 0) std::erase(order_, entity);
    } else if (chosen_.insert(entity).second) {
        order_.push_back(entity);
    }
}

void SelectionWait::putAll(const std::vector<ObjectId>& entities)
{
    for (const ObjectId id : entities) put(command_.drawing().indexOf(id));
}

Wait::Taken SelectionWait::take(const Token& token)
{
    if (token.isEnter()) return Taken::done;
    const Taken taken = choose(token);
    return taken == Taken::more && once_ && !order_.empty() ? Taken::done : taken;
}

Wait::Taken SelectionWait::choose(const Token& token)
{
    switch (token.kind) {
    case Token::Kind::entity:
    case Token::Kind::set: putAll(token.entities); return Taken::more;
    case Token::Kind::text: return takeWord(token);
    default: return Taken::refused;
    }
}

Wait::Taken SelectionWait::takeWord(const Token& token)
{
    static const Keywords words(u"ALL Add Remove Previous SIngle AUto");
    Document& document = command_.document();
    const std::u16string word = words.match(token.text).value_or(u"");
    if (word == u"ALL") {
        std::vector<ObjectId> all;
        drawing::selectAll(command_.drawing(), nullptr, all);
        std::erase_if(all, [&](ObjectId id) {
            return isFrozen(command_.drawing(), command_.drawing().find(id)->layer());
        });
        putAll(all);
    } else if (word == u"Previous") {
        for (const std::uint64_t id : document.user().previous)
            put(command_.drawing().indexOf({id}));
    } else if (word == u"Add" || word == u"Remove") {
        removing_ = word == u"Remove";
    } else if (word.empty()) {
        const std::optional<Picked> picked = pickedBy(command_, token);
        if (!picked) return Taken::refused;
        put(picked->entity);
    }
    return Taken::more;
}

std::vector<Index> SelectionWait::await_resume()
{
    checkCancelled();
    drawing::Drawing& drawing = command_.drawing();
    if (!order_.empty()) {
        std::vector<std::uint64_t>& previous = command_.document().user().previous;
        previous.clear();
        for (const Index entity : order_) previous.push_back(drawing.idOf(entity).value);
    }
    if (changeable_) {
        const auto locked = std::erase_if(order_, [&](Index entity) {
            return drawing.isLayerLocked(drawing.at(entity).layer());
        });
        if (locked != 0) {
            command_.print(drawing::text16(std::to_string(locked)) + u" on a locked layer.");
        }
    }
    return std::move(order_);
}

} // namespace orvald
