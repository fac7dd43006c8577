// SPDX-License-Identifier: LicenseRef-ORVALD
// Copying objects within a drawing and between drawings: everything that can fail is asked before
// anything is copied.
#include "database.h"
#include "document.h"
#include "drawing/clone.h"
#include "host.h"
#include "object_access.h"
#include "open_objects.h"

#include <filesystem>

namespace orvald {

using drawing::Drawing;
using drawing::Index;
using drawing::kNone;
using drawing::Taken;

namespace {

/// The place of an object in the drawing where it must be.
Acad::ErrorStatus placeOf(const Drawing& drawing, AcDbObjectId id, Index& index)
{
    if (id.isNull()) return Acad::eNullObjectId;
    index = drawing.indexOf(innerId(id));
    if (index == kNone) return Acad::eWrongDatabase;
    if (drawing.at(index).undone) return Acad::ePermanentlyErased;
    return drawing.at(index).erased ? Acad::eWasErased : Acad::eOk;
}

/// Finds the objects and asks whether they may be copied below the owner.
Acad::ErrorStatus gather(const Drawing& from, const AcDbObjectIdArray& objects, const Drawing& to,
                         AcDbObjectId owner, Taken taken, std::vector<Index>& places, Index& below)
{
    Acad::ErrorStatus status = lockStatus(to);
    if (status == Acad::eOk) status = placeOf(to, owner, below);
    for (const AcDbObjectId id : objects) {
        if (status != Acad::eOk) return status;
        status = placeOf(from, id, places.emplace_back());
    }
    for (const Index object : places) {
        if (status != Acad::eOk) return status;
        if (!mayCopyBelow(from, object, to, below, taken)) return Acad::eNotThatKindOfClass;
    }
    return status;
}

void fill(AcDbIdMapping& map, const Drawing& from, const Drawing& to,
          const std::vector<drawing::Copied>& pairs)
{
    for (const drawing::Copied& pair : pairs)
        map.assign(
            AcDbIdPair(outerId(from.idOf(pair.old)), outerId(to.idOf(pair.made)), pair.cloned));
}

} // namespace

Acad::ErrorStatus Database::deepCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner,
                                             AcDbIdMapping& map)
{
    std::vector<Index> places;
    Index below = kNone;
    const Acad::ErrorStatus status =
        gather(drawing_, objects, drawing_, owner, Taken::kept, places, below);
    if (status != Acad::eOk) return status;
    fill(map, drawing_, drawing_, copyWithin(drawing_, places, below));
    events_.tell();
    return Acad::eOk;
}

Acad::ErrorStatus Database::wblockCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner,
                                               AcDbIdMapping& map,
                                               AcDb::DuplicateRecordCloning cloning)
{
    if (cloning < AcDb::kDrcNotApplicable || cloning > AcDb::kDrcUnmangleName)
        return Acad::eInvalidInput;
    if (objects.isEmpty()) return lockStatus(drawing_);
    if (objects[0].isNull()) return Acad::eNullObjectId;
    const Drawing* from = Drawing::ofId(innerId(objects[0]));
    const Document* source = from == nullptr ? nullptr : Host::instance().documentOf(*from);
    if (source == nullptr || from == &drawing_) return Acad::eWrongDatabase;

    const auto taken = static_cast<Taken>(cloning);
    std::vector<Index> places;
    Index below = kNone;
    Acad::ErrorStatus status = gather(*from, objects, drawing_, owner, taken, places, below);
    if (status != Acad::eOk) return status;
    for (const Index replaced : replacedBy(*from, places, drawing_, below, taken)) {
        status = Host::instance().openObjects().whyNotWritable(outerId(drawing_.idOf(replaced)));
        if (status != Acad::eOk) return status;
    }
    const std::string name = std::filesystem::path(source->path()).stem().string();
    fill(map, *from, drawing_, copyBetween(*from, places, drawing_, below, taken, name));
    events_.tell();
    return Acad::eOk;
}

} // namespace orvald
