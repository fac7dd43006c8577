// SPDX-License-Identifier: LicenseRef-ORVALD
// The header variables of a drawing ("$LTSCALE"), in file order. Names are written with the dollar.
#pragma once

#include "drawing/tags.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace orvald::drawing {

class HeaderVariables
{
public:
    struct Variable
    {
        std::string name;
        TagList value; // one group, or several where a variable has them
    };

    /// Is told before the variables change.
    class Watcher
    {
    public:
        virtual void headerChanges() = 0;

    protected:
        ~Watcher() = default;
    };
    /// Null: nobody. Copies are not watched.
    void setWatcher(Watcher* watcher) { watcher_.to = watcher; }
    /// Exchanges the variables; the watchers, which are not told, stay.
    void swapValues(HeaderVariables& other)
    {
        variables_.swap(other.variables_);
        places_.swap(other.places_);
    }

    const std::vector<Variable>& all() const { return variables_; }
    bool has(std::string_view name) const { return find(name) != nullptr; }
    /// Null when there is no such variable.
    const TagList* find(std::string_view name) const;
    /// The variable's groups, made empty at the end of the list when it is new.
    TagList& need(std::string_view name);
    void remove(std::string_view name);

    // First value of a variable, or what is given when it is missing.
    double real(std::string_view name, double none = 0.0) const;
    std::int64_t integer(std::string_view name, std::int64_t none = 0) const;
    Point point(std::string_view name, Point none = {}) const;
    /// In file form.
    std::string_view text(std::string_view name, std::string_view none = {}) const;

    // Change a variable; the group code that it has stays, `code` is for a new one.
    void setReal(std::string_view name, int code, double value);
    void setInteger(std::string_view name, int code, std::int64_t value);
    void setPoint(std::string_view name, int code, Point value);
    void setText(std::string_view name, int code, std::string_view fileForm);
    void setHandle(std::string_view name, int code, Handle value);

private:
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const
        {
            return std::hash<std::string_view>{}(s);
        }
    };
    /// A watcher watches one object: it is not copied.
    struct Watched
    {
        Watched() = default;
        Watched(const Watched&) {}
        Watched& operator=(const Watched&) { return *this; }
        ~Watched() = default;
        Watcher* to = nullptr;
    };
    void tellWatcher()
    {
        if (watcher_.to != nullptr) watcher_.to->headerChanges();
    }

    Watched watcher_;
    std::vector<Variable> variables_;
    std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> places_;
};

} // namespace orvald::drawing
