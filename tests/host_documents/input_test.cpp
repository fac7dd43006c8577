// SPDX-License-Identifier: LicenseRef-ORVALD
// Where answers come from, and what the host remembers of a prompt that found none.
#include "document.h"
#include "host.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using namespace orvald;

/// Standard input that holds a text and then ends.
class StandardInput
{
public:
    explicit StandardInput(std::string_view text) : saved_(dup(STDIN_FILENO))
    {
        int ends[2];
        if (pipe(ends) != 0) return;
        EXPECT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
        close(ends[1]);
        dup2(ends[0], STDIN_FILENO);
        close(ends[0]);
    }
    ~StandardInput()
    {
        dup2(saved_, STDIN_FILENO);
        close(saved_);
    }

private:
    int saved_;
};

TEST(InputSource, ReadsLinesOfStandardInputUpToItsEnd)
{
    const StandardInput text("one\r\n\nlast without end");
    InputSource input;
    EXPECT_FALSE(input.showsItself());
    EXPECT_EQ(input.nextLine(), "one");
    EXPECT_EQ(input.nextLine(), "");
    EXPECT_EQ(input.nextLine(), "last without end");
    EXPECT_EQ(input.nextLine(), std::nullopt);
    EXPECT_EQ(input.nextLine(), std::nullopt);
}

TEST(InputSource, GivenAnswersTakeThePlaceOfStandardInput)
{
    const StandardInput text("from standard input\n");
    InputSource input;
    input.setAnswers({"first"});
    EXPECT_EQ(input.unused(), 1u);
    EXPECT_EQ(input.nextLine(), "first");
    EXPECT_EQ(input.nextLine(), std::nullopt);
}

TEST(InputSource, APromptWithoutInputIsRememberedForTheExitStatus)
{
    Host host;
    host.console().setLevel(Console::Level::quiet);
    host.input().setAnswers({});
    lisp::World& world = host.newDocument().world();
    EXPECT_FALSE(host.input().missing().has_value());
    const lisp::Outcome outcome = world.evalText(u"(getpoint \"\\n  Basispunkt: \")");
    EXPECT_FALSE(outcome.ok());
    EXPECT_EQ(host.input().missing(), u"Basispunkt:");
}

TEST(InputSource, AnInterruptAtAPromptCancelsTheProgram)
{
    Host host;
    host.console().setLevel(Console::Level::quiet);
    host.input().setAnswers({});
    lisp::World& world = host.newDocument().world();
    // The interrupt comes while the prompt waits: no safe point lies between this and the read.
    static constexpr lisp::Builtin kTable[] = {
        {"interrupted-prompt", [](lisp::World& inner, lisp::Args) {
             Host::interrupt();
             return inner.apply(inner.symbolValue(u"GETSTRING"), {});
         }}};
    world.define(kTable);
    const lisp::Outcome outcome = world.evalText(u"(interrupted-prompt)");
    ASSERT_FALSE(outcome.ok());
    EXPECT_EQ(outcome.error->sort, lisp::LispError::Sort::cancelled);
    EXPECT_FALSE(host.input().missing().has_value());
}

} // namespace
