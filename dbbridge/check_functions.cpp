// SPDX-License-Identifier: LicenseRef-ORVALD
// Functions that check values, and the bit-strings in which data keeps flags.
#include "dbbridge/dbbridge_rows.h"
#include "kex/hex.h"
#include "kex/unit_text.h"
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"

#include <limits>

namespace KEX {
namespace {

constexpr TextView kTypeLetters = KT("sinpelkb");
constexpr ACHAR kAnyType = KT('*');

bool isTypePattern(TextView pattern)
{
    for (const ACHAR letter : pattern) {
        if (letter != kAnyType && kTypeLetters.find(lowerUnit(letter)) == TextView::npos)
            return false;
    }
    return true;
}

/// The value at a node is of the type that a small letter says.
bool fits(const resbuf* node, ACHAR letter)
{
    const resbuf* const end = rbSkip(node);
    int whole = 0;
    double number = 0.0;
    CKexPoint3d point;
    CKexDataKey key;
    switch (letter) {
    case KT('s'): return node->restype == RTSTR;
    case KT('i'): return readInteger(node, whole);
    case KT('n'): return readNumber(node, number);
    case KT('p'): return readPoint(node, point) && node == end;
    case KT('e'): return node->restype == RTENAME;
    case KT('l'): return isListNode(*node);
    case KT('k'): return node->restype != RTNIL && dataKeyFromRb(key, node);
    case KT('b'): return node->restype == RTT || node->restype == RTNIL;
    default: return letter == kAnyType;
    }
}

/// The values of a list as a chain; a point is a list of reals.
bool readValues(const resbuf*& rb, CSmartResbuf& values)
{
    if (rb == nullptr || (rb->restype != RTNIL && !isListNode(*rb))) return false;
    RbBuilder list;
    const resbuf* node = rb;
    if (rb->restype == RTLB) {
        for (node = rb->rbnext; node != nullptr && node->restype != RTLE; node = rbSkip(node)) {
            if (node->restype == RTDOTE) return false;
            list.copyValue(node);
        }
        if (node == nullptr) return false;
    } else if (rb->restype != RTNIL) {
        const int coordinates = rb->restype == RTPOINT ? 2 : 3;
        for (int i = 0; i < coordinates; ++i) list.real(rb->resval.rpoint[i]);
    }
    rb = node->rbnext;
    values = list.take();
    return true;
}

/// Position of the first value that is not of its letter's type, from 1; 0 when all are. A capital
/// allows nil and a missing value as well.
int firstMisfit(const resbuf* values, TextView pattern)
{
    int position = 0;
    for (const ACHAR letter : pattern) {
        ++position;
        const ACHAR type = lowerUnit(letter);
        const bool optional = type != letter;
        const bool isNil = values == nullptr || values->restype == RTNIL;
        if (!(optional && isNil) && (values == nullptr || !fits(values, type))) return position;
        if (values != nullptr) values = rbSkip(values);
    }
    return values == nullptr ? 0 : position + 1;
}

} // namespace

int dChkType(const resbuf* args)
{
    ArgReader in(args);
    CSmartResbuf values;
    const resbuf* list = in.any();
    in.require(readValues(list, values), 1);
    const CKexString pattern = in.string(2);
    in.require(isTypePattern(pattern), 2);
    if (in.failed()) return in.fail();
    const int position = firstMisfit(values, pattern);
    return position == 0 ? retAds(false) : retAds(position);
}

int dChkNum(const resbuf* args)
{
    constexpr double kNoLimit = std::numeric_limits<double>::infinity();
    ArgReader in(args);
    const CKexString text = in.string(1);
    const double least = in.numberIfAny(2).value_or(-kNoLimit);
    const double most = in.numberIfAny(3).value_or(kNoLimit);
    if (in.failed()) return in.fail();
    double number = 0.0;
    const bool good = str_to_number(text, number) && number >= least && number <= most;
    return good ? retAds(number) : retAds(false);
}

int dXLogIor(const resbuf* args)
{
    ArgReader in(args);
    in.require(args != nullptr && rbSkip(args) != nullptr, 0);
    const CKexString a = in.string(1);
    const CKexString b = in.string(2);
    if (in.failed()) return in.fail();
    return retAds(bitString(bitsOf(a) | bitsOf(b)));
}

int dXBit(const resbuf* args)
{
    ArgReader in(args);
    const CKexString bits = in.string(1);
    const int n = in.integer(2);
    if (in.failed()) return in.fail();
    return retAds(bitAt(bitsOf(bits), n));
}

int dXBitSet(const resbuf* args)
{
    ArgReader in(args);
    const CKexString bits = in.string(1);
    const int n = in.integer(2);
    const resbuf* set = in.peek();
    in.require(set != nullptr && (set->restype == RTT || set->restype == RTNIL), 3);
    if (in.failed()) return in.fail();
    return retAds(bitString(bitsWith(bitsOf(bits), n, set->restype == RTT)));
}

} // namespace KEX
