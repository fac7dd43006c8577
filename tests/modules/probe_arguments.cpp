// SPDX-License-Identifier: LicenseRef-ORVALD
#include "probe.h"

#include "hostapi/lisp.h"
#include "kex/dialog.h"
#include "kex/format.h"
#include "kex/rb_print.h"
#include "kexdata/configuration.h"
#include "marshal/arg_reader.h"
#include "marshal/from_rb.h"
#include "marshal/ret_ads.h"

namespace probe {

using namespace KEX;

/// The arguments as a dump would show them.
int argPrint(const resbuf* args) { return retAds(rbPrint(args)); }

int argEcho(const resbuf*) { return retList(acedGetArgs()); }

/// Names read, and how many arguments are left behind them.
int argEnames(const resbuf* args)
{
    CKexEnameArray names;
    fromRb(names, args);
    return retAds(CKexArrayTempl<int>{names.length(), args == nullptr ? 0 : rbLength(args)});
}

int argIds(const resbuf* args)
{
    AcArray<AcDbObjectId> ids;
    return retAds(fromRb(ids, args));
}

/// text, integer >= 1, [number], point, vertex list
int argReader(const resbuf* args)
{
    ArgReader in(args);
    const CKexString text = in.string(1);
    const int count = in.integer(2);
    in.require(count >= 1, 2);
    const std::optional<double> number = in.numberIfAny(3);
    const CKexPoint3d point = in.point(4);
    const CKexVertexArray list = in.vertexList(5);
    const bool flag = in.flag();
    if (in.failed()) return in.fail();
    return retAds(format(KT("{} {} {} {} {} {} {} {}"), text, count, number.value_or(-1.0), point.x,
                         point.y, point.z, list.length(), flag ? KT("T") : KT("nil")));
}

/// A value through the data tree and back.
int argItem(const resbuf* args)
{
    const std::unique_ptr<CKexDataItem> item = CKexDataItem::fromRb(args);
    return retAds(item.get());
}

/// Sets a value of the configuration.
int argConfigure(const resbuf* args)
{
    CKexDataKey key;
    if (!dataKeyFromRb(key, args)) return RTERROR;
    const std::unique_ptr<CKexDataItem> item = CKexDataItem::fromRb(args);
    return retAds(item != nullptr && cfg_set(key, *item));
}

/// For T a dialog is open from now on, whose window is 0xABC; for anything else none.
int argDialog(const resbuf* args)
{
    static constexpr DialogSource kOpen = {[] { return true; },
                                           [] { return reinterpret_cast<void*>(0xABC); }};
    dialogSourceSet(ArgReader(args).flag() ? &kOpen : nullptr);
    return retAds(true);
}

/// Changes the first text in the host's chain, then reads the arguments again.
int argChangeInPlace(const resbuf* args)
{
    if (args == nullptr || args->restype != RTSTR || *args->resval.rstring == 0) return RTERROR;
    args->resval.rstring[0] = KT('*');
    return retAds(acedGetArgs()->resval.rstring);
}

} // namespace probe
