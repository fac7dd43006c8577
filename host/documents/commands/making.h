// SPDX-License-Identifier: LicenseRef-ORVALD
// What commands draw: entities from points in the user's coordinates, with the current layer,
// colour, linetype, text style, elevation and thickness.
#pragma once

#include "commands/command.h"
#include "drawing/entity_functions.h"
#include "drawing/point.h"
#include "drawing/views.h"
#include "value_chain.h"

#include <span>

namespace orvald {

/// The angle from 0 to below a full turn.
double withinTurn(double angle);

/// The plane in which the user works.
class UserPlane
{
public:
    explicit UserPlane(const drawing::Drawing& drawing);

    drawing::Point world(drawing::Point user) const { return toWorld_(user); }
    drawing::Point user(drawing::Point world) const { return fromWorld_(world); }
    /// Entity coordinates of plane entities that stand in this plane.
    drawing::Point entity(drawing::Point user) const { return toEntity_(user); }
    /// The same for an angle, from 0 to below a full turn.
    double entityAngle(double user) const;
    drawing::Point normal() const { return toWorld_.z; }
    /// A map of user coordinates as one of world coordinates.
    drawing::Transform worldMap(const drawing::Transform& user) const
    {
        return toWorld_.after(user).after(fromWorld_);
    }

private:
    drawing::Transform toWorld_, fromWorld_, toEntity_;
};

/// A list of groups as programs have it, built up group by group: something to make, or new values
/// for something.
class Groups
{
public:
    Groups& text(int code, std::u16string_view value);
    Groups& real(int code, double value); // radians for angles
    Groups& integer(int code, int value);
    Groups& point(int code, drawing::Point value);

    /// Makes it, an entity in the current space. Ends the command when the values make nothing.
    drawing::Index make(Command& command);
    /// The same as one of several lists of a complex entity, which `functions` gather.
    drawing::Index make(Command& command, drawing::EntityFunctions& functions);
    /// Layer, linetype, colour and the like of another entity.
    Groups& like(const drawing::Record& other);
    /// False, and nothing changed, when the object does not take the values.
    bool apply(Command& command);

private:
    friend Groups changeOf(Command& command, drawing::Index object);
    resbuf& append(int code);
    Chain chain_;
    resbuf* last_ = nullptr;
};

/// `marker`: subclass that the groups given first belong to.
Groups newEntity(std::u16string_view type, std::u16string_view marker);
Groups newRecord(std::u16string_view type, std::u16string_view marker, std::u16string_view name);
Groups changeOf(Command& command, drawing::Index object);

// Each in user coordinates, in the user's plane.
drawing::Index drawLine(Command& command, drawing::Point start, drawing::Point end);
drawing::Index drawCircle(Command& command, drawing::Point centre, double radius);
/// Counter-clockwise.
drawing::Index drawArc(Command& command, drawing::Point centre, double radius, double start,
                       double end);
/// At the height of the first vertex; nothing is drawn with fewer than two.
drawing::Index drawPolyline(Command& command, std::span<const drawing::PolylineVertex> vertices,
                            bool closed);

} // namespace orvald
