// SPDX-License-Identifier: LicenseRef-ORVALD
// Values are read from and written to where their row says; a header variable or view port group
// keeps the group code and the kind that it has in the drawing.
#include "system_variables.h"

#include "coordinate_systems.h"
#include "document.h"
#include "drawing/entity_functions.h"
#include "drawing/text.h"
#include "drawing/views.h"
#include "resbuf/groups.h"
#include "system_variable_table.h"

#include <cmath>
#include <numbers>
#include <unordered_map>

namespace orvald {

using drawing::Point;
using drawing::Tag;
using drawing::TagList;

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

/// What a row says where nothing is stored.
VariableValue initialValue(const VariableRow& row)
{
    switch (row.type) {
    case VariableType::integer: return static_cast<std::int32_t>(row.number);
    case VariableType::real: return row.number;
    case VariableType::text: return std::u16string(row.text);
    case VariableType::point2:
    case VariableType::point3: return row.point;
    }
    return std::int32_t{0};
}

VariableValue valueOf(const VariableRow& row, Tag tag)
{
    switch (row.type) {
    case VariableType::integer: return static_cast<std::int32_t>(tag.integer());
    case VariableType::real: return tag.real() * (drawing::isAngle(tag.code()) ? kDegree : 1.0);
    case VariableType::text: return drawing::text16(tag.text());
    case VariableType::point2:
    case VariableType::point3: return tag.point();
    }
    return std::int32_t{0};
}

/// One group with that value.
TagList groupOf(int code, const VariableValue& value, bool planar)
{
    TagList group;
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        group.addInteger(code, *number);
    } else if (const auto* real = std::get_if<double>(&value)) {
        group.addReal(code, drawing::isAngle(code) ? *real / kDegree : *real);
    } else if (const auto* text = std::get_if<std::u16string>(&value)) {
        group.addText(code, drawing::fileForm(*text));
    } else {
        group.addPoint(code, std::get<Point>(value), planar);
    }
    return group;
}

/// The node's value as the row wants it; nothing when the type does not fit.
std::optional<VariableValue> valueFrom(const VariableRow& row, const resbuf& node)
{
    const GroupKind kind = nodeKind(node.restype);
    const bool isInteger = kind == GroupKind::int16 || kind == GroupKind::int32;
    const std::int32_t whole = kind == GroupKind::int16 ? node.resval.rint
                               : isInteger              ? node.resval.rlong
                                                        : 0;
    switch (row.type) {
    case VariableType::integer:
        if (!isInteger) return std::nullopt;
        return whole;
    case VariableType::real:
        if (isInteger) return static_cast<double>(whole);
        if (kind != GroupKind::real || !std::isfinite(node.resval.rreal)) return std::nullopt;
        return node.resval.rreal;
    case VariableType::text:
        if (kind != GroupKind::text) return std::nullopt;
        return std::u16string(node.resval.rstring == nullptr ? u"" : node.resval.rstring);
    case VariableType::point2:
    case VariableType::point3: {
        const double* p = node.resval.rpoint;
        if (kind != GroupKind::point || !std::isfinite(p[0] + p[1] + p[2])) return std::nullopt;
        const bool flat = row.type == VariableType::point2 || node.restype == RTPOINT;
        return Point{p[0], p[1], flat ? 0.0 : p[2]};
    }
    }
    return std::nullopt;
}

void fill(resbuf& node, const VariableRow& row, const VariableValue& value)
{
    node.rbnext = nullptr;
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        const auto narrow = static_cast<short>(*number);
        node.restype = narrow == *number ? RTSHORT : RTLONG;
        if (node.restype == RTSHORT) node.resval.rint = narrow;
        else node.resval.rlong = *number;
    } else if (const auto* real = std::get_if<double>(&value)) {
        node.restype = RTREAL;
        node.resval.rreal = *real;
    } else if (const auto* text = std::get_if<std::u16string>(&value)) {
        node.restype = RTSTR;
        node.resval.rstring = newString(text->data(), text->size());
    } else {
        const Point& point = std::get<Point>(value);
        const bool planar = row.type == VariableType::point2;
        node.restype = planar ? RTPOINT : RT3DPOINT;
        node.resval.rpoint[0] = point.x;
        node.resval.rpoint[1] = point.y;
        node.resval.rpoint[2] = planar ? 0.0 : point.z;
    }
}

bool inRange(const VariableRow& row, const VariableValue& value)
{
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        return *number >= row.least && *number <= row.most;
    }
    const auto* real = std::get_if<double>(&value);
    return real == nullptr || (*real >= row.least && *real <= row.most);
}

} // namespace

struct SystemVariables::State
{
    std::unordered_map<const VariableRow*, VariableValue> session; // those that were set
    // Box of the current space, as of a count of changes.
    drawing::Box extents;
    drawing::Index extentsOf = drawing::kNone;
    std::uint64_t extentsAt = 0;

    VariableValue value(Document& document, const VariableRow& row) const;
    Answer store(Document& document, const VariableRow& row, VariableValue value);
};

