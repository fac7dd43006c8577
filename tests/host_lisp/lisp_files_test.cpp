// SPDX-License-Identifier: LicenseRef-ORVALD
// Runs the cases of tests/lisp/core, each file in a world of its own; once as it is and once with a
// collection at every safe point, where a value that is not kept reachable shows.
#include "bare_world.h"
#include "lsp_cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace {

using namespace orvald::lisp;
namespace fs = std::filesystem;

BareHost* theHost = nullptr;

// (printed): what went to the text window since the last call
Value printed(World& world, Args)
{
    const Value text = world.makeString(theHost->printed);
    theHost->printed.clear();
    return text;
}

// (variable name value): sets a system variable of the host
Value variable(World&, Args args)
{
    theHost->variables[std::u16string(args.string(0))] = args.integer(1);
    return Value::nil();
}

// (folder): an empty folder of this run, which is also the search path
Value folder(World& world, Args) { return world.makeString(theHost->folder.u16string()); }

constexpr Builtin kTable[] = {
    {"printed", printed, 0, 0}, {"variable", variable, 2, 2}, {"folder", folder, 0, 0}};

std::vector<fs::path> lispFiles()
{
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(KEX_SOURCE_DIR "/tests/lisp/core")) {
        if (entry.path().extension() == ".lsp") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

class LispFiles : public testing::TestWithParam<fs::path>
{
protected:
    void SetUp() override
    {
        char name[] = "/tmp/lisp_files_XXXXXX";
        host_.folder = mkdtemp(name);
        theHost = &host_;
    }
    void TearDown() override { fs::remove_all(host_.folder); }

    void run(bool stress)
    {
        std::ifstream file(GetParam());
        std::stringstream text;
        text << file.rdbuf();
        World world(host_);
        world.define(kTable);
        world.stressCollector(stress);
        for (const LspCase& one : parseLspCases(text.str())) {
            SCOPED_TRACE(GetParam().filename().string() + ":" + std::to_string(one.line));
            const Outcome outcome = world.evalText(toUtf16(one.text), GetParam().string());
            const std::string message = outcome.ok() ? "" : toUtf8(outcome.error->message);
            if (one.expects == LspCase::Expects::error) {
                EXPECT_FALSE(outcome.ok()) << "value " << toUtf8(world.prin1(outcome.value));
                EXPECT_TRUE(message.ends_with(one.expected)) << "message " << message;
                continue;
            }
            EXPECT_TRUE(outcome.ok()) << message;
            if (one.expects == LspCase::Expects::value) {
                EXPECT_EQ(toUtf8(world.prin1(outcome.value)), one.expected);
            }
        }
    }

    BareHost host_;
};

TEST_P(LispFiles, GiveWhatTheySay) { run(false); }
TEST_P(LispFiles, GiveTheSameWhileGarbageIsCollectedAllTheTime) { run(true); }

INSTANTIATE_TEST_SUITE_P(Core, LispFiles, testing::ValuesIn(lispFiles()),
                         [](const auto& file) { return file.param.stem().string(); });

} // namespace
