// SPDX-License-Identifier: LicenseRef-ORVALD
// Objects through classes: who may open what, erasing, dictionaries, xrecords, reactors, swapping.
#include "../host_dxf/dxf_support.h"
#include "object_support.h"
#include "open_objects.h"

#include <limits>

namespace {

using namespace orvald;
using drawing::Chain;
using drawing::TableId;

std::string textOf(ACHAR* units)
{
    std::string text = units == nullptr ? "(null)" : drawing::utf8(units);
    acutDelString(units);
    return text;
}

class Objects : public testing::Test
{
protected:
    Objects() : quiet_(host_), sheet_(host_) {}

    AcDbObjectId line(const std::string& layer = "0")
    {
        return sheet_.make("0 LINE|8 " + layer + "|10 0 0 0|11 1 0 0");
    }
    static Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode, bool erased = false)
    {
        AcDbObject* object = nullptr;
        const Acad::ErrorStatus status = acdbOpenAcDbObject(object, id, mode, erased);
        EXPECT_EQ(object == nullptr, status != Acad::eOk);
        if (object != nullptr) object->close();
        return status;
    }

    Host host_;
    struct Quiet
    {
        explicit Quiet(Host& host) { host.console().setLevel(Console::Level::quiet); }
    } quiet_;
    Sheet sheet_;
};

// -- opening

TEST_F(Objects, OpeningsGetInEachOthersWayAsTheRulesSay)
{
    using enum AcDb::OpenMode;
    using Modes = std::vector<AcDb::OpenMode>;
    struct Case
    {
        Modes before;
        Acad::ErrorStatus read, write, notify, upgrade;
    };
    const Case cases[] = {{{}, Acad::eOk, Acad::eOk, Acad::eOk, Acad::eOk},
                          {{kForRead}, Acad::eOk, Acad::eWasOpenForRead, Acad::eOk, Acad::eOk},
                          {{kForRead, kForRead},
                           Acad::eOk,
                           Acad::eWasOpenForRead,
                           Acad::eOk,
                           Acad::eHadMultipleReaders},
                          {Modes(256, kForRead), Acad::eAtMaxReaders, Acad::eWasOpenForRead,
                           Acad::eOk, Acad::eHadMultipleReaders},
                          {{kForWrite},
                           Acad::eWasOpenForWrite,
                           Acad::eWasOpenForWrite,
                           Acad::eOk,
                           Acad::eWasOpenForWrite},
                          {{kForNotify},
                           Acad::eWasNotifying,
                           Acad::eWasNotifying,
                           Acad::eWasNotifying,
                           Acad::eWasNotifying},
                          {{kForRead, kForNotify},
                           Acad::eWasNotifying,
                           Acad::eWasNotifying,
                           Acad::eWasNotifying,
                           Acad::eWasNotifying},
                          {{kForWrite, kForNotify},
                           Acad::eWasNotifying,
                           Acad::eWasNotifying,
                           Acad::eWasNotifying,
                           Acad::eWasOpenForWrite}};
    const AcDbObjectId id = line();
    int number = 0;
    for (const Case& one : cases) {
        SCOPED_TRACE(number++);
        AcDbObject* object = nullptr;
        for (const AcDb::OpenMode mode : one.before) {
            AcDbObject* same = nullptr;
            ASSERT_EQ(acdbOpenAcDbObject(same, id, mode), Acad::eOk);
            EXPECT_TRUE(object == nullptr || object == same); // one pointer for all
            object = same;
        }
        EXPECT_EQ(open(id, kForRead), one.read);
        EXPECT_EQ(open(id, kForWrite), one.write);
        EXPECT_EQ(open(id, kForNotify), one.notify);
        if (object == nullptr) continue;
        EXPECT_EQ(object->upgradeOpen(), one.upgrade);
        if (one.upgrade == Acad::eOk) { // and back to a reader
            EXPECT_TRUE(object->isWriteEnabled());
            EXPECT_EQ(object->downgradeOpen(), Acad::eOk);
            EXPECT_FALSE(object->isWriteEnabled());
        }
        for (std::size_t i = 0; i < one.before.size(); ++i) EXPECT_EQ(object->close(), Acad::eOk);
        EXPECT_EQ(open(id, kForWrite), Acad::eOk); // all is given back
    }
    EXPECT_EQ(open(id, static_cast<AcDb::OpenMode>(3)), Acad::eInvalidInput);
}

