// SPDX-License-Identifier: LicenseRef-ORVALD
// A list that joins the one before it loses its marks: the end at once, the beginning when the
// whole is taken, so that nothing is moved twice however deep the lists nest.
#include "kexdata/list_builder.h"

#include "data_access.h"

namespace KEX {

using Kind = CKexDataItem::Kind;

void ListBuilder::begin()
{
    open_.push_back({values_.size()});
    values_.push_back(DataAccess::mark(Kind::listBegin));
}

void ListBuilder::value(CKexDataItem item)
{
    KEX_ASSERT(item.isAtom(), "lists hold values and lists only");
    values_.push_back(std::move(item));
    valueDone(values_.size() - 1, nullptr);
}

void ListBuilder::add(CKexDataItem item)
{
    switch (item.kind()) {
    case Kind::listBegin: return begin();
    case Kind::listEnd: return end(false);
    case Kind::listEndDotted: return end(true);
    case Kind::list:
    case Kind::dottedList:
        begin();
        for (const CKexDataItem& inner : item.listValues()) add(inner);
        return end(item.kind() == Kind::dottedList);
    default: return value(std::move(item));
    }
}

void ListBuilder::valueDone(std::size_t start, const List* inner)
{
    if (open_.empty()) return;
    List& list = open_.back();
    ++list.count;
    if (values_[start].kind() == Kind::real) ++list.reals;
    list.lastStart = start;
    list.lastCount = inner == nullptr ? 0 : inner->count;
    list.lastReals = inner == nullptr ? 0 : inner->reals;
}

/// Lets the tail of a dotted list join it where it can; true when the list is still dotted.
bool ListBuilder::joinTail(List& list)
{
    switch (values_.back().kind()) {
    case Kind::nil:
        values_.pop_back();
        --list.count;
        return false;
    case Kind::point3d:
    case Kind::point2d: {
        const CKexDataItem point = std::move(values_.back());
        values_.pop_back();
        const std::size_t reals = point.kind() == Kind::point3d ? 3 : 2;
        CKexPoint3d place;
        point.get(place);
        for (std::size_t i = 0; i < reals; ++i) values_.emplace_back(place.asArray()[i]);
        list.count += reals - 1;
        list.reals += reals;
        return false;
    }
    case Kind::listEnd:
    case Kind::listEndDotted: {
        const bool dotted = values_.back().kind() == Kind::listEndDotted;
        values_.pop_back();
        DataAccess::drop(values_[list.lastStart]);
        list.count += list.lastCount - 1;
        list.reals += list.lastReals;
        return dotted;
    }
    default: return true;
    }
}

void ListBuilder::end(bool dotted)
{
    KEX_ASSERT(!open_.empty() && (!dotted || open_.back().count >= 2), "marks come out even");
    List list = open_.back();
    open_.pop_back();
    if (dotted) dotted = joinTail(list);
    const bool isPoint =
        !dotted && list.count == list.reals && (list.count == 2 || list.count == 3);
    if (!isPoint && list.count != 0) {
        values_.push_back(DataAccess::mark(dotted ? Kind::listEndDotted : Kind::listEnd));
        return valueDone(list.start, &list);
    }
    double xyz[3] = {};
    std::size_t found = 0;
    for (std::size_t i = list.start; i < values_.size() && found < list.count; ++i) {
        if (values_[i].get(xyz[found])) ++found;
    }
    values_.resize(list.start);
    if (list.count == 3) values_.emplace_back(CKexPoint3d(xyz));
    else
        values_.push_back(list.count == 2 ? CKexDataItem::point2d(xyz[0], xyz[1]) : CKexDataItem());
    valueDone(list.start, nullptr);
}

CKexDataItem ListBuilder::take()
{
    KEX_ASSERT(open_.empty() && !values_.empty(), "the list is finished");
    CKexDataItem::Values values = std::exchange(values_, {});
    if (values.front().kind() != Kind::listBegin) return std::move(values.front());
    const Kind kind = values.back().kind() == Kind::listEnd ? Kind::list : Kind::dottedList;
    values.pop_back();
    DataAccess::drop(values.front());
    std::erase_if(values, DataAccess::isDropped);
    return DataAccess::listOf(std::move(values), kind);
}

// -- lists that somebody else wrote

/// A value, or a list, comes into the list that is open.
ListReader::Problem ListReader::count()
{
    if (lists_.empty()) return Problem::none;
    List& list = lists_.back();
    if (list.tail == Tail::read) return Problem::behindTail;
    if (list.tail == Tail::follows) list.tail = Tail::read;
    list.empty = false;
    return Problem::none;
}

ListReader::Problem ListReader::begin()
{
    const Problem problem = count();
    if (problem != Problem::none) return problem;
    lists_.emplace_back();
    builder_.begin();
    return problem;
}

ListReader::Problem ListReader::value(CKexDataItem item)
{
    const Problem problem = count();
    if (problem == Problem::none) builder_.value(std::move(item));
    return problem;
}

ListReader::Problem ListReader::dot()
{
    List& list = lists_.back();
    if (list.empty || list.tail != Tail::none) return Problem::dotPlace;
    list.tail = Tail::follows;
    return Problem::none;
}

ListReader::Problem ListReader::end()
{
    const Tail tail = lists_.back().tail;
    if (tail == Tail::follows) return Problem::noTail;
    lists_.pop_back();
    builder_.end(tail == Tail::read);
    return Problem::none;
}

} // namespace KEX
