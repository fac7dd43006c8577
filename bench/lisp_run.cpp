// SPDX-License-Identifier: LicenseRef-ORVALD
// Runs AutoLISP files in a world without drawing or user: lisp_run FILE ...
#include "lisp/world.h"

#include <chrono>
#include <cstdio>
#include <filesystem>

namespace {

using namespace orvald::lisp;

class BareHost final : public WorldHost
{
public:
    void print(std::u16string_view text) override
    {
        const std::string octets = toUtf8(text);
        std::fwrite(octets.data(), 1, octets.size(), stdout);
    }
    std::string findFile(std::string_view name, std::span<const std::string_view> suffixes) override
    {
        std::error_code error;
        std::string path(name);
        if (std::filesystem::is_regular_file(path, error)) return path;
        for (const std::string_view suffix : suffixes) {
            path = std::string(name) + std::string(suffix);
            if (std::filesystem::is_regular_file(path, error)) return path;
        }
        return {};
    }
    void releasePickset(std::int32_t) override {}
    bool takeInterrupt() override { return false; }
    void commandDefined(std::u16string_view, bool) override {}
};

// (seconds): a clock that only goes forward
Value seconds(World&, Args)
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return Value::real(std::chrono::duration<double>(now).count());
}

constexpr Builtin kTable[] = {{"seconds", seconds, 0, 0}};

int report(const LispError& error)
{
    std::fputs(("; error: " + toUtf8(error.message) + "\n").c_str(), stderr);
    for (const CallPlace& place : error.calls) {
        const std::string where = place.file + ":" + std::to_string(place.line) + ": ";
        std::fputs(("  " + where + toUtf8(place.call) + "\n").c_str(), stderr);
    }
    return 3;
}

} // namespace

int main(int count, char** arguments)
{
    BareHost host;
    World world(host);
    world.define(kTable);
    for (int i = 1; i < count; ++i) {
        const Outcome outcome = world.loadFile(arguments[i]);
        if (!outcome.ok()) return report(*outcome.error);
    }
    return 0;
}
