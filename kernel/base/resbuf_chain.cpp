// SPDX-License-Identifier: LicenseRef-ORVALD
// Building, copying and measuring chains.
#include "kex/resbuf_chain.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>

namespace KEX {
namespace {

struct KindRange
{
    short first, last;
    RbKind kind;
};

// DXF group codes in ascending order; what lies between two ranges does not exist.
constexpr KindRange kDxfKinds[] = {
    {-5, -5, RbKind::name},      {-4, -4, RbKind::text},       {-2, -1, RbKind::name},
    {0, 9, RbKind::text},        {10, 37, RbKind::point},      {38, 59, RbKind::real},
    {60, 79, RbKind::int16},     {90, 99, RbKind::int32},      {100, 102, RbKind::text},
    {105, 105, RbKind::text},    {110, 139, RbKind::point},    {140, 149, RbKind::real},
    {160, 169, RbKind::int64},   {170, 179, RbKind::int16},    {210, 239, RbKind::point},
    {270, 299, RbKind::int16},   {300, 309, RbKind::text},     {310, 319, RbKind::binary},
    {320, 329, RbKind::text},    {330, 369, RbKind::name},     {370, 389, RbKind::int16},
    {390, 399, RbKind::name},    {400, 409, RbKind::int16},    {410, 419, RbKind::text},
    {420, 429, RbKind::int32},   {430, 439, RbKind::text},     {440, 459, RbKind::int32},
    {460, 469, RbKind::real},    {470, 479, RbKind::text},     {480, 481, RbKind::name},
    {999, 1003, RbKind::text},   {1004, 1004, RbKind::binary}, {1005, 1009, RbKind::text},
    {1010, 1039, RbKind::point}, {1040, 1059, RbKind::real},   {1060, 1070, RbKind::int16},
    {1071, 1071, RbKind::int32},
};

resbuf* newNode(int type)
{
    resbuf* node = acutNewRb(type);
    if (node == nullptr) throw std::bad_alloc();
    return node;
}

CSmartResbuf copyNode(const resbuf& from)
{
    if (rbKind(from.restype) == RbKind::binary && from.resval.rbinary.buf != nullptr) {
        // Binary data belongs to the host's allocator, which only this function reaches.
        CSmartResbuf node(acutBuildList(from.restype, &from.resval.rbinary, RTNONE));
        if (node.get() == nullptr) throw std::bad_alloc();
        return node;
    }
    CSmartResbuf node(newNode(from.restype));
    if (rbKind(from.restype) == RbKind::text) {
        if (from.resval.rstring != nullptr &&
            acutNewString(from.resval.rstring, node->resval.rstring) != RTNORM) {
            throw std::bad_alloc();
        }
    } else {
        node->resval = from.resval;
    }
    return node;
}

} // namespace

RbKind rbKind(int restype)
{
    switch (restype) {
    case RTREAL:
    case RTANG:
    case RTORINT: return RbKind::real;
    case RTPOINT:
    case RT3DPOINT: return RbKind::point;
    case RTSHORT: return RbKind::int16;
    case RTLONG: return RbKind::int32;
    case RTSTR:
    case RTDXF0: return RbKind::text;
    case RTENAME:
    case RTPICKS: return RbKind::name;
    default: break;
    }
    for (const KindRange& range : kDxfKinds) {
        if (restype <= range.last) return restype >= range.first ? range.kind : RbKind::none;
    }
    return RbKind::none;
}

void CSmartResbuf::append(resbuf* further)
{
    resbuf** link = &chain_;
    while (*link != nullptr) link = &(*link)->rbnext;
    *link = further;
}

resbuf* RbBuilder::node(short type)
{
    resbuf* fresh = newNode(type);
    if (last_ == nullptr) chain_.reset(fresh);
    else last_->rbnext = fresh;
    last_ = fresh;
    return fresh;
}

RbBuilder& RbBuilder::mark(short type)
{
    node(type);
    return *this;
}

RbBuilder& RbBuilder::real(double value)
{
    node(RTREAL)->resval.rreal = value;
    return *this;
}

RbBuilder& RbBuilder::integer(std::int32_t value)
{
    node(RTLONG)->resval.rlong = value;
    return *this;
}

RbBuilder& RbBuilder::text(const ACHAR* value)
{
    if (acutNewString(value, node(RTSTR)->resval.rstring) != RTNORM) throw std::bad_alloc();
    return *this;
}

RbBuilder& RbBuilder::text(TextView value)
{
    ACHAR shortText[128]; // with an end mark, without an allocation
    if (value.size() >= std::size(shortText)) return text(CKexString(value));
    std::copy(value.begin(), value.end(), shortText);
    shortText[value.size()] = 0;
    return text(shortText);
}

RbBuilder& RbBuilder::point(const CKexPoint3d& value)
{
    std::memcpy(node(RT3DPOINT)->resval.rpoint, value.asArray(), sizeof(ads_point));
    return *this;
}

RbBuilder& RbBuilder::point2d(double x, double y)
{
    const ads_point value = {x, y, 0.0};
    std::memcpy(node(RTPOINT)->resval.rpoint, value, sizeof(ads_point));
    return *this;
}

RbBuilder& RbBuilder::name(const CAdsName& value, short type)
{
    if (value.isNull()) return nil();
    std::memcpy(node(type)->resval.rlname, value.asName(), sizeof(ads_name));
    return *this;
}

RbBuilder& RbBuilder::copy(const resbuf* chain)
{
    for (; chain != nullptr; chain = chain->rbnext) adopt(copyNode(*chain));
    return *this;
}

RbBuilder& RbBuilder::copyValue(const resbuf* value)
{
    const resbuf* const end = rbSkip(value);
    for (; value != end; value = value->rbnext) adopt(copyNode(*value));
    return *this;
}

RbBuilder& RbBuilder::adopt(CSmartResbuf chain)
{
    resbuf* first = chain.release();
    if (first == nullptr) return *this;
    if (last_ == nullptr) chain_.reset(first);
    else last_->rbnext = first;
    for (last_ = first; last_->rbnext != nullptr;) last_ = last_->rbnext;
    return *this;
}

CSmartResbuf RbBuilder::take()
{
    last_ = nullptr;
    return std::move(chain_);
}

CSmartResbuf rbCopyAll(const resbuf* chain) { return RbBuilder().copy(chain).take(); }

CSmartResbuf rbToList(CSmartResbuf chain)
{
    if (chain.get() == nullptr) return chain;
    return RbBuilder().begin().adopt(std::move(chain)).end().take();
}

int rbLength(const resbuf* chain)
{
    int nodes = 0;
    for (; chain != nullptr; chain = chain->rbnext) ++nodes;
    return nodes;
}

const resbuf* rbSkip(const resbuf* node)
{
    int depth = 0;
    for (; node != nullptr; node = node->rbnext) {
        if (node->restype == RTLB) ++depth;
        if (node->restype == RTLE || node->restype == RTDOTE) --depth;
        if (depth <= 0) return node->rbnext;
    }
    return nullptr;
}

} // namespace KEX
