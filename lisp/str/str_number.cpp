// SPDX-License-Identifier: LicenseRef-ORVALD
// Numbers as texts: bit-strings, lengths, size keys; and the rounding settings.
#include "kex/hex.h"
#include "kex/unit_text.h"
#include "kex/units.h"
#include "kexdata/configuration.h"
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"
#include "str/str_rows.h"

namespace KEX {
namespace {

/// A setting in a unit; 0.0 when it is not there.
int retSetting(const resbuf* args, const ACHAR* name)
{
    int unit = Kex::kUnitDrawing;
    readInteger(args, unit); // kept: what is no integer is no unit
    return retAds(cfg_length(name, unit));
}

} // namespace

int dItox(const resbuf* args)
{
    int value = 0;
    if (!readInteger(args, value)) return retAds(KT("")); // kept: not an error
    return retAds(bitString(static_cast<std::uint32_t>(value)));
}

int dXtoi(const resbuf* args)
{
    ArgReader in(args);
    const CKexString text = in.string(1);
    if (in.failed()) return in.fail();
    return retAds(static_cast<int>(bitsOf(text)));
}

int dXLogAnd(const resbuf* args)
{
    ArgReader in(args);
    in.require(args != nullptr && rbSkip(args) != nullptr, 0);
    const CKexString a = in.string(1);
    const CKexString b = in.string(2);
    if (in.failed()) return in.fail();
    return retAds(bitString(bitsOf(a) & bitsOf(b)));
}

int strToUnit(const resbuf* args)
{
    ArgReader in(args);
    in.require(!in.isLast(), 1);
    const CKexString text = in.stringIfAny(1).value_or(CKexString());
    const int unit = in.integerIfAny(2).value_or(Kex::kUnitDrawing);
    if (in.failed()) return in.fail();
    double length = 0.0;
    return str_to_unit(text, unit, length) ? retAds(length) : retAds(false);
}

int strGdKey(const resbuf* args)
{
    double number = 0.0;
    const resbuf* node = args;
    return readNumber(node, number) ? retAds(str_gd_key(number)) : retValue(args);
}

int strKeyGd(const resbuf* args)
{
    if (args == nullptr || args->restype != RTSTR) return retValue(args);
    return retAds(str_key_gd(args->resval.rstring));
}

int rndL(const resbuf* args) { return retSetting(args, KT("_RNDL")); }
int rndF(const resbuf* args) { return retSetting(args, KT("_RNDF")); }

} // namespace KEX
