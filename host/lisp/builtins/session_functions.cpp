// SPDX-License-Identifier: LicenseRef-ORVALD
// The session around a program: environment, blackboard, memory, and calls that load parts of the
// language which are always here.
#include "builtins/tables.h"

#include "characters.h"
#include "evaluator.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace orvald::lisp {

namespace {

Value getEnvironment(World& world, Args args)
{
    const char* value = std::getenv(toUtf8(args.string(0)).c_str());
    return value == nullptr ? Value::nil() : world.makeString(toUtf16(value));
}

Value setEnvironment(World& world, Args args)
{
    const std::string name = toUtf8(args.string(0));
    const std::string value = toUtf8(args.string(1));
#ifdef _WIN32
    const bool done = _putenv_s(name.c_str(), value.c_str()) == 0;
#else
    const bool done = ::setenv(name.c_str(), value.c_str(), 1) == 0;
#endif
    if (!done) world.raise(u"bad argument value: variable name " + world.prin1(args[0]));
    return args[1];
}

Value& blackboardPlace(World& world, Symbol* name)
{
    auto& board = evaluatorOf(world).blackboard;
    const auto known = std::find_if(board.begin(), board.end(),
                                    [&](const auto& entry) { return entry.first == name; });
    if (known != board.end()) return known->second;
    return board.emplace_back(name, Value::nil()).second;
}

Value blackboardRead(World& world, Args args) { return blackboardPlace(world, args.symbol(0)); }

Value blackboardWrite(World& world, Args args)
{
    return blackboardPlace(world, args.symbol(0)) = args[1];
}

// A document's own variables are the world's: reading and setting them needs no other namespace.
Value documentRead(World&, Args args) { return args.symbol(0)->value; }

Value documentWrite(World& world, Args args)
{
    evaluatorOf(world).assign(args.symbol(0), args[1]);
    return args[1];
}

Value version(World& world, Args) { return world.makeString(u"ORVALD LISP 2015 (en)"); }

// A safe point could collect only what no caller holds; the next one does it.
Value collectSoon(World& world, Args)
{
    evaluatorOf(world).requestCollection();
    return Value::nil();
}

Value memory(World& world, Args)
{
    const std::size_t bytes = world.heapBytes();
    constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();
    return Value::integer(static_cast<std::int32_t>(std::min(bytes, kMost)));
}

// What these would load, export or switch on is always there.
Value alreadyThere(World&, Args) { return Value::nil(); }

constexpr Builtin kTable[] = {
    {"getenv", getEnvironment, 1, 1},
    {"setenv", setEnvironment, 2, 2},
    {"vl-bb-ref", blackboardRead, 1, 1},
    {"vl-bb-set", blackboardWrite, 2, 2},
    {"vl-doc-ref", documentRead, 1, 1},
    {"vl-doc-set", documentWrite, 2, 2},
    {"ver", version, 0, 0},
    {"gc", collectSoon, 0, 0},
    {"mem", memory, 0, 0},
    {"vmon", alreadyThere, 0, 0},
    {"alloc", alreadyThere, 1, 1},
    {"expand", alreadyThere, 1, 1},
    {"vl-load-com", alreadyThere, 0, 0},
    {"vl-load-reactors", alreadyThere, 0, 0},
    {"vl-load-all", alreadyThere, 1, 1},
    {"vl-propagate", alreadyThere, 1, 1},
    {"vl-doc-export", alreadyThere, 1, 1},
    {"vl-doc-import", alreadyThere, 1},
    {"vl-acad-defun", alreadyThere, 1, 1},
    {"vl-acad-undefun", alreadyThere, 1, 1},
    {"vl-list-loaded-vlx", alreadyThere, 0, 0},
    {"vl-list-exported-functions", alreadyThere, 0, 1},
    {"vl-vlx-loaded-p", alreadyThere, 1, 1},
    {"vl-unload-vlx", alreadyThere, 1, 1},
    {"vl-bt", alreadyThere, 0, 0},
    {"*push-error-using-command*", alreadyThere, 0, 0},
    {"*push-error-using-stack*", alreadyThere, 0, 0},
    {"*pop-error-mode*", alreadyThere, 0, 0},
};

} // namespace

std::span<const Builtin> sessionBuiltins() { return kTable; }

std::span<const std::span<const Builtin>> builtinTables()
{
    static const std::span<const Builtin> kTables[] = {
        numberBuiltins(),   comparisonBuiltins(), listBuiltins(),       mappingBuiltins(),
        sortBuiltins(),     stringBuiltins(),     textSearchBuiltins(), conversionBuiltins(),
        geometryBuiltins(), symbolBuiltins(),     controlBuiltins(),    printBuiltins(),
        fileBuiltins(),     directoryBuiltins(),  sessionBuiltins(),  unitBuiltins(),
    };
    return kTables;
}

} // namespace orvald::lisp
