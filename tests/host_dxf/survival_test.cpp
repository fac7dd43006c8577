// SPDX-License-Identifier: LicenseRef-ORVALD
// What programs keep in a drawing survives its file: data of other applications, and all that
// result buffers can say.
#include "../host_drawing/chain_text.h"
#include "drawing/clone.h"
#include "drawing/object_data.h"
#include "dxf/audit.h"
#include "dxf_support.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>

using namespace orvald;
using namespace orvald::dxf;
using namespace orvald::drawing;

namespace {

/// Nothing that a drawing holds of an object differs in the other one.
void expectSameObjects(const Drawing& before, const Drawing& after)
{
    static const Extras none;
    std::size_t count = 0;
    for (Index i = 0; i < before.recordCount(); ++i) {
        const Record& old = before.at(i);
        if (old.undone) continue;
        ++count;
        const Index index = after.byHandle(old.handle);
        ASSERT_NE(index, kNone) << old.typeName() << " " << handleText(old.handle);
        const Record& now = after.at(index);
        SCOPED_TRACE(std::string(old.typeName()) + " " + handleText(old.handle));
        EXPECT_EQ(now.typeName(), old.typeName());
        EXPECT_EQ(now.owner, old.owner);
        EXPECT_EQ(now.erased, old.erased);
        // The head of a table counts its records.
        EXPECT_TRUE(old.kind() == Kind::table || now.tags == old.tags);
        const Extras& x = old.extras() == nullptr ? none : *old.extras();
        const Extras& y = now.extras() == nullptr ? none : *now.extras();
        EXPECT_EQ(y.reactors, x.reactors);
        EXPECT_EQ(y.extensionDictionary, x.extensionDictionary);
        EXPECT_TRUE(y.xdata == x.xdata);
        ASSERT_EQ(y.dictionary.has_value(), x.dictionary.has_value());
        if (!x.dictionary) continue;
        const auto entries = x.dictionary->fileOrder(), entriesNow = y.dictionary->fileOrder();
        ASSERT_EQ(entriesNow.size(), entries.size());
        for (std::size_t e = 0; e < entries.size(); ++e) {
            EXPECT_EQ(entriesNow[e]->key, entries[e]->key);
            EXPECT_EQ(entriesNow[e]->object, entries[e]->object);
            EXPECT_EQ(entriesNow[e]->hard, entries[e]->hard);
        }
    }
    std::size_t countAfter = 0;
    for (Index i = 0; i < after.recordCount(); ++i) countAfter += after.at(i).undone ? 0 : 1;
    EXPECT_EQ(countAfter, count);
}

/// Changes much of what there is, in every way that programs have.
void changeAll(Drawing& drawing, std::mt19937& random)
{
    EntityFunctions functions(drawing);
    const Index end = drawing.recordCount();
    for (Index i = 0; i < end; ++i) {
        if (drawing.at(i).erased) continue;
        const Index other = static_cast<Index>(random() % end);
        switch (random() % 8) {
        case 0:
            if (drawing.mayErase(i)) drawing.setErased(i, true);
            break;
        case 1:
            if (drawing.at(i).kind() == Kind::xrecord) setXrecordGroups(drawing.edit(i), {});
            break;
        case 2: drawing.edit(i).needExtras().xdata.clear(); break;
        case 3: drawing.edit(i).needExtras().reactors.push_back(drawing.at(other).handle); break;
        case 4: {
            const Index extension = drawing.needExtensionDictionary(i);
            drawing.addToDictionary(extension, "*", drawing.add(newXrecord()));
            break;
        }
        case 5: drawing.swapRecords(i, other, random() % 2 != 0, random() % 2 != 0); break;
        case 6:
            if (drawing.dictionary(i) != nullptr && drawing.dictionary(i)->size() != 0) {
                const std::string key = drawing.dictionary(i)->first()->key;
                drawing.removeFromDictionary(i, key);
            }
            break;
        default:
            if (mayCopyBelow(drawing, i, drawing, drawing.rootDictionary(), Taken::kept))
                copyWithin(drawing, {&i, 1}, drawing.rootDictionary());
        }
    }
    const Index layer = drawing.findRecord(TableId::layer, "LAYER_2");
    if (layer != kNone) drawing.renameRecord(TableId::layer, layer, "Neu");
    drawing.header.setText("$CLAYER", 8, "Neu");
}

} // namespace

