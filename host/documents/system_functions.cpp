// SPDX-License-Identifier: LicenseRef-ORVALD
// System variables, boxes, modules, and functions of the host's windows that have nothing to do
// without one.
#include "diesel.h"
#include "document.h"
#include "drawing_functions.h"
#include "host.h"
#include "registries.h"
#include "value_chain.h"

#include <new>

namespace orvald {
namespace {

using lisp::Args;
using lisp::Value;
using lisp::World;

/// A name as a string or a symbol.
std::u16string_view nameArgument(World& world, Args args, int index)
{
    if (args[index].isSymbol()) return args.symbol(index)->name;
    if (!args[index].isString()) world.badArgument("(or stringp symbolp):", args[index]);
    return args.string(index);
}

// (getvar name) -> value; nil for an unknown name
Value getvar(World& world, Args args)
{
    return world.host().systemVariable(nameArgument(world, args, 0)).value_or(Value::nil());
}

/// The value as one node; null when a variable cannot have it.
Chain variableNode(World& world, Args args, int index)
{
    const Value value = args[index];
    if (!value.isCons()) return Chain(chainFromValue(value, world, {}));
    const Args::Point point = args.point(index);
    Chain node(acutNewRb(point.dimensions == 2 ? RTPOINT : RT3DPOINT));
    if (node == nullptr) throw std::bad_alloc();
    node->resval.rpoint[0] = point.x;
    node->resval.rpoint[1] = point.y;
    node->resval.rpoint[2] = point.z;
    return node;
}

// (setvar name value) -> value
Value setvar(World& world, Args args)
{
    const std::u16string_view name = nameArgument(world, args, 0);
    const Chain node = variableNode(world, args, 1);
    const bool done = node != nullptr && Document::of(world).variables().set(name, *node) ==
                                             SystemVariables::Answer::done;
    if (done) return args[1];
    world.raise(u"AutoCAD variable setting rejected: " + world.prin1(args[0]) + u" " +
                world.prin1(args[1]));
}

// (alert text) -> nil
Value alert(World&, Args args)
{
    Host::instance().console().alert(args.string(0));
    return Value::nil();
}

// (arx) -> file names of the loaded modules
Value arx(World& world, Args)
{
    lisp::ListBuilder names(world);
    for (const auto& application : Host::instance().linker().applications()) {
        names.add(world.makeString(lisp::toUtf16(application->fileName())));
    }
    return names.list();
}

/// The second argument stands for the error, where there is one.
Value moduleFailure(World& world, Args args, std::u16string_view what)
{
    if (args.size() > 1) return args[1];
    world.raise(std::u16string(what) + u" failed: " + world.prin1(args[0]));
}

// (arxload file [onfailure]) -> file
Value arxload(World& world, Args args)
{
    const std::u16string file(args.string(0));
    const bool done = Host::instance().linker().loadModule(file.c_str(), true, true);
    return done ? args[0] : moduleFailure(world, args, u"ARXLOAD");
}

// (arxunload file [onfailure]) -> file
Value arxunload(World& world, Args args)
{
    const std::u16string file(args.string(0));
    const bool done = Host::instance().linker().unloadModule(file.c_str(), true);
    return done ? args[0] : moduleFailure(world, args, u"ARXUNLOAD");
}

// (argv) -> what the program was called with
Value argv(World& world, Args)
{
    lisp::ListBuilder list(world);
    for (const std::string& argument : Host::instance().programArguments()) {
        list.add(world.makeString(lisp::toUtf16(argument)));
    }
    return list.list();
}

// (getcname name) -> the other name of a command: "_global" for a local one and back; nil
Value getcname(World& world, Args args)
{
    const std::u16string_view name = args.string(0);
    const CommandStack::Command* command = Host::instance().commands().find(name);
    if (command == nullptr) return Value::nil();
    return world.makeString(name.starts_with(u'_') ? command->localName
                                                   : u"_" + command->globalName);
}

// (startapp program [file]) -> nil: no program is started from here
Value startapp(World&, Args args)
{
    Host::instance().console().message("startapp: " + lisp::toUtf8(args.string(0)) +
                                       " is not started by this host");
    return Value::nil();
}

// (vports) -> ((number lower-left upper-right))
Value vports(World& world, Args)
{
    const Value zero = Value::real(0.0), one = Value::real(1.0);
    const Value number = Value::integer(Document::of(world).variables().integer(u"CVPORT"));
    return world.makeList(
        {world.makeList({number, world.makeList({zero, zero}), world.makeList({one, one})})});
}

// (menucmd text) -> what "M=..." comes to; nil for what would change a menu
Value menucmd(World& world, Args args)
{
    const std::u16string_view text = args.string(0);
    const std::size_t sign = text.find(u'=');
    if (sign != 1 || (text.front() != u'M' && text.front() != u'm')) return Value::nil();
    return world.makeString(dieselText(world, text.substr(sign + 1)));
}

/// Functions of menus, help and tablets: without windows they do nothing.
Value nothing(World&, Args) { return Value::nil(); }

constexpr lisp::Builtin kTable[] = {
    {"acad_colordlg", nothing},
    {"acad_helpdlg", nothing},
    {"acad_truecolordlg", nothing},
    {"alert", alert, 1, 1},
    {"argv", argv, 0, 0},
    {"arx", arx, 0, 0},
    {"arxload", arxload, 1, 2},
    {"arxunload", arxunload, 1, 2},
    {"getcname", getcname, 1, 1},
    {"getvar", getvar, 1, 1},
    {"help", nothing},
    {"initcommandversion", nothing},
    {"initdia", nothing},
    {"menucmd", menucmd, 1, 1},
    {"menugroup", nothing},
    {"setfunhlp", nothing},
    {"setvar", setvar, 2, 2},
    {"startapp", startapp, 1, 2},
    {"vl-vbaload", nothing},
    {"vl-vbarun", nothing},
    {"vports", vports, 0, 0},
};

} // namespace

std::span<const lisp::Builtin> systemFunctions() { return kTable; }

} // namespace orvald
