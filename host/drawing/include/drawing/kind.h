// SPDX-License-Identifier: LicenseRef-ORVALD
// The record types that code of ours asks for by name; all others are Kind::other and carry their
// name in the record.
#pragma once

#include <cstdint>
#include <string_view>

namespace orvald::drawing {

enum class Kind : std::uint8_t
{
    other,
    // entities
    arc,
    attdef,
    attrib,
    block,
    body,
    circle,
    dimension,
    ellipse,
    endblk,
    face3d,
    hatch,
    insert,
    leader,
    line,
    lwpolyline,
    mline,
    mtext,
    point,
    polyline,
    proxyEntity,
    ray,
    region,
    seqend,
    solid,
    solid3d,
    spline,
    text,
    tolerance,
    trace,
    vertex,
    viewport,
    xline,
    // tables and their records
    table,
    appid,
    blockRecord,
    dimstyle,
    layer,
    ltype,
    style,
    ucs,
    view,
    vport,
    // objects
    dictionary,
    dictionaryDefault,
    layout,
    material,
    mleaderStyle,
    mlineStyle,
    placeHolder,
    plotSettings,
    proxyObject,
    xrecord
};

/// The name in files: "LINE"; "" for Kind::other.
std::string_view kindName(Kind kind);
/// Kind of a record type name, in capitals as in files; Kind::other when it is none of ours.
Kind kindOf(std::string_view name);

// Where a file may have records of a kind; types that are none of ours may be either.
constexpr bool mayBeEntity(Kind kind) { return kind < Kind::table; }
constexpr bool mayBeObject(Kind kind) { return kind == Kind::other || kind >= Kind::dictionary; }

constexpr bool isDictionary(Kind kind)
{
    return kind == Kind::dictionary || kind == Kind::dictionaryDefault;
}
/// Entities that end with a SEQEND of their own when they have parts.
constexpr bool hasParts(Kind kind) { return kind == Kind::polyline || kind == Kind::insert; }
/// Parts of a complex entity.
constexpr bool isPart(Kind kind)
{
    return kind == Kind::vertex || kind == Kind::attrib || kind == Kind::seqend;
}

} // namespace orvald::drawing