TEST(Survival, EveryKindOfEveryVersionComesBackFromTextAndBinaryFiles)
{
    TemporaryFolder folder;
    const std::string path = folder.file("kinds.dxf"), binary = folder.file("binary.dxf"),
                      saved = folder.file("saved.dxf");
    for (const std::string& version : sampleVersions()) {
        SCOPED_TRACE(version);
        for (const auto& [file, form] : {std::pair{path, ""}, std::pair{binary, " bin"}}) {
            const int made = runTool("make_dxf.py", "kinds " + version + " " + file + form);
            if (made == kNoLibrary) GTEST_SKIP() << "the other program's library is not installed";
            ASSERT_EQ(made, 0);
        }
        const Loaded loaded = load(path);
        ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
        ASSERT_TRUE(save(*loaded.drawing, saved).good);
        EXPECT_EQ(runTool("dxf_same.py", path + " " + saved), 0);
        expectAudited(saved);
        EXPECT_TRUE(audit(path).good());
        EXPECT_TRUE(audit(saved).good());
        const Loaded same = load(binary);
        ASSERT_NE(same.drawing, nullptr) << same.error.message();
        expectSameObjects(*loaded.drawing, *same.drawing);
    }
}

TEST(Survival, WhatOtherApplicationsKeepComesBackObjectByObject)
{
    TemporaryFolder folder;
    for (const char* version : {"R2000", "R2013", "R2018"}) {
        SCOPED_TRACE(version);
        const std::string path = folder.file("foreign.dxf"), saved = folder.file("saved.dxf");
        const int made = runTool("make_dxf.py", "foreign " + std::string(version) + " " + path);
        if (made == kNoLibrary) GTEST_SKIP() << "the other program's library is not installed";
        ASSERT_EQ(made, 0);
        Loaded first = load(path);
        ASSERT_NE(first.drawing, nullptr) << first.error.message();
        ASSERT_TRUE(save(*first.drawing, saved).good);
        expectAudited(saved);
        const bool asWritten = version == std::string("R2013"); // the others are brought up
        EXPECT_EQ(asWritten ? runTool("dxf_same.py", path + " " + saved) : 0, 0);
        const Loaded second = load(saved);
        ASSERT_NE(second.drawing, nullptr);
        for (const Warning& warning : second.warnings) ADD_FAILURE() << warning.text;
        expectSameObjects(*first.drawing, *second.drawing);
        if (HasFailure()) return;

        // Changed in every way, saved, and taken back: as if nothing had been.
        Drawing& drawing = *first.drawing;
        const std::string text = saveText(drawing);
        drawing.journal().step();
        std::mt19937 random(11);
        for (int round = 0; round < 3; ++round) {
            changeAll(drawing, random);
            drawing.journal().step();
            const Saved changed = save(drawing, folder.file("changed.dxf")); // reads all back
            ASSERT_TRUE(changed.good) << changed.error.message();
        }
        const std::string changed = saveText(drawing);
        EXPECT_EQ(drawing.journal().undo(3), 3u);
        EXPECT_TRUE(saveText(drawing) == text);
        expectSameObjects(*second.drawing, drawing);
        EXPECT_TRUE(drawing.journal().redo());
        EXPECT_TRUE(saveText(drawing) == changed);
    }
}

