// SPDX-License-Identifier: LicenseRef-ORVALD
// Every command takes whatever a program gives it, in any order: it goes on, waits, or ends with an
// error of the language, and the drawing stays sound.
#include "commands/command_line.h"
#include "commands/verbs.h"
#include "document.h"
#include "dxf/dxf.h"
#include "host.h"

#include <gtest/gtest.h>
#include <random>

namespace {

using namespace orvald;
using lisp::Value;

/// Inputs of every kind; options come from the prompt of the command that waits.
constexpr char16_t kInputs[] =
    uR"((list "" "" "" '(0 0) '(3 4) '(5.0 0.0 2.0) '(-1e300 1e300) '(0 0)
    "1,1" "@2,3" "@5<45" "@0,0" 0 1 -2 2.5 1e-300 90 "0" "*" "B" "B" "L" "_P" "_ALL" "_Y" "_N" "X"
    (entlast) (if (entlast) (ssadd (entlast))) (if (entlast) (list (entlast) '(1 1)))
    (if (entlast) (list (entlast) '(9 0 0))) (entnext)))";

class AnyInput
{
public:
    AnyInput(Host& host, std::uint32_t seed) : document_(host.newDocument()), random_(seed)
    {
        world().evalText(u"(entmake '((0 . \"BLOCK\") (2 . \"B\") (10 0 0) (70 . 0)))"
                         u"(entmake '((0 . \"LINE\") (10 0 0) (11 1 1)))"
                         u"(entmake '((0 . \"ATTDEF\") (8 . \"0\") (10 0 0) (40 . 1) (1 . \"\")"
                         u" (3 . \"?\") (2 . \"T\") (70 . 0)))"
                         u"(entmake '((0 . \"ENDBLK\")))");
    }

    lisp::World& world() { return document_.world(); }
    Document& document() { return document_; }

    /// Runs a command with random inputs until it ends; what went wrong, empty for nothing.
    std::string run(std::u16string_view name)
    {
        give(world().makeString(name));
        for (int i = 0; i < 40 && document_.commandLine().isActive(); ++i) {
            const std::vector<std::u16string> words = wordsOf(document_.commandLine().prompt());
            if (!words.empty() && random_() % 3 != 0) {
                give(world().makeString(words[random_() % words.size()]));
                continue;
            }
            const lisp::Outcome made = world().evalText(kInputs);
            if (!made.ok()) return lisp::toUtf8(made.error->message);
            std::vector<Value> pool;
            for (Value rest = made.value; rest.isCons(); rest = lisp::cdr(rest))
                if (!lisp::car(rest).isNil()) pool.push_back(lisp::car(rest));
            give(pool[random_() % pool.size()]);
        }
        document_.commandLine().cancel();
        return document_.commandLine().isActive() ? "does not end" : "";
    }

private:
    void give(Value input)
    {
        const lisp::Root root(world(), input);
        const Value call[] = {world().symbolValue(u"COMMAND"), world().makeList({input})};
        world().applyTop(u"VL-CATCH-ALL-APPLY", call);
    }

    /// The words between brackets and slashes of a prompt.
    static std::vector<std::u16string> wordsOf(std::u16string_view prompt)
    {
        std::vector<std::u16string> words;
        const std::size_t open = prompt.find(u'['), close = prompt.rfind(u']');
        if (open == std::u16string_view::npos || close == std::u16string_view::npos) return words;
        std::u16string_view list = prompt.substr(open + 1, close - open - 1);
        while (!list.empty()) {
            const std::size_t end = std::min(list.find(u'/'), list.size());
            words.emplace_back(list.substr(0, std::min(end, list.find(u' '))));
            list.remove_prefix(std::min(end + 1, list.size()));
        }
        return words;
    }

    Document& document_;
    std::mt19937 random_;
};

/// What went wrong; empty for nothing.
std::string runAll(std::uint32_t seed)
{
    Host host;
    host.console().setLevel(Console::Level::quiet);
    host.input().setAnswers({});
    AnyInput any(host, seed);
    constexpr int kRounds = 20;
    for (int round = 0; round < kRounds; ++round)
        for (const std::u16string_view name : verbNames())
            if (const std::string problem = any.run(name); !problem.empty())
                return lisp::toUtf8(name) + ": " + problem;
    const dxf::Loaded again = dxf::loadText(dxf::saveText(any.document().drawing()));
    if (again.drawing == nullptr) return again.error.message();
    return again.warnings.empty() ? std::string() : again.warnings.front().text;
}

TEST(Commands, TakeAnyInputAndLeaveADrawingThatCanBeReadAgain)
{
    for (std::uint32_t seed = 1; seed <= 12; ++seed) {
        testing::internal::CaptureStdout(); // what the commands print
        const std::string problem = runAll(seed);
        testing::internal::GetCapturedStdout();
        EXPECT_EQ(problem, "") << "seed " << seed;
    }
}

} // namespace
