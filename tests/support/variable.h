// SPDX-License-Identifier: LicenseRef-ORVALD
// A variable of the environment, set for a scope.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace kextest {

class Variable
{
public:
    Variable(const char* name, const std::string& value) : name_(name)
    {
        if (const char* before = std::getenv(name)) before_ = before;
        ::setenv(name, value.c_str(), 1);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable()
    {
        if (before_.has_value()) ::setenv(name_.c_str(), before_->c_str(), 1);
        else ::unsetenv(name_.c_str());
    }

private:
    std::string name_;
    std::optional<std::string> before_;
};

} // namespace kextest
