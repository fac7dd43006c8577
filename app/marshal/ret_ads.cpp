// SPDX-License-Identifier: LicenseRef-ORVALD
// Results. A chain built here is held by a CSmartResbuf until the host has copied it, so that no
// way out leaks it.
#include "marshal/ret_ads.h"

#include "hostapi/lisp.h"
#include "kexdata/data_dir.h"

#include <cmath>

namespace KEX {

int returnRb(resbuf* chain)
{
    if (chain == nullptr) {
        acedRetNil();
    } else if (chain->rbnext == nullptr) {
        if (chain->restype < RTNONE) acedRetList(chain);
        else if (chain->restype == RTSHORT) acedRetInt(chain->resval.rint);
        else acedRetVal(chain);
    } else {
        for (resbuf* node = chain; node != nullptr; node = node->rbnext) {
            if (node->restype != RTSHORT) continue;
            const std::int32_t value = node->resval.rint;
            node->restype = RTLONG;
            node->resval.rlong = value;
        }
        acedRetList(chain);
    }
    return RTNORM;
}

int retList(const resbuf* chain) { return retList(rbCopyAll(chain)); }

int retList(CSmartResbuf&& chain)
{
    CSmartResbuf list = rbToList(std::move(chain));
    rbDotConvert(list, false);
    return returnRb(list);
}

int retValue(const resbuf* value)
{
    if (value == nullptr) return retAds(false);
    CSmartResbuf copy = RbBuilder().copyValue(value).take();
    return returnRb(copy);
}

int retVoid()
{
    acedRetVoid();
    return RTNORM;
}

int retAds(bool value)
{
    if (value) acedRetT();
    else acedRetNil();
    return RTNORM;
}

int retAds(int value)
{
    resbuf node = {};
    node.restype = RTLONG;
    node.resval.rlong = value;
    acedRetVal(&node);
    return RTNORM;
}

int retAds(double value)
{
    acedRetReal(value);
    return RTNORM;
}

int retAds(const ACHAR* text)
{
    acedRetStr(text == nullptr ? KT("") : text);
    return RTNORM;
}

int retAds(const CKexString& text) { return retAds(text.c_str()); }

int retAds(const CKexPoint3d& point)
{
    acedRetPoint(point.asArray());
    return RTNORM;
}

int retAds(const CKexVector3d& vector)
{
    acedRetPoint(vector.asArray());
    return RTNORM;
}

int retAds(const double (&values)[4]) { return retList(mkResbuf(values)); }

int retAds(const CAdsName& name, short type)
{
    if (name.isNull()) acedRetNil();
    else acedRetName(name.asName(), type);
    return RTNORM;
}

int retAds(AcDbObjectId id)
{
    ads_name name = {0, 0};
    if (!id.isNull()) acdbGetAdsName(name, id);
    return retAds(CAdsName(name), RTENAME);
}

int retAds(const AcArray<AcDbObjectId>& ids)
{
    RbBuilder list;
    for (const AcDbObjectId id : ids) {
        ads_name name = {0, 0};
        if (!id.isNull()) acdbGetAdsName(name, id);
        list.name(CAdsName(name));
    }
    return retList(list.take());
}

int retAds(const CKexEnameArray& names) { return retList(mkResbuf(names)); }
int retAds(const CKexVertex& vertex) { return retList(mkResbuf(vertex)); }
int retAds(const CKexMatrix3d& matrix) { return retList(mkResbuf(matrix)); }

int retAds(const Line& line)
{
    return retList(RbBuilder().point(line.start).point(line.end).take());
}

int retAds(const Box& box) { return retAds(Line{box.min, box.max}); }
int retAds(const Plane& plane) { return retAds(Line{plane.origin, CKexPoint3d() + plane.normal}); }

int retAds(const FewPoints& points)
{
    RbBuilder list;
    for (const CKexPoint3d& point : points) list.point(point);
    return retList(list.take());
}

int retAds(const nrmResult& result)
{
    RbBuilder list;
    for (int position = 0; std::isfinite(result[position]); ++position) {
        list.real(result[position]);
    }
    return retList(list.take());
}

int retAds(const CKexDataItem* item)
{
    if (item == nullptr || item->isNil()) {
        acedRetNil();
        return RTNORM;
    }
    if (const CKexDataDir* directory = item->getDir()) return retList(directory->mkLisp());
    CSmartResbuf value = item->mkLisp(); // a list comes with its brackets
    chk_ent(value);
    return returnRb(value);
}

int retAds(const CKexMapTempl<CKexString, CKexString>& map) { return retList(mkResbuf(map)); }

int retAds(const CKexMapTempl<CKexString, CKexArrayTempl<CKexString>>& map)
{
    return retList(mkResbuf(map));
}

} // namespace KEX
