// SPDX-License-Identifier: LicenseRef-ORVALD
// BLOCK, INSERT: defining and inserting blocks, with their attributes.
#include "commands/making.h"
#include "commands/selecting.h"
#include "commands/verbs.h"
#include "document.h"
#include "drawing/clone.h"
#include "drawing/text.h"
#include "drawing/transform.h"
#include "dxf/dxf.h"
#include "host.h"
#include "registries.h"
#include "text/letters.h"

#include <cmath>
#include <numbers>

namespace orvald {
namespace {

using drawing::Index;
using drawing::Kind;
using drawing::Point;
using drawing::TableId;

constexpr double kDegree = std::numbers::pi / 180.0;

std::vector<Index> entitiesOf(const drawing::Drawing& drawing, Index block)
{
    std::vector<Index> entities;
    for (Index one = drawing.firstChild(block); one != drawing::kNone; one = drawing.next(one))
        if (!drawing.at(one).erased) entities.push_back(one);
    return entities;
}

// -- BLOCK

/// Base point and the flag for attributes, which stand in the block's BLOCK.
void finishBlock(drawing::Drawing& drawing, Index block, Point base)
{
    bool attributes = false;
    for (const Index one : entitiesOf(drawing, block))
        attributes = attributes || drawing.at(one).kind() == Kind::attdef;
    drawing::TagList& tags = drawing.edit(drawing.at(block).extras()->blockBegin).tags;
    drawing::TagList origin, flags;
    origin.addPoint(10, base);
    flags.addInteger(70, attributes ? 2 : 0);
    if (const auto at = tags.find(10); at != tags.end()) tags.replace(at, origin);
    if (const auto at = tags.find(70); at != tags.end()) tags.replace(at, flags);
}

// BLOCK name [Yes] base objects
Task<> block(Command& command)
{
    const std::u16string typed = co_await command.text(u"Enter block name or [?]: ");
    const std::string name = drawing::fileForm(typed);
    drawing::Drawing& drawing = command.drawing();
    if (!drawing::isSymbolName(name)) command.refuse(u"a block cannot be called " + typed);
    Index record = drawing.findRecord(TableId::blockRecord, name);
    if (record != drawing::kNone) {
        const Answer<NoValue> again = co_await command.option(
            u"Block already exists. Redefine it? [Yes/No] <N>: ", u"Yes No");
        if (!again.is(u"Yes")) co_return;
    }
    const Answer<Point> base = co_await command.point(u"Specify insertion base point: ");
    const std::vector<Index> objects = co_await command.changeable();
    for (const Index object : objects) {
        // A block in itself would never end.
        if (record == drawing::kNone || drawing.at(object).kind() != Kind::insert) continue;
        const std::vector<Index> inside = drawing.blocksInside(drawing.at(object).tags.text(2));
        if (std::ranges::find(inside, record) != inside.end()) {
            command.refuse(u"a block cannot contain itself");
        }
    }
    if (record == drawing::kNone) {
        record = drawing.addBlock(name);
    } else {
        for (const Index old : entitiesOf(drawing, record)) drawing.setErased(old, true);
        drawing.dropChildren(record);
    }
    // The block's coordinates are those of the user.
    const UserPlane plane(drawing);
    drawing::Transform toUser;
    toUser.origin = plane.user({});
    toUser.x = plane.user({1.0, 0.0, 0.0}) - toUser.origin;
    toUser.y = plane.user({0.0, 1.0, 0.0}) - toUser.origin;
    toUser.z = plane.user({0.0, 0.0, 1.0}) - toUser.origin;
    for (const drawing::Copied& copy : copyWithin(drawing, objects, record))
        if (drawing.at(copy.made).isMainEntity()) transformEntity(drawing, copy.made, toUser);
    for (const Index object : objects) drawing.setErased(object, true);
    finishBlock(drawing, record, base.value.value_or(Point{}));
}

// -- INSERT

/// The block that a name means: "name", "name=file" or a file; kNone when there is none.
Index blockOf(Command& command, std::u16string_view typed)
{
    drawing::Drawing& drawing = command.drawing();
    const std::size_t equals = std::min(typed.find(u'='), typed.size());
    std::u16string_view name = typed.substr(0, equals);
    const std::u16string_view file = equals < typed.size() ? typed.substr(equals + 1) : typed;
    const bool fresh = equals < typed.size() && !file.empty(); // "name=file" reads the file anew
    Index block = drawing.findRecord(TableId::blockRecord, drawing::fileForm(name));
    if (block != drawing::kNone && !fresh) return block;

    std::string path = Host::instance().findFile(lisp::toUtf8(file));
    if (path.empty()) path = Host::instance().findFile(lisp::toUtf8(file) + ".dxf");
    if (path.empty()) return drawing::kNone;
    if (const std::size_t slash = name.find_last_of(u"/\\"); slash != std::u16string_view::npos) {
        name.remove_prefix(slash + 1);
    }
    if (text::upperText(name).ends_with(u".DXF")) name.remove_suffix(4);
    const std::string blockName = drawing::fileForm(name);
    const dxf::Loaded loaded = dxf::load(path);
    if (loaded.drawing == nullptr) command.refuse(lisp::toUtf16(loaded.error.message()));
    if (!drawing::isSymbolName(blockName)) {
        command.refuse(u"a block cannot be called " + std::u16string(name));
    }
    block = drawing.findRecord(TableId::blockRecord, blockName);
    if (block == drawing::kNone) {
        block = drawing.addBlock(blockName);
    } else {
        for (const Index old : entitiesOf(drawing, block)) drawing.setErased(old, true);
        drawing.dropChildren(block);
    }
    const std::vector<Index> all = entitiesOf(*loaded.drawing, loaded.drawing->modelSpace());
    copyBetween(*loaded.drawing, all, drawing, block, drawing::Taken::kept, blockName);
    finishBlock(drawing, block, loaded.drawing->header.point("$INSBASE"));
    return block;
}

/// Where and how a block is inserted, in the user's coordinates.
struct Placing
{
    Point at;
    double x = 1.0, y = 1.0, z = 1.0;
    double rotation = 0.0;
};

/// An attribute of the insert, as its definition has it; `insert`: from the block to the plane.
void makeAttribute(Command& command, drawing::EntityFunctions& functions, Index definition,
                   const Placing& how, const UserPlane& plane, Point base,
                   std::u16string_view value)
{
    const drawing::Record& record = command.drawing().at(definition);
    const drawing::TagList& tags = record.tags;
    const double turn = plane.entityAngle(how.rotation);
    const double c = std::cos(turn), s = std::sin(turn);
    const Point origin = plane.entity(how.at);
    const auto place = [&](Point p) {
        const double x = how.x * (p.x - base.x), y = how.y * (p.y - base.y);
        return Point{origin.x + c * x - s * y, origin.y + s * x + c * y,
                     origin.z + how.z * (p.z - base.z)};
    };
    const double high = std::abs(how.y), wide = std::abs(how.x) / (high > 0.0 ? high : 1.0);
    Groups attribute = newEntity(u"ATTRIB", u"AcDbText");
    attribute.like(record).point(10, place(tags.point(10))).real(40, tags.real(40) * high);
    attribute.text(1, value).real(50, tags.real(50) * kDegree + turn);
    attribute.real(41, tags.real(41, 1.0) * wide).real(51, tags.real(51) * kDegree);
    attribute.text(7, drawing::text16(tags.text(7, "Standard")));
    attribute.integer(71, static_cast<int>(tags.integer(71)));
    attribute.integer(72, static_cast<int>(tags.integer(72)));
    attribute.point(11, place(tags.point(11)));
    if (plane.normal() != Point{0.0, 0.0, 1.0}) attribute.point(210, plane.normal());
    attribute.text(100, u"AcDbAttribute").text(2, drawing::text16(tags.text(2)));
    attribute.integer(70, static_cast<int>(tags.integer(70)));
    attribute.integer(74, static_cast<int>(tags.integer(74)));
    attribute.make(command, functions);
}

struct AttributeValue
{
    Index definition;
    std::u16string text;
};

void makeInsert(Command& command, Index block, const Placing& how,
                const std::vector<AttributeValue>& attributes)
{
    drawing::Drawing& drawing = command.drawing();
    const UserPlane plane(drawing);
    drawing::EntityFunctions functions(drawing);
    Groups insert = newEntity(u"INSERT", u"AcDbBlockReference");
    if (!attributes.empty()) insert.integer(66, 1);
    insert.text(2, drawing::text16(drawing.at(block).name())).point(10, plane.entity(how.at));
    insert.real(41, how.x).real(42, how.y).real(43, how.z);
    insert.real(50, plane.entityAngle(how.rotation));
    if (plane.normal() != Point{0.0, 0.0, 1.0}) insert.point(210, plane.normal());
    insert.make(command, functions);
    if (attributes.empty()) return;
    const Point base = drawing::blockBase(drawing, block);
    for (const AttributeValue& one : attributes)
        makeAttribute(command, functions, one.definition, how, plane, base, one.text);
    newEntity(u"SEQEND", u"AcDbEntity").make(command, functions);
}

/// Asks for the values of a block's attributes that are not constant.
Task<std::vector<AttributeValue>> attributesOf(Command& command, Index block)
{
    constexpr std::int64_t kConstant = 2, kVerified = 4, kPreset = 8;
    const bool asks = command.document().variables().integer(u"ATTREQ") != 0;
    std::vector<AttributeValue> values, verified;
    for (const Index one : entitiesOf(command.drawing(), block)) {
        const drawing::TagList& tags = command.drawing().at(one).tags;
        const std::int64_t flags = tags.integer(70);
        if (command.drawing().at(one).kind() != Kind::attdef || (flags & kConstant) != 0) continue;
        std::u16string value = drawing::text16(tags.text(1));
        if (asks && (flags & kPreset) == 0) {
            const std::u16string typed = co_await command.text(u"Enter attribute value: ");
            if (!typed.empty()) value = typed;
        }
        values.push_back({one, value});
        if (asks && (flags & (kVerified | kPreset)) == kVerified) verified.push_back({one, value});
    }
    for (const AttributeValue& one : verified) {
        const std::u16string typed = co_await command.text(u"Verify attribute value: ");
        for (AttributeValue& value : values)
            if (value.definition == one.definition && !typed.empty()) value.text = typed;
    }
    co_return values;
}

// INSERT name [Scale s|X x|Y y|Z z|Rotate a] point [x [y]] [rotation] [attribute ...]
Task<> insert(Command& command)
{
    const std::u16string name = co_await command.text(u"Enter block name or [?]: ");
    if (name.empty()) co_return;
    if (name.front() == u'*') command.refuse(u"\"*name\" is not available in this host");
    const Index block = blockOf(command, name);
    if (block == drawing::kNone) command.refuse(u"there is no block and no file " + name);
    Placing how;
    bool scaled = false, turned = false;
    for (;;) {
        const Answer<Point> at =
            co_await command.point(u"Specify insertion point or [Scale/X/Y/Z/Rotate]: ",
                                   u"Scale X Y Z Rotate PScale PX PY PZ PRotate");
        if (at.isEnter()) co_return;
        if (at) {
            how.at = *at;
            break;
        }
        if (at.is(u"Rotate") || at.is(u"PRotate")) {
            const Answer<double> turn = co_await command.direction(u"Specify rotation angle: ");
            how.rotation = turn.value.value_or(0.0);
            turned = true;
            continue;
        }
        const Answer<double> factor = co_await command.distance(u"Specify scale factor: ");
        const double size = factor.value.value_or(1.0);
        const char16_t axis = at.keyword.back(); // X, Y, Z, or that of Scale
        scaled = scaled || axis == u'e';
        if (axis == u'e' || axis == u'X') how.x = size;
        if (axis == u'e' || axis == u'Y') how.y = size;
        if (axis == u'e' || axis == u'Z') how.z = size;
    }
    if (!scaled) {
        const bool uniform = command.drawing().at(block).tags.integer(281) != 0;
        Answer<double> x = co_await command.distance(
            u"Enter X scale factor, specify opposite corner, or [Corner/XYZ] <1>: ", u"Corner XYZ",
            how.at);
        const bool threefold = x.is(u"XYZ");
        if (x.is(u"Corner")) command.refuse(u"the option Corner is not available in this host");
        if (threefold) x = co_await command.distance(u"Specify X scale factor <1>: ");
        how.x = how.y = how.z = x.value.value_or(how.x);
        if (!uniform) {
            const Answer<double> y =
                co_await command.distance(u"Specify Y scale factor <use X scale factor>: ");
            how.y = y.value.value_or(how.x);
            how.z = std::abs(how.x);
        }
        if (threefold) {
            const Answer<double> z = co_await command.distance(u"Specify Z scale factor: ");
            how.z = z.value.value_or(how.x);
        }
    }
    if (how.x == 0.0 || how.y == 0.0 || how.z == 0.0) command.refuse(u"a factor is not 0");
    if (!turned) {
        const Answer<double> turn =
            co_await command.direction(u"Specify rotation angle <0>: ", {}, how.at);
        how.rotation = turn.value.value_or(0.0);
    }
    const std::vector<AttributeValue> attributes = co_await attributesOf(command, block);
    makeInsert(command, block, how, attributes);
    command.setText(u"INSNAME", drawing::text16(command.drawing().at(block).name()));
}

constexpr Verb kTable[] = {{u"BLOCK", block}, {u"INSERT", insert}};

} // namespace

std::span<const Verb> blockVerbs() { return kTable; }

} // namespace orvald
