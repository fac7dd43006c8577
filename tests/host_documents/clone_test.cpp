// SPDX-License-Identifier: LicenseRef-ORVALD
// Copies within a drawing and between drawings.
#include "object_support.h"

#include "../host_dxf/dxf_support.h"
#include "drawing/object_data.h"

namespace {

using namespace orvald;
using drawing::Handle;
using drawing::TableId;

class Cloning : public testing::Test
{
protected:
    Cloning() { host_.console().setLevel(Console::Level::quiet); }

    Acad::ErrorStatus within(Sheet& sheet, std::initializer_list<AcDbObjectId> ids,
                             AcDbObjectId owner)
    {
        return sheet.database().deepCloneObjects(list(ids), owner, map_);
    }
    Acad::ErrorStatus between(Sheet& to, std::initializer_list<AcDbObjectId> ids,
                              AcDbObjectId owner,
                              AcDb::DuplicateRecordCloning cloning = AcDb::kDrcIgnore)
    {
        return to.database().wblockCloneObjects(list(ids), owner, map_, cloning);
    }
    AcDbObjectId copyOf(AcDbObjectId id) { return standsFor(map_, id); }

    /// The drawing is in order for another program and comes back from its file as it is.
    static void expectWhole(Sheet& sheet)
    {
        dxf::TemporaryFolder folder;
        const dxf::Saved saved = dxf::save(sheet.drawing(), folder.file("copied.dxf"));
        ASSERT_TRUE(saved.good) << saved.error.message();
        dxf::expectAudited(folder.file("copied.dxf"));
        const dxf::Loaded loaded = dxf::load(folder.file("copied.dxf"));
        ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
        for (const dxf::Warning& warning : loaded.warnings) ADD_FAILURE() << warning.text;
        if (const char* kept = std::getenv("ORVALD_KEEP_DXF"))
            std::filesystem::copy_file(
                folder.file("copied.dxf"),
                std::string(kept) + "/" +
                    testing::UnitTest::GetInstance()->current_test_info()->name() + ".dxf",
                std::filesystem::copy_options::overwrite_existing);
    }

    static std::string sectionsBehindClasses(const std::string& text)
    {
        return text.substr(text.find("\nTABLES\n"));
    }

