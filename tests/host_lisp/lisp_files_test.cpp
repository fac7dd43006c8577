// SPDX-License-Identifier: LicenseRef-ORVALD
// Runs the cases of tests/lisp/core, each file in a world of its own; once as it is and once with a
// collection at every safe point, where a value that is not kept reachable shows.
#include "bare_world.h"
#include "lsp_run.h"

#include <gtest/gtest.h>

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
        World world(host_);
        world.define(kTable);
        world.stressCollector(stress);
        runLspFile(world, GetParam());
    }

    BareHost host_;
};

TEST_P(LispFiles, GiveWhatTheySay) { run(false); }
TEST_P(LispFiles, GiveTheSameWhileGarbageIsCollectedAllTheTime) { run(true); }

INSTANTIATE_TEST_SUITE_P(Core, LispFiles,
                         testing::ValuesIn(lspFiles(KEX_SOURCE_DIR "/tests/lisp/core")),
                         [](const auto& file) { return file.param.stem().string(); });

} // namespace
