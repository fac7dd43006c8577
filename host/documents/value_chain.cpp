// SPDX-License-Identifier: LicenseRef-ORVALD
// Conversion between LISP values and result buffers. Both directions keep their own stack of open
// lists, so that a list may be nested as deep as memory allows.
#include "value_chain.h"

#include "host.h"
#include "resbuf/groups.h"

#include <cstring>
#include <string>
#include <vector>

namespace orvald {
namespace {

using lisp::Kind;
using lisp::Value;

/// Appends nodes; owns the chain until it is taken.
class ChainWriter
{
public:
    explicit ChainWriter(lisp::World& world, ChainForm form) : world_(world), form_(form) {}

    /// False when some part of the value cannot be passed; `culprit` names it.
    bool add(Value value);
    resbuf* take() { return chain_.release(); }
    Value culprit() const { return culprit_; }

private:
    struct OpenList
    {
        Value rest;
    };

    resbuf& node(short type)
    {
        resbuf* fresh = acutNewRb(type);
        if (fresh == nullptr) throw std::bad_alloc();
        if (last_ == nullptr) chain_.reset(fresh);
        else last_->rbnext = fresh;
        last_ = fresh;
        return *fresh;
    }
    bool addAtom(Value value);
    bool addPoint(Value list);
    void open(Value list)
    {
        node(RTLB);
        open_.push_back({list});
    }

