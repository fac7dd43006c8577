// SPDX-License-Identifier: LicenseRef-ORVALD
// Annotation scales: the scale list of a drawing, and the scales that annotative entities have. An
// entity is annotative by extended data of AcadAnnotative; for each of its scales it has an object
// in its extension dictionary, below AcDbContextDataManager and ACDB_ANNOTATIONSCALES, that says
// where the entity stands at that scale.
#pragma once

#include "drawing/drawing.h"

#include <optional>

namespace orvald::drawing {

/// The living SCALE objects of the drawing in the order of its scale list, which is that of the
/// numbers in their keys: A2 stands before A10.
std::vector<Index> scaleList(const Drawing& drawing);
/// The scale of that name (file form, any case); kNone when the list has none.
Index findScale(const Drawing& drawing, std::string_view name);
/// Paper length by drawing length; nothing for a scale without a positive drawing length.
std::optional<double> scaleFactor(const Record& scale);
/// Adds a scale at the end of the list, which is made when the drawing has none. kNone when the
/// name is taken or a length is not positive.
Index addScale(Drawing& drawing, std::string_view name, double paper, double units);

/// True for kinds whose representation this host can make: TEXT, ATTRIB, ATTDEF, MTEXT, INSERT and
/// linear DIMENSIONs. Scales of other kinds, as files have them, can be read and taken away.
bool canBeAnnotative(const Record& entity);
bool isAnnotative(const Record& entity);
/// Makes an entity annotative, without a scale yet, or takes the mark and all its scales away.
void setAnnotative(Drawing& drawing, Index entity, bool annotative);

bool hasScale(const Drawing& drawing, Index entity, Index scale);
/// Gives an annotative entity a scale, at which it stands as it does now; the first one is the
/// default. False when it has the scale already, and for kinds that cannot be annotative.
bool giveScale(Drawing& drawing, Index entity, Index scale);
/// False when it does not have the scale. The next one becomes the default where it was that.
bool takeScale(Drawing& drawing, Index entity, Index scale);

} // namespace orvald::drawing
