// SPDX-License-Identifier: LicenseRef-ORVALD
// The C functions on entities, selection sets and system variables, as a module calls them.
#include "document.h"
#include "host.h"
#include "hostapi/entity.h"
#include "hostapi/lisp.h"
#include "value_chain.h"

#include <gtest/gtest.h>

namespace {

using namespace orvald;

class EntityCalls : public testing::Test
{
protected:
    EntityCalls()
    {
        host_.console().setLevel(Console::Level::quiet);
        host_.newDocument();
    }
    static void makeLine(double x, ads_name name)
    {
        const ads_point from = {x, 0.0, 0.0}, to = {x, 5.0, 0.0};
        const Chain groups(acutBuildList(RTDXF0, u"LINE", 8, u"Wand", 10, from, 11, to, RTNONE));
        ASSERT_EQ(acdbEntMake(groups.get()), RTNORM);
        ASSERT_EQ(acdbEntLast(name), RTNORM);
    }
    static const resbuf* group(const Chain& chain, int code)
    {
        const resbuf* node = chain.get();
        while (node != nullptr && node->restype != code) node = node->rbnext;
        return node;
    }
    static int errnoValue()
    {
        resbuf value = {};
        acedGetVar(u"ERRNO", &value);
        return value.resval.rint;
    }

