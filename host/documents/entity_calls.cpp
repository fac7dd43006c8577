// SPDX-License-Identifier: LicenseRef-ORVALD
// Entities, selection sets and system variables as applications reach them: the C functions of the
// host's interface, on the current document.
#include "coordinate_systems.h"
#include "document.h"
#include "drawing/object_id.h"
#include "drawing/selection.h"
#include "host.h"
#include "hostapi/entity.h"
#include "hostapi/lisp.h"

#include <algorithm>

namespace orvald {
namespace {

using drawing::EntityFunctions;
using drawing::ErrNo;
using drawing::ObjectId;

/// RTNORM, or RTERROR with ERRNO set.
int status(Document& document, ErrNo error)
{
    if (error == ErrNo::none) return RTNORM;
    document.variables().setErrno(static_cast<int>(error));
    return RTERROR;
}

/// Runs a call on the current document's drawing; RTERROR when none is open.
template <typename Call>
int onDrawing(Call&& call)
{
    Document* document = Host::instance().current();
    if (document == nullptr) return RTERROR;
    const int answer = status(*document, call(document->entities()));
    document->tellChanges();
    return answer;
}

ObjectId idOf(const ads_name name)
{
    return name == nullptr ? ObjectId{} : drawing::fromName(name);
}

/// A set's name holds its number in the first word.
SelectionSet* setOf(const Adesk_Int32* name)
{
    return name == nullptr ? nullptr : Host::instance().selectionSets().find(name[0]);
}

/// True when the name is that of an entity, and not of another object.
bool isEntity(ObjectId id)
{
    const drawing::Drawing* drawing = drawing::Drawing::ofId(id);
    const drawing::Record* record = drawing == nullptr ? nullptr : drawing->find(id);
    return record != nullptr && record->isEntity();
}

} // namespace
} // namespace orvald

using namespace orvald;

