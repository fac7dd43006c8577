// SPDX-License-Identifier: LicenseRef-ORVALD
// Lists without callbacks: paths into them, search, copies with a change.
#include "builtins/tables.h"

#include "equality.h"
#include "evaluator.h"
#include "printer.h"

namespace orvald::lisp {

namespace {

Value nextCar(World& world, Value list)
{
    if (!list.isList()) world.badArgument("consp", list);
    return car(list);
}

Value nextCdr(World& world, Value list)
{
    if (!list.isList()) world.badArgument("consp", list);
    return cdr(list);
}

// c[ad]{1,4}r: the steps in the order they are taken, so the name read backwards.
template <char... kSteps>
Value path(World& world, Args args)
{
    Value value = args[0];
    ((value = kSteps == 'a' ? nextCar(world, value) : nextCdr(world, value)), ...);
    return value;
}

Value cons(World& world, Args args) { return world.makeCons(args[0], args[1]); }

// The arguments from the first to the one before `end`, then `tail`.
Value listOf(World& world, Args args, int end, Value tail)
{
    Heap& heap = evaluatorOf(world).heap;
    for (int i = end; i-- > 0;) tail = Value::cons(heap.makeCons(args[i], tail));
    return tail;
}

Value list(World& world, Args args) { return listOf(world, args, args.size(), Value::nil()); }

Value listWithTail(World& world, Args args)
{
    return listOf(world, args, args.size() - 1, args[args.size() - 1]);
}

// Length of a proper list; raises for anything else.
int properLength(World& world, Value value)
{
    int count = 0;
    Value rest = value;
    for (; rest.isCons(); rest = rest.asCons()->cdr) ++count;
    if (!rest.isNil()) world.badArgument("listp", value);
    return count;
}

Value length(World& world, Args args) { return Value::integer(properLength(world, args[0])); }

Value listLength(World&, Args args)
{
    Value rest = args.list(0);
    int count = 0;
    for (; rest.isCons(); rest = rest.asCons()->cdr) ++count;
    return rest.isNil() ? Value::integer(count) : Value::nil();
}

Value last(World&, Args args)
{
    Value rest = args.list(0);
    Value result;
    for (; rest.isCons(); rest = rest.asCons()->cdr) result = rest.asCons()->car;
    return result;
}

Value nth(World&, Args args)
{
    int left = args.integer(0);
    Value rest = args.list(1);
    if (left < 0) return Value::nil();
    for (; left > 0 && rest.isCons(); --left) rest = rest.asCons()->cdr;
    return car(rest);
}

Value reverse(World& world, Args args)
{
    Heap& heap = evaluatorOf(world).heap;
    Value result;
    for (Value rest = args.list(0); rest.isCons(); rest = rest.asCons()->cdr) {
        result = Value::cons(heap.makeCons(rest.asCons()->car, result));
    }
    return result;
}

Value append(World& world, Args args)
{
    ListBuilder result(world);
    for (int i = 0; i < args.size(); ++i) {
        Value rest = args.list(i);
        if (i + 1 == args.size()) {
            result.endWith(rest); // the last list is shared
            break;
        }
        properLength(world, rest);
        for (; rest.isCons(); rest = rest.asCons()->cdr) result.add(rest.asCons()->car);
    }
    return result.list();
}

Value assoc(World& world, Args args)
{
    return withEqualTo(args[0], [&](auto isKey) {
        for (Value rest = args.list(1); rest.isCons(); rest = rest.asCons()->cdr) {
            const Value entry = rest.asCons()->car;
            if (entry.isCons()) {
                if (isKey(entry.asCons()->car)) return entry;
            } else if (!entry.isNil()) {
                world.raise(u"bad association list: " + printedText(args[1], Quoting::quoted, 200));
            }
        }
        return Value::nil();
    });
}

Value member(World&, Args args)
{
    return withEqualTo(args[0], [&](auto isWanted) {
        Value rest = args.list(1);
        while (rest.isCons() && !isWanted(rest.asCons()->car)) rest = rest.asCons()->cdr;
        return rest.isCons() ? rest : Value::nil();
    });
}

Value position(World&, Args args)
{
    return withEqualTo(args[0], [&](auto isWanted) {
        int index = 0;
        for (Value rest = args.list(1); rest.isCons(); rest = rest.asCons()->cdr, ++index) {
            if (isWanted(rest.asCons()->car)) return Value::integer(index);
        }
        return Value::nil();
    });
}

Value subst(World& world, Args args)
{
    return withEqualTo(args[1], [&](auto isOld) {
        ListBuilder result(world);
        for (Value rest = args.list(2); rest.isCons(); rest = rest.asCons()->cdr) {
            const Value item = rest.asCons()->car;
            result.add(isOld(item) ? args[0] : item);
        }
        return result.list();
    });
}

Value remove(World& world, Args args)
{
    return withEqualTo(args[0], [&](auto isUnwanted) {
        ListBuilder result(world);
        for (Value rest = args.list(1); rest.isCons(); rest = rest.asCons()->cdr) {
            if (!isUnwanted(rest.asCons()->car)) result.add(rest.asCons()->car);
        }
        return result.list();
    });
}

Value listp(World& world, Args args) { return world.boolean(args[0].isList()); }
Value atom(World& world, Args args) { return world.boolean(!args[0].isCons()); }
Value consp(World& world, Args args) { return world.boolean(args[0].isCons()); }

constexpr Builtin kTable[] = {
    {"car", path<'a'>, 1, 1},
    {"cdr", path<'d'>, 1, 1},
    {"caar", path<'a', 'a'>, 1, 1},
    {"cadr", path<'d', 'a'>, 1, 1},
    {"cdar", path<'a', 'd'>, 1, 1},
    {"cddr", path<'d', 'd'>, 1, 1},
    {"caaar", path<'a', 'a', 'a'>, 1, 1},
    {"caadr", path<'d', 'a', 'a'>, 1, 1},
    {"cadar", path<'a', 'd', 'a'>, 1, 1},
    {"caddr", path<'d', 'd', 'a'>, 1, 1},
    {"cdaar", path<'a', 'a', 'd'>, 1, 1},
    {"cdadr", path<'d', 'a', 'd'>, 1, 1},
    {"cddar", path<'a', 'd', 'd'>, 1, 1},
    {"cdddr", path<'d', 'd', 'd'>, 1, 1},
    {"caaaar", path<'a', 'a', 'a', 'a'>, 1, 1},
    {"caaadr", path<'d', 'a', 'a', 'a'>, 1, 1},
    {"caadar", path<'a', 'd', 'a', 'a'>, 1, 1},
    {"caaddr", path<'d', 'd', 'a', 'a'>, 1, 1},
    {"cadaar", path<'a', 'a', 'd', 'a'>, 1, 1},
    {"cadadr", path<'d', 'a', 'd', 'a'>, 1, 1},
    {"caddar", path<'a', 'd', 'd', 'a'>, 1, 1},
    {"cadddr", path<'d', 'd', 'd', 'a'>, 1, 1},
    {"cdaaar", path<'a', 'a', 'a', 'd'>, 1, 1},
    {"cdaadr", path<'d', 'a', 'a', 'd'>, 1, 1},
    {"cdadar", path<'a', 'd', 'a', 'd'>, 1, 1},
    {"cdaddr", path<'d', 'd', 'a', 'd'>, 1, 1},
    {"cddaar", path<'a', 'a', 'd', 'd'>, 1, 1},
    {"cddadr", path<'d', 'a', 'd', 'd'>, 1, 1},
    {"cdddar", path<'a', 'd', 'd', 'd'>, 1, 1},
    {"cddddr", path<'d', 'd', 'd', 'd'>, 1, 1},
    {"cons", cons, 2, 2},
    {"list", list},
    {"vl-list*", listWithTail, 1},
    {"length", length, 1, 1},
    {"vl-list-length", listLength, 1, 1},
    {"last", last, 1, 1},
    {"nth", nth, 2, 2},
    {"reverse", reverse, 1, 1},
    {"append", append},
    {"assoc", assoc, 2, 2},
    {"member", member, 2, 2},
    {"vl-position", position, 2, 2},
    {"subst", subst, 3, 3},
    {"vl-remove", remove, 2, 2},
    {"listp", listp, 1, 1},
    {"atom", atom, 1, 1},
    {"vl-consp", consp, 1, 1},
};

} // namespace

std::span<const Builtin> listBuiltins() { return kTable; }

} // namespace orvald::lisp
