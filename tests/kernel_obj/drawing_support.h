// SPDX-License-Identifier: LicenseRef-ORVALD
// A session without modules whose drawings tests change through the host's interface.
#pragma once

#include "files.h"
#include "hostapi/documents.h"
#include "hostapi/entity.h"
#include "kexobj/open_object.h"
#include "kexobj/xrecords.h"
#include "session/session.h"

#include <gtest/gtest.h>

namespace kextest {

/// One new drawing, current and locked for write.
class DrawingTest : public testing::Test
{
protected:
    DrawingTest() : session_(withoutModules(home_.path())) { newDrawing(); }
    ~DrawingTest() override { unlock(); }

    static void lock() { EXPECT_EQ(acDocManager->lockDocument(document()), Acad::eOk); }
    static void unlock() { acDocManager->unlockDocument(document()); }
    static AcApDocument* document() { return acDocManager->curDocument(); }
    static AcDbDatabase& database() { return *document()->database(); }

    void newDrawing()
    {
        std::string problem;
        EXPECT_TRUE(session_.newDrawing(problem)) << problem;
        lock();
    }
    /// Goes on with the drawing as it comes back from a file.
    void saveAndOpen()
    {
        const TempFolder folder;
        std::string problem;
        ASSERT_TRUE(session_.save(folder / "saved.dxf", problem)) << problem;
        ASSERT_TRUE(session_.open(folder / "saved.dxf", problem)) << problem;
        lock();
    }
    std::string value(std::string_view expression)
    {
        const orvald::Evaluation result = session_.eval(expression);
        return result.ok ? result.value : "! " + result.error;
    }
    /// A new line.
    AcDbObjectId line()
    {
        EXPECT_NE(value("(entmakex '((0 . \"LINE\") (10 0.0 0.0 0.0) (11 1.0 0.0 0.0)))"), "nil");
        return last();
    }
    /// The newest entity.
    static AcDbObjectId last()
    {
        ads_name name = {};
        AcDbObjectId id;
        EXPECT_EQ(acdbEntLast(name), RTNORM);
        EXPECT_EQ(acdbGetObjectId(id, name), Acad::eOk);
        return id;
    }
    static KEX::CAdsName nameOf(AcDbObjectId id)
    {
        KEX::CAdsName name;
        EXPECT_EQ(acdbGetAdsName(name.asName(), id), Acad::eOk);
        return name;
    }
    /// Writes an object's data item, null included.
    static bool set(AcDbObjectId id, const CKexDataItem* item)
    {
        const KEX::OpenObject<AcDbObject> object(id, AcDb::kForWrite);
        return object && KEX::xrSet(*object, item);
    }
    static AcDbObjectId recordOf(AcDbObject& object)
    {
        AcDbObjectId record;
        KEX::xrecId(object, record, false);
        return record;
    }
    static AcDbObjectId dataRecord(AcDbObjectId id)
    {
        return recordOf(*KEX::OpenObject<AcDbObject>(id));
    }
    static KEX::CSmartResbuf groupsOf(AcDbObjectId xrecord)
    {
        const KEX::OpenObject<AcDbXrecord> record(xrecord);
        resbuf* chain = nullptr;
        if (record) record->rbChain(&chain);
        return KEX::CSmartResbuf(chain);
    }
    static bool setGroups(AcDbObjectId xrecord, const resbuf* groups)
    {
        const KEX::OpenObject<AcDbXrecord> record(xrecord, AcDb::kForWrite);
        return record && record->setFromRbChain(*groups) == Acad::eOk;
    }

    TempFolder home_;
    orvald::Session session_;

private:
    static orvald::SessionOptions withoutModules(const std::string& home)
    {
        orvald::SessionOptions options;
        options.home = home;
        options.kernel.clear();
        options.quiet = true;
        return options;
    }
};

inline CKexDataItem sample()
{
    CKexDataItem item;
    item.put(KT("PARM\\TYPE"), CKexDataItem(KT("R")));
    item.put(KT("PARM\\LEN"), CKexDataItem(12.5));
    item.put(CKexDataKey(3), CKexDataItem(-70000));
    return item;
}

} // namespace kextest
