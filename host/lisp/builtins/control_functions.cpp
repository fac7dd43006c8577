// SPDX-License-Identifier: LicenseRef-ORVALD
// Catching errors and leaving programs.
#include "builtins/tables.h"

#include "evaluator.h"

namespace orvald::lisp {

namespace {

// (vl-catch-all-apply function list). A symbol without a function is an error of the caller: it is
// raised outside the guard, and programs test the type first. One that only this host has not is
// caught: the program is right, and may do without.
Value catchAllApply(World& world, Args args)
{
    Evaluator& evaluator = evaluatorOf(world);
    const Value designator = args[0];
    const bool unknown = designator.isSymbol() && designator.asSymbol()->value.isNil();
    if (unknown && !world.host().lacksFunction(designator.asSymbol()->name)) {
        world.raise(u"bad function: " + world.prin1(designator));
    }
    Value* const root = evaluator.sp;
    evaluator.push(unknown ? Value::nil() : evaluator.resolveFunction(designator));
    for (Value rest = args.list(1); rest.isCons(); rest = rest.asCons()->cdr) {
        evaluator.push(rest.asCons()->car);
    }
    const auto call = [&] {
        if (unknown) world.raise(evaluator.undefined(designator.asSymbol()->name));
        return evaluator.callBack(*root, root + 1);
    };
    const Value result = evaluator.guarded(call, [&](std::u16string message) {
        auto* caught = evaluator.heap.make<CaughtError>();
        caught->message = std::move(message);
        return Value::object(caught);
    });
    evaluator.sp = root;
    return result;
}

Value isCaughtError(World& world, Args args)
{
    return world.boolean(isObjectOf(args[0], Kind::caughtError));
}

Value caughtMessage(World& world, Args args)
{
    if (!isObjectOf(args[0], Kind::caughtError)) {
        world.badArgument("%catch-all-apply-error%p", args[0]);
    }
    return world.makeString(static_cast<const CaughtError*>(args[0].asObject())->message);
}

Value exitWithError(World& world, Args args)
{
    world.raise(LispError::Sort::exit, std::u16string(args.string(0)));
}

Value exitWithValue(World& world, Args args) { evaluatorOf(world).exitWithValue(args[0]); }

Value quit(World& world, Args) { world.raise(LispError::Sort::exit, u"quit / exit abort"); }

// How *error* may use commands is a matter of the command line; here it always may.
Value setErrorMode(World& world, Args) { return world.t(); }

constexpr Builtin kTable[] = {
    {"vl-catch-all-apply", catchAllApply, 2, 2},
    {"vl-catch-all-error-p", isCaughtError, 1, 1},
    {"vl-catch-all-error-message", caughtMessage, 1, 1},
    {"vl-exit-with-error", exitWithError, 1, 1},
    {"vl-exit-with-value", exitWithValue, 1, 1},
    {"exit", quit, 0, 0},
    {"quit", quit, 0, 0},
    {"*push-error-using-command*", setErrorMode, 0, 0},
    {"*push-error-using-stack*", setErrorMode, 0, 0},
    {"*pop-error-mode*", setErrorMode, 0, 0},
};

} // namespace

std::span<const Builtin> controlBuiltins() { return kTable; }

} // namespace orvald::lisp
