// SPDX-License-Identifier: LicenseRef-ORVALD
// Owning, building and reshaping chains of result buffers. Nodes come from the host and go back to
// it; all of this runs on the LISP thread.
//
// One normal form of a dotted pair holds in the kernel, the closing form: RTLB a b RTDOTE, where
// RTDOTE ends the list and says that its last value is the tail. The host takes and gives the
// middle form RTLB a RTDOTE b RTLE as well; rbDotConvert brings a chain to either.
#pragma once

#include "hostapi/resbuf.h"
#include "kex/ename.h"
#include "kex/export.h"
#include "kex/point.h"
#include "kex/string.h"

#include <utility>

namespace KEX {

/// Owns a chain and frees it at the end of its scope.
class CSmartResbuf
{
public:
    CSmartResbuf() = default;
    explicit CSmartResbuf(resbuf* chain) : chain_(chain) {}
    CSmartResbuf(CSmartResbuf&& other) noexcept : chain_(other.release()) {}
    CSmartResbuf& operator=(CSmartResbuf&& other) noexcept
    {
        reset(other.release());
        return *this;
    }
    ~CSmartResbuf() { reset(); }

    operator resbuf*() const { return chain_; }
    resbuf* operator->() const { return chain_; }
    resbuf* get() const { return chain_; }
    /// Gives the chain away.
    resbuf* release() { return std::exchange(chain_, nullptr); }
    void reset(resbuf* chain = nullptr)
    {
        if (chain_ != nullptr) acutRelRb(chain_);
        chain_ = chain;
    }
    /// Hangs a further chain at the end and owns it too. Walks to the end: to build a chain, take
    /// an RbBuilder.
    KEX_BASE_API void append(resbuf* further);

private:
    resbuf* chain_ = nullptr;
};

/// Builds a chain node by node in constant time each. Out of memory is thrown as std::bad_alloc.
class KEX_BASE_API RbBuilder
{
public:
    RbBuilder() = default;
    RbBuilder(const RbBuilder&) = delete;
    RbBuilder& operator=(const RbBuilder&) = delete;
    ~RbBuilder() = default;

    RbBuilder& begin() { return mark(RTLB); }
    RbBuilder& end() { return mark(RTLE); }
    /// Ends a list whose last value is the tail.
    RbBuilder& endDotted() { return mark(RTDOTE); }
    RbBuilder& nil() { return mark(RTNIL); }
    RbBuilder& t() { return mark(RTT); }
    RbBuilder& real(double value);
    /// Always RTLONG, so that no value is narrowed.
    RbBuilder& integer(std::int32_t value);
    RbBuilder& text(const ACHAR* value);
    RbBuilder& text(const CKexString& value) { return text(value.c_str()); }
    RbBuilder& text(TextView value);
    RbBuilder& point(const CKexPoint3d& value);
    /// A point with two coordinates.
    RbBuilder& point2d(double x, double y);
    /// RTNIL for the null name.
    RbBuilder& name(const CAdsName& value, short type = RTENAME);
    /// Copies a whole chain.
    RbBuilder& copy(const resbuf* chain);
    /// Copies the value that starts at a node: the node, or a whole list.
    RbBuilder& copyValue(const resbuf* value);
    /// Takes a whole chain over.
    RbBuilder& adopt(CSmartResbuf chain);

    bool isEmpty() const { return chain_.get() == nullptr; }
    /// Gives the chain away; the builder is empty again.
    CSmartResbuf take();

private:
    resbuf* node(short type);
    RbBuilder& mark(short type);

    CSmartResbuf chain_;
    resbuf* last_ = nullptr;
};

/// A copy of every node of the chain, strings and binary data included.
KEX_BASE_API CSmartResbuf rbCopyAll(const resbuf* chain);
/// The chain as one list: RTLB, the chain, RTLE, always, also when it is one list already. No chain
/// stays none: the empty list is nil.
KEX_BASE_API CSmartResbuf rbToList(CSmartResbuf chain);

/// Brings every dotted pair of the chain to one form, in place: false: RTLB a b RTDOTE, true:
/// RTLB a RTDOTE b RTLE. A chain may hold both: a dot behind one value can only stand in the
/// middle, the others are read so that the brackets come out even, as closing ones where both
/// readings do. False, and no change, when the brackets cannot come out even.
KEX_BASE_API bool rbDotConvert(CSmartResbuf& chain, bool dotInMiddle);
/// Every list that begins ends, no list ends that did not begin, and every dot has a value on both
/// sides; either form of dotted pair.
KEX_BASE_API bool rbBalanced(const resbuf* chain);
/// Nodes of the chain.
KEX_BASE_API int rbLength(const resbuf* chain);
/// The node behind the value that starts at `node`: behind the whole list at RTLB, null at the end
/// of the chain. Only for chains in the closing form.
KEX_BASE_API const resbuf* rbSkip(const resbuf* node);

/// What member of resval a code, RT or DXF, uses; `none` for marks and codes that do not exist.
enum class RbKind
{
    none,
    text,
    real,
    point,
    int16,
    int32,
    int64,
    name,
    binary
};
KEX_BASE_API RbKind rbKind(int restype);

} // namespace KEX
