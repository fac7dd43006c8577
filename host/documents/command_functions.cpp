// SPDX-License-Identifier: LicenseRef-ORVALD
// command and its relatives: what a user would type, one argument after the other. The host's own
// commands, those of the loaded applications and "c:" functions run by name; a command that still
// wants input takes the first arguments of the next call.
#include "commands/command_line.h"
#include "commands/verbs.h"
#include "document.h"
#include "drawing_functions.h"
#include "host.h"
#include "prompt.h"
#include "registries.h"
#include "text/letters.h"

#include <algorithm>
#include <cmath>

namespace orvald {
namespace {

using lisp::Args;
using lisp::Kind;
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

/// Two or three finite numbers.
std::optional<drawing::Point> pointOf(Document& document, Value list)
{
    double coordinates[3] = {0.0, 0.0, 0.0};
    int count = 0;
    for (; list.isCons(); list = list.asCons()->cdr) {
        const Value item = list.asCons()->car;
        if (count == 3 || !item.isNumber() || !std::isfinite(item.asNumber())) return std::nullopt;
        coordinates[count++] = item.asNumber();
    }
    if (!list.isNil() || count < 2) return std::nullopt;
    if (count == 2) coordinates[2] = document.variables().real(u"ELEVATION");
    return drawing::Point{coordinates[0], coordinates[1], coordinates[2]};
}

/// What an argument gives to a command: text, a number, a point, an entity, what entsel answers, or
/// a selection set.
Token tokenOf(World& world, Value value)
{
    Document& document = Document::of(world);
    Token token;
    if (value.isString()) {
        token.text = value.asString();
    } else if (value.isNumber()) {
        token.kind = Token::Kind::number;
        token.number = value.asNumber();
        token.text = world.princ(value);
    } else if (value.isEntity()) {
        token.kind = Token::Kind::entity;
        token.entities = {{value.asEntity()}};
    } else if (value.kind() == Kind::pickset) {
        token.kind = Token::Kind::set;
        const SelectionSet* set = Host::instance().selectionSets().find(world.picksetNumber(value));
        if (set == nullptr) world.badArgument("lselsetp", value);
        for (const std::uint64_t entity : set->entities()) token.entities.push_back({entity});
    } else if (lisp::car(value).isEntity()) {
        token.kind = Token::Kind::entity;
        token.entities = {{lisp::car(value).asEntity()}};
        token.point = pointOf(document, lisp::car(lisp::cdr(value)));
        if (!token.point) world.badArgument("2D/3D point:", value);
    } else {
        token.kind = Token::Kind::point;
        token.point = pointOf(document, value);
        if (!token.point) world.badArgument("2D/3D point:", value);
    }
    return token;
}

class Typist
{
public:
    explicit Typist(World& world) : world_(world), line_(Document::of(world).commandLine()) {}

    /// False when a command did not like its input and has ended.
    bool typeIn(Args args)
    {
        if (args.size() == 0) line_.cancel();
        for (int i = 0; i < args.size(); ++i) {
            try {
                if (!typeOne(args[i])) return true; // the rest was meant for that command
            } catch (const CommandRefusal& refusal) {
                world_.host().print(refusal.why + u"\n");
                return false;
            } catch (const CommandCancelled&) {
                return false;
            }
        }
        return true;
    }

private:
    /// False for the name of a command that there is not.
    bool typeOne(Value value)
    {
        if (value.isNil()) { // Esc
            line_.cancel();
        } else if (line_.isActive()) {
            give(value);
        } else if (const std::u16string text = world_.princ(value); !text.empty()) {
            // Enter, which would run the last command again, is passed over.
            return start(value, text);
        }
        return true;
    }

    bool start(Value value, std::u16string_view text)
    {
        const Typed typed = readName(text);
        if (value.isString()) {
            if (startVerb(findVerb(typed.name)) || run(world_, typed)) return true;
            if (isVerbElsewhere(typed.name)) {
                world_.raise(u"command \"" + typed.name + u"\" is not available in this host");
            }
            if (startVerb(variableVerb(typed.name))) return true;
        }
        world_.host().print(u"Unknown command \"" + typed.name + u"\".\n");
        return false;
    }

    bool startVerb(const std::optional<Verb>& verb)
    {
        if (verb) line_.start(*verb);
        return verb.has_value();
    }

    void give(Value value)
    {
        constexpr std::u16string_view kPause = u"\\";
        if (value.isString() && value.asString() == kPause) {
            ask();
            return;
        }
        const Token token = tokenOf(world_, value);
        if (line_.give(token)) return;
        const std::u16string why = std::u16string(line_.name()) + u": " + world_.prin1(value) +
                                   u" is not " + std::u16string(line_.wanted());
        line_.cancel();
        throw CommandRefusal{why};
    }

    /// One input from the user.
    void ask()
    {
        Token token;
        for (;;) {
            token.text = askLine(world_, line_.prompt());
            const std::u16string wanted(line_.wanted());
            if (line_.give(token)) return;
            complain(u"Requires " + wanted + u".");
        }
    }

    World& world_;
    CommandLine& line_;
};

// (command [argument ...]) -> nil
Value command(World& world, Args args)
{
    if (!Typist(world).typeIn(args)) world.raise(u"Function cancelled");
    return Value::nil();
}

// (vl-cmdf [argument ...]) -> T, nil when a command refused its input
Value vlCmdf(World& world, Args args) { return world.boolean(Typist(world).typeIn(args)); }

constexpr lisp::Builtin kTable[] = {
    {"command", command},
    {"command-s", command},
    {"vl-cmdf", vlCmdf},
};

} // namespace

std::span<const lisp::Builtin> commandFunctions() { return kTable; }

} // namespace orvald
