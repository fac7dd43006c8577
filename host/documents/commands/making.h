// SPDX-License-Identifier: LicenseRef-ORVALD
// What commands draw: entities from points in the user's coordinates, with the current layer,
// colour, linetype, text style, elevation and thickness.
#pragma once

#include "commands/command.h"
#include "drawing/point.h"
#include "drawing/views.h"
#include "value_chain.h"

#include <span>

namespace orvald {

/// The plane in which the user works.
class UserPlane
{
public:
    explicit UserPlane(const drawing::Drawing& drawing);

    drawing::Point world(drawing::Point user) const { return toWorld_(user); }
    drawing::Point user(drawing::Point world) const { return fromWorld_(world); }
    /// Entity coordinates of plane entities that stand in this plane.
    drawing::Point entity(drawing::Point user) const { return toEntity_(user); }
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

/// The groups of an entity that is being drawn.
class NewEntity
{
public:
    /// `marker`: subclass of the entity, which the groups given first belong to.
    NewEntity(std::u16string_view type, std::u16string_view marker);
    NewEntity& text(int code, std::u16string_view value);
    NewEntity& real(int code, double value); // radians for angles
    NewEntity& integer(int code, int value);
    NewEntity& point(int code, drawing::Point value);
    /// Into the current space. Ends the command when the values make no entity.
    drawing::Index make(Command& command);

private:
    resbuf& append(int code);
    Chain chain_;
    resbuf* last_ = nullptr;
};

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
