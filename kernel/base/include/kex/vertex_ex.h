// SPDX-License-Identifier: LicenseRef-ORVALD
// CKexVertexArrayEx: a vertex list whose vertices carry data.
#pragma once

#include "kex/resbuf_chain.h"
#include "kex/vertex.h"

namespace KEX {

/// A segment with any LISP value.
struct VertexEx
{
    CKexVertex vertex;
    /// One LISP value, a list with its brackets; null for nil. Owned.
    CSmartResbuf data;

    VertexEx() = default;
    explicit VertexEx(const CKexVertex& segment, CSmartResbuf value = CSmartResbuf())
        : vertex(segment), data(std::move(value))
    {
    }
    VertexEx(const VertexEx& other) : vertex(other.vertex), data(rbCopyAll(other.data)) {}
    VertexEx(VertexEx&&) noexcept = default;
    VertexEx& operator=(VertexEx other) noexcept
    {
        vertex = other.vertex;
        data = std::move(other.data);
        return *this;
    }
    ~VertexEx() = default;
};

} // namespace KEX

class CKexVertexArrayEx : public CKexArrayTempl<KEX::VertexEx>
{
public:
    using CKexArrayTempl::CKexArrayTempl;
    CKexVertexArrayEx() = default;
    /// Every segment of the list, without data.
    KEX_BASE_API explicit CKexVertexArrayEx(const CKexVertexArray& list);

    /// The segments alone.
    KEX_BASE_API CKexVertexArray vertices() const;
};
