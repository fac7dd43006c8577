// SPDX-License-Identifier: LicenseRef-ORVALD
// Lists of hard pointers and the document lock, as other modules call them.
#include "dbbridge/doc_lock.h"
#include "dbbridge/hard_pointers.h"
#include "drawing_support.h"

namespace {

using KEX::OpenObject;
using Ids = AcArray<AcDbObjectId>;

constexpr const ACHAR* kName = KT("MEMBERS");

class HardPointerTest : public kextest::DrawingTest
{
protected:
    static Ids idsOf(std::initializer_list<AcDbObjectId> ids)
    {
        Ids array;
        for (const AcDbObjectId id : ids) array.append(id);
        return array;
    }
    static bool erase(AcDbObjectId id, bool erasing = true)
    {
        return OpenObject<AcDbObject>(id, AcDb::kForWrite, true)->erase(erasing) == Acad::eOk;
    }
    bool add(AcDbObjectId target) { return KEX::addHardPointer(owner().get(), kName, target); }
    template <class Targets>
    bool set(const Targets& targets)
    {
        return KEX::setHardPointer(owner().get(), kName, targets);
    }
    bool remove(AcDbObjectId target)
    {
        return KEX::removeHardPointer(owner().get(), kName, target);
    }
    OpenObject<AcDbObject> owner() const { return OpenObject<AcDbObject>(owner_, AcDb::kForWrite); }
    /// The living targets.
    std::vector<AcDbObjectId> targets() const
    {
        Ids found = idsOf({owner_}); // is emptied first
        const bool any = KEX::getHardPointer(OpenObject<AcDbObject>(owner_).get(), kName, found);
        EXPECT_EQ(any, !found.isEmpty());
        return {found.begin(), found.end()};
    }
    int entries() const
    {
        return KEX::rbLength(KEX::xrecRbGet(*OpenObject<AcDbObject>(owner_), kName));
    }

    const AcDbObjectId owner_ = line(), a_ = line(), b_ = line(), c_ = line();
    using List = std::vector<AcDbObjectId>;
};

TEST_F(HardPointerTest, TargetsStandOnceInTheOrderOfAdding)
{
    EXPECT_TRUE(targets().empty());
    for (const AcDbObjectId id : {b_, a_, b_, c_}) EXPECT_TRUE(add(id));
    EXPECT_EQ(targets(), (List{b_, a_, c_}));
    EXPECT_TRUE(remove(a_));
    EXPECT_TRUE(remove(a_)); // not there any more
    EXPECT_EQ(targets(), (List{b_, c_}));
    EXPECT_TRUE(remove(b_)); // the first one
    EXPECT_EQ(targets(), (List{c_}));
    EXPECT_TRUE(set(idsOf({a_, AcDbObjectId(), b_, a_})));
    EXPECT_EQ(targets(), (List{a_, b_}));
    EXPECT_TRUE(set(c_));
    EXPECT_EQ(targets(), (List{c_}));
    EXPECT_TRUE(set(Ids()));
    EXPECT_EQ(entries(), 0);
}

TEST_F(HardPointerTest, ErasedTargetsStayStoredUnseen)
{
    ASSERT_TRUE(set(idsOf({a_, b_})));
    erase(a_);
    EXPECT_EQ(targets(), List{b_});
    erase(b_);
    EXPECT_TRUE(targets().empty());
    EXPECT_EQ(entries(), 2);
    EXPECT_FALSE(add(a_));
    EXPECT_TRUE(set(idsOf({a_, c_}))); // what cannot be opened is skipped
    EXPECT_EQ(targets(), List{c_});
    EXPECT_TRUE(set(a_)); // the single one is not looked at
    EXPECT_EQ(entries(), 1);
    erase(a_, false);
    EXPECT_EQ(targets(), List{a_});
}

TEST_F(HardPointerTest, WhatCannotBeIsRefusedAndChangesNothing)
{
    ASSERT_TRUE(add(a_));
    EXPECT_FALSE(add(AcDbObjectId()));
    EXPECT_FALSE(set(AcDbObjectId()));
    EXPECT_FALSE(remove(AcDbObjectId()));
    Ids found;
    for (const ACHAR* name :
         {static_cast<const ACHAR*>(nullptr), KT(""), KT("KEX_DATA"), KT("kex_data")}) {
        EXPECT_FALSE(KEX::addHardPointer(owner().get(), name, a_));
        EXPECT_FALSE(KEX::setHardPointer(owner().get(), name, a_));
        EXPECT_FALSE(KEX::setHardPointer(owner().get(), name, Ids()));
        EXPECT_FALSE(KEX::removeHardPointer(owner().get(), name, a_));
        EXPECT_FALSE(KEX::getHardPointer(owner().get(), name, found));
    }
    EXPECT_FALSE(KEX::addHardPointer(nullptr, kName, a_));
    EXPECT_FALSE(KEX::getHardPointer(nullptr, kName, found));
    // An owner that is open for read only.
    EXPECT_FALSE(KEX::addHardPointer(OpenObject<AcDbObject>(owner_).get(), kName, b_));
    EXPECT_EQ(targets(), List{a_});
}

TEST_F(HardPointerTest, TargetsOfAnotherDrawingAreRefused)
{
    ASSERT_TRUE(add(a_));
    unlock();
    newDrawing();
    const AcDbObjectId other = line();
    EXPECT_FALSE(
        KEX::addHardPointer(OpenObject<AcDbObject>(other, AcDb::kForWrite).get(), kName, a_));
    EXPECT_FALSE(
        KEX::setHardPointer(OpenObject<AcDbObject>(other, AcDb::kForWrite).get(), kName, a_));
    Ids found;
    EXPECT_FALSE(KEX::getHardPointer(OpenObject<AcDbObject>(other).get(), kName, found));
}

TEST_F(HardPointerTest, ObjectsMayPointAtEachOtherAndAtThemselves)
{
    EXPECT_TRUE(add(owner_));
    EXPECT_TRUE(add(a_));
    EXPECT_TRUE(
        KEX::addHardPointer(OpenObject<AcDbObject>(a_, AcDb::kForWrite).get(), kName, owner_));
    EXPECT_EQ(targets(), (List{owner_, a_}));
}

TEST_F(HardPointerTest, GroupsOfOthersInTheRecordAreKept)
{
    const KEX::CSmartResbuf mixed(
        acutBuildList(1, KT("theirs"), 340, nameOf(a_).asName(), 90, 7, RTNONE));
    ASSERT_TRUE(KEX::xrecRbSet(*owner(), kName, mixed));
    EXPECT_TRUE(add(b_));
    EXPECT_EQ(targets(), (List{a_, b_}));
    EXPECT_TRUE(remove(a_));
    EXPECT_EQ(targets(), List{b_});
    EXPECT_EQ(entries(), 3);
}

TEST_F(HardPointerTest, TheDocumentIsLockedForTheScope)
{
    unlock();
    const auto mayWrite = [this] {
        return static_cast<bool>(OpenObject<AcDbObject>(owner_, AcDb::kForWrite));
    };
    EXPECT_FALSE(mayWrite());
    {
        const KEX::CDocLock lock;
        EXPECT_EQ(lock.status(), Acad::eOk);
        EXPECT_TRUE(mayWrite());
        {
            const KEX::CDocLock inner(KT("KEX_TEST"));
            EXPECT_EQ(inner.status(), Acad::eOk);
        }
        EXPECT_TRUE(mayWrite());
    }
    EXPECT_FALSE(mayWrite());
    session_.closeCurrent();
    EXPECT_EQ(KEX::CDocLock().status(), Acad::eNoDocument);
}

} // namespace
