// SPDX-License-Identifier: LicenseRef-ORVALD
// Filter lists: compiled once into a tree of tests, then asked for every entity.
#include "drawing/selection.h"

#include "angles.h"
#include "chain.h"
#include "drawing/entity_functions.h"
#include "drawing/text.h"
#include "resbuf/groups.h"
#include "schema.h"
#include "text/wildcard.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace orvald::drawing {
namespace {

// Lengths, angles and factors of a filter equal stored ones within this, relative above 1.
constexpr double kEqual = 1e-10;
constexpr std::size_t kDeepest = 200; // brackets within brackets

enum class Operator : std::uint8_t
{
    any,
    equal,
    different,
    less,
    lessEqual,
    greater,
    greaterEqual,
    someBits,
    allBits
};

bool readOperator(std::u16string_view text, Operator& op)
{
    struct Name
    {
        std::u16string_view text;
        Operator op;
    };
    static constexpr Name names[] = {
        {u"*", Operator::any},        {u"=", Operator::equal},      {u"!=", Operator::different},
        {u"/=", Operator::different}, {u"<>", Operator::different}, {u"<", Operator::less},
        {u"<=", Operator::lessEqual}, {u">", Operator::greater},    {u">=", Operator::greaterEqual},
        {u"&", Operator::someBits},   {u"&=", Operator::allBits}};
    const auto found = std::find_if(std::begin(names), std::end(names),
                                    [&](const Name& name) { return name.text == text; });
    if (found == std::end(names)) return false;
    op = found->op;
    return true;
}

bool isBits(Operator op) { return op == Operator::someBits || op == Operator::allBits; }

bool compare(double value, Operator op, double wanted)
{
    const bool equal = std::fabs(value - wanted) <= kEqual * std::max(1.0, std::fabs(wanted));
    switch (op) {
    case Operator::any: return true;
    case Operator::equal: return equal;
    case Operator::different: return !equal;
    case Operator::less: return value < wanted && !equal;
    case Operator::lessEqual: return value < wanted || equal;
    case Operator::greater: return value > wanted && !equal;
    case Operator::greaterEqual: return value > wanted || equal;
    default: return false;
    }
}

bool compare(std::int64_t value, Operator op, std::int64_t wanted)
{
    switch (op) {
    case Operator::any: return true;
    case Operator::equal: return value == wanted;
    case Operator::different: return value != wanted;
    case Operator::less: return value < wanted;
    case Operator::lessEqual: return value <= wanted;
    case Operator::greater: return value > wanted;
    case Operator::greaterEqual: return value >= wanted;
    case Operator::someBits: return (value & wanted) != 0;
    case Operator::allBits: return (value & wanted) == wanted;
    }
    return false;
}

/// A text pattern; the usual case of plain names needs no matching.
class TextTest
{
public:
    explicit TextTest(std::u16string_view pattern)
    {
        const bool plain = pattern.find_first_of(u"#@.*?~[]`") == std::u16string_view::npos;
        if (!plain) {
            pattern_ = pattern;
            return;
        }
        for (;;) {
            const std::size_t comma = pattern.find(u',');
            names_.push_back(fileForm(pattern.substr(0, comma)));
            if (comma == std::u16string_view::npos) break;
            pattern.remove_prefix(comma + 1);
        }
    }
    bool operator()(std::string_view form) const
    {
        if (names_.empty())
            return text::matchesWildcard(text16(form), pattern_, text::Case::ignored);
        return std::any_of(names_.begin(), names_.end(),
                           [form](const std::string& name) { return sameName(name, form); });
    }

private:
    std::vector<std::string> names_; // when there are no wildcards
    std::u16string pattern_;
};

struct Node
{
    enum class Type : std::uint8_t
    {
        test,
        xdata,
        allOf,
        anyOf,
        oneOf,
        noneOf
    };
    Type type = Type::test;
    int code = 0;
    GroupKind kind = GroupKind::none;
    std::optional<TextTest> text;
    Operator ops[3] = {Operator::equal, Operator::equal, Operator::equal};
    Point point;
    double real = 0.0;
    std::int64_t integer = 0;
    std::vector<Node> parts; // of a bracket
};

class Filter
{
public:
    /// False when the list is malformed.
    bool read(const resbuf* chain)
    {
        std::vector<Node> open(1);
        open[0].type = Node::Type::allOf;
        std::u16string_view pending; // operator for the next group
        for (const resbuf* node = chain; node != nullptr; node = node->rbnext) {
            if (node->restype == -4) {
                const std::u16string_view text =
                    node->resval.rstring == nullptr ? u"" : node->resval.rstring;
                if (!pending.empty()) return false;
                Node::Type type{};
                bool opens = false;
                if (bracket(text, type, opens)) {
                    if (!nest(open, type, opens)) return false;
                } else {
                    pending = text;
                    if (pending.empty()) return false;
                }
                continue;
            }
            Node test;
            if (node->restype == -3) {
                node = readApps(node, open.back());
                continue;
            }
            if (node->restype == RTNIL || node->restype == RTLB || node->restype == RTLE) continue;
            if (!readTest(*node, pending, test)) return false;
            pending = {};
            open.back().parts.push_back(std::move(test));
        }
        if (open.size() != 1 || !pending.empty()) return false;
        root_ = std::move(open[0]);
        return true;
    }

