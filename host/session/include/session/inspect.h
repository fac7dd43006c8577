// SPDX-License-Identifier: LicenseRef-ORVALD
// Looking at drawing files without a session: what is in them, and what is wrong. Text is UTF-8.
#pragma once

#include "session/session.h"

namespace orvald {

/// A description of what is in a drawing, as lines or as one JSON object. False, with the reason in
/// `problem`, when the drawing cannot be loaded.
ORVALD_API bool describeDrawing(const std::string& path, bool json, std::string& text,
                                std::string& problem);

enum class Verdict
{
    good,      // no errors; warnings there may be
    faulty,    // at least one error
    unreadable // the file cannot be opened
};
/// Looks for all that is wrong in a drawing file and hands the report on in pieces, as lines or as
/// one JSON object. Why a file is unreadable stands in `problem`.
ORVALD_API Verdict checkDrawing(const std::string& path, bool json,
                                const std::function<void(std::string_view)>& print,
                                std::string& problem);

} // namespace orvald
