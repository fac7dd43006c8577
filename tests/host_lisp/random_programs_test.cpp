// SPDX-License-Identifier: LicenseRef-ORVALD
// Programs grown at random from every function there is, with arguments of every kind: each ends
// with a value or an error, whatever it redefines, and the collector finds nothing amiss.
#include "bare_world.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <thread>

namespace {

using namespace orvald::lisp;

constexpr unsigned long kSeed = 20150903;

class Grower
{
public:
    Grower(std::vector<std::u16string> names, unsigned long seed)
        : names_(std::move(names)), random_(seed)
    {
    }

    std::u16string expression(int depth)
    {
        if (depth <= 0 || random_() % 4 == 0) return atom();
        const auto e = [&] { return expression(depth - 1); };
        switch (random_() % 20) {
        case 0: return u"(setq a " + e() + u")";
        case 1: return u"(setq b " + e() + u" f " + e() + u")";
        case 2: return u"(if " + e() + u" " + e() + u" " + e() + u")";
        case 3: return u"(foreach a " + e() + u" " + e() + u")";
        case 4: return u"(repeat 3 " + e() + u")";
        case 5: return u"(mapcar " + e() + u" " + e() + u")";
        case 6: return u"(vl-catch-all-apply '(lambda () " + e() + u") nil)";
        case 7: return u"(defun f (a b / g) " + e() + u" " + e() + u")";
        case 8: return u"(defun g ( / f) " + e() + u")";
        case 9: return u"(f " + e() + u" " + e() + u")";
        case 10: return u"(g)";
        case 11: return u"(cond (" + e() + u" " + e() + u") (" + e() + u"))";
        case 12: return u"(eval '" + e() + u")";
        case 13: return u"((lambda (a / b) " + e() + u") " + e() + u")";
        case 14: return u"(vl-sort " + e() + u" " + e() + u")";
        case 15: return u"(set '" + name() + u" " + e() + u")";
        case 16: return u"(defun *error* (m) " + e() + u")";
        default:
            std::u16string text = u"(" + name();
            for (unsigned long n = random_() % 4; n > 0; --n) text += u" " + e();
            return text + u")";
        }
    }

private:
    std::u16string atom()
    {
        static constexpr const char16_t* kAtoms[] = {
            u"0",
            u"1",
            u"-1",
            u"2147483647",
            u"1.5",
            u"1e308",
            u"1e-320",
            u"1e400",
            u"nil",
            u"t",
            u"\"\"",
            u"\"abc\"",
            u"\"a*[b`\"",
            u"\"ä€\"",
            u"'a",
            u"a",
            u"b",
            u"f",
            u"g",
            u"'(1 2 3)",
            u"'((1 . 2))",
            u"'(1 . 2)",
            u"(princ)",
            u"'('(\"x\"))",
            u"'(lambda (x) x)",
            u"'f",
            u"'car",
            u"'list",
            u"'<",
            u"'(1.0 2.0 3.0)",
            u"32",
            u"(- 1e400 1e400)",
        };
        return kAtoms[random_() % std::size(kAtoms)];
    }
    std::u16string name() { return names_[random_() % names_.size()]; }

    std::vector<std::u16string> names_;
    std::mt19937_64 random_;
};

// All functions but those that reach outside of the process.
std::vector<std::u16string> functionNames()
{
    BareHost host;
    World world(host);
    std::vector<std::u16string> names;
    const Outcome all = world.evalText(u"(atoms-family 1)");
    for (Value rest = all.value; rest.isCons(); rest = cdr(rest)) {
        const std::u16string name(car(rest).asString());
        const bool outside = name.starts_with(u"VL-FILE") || name.starts_with(u"VL-MK") ||
                             name == u"OPEN" || name == u"SETENV" || name == u"LOAD";
        if (!outside) names.push_back(name);
    }
    return names;
}

TEST(RandomPrograms, EndWithAValueOrAnError)
{
    const std::vector<std::u16string> names = functionNames();
    ASSERT_GT(names.size(), 200u);
    BareHost host;
    std::atomic<bool> ended = false;
    std::thread impatientUser([&] {
        while (!ended) {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            host.interrupt = true;
        }
    });
    for (unsigned long round = 0; round < 200; ++round) {
        SCOPED_TRACE("seed " + std::to_string(kSeed + round));
        Grower grower(names, kSeed + round);
        World world(host, std::size_t{32} << 20);
        world.stressCollector(round % 2 == 0);
        for (int i = 0; i < 10; ++i) {
            const Outcome outcome = world.evalText(grower.expression(6));
            if (outcome.ok()) world.prin1(outcome.value);
            host.printed.clear();
        }
    }
    ended = true;
    impatientUser.join();
}

} // namespace