TEST_F(Objects, WhatCannotBeOpenedSaysWhy)
{
    const AcDbObjectId gone = line(), undone = line(), onLocked = line("Zu");
    const AcDbObjectId serial(gone.asOldId() & ~std::uint64_t{0xFFFFFFFF});
    EXPECT_EQ(open({}, AcDb::kForRead), Acad::eNullObjectId);
    EXPECT_EQ(open(AcDbObjectId(serial.asOldId() | 0xFFFFFF), AcDb::kForRead),
              Acad::eUnknownHandle);
    EXPECT_EQ(open(AcDbObjectId(~std::uint64_t{0}), AcDb::kForRead), Acad::eNoDatabase);

    sheet_.drawing().setErased(sheet_.indexOf(gone), true);
    EXPECT_EQ(open(gone, AcDb::kForRead), Acad::eWasErased);
    EXPECT_EQ(open(gone, AcDb::kForWrite, true), Acad::eOk);

    sheet_.drawing().journal().step();
    const AcDbObjectId never = line();
    sheet_.drawing().journal().undo(1);
    EXPECT_EQ(open(never, AcDb::kForRead, true), Acad::ePermanentlyErased);

    const drawing::Index layer = sheet_.drawing().findRecord(TableId::layer, "Zu");
    sheet_.drawing().edit(layer).tags.erase(sheet_.drawing().at(layer).tags.find(70));
    sheet_.drawing().edit(layer).tags.addInteger(70, 4);
    EXPECT_EQ(open(onLocked, AcDb::kForWrite), Acad::eOnLockedLayer);
    {
        Opened<AcDbEntity> reader(onLocked);
        EXPECT_EQ(reader->upgradeOpen(), Acad::eOnLockedLayer);
    }
    EXPECT_EQ(Opened<AcDbDictionary>(undone).status, Acad::eNotThatKindOfClass);
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(acdbOpenAcDbEntity(entity, sheet_.root(), AcDb::kForRead), Acad::eNotThatKindOfClass);
    EXPECT_EQ(open(sheet_.root(), AcDb::kForWrite), Acad::eOk); // nothing stayed open

    // Without the lock of its document nothing is changed.
    Document& other = host_.newDocument();
    const AcDbObjectId root = other.database()->namedObjectsDictionaryId();
    EXPECT_EQ(open(root, AcDb::kForWrite), Acad::eLockViolation);
    {
        Opened<AcDbDictionary> reader(root);
        EXPECT_EQ(reader->upgradeOpen(), Acad::eLockViolation);
        EXPECT_EQ(reader->createExtensionDictionary(), Acad::eNotOpenForWrite);
    }
    other.lock(AcAp::kRead);
    EXPECT_EQ(open(root, AcDb::kForWrite), Acad::eLockViolation);
    other.lock(AcAp::kAutoWrite);
    EXPECT_EQ(open(root, AcDb::kForWrite), Acad::eOk);
    host_.closeDocument(other);
    EXPECT_EQ(open(root, AcDb::kForRead), Acad::eNoDatabase);
}

