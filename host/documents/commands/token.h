// SPDX-License-Identifier: LicenseRef-ORVALD
// One input of a command: an argument of a call, or a line that the user typed.
#pragma once

#include "drawing/object_id.h"
#include "drawing/point.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvald {

struct Token
{
    enum class Kind : std::uint8_t
    {
        text, // empty: Enter
        number,
        point,
        entity, // one, perhaps with the point where it was picked
        set
    };
    Kind kind = Kind::text;
    std::u16string text; // of a number: as it prints
    double number = 0.0;
    std::optional<drawing::Point> point; // user coordinates
    std::vector<drawing::ObjectId> entities;

    bool isEnter() const { return kind == Kind::text && text.empty(); }
};

/// What became of a token.
enum class Taken : std::uint8_t
{
    done,
    more,   // a further one is wanted
    refused // it does not fit
};

} // namespace orvald
