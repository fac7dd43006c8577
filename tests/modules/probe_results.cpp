// SPDX-License-Identifier: LicenseRef-ORVALD
#include "probe.h"

#include "hostapi/lisp.h"
#include "kexdata/data_dir.h"
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"

#include <limits>

namespace probe {

using namespace KEX;

namespace {

CKexVertexArray square()
{
    CKexVertexArray list;
    list.append(CKexVertex({0, 0}, {2, 0}));
    list.append(CKexVertex({2, 0}, {0, 0}, 1.0));
    return list;
}

CKexVertexArrayEx extended()
{
    CKexVertexArrayEx list;
    list.append(VertexEx(CKexVertex({0, 0}, {2, 0}, 1.0)));
    list.append(VertexEx(CKexVertex({2, 0}, {3, 0}),
                         CSmartResbuf(acutBuildList(RTSTR, KT("Kante"), RTNONE))));
    return list;
}

int chainResult(RbBuilder& chain) { return returnRb(chain.take()); }

} // namespace

int retFlag(const resbuf* args) { return retAds(ArgReader(args).flag()); }
int retInt(const resbuf*) { return retAds(70000); }
int retReal(const resbuf*) { return retAds(2.5); }
int retText(const resbuf*) { return retAds(CKexString(KT("Maß"))); }
int retNullText(const resbuf*) { return retAds(static_cast<const ACHAR*>(nullptr)); }
int retPoint(const resbuf*) { return retAds(CKexPoint3d(1, 2, 3)); }
int retVector(const resbuf*) { return retAds(CKexVector3d(0, 0, 1)); }

int retShortChain(const resbuf*)
{
    CSmartResbuf chain(acutBuildList(RTSHORT, -7, RTLONG, 70000, RTSHORT, 8, RTNONE));
    return returnRb(chain);
}

int retFour(const resbuf*)
{
    const double values[4] = {1, 2, 3, 4};
    return retAds(values);
}

int retName(const resbuf* args) { return retAds(CAdsName(args->resval.rlname), args->restype); }

/// The entity as object id; the null id without an argument.
int retId(const resbuf* args)
{
    AcDbObjectId id;
    if (args != nullptr) acdbGetObjectId(id, args->resval.rlname);
    return retAds(id);
}

int retNullName(const resbuf*) { return retAds(CAdsName(), RTENAME); }

int retIds(const resbuf* args)
{
    AcArray<AcDbObjectId> ids;
    AcDbObjectId id;
    if (acdbGetObjectId(id, args->resval.rlname) == Acad::eOk) ids.append(id);
    return retAds(ids);
}

int retEnames(const resbuf* args)
{
    CKexEnameArray names;
    for (; args != nullptr; args = args->rbnext) names.append(CKexEname(args->resval.rlname));
    return retAds(names);
}

int retPoints(const resbuf*)
{
    CKexPoint3dArray points;
    points.append({1, 2, 3});
    points.append({4, 5, 6});
    return retAds(points);
}

int retInts(const resbuf*) { return retAds(CKexArrayTempl<int>{1, 70000}); }
int retShorts(const resbuf*) { return retAds(CKexArrayTempl<short>{1, -2}); }
int retReals(const resbuf*) { return retAds(CKexArrayTempl<double>{1.5, 2.0}); }
int retTexts(const resbuf*) { return retAds(CKexArrayTempl<CKexString>{KT("a"), KT("")}); }
int retVertex(const resbuf*) { return retAds(CKexVertex({0, 0}, {2, 0}, 1.0)); }
int retVertexList(const resbuf*) { return retAds(square()); }
int retVertexLists(const resbuf*) { return retAds(CKexArrayTempl<CKexVertexArray>{square()}); }

int retRegions(const resbuf*)
{
    return retAds(CKexArrayTempl<CKexArrayTempl<CKexVertexArray>>{{square()}});
}

int retExtended(const resbuf*) { return retAds(extended()); }

int retExtendedLists(const resbuf*)
{
    return retAds(CKexArrayTempl<CKexArrayTempl<CKexVertexArrayEx>>{{extended()}});
}

int retPointLists(const resbuf*)
{
    CKexPoint3dArray points;
    points.append({1, 2, 3});
    return retAds(CKexArrayTempl<CKexPoint3dArray>{points, CKexPoint3dArray()});
}

int retTextLists(const resbuf*)
{
    return retAds(CKexArrayTempl<CKexArrayTempl<CKexString>>{{KT("a"), KT("b")}, {KT("c")}});
}

int retNorm(const resbuf*)
{
    nrmResult row;
    for (const double value : {1.0, 2.5, std::numeric_limits<double>::quiet_NaN(), 4.0}) {
        row.append(value);
    }
    return retAds(row);
}

int retNormNone(const resbuf*) { return retAds(nrmResult()); }
int retMatrix(const resbuf*) { return retAds(CKexMatrix3d()); }

int retItem(const resbuf* args)
{
    CKexDataItem item;
    if (auto read = CKexDataItem::fromRb(args)) item = std::move(*read);
    return retAds(&item);
}

int retNoItem(const resbuf*) { return retAds(static_cast<const CKexDataItem*>(nullptr)); }

int retTextMap(const resbuf* args)
{
    CKexMapTempl<CKexString, CKexString> map;
    if (args != nullptr) {
        map.set(KT("B"), KT("2"));
        map.set(KT("A"), KT("1"));
    }
    return retAds(map);
}

int retTextsMap(const resbuf*)
{
    CKexMapTempl<CKexString, CKexArrayTempl<CKexString>> map;
    map.set(KT("A"), {KT("x"), KT("y")});
    map.set(KT("B"), {});
    return retAds(map);
}

int retKeys(const resbuf*)
{
    CKexDataKey two(KT("PARM2\\TYPE"));
    return retAds(CKexArrayTempl<CKexDataKey>{CKexDataKey(KT("A")), CKexDataKey(3), two});
}

int retDxfNode(const resbuf*)
{
    CSmartResbuf node(acutBuildList(8, KT("Wand"), RTNONE));
    return returnRb(node);
}

int retMiddleDot(const resbuf*)
{
    CSmartResbuf chain(acutBuildList(RTLB, RTSHORT, 1, RTDOTE, RTSTR, KT("a"), RTLE, RTLB, RTSHORT,
                                     2, RTDOTE, RTSTR, KT("b"), RTLE, RTNONE));
    return retList(chain);
}

int retClosingDot(const resbuf*)
{
    RbBuilder chain;
    chain.begin().begin().text(KT("k")).text(KT("v")).endDotted().end();
    return chainResult(chain);
}

int retNothing(const resbuf*) { return RTNORM; }

int retThenFail(const resbuf*)
{
    retAds(5);
    return RTERROR;
}

int retUnbalanced(const resbuf*)
{
    CSmartResbuf chain(acutBuildList(RTLB, RTSHORT, 1, RTNONE));
    return acedRetList(chain) == RTERROR ? RTNORM : RTERROR;
}

} // namespace probe
