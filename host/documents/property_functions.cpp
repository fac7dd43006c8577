// SPDX-License-Identifier: LicenseRef-ORVALD
// getpropertyvalue, setpropertyvalue: single properties of an object by their names. A property is
// a group, a part of a point, a bit of a group, or what a curve is measured to be.
#include "document.h"
#include "drawing/curve.h"
#include "drawing_functions.h"
#include "entity_list.h"
#include "text/letters.h"
#include "value_chain.h"

#include <algorithm>

namespace orvald {
namespace {

using drawing::ErrNo;
using drawing::ObjectId;
using lisp::Args;
using lisp::Value;
using lisp::World;

struct Property
{
    std::u16string_view name;  // upper case; points without "/X"
    std::u16string_view types; // apart by blanks, upper case; empty: all that have the group
    int group;
    int bit = 0; // of an integer group
};

constexpr Property kProperties[] = {
    {u"COLOR", u"", 62},
    {u"LAYER", u"", 8},
    {u"LINETYPE", u"", 6},
    {u"LINETYPESCALE", u"", 48},
    {u"LINEWEIGHT", u"", 370},
    {u"THICKNESS", u"", 39},
    {u"NAME", u"LAYER LTYPE STYLE", 2},
    {u"BLOCKTABLERECORD", u"INSERT", 2},
    {u"RADIUS", u"CIRCLE ARC", 40},
    {u"CENTER", u"CIRCLE ARC ELLIPSE", 10},
    {u"STARTANGLE", u"ARC", 50},
    {u"ENDANGLE", u"ARC", 51},
    {u"STARTPOINT", u"LINE", 10},
    {u"ENDPOINT", u"LINE", 11},
    {u"POSITION", u"POINT INSERT TEXT ATTRIB ATTDEF", 10},
    {u"LOCATION", u"MTEXT", 10},
    {u"ROTATION", u"INSERT TEXT ATTRIB ATTDEF MTEXT", 50},
    {u"TEXTSTRING", u"TEXT ATTRIB ATTDEF", 1},
    {u"CONTENTS", u"MTEXT", 1},
    {u"HEIGHT", u"TEXT ATTRIB ATTDEF", 40},
    {u"TEXTHEIGHT", u"MTEXT", 40},
    {u"WIDTHFACTOR", u"TEXT ATTRIB ATTDEF", 41},
    {u"TAG", u"ATTRIB ATTDEF", 2},
    {u"ELEVATION", u"LWPOLYLINE", 38},
    {u"CONSTANTWIDTH", u"LWPOLYLINE", 43},
    {u"CLOSED", u"LWPOLYLINE POLYLINE SPLINE", 70, 1},
    {u"ISFROZEN", u"LAYER", 70, 1},
    {u"ISLOCKED", u"LAYER", 70, 4},
};

bool isAmong(std::u16string_view types, std::u16string_view type)
{
    for (std::u16string_view rest = types; !rest.empty();) {
        const std::size_t end = std::min(rest.find(u' '), rest.size());
        if (rest.substr(0, end) == type) return true;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return types.empty();
}

/// A property of one object, with its value as it is now.
class Access
{
public:
    Access(World& world, Args args) : world_(world), id_{args.entity(0)}, name_(args.string(1))
    {
        std::u16string wanted = text::upperText(name_);
        if (wanted.size() > 2 && wanted[wanted.size() - 2] == u'/') {
            axis_ = wanted.back() - u'X';
            wanted.resize(wanted.size() - 2);
        }
        resbuf* groups = nullptr;
        const ErrNo error = Document::of(world).entities().entGet(id_, nullptr, groups);
        groups_.reset(groups);
        if (error != ErrNo::none) world.badArgument("lentityp", args[0]);
        const std::u16string type = find(0)->resval.rstring;
        const auto row = std::ranges::find_if(kProperties, [&](const Property& one) {
            return one.name == wanted && isAmong(one.types, type);
        });
        if (row != std::end(kProperties)) row_ = &*row;
        measured_ = row_ == nullptr && (wanted == u"LENGTH" || wanted == u"AREA");
        area_ = wanted == u"AREA";
    }

    Value get()
    {
        if (measured_) return measure();
        requireKnown();
        const resbuf* node = find(row_->group);
        if (row_->bit != 0)
            return Value::integer(node != nullptr && (node->resval.rint & row_->bit) != 0 ? 1 : 0);
        if (node == nullptr) return standard();
        const Value value = valueFromNode(world_, *node).value_or(Value::nil());
        if (!value.isCons() || axis_ < 0 || axis_ > 2) return value;
        return Value::real(node->resval.rpoint[axis_]);
    }

    void set(Value value)
    {
        requireKnown();
        const resbuf* node = find(row_->group);
        if (row_->bit != 0) {
            const int before = node == nullptr ? 0 : node->resval.rint;
            const bool on = value == world_.t() || (value.isInteger() && value.asInteger() != 0);
            value = Value::integer(on ? before | row_->bit : before & ~row_->bit);
        } else if (axis_ >= 0 && axis_ <= 2 && node != nullptr && value.isNumber()) {
            double p[3] = {node->resval.rpoint[0], node->resval.rpoint[1], node->resval.rpoint[2]};
            p[axis_] = value.asNumber();
            value = pointValue(world_, {p[0], p[1], p[2]});
        }
        const Value list = world_.makeList({world_.makeCons(Value::integer(-1), nameValue(id_)),
                                            world_.makeCons(Value::integer(row_->group), value)});
        Document& document = Document::of(world_);
        const ErrNo error = document.entities().entMod(groupsFromList(world_, list).get());
        document.tellChanges();
        if (!succeeded(world_, error)) world_.raise(u"property value rejected: " + name_);
    }

private:
    const resbuf* find(int group) const
    {
        const resbuf* node = groups_.get();
        while (node != nullptr && node->restype != group) node = node->rbnext;
        return node;
    }

    void requireKnown()
    {
        if (row_ == nullptr) world_.raise(u"no such property: " + name_);
    }

    /// What a group that is left out means.
    Value standard()
    {
        switch (row_->group) {
        case 62: return Value::integer(256);
        case 6: return world_.makeString(u"ByLayer");
        case 370: return Value::integer(-1);
        case 48:
        case 41: return Value::real(1.0);
        default: return Value::real(0.0);
        }
    }

    Value measure()
    {
        const drawing::Drawing& drawing = Document::of(world_).drawing();
        const auto curve = drawing::Curve::of(drawing, drawing.indexOf(id_));
        if (!curve) world_.raise(u"no such property: " + name_);
        const auto value = area_ ? curve->area() : curve->lengthTo(curve->end());
        return value ? Value::real(*value) : Value::nil();
    }

    World& world_;
    ObjectId id_;
    std::u16string name_; // as given
    int axis_ = -1;
    Chain groups_;
    const Property* row_ = nullptr;
    bool measured_ = false, area_ = false;
};

// (getpropertyvalue ename property) -> value
Value getProperty(World& world, Args args) { return Access(world, args).get(); }

// (setpropertyvalue ename property value) -> nil
Value setProperty(World& world, Args args)
{
    Access(world, args).set(args[2]);
    return Value::nil();
}

constexpr lisp::Builtin kTable[] = {
    {"getpropertyvalue", getProperty, 2, 2},
    {"setpropertyvalue", setProperty, 3, 3},
};

} // namespace

std::span<const lisp::Builtin> propertyFunctions() { return kTable; }

} // namespace orvald
