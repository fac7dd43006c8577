// SPDX-License-Identifier: LicenseRef-ORVALD
// Which groups records of a kind have, in which order files hold them, and what a missing one
// means. Kinds without a schema are taken as programs give them.
#pragma once

#include "drawing/kind.h"
#include "drawing/tags.h"

#include <span>
#include <string_view>

namespace orvald::drawing {

/// What becomes of a group that is missing, or that has its default value.
enum class Need : std::uint8_t
{
    required, // must be given when an entity is made
    always,   // written even with its default
    told,     // not written with its default, but told to programs
    hidden,   // neither written nor told with its default
    optional  // has no default
};

struct GroupRule
{
    int code;
    Need need;
    double number = 0.0;        // default of a number
    std::string_view text = {}; // default of a text

    /// Appends the default; a point is (0 0 0), a normal (0 0 1).
    void addDefault(TagList& tags) const;
    bool hasDefault() const { return need != Need::required && need != Need::optional; }
};

/// The groups behind one subclass marker.
struct SectionRule
{
    std::string_view marker;
    std::span<const GroupRule> groups;

    /// Position of a code, at or after `from`; npos when absent.
    std::size_t find(int code, std::size_t from = 0) const;
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);
};

enum class Form : std::uint8_t
{
    plain,      // each group at most once
    list,       // groups repeat in an order that means something
    lwpolyline, // a head, then vertices
    mtext       // text in pieces
};

struct Schema
{
    Kind kind;
    Form form;
    bool wantsMarkers; // a program must give the subclass markers itself
    std::span<const SectionRule> sections;

    /// The rule of the first group with that code; null when there is none.
    const GroupRule* find(int code) const;
};

/// Null when the kind has no schema.
const Schema* schemaOf(Kind kind);
/// The groups that all entities have.
const SectionRule& commonSection();
/// Marker of a POLYLINE with these flags (group 70) and of its vertices.
std::string_view polylineMarker(std::int64_t flags);
std::string_view vertexMarker(std::int64_t polylineFlags, std::int64_t vertexFlags);

/// True when the first group of `a` has the value of the first group of `b` as programs see it:
/// angles in radians, texts decoded, plane points without z.
bool sameValue(Tag a, Tag b);

} // namespace orvald::drawing
