// SPDX-License-Identifier: LicenseRef-ORVALD
// The cache of data items: what it writes and when, and how it stays true to a drawing that others
// change.
#include "drawing_support.h"
#include "random_tree.h"

#include "kexobj/data_cache.h"
#include "kexobj/dictionaries.h"

#include <functional>

namespace {

using KEX::OpenObject;

const CKexDataKey kKey(KT("A\\B"));

class CacheTest : public kextest::DrawingTest
{
protected:
    ~CacheTest() override { KEX::xd_close(true); }

    /// Puts a number at the key, in the cache.
    static bool change(AcDbObjectId id, int number)
    {
        const auto item = KEX::xd_init(id, true);
        return item != nullptr && item->put(kKey, CKexDataItem(number));
    }
    /// The number at the key in the cache, -1 when there is none.
    static int cached(AcDbObjectId id) { return numberOf(KEX::xd_get(id, kKey)); }
    /// The same in the drawing, erased objects included.
    static int stored(AcDbObjectId id) { return numberOf(KEX::xrGet(id, kKey, true).get()); }
    static bool store(AcDbObjectId id, int number)
    {
        CKexDataItem item;
        item.put(kKey, CKexDataItem(number));
        return set(id, &item);
    }
    static void erase(AcDbObjectId id, bool erasing = true)
    {
        const OpenObject<AcDbObject> object(id, AcDb::kForWrite, true);
        ASSERT_TRUE(object);
        EXPECT_EQ(object->erase(erasing), Acad::eOk);
    }
    static AcDbObjectId extensionOf(AcDbObjectId id)
    {
        return OpenObject<AcDbObject>(id)->extensionDictionary();
    }
    /// What the user reads during a call.
    std::string printed(const std::function<void()>& call)
    {
        testing::internal::CaptureStdout();
        call();
        session_.finishOutput();
        return testing::internal::GetCapturedStdout();
    }
    std::string handleOf(AcDbObjectId id)
    {
        ACHAR text[17];
        EXPECT_TRUE(id.handle().getIntoAsciiBuffer(text, std::size(text)));
        return CKexString(text).toUtf8();
    }

private:
    static int numberOf(const CKexDataItem* item)
    {
        int number = -1;
        if (item != nullptr) item->get(number);
        return number;
    }
};

TEST_F(CacheTest, ChangesReachTheDrawingWhenTheyAreFlushed)
{
    const AcDbObjectId id = line();
    EXPECT_EQ(KEX::xd_init(id, false), nullptr);
    ASSERT_TRUE(change(id, 5));
    EXPECT_EQ(cached(id), 5);
    EXPECT_EQ(stored(id), -1);
    EXPECT_TRUE(KEX::xd_flush(id));
    EXPECT_EQ(stored(id), 5);
    EXPECT_TRUE(KEX::xd_flush(id)); // nothing to write

    EXPECT_FALSE(KEX::xd_remove(id, KT("ABSENT")));
    EXPECT_TRUE(KEX::xd_remove(id, kKey));
    EXPECT_TRUE(KEX::xd_get(id, KT("A"))->isDir());
    EXPECT_TRUE(KEX::xd_remove(id, KT("A")));
    EXPECT_EQ(KEX::xd_init(id, false), nullptr); // emptied
    EXPECT_TRUE(KEX::xd_close(false));
    EXPECT_TRUE(dataRecord(id).isNull());
}

TEST_F(CacheTest, AChangeOfAnItemThatWasFlushedIsNotSeen)
{
    const AcDbObjectId id = line();
    const auto held = KEX::xd_init(id, true);
    held->put(kKey, CKexDataItem(1));
    ASSERT_TRUE(KEX::xd_flush(id));
    held->put(kKey, CKexDataItem(2));
    EXPECT_EQ(cached(id), 1);
}

TEST_F(CacheTest, DiscardingForgetsChanges)
{
    const AcDbObjectId id = line();
    ASSERT_TRUE(store(id, 1));
    ASSERT_TRUE(change(id, 2));
    KEX::xd_close(true);
    EXPECT_EQ(cached(id), 1);
    EXPECT_EQ(stored(id), 1);
}

TEST_F(CacheTest, XrecordsHoldItemsOfTheirOwn)
{
    const AcDbObjectId id = line();
    ASSERT_TRUE(store(id, 1));
    const AcDbObjectId record = dataRecord(id);
    EXPECT_EQ(cached(record), 1);
    ASSERT_TRUE(change(record, 2));
    EXPECT_EQ(cached(id), 2); // an object and its record have one item
    EXPECT_TRUE(KEX::xd_flush(record));
    EXPECT_EQ(stored(id), 2);

    const AcDbObjectId named = KEX::dictXrecId(nullptr, KT("KEX_TEST\\R"), true);
    ASSERT_TRUE(change(named, 3));
    EXPECT_EQ(stored(named), -1);
    EXPECT_TRUE(KEX::xd_close(false));
    EXPECT_EQ(stored(named), 3);
}

/// Ways in which the item of a line changes underneath; all leave the number 7, or none (-1).
struct Underneath
{
    const char* name;
    int number;
    std::function<void(AcDbObjectId)> change;
};

class ChangedUnderneath : public CacheTest
{
protected:
    std::vector<Underneath> ways()
    {
        return {
            {"classes", 7, [](AcDbObjectId id) { store(id, 7); }},
            {"lists", 7,
             [this](AcDbObjectId id) {
                 EXPECT_NE(value("(dictremove (setq d (handent \"" + handleOf(extensionOf(id)) +
                                 "\")) \"KEX_DATA\")"
                                 "(dictadd d \"KEX_DATA\" (entmakex '((0 . \"XRECORD\") "
                                 "(100 . \"AcDbXrecord\") (300 . \"KEX_ITEM\") (90 . 1) "
                                 "(280 . 1) (2 . \"A\") (280 . 1) (2 . \"B\") (90 . 7) "
                                 "(280 . 2) (280 . 2))))"),
                           "nil");
             }},
            {"undo", 7,
             [this](AcDbObjectId id) {
                 store(id, 7);
                 value("(setvar \"CMDECHO\" 0)"); // a step of its own
                 store(id, 8);
                 value("(command \"_.U\")");
             }},
            {"record erased", -1, [this](AcDbObjectId id) { erase(dataRecord(id)); }},
            {"dictionary erased", -1, [this](AcDbObjectId id) { erase(extensionOf(id)); }},
            {"taken away", -1, [](AcDbObjectId id) { set(id, nullptr); }},
            {"entry removed", -1,
             [](AcDbObjectId id) {
                 OpenObject<AcDbDictionary>(extensionOf(id), AcDb::kForWrite)
                     ->remove(KEX::kDataXrecord);
             }},
        };
    }
};

TEST_F(ChangedUnderneath, AnItemWithoutOwnChangesIsReadAgain)
{
    for (const Underneath& way : ways()) {
        SCOPED_TRACE(way.name);
        const AcDbObjectId id = line();
        ASSERT_TRUE(store(id, 3));
        EXPECT_EQ(cached(id), 3);
        way.change(id);
        EXPECT_EQ(cached(id), way.number);
        EXPECT_EQ(stored(id), way.number);
    }
}

TEST_F(ChangedUnderneath, OwnChangesAreKeptWrittenOverTheOthersAndTold)
{
    for (const Underneath& way : ways()) {
        SCOPED_TRACE(way.name);
        const AcDbObjectId id = line();
        ASSERT_TRUE(store(id, 3));
        ASSERT_TRUE(change(id, 4));
        way.change(id);
        EXPECT_EQ(cached(id), 4);
        const std::string told = printed([] { EXPECT_TRUE(KEX::xd_close(false)); });
        EXPECT_NE(told.find(" " + handleOf(id)), std::string::npos) << told;
        EXPECT_EQ(stored(id), 4);
    }
}

TEST_F(CacheTest, AChangeOfTheObjectThatLeavesItsDataAloneIsNone)
{
    const AcDbObjectId id = line();
    ASSERT_TRUE(store(id, 3));
    ASSERT_TRUE(change(id, 4));
    value("(entmod (append (entget (entlast)) '((62 . 3))))");
    const KEX::CSmartResbuf groups(acutBuildList(90, 1, RTNONE));
    EXPECT_TRUE(KEX::xrecRbSet(*OpenObject<AcDbObject>(id, AcDb::kForWrite), KT("X"), groups));
    EXPECT_EQ(printed([] { KEX::xd_close(false); }), "");
    EXPECT_EQ(stored(id), 4);
}

TEST_F(CacheTest, WhatIsErasedWaitsForItsReturn)
{
    const AcDbObjectId id = line();
    ASSERT_TRUE(store(id, 3));
    ASSERT_TRUE(change(id, 4));
    erase(id);
    EXPECT_EQ(KEX::xd_init(id, false), nullptr);
    EXPECT_EQ(KEX::xd_init(id, true), nullptr);
    EXPECT_FALSE(KEX::xd_remove(id, kKey));
    erase(id, false);
    EXPECT_EQ(cached(id), 4);
    erase(id);
    EXPECT_EQ(printed([] { EXPECT_TRUE(KEX::xd_close(false)); }), "");
    EXPECT_EQ(stored(id), 4);
}

TEST_F(CacheTest, WhatWasNeverThereTakesItsChangesAlong)
{
    value("(setvar \"CMDECHO\" 0)");
    const AcDbObjectId id = line();
    ASSERT_TRUE(change(id, 4));
    value("(command \"_.U\")");
    EXPECT_EQ(KEX::xd_init(id, true), nullptr);
    EXPECT_TRUE(KEX::xd_close(false));
    EXPECT_EQ(session_.alerts(), 0);
    value("(command \"_.REDO\")");
    EXPECT_EQ(cached(id), -1);
}

TEST_F(CacheTest, AnItemFollowsItsRecordWhenObjectsSwapTheirIds)
{
    for (const bool stays : {false, true}) {
        const AcDbObjectId one = line(), other = line();
        ASSERT_TRUE(store(one, 1));
        ASSERT_TRUE(store(other, 2));
        ASSERT_TRUE(change(one, 11));
        EXPECT_EQ(cached(other), 2);
        EXPECT_EQ(OpenObject<AcDbObject>(one, AcDb::kForWrite)->swapIdWith(other, stays, stays),
                  Acad::eOk);
        EXPECT_EQ(cached(one), stays ? 11 : 2);
        EXPECT_EQ(cached(other), stays ? 2 : 11);
        EXPECT_EQ(printed([] { KEX::xd_close(false); }), "");
        EXPECT_EQ(stored(one), stays ? 11 : 2);
        EXPECT_EQ(stored(other), stays ? 2 : 11);
    }
}

TEST_F(CacheTest, WhatCannotBeWrittenStaysAndIsTold)
{
    const AcDbObjectId id = line(), good = line();
    ASSERT_TRUE(store(id, 3));
    ASSERT_TRUE(change(id, 4));
    ASSERT_TRUE(change(good, 5));
    {
        const OpenObject<AcDbXrecord> reader(dataRecord(id));
        EXPECT_FALSE(KEX::xd_flush(id));
        EXPECT_EQ(session_.alerts(), 0);
        EXPECT_FALSE(KEX::xd_close(false));
        EXPECT_EQ(session_.alerts(), 1);
    }
    EXPECT_EQ(stored(good), 5);
    EXPECT_EQ(cached(id), 4);
    EXPECT_TRUE(KEX::xd_close(false));
    EXPECT_EQ(stored(id), 4);

    // A later version has come underneath.
    ASSERT_TRUE(change(id, 5));
    const KEX::CSmartResbuf later(acutBuildList(300, KT("KEX_ITEM"), 90, 2, RTNONE));
    ASSERT_TRUE(setGroups(dataRecord(id), later));
    EXPECT_FALSE(KEX::xd_close(false));
    EXPECT_EQ(KEX::rbLength(groupsOf(dataRecord(id))), 2);
    KEX::xd_close(true);
    EXPECT_EQ(KEX::xd_init(id, true), nullptr); // told at once
}

TEST_F(CacheTest, ObjectsThatCannotBeWrittenAreNotGivenForChanging)
{
    const AcDbObjectId id = line();
    ASSERT_TRUE(store(id, 3));
    value("(entmake '((0 . \"LAYER\") (100 . \"AcDbSymbolTableRecord\") (100 . "
          "\"AcDbLayerTableRecord\") (2 . \"L\") (70 . 4)))");
    value("(entmod (subst '(8 . \"L\") (assoc 8 (entget (entlast))) (entget (entlast))))");
    EXPECT_EQ(KEX::xd_init(id, true), nullptr);
    EXPECT_EQ(cached(id), 3);
    EXPECT_EQ(KEX::xd_init(id, true), nullptr); // nor when it is in the cache
    EXPECT_FALSE(KEX::xd_remove(id, kKey));
}

TEST_F(CacheTest, AnotherDocumentBecomingCurrentWritesAndAClosedDrawingIsForgotten)
{
    const AcDbObjectId id = line();
    ASSERT_TRUE(change(id, 4));
    unlock(); // the cache locks the document itself
    newDrawing();
    EXPECT_EQ(stored(id), 4);

    const AcDbObjectId gone = line();
    ASSERT_TRUE(store(gone, 4));
    ASSERT_TRUE(change(gone, 5));
    AcDbXrecord* reader = nullptr; // left open: the host closes it
    ASSERT_EQ(acdbOpenObject(reader, dataRecord(gone)), Acad::eOk);
    session_.closeCurrent(); // cannot write it, which is told, once
    EXPECT_EQ(session_.alerts(), 1);
    EXPECT_EQ(KEX::xd_init(gone, true), nullptr);
    EXPECT_TRUE(KEX::xd_close(false));
    lock();
}

TEST_F(CacheTest, WithoutOwnChangesTheCacheAlwaysSaysWhatTheDrawingSays)
{
    kextest::Random random(17);
    std::vector<AcDbObjectId> ids;
    for (int i = 0; i < 6; ++i) ids.push_back(line());
    const auto any = [&] { return ids[static_cast<std::size_t>(random.below(6))]; };
    for (int step = 0; step < 3000; ++step) {
        const AcDbObjectId id = any(), other = any();
        switch (random.below(9)) {
        case 0: store(id, step); break;
        case 1: set(id, nullptr); break;
        case 2:
            change(id, step);
            EXPECT_TRUE(KEX::xd_flush(id));
            break;
        case 3: {
            const OpenObject<AcDbObject> object(id, AcDb::kForWrite, true);
            if (object) object->erase(!object->isErased()); // its making may be undone
            break;
        }
        case 4: printed([this] { value("(command \"_.U\")"); }); break;
        case 5:
            printed([this] { value("(command \"_.REDO\")"); });
            break; // says when there is nothing
        case 6: {
            const OpenObject<AcDbObject> object(id, AcDb::kForWrite);
            if (object && id != other)
                object->swapIdWith(other, random.below(2) == 0, random.below(2) == 0);
            break;
        }
        case 7:
            if (!id.isErased() && !dataRecord(id).isNull()) erase(dataRecord(id));
            break;
        default: value("(setvar \"CMDECHO\" 0)"); // the next changes are a step of their own
        }
        for (AcDbObjectId& one : ids) {
            ASSERT_EQ(cached(one), one.isErased() ? -1 : stored(one)) << "step " << step;
            const OpenObject<AcDbObject> object(one, AcDb::kForRead, true);
            if (object.status() == Acad::ePermanentlyErased) one = line();
        }
    }
}

} // namespace