TEST_F(Objects, WhatACallLeavesOpenIsClosedBehindIt)
{
    const AcDbObjectId id = line();
    Opened<AcDbObject> outer(id);
    OpenObjects& objects = host_.openObjects();
    const int depth = objects.enterCall();
    AcDbObject* left = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(left, sheet_.root(), AcDb::kForWrite), Acad::eOk);
    ASSERT_EQ(acdbOpenAcDbObject(left, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(objects.leaveCall(depth).size(), 2u);
    EXPECT_EQ(open(sheet_.root(), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(open(id, AcDb::kForWrite), Acad::eWasOpenForRead); // the outer one is still there
    // What is open cannot be made another object by taking changes back.
    EXPECT_FALSE(sheet_.document.world().evalText(u"(command \"_.U\")").ok());
    EXPECT_FALSE(id.isErased());
}

TEST_F(Objects, ADocumentThatCouldNotBeSavedStaysChangedAndKeepsItsFile)
{
    dxf::TemporaryFolder folder;
    const std::string path = folder.file("plan.dxf");
    ASSERT_EQ(sheet_.document.save(path), "");
    const std::string before = dxf::readFile(path);
    line();
    const std::string name = sheet_.document.path();
    std::filesystem::create_directory(dxf::temporaryName(path)); // in the way of the new file
    EXPECT_NE(sheet_.document.save(path), "");
    EXPECT_NE(sheet_.document.save(folder.file("no/such.dxf")), "");
    EXPECT_TRUE(sheet_.document.isModified());
    EXPECT_EQ(sheet_.document.path(), name);
    EXPECT_TRUE(dxf::readFile(path) == before);
    std::filesystem::remove(dxf::temporaryName(path));
    EXPECT_EQ(sheet_.document.save(path), "");
    EXPECT_FALSE(sheet_.document.isModified());
    EXPECT_TRUE(dxf::readFile(path) == sheet_.text());
}

// -- erasing

TEST_F(Objects, ErasingLeavesTheDictionaryAndDoesNotComeBackByItself)
{
    const AcDbObjectId set = sheet_.dictionary(sheet_.root(), u"SET");
    const AcDbObjectId entry = sheet_.xrecord(set, u"entry");
    {
        Opened<AcDbObject> object(entry, AcDb::kForWrite);
        EXPECT_EQ(object->erase(false), Acad::eWasNotErased);
        EXPECT_EQ(object->erase(), Acad::eOk);
        EXPECT_EQ(object->erase(), Acad::eWasErased);
        EXPECT_FALSE(Opened<AcDbDictionary>(set)->has(u"entry"));
        EXPECT_EQ(object->erase(false), Acad::eOk);
        EXPECT_EQ(object->ownerId(), AcDbObjectId());
        Opened<AcDbDictionary> owner(set, AcDb::kForWrite);
        EXPECT_EQ(owner->numEntries(), 0u);
        AcDbObjectId id;
        EXPECT_EQ(owner->setAt(u"again", object.get(), id), Acad::eOk);
        EXPECT_EQ(id, entry);
    }
    // The owner goes: what it owns is not marked, but out of reach.
    Opened<AcDbObject>(set, AcDb::kForWrite)->erase();
    EXPECT_FALSE(entry.isErased());
    EXPECT_TRUE(entry.isEffectivelyErased());
    EXPECT_EQ(open(entry, AcDb::kForRead), Acad::eOk);
    Opened<AcDbObject>(set, AcDb::kForWrite, true)->erase(false);
    EXPECT_FALSE(entry.isEffectivelyErased());

    sheet_.make("0 POLYLINE|10 0 0 0");
    sheet_.make("0 VERTEX|10 1 0 0");
    const AcDbObjectId polyline = sheet_.make("0 SEQEND");
    const AcDbObjectId vertex = sheet_.id(sheet_.drawing().firstChild(sheet_.indexOf(polyline)));
    for (const AcDbObjectId id :
         {sheet_.root(), sheet_.model(), vertex, sheet_.tableRecord(TableId::layer, "0")})
        EXPECT_EQ(Opened<AcDbObject>(id, AcDb::kForWrite)->erase(), Acad::eCannotBeErasedByCaller);
    EXPECT_EQ(Opened<AcDbObject>(polyline)->erase(), Acad::eNotOpenForWrite);
}

TEST_F(Objects, AnExtensionDictionaryIsReleasedOnlyEmptyAndBlocksANewOneUntilThen)
{
    Opened<AcDbObject> object(line(), AcDb::kForWrite);
    EXPECT_EQ(object->releaseExtensionDictionary(), Acad::eKeyNotFound);
    ASSERT_EQ(object->createExtensionDictionary(), Acad::eOk);
    const AcDbObjectId first = object->extensionDictionary();
    EXPECT_EQ(object->createExtensionDictionary(), Acad::eAlreadyInDb);
    EXPECT_EQ(sheet_.record(first).owner, drawing::Handle{object->objectId().handle()});
    EXPECT_TRUE(Opened<AcDbDictionary>(first)->isTreatElementsAsHard());
    const AcDbObjectId entry = sheet_.xrecord(first, u"DATA");
    EXPECT_EQ(object->releaseExtensionDictionary(), Acad::eContainerNotEmpty);
    // Erased, it still bars the way.
    Opened<AcDbObject>(first, AcDb::kForWrite)->erase();
    EXPECT_EQ(object->extensionDictionary(), first);
    EXPECT_EQ(object->createExtensionDictionary(), Acad::eAlreadyInDb);
    Opened<AcDbObject>(first, AcDb::kForWrite, true)->erase(false);
    Opened<AcDbObject>(entry, AcDb::kForWrite)->erase();
    {
        const Opened<AcDbObject> reader(first);
        EXPECT_EQ(object->releaseExtensionDictionary(), Acad::eWasOpenForRead);
    }
    EXPECT_EQ(object->releaseExtensionDictionary(), Acad::eOk);
    EXPECT_TRUE(first.isErased());
    EXPECT_EQ(object->extensionDictionary(), AcDbObjectId());
    EXPECT_EQ(object->createExtensionDictionary(), Acad::eOk);
    EXPECT_NE(object->extensionDictionary(), first);
}

// -- dictionaries

TEST_F(Objects, ADictionaryTellsItsEntriesSortedAndFindsThemInAnyCase)
{
    const AcDbObjectId set = sheet_.dictionary(sheet_.root(), u"SET");
    Opened<AcDbDictionary> dictionary(set, AcDb::kForWrite);
    const auto add = [&](const ACHAR* key) {
        auto* record = new AcDbXrecord;
        AcDbObjectId id;
        EXPECT_EQ(dictionary->setAt(key, record, id), Acad::eOk);
        record->close();
        return id;
    };
    const AcDbObjectId umlaut = add(u"Öse"), b = add(u"b"), c = add(u"C");
    const AcDbObjectId a = add(u"A"), one = add(u"*"), seven = add(u"*A7"), eight = add(u"*");
    EXPECT_EQ(sheet_.at(set, "*A1"), one);
    EXPECT_EQ(sheet_.at(set, "*A8"), eight);

    const auto keys = [&] {
        std::string all;
        const std::unique_ptr<AcDbDictionaryIterator> walk(dictionary->newIterator());
        for (; !walk->done(); walk->next()) all += drawing::utf8(walk->name()) + " ";
        return all;
    };
    EXPECT_EQ(keys(), "*A1 *A7 *A8 A b C Öse ");
    AcDbObjectId found;
    EXPECT_EQ(dictionary->getAt(u"öSE", found), Acad::eOk);
    EXPECT_EQ(found, umlaut);
    EXPECT_EQ(dictionary->getAt(u"x", found), Acad::eKeyNotFound);
    EXPECT_EQ(dictionary->getAt(nullptr, found), Acad::eKeyNotFound);
    ACHAR* key = nullptr;
    EXPECT_EQ(dictionary->nameAt(c, key), Acad::eOk);
    EXPECT_EQ(textOf(key), "C");

    // A walk goes on over what changes meanwhile.
    std::unique_ptr<AcDbDictionaryIterator> walk(dictionary->newIterator());
    EXPECT_EQ(walk->objectId(), one);
    EXPECT_EQ(dictionary->remove(u"*a7"), Acad::eOk);
    Opened<AcDbObject>(eight, AcDb::kForWrite)->erase();
    add(u"*A9");
    EXPECT_TRUE(walk->next());
    EXPECT_EQ(drawing::utf8(walk->name()), "*A9");
    EXPECT_FALSE(seven.isErased()); // taken out, without an owner
    EXPECT_EQ(Opened<AcDbObject>(seven)->ownerId(), AcDbObjectId());

    // A taken key: what was there is erased.
    const AcDbObjectId second = add(u"B");
    EXPECT_TRUE(b.isErased());
    EXPECT_EQ(sheet_.at(set, "b"), second);
    EXPECT_FALSE(dictionary->setName(u"a", u"c"));
    EXPECT_FALSE(dictionary->setName(u"none", u"new"));
    EXPECT_FALSE(dictionary->setName(u"a", u"no|name"));
    EXPECT_TRUE(dictionary->setName(u"a", u"a")); // another case
    EXPECT_TRUE(dictionary->setName(u"C", u"*"));
    EXPECT_EQ(sheet_.at(set, "*A10"), c);
    EXPECT_EQ(keys(), "*A1 *A10 *A9 a B Öse ");
    EXPECT_EQ(sheet_.at(set, "A"), a);
}

TEST_F(Objects, WhatCannotBeEnteredIsRefusedAndStaysWithItsMaker)
{
    Sheet other(host_);
    const AcDbObjectId set = sheet_.dictionary(sheet_.root(), u"SET");
    const AcDbObjectId inner = sheet_.dictionary(set, u"inner");
    Opened<AcDbDictionary> dictionary(inner, AcDb::kForWrite);
    AcDbObjectId id;
    const auto set1 = [&](const ACHAR* key, AcDbObject* object) {
        return dictionary->setAt(key, object, id);
    };
    AcDbXrecord& record = *new AcDbXrecord;
    EXPECT_EQ(set1(u"key", nullptr), Acad::eNullObjectPointer);
    for (const ACHAR* key : {u"", u"a|b", u"a*", u"**", u"\n", static_cast<const ACHAR*>(nullptr)})
        EXPECT_EQ(set1(key, &record), Acad::eInvalidKey);
    EXPECT_EQ(set1(std::u16string(256, u'x').c_str(), &record), Acad::eInvalidKey);
    AcDbDictionary fresh;
    EXPECT_EQ(fresh.setAt(u"key", &record, id), Acad::eNotInDatabase);
    EXPECT_EQ(record.close(), Acad::eNotInDatabase);
    EXPECT_EQ(Opened<AcDbDictionary>(set)->setAt(u"key", &record, id), Acad::eNotOpenForWrite);
    const Opened<AcDbObject> owner(sheet_.root(), AcDb::kForWrite);
    EXPECT_EQ(set1(u"key", owner.get()), Acad::eNotThatKindOfClass); // it stands in that
    const Opened<AcDbObject> entity(line(), AcDb::kForWrite);
    EXPECT_EQ(set1(u"key", entity.get()), Acad::eNotThatKindOfClass);
    const Opened<AcDbObject> owned(sheet_.xrecord(set, u"owned"), AcDb::kForWrite);
    EXPECT_EQ(set1(u"key", owned.get()), Acad::eAlreadyInDb);
    const Opened<AcDbObject> foreign(other.root(), AcDb::kForWrite);
    EXPECT_EQ(set1(u"key", foreign.get()), Acad::eWrongDatabase);
    const Chain names = drawing::makeChain(other.drawing(), "330 #1F");
    EXPECT_EQ(record.setFromRbChain(*names, &other.database()), Acad::eOk);
    EXPECT_EQ(set1(u"key", &record), Acad::eWrongDatabase);
    EXPECT_TRUE(record.isNewObject());
    EXPECT_EQ(dictionary->numEntries(), 0u);

    // An entry that is in use cannot be replaced.
    const Opened<AcDbObject> reader(sheet_.xrecord(inner, u"used"));
    record.clear();
    EXPECT_EQ(record.setFromRbChain(*names, &sheet_.database()), Acad::eWrongDatabase);
    EXPECT_EQ(set1(u"used", &record), Acad::eWasOpenForRead);
    ASSERT_EQ(set1(u"free", &record), Acad::eOk);
    EXPECT_EQ(record.close(), Acad::eOk);
}

// -- xrecords

TEST_F(Objects, AnXrecordTakesEveryGroupThatHasAValueOfItsOwn)
{
    const std::string name = sheet_.name(line());
    std::string all;
    const auto given = [&](int code) {
        switch (groupKind(code)) {
        case GroupKind::text: return std::string("täxt");
        case GroupKind::point: return std::string("1.5 -0.1 3e-300");
        case GroupKind::real: return std::string("0.30000000000000004");
        case GroupKind::int16: return std::string("-32768");
        case GroupKind::int32: return std::string("-2147483648");
        case GroupKind::int64: return std::string("4611686018427387904");
        case GroupKind::handle: return std::string("ABC");
        case GroupKind::object: return "#" + name;
        default: return std::string();
        }
    };
    const auto isPart = [](int code) { // y or z of a point
        return groupKind(code) == GroupKind::point && !drawing::beginsPoint(code);
    };
    AcDbXrecord record;
    int taken = 0;
    for (int code = -5; code < 1100; ++code) {
        const bool allowed = code >= 1 && code <= 369 && groupKind(code) != GroupKind::none &&
                             !isPart(code) && code != 5 && code != 100 && code != 105;
        if (groupKind(code) == GroupKind::binary) continue;
        const std::string text = std::to_string(code) + " " + given(code);
        const Chain one = drawing::makeChain(sheet_.drawing(), text);
        EXPECT_EQ(record.setFromRbChain(*one), allowed ? Acad::eOk : Acad::eInvalidDxfCode) << code;
        if (!allowed) continue;
        ++taken;
        // Angles are kept in degrees: what program and file see may be one bit apart.
        if (!drawing::isAngle(code)) all += (all.empty() ? "" : "|") + text;
    }
    EXPECT_GT(taken, 180);
    const Chain whole = drawing::makeChain(sheet_.drawing(), all);
    ASSERT_EQ(record.setFromRbChain(*whole), Acad::eOk);
    const std::string shown = drawing::showChain(sheet_.drawing(), whole.get());
    const auto groups = [&] {
        resbuf* chain = nullptr;
        EXPECT_EQ(record.rbChain(&chain), Acad::eOk);
        return drawing::showChain(sheet_.drawing(), Chain(chain).get());
    };
    EXPECT_EQ(groups(), shown);

    // A failure leaves everything as it was.
    for (const char* bad : {"1 x|40 nan", "1 x|10 0 inf 0", "320 xyz", "1 x|100 AcDbXrecord"}) {
        Chain chain = drawing::makeChain(sheet_.drawing(), bad);
        for (resbuf* node = chain.get(); node != nullptr; node = node->rbnext) {
            if (node->restype == 40) node->resval.rreal = std::numeric_limits<double>::quiet_NaN();
            if (node->restype == 10)
                node->resval.rpoint[1] = std::numeric_limits<double>::infinity();
        }
        EXPECT_NE(record.setFromRbChain(*chain), Acad::eOk) << bad;
        EXPECT_EQ(groups(), shown) << bad;
    }
    EXPECT_EQ(record.clear(), Acad::eOk);
    resbuf* chain = acutNewRb(1);
    const Chain owned(chain);
    EXPECT_EQ(record.rbChain(&chain), Acad::eOk);
    EXPECT_EQ(chain, nullptr);
}

TEST_F(Objects, BinaryDataComesBackInPiecesThatJoinToIt)
{
    std::string bytes;
    for (int i = 0; i < 1000; ++i) bytes += static_cast<char>(i * 7);
    for (const std::size_t size : {0u, 1u, 127u, 128u, 1000u}) {
        resbuf node = {};
        node.restype = 310;
        node.resval.rbinary = {static_cast<short>(size), bytes.data()};
        AcDbXrecord record;
        ASSERT_EQ(record.setFromRbChain(node), Acad::eOk);
        resbuf* chain = nullptr;
        record.rbChain(&chain);
        const Chain owned(chain);
        std::string joined;
        for (; chain != nullptr; chain = chain->rbnext)
            joined.append(chain->resval.rbinary.buf,
                          static_cast<std::size_t>(chain->resval.rbinary.clen));
        EXPECT_TRUE(joined == bytes.substr(0, size)) << size;
    }
}

// -- extended data and reactors

TEST_F(Objects, ExtendedDataIsReplacedApplicationByApplication)
{
    sheet_.drawing().registerApp("ONE");
    sheet_.drawing().registerApp("TWO");
    Opened<AcDbObject> object(line(), AcDb::kForWrite);
    const auto set = [&](std::string_view text) {
        return object->setXData(drawing::makeChain(sheet_.drawing(), text).get());
    };
    const auto shown = [&](const ACHAR* application) {
        return drawing::showChain(sheet_.drawing(), Chain(object->xData(application)).get());
    };
    EXPECT_EQ(set("1001 ONE|1000 a|1001 TWO|1071 70000"), Acad::eOk);
    EXPECT_EQ(set("1001 one|1040 0.1"), Acad::eOk);
    EXPECT_EQ(shown(u"One"), "1001 one|1040 0.1");
    EXPECT_EQ(shown(nullptr), "1001 one|1040 0.1|1001 TWO|1071 70000");
    EXPECT_EQ(set("1001 THREE|1000 x"), Acad::eRegappIdNotFound);
    EXPECT_EQ(set("1000 x"), Acad::eInvalidInput);
    EXPECT_EQ(set("1001 ONE|1002 {"), Acad::eInvalidInput);
    EXPECT_EQ(set("1001 ONE|40 1"), Acad::eInvalidInput);
    EXPECT_EQ(set("-3|1001 ONE|1000 x"), Acad::eInvalidInput);
    EXPECT_EQ(object->setXData(nullptr), Acad::eInvalidInput);
    std::string tooMuch = "1001 ONE";
    for (int i = 0; i < 70; ++i) tooMuch += "|1000 " + std::string(250, 'x');
    EXPECT_EQ(set(tooMuch), Acad::eXdataSizeExceeded);
    EXPECT_EQ(shown(nullptr), "1001 one|1040 0.1|1001 TWO|1071 70000");
    EXPECT_EQ(set("1001 ONE"), Acad::eOk); // takes it away
    EXPECT_EQ(object->xData(u"ONE"), nullptr);
}

TEST_F(Objects, ReactorsAreListedOnceAndCopiesOfIdsStay)
{
    Sheet other(host_);
    const AcDbObjectId reactor = sheet_.xrecord(sheet_.root(), u"REACTOR");
    Opened<AcDbObject> object(line(), AcDb::kForWrite);
    EXPECT_EQ(object->removePersistentReactor(reactor), Acad::eKeyNotFound);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(object->addPersistentReactor(reactor), Acad::eOk);
    EXPECT_EQ(sheet_.record(object->objectId()).extras()->reactors.size(), 1u);
    EXPECT_TRUE(object->hasPersistentReactor(reactor));
    EXPECT_EQ(object->addPersistentReactor({}), Acad::eNullObjectId);
    EXPECT_EQ(object->addPersistentReactor(other.root()), Acad::eWrongDatabase);
    EXPECT_FALSE(object->hasPersistentReactor(other.root())); // though it has such a handle
    EXPECT_EQ(object->removePersistentReactor(reactor), Acad::eOk);
    EXPECT_EQ(sheet_.record(object->objectId()).extras(), nullptr);
}

// -- identity

TEST_F(Objects, SwappedObjectsTakeAlongWhatDoesNotStayWithTheId)
{
    sheet_.drawing().registerApp("APP");
    for (const bool xdataStays : {false, true}) {
        for (const bool dictionaryStays : {false, true}) {
            SCOPED_TRACE(testing::Message() << xdataStays << dictionaryStays);
            sheet_.drawing().journal().step();
            const AcDbObjectId a = line(), b = sheet_.make("0 CIRCLE|10 0 0 0|40 5");
            const AcDbObjectId data = sheet_.xrecord(sheet_.extension(a), u"DATA");
            const AcDbObjectId extension = sheet_.extension(a);
            const std::string handle = sheet_.name(a);
            const std::string before = sheet_.text();
            sheet_.drawing().journal().step();
            Opened<AcDbObject> first(a, AcDb::kForWrite), second(b, AcDb::kForWrite);
            first->setXData(drawing::makeChain(sheet_.drawing(), "1001 APP|1000 a").get());
            first->addPersistentReactor(data);
            ASSERT_EQ(first->swapIdWith(b, xdataStays, dictionaryStays), Acad::eOk);
            EXPECT_EQ(first->objectId(), b);
            EXPECT_EQ(second->objectId(), a);
            EXPECT_EQ(sheet_.record(a).typeName(), "CIRCLE");
            EXPECT_EQ(sheet_.name(a), handle);
            EXPECT_EQ(sheet_.drawing().next(sheet_.indexOf(a)), sheet_.indexOf(b)); // places stay
            const AcDbObject& hasData = xdataStays ? *second.get() : *first.get();
            const AcDbObject& hasDictionary = dictionaryStays ? *second.get() : *first.get();
            EXPECT_NE(Chain(hasData.xData(u"APP")), nullptr);
            EXPECT_EQ(hasDictionary.extensionDictionary(), extension);
            EXPECT_EQ(sheet_.record(extension).owner,
                      drawing::Handle{hasDictionary.objectId().handle()});
            EXPECT_TRUE(second->hasPersistentReactor(data)); // reactors stay with the id
            first.close();
            second.close();
            EXPECT_EQ(Opened<AcDbObject>(a)->isKindOf(AcDbEntity::desc()), true);
            sheet_.drawing().journal().undo(1);
            EXPECT_TRUE(sheet_.text() == before);
        }
    }
}

TEST_F(Objects, SwappingRefusesWhatCannotChangePlaces)
{
    Sheet other(host_);
    const AcDbObjectId entity = line(), set = sheet_.dictionary(sheet_.root(), u"SET");
    const AcDbObjectId entry = sheet_.xrecord(set, u"entry");
    const AcDbObjectId read = sheet_.xrecord(sheet_.root(), u"READ");
    const std::string before = sheet_.text();
    Opened<AcDbObject> object(set, AcDb::kForWrite);
    EXPECT_EQ(object->swapIdWith(entity), Acad::eNotThatKindOfClass);
    EXPECT_EQ(object->swapIdWith(sheet_.root()), Acad::eNotThatKindOfClass);
    EXPECT_EQ(object->swapIdWith(entry), Acad::eNotThatKindOfClass); // it stands in it
    EXPECT_EQ(object->swapIdWith(sheet_.model()), Acad::eNotThatKindOfClass);
    EXPECT_EQ(object->swapIdWith({}), Acad::eNullObjectId);
    EXPECT_EQ(object->swapIdWith(other.root()), Acad::eWrongDatabase);
    EXPECT_EQ(object->swapIdWith(AcDbObjectId(1)), Acad::eNoDatabase);
    EXPECT_EQ(object->swapIdWith(set), Acad::eOk);
    EXPECT_EQ(AcDbXrecord().swapIdWith(set), Acad::eNoDatabase);
    {
        const Opened<AcDbObject> reader(read);
        EXPECT_EQ(object->swapIdWith(read), Acad::eWasOpenForRead);
    }
    EXPECT_EQ(Opened<AcDbObject>(read)->swapIdWith(set), Acad::eNotOpenForWrite);
    EXPECT_TRUE(sheet_.text() == before);
}

} // namespace
