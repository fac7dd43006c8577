// SPDX-License-Identifier: LicenseRef-ORVALD
#include "entity_list.h"

#include "document.h"
#include "resbuf/groups.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>

namespace orvald {
namespace {

using lisp::Value;

constexpr int kXdata = -3;
constexpr int kApplication = 1001;

/// Reads one group's value; false when it cannot stand under the code.
class GroupWriter
{
public:
    explicit GroupWriter(lisp::World& world) : world_(world) {}

    void addGroups(Value list);
    void addString(std::u16string_view text, int code)
    {
        resbuf& node = append(code);
        node.resval.rstring = newString(text.data(), text.size());
        if (node.resval.rstring == nullptr) throw std::bad_alloc();
    }
    Chain take() { return std::move(chain_); }

private:
    resbuf& append(int code)
    {
        resbuf* node = acutNewRb(code);
        if (node == nullptr) throw std::bad_alloc();
        if (last_ == nullptr) chain_.reset(node);
        else last_->rbnext = node;
        last_ = node;
        return *node;
    }
    [[noreturn]] void refuse(Value group)
    {
        world_.raise(u"bad DXF group: " + world_.prin1(group));
    }
    void addGroup(Value group);
    void addXdata(Value group);
    bool addValue(int code, Value value);
    bool addPoint(int code, Value value);
    bool addBinary(int code, Value value);

    lisp::World& world_;
    Chain chain_;
    resbuf* last_ = nullptr;
};

/// A whole number within the range of `Integer`, reals cut; nothing else.
template <typename Integer>
std::optional<Integer> wholeNumber(Value value)
{
    if (!value.isNumber()) return std::nullopt;
    const double number = std::trunc(value.asNumber());
    // The bounds of 64 bits are no doubles; -2^63 and below 2^63 are.
    constexpr double kBelow = static_cast<double>(std::numeric_limits<Integer>::min());
    if (!(number >= kBelow && number < -kBelow)) return std::nullopt;
    return static_cast<Integer>(number);
}

bool GroupWriter::addPoint(int code, Value value)
{
    double coordinates[3] = {0.0, 0.0, 0.0};
    int count = 0;
    for (; value.isCons(); value = value.asCons()->cdr) {
        const Value item = value.asCons()->car;
        if (count == 3 || !item.isNumber() || !std::isfinite(item.asNumber())) return false;
        coordinates[count++] = item.asNumber();
    }
    if (!value.isNil() || count < 2) return false;
    std::copy_n(coordinates, 3, append(code).resval.rpoint);
    return true;
}

bool GroupWriter::addBinary(int code, Value value)
{
    if (!value.isString()) return false;
    const std::u16string_view digits = value.asString();
    constexpr std::size_t kMost = 2 * std::size_t{std::numeric_limits<short>::max()};
    if (digits.size() % 2 != 0 || digits.size() > kMost) return false;
    std::string bytes;
    int byte = 0;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        const char16_t digit = digits[i];
        int nibble = 0;
        if (digit >= u'0' && digit <= u'9') nibble = digit - u'0';
        else if (digit >= u'A' && digit <= u'F') nibble = digit - u'A' + 10;
        else if (digit >= u'a' && digit <= u'f') nibble = digit - u'a' + 10;
        else return false;
        byte = (byte << 4 | nibble) & 0xFF;
        if (i % 2 == 1) bytes += static_cast<char>(byte);
    }
    ads_binary& binary = append(code).resval.rbinary;
    binary.buf = static_cast<char*>(std::malloc(bytes.size() + 1));
    if (binary.buf == nullptr) throw std::bad_alloc();
    bytes.copy(binary.buf, bytes.size());
    binary.clen = static_cast<short>(bytes.size());
    return true;
}

bool GroupWriter::addValue(int code, Value value)
{
    switch (groupKind(code)) {
    case GroupKind::text:
    case GroupKind::handle:
        if (!value.isString()) return false;
        addString(value.asString(), code);
        return true;
    case GroupKind::point: return addPoint(code, value);
    case GroupKind::real:
        if (!value.isNumber() || !std::isfinite(value.asNumber())) return false;
        append(code).resval.rreal = value.asNumber();
        return true;
    case GroupKind::int16:
        if (const auto number = wholeNumber<short>(value)) {
            append(code).resval.rint = *number;
            return true;
        }
        return false;
    case GroupKind::int32:
        if (const auto number = wholeNumber<std::int32_t>(value)) {
            append(code).resval.rlong = *number;
            return true;
        }
        return false;
    case GroupKind::int64:
        if (const auto number = wholeNumber<std::int64_t>(value)) {
            append(code).resval.mnInt64 = *number;
            return true;
        }
        return false;
    case GroupKind::object:
        if (!value.isEntity()) return false;
        nameFromEntity(value.asEntity(), append(code).resval.rlname);
        return true;
    case GroupKind::binary: return addBinary(code, value);
    case GroupKind::none: return false;
    }
    return false;
}

void GroupWriter::addXdata(Value group)
{
    append(kXdata);
    Value applications = group.asCons()->cdr;
    for (; applications.isCons(); applications = applications.asCons()->cdr) {
        const Value application = applications.asCons()->car;
        if (!lisp::car(application).isString()) refuse(group);
        addString(lisp::car(application).asString(), kApplication);
        addGroups(lisp::cdr(application));
    }
    if (!applications.isNil()) refuse(group);
}

void GroupWriter::addGroup(Value group)
{
    if (group.isNil()) return;
    if (!group.isCons() || !group.asCons()->car.isInteger()) refuse(group);
    const int code = group.asCons()->car.asInteger();
    if (code == kXdata) addXdata(group);
    else if (!addValue(code, group.asCons()->cdr)) refuse(group);
}

void GroupWriter::addGroups(Value list)
{
    for (; list.isCons(); list = list.asCons()->cdr) addGroup(list.asCons()->car);
    if (!list.isNil()) world_.badArgument("listp", list);
}

} // namespace