TEST(Survival, AnXrecordComesBackAsTheResultBuffersThatWereGiven)
{
    auto drawing = Drawing::createNew();
    const Index target = drawing->addDictionary(false);
    drawing->addToDictionary(drawing->rootDictionary(), "TARGET", target);
    std::mt19937_64 random(12);
    std::vector<double> reals = {0.0,
                                 -0.0,
                                 0.1,
                                 0.30000000000000004,
                                 1.0000000000000002,
                                 123456789.12345679,
                                 std::numeric_limits<double>::denorm_min(),
                                 -std::numeric_limits<double>::min(),
                                 std::numeric_limits<double>::max(),
                                 std::nextafter(std::numeric_limits<double>::min(), 0.0)};
    while (reals.size() < 500)
        if (const auto value = std::bit_cast<double>(random()); std::isfinite(value))
            reals.push_back(value);
    // Every character of the lower planes, alone and between others; long ones; blanks at the ends.
    std::vector<std::u16string> texts = {u"", u" ", u"  x  ", u"^", u"^ ", u"^J", u"\\U+00E4"};
    for (char16_t unit = 1; unit != 0; ++unit) {
        if (unit % 512 == 1) texts.emplace_back();
        texts.back() += unit;
        if (unit % 3 == 0) texts.back() += u'^';
    }
    for (const char16_t* lone :
         {u"\xD800", u"\xDFFF", u"\xD83D\xDE00", u"\xDE00\xD83D", u"a\xDBFF"})
        texts.emplace_back(lone);
    std::u16string mixed;
    while (mixed.size() < 100000) mixed += static_cast<char16_t>(1 + random() % 0xFFFF);
    texts.push_back(mixed);
    texts.emplace_back(100000, u'x');
    texts.push_back(u" " + std::u16string(99998, u'^') + u" ");

    Chain chain;
    resbuf** end = nullptr;
    const auto node = [&](int code) -> resbuf& {
        resbuf* made = acutNewRb(code);
        if (end == nullptr) chain.reset(made);
        else *end = made;
        end = &made->rbnext;
        return *made;
    };
    for (const std::u16string& text : texts)
        acutNewString(text.c_str(), node(text.size() % 2 == 0 ? 1 : 300).resval.rstring);
    for (const double value : reals) {
        node(40).resval.rreal = value;
        ads_real* point = node(10).resval.rpoint;
        point[0] = value, point[1] = -value, point[2] = -0.0;
    }
    for (const int code : {60, 70, 170, 270, 280}) {
        node(code).resval.rint = std::numeric_limits<short>::min();
        node(code).resval.rint = std::numeric_limits<short>::max();
    }
    node(90).resval.rlong = std::numeric_limits<std::int32_t>::min();
    node(160).resval.mnInt64 = std::numeric_limits<std::int64_t>::min();
    node(169).resval.mnInt64 = std::numeric_limits<std::int64_t>::max();
    for (const int code : {330, 340, 350, 360}) {
        toName(drawing->idOf(target), node(code).resval.rlname);
        node(code); // null
    }
    acutNewString(u"7FFFFFFFFFFFFFFF", node(320).resval.rstring);
    std::string bytes(127, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    for (const std::size_t size : {0u, 1u, 127u}) {
        ads_binary& binary = node(310).resval.rbinary;
        binary.buf = static_cast<char*>(std::malloc(size + 1));
        std::copy_n(bytes.data(), size, binary.buf);
        binary.clen = static_cast<short>(size);
    }

    TagList groups;
    ASSERT_EQ(xrecordGroups(*drawing, chain.get(), groups), Acad::eOk);
    Record record = newXrecord();
    setXrecordGroups(record, groups);
    const Index index = drawing->add(std::move(record));
    drawing->addToDictionary(drawing->rootDictionary(), "RECORD", index);

    TemporaryFolder folder;
    const Saved saved = save(*drawing, folder.file("data.dxf"));
    ASSERT_TRUE(saved.good) << saved.error.message();
    expectAudited(folder.file("data.dxf"));
    const Loaded loaded = load(folder.file("data.dxf"));
    ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
    const Drawing& after = *loaded.drawing;
    const Chain back(xrecordChain(after, after.at(after.byHandle(drawing->at(index).handle))));
    const resbuf* now = back.get();
    int position = 0;
    for (const resbuf* given = chain.get(); given != nullptr; given = given->rbnext, ++position) {
        ASSERT_NE(now, nullptr) << position;
        ASSERT_EQ(now->restype, given->restype) << position;
        switch (groupKind(given->restype)) {
        case GroupKind::text:
        case GroupKind::handle:
            ASSERT_TRUE(std::u16string_view(now->resval.rstring) == given->resval.rstring)
                << position;
            break;
        case GroupKind::real:
            ASSERT_EQ(std::bit_cast<std::uint64_t>(now->resval.rreal),
                      std::bit_cast<std::uint64_t>(given->resval.rreal))
                << given->resval.rreal;
            break;
        case GroupKind::point:
            ASSERT_EQ(std::memcmp(now->resval.rpoint, given->resval.rpoint, sizeof(ads_point)), 0)
                << position;
            break;
        case GroupKind::int16: ASSERT_EQ(now->resval.rint, given->resval.rint); break;
        case GroupKind::int32: ASSERT_EQ(now->resval.rlong, given->resval.rlong); break;
        case GroupKind::int64: ASSERT_EQ(now->resval.mnInt64, given->resval.mnInt64); break;
        case GroupKind::binary:
            ASSERT_EQ(now->resval.rbinary.clen, given->resval.rbinary.clen);
            ASSERT_EQ(std::memcmp(now->resval.rbinary.buf, given->resval.rbinary.buf,
                                  static_cast<std::size_t>(given->resval.rbinary.clen)),
                      0);
            break;
        default: {
            const bool isNull = fromName(given->resval.rlname).isNull();
            const Index named = after.indexOf(fromName(now->resval.rlname));
            ASSERT_EQ(named == kNone, isNull) << position;
            ASSERT_TRUE(isNull || after.at(named).handle == drawing->at(target).handle);
            break;
        }
        }
        now = now->rbnext;
    }
    EXPECT_EQ(now, nullptr);
}
