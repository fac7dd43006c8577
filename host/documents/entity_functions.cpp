// SPDX-License-Identifier: LicenseRef-ORVALD
// Entities by lists. What an entity may be is the drawing's business; here values change their form
// and a failure becomes nil with ERRNO.
#include "document.h"
#include "drawing/text.h"
#include "drawing_functions.h"
#include "entity_list.h"

#include <utility>

namespace orvald {
namespace {

using drawing::ErrNo;
using drawing::ObjectId;
using lisp::Args;
using lisp::Value;
using lisp::World;

ObjectId idArgument(Args args, int index) { return {args.entity(index)}; }

// (entget ename [apps]) -> list or nil
Value entget(World& world, Args args)
{
    const ObjectId id = idArgument(args, 0);
    const Chain apps = stringsFromList(world, args.at(1));
    resbuf* groups = nullptr;
    const ErrNo error = Document::of(world).entities().entGet(id, apps.get(), groups, true);
    const Chain chain(groups);
    return succeeded(world, error) ? listFromGroups(world, groups) : Value::nil();
}

// (entmod list) -> list or nil
Value entmod(World& world, Args args)
{
    if (!args[0].isCons()) world.badArgument("consp", args[0]);
    const Chain groups = groupsFromList(world, args[0]);
    const ErrNo error = Document::of(world).entities().entMod(groups.get());
    Document::of(world).tellChanges();
    return succeeded(world, error) ? args[0] : Value::nil();
}

/// Makes the entity of the list, nil without one: a complex entity that was begun is cancelled.
std::optional<drawing::EntityFunctions::Made> make(World& world, Args args)
{
    const Chain groups = args.size() == 0 ? nullptr : groupsFromList(world, args.list(0));
    drawing::EntityFunctions::Made made;
    const ErrNo error = Document::of(world).entities().entMake(groups.get(), made);
    Document::of(world).tellChanges();
    if (!succeeded(world, error) || groups == nullptr) return std::nullopt;
    return made;
}

// (entmake [list]) -> list, the block's name after ENDBLK, nil
Value entmake(World& world, Args args)
{
    const auto made = make(world, args);
    if (!made) return Value::nil();
    return made->blockName.empty() ? args[0] : world.makeString(drawing::text16(made->blockName));
}

// (entmakex [list]) -> ename; the list for a part of an entity that is not whole yet; nil
Value entmakex(World& world, Args args)
{
    const auto made = make(world, args);
    if (!made) return Value::nil();
    return made->id.isNull() ? args[0] : nameValue(made->id);
}

// (entdel ename) -> ename or nil
Value entdel(World& world, Args args)
{
    const ErrNo error = Document::of(world).entities().entDel(idArgument(args, 0));
    Document::of(world).tellChanges();
    return succeeded(world, error) ? args[0] : Value::nil();
}

// (entnext [ename]) -> ename or nil
Value entnext(World& world, Args args)
{
    const ObjectId from = args.size() == 0 ? ObjectId{} : idArgument(args, 0);
    ObjectId next;
    const ErrNo error = Document::of(world).entities().entNext(from, next);
    return succeeded(world, error) ? nameValue(next) : Value::nil();
}

// (entlast) -> ename or nil
Value entlast(World& world, Args) { return nameValue(Document::of(world).entities().entLast()); }

// (entupd ename) -> ename: nothing here waits to be drawn again
Value entupd(World&, Args args) { return nameValue(idArgument(args, 0)); }

// (handent handle) -> ename or nil
Value handent(World& world, Args args)
{
    ObjectId id;
    const ErrNo error = Document::of(world).entities().handEnt(args.string(0), id);
    return succeeded(world, error) ? nameValue(id) : Value::nil();
}

constexpr lisp::Builtin kTable[] = {
    {"entdel", entdel, 1, 1},   {"entget", entget, 1, 2},     {"entlast", entlast, 0, 0},
    {"entmake", entmake, 0, 1}, {"entmakex", entmakex, 0, 1}, {"entmod", entmod, 1, 1},
    {"entnext", entnext, 0, 1}, {"entupd", entupd, 1, 1},     {"handent", handent, 1, 1},
};

} // namespace

std::span<const lisp::Builtin> entityFunctions() { return kTable; }

} // namespace orvald
