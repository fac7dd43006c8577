// SPDX-License-Identifier: LicenseRef-ORVALD
// The objects that are open, over all documents: who may open what, and what a module left open.
// An object is here from its first opening to its last close.
#pragma once

#include "object_access.h"

#include <memory>
#include <string>
#include <unordered_map>

namespace orvald {

class OpenObjects
{
public:
    Acad::ErrorStatus open(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                           bool openErased);
    /// Takes an object in that has just become resident: it is open for write.
    void adopt(AcDbObject& object);
    /// Ends the last opening; the object may be gone afterwards. What has changed is told.
    Acad::ErrorStatus close(AcDbObject& object);
    /// Opens an object for notify, whatever has become of it; mayBeNotified is true.
    AcDbObject* openToNotify(drawing::Drawing& drawing, drawing::Index index);
    /// True when nobody writes the object or has it open for notify.
    bool mayBeNotified(AcDbObjectId id) const;
    /// eOk when the object may be opened for write by somebody else now.
    Acad::ErrorStatus whyNotWritable(AcDbObjectId id) const;
    /// Null when it is not open.
    AcDbObject* find(AcDbObjectId id) const;
    /// True while any object of the drawing is open.
    bool anyOf(const drawing::Drawing& drawing) const;
    /// The objects of two places have changed places.
    void swapped(AcDbObjectId a, AcDbObjectId b);
    /// Forgets an object that is being deleted though it is open.
    void forget(const AcDbObject& object);

    /// A call into a module begins; gives its depth.
    int enterCall() { return ++depth_; }
    /// A call ends: what it left open is closed. A line for each such object.
    std::vector<std::string> leaveCall(int depth);
    /// The drawing is being closed. A line for each object that is still open.
    std::vector<std::string> closeAllOf(const drawing::Drawing& drawing);

private:
    AcDbObject& opened(drawing::Drawing& drawing, drawing::Index index, AcDb::OpenMode mode);
    void end(AcDbObject& object);
    template <typename Left>
    std::vector<std::string> closeWhere(Left&& left);

    std::unordered_map<std::uint64_t, AcDbObject*> objects_; // by id
    int depth_ = 0;
};

/// eOk when records of the drawing may be changed by whoever runs now: its document is locked for
/// write. eNoDatabase when it is not open in a document.
Acad::ErrorStatus lockStatus(const drawing::Drawing& drawing);
/// The same for one record: eOnLockedLayer for an entity on a locked layer.
Acad::ErrorStatus writeStatus(const drawing::Drawing& drawing, drawing::Index index);

/// Tells the reactors of the drawing what has changed; nothing when it is not open in a document.
void tellChanges(drawing::Drawing& drawing);

} // namespace orvald
