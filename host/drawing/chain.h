// SPDX-License-Identifier: LicenseRef-ORVALD
// Groups of records as nodes of result buffers, and back.
#pragma once

#include "drawing/drawing.h"
#include "hostapi/resbuf.h"

namespace orvald::drawing {

/// A chain that grows at its end. What is not taken is freed.
class ChainBuilder
{
public:
    ChainBuilder() = default;
    ChainBuilder(const ChainBuilder&) = delete;
    ChainBuilder& operator=(const ChainBuilder&) = delete;
    ~ChainBuilder();

    /// A new node at the end; throws std::bad_alloc when memory is out.
    resbuf& node(int code);
    void text(int code, std::u16string_view value);
    void name(int code, ObjectId id);
    /// One group as programs see it. Groups that no node can hold are left out. With `markPlanar`
    /// the z of a plane point is kPlanarZ.
    void tag(const Drawing& drawing, Tag tag, bool markPlanar = false);
    void list(const Drawing& drawing, const TagList& tags, bool markPlanar = false);
    resbuf* take();

private:
    resbuf* first_ = nullptr;
    resbuf** end_ = &first_;
};

/// The z that marks a plane point: a NaN of our own.
double planarZ();

/// Appends the value of a node to groups in file form. False when it has none: a number that is not
/// finite, a name of another drawing, a text that is no handle.
bool addNode(const Drawing& drawing, const resbuf& node, bool planar, TagList& tags);

} // namespace orvald::drawing
