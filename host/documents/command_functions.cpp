// SPDX-License-Identifier: LicenseRef-ORVALD
// command and its relatives: commands of the loaded applications and "c:" functions by name.
#include "document.h"
#include "drawing_functions.h"
#include "host.h"
#include "registries.h"
#include "text/letters.h"
#include "undo_commands.h"

#include <algorithm>

namespace orvald {
namespace {

using lisp::Args;
using lisp::Value;
using lisp::World;

/// A command name as typed: what stands before it only says how it is meant.
struct Typed
{
    std::u16string name; // upper case
    bool global = false; // "_": in the language of programs
};

Typed readName(std::u16string_view text)
{
    Typed typed;
    constexpr std::u16string_view kPrefixes = u"'._";
    while (!text.empty() && kPrefixes.find(text.front()) != std::u16string_view::npos) {
        typed.global = typed.global || text.front() == u'_';
        text.remove_prefix(1);
    }
    typed.name = text::upperText(text);
    return typed;
}

/// Runs the command of that name; false when there is none.
bool run(World& world, const Typed& typed)
{
    Document& document = Document::of(world);
    const CommandStack::Command* found =
        Host::instance().commands().find(typed.global ? u"_" + typed.name : typed.name);
    if (found != nullptr) {
        runCommand(&document, *found);
        return true;
    }
    if (!document.commands().contains(typed.name)) return false;
    const UndoGroup group(document);
    world.apply(world.symbolValue(u"C:" + typed.name), {});
    return true;
}

/// Runs the command when it draws the screen anew, which here takes the temporary graphics away.
bool runRedrawing(Document& document, std::u16string_view name)
{
    constexpr std::u16string_view kNames[] = {u"REDRAW", u"REDRAWALL", u"REGEN", u"REGENALL"};
    if (std::ranges::find(kNames, name) == std::end(kNames)) return false;
    document.graphics().clear();
    return true;
}

/// Takes the arguments as what a user types where a command is expected.
void typeIn(World& world, Args args)
{
    int position = 0;
    const auto next = [&]() -> std::optional<std::u16string> {
        if (position == args.size()) return std::nullopt;
        return world.princ(args[position++]);
    };
    while (position < args.size()) {
        const Value argument = args[position];
        const std::u16string text = *next();
        // Enter, and nil for Esc: nothing is running that they could end.
        if (argument.isNil() || text.empty()) continue;
        const Typed typed = readName(text);
        if (argument.isString() &&
            (runUndoCommand(Document::of(world), typed.name, next) ||
             runRedrawing(Document::of(world), typed.name) || run(world, typed)))
            continue;
        world.host().print(u"Unknown command \"" + typed.name + u"\".\n");
        return; // the rest was meant for that command
    }
}

// (command [argument ...]) -> nil
Value command(World& world, Args args)
{
    typeIn(world, args);
    return Value::nil();
}

// (vl-cmdf [argument ...]) -> T
Value vlCmdf(World& world, Args args)
{
    typeIn(world, args);
    return world.t();
}

constexpr lisp::Builtin kTable[] = {
    {"command", command},
    {"command-s", command},
    {"vl-cmdf", vlCmdf},
};

} // namespace

std::span<const lisp::Builtin> commandFunctions() { return kTable; }

} // namespace orvald
