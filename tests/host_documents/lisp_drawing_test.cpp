// SPDX-License-Identifier: LicenseRef-ORVALD
// Runs the cases of tests/lisp/drawing and the programs of tests/lisp/programs, each file with a
// new drawing; once as it is and once with a collection at every safe point, where a value that is
// not kept reachable shows.
#include "document.h"
#include "host.h"
#include "lsp_run.h"

namespace {

using namespace orvald;
using lisp::Args;
using lisp::Value;
using lisp::World;

// (answers line ...): what the next prompts get; nothing follows behind them
Value answers(World&, Args args)
{
    std::vector<std::string> lines;
    for (int i = 0; i < args.size(); ++i) lines.push_back(lisp::toUtf8(args.string(i)));
    Host::instance().input().setAnswers(std::move(lines));
    return Value::nil();
}

// (unused): answers that nobody asked for
Value unused(World&, Args)
{
    return Value::integer(static_cast<int>(Host::instance().input().unused()));
}

// (vectors): temporary vectors as (from to colour dashed)
Value vectors(World& world, Args)
{
    const auto point = [&](const double(&p)[3]) {
        return world.makeList({Value::real(p[0]), Value::real(p[1]), Value::real(p[2])});
    };
    lisp::ListBuilder list(world);
    for (const TemporaryVector& one : Document::of(world).graphics().vectors()) {
        list.add(world.makeList({point(one.from), point(one.to), Value::integer(one.colour),
                                 world.boolean(one.dashed)}));
    }
    return list.list();
}

// (modified): T once the drawing has changed
Value modified(World& world, Args) { return world.boolean(Document::of(world).isModified()); }

constexpr lisp::Builtin kTable[] = {{"answers", answers},
                                    {"unused", unused, 0, 0},
                                    {"vectors", vectors, 0, 0},
                                    {"modified", modified, 0, 0}};

class DrawingFiles : public testing::TestWithParam<std::filesystem::path>
{
protected:
    void run(bool stress)
    {
        Host host;
        host.console().setLevel(Console::Level::quiet);
        host.input().setAnswers({});
        host.setProgramArguments({"one", "zwölf"});
        lisp::World& world = host.newDocument().world();
        world.define(kTable);
        world.stressCollector(stress);
        runLspFile(world, GetParam());
    }
};

TEST_P(DrawingFiles, GiveWhatTheySay) { run(false); }
TEST_P(DrawingFiles, GiveTheSameWhileGarbageIsCollectedAllTheTime) { run(true); }

INSTANTIATE_TEST_SUITE_P(Programs, DrawingFiles,
                         testing::ValuesIn(lspFiles(KEX_SOURCE_DIR "/tests/lisp/programs")),
                         [](const auto& file) { return file.param.stem().string(); });
INSTANTIATE_TEST_SUITE_P(Drawing, DrawingFiles,
                         testing::ValuesIn(lspFiles(KEX_SOURCE_DIR "/tests/lisp/drawing")),
                         [](const auto& file) { return file.param.stem().string(); });

} // namespace
