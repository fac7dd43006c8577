// SPDX-License-Identifier: LicenseRef-ORVALD
// Reactors, each with the application that brought it, and how they are called: behind that
// application's fence, in the order in which they came.
#pragma once

#include "application.h"

#include <algorithm>
#include <vector>

namespace orvald {

template <class Reactor>
class ReactorList
{
public:
    bool isEmpty() const { return entries_.empty(); }
    /// False when it is there already.
    bool add(Reactor* reactor)
    {
        if (has(reactor)) return false;
        entries_.push_back({reactor, Application::current()});
        return true;
    }
    /// False when it is not there.
    bool remove(const Reactor* reactor)
    {
        return std::erase_if(entries_, [&](const Entry& e) { return e.reactor == reactor; }) != 0;
    }
    void forget(const Application& application)
    {
        std::erase_if(entries_, [&](const Entry& e) { return e.owner == &application; });
    }
    void clear() { entries_.clear(); }

    /// Calls those that are there now, but for those that are removed meanwhile. `what` names the
    /// call in a fault's report.
    template <class Call>
    void call(std::u16string_view what, Call&& call) const
    {
        const std::vector<Entry> present = entries_;
        for (const Entry& entry : present) {
            if (!has(entry.reactor)) continue;
            if (entry.owner == nullptr) call(*entry.reactor);
            else entry.owner->runReactor([&] { call(*entry.reactor); }, what);
        }
    }

private:
    struct Entry
    {
        Reactor* reactor;
        Application* owner; // null: the host's own program
    };
    bool has(const Reactor* reactor) const
    {
        return std::ranges::any_of(entries_, [&](const Entry& e) { return e.reactor == reactor; });
    }

    std::vector<Entry> entries_;
};

} // namespace orvald
