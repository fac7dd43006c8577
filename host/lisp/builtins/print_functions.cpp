// SPDX-License-Identifier: LicenseRef-ORVALD
// Printing to the text window, to files and to strings.
#include "builtins/tables.h"

#include "builtins/file_access.h"
#include "evaluator.h"

namespace orvald::lisp {

namespace {

// Without arguments the result is the null symbol, so that a program ending in (princ) shows
// nothing.
Value princ(World& world, Args args)
{
    if (args.size() == 0) return Value::blank();
    writeTo(world, args.at(1), evaluatorOf(world).printed(args[0], Quoting::bare));
    return args[0];
}

Value prin1(World& world, Args args)
{
    if (args.size() == 0) return Value::blank();
    writeTo(world, args.at(1), evaluatorOf(world).printed(args[0], Quoting::quoted));
    return args[0];
}

Value print(World& world, Args args)
{
    if (args.size() == 0) return Value::blank();
    writeTo(world, args.at(1), u"\n" + evaluatorOf(world).printed(args[0], Quoting::quoted) + u" ");
    return args[0];
}

Value prompt(World& world, Args args)
{
    world.host().print(args.string(0));
    return Value::nil();
}

Value terpri(World& world, Args)
{
    world.host().print(u"\n");
    return Value::nil();
}

Value princToString(World& world, Args args)
{
    return world.makeString(evaluatorOf(world).printed(args[0], Quoting::bare));
}
Value prin1ToString(World& world, Args args)
{
    return world.makeString(evaluatorOf(world).printed(args[0], Quoting::quoted));
}

constexpr Builtin kTable[] = {
    {"princ", princ, 0, 2},
    {"prin1", prin1, 0, 2},
    {"print", print, 0, 2},
    {"prompt", prompt, 1, 1},
    {"terpri", terpri, 0, 0},
    {"vl-princ-to-string", princToString, 1, 1},
    {"vl-prin1-to-string", prin1ToString, 1, 1},
};

} // namespace

std::span<const Builtin> printBuiltins() { return kTable; }

} // namespace orvald::lisp
