// SPDX-License-Identifier: LicenseRef-ORVALD
// What stands behind an object of the interface: a place in a drawing, or a record of its own while
// it is new, and how it is open.
#pragma once

#include "drawing/drawing.h"
#include "hostapi/objects.h"

#include <optional>
#include <utility>
#include <vector>

struct AcDbObject::State
{
    orvald::drawing::Drawing* drawing = nullptr; // null while it is new
    orvald::drawing::Index index = orvald::drawing::kNone;
    std::optional<orvald::drawing::Record> fresh; // while it is new
    /// The drawing whose handles `fresh` holds, null when it holds none.
    const orvald::drawing::Drawing* namesOf = nullptr;

    int readers = 0;
    bool writing = false, notifying = false;
    /// Depth of module calls at each opening, in order.
    std::vector<int> depths;
    bool modified = false, graphicsModified = false;

    const orvald::drawing::Record& read() const { return fresh ? *fresh : drawing->at(index); }
    /// For changing the record: it is open for write.
    orvald::drawing::Record& edit()
    {
        modified = graphicsModified = true;
        return fresh ? *fresh : drawing->edit(index);
    }
    bool mayWrite() const { return fresh || writing; }
};

class AcDbObjectAccess
{
public:
    using State = AcDbObject::State;
    static State& state(const AcDbObject& object) { return object.state(); }
    /// The object of a resident record, of the class that fits it.
    static std::unique_ptr<AcDbObject> make(orvald::drawing::Drawing& drawing,
                                            orvald::drawing::Index index);
    /// A new object of a kind.
    static std::unique_ptr<State> fresh(orvald::drawing::Record&& record);
};

namespace orvald {

/// The run-time class with which a record is opened.
AcRxClass* classOf(const drawing::Record& record);

inline AcDbObjectId outerId(drawing::ObjectId id) { return AcDbObjectId(id.value); }
inline drawing::ObjectId innerId(AcDbObjectId id) { return {id.asOldId()}; }

} // namespace orvald
