// SPDX-License-Identifier: LicenseRef-ORVALD
// Making and freeing result buffers.
#include "hostapi/resbuf.h"

#include "node_pool.h"
#include "resbuf/groups.h"

#include <array>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <utility>

namespace orvald {
namespace {

struct CodeRange
{
    int first, last;
    GroupKind kind;
};

// In ascending order; what lies between two ranges does not exist.
constexpr CodeRange kRanges[] = {
    {-5, -5, GroupKind::object},     {-4, -4, GroupKind::text},
    {-3, -3, GroupKind::none},       {-2, -1, GroupKind::object},
    {0, 4, GroupKind::text},         {5, 5, GroupKind::handle},
    {6, 9, GroupKind::text},         {10, 37, GroupKind::point},
    {38, 59, GroupKind::real},       {60, 79, GroupKind::int16},
    {90, 99, GroupKind::int32},      {100, 102, GroupKind::text},
    {105, 105, GroupKind::handle},   {110, 139, GroupKind::point},
    {140, 149, GroupKind::real},     {160, 169, GroupKind::int64},
    {170, 179, GroupKind::int16},    {210, 239, GroupKind::point},
    {270, 299, GroupKind::int16},    {300, 309, GroupKind::text},
    {310, 319, GroupKind::binary},   {320, 329, GroupKind::handle},
    {330, 369, GroupKind::object},   {370, 389, GroupKind::int16},
    {390, 399, GroupKind::object},   {400, 409, GroupKind::int16},
    {410, 419, GroupKind::text},     {420, 429, GroupKind::int32},
    {430, 439, GroupKind::text},     {440, 459, GroupKind::int32},
    {460, 469, GroupKind::real},     {470, 479, GroupKind::text},
    {480, 481, GroupKind::object},   {999, 1003, GroupKind::text},
    {1004, 1004, GroupKind::binary}, {1005, 1005, GroupKind::handle},
    {1006, 1009, GroupKind::text},   {1010, 1039, GroupKind::point},
    {1040, 1059, GroupKind::real},   {1060, 1070, GroupKind::int16},
    {1071, 1071, GroupKind::int32},
};

constexpr int kFirstCode = std::begin(kRanges)->first;
constexpr int kLastCode = std::rbegin(kRanges)->last;

/// The kind of every code from the first to the last one.
constexpr auto kKinds = [] {
    std::array<GroupKind, kLastCode - kFirstCode + 1> kinds{};
    for (const CodeRange& range : kRanges)
        for (int code = range.first; code <= range.last; ++code)
            kinds[static_cast<std::size_t>(code - kFirstCode)] = range.kind;
    return kinds;
}();

resbuf* protectedChain = nullptr;

} // namespace

GroupKind groupKind(int code)
{
    if (code < kFirstCode || code > kLastCode) return GroupKind::none;
    return kKinds[static_cast<std::size_t>(code - kFirstCode)];
}

GroupKind nodeKind(int restype)
{
    switch (restype) {
    case RTREAL:
    case RTANG:
    case RTORINT: return GroupKind::real;
    case RTPOINT:
    case RT3DPOINT: return GroupKind::point;
    case RTSHORT: return GroupKind::int16;
    case RTLONG: return GroupKind::int32;
    case RTSTR:
    case RTDXF0: return GroupKind::text;
    case RTENAME:
    case RTPICKS: return GroupKind::object;
    default: return restype >= RTNONE ? GroupKind::none : groupKind(restype);
    }
}

std::size_t lengthOf(const ACHAR* text)
{
    if (text == nullptr) return 0;
    // Four a turn: half the time of std::char_traits, which looks at one.
    for (const ACHAR* at = text;; at += 4) {
        if (at[0] == 0) return static_cast<std::size_t>(at - text);
        if (at[1] == 0) return static_cast<std::size_t>(at - text) + 1;
        if (at[2] == 0) return static_cast<std::size_t>(at - text) + 2;
        if (at[3] == 0) return static_cast<std::size_t>(at - text) + 3;
    }
}

ACHAR* newString(const ACHAR* units, std::size_t count)
{
    ACHAR* copy = takeString(count);
    if (copy == nullptr) return nullptr;
    if (count != 0) std::memcpy(copy, units, count * sizeof(ACHAR));
    copy[count] = 0;
    return copy;
}

resbuf* protectChain(resbuf* arguments) { return std::exchange(protectedChain, arguments); }

void releaseChain(resbuf* chain)
{
    while (chain != nullptr) {
        resbuf* next = chain->rbnext;
        switch (nodeKind(chain->restype)) {
        case GroupKind::text:
        case GroupKind::handle: acutDelString(chain->resval.rstring); break;
        case GroupKind::binary: std::free(chain->resval.rbinary.buf); break;
        default: break;
        }
        giveNode(chain);
        chain = next;
    }
}

} // namespace orvald

