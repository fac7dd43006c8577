// SPDX-License-Identifier: LicenseRef-ORVALD
// Dictionaries and xrecords by key.
#include "drawing_support.h"

#include "kexobj/dictionaries.h"

namespace {

using KEX::OpenObject;

class DictionaryTest : public kextest::DrawingTest
{
};

TEST_F(DictionaryTest, KeysAreTextsOrNumbersAndPathsComeBack)
{
    CKexDataKey key(KT("KEX_TEST\\Inner"));
    key.append(7);
    EXPECT_TRUE(KEX::dictId(nullptr, key, false).isNull());
    const AcDbObjectId id = KEX::dictId(nullptr, key, true);
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(KEX::dictId(&database(), KT("kex_test\\INNER\\7"), true), id);
    const AcDbObjectId record = KEX::dictXrecId(nullptr, KT("KEX_TEST\\Inner\\7\\R"), true);
    ASSERT_EQ(record.objectClass(), AcDbXrecord::desc());
    EXPECT_EQ(KEX::obj_dict_path(record),
              (CKexArrayTempl<CKexString>{KT("KEX_TEST"), KT("Inner"), KT("7"), KT("R")}));
    EXPECT_EQ(KEX::objDictName(record), KT("R"));
    EXPECT_EQ(KEX::dictId(nullptr, {}, false), database().namedObjectsDictionaryId());
    EXPECT_TRUE(KEX::obj_dict_path(database().namedObjectsDictionaryId()).isEmpty());

    const auto entries = KEX::dictDir(KEX::dictId(nullptr, KT("KEX_TEST\\Inner"), false));
    ASSERT_EQ(entries.length(), 1);
    EXPECT_EQ(entries[0].name, KT("7"));
    EXPECT_EQ(entries[0].id, id);
    EXPECT_TRUE(KEX::dictDir(record).isEmpty());
}

TEST_F(DictionaryTest, WhatCannotBeMadeWholeIsNotMade)
{
    for (const ACHAR* name : {KT("A<B"), KT("")}) {
        CKexDataKey key(KT("KEX_TEST\\Inner"));
        key.append(KEX::DataKeyView(name));
        EXPECT_TRUE(KEX::dictId(nullptr, key, true).isNull());
        EXPECT_TRUE(KEX::dictXrecId(nullptr, key, true).isNull());
        EXPECT_TRUE(KEX::dictId(nullptr, KT("KEX_TEST"), false).isNull());
    }
    ASSERT_FALSE(KEX::dictXrecId(nullptr, KT("KEX_TEST\\R"), true).isNull());
    EXPECT_TRUE(KEX::dictId(nullptr, KT("KEX_TEST\\R"), true).isNull()); // an xrecord has the name
    EXPECT_TRUE(KEX::dictXrecId(nullptr, KT("KEX_TEST\\R\\S"), true).isNull());
    EXPECT_TRUE(KEX::dictXrecId(nullptr, KT("KEX_TEST"), true).isNull());
    EXPECT_TRUE(KEX::dictXrecId(nullptr, {}, true).isNull());
}

TEST_F(DictionaryTest, ItemsStandInRecordsByKeyAndKeyWithin)
{
    const auto one = [] { return std::make_unique<CKexDataItem>(1); };
    EXPECT_TRUE(KEX::dxrPut(KT("KEX_TEST\\R"), KT("A\\B"), nullptr).isNull());
    EXPECT_TRUE(KEX::dxrPut(KT("KEX_TEST\\R"), KT("A\\B"), one(), false).isNull());
    EXPECT_TRUE(KEX::dictId(nullptr, KT("KEX_TEST"), false).isNull());
    const AcDbObjectId record = KEX::dxrPut(KT("KEX_TEST\\R"), KT("A\\B"), one());
    ASSERT_FALSE(record.isNull());
    EXPECT_EQ(*KEX::dxrGet(KT("KEX_TEST\\R"), KT("A\\B")), CKexDataItem(1));
    EXPECT_EQ(KEX::dxrGet(KT("KEX_TEST\\R"), KT("A\\C")), nullptr);
    EXPECT_EQ(KEX::dxrGet(KT("KEX_TEST\\ABSENT")), nullptr);
    EXPECT_EQ(KEX::dxrPut(KT("KEX_TEST\\R"), KT("A"), nullptr), record);
    EXPECT_TRUE(record.isErased());
}

TEST_F(DictionaryTest, ARefusedItemLeavesNoNewRecordBehind)
{
    const CKexDataItem elsewhere(nameOf(line())); // a name of another drawing
    newDrawing();
    const auto put = [&] {
        return KEX::dxrPut(KT("KEX_TEST\\R"), KT("A"), std::make_unique<CKexDataItem>(elsewhere));
    };
    EXPECT_TRUE(put().isNull());
    EXPECT_TRUE(KEX::dictXrecId(nullptr, KT("KEX_TEST\\R"), false).isNull());
    const auto one = std::make_unique<CKexDataItem>(1);
    ASSERT_FALSE(KEX::dxrPut(KT("KEX_TEST\\R"), {}, std::make_unique<CKexDataItem>(1)).isNull());
    EXPECT_TRUE(put().isNull());
    EXPECT_EQ(*KEX::dxrGet(KT("KEX_TEST\\R")), *one);
}

TEST_F(DictionaryTest, NamesAreToldOnlyBelowTheRootUnlessAnyOwnerCounts)
{
    const AcDbObjectId id = line();
    const CKexDataItem item = kextest::sample();
    ASSERT_TRUE(set(id, &item));
    EXPECT_EQ(KEX::objDictName(dataRecord(id)), KT(""));
    EXPECT_EQ(KEX::objDictName(dataRecord(id), true), KEX::kDataXrecord);
    EXPECT_TRUE(KEX::obj_dict_path(dataRecord(id)).isEmpty());
    EXPECT_EQ(KEX::objDictName(id, true), KT(""));
    EXPECT_EQ(KEX::objDictName({}, true), KT(""));
}

} // namespace
