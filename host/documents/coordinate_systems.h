// SPDX-License-Identifier: LicenseRef-ORVALD
// The coordinate systems of a drawing that are not the world's: the user's current one and the one
// of the display. All are rigid: axes of length 1 at right angles.
#pragma once

#include "drawing/drawing.h"

namespace orvald {

/// The current user coordinate system of the current space, as a map to world coordinates.
drawing::Transform userToWorld(const drawing::Drawing& drawing);
/// The coordinate system of the active view: z towards the eye, x to the right.
drawing::Transform displayToWorld(const drawing::Drawing& drawing);
/// The coordinate system that an entity's points are in: the world's for all but plane entities.
drawing::Transform entityToWorld(const drawing::Record& entity);
/// The other way of a rigid map.
drawing::Transform inverseRigid(const drawing::Transform& map);

/// The active view port of the model; null in a drawing that lacks it.
drawing::Index activeViewport(const drawing::Drawing& drawing);

} // namespace orvald