    Host host_;
};

TEST_F(EntityCalls, WhatWasMadeIsReadChangedErasedAndRestored)
{
    ads_name line, other;
    makeLine(1.0, line);
    Chain groups(acdbEntGet(line));
    ASSERT_NE(groups, nullptr);
    EXPECT_EQ(groups->restype, -1);
    EXPECT_STREQ(reinterpret_cast<const char*>(group(groups, 8)->resval.rstring),
                 reinterpret_cast<const char*>(u"Wand"));

    Chain change(acutBuildList(-1, line, 62, 3, RTNONE));
    EXPECT_EQ(acdbEntMod(change.get()), RTNORM);
    groups.reset(acdbEntGet(line));
    EXPECT_EQ(group(groups, 62)->resval.rint, 3);
    EXPECT_EQ(acdbHandEnt(group(groups, 5)->resval.rstring, other), RTNORM);
    EXPECT_EQ(other[0], line[0]);

    EXPECT_EQ(acdbEntDel(line), RTNORM);
    EXPECT_EQ(acdbEntGet(line), nullptr);
    EXPECT_EQ(errnoValue(), 17);
    EXPECT_EQ(acdbEntNext(nullptr, other), RTERROR);
    EXPECT_EQ(acdbEntDel(line), RTNORM);
    EXPECT_EQ(acdbEntNext(nullptr, other), RTNORM);
    EXPECT_EQ(other[0], line[0]);
    EXPECT_EQ(acdbEntNext(line, other), RTERROR);
}

TEST_F(EntityCalls, NamesThatAreNoneAreRefusedWithErrno)
{
    const ads_name nobody = {77, 1}, none = {0, 0};
    for (const auto& name : {nobody, none}) {
        EXPECT_EQ(acdbEntGet(name), nullptr);
        EXPECT_EQ(errnoValue(), 2);
        EXPECT_EQ(acdbEntDel(name), RTERROR);
        AcDbObjectId id;
        EXPECT_EQ(acdbGetObjectId(id, name), Acad::eInvalidAdsName);
    }
    EXPECT_EQ(acdbEntGet(nullptr), nullptr);
    EXPECT_EQ(acdbEntMod(nullptr), RTERROR);
    EXPECT_EQ(acdbTblSearch(u"NOSUCH", u"0", 0), nullptr);
    ads_name root;
    ASSERT_EQ(acdbNamedObjDict(root), RTNORM);
    EXPECT_EQ(acdbDictSearch(root, u"NOSUCH", 0), nullptr);
    const Chain layouts(acdbDictSearch(root, u"acad_layout", 0));
    EXPECT_NE(layouts, nullptr);
}

TEST_F(EntityCalls, IdsAndNamesAreTheSameObject)
{
    ads_name line, back;
    makeLine(1.0, line);
    AcDbObjectId id;
    ASSERT_EQ(acdbGetObjectId(id, line), Acad::eOk);
    ASSERT_EQ(acdbGetAdsName(back, id), Acad::eOk);
    EXPECT_TRUE(back[0] == line[0] && back[1] == line[1]);
    EXPECT_EQ(acdbGetAdsName(back, AcDbObjectId()), Acad::eNullObjectId);
}

TEST_F(EntityCalls, AnApplicationRegistersOnce)
{
    EXPECT_EQ(acdbRegApp(u"KexTest"), RTNORM);
    EXPECT_EQ(acdbRegApp(u"kextest"), RTERROR);
}

TEST_F(EntityCalls, SelectionSetsCountTheirMembersAndRunOut)
{
    ads_name line, set, member;
    makeLine(1.0, line);
    makeLine(2.0, line);
    ASSERT_EQ(acedSSGet(u"X", nullptr, nullptr, nullptr, set), RTNORM);
    Adesk_Int32 length = 0;
    EXPECT_EQ(acedSSLength(set, &length), RTNORM);
    EXPECT_EQ(length, 2);
    EXPECT_EQ(acedSSName(set, 0, member), RTNORM);
    EXPECT_EQ(member[0], line[0]);
    EXPECT_EQ(acedSSName(set, 2, member), RTERROR);
    EXPECT_EQ(acedSSName(set, -1, member), RTERROR);
    EXPECT_EQ(acedSSDel(line, set), RTNORM);
    EXPECT_EQ(acedSSMemb(line, set), RTERROR);
    EXPECT_EQ(acedSSAdd(line, set, set), RTNORM);
    EXPECT_EQ(acedSSMemb(line, set), RTNORM);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(acedSSFree(set), RTERROR);
    EXPECT_EQ(acedSSLength(set, &length), RTERROR);

    const Chain circles(acutBuildList(RTDXF0, u"CIRCLE", RTNONE));
    EXPECT_EQ(acedSSGet(u"X", nullptr, nullptr, circles.get(), set), RTERROR);
    std::size_t made = 0;
    while (acedSSAdd(nullptr, nullptr, set) == RTNORM) ++made;
    EXPECT_EQ(made, SelectionSets::kMost);
}

TEST_F(EntityCalls, ASetThatLispNamesTwiceLivesUntilBothAreGone)
{
    lisp::World& world = host_.current()->world();
    ads_name set;
    ASSERT_EQ(acedSSAdd(nullptr, nullptr, set), RTNORM);
    world.setSymbol(u"first", picksetValue(world, set[0]));
    world.setSymbol(u"second", picksetValue(world, set[0]));
    world.setSymbol(u"first", lisp::Value::nil());
    world.collectGarbage();
    EXPECT_TRUE(world.evalText(u"(sslength second)").ok());
    world.setSymbol(u"second", lisp::Value::nil());
    world.collectGarbage();
    EXPECT_EQ(host_.selectionSets().size(), 0u);
}

TEST_F(EntityCalls, VariablesGoBothWays)
{
    resbuf value = {};
    ASSERT_EQ(acedGetVar(u"clayer", &value), RTNORM);
    EXPECT_EQ(value.restype, RTSTR);
    EXPECT_EQ(acedSetVar(u"CLAYER", &value), RTNORM);
    acutDelString(value.resval.rstring);
    ASSERT_EQ(acedGetVar(u"VSMIN", &value), RTNORM);
    EXPECT_EQ(value.restype, RT3DPOINT);
    EXPECT_EQ(acedSetVar(u"VSMIN", &value), RTERROR);
    EXPECT_EQ(errnoValue(), 20);

    // An integer may come in either width and is told in the narrow one.
    value.restype = RTLONG;
    value.resval.rlong = 39;
    EXPECT_EQ(acedSetVar(u"OSMODE", &value), RTNORM);
    EXPECT_EQ(acedGetVar(u"OSMODE", &value), RTNORM);
    EXPECT_EQ(value.restype, RTSHORT);
    EXPECT_EQ(value.resval.rint, 39);
    EXPECT_EQ(acedGetVar(u"NOSUCH", &value), RTERROR);
}

TEST_F(EntityCalls, OnlyAChangeOfAVariableChangesTheDrawing)
{
    Document& document = *host_.current();
    resbuf value = {};
    value.restype = RTREAL;
    value.resval.rreal = 1.0;
    EXPECT_EQ(acedSetVar(u"LTSCALE", &value), RTNORM);
    EXPECT_FALSE(document.isModified());
    value.resval.rreal = 2.0;
    EXPECT_EQ(acedSetVar(u"LTSCALE", &value), RTNORM);
    EXPECT_TRUE(document.isModified());
}

TEST_F(EntityCalls, WithoutADrawingEveryCallFails)
{
    host_.closeDocument(*host_.current());
    ads_name name = {};
    resbuf value = {};
    const ads_point point = {};
    EXPECT_EQ(acdbEntLast(name), RTERROR);
    EXPECT_EQ(acdbEntGet(name), nullptr);
    EXPECT_EQ(acdbNamedObjDict(name), RTERROR);
    EXPECT_EQ(acedSSGet(u"X", nullptr, nullptr, nullptr, name), RTERROR);
    EXPECT_EQ(acedGetVar(u"CLAYER", &value), RTERROR);
    EXPECT_EQ(acedGrDraw(point, point, 1, 0), RTERROR);
    EXPECT_EQ(acdbRegApp(u"KexTest"), RTERROR);
}

} // namespace
