// SPDX-License-Identifier: LicenseRef-ORVALD
// What stands in for the automation interface: the application, its active document with the marks
// around a step to take back, and a name for each object of the drawing, which the vlax-curve
// functions take. Everything else of it, of dialogs and of reactors is not here, and a call says
// so.
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

/// Classes by the types of records; what is not among them is an object of the general class.
struct ClassRow
{
    std::string_view type;
    std::u16string_view className;
};
constexpr ClassRow kClasses[] = {
    {"3DFACE", u"IAcad3DFace"},         {"ARC", u"IAcadArc"},
    {"ATTDEF", u"IAcadAttribute"},      {"ATTRIB", u"IAcadAttributeReference"},
    {"BLOCK_RECORD", u"IAcadBlock"},    {"CIRCLE", u"IAcadCircle"},
    {"DICTIONARY", u"IAcadDictionary"}, {"DIMENSION", u"IAcadDimension"},
    {"ELLIPSE", u"IAcadEllipse"},       {"HATCH", u"IAcadHatch"},
    {"INSERT", u"IAcadBlockReference"}, {"LAYER", u"IAcadLayer"},
    {"LEADER", u"IAcadLeader"},         {"LINE", u"IAcadLine"},
    {"LTYPE", u"IAcadLineType"},        {"LWPOLYLINE", u"IAcadLWPolyline"},
    {"MTEXT", u"IAcadMText"},           {"POINT", u"IAcadPoint"},
    {"POLYLINE", u"IAcadPolyline"},     {"RAY", u"IAcadRay"},
    {"SOLID", u"IAcadSolid"},           {"SPLINE", u"IAcadSpline"},
    {"STYLE", u"IAcadTextStyle"},       {"TEXT", u"IAcadText"},
    {"XLINE", u"IAcadXline"},
};

void requireAnyObject(World& world, Value value)
{
    if (value.kind() != lisp::Kind::vlaObject) world.badArgument("VLA-OBJECT", value);
}

void requireObject(World& world, Value value, std::u16string_view className)
{
    requireAnyObject(world, value);
    if (world.vlaClass(value) != className || world.isVlaReleased(value))
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

// (vlax-ename->vla-object ename) -> the object
Value objectOfName(World& world, Args args)
{
    const drawing::Drawing& drawing = Document::of(world).drawing();
    const drawing::Index index = drawing.indexOf({args.entity(0)});
    if (index == drawing::kNone || drawing.isGone(index)) world.badArgument("lentityp", args[0]);
    const auto known = std::ranges::find(kClasses, drawing.at(index).typeName(), &ClassRow::type);
    return world.makeVlaObject(known == std::end(kClasses) ? u"IAcadObject" : known->className,
                               args[0]);
}

// (vlax-vla-object->ename object) -> ename
Value nameOfObject(World& world, Args args)
{
    requireAnyObject(world, args[0]);
    const Value entity = world.vlaEntity(args[0]);
    if (entity.isNil() || world.isVlaReleased(args[0])) world.badArgument("VLA-OBJECT", args[0]);
    return entity;
}

// (vlax-release-object object) -> 0: the references that are left
Value releaseObject(World& world, Args args)
{
    requireAnyObject(world, args[0]);
    world.releaseVla(args[0]);
    return Value::integer(0);
}

// (vlax-object-released-p object) -> T or nil
Value isReleased(World& world, Args args)
{
    requireAnyObject(world, args[0]);
    return world.boolean(world.isVlaReleased(args[0]));
}

constexpr lisp::Builtin kTable[] = {
    {"vla-EndUndoMark", endUndoMark, 1, 1},
    {"vla-StartUndoMark", startUndoMark, 1, 1},
    {"vla-get-ActiveDocument", activeDocument, 1, 1},
    {"vlax-ename->vla-object", objectOfName, 1, 1},
    {"vlax-get", getProperty, 2, 2},
    {"vlax-get-acad-object", acadObject, 0, 0},
    {"vlax-get-property", getProperty, 2},
    {"vlax-invoke", invokeMethod, 2},
    {"vlax-invoke-method", invokeMethod, 2},
    {"vlax-object-released-p", isReleased, 1, 1},
    {"vlax-release-object", releaseObject, 1, 1},
    {"vlax-vla-object->ename", nameOfObject, 1, 1},
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