    bool operator()(const Drawing& drawing, Index index) const
    {
        return holds(drawing, index, root_);
    }

private:
    static bool bracket(std::u16string_view text, Node::Type& type, bool& opens)
    {
        if (text.size() < 3) return false;
        opens = text.front() == u'<';
        if (!opens && text.back() != u'>') return false;
        const std::u16string_view word = opens ? text.substr(1) : text.substr(0, text.size() - 1);
        const std::string key = nameKey(utf8(word));
        if (key == "AND") type = Node::Type::allOf;
        else if (key == "OR") type = Node::Type::anyOf;
        else if (key == "XOR") type = Node::Type::oneOf;
        else if (key == "NOT") type = Node::Type::noneOf;
        else return false;
        return true;
    }
    static bool nest(std::vector<Node>& open, Node::Type type, bool opens)
    {
        if (opens) {
            open.emplace_back().type = type;
            return open.size() <= kDeepest;
        }
        if (open.size() < 2 || open.back().type != type) return false;
        const std::size_t count = open.back().parts.size();
        if (count == 0 || (type == Node::Type::oneOf && count != 2) ||
            (type == Node::Type::noneOf && count != 1))
            return false;
        Node done = std::move(open.back());
        open.pop_back();
        open.back().parts.push_back(std::move(done));
        return true;
    }
    /// Takes the application names behind a -3; gives the last node that belongs to it.
    static const resbuf* readApps(const resbuf* node, Node& parent)
    {
        while (node->rbnext != nullptr) {
            const int code = node->rbnext->restype;
            if (code < 1000 || (code > 1071 && code != RTLB && code != RTLE)) break;
            node = node->rbnext;
            if (code != 1001 || node->resval.rstring == nullptr) continue;
            Node test;
            test.type = Node::Type::xdata;
            test.text.emplace(node->resval.rstring);
            parent.parts.push_back(std::move(test));
        }
        return node;
    }
    static bool readTest(const resbuf& node, std::u16string_view operators, Node& test)
    {
        test.code = node.restype;
        test.kind = groupKind(node.restype);
        switch (test.kind) {
        case GroupKind::text:
        case GroupKind::handle:
            test.text.emplace(node.resval.rstring == nullptr ? u"" : node.resval.rstring);
            break;
        case GroupKind::real: test.real = node.resval.rreal; break;
        case GroupKind::point: {
            const ads_real* p = node.resval.rpoint;
            test.point = {p[0], p[1], p[2]};
            if (isPlanarMark(p[2])) test.ops[2] = Operator::any;
            break;
        }
        case GroupKind::int16: test.integer = node.resval.rint; break;
        case GroupKind::int32: test.integer = node.resval.rlong; break;
        case GroupKind::int64: test.integer = node.resval.mnInt64; break;
        case GroupKind::object:
            test.integer = static_cast<std::int64_t>(fromName(node.resval.rlname).value);
            break;
        default: return false;
        }
        return operators.empty() || readOperators(operators, test);
    }
    static bool readOperators(std::u16string_view text, Node& test)
    {
        const bool isInteger = test.kind == GroupKind::int16 || test.kind == GroupKind::int32 ||
                               test.kind == GroupKind::int64;
        if (test.kind != GroupKind::point) {
            if (!readOperator(text, test.ops[0])) return false;
            if (isBits(test.ops[0])) return isInteger;
            return isInteger || test.kind == GroupKind::real || test.ops[0] <= Operator::different;
        }
        // One operator a coordinate; where there is none, any value will do.
        std::fill(std::begin(test.ops), std::end(test.ops), Operator::any);
        for (std::size_t i = 0; i < 3; ++i) {
            const std::size_t comma = text.find(u',');
            if (!readOperator(text.substr(0, comma), test.ops[i]) || isBits(test.ops[i]))
                return false;
            if (comma == std::u16string_view::npos) return true;
            text.remove_prefix(comma + 1);
        }
        return false;
    }

    // Asking ---------------------------------------------------------------------------------