VariableValue SystemVariables::State::value(Document& document, const VariableRow& row) const
{
    const drawing::Drawing& drawing = document.drawing();
    switch (row.home) {
    case VariableHome::computed: return row.get(document);
    case VariableHome::session: {
        const auto place = session.find(&row);
        return place == session.end() ? initialValue(row) : place->second;
    }
    case VariableHome::header: {
        const TagList* list = drawing.header.find("$" + lisp::toUtf8(row.name));
        const bool held = list != nullptr && !list->empty();
        return held ? valueOf(row, *list->begin()) : initialValue(row);
    }
    case VariableHome::viewport: {
        const drawing::Index viewport = activeViewport(drawing);
        if (viewport == drawing::kNone) return initialValue(row);
        const TagList& tags = drawing.at(viewport).tags;
        const auto tag = tags.find(row.group);
        return tag == tags.end() ? initialValue(row) : valueOf(row, *tag);
    }
    }
    return initialValue(row);
}

SystemVariables::Answer SystemVariables::State::store(Document& document, const VariableRow& row,
                                                      VariableValue value)
{
    drawing::Drawing& drawing = document.drawing();
    if (row.namesIn) {
        // The record's own spelling is what the drawing keeps.
        const auto name = drawing::fileForm(std::get<std::u16string>(value));
        const drawing::Index record = drawing.findRecord(*row.namesIn, name);
        if (record == drawing::kNone) return Answer::badValue;
        constexpr std::int64_t kFrozen = 1;
        const bool frozen = *row.namesIn == drawing::TableId::layer &&
                            (drawing.at(record).tags.integer(70) & kFrozen) != 0;
        if (frozen) return Answer::badValue; // nobody would see what is drawn
        value = drawing::text16(drawing.at(record).name());
    }
    if (row.home == VariableHome::computed) {
        return row.set(document, value) ? Answer::done : Answer::badValue;
    }
    if (row.home == VariableHome::session) {
        session.insert_or_assign(&row, std::move(value));
        return Answer::done;
    }
    if (value == this->value(document, row)) return Answer::done;
    const bool planar = row.type == VariableType::point2;
    if (row.home == VariableHome::header) {
        TagList& list = drawing.header.need("$" + lisp::toUtf8(row.name));
        list = groupOf(list.empty() ? row.group : (*list.begin()).code(), value, planar);
        drawing.noteChange();
        return Answer::done;
    }
    const drawing::Index viewport = activeViewport(drawing);
    if (viewport == drawing::kNone) return Answer::badValue;
    TagList& tags = drawing.edit(viewport).tags;
    const TagList group = groupOf(row.group, value, planar);
    if (const auto tag = tags.find(row.group); tag == tags.end()) tags.append(group);
    else tags.replace(tag, group);
    return Answer::done;
}

SystemVariables::SystemVariables(Document& document)
    : document_(document), state_(std::make_unique<State>())
{
}

SystemVariables::~SystemVariables() = default;

SystemVariables::Answer SystemVariables::get(std::u16string_view name, resbuf& node) const
{
    const VariableRow* row = findVariable(name);
    if (row == nullptr) return Answer::unknown;
    fill(node, *row, state_->value(document_, *row));
    return Answer::done;
}

SystemVariables::Answer SystemVariables::getConstant(std::u16string_view name, resbuf& node)
{
    const VariableRow* row = findVariable(name);
    if (row == nullptr || !row->readOnly || row->home != VariableHome::session) {
        return Answer::unknown;
    }
    fill(node, *row, initialValue(*row));
    return Answer::done;
}

SystemVariables::Answer SystemVariables::set(std::u16string_view name, const resbuf& node)
{
    const VariableRow* row = findVariable(name);
    if (row == nullptr) return Answer::unknown;
    Answer answer = Answer::readOnly;
    if (!row->readOnly) {
        std::optional<VariableValue> value = valueFrom(*row, node);
        answer = value && inRange(*row, *value) ? state_->store(document_, *row, *std::move(value))
                                                : Answer::badValue;
    }
    constexpr int kReadOnly = 20;
    if (answer == Answer::readOnly) setErrno(kReadOnly);
    if (answer == Answer::badValue) setErrno(static_cast<int>(drawing::ErrNo::badValue));
    return answer;
}

void SystemVariables::setErrno(int value)
{
    state_->session.insert_or_assign(findVariable(u"ERRNO"), static_cast<std::int32_t>(value));
}

namespace {

template <typename T>
T typed(const VariableValue& value)
{
    const T* held = std::get_if<T>(&value);
    return held == nullptr ? T() : *held;
}

} // namespace

std::int32_t SystemVariables::integer(std::u16string_view name) const
{
    const VariableRow* row = findVariable(name);
    return row == nullptr ? 0 : typed<std::int32_t>(state_->value(document_, *row));
}

double SystemVariables::real(std::u16string_view name) const
{
    const VariableRow* row = findVariable(name);
    return row == nullptr ? 0.0 : typed<double>(state_->value(document_, *row));
}

Point SystemVariables::point(std::u16string_view name) const
{
    const VariableRow* row = findVariable(name);
    return row == nullptr ? Point() : typed<Point>(state_->value(document_, *row));
}

void SystemVariables::setPoint(std::u16string_view name, Point value)
{
    if (const VariableRow* row = findVariable(name)) state_->store(document_, *row, value);
}

drawing::Box SystemVariables::extents() const
{
    const drawing::Drawing& drawing = document_.drawing();
    const drawing::Index space = drawing.currentSpace();
    if (state_->extentsOf != space || state_->extentsAt != drawing.changeCount()) {
        state_->extents = drawing::blockExtents(drawing, space);
        state_->extentsOf = space;
        state_->extentsAt = drawing.changeCount();
    }
    return state_->extents;
}

} // namespace orvald
