// SPDX-License-Identifier: LicenseRef-ORVALD
// Any bytes as a LISP program: it ends with a value that can be printed, or with an error. The
// program sees the files of one folder, has little memory, and is stopped after some time.
#include "fuzz_check.h"
#include "lisp/world.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

using namespace orvald::lisp;

/// A folder for all runs of this process.
const std::string& scratchFolder()
{
    static const std::string folder = [] {
        const auto path =
            std::filesystem::temp_directory_path() / ("orvald_fuzz_" + std::to_string(::getpid()));
        std::filesystem::create_directories(path);
        return path.string();
    }();
    return folder;
}

class ImpatientHost : public WorldHost
{
public:
    explicit ImpatientHost(long mostSafePoints) : most_(mostSafePoints) {}

    void print(std::u16string_view) override {}
    std::string findFile(std::string_view, std::span<const std::string_view>) override
    {
        return {};
    }
    void releasePickset(std::int32_t) override {}
    bool takeInterrupt() override { return ++safePoints_ > most_; }
    void commandDefined(std::u16string_view, bool) override {}
    /// Every name means a file right in the folder, whatever separators it has.
    std::string filePath(std::u16string_view name) override
    {
        std::string file = toUtf8(name.substr(0, 40));
        std::replace_if(
            file.begin(), file.end(), [](char c) { return c == '/' || c == '\\' || c == 0; }, '_');
        return scratchFolder() + "/_" + file;
    }

private:
    long most_, safePoints_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // Collecting at every safe point shows at once a value that is not kept, and takes its time.
    const bool stress = size % 4 == 0;
    ImpatientHost host(stress ? 300 : 20000);
    World world(host, std::size_t{16} << 20);
    world.stressCollector(stress);
    const Outcome outcome =
        world.evalText(toUtf16({reinterpret_cast<const char*>(data), size}), "fuzz.lsp");
    if (outcome.ok()) {
        world.prin1(outcome.value);
        world.princ(outcome.value);
    } else {
        fuzzCheck(outcome.error.has_value(), "a failure has an error");
    }
    return 0;
}