extern "C" {

// -- entities

resbuf* acdbEntGetX(const ads_name name, const resbuf* apps)
{
    resbuf* chain = nullptr;
    onDrawing([&](EntityFunctions& entities) { return entities.entGet(idOf(name), apps, chain); });
    return chain;
}

resbuf* acdbEntGet(const ads_name name) { return acdbEntGetX(name, nullptr); }

int acdbEntMod(const resbuf* entity)
{
    return onDrawing([&](EntityFunctions& entities) { return entities.entMod(entity); });
}

int acdbEntMakeX(const resbuf* entity, ads_name name)
{
    EntityFunctions::Made made;
    const int answer =
        onDrawing([&](EntityFunctions& entities) { return entities.entMake(entity, made); });
    if (name != nullptr) drawing::toName(made.id, name);
    return answer;
}

int acdbEntMake(const resbuf* entity) { return acdbEntMakeX(entity, nullptr); }

int acdbEntDel(const ads_name name)
{
    return onDrawing([&](EntityFunctions& entities) { return entities.entDel(idOf(name)); });
}

int acdbEntNext(const ads_name name, ads_name next)
{
    ObjectId found;
    const int answer =
        onDrawing([&](EntityFunctions& entities) { return entities.entNext(idOf(name), found); });
    if (answer != RTNORM || found.isNull()) return RTERROR;
    drawing::toName(found, next);
    return RTNORM;
}

int acdbEntLast(ads_name last)
{
    Document* document = Host::instance().current();
    const ObjectId found = document == nullptr ? ObjectId{} : document->entities().entLast();
    if (found.isNull()) return RTERROR;
    drawing::toName(found, last);
    return RTNORM;
}

int acdbHandEnt(const ACHAR* handle, ads_name name)
{
    if (handle == nullptr) return RTERROR;
    ObjectId found;
    const int answer =
        onDrawing([&](EntityFunctions& entities) { return entities.handEnt(handle, found); });
    if (answer == RTNORM) drawing::toName(found, name);
    return answer;
}

int acdbNamedObjDict(ads_name name)
{
    ObjectId root;
    onDrawing([&](EntityFunctions& entities) {
        root = entities.namedObjDict();
        return ErrNo::none;
    });
    if (root.isNull()) return RTERROR;
    drawing::toName(root, name);
    return RTNORM;
}

resbuf* acdbDictSearch(const ads_name dictionary, const ACHAR* key, int setNext)
{
    resbuf* chain = nullptr;
    if (key == nullptr) return nullptr;
    onDrawing([&](EntityFunctions& entities) {
        return entities.dictSearch(idOf(dictionary), key, setNext != 0, chain);
    });
    return chain;
}

resbuf* acdbTblSearch(const ACHAR* table, const ACHAR* name, int setNext)
{
    resbuf* chain = nullptr;
    if (table == nullptr || name == nullptr) return nullptr;
    onDrawing([&](EntityFunctions& entities) {
        return entities.tblSearch(table, name, setNext != 0, chain);
    });
    return chain;
}

int acdbRegApp(const ACHAR* app)
{
    Document* document = Host::instance().current();
    if (document == nullptr || app == nullptr) return RTERROR;
    return document->entities().regApp(app) ? RTNORM : RTERROR;
}

// -- selection sets

int acedSSGet(const ACHAR* mode, const void*, const void*, const resbuf* filter, ads_name set)
{
    Document* document = Host::instance().current();
    if (document == nullptr || mode == nullptr || set == nullptr) return RTERROR;
    const std::u16string_view wanted(mode);
    std::vector<ObjectId> found;
    if (wanted != u"X" && wanted != u"_X" && wanted != u"x") return RTERROR;
    if (!drawing::selectAll(document->drawing(), filter, found) || found.empty()) return RTERROR;
    SelectionSets& sets = Host::instance().selectionSets();
    const std::optional<std::int32_t> number = sets.create();
    if (!number) return RTERROR;
    for (const ObjectId id : found) sets.find(*number)->add(id.value);
    set[0] = *number;
    set[1] = 0;
    return RTNORM;
}

int acedSSLength(const ads_name set, Adesk_Int32* length)
{
    const SelectionSet* members = setOf(set);
    if (members == nullptr || length == nullptr) return RTERROR;
    *length = static_cast<Adesk_Int32>(members->entities().size());
    return RTNORM;
}

int acedSSName(const ads_name set, int index, ads_name name)
{
    const SelectionSet* members = setOf(set);
    if (members == nullptr || name == nullptr || index < 0) return RTERROR;
    const auto place = static_cast<std::size_t>(index);
    if (place >= members->entities().size()) return RTERROR;
    drawing::toName({members->entities()[place]}, name);
    return RTNORM;
}

int acedSSAdd(const Adesk_Int32* name, const Adesk_Int32* set, ads_name result)
{
    if (result == nullptr || (name != nullptr && !isEntity(idOf(name)))) return RTERROR;
    std::optional<std::int32_t> number;
    if (set == nullptr) number = Host::instance().selectionSets().create();
    else if (setOf(set) != nullptr) number = set[0];
    if (!number) return RTERROR;
    if (name != nullptr) Host::instance().selectionSets().find(*number)->add(idOf(name).value);
    result[0] = *number;
    result[1] = 0;
    return RTNORM;
}

int acedSSDel(const ads_name name, const ads_name set)
{
    SelectionSet* members = setOf(set);
    return members != nullptr && members->remove(idOf(name).value) ? RTNORM : RTERROR;
}

int acedSSMemb(const ads_name name, const ads_name set)
{
    const SelectionSet* members = setOf(set);
    return members != nullptr && members->has(idOf(name).value) ? RTNORM : RTERROR;
}

int acedSSFree(const ads_name set)
{
    if (setOf(set) == nullptr) return RTERROR;
    Host::instance().selectionSets().release(set[0]);
    return RTNORM;
}

// -- temporary graphics

int acedGrDraw(const ads_point from, const ads_point to, int colour, int highlight)
{
    Document* document = Host::instance().current();
    if (document == nullptr || from == nullptr || to == nullptr) return RTERROR;
    const drawing::Transform toWorld = userToWorld(document->drawing());
    const drawing::Point a = toWorld({from[0], from[1], from[2]});
    const drawing::Point b = toWorld({to[0], to[1], to[2]});
    const double first[] = {a.x, a.y, a.z}, second[] = {b.x, b.y, b.z};
    document->graphics().draw(first, second, colour, highlight != 0);
    return RTNORM;
}

// -- system variables

int acedGetVar(const ACHAR* name, resbuf* value)
{
    Document* document = Host::instance().current();
    if (name == nullptr || value == nullptr) return RTERROR;
    // A module that is being loaded asks for the host's release before any drawing is open.
    const auto answer = document == nullptr ? SystemVariables::getConstant(name, *value)
                                            : document->variables().get(name, *value);
    return answer == SystemVariables::Answer::done ? RTNORM : RTERROR;
}

int acedSetVar(const ACHAR* name, const resbuf* value)
{
    Document* document = Host::instance().current();
    if (document == nullptr || name == nullptr || value == nullptr) return RTERROR;
    const auto answer = document->variables().set(name, *value);
    return answer == SystemVariables::Answer::done ? RTNORM : RTERROR;
}
}

// -- names and ids

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name)
{
    const ObjectId named = idOf(name);
    const drawing::Drawing* drawing = drawing::Drawing::ofId(named);
    if (drawing == nullptr || drawing->indexOf(named) == drawing::kNone) {
        return Acad::eInvalidAdsName;
    }
    id = AcDbObjectId(named.value);
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id)
{
    if (id.isNull()) return Acad::eNullObjectId;
    drawing::toName({id.asOldId()}, name);
    return Acad::eOk;
}
