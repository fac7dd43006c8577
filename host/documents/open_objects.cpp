// SPDX-License-Identifier: LicenseRef-ORVALD
#include "open_objects.h"

#include "document.h"
#include "host.h"

#include <algorithm>

namespace orvald {

using drawing::Index;
using drawing::kNone;

namespace {

constexpr int kMostReaders = 256;

AcDbObjectAccess::State& stateOf(const AcDbObject& object)
{
    return AcDbObjectAccess::state(object);
}

/// eOk when `mode` is possible beside the openings that there are.
Acad::ErrorStatus conflict(const AcDbObjectAccess::State& state, AcDb::OpenMode mode)
{
    if (state.notifying) return Acad::eWasNotifying;
    if (mode == AcDb::kForNotify) return Acad::eOk;
    if (state.writing) return Acad::eWasOpenForWrite;
    if (mode == AcDb::kForWrite) return state.readers > 0 ? Acad::eWasOpenForRead : Acad::eOk;
    return state.readers >= kMostReaders ? Acad::eAtMaxReaders : Acad::eOk;
}

} // namespace

Acad::ErrorStatus lockStatus(const drawing::Drawing& drawing)
{
    const Document* document = Host::instance().documentOf(drawing);
    if (document == nullptr) return Acad::eNoDatabase;
    return document->isLockedForWrite() ? Acad::eOk : Acad::eLockViolation;
}

void tellChanges(drawing::Drawing& drawing)
{
    if (!drawing.hasTouched()) return;
    if (Document* document = Host::instance().documentOf(drawing)) document->tellChanges();
}

Acad::ErrorStatus writeStatus(const drawing::Drawing& drawing, Index index)
{
    const Acad::ErrorStatus status = lockStatus(drawing);
    if (status != Acad::eOk) return status;
    const drawing::Record& record = drawing.at(index);
    const bool barred = record.isEntity() && drawing.isLayerLocked(record.layer());
    return barred ? Acad::eOnLockedLayer : Acad::eOk;
}

AcDbObject* OpenObjects::find(AcDbObjectId id) const
{
    const auto found = objects_.find(id.asOldId());
    return found == objects_.end() ? nullptr : found->second;
}

Acad::ErrorStatus OpenObjects::whyNotWritable(AcDbObjectId id) const
{
    const AcDbObject* object = find(id);
    return object == nullptr ? Acad::eOk : conflict(stateOf(*object), AcDb::kForWrite);
}

Acad::ErrorStatus OpenObjects::open(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                    bool openErased)
{
    object = nullptr;
    if (mode < AcDb::kForRead || mode > AcDb::kForNotify) return Acad::eInvalidInput;
    if (id.isNull()) return Acad::eNullObjectId;
    drawing::Drawing* drawing = drawing::Drawing::ofId(innerId(id));
    if (drawing == nullptr || Host::instance().documentOf(*drawing) == nullptr)
        return Acad::eNoDatabase;
    const Index index = drawing->indexOf(innerId(id));
    if (index == kNone) return Acad::eUnknownHandle;
    if (drawing->at(index).undone) return Acad::ePermanentlyErased;
    if (drawing->at(index).erased && !openErased) return Acad::eWasErased;
    if (mode == AcDb::kForWrite) {
        const Acad::ErrorStatus status = writeStatus(*drawing, index);
        if (status != Acad::eOk) return status;
    }

    if (const AcDbObject* known = find(id)) {
        const Acad::ErrorStatus status = conflict(stateOf(*known), mode);
        if (status != Acad::eOk) return status;
    }
    object = &opened(*drawing, index, mode);
    return Acad::eOk;
}

AcDbObject& OpenObjects::opened(drawing::Drawing& drawing, Index index, AcDb::OpenMode mode)
{
    AcDbObject*& known = objects_[drawing.idOf(index).value];
    if (known == nullptr)
        known = AcDbObjectAccess::make(drawing, index).release(); // until its last close
    AcDbObjectAccess::State& state = stateOf(*known);
    switch (mode) {
    case AcDb::kForRead: ++state.readers; break;
    case AcDb::kForWrite: state.writing = true; break;
    case AcDb::kForNotify: state.notifying = true; break;
    }
    state.depths.push_back(depth_);
    return *known;
}

AcDbObject* OpenObjects::openToNotify(drawing::Drawing& drawing, Index index)
{
    return &opened(drawing, index, AcDb::kForNotify);
}

bool OpenObjects::mayBeNotified(AcDbObjectId id) const
{
    const AcDbObject* object = find(id);
    return object == nullptr || !(stateOf(*object).writing || stateOf(*object).notifying);
}

void OpenObjects::adopt(AcDbObject& object)
{
    AcDbObjectAccess::State& state = stateOf(object);
    state.writing = true;
    state.depths.push_back(depth_);
    objects_[object.objectId().asOldId()] = &object;
}

Acad::ErrorStatus OpenObjects::close(AcDbObject& object)
{
    AcDbObjectAccess::State& state = stateOf(object);
    if (state.fresh) return Acad::eNotInDatabase;
    if (state.depths.empty()) return Acad::eInvalidOpenState;
    drawing::Drawing& drawing = *state.drawing;
    const bool mayTell = state.writing || state.notifying;
    end(object);
    if (mayTell) tellChanges(drawing);
    return Acad::eOk;
}

void OpenObjects::end(AcDbObject& object)
{
    AcDbObjectAccess::State& state = stateOf(object);
    if (state.notifying) state.notifying = false;
    else if (state.writing) state.writing = false;
    else --state.readers;
    state.depths.pop_back();
    if (state.depths.empty()) delete &object; // forgets itself
}

bool OpenObjects::anyOf(const drawing::Drawing& drawing) const
{
    return std::ranges::any_of(
        objects_, [&](const auto& one) { return stateOf(*one.second).drawing == &drawing; });
}

void OpenObjects::swapped(AcDbObjectId a, AcDbObjectId b)
{
    AcDbObject* const first = find(a);
    AcDbObject* const second = find(b);
    objects_.erase(a.asOldId());
    objects_.erase(b.asOldId());
    if (first != nullptr) objects_[b.asOldId()] = first;
    if (second != nullptr) objects_[a.asOldId()] = second;
}

void OpenObjects::forget(const AcDbObject& object)
{
    const auto found = objects_.find(object.objectId().asOldId());
    if (found != objects_.end() && found->second == &object) objects_.erase(found);
}

template <typename Left>
std::vector<std::string> OpenObjects::closeWhere(Left&& left)
{
    std::vector<AcDbObject*> all;
    for (const auto& [id, object] : objects_) all.push_back(object);
    std::ranges::sort(all, {},
                      [](const AcDbObject* object) { return object->objectId().asOldId(); });
    std::vector<std::string> lines;
    for (AcDbObject* object : all) {
        AcDbObjectAccess::State& state = stateOf(*object);
        const auto count = static_cast<std::size_t>(
            std::ranges::count_if(state.depths, [&](int depth) { return left(state, depth); }));
        if (count == 0) continue;
        const drawing::Record& record = state.read();
        const char* how = state.notifying ? "notify" : state.writing ? "write" : "read";
        lines.push_back(std::string(record.typeName()) + " " + drawing::handleText(record.handle) +
                        " was left open for " + how + " and is closed.");
        for (std::size_t i = 0; i < count; ++i) end(*object);
    }
    return lines;
}

std::vector<std::string> OpenObjects::leaveCall(int depth)
{
    depth_ = depth - 1;
    if (objects_.empty()) return {};
    std::vector<std::string> lines =
        closeWhere([=](const AcDbObjectAccess::State&, int opened) { return opened >= depth; });
    if (!lines.empty()) Host::instance().tellChanges();
    return lines;
}

std::vector<std::string> OpenObjects::closeAllOf(const drawing::Drawing& drawing)
{
    return closeWhere(
        [&](const AcDbObjectAccess::State& state, int) { return state.drawing == &drawing; });
}

} // namespace orvald
