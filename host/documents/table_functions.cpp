// SPDX-License-Identifier: LicenseRef-ORVALD
// Symbol tables, dictionaries and registered applications.
#include "document.h"
#include "drawing/text.h"
#include "drawing_functions.h"
#include "entity_list.h"

#include <algorithm>

namespace orvald {
namespace {

using drawing::EntityFunctions;
using drawing::ErrNo;
using drawing::ObjectId;
using lisp::Args;
using lisp::Value;
using lisp::World;

EntityFunctions& entities(World& world) { return Document::of(world).entities(); }

/// What a look-up gave, as a list; takes the chain over.
Value listOrNil(World& world, ErrNo error, resbuf* groups)
{
    const Chain chain(groups);
    return succeeded(world, error) ? listFromGroups(world, groups) : Value::nil();
}

// (tblsearch table name [setnext]) -> list or nil
Value tblsearch(World& world, Args args)
{
    resbuf* groups = nullptr;
    const ErrNo error =
        entities(world).tblSearch(args.string(0), args.string(1), !args.at(2).isNil(), groups);
    return listOrNil(world, error, groups);
}

// (tblnext table [rewind]) -> list or nil
Value tblnext(World& world, Args args)
{
    resbuf* groups = nullptr;
    const ErrNo error = entities(world).tblNext(args.string(0), !args.at(1).isNil(), groups);
    return listOrNil(world, error, groups);
}

// (tblobjname table name) -> ename or nil
Value tblobjname(World& world, Args args)
{
    ObjectId id;
    const ErrNo error = entities(world).tblObjName(args.string(0), args.string(1), id);
    return succeeded(world, error) ? nameValue(id) : Value::nil();
}

// (namedobjdict) -> ename
Value namedobjdict(World& world, Args) { return nameValue(entities(world).namedObjDict()); }

// (dictsearch dictionary key [setnext]) -> list or nil
Value dictsearch(World& world, Args args)
{
    resbuf* groups = nullptr;
    const ErrNo error =
        entities(world).dictSearch({args.entity(0)}, args.string(1), !args.at(2).isNil(), groups);
    return listOrNil(world, error, groups);
}

// (dictnext dictionary [rewind]) -> list or nil
Value dictnext(World& world, Args args)
{
    resbuf* groups = nullptr;
    const ErrNo error = entities(world).dictNext({args.entity(0)}, !args.at(1).isNil(), groups);
    return listOrNil(world, error, groups);
}

// (dictadd dictionary key object) -> ename of the object or nil
Value dictadd(World& world, Args args)
{
    const ErrNo error = entities(world).dictAdd({args.entity(0)}, args.string(1), {args.entity(2)});
    Document::of(world).tellChanges();
    return succeeded(world, error) ? args[2] : Value::nil();
}

// (dictremove dictionary key) -> ename of the object or nil
Value dictremove(World& world, Args args)
{
    ObjectId object;
    const ErrNo error = entities(world).dictRemove({args.entity(0)}, args.string(1), object);
    Document::of(world).tellChanges();
    return succeeded(world, error) ? nameValue(object) : Value::nil();
}

// (dictrename dictionary from to) -> new key or nil
Value dictrename(World& world, Args args)
{
    const ErrNo error =
        entities(world).dictRename({args.entity(0)}, args.string(1), args.string(2));
    Document::of(world).tellChanges();
    return succeeded(world, error) ? args[2] : Value::nil();
}

// (regapp name) -> name; nil when it was registered already or is no name
Value regapp(World& world, Args args)
{
    return entities(world).regApp(args.string(0)) ? args[0] : Value::nil();
}

// (snvalid name [flag]) -> T or nil; flag 1 allows a vertical bar
Value snvalid(World& world, Args args)
{
    std::u16string name(args.string(0));
    if (args.size() > 1 && args.integer(1) == 1) std::ranges::replace(name, u'|', u'-');
    return world.boolean(drawing::isSymbolName(drawing::fileForm(name)));
}

// (layoutlist) -> names of the sheets in the order of their tabs
Value layoutlist(World& world, Args)
{
    const drawing::Drawing& drawing = Document::of(world).drawing();
    const drawing::Index list = drawing.dictionaryEntry(drawing.rootDictionary(), "ACAD_LAYOUT");
    const drawing::Dictionary* layouts = drawing.dictionary(list);
    std::vector<std::pair<std::int64_t, std::string_view>> sheets; // by tab
    if (layouts != nullptr) {
        for (const drawing::Dictionary::Entry& entry : layouts->entries()) {
            const drawing::Index layout = drawing.byHandle(entry.object);
            if (layout == drawing::kNone || drawing::sameName(entry.key, "Model")) continue;
            const drawing::TagList& tags = drawing.at(layout).tags;
            const auto own = tags.findMarker("AcDbLayout");
            const auto tab = tags.find(71, own);
            sheets.emplace_back(tab == tags.end() ? 0 : (*tab).integer(), entry.key);
        }
    }
    std::ranges::stable_sort(sheets, {}, [](const auto& sheet) { return sheet.first; });
    lisp::ListBuilder names(world);
    for (const auto& [tab, name] : sheets) names.add(world.makeString(drawing::text16(name)));
    return names.list();
}

constexpr lisp::Builtin kTable[] = {
    {"dictadd", dictadd, 3, 3},           {"dictnext", dictnext, 1, 2},
    {"dictremove", dictremove, 2, 2},     {"dictrename", dictrename, 3, 3},
    {"dictsearch", dictsearch, 2, 3},     {"layoutlist", layoutlist, 0, 0},
    {"namedobjdict", namedobjdict, 0, 0}, {"regapp", regapp, 1, 1},
    {"snvalid", snvalid, 1, 2},           {"tblnext", tblnext, 1, 2},
    {"tblobjname", tblobjname, 2, 2},     {"tblsearch", tblsearch, 2, 3},
};

} // namespace

std::span<const lisp::Builtin> tableFunctions() { return kTable; }

} // namespace orvald
