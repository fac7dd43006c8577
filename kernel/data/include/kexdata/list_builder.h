// SPDX-License-Identifier: LicenseRef-ORVALD
// ListBuilder: brings a list, given value by value, to the form in which data items keep lists.
// ListReader: the same for lists that somebody else wrote, whose parts may come in any order.
#pragma once

#include "kexdata/data_item.h"

#include <vector>

namespace KEX {

/// Between the outermost begin and its end come values and inner lists. A list of two or three
/// reals becomes a point, an empty one nil; a tail that is a list or nil joins the list that it
/// ends.
class KEX_DATA_API ListBuilder
{
public:
    void begin();
    /// A value that is neither list nor directory.
    void value(CKexDataItem item);
    /// `dotted`: the last value is the tail, and is not the only one.
    void end(bool dotted);
    /// A value, a whole list, or a mark as it stands among the values of a list.
    void add(CKexDataItem item);
    /// True between begin and the end that belongs to it.
    bool isOpen() const { return !open_.empty(); }
    /// The finished list, or what it has become.
    CKexDataItem take();

private:
    struct List
    {
        std::size_t start; // of its mark among the values
        std::size_t count = 0;
        std::size_t reals = 0; // values that are reals
        std::size_t lastStart = 0;
        std::size_t lastCount = 0, lastReals = 0; // of the last value, if it is a list
    };

    void valueDone(std::size_t start, const List* inner);
    bool joinTail(List& list);

    CKexDataItem::Values values_;
    std::vector<List> open_;
};

/// Takes the parts of a list, inner ones included, as they are read. After a problem it is good for
/// nothing more.
class KEX_DATA_API ListReader
{
public:
    enum class Problem
    {
        none,
        behindTail, // one value only stands behind a dot
        noTail,     // a list ends behind its dot
        dotPlace    // a dot at the begin of a list, or a second one
    };

    Problem begin();
    Problem value(CKexDataItem item);
    /// The next value is the tail.
    Problem dot();
    Problem end();
    /// True between the first begin and its end.
    bool isOpen() const { return !lists_.empty(); }
    CKexDataItem take() { return builder_.take(); }

private:
    enum class Tail : unsigned char
    {
        none,
        follows,
        read
    };
    struct List
    {
        bool empty = true;
        Tail tail = Tail::none;
    };

    Problem count();

    ListBuilder builder_;
    std::vector<List> lists_;
};

} // namespace KEX