    lisp::World& world_;
    ChainForm form_;
    Chain chain_;
    resbuf* last_ = nullptr;
    std::vector<OpenList> open_;
    Value culprit_;
};

bool ChainWriter::addAtom(Value value)
{
    switch (value.kind()) {
    case Kind::nil: node(RTNIL); return true;
    case Kind::integer: {
        const std::int32_t number = value.asInteger();
        const auto narrow = static_cast<short>(number);
        if (narrow == number && !form_.longIntegers) node(RTSHORT).resval.rint = narrow;
        else node(RTLONG).resval.rlong = number;
        return true;
    }
    case Kind::real: node(RTREAL).resval.rreal = value.asReal(); return true;
    case Kind::string: {
        const std::u16string_view text = value.asString();
        resbuf& fresh = node(RTSTR);
        // The units of a LISP string carry no end mark.
        fresh.resval.rstring = newString(text.data(), text.size());
        if (fresh.resval.rstring == nullptr) throw std::bad_alloc();
        return true;
    }
    case Kind::entity: nameFromEntity(value.asEntity(), node(RTENAME).resval.rlname); return true;
    case Kind::pickset: node(RTPICKS).resval.rlname[0] = world_.picksetNumber(value); return true;
    case Kind::symbol:
        if (value == world_.t()) {
            node(RTT);
            return true;
        }
        break;
    default: break;
    }
    culprit_ = value;
    return false;
}

bool ChainWriter::addPoint(Value list)
{
    double coordinates[3] = {0.0, 0.0, 0.0};
    int count = 0;
    Value rest = list;
    for (; rest.isCons(); rest = rest.asCons()->cdr) {
        const Value item = rest.asCons()->car;
        if (count == 3 || !item.isReal()) return false;
        coordinates[count++] = item.asReal();
    }
    if (!rest.isNil() || count < 2) return false;
    std::memcpy(node(count == 2 ? RTPOINT : RT3DPOINT).resval.rpoint, coordinates,
                sizeof coordinates);
    return true;
}

bool ChainWriter::add(Value value)
{
    open_.clear();
    if (!value.isCons()) return addAtom(value);
    if (addPoint(value)) return true;
    open(value);
    while (!open_.empty()) {
        const Value rest = open_.back().rest;
        if (rest.isNil()) {
            node(RTLE);
            open_.pop_back();
            continue;
        }
        if (!rest.isCons()) { // the tail of a dotted list
            if (form_.dotInMiddle) node(RTDOTE);
            if (!addAtom(rest)) return false;
            node(form_.dotInMiddle ? RTLE : RTDOTE);
            open_.pop_back();
            continue;
        }
        open_.back().rest = rest.asCons()->cdr;
        const Value item = rest.asCons()->car;
        if (!item.isCons()) {
            if (!addAtom(item)) return false;
        } else if (!addPoint(item)) {
            open(item);
        }
    }
    return true;
}

/// Which of a chain's RTDOTE marks close their list.
class DotRule
{
public:
    explicit DotRule(const resbuf* chain)
    {
        long begins = 0, ends = 0, dots = 0;
        for (const resbuf* node = chain; node != nullptr; node = node->rbnext) {
            begins += node->restype == RTLB;
            ends += node->restype == RTLE;
            dots += node->restype == RTDOTE;
        }
        if (begins == ends) rule_ = Rule::middle;
        else if (begins == ends + dots) rule_ = Rule::closing;
        else rule_ = Rule::mixed;
    }
    bool closes(const resbuf& dot) const
    {
        if (rule_ != Rule::mixed) return rule_ == Rule::closing;
        // Only a dot with one plain value between itself and the list's end stands in the middle.
        const resbuf* next = dot.rbnext;
        const bool middle = next != nullptr && next->restype != RTLB && next->restype != RTLE &&
                            next->restype != RTDOTE && next->rbnext != nullptr &&
                            next->rbnext->restype == RTLE;
        return !middle;
    }

private:
    enum class Rule
    {
        middle,
        closing,
        mixed
    };
    Rule rule_;
};

/// One list that is being read; the items after a middle dot are its tail.
struct ReadList
{
    std::vector<Value> items;
    bool dotted = false;
};

/// The list of these items; for a dotted list the last one is the tail.
Value makeList(lisp::World& world, const ReadList& read)
{
    std::size_t count = read.items.size();
    Value list = Value::nil();
    if (read.dotted && count > 0) list = read.items[--count];
    while (count > 0) list = world.makeCons(read.items[--count], list);
    return list;
}

/// True when the chain is one RTLB..RTLE pair from its first to its last node.
bool isOneList(const resbuf* chain, const DotRule& dots)
{
    if (chain->restype != RTLB) return false;
    long depth = 0;
    for (const resbuf* node = chain; node != nullptr; node = node->rbnext) {
        if (node->restype == RTLB) ++depth;
        else if (node->restype == RTLE || (node->restype == RTDOTE && dots.closes(*node))) --depth;
        if (depth == 0) return node->rbnext == nullptr;
    }
    return false;
}

} // namespace

void ChainDeleter::operator()(resbuf* chain) const { releaseChain(chain); }

std::uint64_t entityFromName(const std::int32_t* name)
{
    return static_cast<std::uint32_t>(name[0]) |
           (static_cast<std::uint64_t>(static_cast<std::uint32_t>(name[1])) << 32);
}

void nameFromEntity(std::uint64_t entity, std::int32_t* name)
{
    name[0] = static_cast<std::int32_t>(static_cast<std::uint32_t>(entity));
    name[1] = static_cast<std::int32_t>(static_cast<std::uint32_t>(entity >> 32));
}

resbuf* chainFromArguments(lisp::World& world, lisp::Args args, ChainForm form)
{
    ChainWriter writer(world, form);
    for (const Value value : args.all()) {
        if (writer.add(value)) continue;
        const Value culprit = writer.culprit();
        world.raise(u"bad argument type: " + world.prin1(culprit));
    }
    return writer.take();
}

resbuf* chainFromValue(Value value, lisp::World& world, ChainForm form)
{
    ChainWriter writer(world, form);
    return writer.add(value) ? writer.take() : nullptr;
}

Value picksetValue(lisp::World& world, std::int32_t set)
{
    Host::instance().selectionSets().hold(set);
    return world.makePickset(set);
}

std::optional<Value> valueFromNode(lisp::World& world, const resbuf& node)
{
    switch (node.restype) {
    case RTNIL: return Value::nil();
    case RTT: return world.t();
    case RTVOID: return Value::blank();
    case RTPOINT:
        return world.makeList(
            {Value::real(node.resval.rpoint[0]), Value::real(node.resval.rpoint[1])});
    case RTPICKS: return picksetValue(world, node.resval.rlname[0]);
    default: break;
    }
    switch (nodeKind(node.restype)) {
    case GroupKind::text:
    case GroupKind::handle: {
        const ACHAR* text = node.resval.rstring;
        return world.makeString({text, lengthOf(text)});
    }
    case GroupKind::point:
        return world.makeList({Value::real(node.resval.rpoint[0]),
                               Value::real(node.resval.rpoint[1]),
                               Value::real(node.resval.rpoint[2])});
    case GroupKind::real: return Value::real(node.resval.rreal);
    case GroupKind::int16: return Value::integer(node.resval.rint);
    case GroupKind::int32: return Value::integer(node.resval.rlong);
    case GroupKind::int64: {
        // LISP integers have 32 bits; a larger number comes as a real.
        const std::int64_t number = node.resval.mnInt64;
        const auto narrow = static_cast<std::int32_t>(number);
        return narrow == number ? Value::integer(narrow) : Value::real(static_cast<double>(number));
    }
    case GroupKind::object: {
        const std::uint64_t entity = entityFromName(node.resval.rlname);
        return entity == 0 ? Value::nil() : Value::entity(entity);
    }
    case GroupKind::binary: {
        std::u16string digits;
        constexpr char16_t kHex[] = u"0123456789ABCDEF";
        for (short i = 0; i < node.resval.rbinary.clen; ++i) {
            const auto byte = static_cast<unsigned char>(node.resval.rbinary.buf[i]);
            digits += kHex[byte >> 4];
            digits += kHex[byte & 15];
        }
        return world.makeString(digits);
    }
    case GroupKind::none: break;
    }
    return std::nullopt;
}

std::optional<Value> listFromChain(lisp::World& world, const resbuf* chain)
{
    if (chain == nullptr) return Value::nil();
    const DotRule dots(chain);
    const bool one = isOneList(chain, dots);
    // The first entry stands for the list around the whole chain.
    std::vector<ReadList> open(1);
    const auto close = [&] {
        const Value list = makeList(world, open.back());
        open.pop_back();
        open.back().items.push_back(list);
    };
    for (const resbuf* node = chain; node != nullptr; node = node->rbnext) {
        if (node->restype == RTLB) {
            open.emplace_back();
        } else if (node->restype == RTLE) {
            if (open.size() < 2) return std::nullopt;
            close();
        } else if (node->restype == RTDOTE) {
            if (open.size() < 2 || open.back().items.empty()) return std::nullopt;
            open.back().dotted = true;
            if (dots.closes(*node)) close();
        } else if (const std::optional<Value> value = valueFromNode(world, *node)) {
            const bool coded = node->restype < RTNONE;
            open.back().items.push_back(
                coded ? world.makeCons(Value::integer(node->restype), *value) : *value);
        } else {
            return std::nullopt;
        }
    }
    if (open.size() != 1) return std::nullopt;
    return one ? open.front().items.front() : makeList(world, open.front());
}

} // namespace orvald