    Host host_;
    AcDbIdMapping map_;
};

TEST_F(Cloning, ADictionaryIsCopiedWithWhatItOwnsAndNamesItsOwnCopies)
{
    Sheet sheet(host_);
    drawing::Drawing& drawing = sheet.drawing();
    const AcDbObjectId set = sheet.dictionary(sheet.root(), u"SET");
    const AcDbObjectId inner = sheet.dictionary(set, u"Inner", true);
    const AcDbObjectId a = sheet.xrecord(set, u"a"), b = sheet.xrecord(inner, u"b");
    const AcDbObjectId outside = sheet.xrecord(sheet.root(), u"OUTSIDE");
    const AcDbObjectId extra = sheet.xrecord(sheet.extension(a), u"extra", "330 @|340 @", a);
    const AcDbObjectId names = sheet.xrecord(set, u"names", "320 " + sheet.name(a));
    const AcDbObjectId owned = sheet.id(drawing.add(drawing::newXrecord()));
    {
        drawing::Record& record = drawing.edit(sheet.indexOf(names));
        record.tags.addHandle(330, a.handle());
        record.tags.addHandle(340, b.handle());
        record.tags.addHandle(360, owned.handle());
        record.tags.addHandle(331, outside.handle());
        record.tags.addHandle(332, 0);
        drawing.edit(sheet.indexOf(owned)).owner = names.handle();
        drawing.registerApp("ORV");
        drawing::Extras& extras = record.needExtras();
        extras.xdata.addText(1001, "ORV");
        extras.xdata.addHandle(1005, b.handle());
        extras.reactors = {a.handle(), set.handle(), outside.handle()};
    }
    drawing.journal().step();
    const std::string before = sheet.text();

    ASSERT_EQ(within(sheet, {set}, sheet.root()), Acad::eOk);
    const AcDbObjectId copy = copyOf(set), copyOfA = copyOf(a), copyOfNames = copyOf(names);
    EXPECT_EQ(map_.count(), 8);
    EXPECT_EQ(sheet.at(sheet.root(), "*A1"), copy); // its key is taken
    EXPECT_EQ(sheet.at(copy, "A"), copyOfA);
    EXPECT_EQ(sheet.at(copyOf(inner), "b"), copyOf(b));
    EXPECT_EQ(sheet.record(copyOfA).owner, copy.handle());
    EXPECT_EQ(sheet.id(drawing.byHandle(sheet.record(copyOfA).extensionDictionary())),
              copyOf(sheet.extension(a)));
    EXPECT_EQ(sheet.named(copyOf(extra), 340), copyOfA);
    EXPECT_EQ(sheet.record(copyOfNames).tags.handle(320), Handle{a.handle()}); // never translated
    EXPECT_EQ(sheet.named(copyOfNames, 330), copyOfA);
    EXPECT_EQ(sheet.named(copyOfNames, 340), copyOf(b));
    EXPECT_EQ(sheet.named(copyOfNames, 360), copyOf(owned));
    EXPECT_EQ(sheet.record(copyOf(owned)).owner, copyOfNames.handle());
    EXPECT_EQ(sheet.named(copyOfNames, 331), outside);
    const drawing::Extras& extras = *sheet.record(copyOfNames).extras();
    EXPECT_EQ(extras.xdata.handle(1005), Handle{copyOf(b).handle()});
    EXPECT_EQ(extras.reactors,
              (std::vector<Handle>{copyOfA.handle(), copy.handle(), outside.handle()}));
    expectWhole(sheet);

    // All of it is one step, and it comes again.
    const std::string after = sheet.text();
    drawing.journal().undo(1);
    EXPECT_TRUE(sheet.text() == before);
    EXPECT_FALSE(copy.isNull());
    EXPECT_TRUE(copy.isErased());
    drawing.journal().redo();
    EXPECT_TRUE(sheet.text() == after);

    // Into itself: what stood in it before. Listed entries come along with it, once.
    ASSERT_EQ(within(sheet, {a, set, a, b}, set), Acad::eOk);
    EXPECT_EQ(sheet.at(set, "SET"), copyOf(set));
    EXPECT_EQ(sheet.at(copyOf(set), "SET"), AcDbObjectId());
    EXPECT_EQ(sheet.at(copyOf(set), "a"), copyOf(a));
    expectWhole(sheet);
}

TEST_F(Cloning, EntitiesTakePartsDataAndTheBlocksOfDimensionsAlong)
{
    Sheet sheet(host_);
    drawing::Drawing& drawing = sheet.drawing();
    sheet.make("0 POLYLINE|10 0 0 0");
    sheet.make("0 VERTEX|10 1 0 0");
    sheet.make("0 VERTEX|10 2 0 0");
    const AcDbObjectId polyline = sheet.make("0 SEQEND");
    const AcDbObjectId line = sheet.make("0 LINE|8 Wand|10 0 0 0|11 1 0 0");
    const AcDbObjectId pair = sheet.xrecord(sheet.extension(line), u"PAIR", "340 @", polyline);
    sheet.make("0 BLOCK|2 *D|70 1|10 0 0 0");
    sheet.make("0 LINE|8 0|10 0 0 0|11 1 0 0");
    sheet.make("0 ENDBLK");
    drawing::Record dimension(drawing::Kind::dimension, drawing::Family::entity);
    for (const auto& [code, text] : {std::pair{100, "AcDbEntity"},
                                     {8, "0"},
                                     {100, "AcDbDimension"},
                                     {2, "*D1"},
                                     {3, "ISO-25"}})
        dimension.tags.addText(code, text);
    const drawing::Index index = drawing.add(std::move(dimension));
    drawing.appendChild(drawing.modelSpace(), index);

    const AcDbObjectId paper = sheet.id(drawing.paperSpace());
    ASSERT_EQ(within(sheet, {line, polyline, sheet.id(index)}, paper), Acad::eOk);
    const AcDbObjectId copy = copyOf(polyline);
    EXPECT_EQ(sheet.id(drawing.blockOf(sheet.indexOf(copy))), paper);
    int parts = 0;
    for (drawing::Index part = drawing.firstChild(sheet.indexOf(copy)); part != drawing::kNone;
         part = drawing.next(part), ++parts)
        EXPECT_EQ(drawing.at(part).tags.integer(67), 1);
    EXPECT_EQ(parts, 3);
    EXPECT_EQ(sheet.named(copyOf(pair), 340), copy);
    EXPECT_EQ(sheet.id(drawing.next(sheet.indexOf(copyOf(line)))), copy); // in the order given
    EXPECT_EQ(sheet.record(copyOf(sheet.id(index))).tags.text(2), "*D2");
    EXPECT_NE(drawing.findRecord(TableId::blockRecord, "*D2"), drawing::kNone);

    // Back into the model: no mark of the sheet is left.
    const AcDbObjectId there = copy;
    ASSERT_EQ(within(sheet, {there}, sheet.model()), Acad::eOk);
    EXPECT_FALSE(sheet.record(copyOf(there)).tags.has(67));
}

TEST_F(Cloning, AnXrecordThatKeepsItsReferencesIsNotTranslated)
{
    Sheet sheet(host_), other(host_);
    const AcDbObjectId set = sheet.dictionary(sheet.root(), u"SET", true);
    const AcDbObjectId target = sheet.xrecord(set, u"target");
    const AcDbObjectId keeps = sheet.xrecord(set, u"keeps", "330 @|340 @|360 @", target);
    Opened<AcDbXrecord>(keeps, AcDb::kForWrite)->setXlateReferences(false);
    ASSERT_EQ(within(sheet, {set}, sheet.root()), Acad::eOk);
    EXPECT_NE(copyOf(target), AcDbObjectId());
    for (const int code : {330, 340, 360})
        EXPECT_EQ(sheet.named(copyOf(keeps), code), target) << code;
    EXPECT_FALSE(Opened<AcDbXrecord>(copyOf(keeps))->isXlateReferences());
    // In another drawing those names would mean something else.
    ASSERT_EQ(between(other, {set}, other.root()), Acad::eOk);
    EXPECT_EQ(other.record(copyOf(keeps)).tags.handle(330, 7), 0u);
    EXPECT_EQ(other.record(copyOf(keeps)).tags.handle(340, 7), 0u);
}

TEST_F(Cloning, NothingIsCopiedAfterAFailure)
{
    Sheet sheet(host_), other(host_);
    const AcDbObjectId line = sheet.make("0 LINE|10 0 0 0|11 1 0 0");
    const AcDbObjectId gone = sheet.make("0 LINE|10 0 0 0|11 1 0 0");
    sheet.drawing().setErased(sheet.indexOf(gone), true);
    sheet.make("0 POLYLINE|10 0 0 0");
    sheet.make("0 VERTEX|10 1 0 0");
    const AcDbObjectId polyline = sheet.make("0 SEQEND");
    const AcDbObjectId vertex = sheet.id(sheet.drawing().firstChild(sheet.indexOf(polyline)));
    const AcDbObjectId record = sheet.xrecord(sheet.root(), u"RECORD");
    sheet.make("0 BLOCK|2 A|70 0|10 0 0 0");
    sheet.make("0 ENDBLK");
    sheet.make("0 BLOCK|2 B|70 0|10 0 0 0");
    sheet.make("0 INSERT|2 A|10 0 0 0");
    sheet.make("0 ENDBLK");
    const AcDbObjectId insert = sheet.make("0 INSERT|2 B|10 0 0 0");
    const AcDbObjectId block = sheet.tableRecord(TableId::blockRecord, "A");
    const AcDbObjectId layout = sheet.at(sheet.at(sheet.root(), "ACAD_LAYOUT"), "Layout1");
    const AcDbObjectId layer = sheet.tableRecord(TableId::layer, "0");
    const AcDbObjectId foreign = other.make("0 LINE|10 0 0 0|11 1 0 0");
    const std::string before = sheet.text(), otherBefore = other.text();

    struct Case
    {
        const char* what;
        AcDbObjectId object, owner;
        Acad::ErrorStatus status;
    };
    for (const Case& one : {Case{"null", {}, sheet.model(), Acad::eNullObjectId},
                            {"null owner", line, {}, Acad::eNullObjectId},
                            {"of another drawing", foreign, sheet.model(), Acad::eWrongDatabase},
                            {"owner elsewhere", line, other.model(), Acad::eWrongDatabase},
                            {"erased", gone, sheet.model(), Acad::eWasErased},
                            {"entity", line, sheet.root(), Acad::eNotThatKindOfClass},
                            {"part", vertex, sheet.model(), Acad::eNotThatKindOfClass},
                            {"object", record, sheet.model(), Acad::eNotThatKindOfClass},
                            {"into an xrecord", record, record, Acad::eNotThatKindOfClass},
                            {"root", sheet.root(), sheet.root(), Acad::eNotThatKindOfClass},
                            {"layout", layout, sheet.root(), Acad::eNotThatKindOfClass},
                            {"layer", layer, sheet.root(), Acad::eNotThatKindOfClass},
                            {"block in itself", insert, block, Acad::eNotThatKindOfClass}}) {
        EXPECT_EQ(within(sheet, {line, one.object}, one.owner), one.status) << one.what;
        EXPECT_EQ(map_.count(), 0) << one.what;
    }
    EXPECT_EQ(between(other, {line, foreign}, other.model()), Acad::eWrongDatabase);
    EXPECT_EQ(between(sheet, {line}, sheet.model()), Acad::eWrongDatabase);
    EXPECT_EQ(between(other, {line}, sheet.model()), Acad::eWrongDatabase);
    EXPECT_EQ(between(other, {line, {}}, other.model()), Acad::eNullObjectId);
    EXPECT_EQ(between(other, {}, other.model()), Acad::eOk);
    EXPECT_TRUE(other.text() == otherBefore);

    // What would be replaced is in use.
    const AcDbObjectId taken = other.xrecord(other.root(), u"record", "1 theirs");
    {
        const Opened<AcDbXrecord> reader(taken);
        EXPECT_EQ(between(other, {record}, other.root(), AcDb::kDrcReplace), Acad::eWasOpenForRead);
    }
    EXPECT_EQ(other.at(other.root(), "RECORD"), taken);
    EXPECT_TRUE(sheet.text() == before);

    Document& free = host_.newDocument();
    EXPECT_EQ(free.database()->wblockCloneObjects(
                  list({line}), outerId(free.drawing().idOf(free.drawing().modelSpace())), map_,
                  AcDb::kDrcIgnore),
              Acad::eLockViolation);
}

TEST_F(Cloning, WhatAnEntityUsesIsMadeInTheOtherDrawing)
{
    Sheet from(host_), to(host_);
    drawing::Drawing& there = to.drawing();
    from.drawing().registerApp("ORV");
    from.make("0 LTYPE|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 STRICH|70 0|3 _ _|"
              "72 65|73 2|40 1.5|49 1|74 0|49 -0.5|74 0");
    from.make("0 LAYER|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Wand|70 0|62 3|6 "
              "STRICH");
    from.make("0 LAYER|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Note|70 0|62 4|6 "
              "Continuous");
    from.make("0 STYLE|100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 ISO|70 0|40 0|41 "
              "1|50 0|71 0|42 2.5|3 isocp.shx|4");
    from.make("0 BLOCK|2 Inner|70 0|10 0 0 0");
    from.make("0 TEXT|8 Wand|10 0 0 0|40 2|1 M8|7 ISO");
    from.make("0 ENDBLK");
    from.make("0 BLOCK|2 Bolt|70 2|10 5 0 0");
    from.make("0 INSERT|2 Inner|10 0 0 0");
    from.make("0 ATTDEF|10 0 0 0|40 2|1 M8|3 Name?|2 NAME|70 0");
    from.make("0 ENDBLK");
    from.make("0 INSERT|8 Wand|66 1|2 Bolt|10 5 5 0|-3|1001 ORV|1003 Note");
    from.make("0 ATTRIB|8 Wand|10 5 5 0|40 2|1 M10|2 NAME|70 0");
    const AcDbObjectId insert = from.make("0 SEQEND");
    // Pointers in its data: hard ones pull, soft ones do not.
    const AcDbObjectId pulled = from.make("0 CIRCLE|10 0 0 0|40 5");
    const AcDbObjectId left = from.make("0 CIRCLE|10 0 0 0|40 6");
    const AcDbObjectId deep = from.dictionary(from.dictionary(from.root(), u"FIRST"), u"Second");
    const AcDbObjectId object = from.xrecord(deep, u"object", "340 @", insert);
    const AcDbObjectId beside = from.xrecord(deep, u"beside");
    const AcDbObjectId onOther = from.xrecord(from.extension(pulled), u"ON");
    const AcDbObjectId data = from.xrecord(from.extension(insert), u"DATA", "340 @", pulled);
    {
        drawing::TagList& tags = from.drawing().edit(from.indexOf(data)).tags;
        tags.addHandle(341, object.handle());
        tags.addHandle(342, onOther.handle());
        tags.addHandle(343, from.tableRecord(TableId::style, "ISO").handle());
        tags.addHandle(344, from.model().handle());
        tags.addHandle(330, left.handle());
        tags.addHandle(331, beside.handle());
        tags.addHandle(332, pulled.handle());
        tags.addHandle(345, from.root().handle());
        tags.addHandle(346, from.at(from.at(from.root(), "ACAD_LAYOUT"), "Layout1").handle());
    }

    ASSERT_EQ(between(to, {insert}, to.model()), Acad::eOk);
    for (const auto& [table, name] : {std::pair{TableId::layer, "wand"},
                                      {TableId::layer, "Note"},
                                      {TableId::ltype, "strich"},
                                      {TableId::style, "iso"},
                                      {TableId::blockRecord, "bolt"},
                                      {TableId::blockRecord, "inner"},
                                      {TableId::appid, "ORV"}})
        EXPECT_NE(there.findRecord(table, name), drawing::kNone) << name;
    const drawing::Record& layer = to.record(to.tableRecord(TableId::layer, "Wand"));
    EXPECT_EQ(layer.tags.integer(62), 3);
    EXPECT_EQ(layer.tags.handle(390), // plot style: the one that is here
              to.record(to.tableRecord(TableId::layer, "0")).tags.handle(390));
    EXPECT_EQ(there.lastChild(there.modelSpace()), to.indexOf(copyOf(pulled)));
    const AcDbObjectId copy = copyOf(data);
    EXPECT_EQ(to.named(copy, 340), copyOf(pulled));
    EXPECT_EQ(to.named(copy, 341), copyOf(object));
    EXPECT_EQ(to.at(to.at(to.at(to.root(), "FIRST"), "Second"), "object"), copyOf(object));
    EXPECT_EQ(to.named(copyOf(object), 340), copyOf(insert));
    EXPECT_EQ(to.named(copy, 342), copyOf(onOther));
    EXPECT_EQ(to.named(copy, 343), to.tableRecord(TableId::style, "ISO"));
    EXPECT_EQ(to.named(copy, 344), to.model());
    EXPECT_EQ(to.named(copy, 332), copyOf(pulled));
    EXPECT_EQ(to.named(copy, 345), to.root());
    EXPECT_EQ(to.named(copy, 346), to.at(to.at(to.root(), "ACAD_LAYOUT"), "Layout1"));
    for (const int code : {330, 331}) EXPECT_EQ(to.record(copy).tags.handle(code, 7), 0u) << code;
    EXPECT_EQ(to.at(to.at(to.at(to.root(), "FIRST"), "Second"), "beside"), AcDbObjectId());
    expectWhole(to);

    // What has come already is used the second time.
    const std::size_t records = there.tableRecords(TableId::blockRecord).size();
    ASSERT_EQ(between(to, {insert}, to.model()), Acad::eOk);
    EXPECT_EQ(there.tableRecords(TableId::blockRecord).size(), records);
    expectWhole(to);
}

TEST_F(Cloning, ModesDecideAboutNamesThatAreTaken)
{
    struct Case
    {
        AcDb::DuplicateRecordCloning cloning;
        const char *key, *layer; // of the copies
        bool cloned, oldStays;
        int colour; // of layer "Wand" afterwards
    };
    constexpr Case kCases[] = {
        {AcDb::kDrcIgnore, "Key", "Wand", false, true, 1},
        {AcDb::kDrcNotApplicable, "Key", "Wand", false, true, 1},
        {AcDb::kDrcReplace, "Key", "Wand", true, false, 5},
        {AcDb::kDrcMangleName, "$1$Key", "$0$Wand", true, true, 1},
        {AcDb::kDrcXrefMangleName, "pl_n$0$Key", "pl_n$0$Wand", true, true, 1},
        {AcDb::kDrcUnmangleName, "Key", "Wand", false, true, 1}};
    dxf::TemporaryFolder folder;
    for (const Case& one : kCases) {
        SCOPED_TRACE(one.cloning);
        Sheet from(host_), to(host_);
        ASSERT_EQ(from.document.save(folder.file("pl=n.dxf")), "");
        from.make("0 LAYER|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Wand|70 0|62 5");
        to.make("0 LAYER|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 WAND|70 0|62 1");
        const AcDbObjectId line = from.make("0 LINE|8 Wand|10 0 0 0|11 1 0 0");
        const AcDbObjectId mine = from.xrecord(from.root(), u"Key", "1 new|330 @", line);
        const AcDbObjectId names = from.xrecord(from.root(), u"names", "330 @", mine);
        const AcDbObjectId old = to.xrecord(to.root(), u"KEY", "1 old");
        to.xrecord(to.root(), u"$0$Key", "1 taken too");

        ASSERT_EQ(between(to, {line}, to.model(), one.cloning), Acad::eOk);
        ASSERT_EQ(between(to, {names, mine}, to.root(), one.cloning), Acad::eOk);
        bool cloned = !one.cloned;
        const AcDbObjectId made = standsFor(map_, mine, &cloned);
        EXPECT_EQ(cloned, one.cloned);
        EXPECT_EQ(to.at(to.root(), one.key), made);
        EXPECT_EQ(to.record(made).tags.text(1), one.cloned ? "new" : "old");
        EXPECT_EQ(to.named(copyOf(names), 330), made);
        EXPECT_EQ(old.isErased(), !one.oldStays);
        EXPECT_TRUE(drawing::sameName(to.record(copyOf(line)).layer(), one.layer));
        EXPECT_EQ(to.record(to.tableRecord(TableId::layer, "Wand")).tags.integer(62), one.colour);
        expectWhole(to);
    }
}

TEST_F(Cloning, UnmanglingTakesTheFrontAwayAndReplacingKeepsTheHandlesOfRecords)
{
    Sheet from(host_), to(host_);
    from.make("0 LAYER|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 plan$0$Wand|70 0");
    const AcDbObjectId line = from.make("0 LINE|8 plan$0$Wand|10 0 0 0|11 1 0 0");
    ASSERT_EQ(between(to, {line}, to.model(), AcDb::kDrcUnmangleName), Acad::eOk);
    EXPECT_EQ(to.record(copyOf(line)).layer(), "Wand");
    EXPECT_NE(to.tableRecord(TableId::layer, "Wand"), AcDbObjectId());

    for (Sheet* sheet : {&from, &to}) {
        sheet->make("0 BLOCK|2 Teil|70 0|10 " + std::string(sheet == &from ? "7" : "1") + " 0 0");
        sheet->make("0 CIRCLE|8 0|10 0 0 0|40 " + std::string(sheet == &from ? "7" : "1"));
        sheet->make("0 ENDBLK");
    }
    const AcDbObjectId block = to.tableRecord(TableId::blockRecord, "Teil");
    to.xrecord(to.extension(block), u"OLD");
    const AcDbObjectId insert = from.make("0 INSERT|2 Teil|10 0 0 0");
    const AcDbObjectId source = from.tableRecord(TableId::blockRecord, "Teil");
    from.xrecord(from.extension(source), u"NEW");
    const Handle handle = block.handle();
    ASSERT_EQ(between(to, {insert}, to.model(), AcDb::kDrcReplace), Acad::eOk);
    EXPECT_EQ(copyOf(source), block);
    EXPECT_EQ(Handle{block.handle()}, handle);
    std::vector<double> radii;
    const drawing::Drawing& drawing = to.drawing();
    for (drawing::Index child = drawing.firstChild(to.indexOf(block)); child != drawing::kNone;
         child = drawing.next(child))
        if (!drawing.at(child).erased) radii.push_back(drawing.at(child).tags.real(40));
    EXPECT_EQ(radii, std::vector{7.0});
    EXPECT_EQ(drawing.at(to.record(block).extras()->blockBegin).tags.point(10).x, 7.0);
    EXPECT_NE(to.at(to.extension(block), "NEW"), AcDbObjectId());
    EXPECT_EQ(to.at(to.extension(block), "OLD"), AcDbObjectId());
    expectWhole(to);

    // A table record by itself goes into its table.
    const AcDbObjectId layer =
        from.make("0 LAYER|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Alone|70 0");
    const AcDbObjectId layers = to.id(to.drawing().tableHead(TableId::layer));
    ASSERT_EQ(between(to, {layer}, layers), Acad::eOk);
    EXPECT_EQ(to.tableRecord(TableId::layer, "Alone"), copyOf(layer));
    const AcDbObjectId styles = to.id(to.drawing().tableHead(TableId::style));
    EXPECT_EQ(between(to, {layer}, styles), Acad::eNotThatKindOfClass);
}

TEST_F(Cloning, DictionariesMeetAndTheirFlagsDecide)
{
    Sheet from(host_), to(host_);
    const AcDbObjectId mine = from.dictionary(from.root(), u"SET", true);
    const AcDbObjectId theirs = to.dictionary(to.root(), u"set", true);
    const AcDbObjectId nested = from.dictionary(mine, u"Nested", true);
    const AcDbObjectId there = to.dictionary(theirs, u"Nested", true);
    for (const ACHAR* key : {u"same", u"flagged", u"*A1"}) {
        from.xrecord(mine, key, "1 new");
        from.xrecord(nested, key, "1 new");
        to.xrecord(theirs, key, "1 old");
        to.xrecord(there, key, "1 old");
    }
    from.xrecord(mine, u"only", "1 new");
    const AcDbObjectId soft = from.dictionary(mine, u"Soft", false);
    const AcDbObjectId followed = from.xrecord(soft, u"listed"), lost = from.xrecord(soft, u"not");
    Opened<AcDbDictionary>(nested, AcDb::kForWrite)->setMergeStyle(AcDb::kDrcReplace);
    for (const AcDbObjectId dictionary : {mine, nested})
        Opened<AcDbXrecord>(from.at(dictionary, "flagged"), AcDb::kForWrite)
            ->setMergeStyle(AcDb::kDrcMangleName);

    ASSERT_EQ(between(to, {mine, followed}, to.root()), Acad::eOk);
    EXPECT_EQ(copyOf(mine), theirs);
    EXPECT_EQ(copyOf(nested), there);
    const auto text = [&](AcDbObjectId dictionary, const char* key) {
        const AcDbObjectId found = to.at(dictionary, key);
        return found.isNull() ? std::string("none") : std::string(to.record(found).tags.text(1));
    };
    EXPECT_EQ(text(theirs, "same"), "old");
    EXPECT_EQ(text(theirs, "only"), "new");
    EXPECT_EQ(text(theirs, "flagged") + text(theirs, "$0$flagged"), "oldnew");
    EXPECT_EQ(text(theirs, "*A1") + text(theirs, "*A2"), "oldnew"); // never the same by its name
    EXPECT_EQ(text(there, "same"), "new");
    EXPECT_EQ(text(there, "flagged") + text(there, "$0$flagged"), "oldnew");
    // Soft owned ones come when they are asked for.
    EXPECT_EQ(to.at(copyOf(soft), "listed"), copyOf(followed));
    EXPECT_EQ(copyOf(lost), AcDbObjectId());
    EXPECT_EQ(Opened<AcDbDictionary>(copyOf(soft))->numEntries(), 1u);
    expectWhole(to);
}

TEST_F(Cloning, WholeSpacesOfAnotherProgramCopyIntoANewDrawing)
{
    // The entities of a space, and all they need, tell the same in the other drawing.
    for (const std::string& version : dxf::sampleVersions()) {
        SCOPED_TRACE(version);
        std::string problem;
        Document* source = host_.openDocument(dxf::samplePath(version), problem);
        ASSERT_NE(source, nullptr) << problem;
        const drawing::Drawing& from = source->drawing();
        Sheet to(host_);
        const std::string empty = to.text();
        to.drawing().journal().step();
        AcDbObjectIdArray entities;
        for (drawing::Index child = from.firstChild(from.modelSpace()); child != drawing::kNone;
             child = from.next(child))
            entities.append(outerId(from.idOf(child)));
        ASSERT_GT(entities.length(), 20);
        ASSERT_EQ(to.database().wblockCloneObjects(entities, to.model(), map_, AcDb::kDrcIgnore),
                  Acad::eOk);
        drawing::Index made = to.drawing().firstChild(to.drawing().modelSpace());
        for (const AcDbObjectId id : entities) {
            ASSERT_EQ(to.id(made), copyOf(id));
            const drawing::Record& before = *from.find(innerId(id));
            const drawing::Record& after = to.drawing().at(made);
            EXPECT_EQ(before.typeName(), after.typeName());
            auto it = after.tags.begin();
            for (const drawing::Tag tag : before.tags) {
                ASSERT_NE(it, after.tags.end());
                const bool anonymous = tag.isText() && tag.text().starts_with("*");
                const bool translated = tag.kind() == drawing::TagKind::handle || anonymous;
                EXPECT_TRUE(translated || tag == *it) << before.typeName() << " " << tag.code();
                ++it;
            }
            EXPECT_EQ(it, after.tags.end());
            made = to.drawing().next(made);
        }
        expectWhole(to);
        to.drawing().journal().undo(1);
        // Classes stay: they may be in use by then.
        EXPECT_TRUE(sectionsBehindClasses(to.text()) == sectionsBehindClasses(empty));
        host_.closeDocument(*source);
    }
}

TEST_F(Cloning, CustomObjectsBringTheirClasses)
{
    Sheet from(host_), to(host_);
    drawing::Drawing& source = from.drawing();
    drawing::TagList row;
    row.addText(1, "MY_ENTITY");
    row.addText(2, "MyEntity");
    row.addText(3, "Her App");
    for (const int code : {90, 91, 280, 281}) row.addInteger(code, code == 281 ? 1 : 0);
    to.drawing().classes.erase(to.drawing().classes.begin()); // so that numbers differ
    source.classes.push_back(row);
    const auto number = static_cast<std::int64_t>(500 + source.classes.size() - 1);
    drawing::Record custom("MY_ENTITY", drawing::Family::entity);
    drawing::Record proxy(drawing::Kind::proxyEntity, drawing::Family::entity);
    for (drawing::Record* record : {&custom, &proxy}) {
        record->tags.addText(100, "AcDbEntity");
        record->tags.addText(8, "0");
        record->tags.addText(100, record == &custom ? "MyEntity" : "AcDbProxyEntity");
    }
    proxy.tags.addInteger(90, 498);
    proxy.tags.addInteger(91, number);
    AcDbObjectIdArray ids;
    for (drawing::Record* record : {&proxy, &custom}) {
        const drawing::Index index = source.add(std::move(*record));
        source.appendChild(source.modelSpace(), index);
        ids.append(from.id(index));
    }
    ASSERT_EQ(to.database().wblockCloneObjects(ids, to.model(), map_, AcDb::kDrcIgnore), Acad::eOk);
    const std::vector<drawing::TagList>& classes = to.drawing().classes;
    EXPECT_EQ(classes.back(), row);
    EXPECT_EQ(to.record(copyOf(ids[0])).tags.integer(91),
              static_cast<std::int64_t>(500 + classes.size() - 1));
}

} // namespace