    static bool holds(const Drawing& drawing, Index index, const Node& node)
    {
        const auto part = [&](const Node& inner) { return holds(drawing, index, inner); };
        switch (node.type) {
        case Node::Type::test: return passes(drawing, index, node);
        case Node::Type::xdata: return hasXdata(drawing.at(index), *node.text);
        case Node::Type::allOf: return std::all_of(node.parts.begin(), node.parts.end(), part);
        case Node::Type::anyOf: return std::any_of(node.parts.begin(), node.parts.end(), part);
        case Node::Type::oneOf: return part(node.parts[0]) != part(node.parts[1]);
        case Node::Type::noneOf: return !part(node.parts[0]);
        }
        return false;
    }
    static bool hasXdata(const Record& record, const TextTest& app)
    {
        const Extras* extras = record.extras();
        if (extras == nullptr) return false;
        return std::any_of(extras->xdata.begin(), extras->xdata.end(),
                           [&](Tag tag) { return tag.code() == 1001 && app(tag.text()); });
    }
    static bool textPasses(const Node& node, std::string_view form)
    {
        return node.ops[0] == Operator::any ||
               (*node.text)(form) == (node.ops[0] != Operator::different);
    }

    static bool passes(const Drawing& drawing, Index index, const Node& node)
    {
        const Record& record = drawing.at(index);
        switch (node.code) {
        case 0: return textPasses(node, record.typeName());
        case 5: return textPasses(node, handleText(record.handle));
        case 67: {
            const bool paper = drawing.blockOf(index) != drawing.modelSpace();
            return compare(std::int64_t{paper}, node.ops[0], node.integer);
        }
        case 410: return textPasses(node, drawing.layoutName(drawing.blockOf(index)));
        case -1:
            return compare(static_cast<std::int64_t>(drawing.idOf(index).value), node.ops[0],
                           node.integer);
        case 330: {
            const ObjectId owner = drawing.idOf(drawing.byHandle(record.owner));
            return compare(static_cast<std::int64_t>(owner.value), node.ops[0], node.integer);
        }
        default: break;
        }
        bool present = false;
        for (auto it = record.tags.find(node.code); it != record.tags.end();
             it = record.tags.find(node.code, ++it)) {
            present = true;
            if (tagPasses(drawing, *it, node)) return true;
        }
        if (present) return false;
        const Schema* schema = schemaOf(record.kind());
        const GroupRule* rule = schema == nullptr ? nullptr : schema->find(node.code);
        const std::size_t common = commonSection().find(node.code);
        if (schema == nullptr && common != SectionRule::npos)
            rule = &commonSection().groups[common];
        if (rule == nullptr || !rule->hasDefault()) return false;
        TagList value;
        rule->addDefault(value);
        return tagPasses(drawing, *value.begin(), node);
    }

    static bool tagPasses(const Drawing& drawing, Tag tag, const Node& node)
    {
        switch (node.kind) {
        case GroupKind::text: return tag.isText() && textPasses(node, tag.text());
        case GroupKind::handle: return textPasses(node, handleText(tag.handle()));
        case GroupKind::real:
            return compare(isAngle(tag.code()) ? toRadians(tag.real()) : tag.real(), node.ops[0],
                           node.real);
        case GroupKind::point: {
            const Point p = tag.point();
            const bool planar = tag.kind() == TagKind::point2;
            return compare(p.x, node.ops[0], node.point.x) &&
                   compare(p.y, node.ops[1], node.point.y) &&
                   (planar || compare(p.z, node.ops[2], node.point.z));
        }
        case GroupKind::object: {
            const ObjectId id = drawing.idOf(drawing.byHandle(tag.handle()));
            return compare(static_cast<std::int64_t>(id.value), node.ops[0], node.integer);
        }
        default: return compare(tag.integer(), node.ops[0], node.integer);
        }
    }

    Node root_;
};

/// Whether an entity stands in a layout; asks once for runs of entities of one owner.
class InLayout
{
public:
    explicit InLayout(const Drawing& drawing) : drawing_(drawing) {}
    bool operator()(const Record& record)
    {
        if (record.owner != owner_) {
            owner_ = record.owner;
            const Index block = drawing_.byHandle(owner_);
            inLayout_ = block != kNone && drawing_.at(block).kind() == Kind::blockRecord &&
                        !drawing_.at(block).erased && drawing_.isLayoutBlock(block);
        }
        return inLayout_;
    }

private:
    const Drawing& drawing_;
    Handle owner_ = 0;
    bool inLayout_ = false;
};

} // namespace

bool selectAll(const Drawing& drawing, const resbuf* chain, std::vector<ObjectId>& found)
{
    found.clear();
    Filter filter;
    if (!filter.read(chain)) return false;
    InLayout inLayout(drawing);
    for (Index index = drawing.recordCount(); index-- != 0;) {
        const Record& record = drawing.at(index);
        if (record.erased || !record.isMainEntity() || !inLayout(record)) continue;
        if (filter(drawing, index)) found.push_back(drawing.idOf(index));
    }
    return true;
}

bool satisfies(const Drawing& drawing, ObjectId entity, const resbuf* chain)
{
    const Index index = drawing.indexOf(entity);
    Filter filter;
    return index != kNone && drawing.at(index).isEntity() && filter.read(chain) &&
           filter(drawing, index);
}

} // namespace orvald::drawing
