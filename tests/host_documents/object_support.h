// SPDX-License-Identifier: LicenseRef-ORVALD
// Objects of open documents in short forms, for the tests that reach them through classes.
#pragma once

#include "../host_drawing/chain_text.h"
#include "document.h"
#include "dxf/dxf.h"
#include "host.h"
#include "hostapi/objects.h"
#include "object_access.h"

#include <gtest/gtest.h>

namespace orvald {

/// An object that is open for as long as this lives.
template <class T>
class Opened
{
public:
    explicit Opened(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool erased = false)
        : status(acdbOpenObject(object_, id, mode, erased))
    {
    }
    ~Opened() { close(); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    void close()
    {
        if (object_ != nullptr) object_->close();
        object_ = nullptr;
    }
    T* operator->() const { return object_; }
    T* get() const { return object_; }

private:
    T* object_ = nullptr;

public:
    const Acad::ErrorStatus status;
};

/// A document whose drawing is filled by short texts, locked for whoever runs.
struct Sheet
{
    explicit Sheet(Host& host) : document(host.newDocument()), lock(document) {}

    drawing::Drawing& drawing() { return document.drawing(); }
    AcDbDatabase& database() { return *document.database(); }
    AcDbObjectId id(drawing::Index index) { return outerId(drawing().idOf(index)); }
    AcDbObjectId root() { return database().namedObjectsDictionaryId(); }
    AcDbObjectId model() { return id(drawing().modelSpace()); }
    std::string name(AcDbObjectId object) { return drawing::handleText(object.handle()); }

    /// "330 @" in a text stands for the handle of `at`.
    AcDbObjectId make(std::string text, AcDbObjectId at = {})
    {
        for (std::size_t place; (place = text.find('@')) != std::string::npos;)
            text.replace(place, 1, "#" + name(at));
        drawing::EntityFunctions::Made made;
        const drawing::ErrNo error =
            document.entities().entMake(drawing::makeChain(drawing(), text).get(), made);
        EXPECT_EQ(error, drawing::ErrNo::none) << text;
        return outerId(made.id);
    }
    /// A new xrecord with these groups under a key.
    AcDbObjectId xrecord(AcDbObjectId dictionary, const ACHAR* key, std::string text = "90 1",
                         AcDbObjectId at = {})
    {
        const AcDbObjectId made = make("0 XRECORD|100 AcDbXrecord|" + text, at);
        enter(dictionary, key, made);
        return made;
    }
    AcDbObjectId dictionary(AcDbObjectId owner, const ACHAR* key, bool hard = false)
    {
        const AcDbObjectId made = id(drawing().addDictionary(hard));
        enter(owner, key, made);
        return made;
    }
    AcDbObjectId extension(AcDbObjectId object)
    {
        return id(drawing().needExtensionDictionary(indexOf(object)));
    }
    void enter(AcDbObjectId dictionary, const ACHAR* key, AcDbObjectId object)
    {
        EXPECT_TRUE(drawing().addToDictionary(indexOf(dictionary), drawing::fileForm(key),
                                              indexOf(object)));
    }
    AcDbObjectId at(AcDbObjectId dictionary, std::string_view key)
    {
        return id(drawing().dictionaryEntry(indexOf(dictionary), key));
    }
    drawing::Index indexOf(AcDbObjectId object) { return drawing().indexOf(innerId(object)); }
    const drawing::Record& record(AcDbObjectId object) { return drawing().at(indexOf(object)); }
    /// What the groups of an xrecord or entity with that code name.
    AcDbObjectId named(AcDbObjectId object, int code)
    {
        return id(drawing().byHandle(record(object).tags.handle(code)));
    }
    AcDbObjectId tableRecord(drawing::TableId table, std::string_view key)
    {
        return id(drawing().findRecord(table, key));
    }
    std::string text() { return dxf::saveText(drawing()); }

    Document& document;
    Document::RunLock lock;
};

inline AcDbObjectIdArray list(std::initializer_list<AcDbObjectId> ids)
{
    AcDbObjectIdArray array;
    for (const AcDbObjectId id : ids) array.append(id);
    return array;
}

/// What stands for an object in a mapping; null when nothing does.
inline AcDbObjectId standsFor(const AcDbIdMapping& map, AcDbObjectId id, bool* cloned = nullptr)
{
    AcDbIdPair pair(id);
    if (!map.compute(pair)) return {};
    if (cloned != nullptr) *cloned = pair.isCloned();
    return pair.value();
}

} // namespace orvald