using orvald::GroupKind;

extern "C" {

resbuf* acutNewRb(int type)
{
    resbuf* node = orvald::takeNode();
    if (node != nullptr) node->restype = static_cast<short>(type);
    return node;
}

int acutRelRb(resbuf* chain)
{
    if (chain != orvald::protectedChain) orvald::releaseChain(chain);
    return RTNORM;
}

int acutNewString(const ACHAR* text, ACHAR*& copy)
{
    copy = orvald::newString(text, orvald::lengthOf(text));
    return copy == nullptr ? RTERROR : RTNORM;
}

void acutDelString(ACHAR*& text)
{
    if (text != nullptr) orvald::giveString(text);
    text = nullptr;
}

int acutUpdString(const ACHAR* text, ACHAR*& copy)
{
    ACHAR* fresh = nullptr;
    if (acutNewString(text, fresh) != RTNORM) return RTERROR;
    acutDelString(copy);
    copy = fresh;
    return RTNORM;
}

resbuf* acutBuildList(int type, ...)
{
    va_list values;
    va_start(values, type);
    resbuf* first = nullptr;
    resbuf** link = &first;
    bool good = true;
    while (good && type != 0 && type != RTNONE) {
        const int code = type == RTDXF0 ? 0 : type;
        const GroupKind kind = orvald::nodeKind(code);
        const bool mark = code == RTLB || code == RTLE || code == RTDOTE || code == RTNIL ||
                          code == RTT || code == RTVOID || code == -3;
        resbuf* node = kind == GroupKind::none && !mark ? nullptr : acutNewRb(code);
        if (node == nullptr) {
            good = false;
            break;
        }
        *link = node;
        link = &node->rbnext;
        switch (kind) {
        case GroupKind::none: break;
        case GroupKind::text:
        case GroupKind::handle:
            good = acutNewString(va_arg(values, const ACHAR*), node->resval.rstring) == RTNORM;
            break;
        case GroupKind::point:
            std::memcpy(node->resval.rpoint, va_arg(values, const ads_real*), sizeof(ads_point));
            break;
        case GroupKind::real: node->resval.rreal = va_arg(values, ads_real); break;
        case GroupKind::int16: node->resval.rint = static_cast<short>(va_arg(values, int)); break;
        case GroupKind::int32: node->resval.rlong = va_arg(values, std::int32_t); break;
        case GroupKind::int64: node->resval.mnInt64 = va_arg(values, std::int64_t); break;
        case GroupKind::object:
            std::memcpy(node->resval.rlname, va_arg(values, const std::int32_t*), sizeof(ads_name));
            break;
        case GroupKind::binary: {
            const auto* source = va_arg(values, const ads_binary*);
            const auto size = static_cast<std::size_t>(source->clen);
            node->resval.rbinary.buf = static_cast<char*>(std::malloc(size == 0 ? 1 : size));
            good = node->resval.rbinary.buf != nullptr;
            if (good) {
                std::memcpy(node->resval.rbinary.buf, source->buf, size);
                node->resval.rbinary.clen = source->clen;
            }
            break;
        }
        }
        type = va_arg(values, int);
    }
    va_end(values);
    if (good) return first;
    acutRelRb(first);
    return nullptr;
}
}
