// SPDX-License-Identifier: LicenseRef-ORVALD
// What is behind a session.
#pragma once

#include "session/session.h"

#include "document.h"
#include "host.h"

namespace orvald {

struct Session::State
{
    Host host;
    std::string problem;
    std::vector<std::pair<std::string, std::string>> variables;

    Document& current() { return *host.current(); }
    Evaluation evaluate(const std::function<lisp::Outcome(lisp::World&)>& run);
    bool setVariables(std::string& reason);
};

} // namespace orvald
