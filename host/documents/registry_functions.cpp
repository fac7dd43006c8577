// SPDX-License-Identifier: LicenseRef-ORVALD
// vl-registry-read and its relatives: keys with named values, kept while the host runs. Names
// compare without regard to case.
#include "drawing_functions.h"
#include "host.h"
#include "text/letters.h"

namespace orvald {
namespace {

using lisp::Args;
using lisp::Value;
using lisp::World;

SettingsTree& settings() { return Host::instance().settings(); }

/// The name of a value; the key's own value has none.
std::u16string nameArgument(Args args, int index)
{
    return args.at(index).isNil() ? std::u16string() : std::u16string(args.string(index));
}

Value valueOf(World& world, const SettingsTree::Data& data)
{
    if (const auto* number = std::get_if<std::int32_t>(&data)) return Value::integer(*number);
    return world.makeString(std::get<std::u16string>(data));
}

// (vl-registry-read key [name]) -> string, integer or nil
Value read(World& world, Args args)
{
    const SettingsTree::Data* data = settings().find(args.string(0), nameArgument(args, 1));
    return data == nullptr ? Value::nil() : valueOf(world, *data);
}

// (vl-registry-write key [name] data) -> data; without data the key is made
Value write(World& world, Args args)
{
    const bool named = args.size() > 2;
    const Value data = args.at(named ? 2 : 1);
    const std::u16string key(args.string(0)), name = named ? nameArgument(args, 1) : u"";
    if (data.isNil()) settings().makeKey(key);
    else if (data.isInteger()) settings().set(key, name, data.asInteger());
    else if (data.isString()) settings().set(key, name, std::u16string(data.asString()));
    else world.badArgument("(or stringp fixnump):", data);
    return data;
}

// (vl-registry-delete key [name]) -> T, nil when there is nothing of that name
Value erase(World& world, Args args)
{
    const bool one = !args.at(1).isNil();
    return world.boolean(one ? settings().eraseValue(args.string(0), args.string(1))
                             : settings().eraseKey(args.string(0)));
}

// (vl-registry-descendents key [values]) -> names of the keys below, or of the values, or nil
Value descendents(World& world, Args args)
{
    lisp::ListBuilder list(world);
    const bool values = !args.at(1).isNil();
    for (const std::u16string& name :
         values ? settings().valueNames(args.string(0)) : settings().keysBelow(args.string(0)))
        list.add(world.makeString(name));
    return list.list();
}

constexpr lisp::Builtin kTable[] = {
    {"vl-registry-delete", erase, 1, 2},
    {"vl-registry-descendents", descendents, 1, 2},
    {"vl-registry-read", read, 1, 2},
    {"vl-registry-write", write, 1, 3},
};

} // namespace

std::span<const lisp::Builtin> registryFunctions() { return kTable; }

} // namespace orvald