Chain groupsFromList(lisp::World& world, Value list)
{
    GroupWriter writer(world);
    writer.addGroups(list);
    return writer.take();
}

Chain stringsFromList(lisp::World& world, Value list)
{
    GroupWriter writer(world);
    for (; list.isCons(); list = list.asCons()->cdr) {
        const Value item = list.asCons()->car;
        if (!item.isString()) world.badArgument("stringp", item);
        writer.addString(item.asString(), RTSTR);
    }
    if (!list.isNil()) world.badArgument("listp", list);
    return writer.take();
}

namespace {

Value groupValue(lisp::World& world, const resbuf& node)
{
    const Value code = Value::integer(node.restype);
    if (groupKind(node.restype) == GroupKind::point) {
        const double* p = node.resval.rpoint;
        const Value z = drawing::isPlanarMark(p[2])
                            ? Value::nil()
                            : world.makeCons(Value::real(p[2]), Value::nil());
        const Value plane = world.makeCons(Value::real(p[1]), z);
        return world.makeCons(code, world.makeCons(Value::real(p[0]), plane));
    }
    return world.makeCons(code, valueFromNode(world, node).value_or(Value::nil()));
}

/// (-3 ("APP" groups) ...) of the nodes behind a -3.
Value xdataGroup(lisp::World& world, const resbuf* node)
{
    lisp::ListBuilder all(world);
    all.add(Value::integer(kXdata));
    while (node != nullptr) {
        lisp::ListBuilder application(world);
        application.add(*valueFromNode(world, *node));
        for (node = node->rbnext; node != nullptr && node->restype != kApplication;
             node = node->rbnext) {
            application.add(groupValue(world, *node));
        }
        all.add(application.list());
    }
    return all.list();
}

} // namespace

Value listFromGroups(lisp::World& world, const resbuf* chain)
{
    lisp::ListBuilder list(world);
    for (const resbuf* node = chain; node != nullptr; node = node->rbnext) {
        if (node->restype == kXdata) {
            list.add(xdataGroup(world, node->rbnext));
            break;
        }
        list.add(groupValue(world, *node));
    }
    return list.list();
}

bool succeeded(lisp::World& world, drawing::ErrNo error)
{
    if (error == drawing::ErrNo::none) return true;
    Document::of(world).variables().setErrno(static_cast<int>(error));
    return false;
}

} // namespace orvald
