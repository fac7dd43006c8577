// SPDX-License-Identifier: LicenseRef-ORVALD
// Data items and groups of objects: what a write makes, what it leaves alone, and what it refuses.
#include "drawing_support.h"

#include "kexdata/data_dir.h"

namespace {

using KEX::OpenObject;
using kextest::sample;

class XrecordTest : public kextest::DrawingTest
{
protected:
    static AcDbObjectId extensionOf(AcDbObjectId id)
    {
        const AcDbObjectId dictionary = OpenObject<AcDbObject>(id)->extensionDictionary();
        return dictionary.isErased() ? AcDbObjectId() : dictionary;
    }
    static std::unique_ptr<CKexDataItem> owned(CKexDataItem item)
    {
        return std::make_unique<CKexDataItem>(std::move(item));
    }
    /// A named record of an object.
    static bool setNamed(AcDbObjectId id, const ACHAR* name, resbuf* groups)
    {
        const KEX::CSmartResbuf chain(groups);
        return KEX::xrecRbSet(*OpenObject<AcDbObject>(id, AcDb::kForWrite), name, chain);
    }
};

TEST_F(XrecordTest, TakingTheItemAwayTakesWhatWasMadeForItAndNothingElse)
{
    const AcDbObjectId id = line();
    const CKexDataItem item = sample();
    ASSERT_TRUE(set(id, &item));
    EXPECT_FALSE(extensionOf(id).isNull());
    ASSERT_TRUE(set(id, nullptr));
    EXPECT_EQ(KEX::xrGet(id), nullptr);
    EXPECT_TRUE(extensionOf(id).isNull());
    EXPECT_TRUE(set(id, nullptr)); // nothing there: done

    ASSERT_TRUE(setNamed(id, KT("OTHERS"), acutBuildList(90, 7, RTNONE)));
    ASSERT_TRUE(set(id, &item));
    ASSERT_TRUE(set(id, nullptr));
    EXPECT_EQ(KEX::xrecRbGet(*OpenObject<AcDbObject>(id), KT("others"))->resval.rlong, 7);
}

TEST_F(XrecordTest, AnErasedExtensionDictionaryIsReplaced)
{
    const AcDbObjectId id = line();
    const CKexDataItem item = sample();
    ASSERT_TRUE(set(id, &item));
    OpenObject<AcDbObject>(extensionOf(id), AcDb::kForWrite)->erase();
    EXPECT_EQ(KEX::xrGet(id), nullptr);
    ASSERT_TRUE(set(id, &item));
    EXPECT_EQ(*KEX::xrGet(id), item);
}

TEST_F(XrecordTest, AnEntityLooksAsBeforeAfterAChangeOfDataOnly)
{
    const OpenObject<AcDbEntity> entity(line(), AcDb::kForWrite);
    const CKexDataItem item = sample();
    ASSERT_TRUE(KEX::xrSet(*entity, &item));
    EXPECT_FALSE(entity->isModifiedGraphics());
    entity->recordGraphicsModified();
    ASSERT_TRUE(KEX::xrSet(*entity, &item));
    EXPECT_TRUE(entity->isModifiedGraphics()); // it was changed before
}

TEST_F(XrecordTest, AnErasedObjectKeepsItsItemForWhoHasItOpen)
{
    const AcDbObjectId id = line();
    CKexDataItem item = sample();
    ASSERT_TRUE(set(id, &item));
    const OpenObject<AcDbObject> object(id, AcDb::kForWrite);
    object->erase();
    EXPECT_EQ(*KEX::xrGet(*object), item);
    item.put(KT("NEW"), CKexDataItem(1));
    EXPECT_TRUE(KEX::xrSet(*object, &item));
    EXPECT_EQ(*KEX::xrGet(*object), item);
}

TEST_F(XrecordTest, ErasedObjectsAreReadOnlyWhenAsked)
{
    const AcDbObjectId id = line();
    const CKexDataItem item = sample();
    ASSERT_TRUE(set(id, &item));
    OpenObject<AcDbObject>(id, AcDb::kForWrite)->erase();
    EXPECT_EQ(KEX::xrGet(id), nullptr);
    EXPECT_EQ(*KEX::xrGet(id, {}, true), item);
}

TEST_F(XrecordTest, ARefusedWriteChangesNothing)
{
    const AcDbObjectId id = line();
    newDrawing();
    const CKexDataItem elsewhere(nameOf(line())), item = sample();
    EXPECT_FALSE(set(id, &elsewhere)); // a name of another drawing
    EXPECT_TRUE(extensionOf(id).isNull());
    ASSERT_TRUE(set(id, &item));
    EXPECT_FALSE(set(id, &elsewhere));
    {
        const OpenObject<AcDbObject> object(id, AcDb::kForWrite);
        const OpenObject<AcDbXrecord> reader(recordOf(*object));
        ASSERT_TRUE(reader);
        EXPECT_FALSE(KEX::xrSet(*object, &elsewhere)); // somebody reads the record
        EXPECT_FALSE(KEX::xrSet(*object, nullptr));
    }
    EXPECT_FALSE(KEX::xrSet(*OpenObject<AcDbObject>(id), nullptr)); // open for read only
    EXPECT_EQ(*KEX::xrGet(id), item);
}

TEST_F(XrecordTest, AnItemOfALaterVersionIsNeverWrittenOver)
{
    const AcDbObjectId id = line();
    const CKexDataItem item = sample();
    ASSERT_TRUE(
        setNamed(id, KEX::kDataXrecord, acutBuildList(300, KT("KEX_ITEM"), 90, 2, 290, 1, RTNONE)));
    EXPECT_EQ(KEX::xrGet(id), nullptr);
    EXPECT_FALSE(set(id, &item));
    EXPECT_FALSE(set(id, nullptr));
    EXPECT_TRUE(KEX::xrPut(dataRecord(id), {}, owned(item)).isNull());
    EXPECT_TRUE(KEX::xrPut(dataRecord(id), KT("K"), nullptr).isNull());
    EXPECT_EQ(KEX::rbLength(groupsOf(dataRecord(id))), 3);
}

TEST_F(XrecordTest, OthersContentIsWrittenOverOnlyUnderTheKernelsName)
{
    const AcDbObjectId id = line();
    const CKexDataItem item = sample();
    ASSERT_TRUE(setNamed(id, KT("OTHERS"), acutBuildList(90, 7, RTNONE)));
    ASSERT_TRUE(setNamed(id, KEX::kDataXrecord, acutBuildList(90, 7, RTNONE)));
    AcDbObjectId others;
    OpenObject<AcDbDictionary>(extensionOf(id))->getAt(KT("OTHERS"), others);
    EXPECT_TRUE(KEX::xrPut(others, {}, owned(item)).isNull());
    EXPECT_FALSE(set(others, &item));
    EXPECT_FALSE(set(others, nullptr));
    EXPECT_EQ(KEX::rbLength(groupsOf(others)), 1);
    EXPECT_EQ(KEX::xrPut(dataRecord(id), {}, owned(item)), dataRecord(id));
    EXPECT_EQ(*KEX::xrGet(id), item);
}

TEST_F(XrecordTest, PutReachesOneKeyAndAnEmptiedItemGoesWithItsRecord)
{
    const AcDbObjectId id = line();
    AcDbObjectId record;
    ASSERT_TRUE(KEX::xrecId(*OpenObject<AcDbObject>(id, AcDb::kForWrite), record, true));
    const auto put = [&](const CKexDataKey& key, std::unique_ptr<CKexDataItem> item, bool create) {
        return !KEX::xrPut(record, key, std::move(item), create).isNull();
    };
    EXPECT_FALSE(put(KT("A"), owned(CKexDataItem(1)), false));
    EXPECT_TRUE(put(KT("A\\B"), owned(CKexDataItem(1)), true));
    EXPECT_FALSE(put(KT("X\\Y"), owned(CKexDataItem(1)), false));   // no directory X
    EXPECT_FALSE(put(KT("A\\B\\C"), owned(CKexDataItem(1)), true)); // B is a value
    EXPECT_TRUE(put(KT("A\\C"), owned(CKexDataItem(2)), false));
    EXPECT_TRUE(put(KT("ABSENT"), nullptr, true));
    EXPECT_EQ(KEX::xrGet(record)->getKeyList().length(), 1);
    EXPECT_TRUE(put(KT("A\\B"), nullptr, true));
    EXPECT_TRUE(put(KT("A\\C"), nullptr, true));
    EXPECT_TRUE(KEX::xrGet(id, KT("A"))->getDir()->isEmpty()); // an empty directory is kept
    EXPECT_TRUE(put(KT("A"), nullptr, true));
    EXPECT_TRUE(record.isErased());
    EXPECT_TRUE(extensionOf(id).isNull());
}

} // namespace
