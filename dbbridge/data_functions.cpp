// SPDX-License-Identifier: LicenseRef-ORVALD
// Functions over data in LISP form, without a drawing: values by key, comparison, data files, label
// texts.
#include "dbbridge/dbbridge_rows.h"
#include "kex/hex.h"
#include "kex/label.h"
#include "kex/units.h"
#include "kexdata/bin_file.h"
#include "kexdata/configuration.h"
#include "kexdata/data_compare.h"
#include "kexdata/data_edit.h"
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"

namespace KEX {
namespace {

constexpr int kCheckDigits = 8; // of a CRC-32

} // namespace

int dVal(const resbuf* args)
{
    ArgReader in(args);
    const CKexDataItem data = in.dataList(1);
    const CKexDataKey key = in.key(2);
    if (in.failed()) return in.fail();
    const CKexDataItem* found = data.find(key);
    return found == nullptr ? retValue(in.peek()) : retAds(found);
}

int dValSet(const resbuf* args)
{
    ArgReader in(args);
    CKexDataItem data = in.dataList(1);
    const CKexDataKey key = in.key(2);
    CKexDataItem value = in.dataAt(key, 3);
    in.require(key.isEmpty() || data.isNil() || data.isDir(), 1);
    // A key that leads through a value is wrong: what stands there must not get lost.
    if (!in.failed()) in.require(dataSet(data, key, std::move(value)), 2);
    if (in.failed()) return in.fail();
    return retAds(&data);
}

int dDirp(const resbuf* args)
{
    ArgReader in(args);
    in.require(!in.isLast(), 0);
    if (in.failed()) return in.fail();
    const auto item = CKexDataItem::fromRb(args);
    return retAds(item != nullptr && item->isDir());
}

int dKey(const resbuf* args)
{
    ArgReader in(args);
    in.require(!in.isLast(), 0);
    if (in.failed()) return in.fail();
    CKexDataKey key;
    dataKeyFromRb(key, args); // what is no key is nil, like the empty one
    RbBuilder parts;
    for (const DataKeyPart& part : key) rbPut(parts, part);
    return retList(parts.take());
}

int dEqual(const resbuf* args)
{
    ArgReader in(args);
    const CKexDataItem a = in.data(1);
    const CKexDataItem b = in.data(2);
    const CKexArrayTempl<CKexDataKey> ignored = in.keyListIfAny(3);
    const std::optional<double> given = in.numberIfAny(4);
    const double tol = given.value_or(cfg_length(KT("_RNDF"), Kex::kUnitDrawing));
    in.require(tol >= 0.0, 4);
    if (in.failed()) return in.fail();
    return retAds(dataEqual(a, b, tol, ignored));
}

int dMerge(const resbuf* args)
{
    ArgReader in(args);
    CKexDataItem data = in.dataList(1);
    const CKexDataItem over = in.dataList(2);
    if (in.failed()) return in.fail();
    dataMerge(data, over);
    return retAds(&data);
}

int dCrc(const resbuf* args)
{
    ArgReader in(args);
    const CKexDataItem data = in.data(0);
    if (in.failed()) return in.fail();
    return retAds(ltox(dataCrc(data), kCheckDigits));
}

int dBread(const resbuf* args)
{
    ArgReader in(args);
    const CKexString file = in.path(0);
    if (in.failed()) return in.fail();
    CKexDataItem data;
    binLoad(file, data);
    return retAds(&data);
}

int dBwrite(const resbuf* args)
{
    ArgReader in(args);
    const CKexString file = in.path(1);
    CKexDataItem data = in.dataList(2);
    if (in.failed()) return in.fail();
    if (data.isNil()) data.mkDir();
    return retAds(binSave(file, data));
}

int dLabelGet(const resbuf* args)
{
    ArgReader in(args);
    const CKexString label = in.string(1);
    const std::optional<CKexString> context = in.stringIfAny(2);
    if (in.failed()) return in.fail();
    return retAds(context.has_value() ? label_get(label, *context) : label_get(label));
}

int dLabelSet(const resbuf* args)
{
    ArgReader in(args);
    in.require(!in.isLast(), 1);
    const CKexString label = in.stringIfAny(1).value_or(CKexString());
    in.require(!in.isLast(), 2);
    const std::optional<CKexString> context = in.stringIfAny(2);
    in.require(!context.has_value() || labelIsContext(*context), 2);
    in.require(!in.isLast(), 3);
    const std::optional<CKexString> text = in.stringIfAny(3);
    if (in.failed()) return in.fail();
    return retAds(label_set(label, context.value_or(CKexString()), text));
}

} // namespace KEX
