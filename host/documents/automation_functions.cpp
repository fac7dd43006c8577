// SPDX-License-Identifier: LicenseRef-ORVALD
// What stands in for the automation interface: the application, its active document, and the marks
// around a step to take back. Everything else of it, of dialogs and of reactors is not here, and a
// call says so.
#include "document.h"
#include "drawing_functions.h"
#include "text/letters.h"

#include <algorithm>

namespace orvald {
namespace {

using lisp::Args;
using lisp::Value;
using lisp::World;

constexpr std::u16string_view kApplication = u"IAcadApplication", kDocument = u"IAcadDocument";

/// Names by capitals, as symbols have them.
constexpr std::u16string_view kDialogFunctions[] = {
    u"ACTION_TILE",   u"ADD_LIST",     u"CLIENT_DATA_TILE", u"DIMX_TILE",  u"DIMY_TILE",
    u"DONE_DIALOG",   u"END_IMAGE",    u"END_LIST",         u"FILL_IMAGE", u"GET_ATTR",
    u"GET_TILE",      u"LOAD_DIALOG",  u"MODE_TILE",        u"NEW_DIALOG", u"SET_TILE",
    u"SLIDE_IMAGE",   u"START_DIALOG", u"START_IMAGE",      u"START_LIST", u"TERM_DIALOG",
    u"UNLOAD_DIALOG", u"VECTOR_IMAGE",
};

void requireObject(World& world, Value value, std::u16string_view className)
{
    if (value.kind() != lisp::Kind::vlaObject || world.vlaClass(value) != className)
        world.badArgument("VLA-OBJECT", value);
}

/// A property or method, by a symbol or a text, in capitals.
std::u16string memberArgument(Args args, int index)
{
    return args[index].isSymbol() ? std::u16string(args.symbol(index)->name)
                                  : text::upperText(args.string(index));
}

[[noreturn]] void notAvailable(World& world, std::u16string_view function, Args args)
{
    world.raise(std::u16string(function) + u" " + world.princ(args[1]) +
                u": not available in this host");
}

Value documentOf(World& world, Value application)
{
    requireObject(world, application, kApplication);
    return world.makeVlaObject(kDocument);
}

Value startMark(World& world, Value document)
{
    requireObject(world, document, kDocument);
    Document::of(world).drawing().journal().beginGroup();
    return Value::nil();
}

Value endMark(World& world, Value document)
{
    requireObject(world, document, kDocument);
    // Without a start there is nothing to end: programs end in *error* whether or not they began.
    Document::of(world).drawing().journal().endGroup();
    return Value::nil();
}

// (vlax-get-acad-object) -> the application
Value acadObject(World& world, Args) { return world.makeVlaObject(kApplication); }

// (vla-get-ActiveDocument application) -> the document
Value activeDocument(World& world, Args args) { return documentOf(world, args[0]); }

// (vla-StartUndoMark document) -> nil
Value startUndoMark(World& world, Args args) { return startMark(world, args[0]); }

// (vla-EndUndoMark document) -> nil
Value endUndoMark(World& world, Args args) { return endMark(world, args[0]); }

// (vlax-get-property object name) -> the active document of the application
Value getProperty(World& world, Args args)
{
    if (memberArgument(args, 1) != u"ACTIVEDOCUMENT")
        notAvailable(world, u"vlax-get-property", args);
    return documentOf(world, args[0]);
}

// (vlax-invoke-method object name) -> nil: the two undo marks of the document
Value invokeMethod(World& world, Args args)
{
    const std::u16string method = memberArgument(args, 1);
    if (method == u"STARTUNDOMARK") return startMark(world, args[0]);
    if (method == u"ENDUNDOMARK") return endMark(world, args[0]);
    notAvailable(world, u"vlax-invoke-method", args);
}

// (vlax-release-object object) -> nil: nothing is held
Value releaseObject(World& world, Args args)
{
    if (args[0].kind() != lisp::Kind::vlaObject) world.badArgument("VLA-OBJECT", args[0]);
    return Value::nil();
}

constexpr lisp::Builtin kTable[] = {
    {"vla-EndUndoMark", endUndoMark, 1, 1},
    {"vla-StartUndoMark", startUndoMark, 1, 1},
    {"vla-get-ActiveDocument", activeDocument, 1, 1},
    {"vlax-get", getProperty, 2, 2},
    {"vlax-get-acad-object", acadObject, 0, 0},
    {"vlax-get-property", getProperty, 2},
    {"vlax-invoke", invokeMethod, 2},
    {"vlax-invoke-method", invokeMethod, 2},
    {"vlax-release-object", releaseObject, 1, 1},
};

} // namespace

std::span<const lisp::Builtin> automationFunctions() { return kTable; }

bool isFunctionElsewhere(std::u16string_view name)
{
    constexpr std::u16string_view kFamilies[] = {u"VLA-", u"VLAX-", u"VLR-"};
    return std::ranges::any_of(kFamilies, [&](auto start) { return name.starts_with(start); }) ||
           std::ranges::binary_search(kDialogFunctions, name);
}

} // namespace orvald
