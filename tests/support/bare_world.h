// SPDX-License-Identifier: LicenseRef-ORVALD
// A LISP world without drawing and user: its text window is a string, its search path one folder.
#pragma once

#include "lisp/world.h"

#include <atomic>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

class BareHost : public orvald::lisp::WorldHost
{
public:
    void print(std::u16string_view text) override { printed += text; }
    std::string findFile(std::string_view name, std::span<const std::string_view> suffixes) override
    {
        const std::filesystem::path path = folder / name;
        if (std::filesystem::is_regular_file(path)) return path.string();
        for (const std::string_view suffix : suffixes) {
            const std::string longer = path.string() + std::string(suffix);
            if (std::filesystem::is_regular_file(longer)) return longer;
        }
        return {};
    }
    void releasePickset(std::int32_t set) override { released.push_back(set); }
    bool takeInterrupt() override { return interrupt.exchange(false); }
    void commandDefined(std::u16string_view name, bool defined) override
    {
        commands[std::u16string(name)] = defined;
    }
    std::optional<orvald::lisp::Value> systemVariable(std::u16string_view name) override
    {
        const auto known = variables.find(std::u16string(name));
        if (known == variables.end()) return std::nullopt;
        return orvald::lisp::Value::integer(known->second);
    }

    std::filesystem::path folder = std::filesystem::current_path();
    std::u16string printed;
    std::vector<std::int32_t> released;
    std::atomic<bool> interrupt = false;
    std::map<std::u16string, bool> commands;
    std::map<std::u16string, int> variables;
};
