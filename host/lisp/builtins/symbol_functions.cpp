// SPDX-License-Identifier: LicenseRef-ORVALD
// Symbols, kinds of values, evaluation of data, functions kept as lists.
#include "builtins/tables.h"

#include "evaluator.h"

#include <algorithm>

namespace orvald::lisp {

namespace {

Value type(World& world, Args args)
{
    const auto named = [&](std::u16string_view name) { return Value::symbol(world.intern(name)); };
    switch (args[0].kind()) {
    case Kind::nil: return Value::nil();
    case Kind::integer: return named(u"INT");
    case Kind::real: return named(u"REAL");
    case Kind::entity: return named(u"ENAME");
    case Kind::blank:
    case Kind::symbol: return named(u"SYM");
    case Kind::cons: return named(u"LIST");
    case Kind::string: return named(u"STR");
    case Kind::subr: return named(u"SUBR");
    case Kind::usubr: return named(u"USUBR");
    case Kind::exrxsubr: return named(u"EXRXSUBR");
    case Kind::pickset: return named(u"PICKSET");
    case Kind::file: return named(u"FILE");
    case Kind::vlaObject: return named(u"VLA-OBJECT");
    case Kind::caughtError: break;
    }
    return named(u"%CATCH-ALL-APPLY-ERROR%");
}

Value boundp(World& world, Args args) { return world.boolean(!args.symbol(0)->value.isNil()); }

Value set(World& world, Args args)
{
    evaluatorOf(world).assign(args.symbol(0), args[1]);
    return args[1];
}

Value eval(World& world, Args args)
{
    Evaluator& evaluator = evaluatorOf(world);
    return evaluator.evalForm(args[0]);
}

Value read(World& world, Args args)
{
    return args.size() == 0 ? Value::nil() : world.read(args.string(0));
}

Value symbolp(World& world, Args args) { return world.boolean(args[0].isSymbol()); }
Value symbolName(World& world, Args args) { return world.makeString(args.symbol(0)->name); }
Value symbolValue(World&, Args args) { return args.symbol(0)->value; }

// (atoms-family 0|1 [names]): all symbols with a value, or of the names those that have one, nil in
// the place of the others.
Value atomsFamily(World& world, Args args)
{
    const bool asStrings = args.integer(0) == 1;
    const auto present = [&](const Symbol* symbol) {
        return asStrings ? world.makeString(symbol->name)
                         : Value::symbol(const_cast<Symbol*>(symbol));
    };
    const SymbolTable& symbols = evaluatorOf(world).symbols;
    ListBuilder result(world);
    if (args.size() == 2) {
        for (Value rest = args.list(1); rest.isCons(); rest = rest.asCons()->cdr) {
            const Value name = rest.asCons()->car;
            if (!isString(name)) world.badArgument("stringp", name);
            const Symbol* symbol = symbols.find(stringOf(name));
            const bool bound = symbol != nullptr && !symbol->value.isNil();
            result.add(bound ? present(symbol) : Value::nil());
        }
        return result.list();
    }
    std::vector<const Symbol*> bound;
    symbols.forEach([&](const Symbol& symbol) {
        if (!symbol.value.isNil()) bound.push_back(&symbol);
    });
    std::sort(bound.begin(), bound.end(),
              [](const Symbol* a, const Symbol* b) { return a->name < b->name; });
    for (const Symbol* symbol : bound) result.add(present(symbol));
    return result.list();
}

Value defunQList(World&, Args args)
{
    const Value value = args.symbol(0)->value;
    return value.isList() ? value : Value::nil();
}

Value setDefunQList(World& world, Args args)
{
    Symbol* symbol = args.symbol(0);
    evaluatorOf(world).assign(symbol, args.list(1));
    return Value::symbol(symbol);
}

constexpr Builtin kTable[] = {
    {"type", type, 1, 1},
    {"boundp", boundp, 1, 1},
    {"set", set, 2, 2},
    {"eval", eval, 1, 1},
    {"read", read, 0, 1},
    {"vl-symbolp", symbolp, 1, 1},
    {"vl-symbol-name", symbolName, 1, 1},
    {"vl-symbol-value", symbolValue, 1, 1},
    {"atoms-family", atomsFamily, 1, 2},
    {"defun-q-list-ref", defunQList, 1, 1},
    {"defun-q-list-set", setDefunQList, 2, 2},
};

} // namespace

std::span<const Builtin> symbolBuiltins() { return kTable; }

} // namespace orvald::lisp
