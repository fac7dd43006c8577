// SPDX-License-Identifier: LicenseRef-ORVALD
// The module writes the cache when the host says that a drawing is saved or closed, or that the
// module goes.
#include "drawing_support.h"

#include "kexobj/data_cache.h"

namespace {

const CKexDataKey kKey(KT("A\\B"));

class ModuleTest : public kextest::DrawingTest
{
protected:
    ModuleTest()
    {
        std::string reason;
        EXPECT_TRUE(session_.loadModule("Kex_2015_18_32_Main.arx", reason)) << reason;
    }
    AcDbObjectId changedLine()
    {
        const AcDbObjectId id = line();
        const auto item = KEX::xd_init(id, true);
        EXPECT_TRUE(item != nullptr && item->put(kKey, CKexDataItem(4)));
        return id;
    }
    static int stored(AcDbObjectId id)
    {
        const auto item = KEX::xrGet(id, kKey);
        int number = -1;
        if (item != nullptr) item->get(number);
        return number;
    }
};

TEST_F(ModuleTest, SavingWritesTheCacheBeforeTheFile)
{
    changedLine();
    unlock(); // saving is no matter of a lock that somebody happens to hold
    saveAndOpen();
    EXPECT_EQ(stored(last()), 4);
}

TEST_F(ModuleTest, AFailedSaveKeepsWhatWasWrittenInTheDrawing)
{
    const AcDbObjectId id = changedLine();
    std::string problem;
    EXPECT_FALSE(session_.save("/nowhere/at/all.dxf", problem));
    EXPECT_EQ(stored(id), 4);
}

TEST_F(ModuleTest, UnloadingWritesTheCache)
{
    const AcDbObjectId id = changedLine();
    unlock();
    std::string reason;
    EXPECT_TRUE(session_.unloadModule("Kex_2015_18_32_Main.arx", reason)) << reason;
    EXPECT_EQ(stored(id), 4);
    lock();
}

TEST_F(ModuleTest, ClosingADrawingTakesItsItemsOutOfTheCache)
{
    const AcDbObjectId first = changedLine();
    newDrawing();
    const AcDbObjectId second = changedLine();
    EXPECT_EQ(stored(first), 4); // written when its document was left
    session_.closeCurrent();
    EXPECT_EQ(KEX::xd_init(second, true), nullptr);
    EXPECT_TRUE(KEX::xd_close(false));
    EXPECT_EQ(session_.alerts(), 0);
}

} // namespace
