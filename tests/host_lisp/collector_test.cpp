// SPDX-License-Identifier: LicenseRef-ORVALD
// What LISP cannot see of memory: that garbage goes, that what is reachable from the host stays,
// and that the ceiling is an error and not an end.
#include "bare_world.h"

#include <gtest/gtest.h>

namespace {

using namespace orvald::lisp;

std::string shown(World& world, const Outcome& outcome)
{
    return outcome.ok() ? toUtf8(world.prin1(outcome.value)) : toUtf8(outcome.error->message);
}

TEST(Collector, MemoryOfALongLoopDoesNotGrow)
{
    BareHost host;
    World world(host);
    const char16_t kLoop[] = u"(repeat 2000 (setq l nil) (repeat 500 (setq l (cons 1.5 l)))"
                             u" (setq s (strcat \"abc\" (itoa (length l)))) (eval (list '+ 1 2)))";
    ASSERT_TRUE(world.evalText(kLoop).ok());
    const std::size_t once = world.heapBytes();
    for (int i = 0; i < 5; ++i) ASSERT_TRUE(world.evalText(kLoop).ok());
    EXPECT_LE(world.heapBytes(), once + (std::size_t{4} << 20));
    world.setSymbol(u"l", Value::nil());
    world.evalText(u"1");
    world.collectGarbage();
    EXPECT_LT(world.heapBytes(), std::size_t{12} << 20);
}

TEST(Collector, RootsAndTheLastOutcomeSurvive)
{
    BareHost host;
    World world(host);
    Root kept(world, world.makeList({world.makeString(u"kept"), Value::real(1.5)}));
    const Outcome outcome = world.evalText(u"(list \"a\" (list \"b\" 2.5))");
    {
        const Root inner(world, world.makeString(u"short-lived"));
        world.collectGarbage();
    }
    world.collectGarbage();
    for (int i = 0; i < 1000; ++i) world.makeList({world.makeString(u"new"), Value::nil()});
    EXPECT_EQ(toUtf8(world.prin1(kept.value)), "(\"kept\" 1.5)");
    EXPECT_EQ(shown(world, outcome), "(\"a\" (\"b\" 2.5))");
}

TEST(Collector, ASelectionSetThatNobodyHoldsIsGivenBack)
{
    BareHost host;
    World world(host);
    world.setSymbol(u"held", world.makePickset(1));
    world.makePickset(2);
    world.collectGarbage();
    EXPECT_EQ(host.released, std::vector<std::int32_t>{2});
    EXPECT_EQ(shown(world, world.evalText(u"(type held)")), "PICKSET");
}

TEST(Collector, AFunctionRedefinedWhileItRunsGoesOn)
{
    BareHost host;
    World world(host);
    world.stressCollector(true);
    EXPECT_EQ(shown(world, world.evalText(u"(defun f (n) (setq f nil) (repeat 3 (list n))"
                                          u" (eval '(list 1)) (list n (+ n 1)))"
                                          u"(f 5)")),
              "(5 6)");
}

TEST(Collector, AListUsedAsFunctionMayDieAndItsPlaceBeUsedAgain)
{
    BareHost host;
    World world(host);
    world.stressCollector(true);
    EXPECT_EQ(shown(world, world.evalText(u"(setq sum 0 i 0)"
                                          u"(while (< i 300) (setq i (1+ i) sum (+ sum"
                                          u" (apply (list 'lambda '(x) (list '+ 'x i)) (list 1)))))"
                                          u"sum")),
              "45450");
}

TEST(Collector, TheCeilingIsALispErrorAndTheWorldGoesOn)
{
    BareHost host;
    World world(host, std::size_t{16} << 20);
    const char16_t* const kGreedy[] = {
        u"(while t (setq l (cons 1 l)))",
        u"(setq s \"abcdefgh\") (while t (setq s (strcat s s)))",
        u"(defun f (n) (list n (f (cons n n)))) (while t (setq l (list l l (strcat \"abc\"))))",
        u"(setq l nil) (repeat 20000 (setq l (cons 1 l))) (while t (setq r (cons (reverse l) r)))",
    };
    for (const char16_t* text : kGreedy) {
        const Outcome outcome = world.evalText(text);
        ASSERT_FALSE(outcome.ok());
        EXPECT_EQ(outcome.error->message, u"insufficient memory");
        world.evalText(u"(setq l nil s nil r nil)");
        EXPECT_EQ(shown(world, world.evalText(u"(+ 1 2)")), "3");
        EXPECT_LT(world.heapBytes(), std::size_t{24} << 20);
    }
    // A caught one leaves the program running.
    EXPECT_EQ(shown(world, world.evalText(u"(defun eat () (while t (setq l (cons 1 l))))"
                                          u"(setq e (vl-catch-all-apply 'eat nil) l nil)"
                                          u"(vl-catch-all-error-message e)")),
              "\"insufficient memory\"");
}

TEST(Collector, ListsThatHoldThemselvesManyTimesOverAreNoEndlessWork)
{
    BareHost host;
    World world(host, std::size_t{64} << 20);
    const auto run = [&](std::u16string_view text) { return shown(world, world.evalText(text)); };
    run(u"(setq a '(1+ 1) b '(1+ 1)) (repeat 40 (setq a (list 'list a a) b (list 'list b b)))");
    EXPECT_EQ(run(u"(list (equal a b) (equal (cdr a) b))"), "(T nil)");
    EXPECT_EQ(run(u"(strlen (vl-princ-to-string a))"), "insufficient memory");
    EXPECT_EQ(run(u"(eval a)"), "insufficient memory");
    EXPECT_EQ(run(u"(car a)"), "LIST");
}

TEST(Collector, TenMillionCellsAndALongStringFit)
{
    BareHost host;
    World world(host);
    EXPECT_EQ(shown(world, world.evalText(u"(repeat 10000000 (setq l (cons 1 l)))"
                                          u"(length (setq l (reverse l)))")),
              "10000000");
    world.setSymbol(u"l", Value::nil());
    EXPECT_EQ(shown(world, world.evalText(u"(setq s \"0123456789\")"
                                          u"(repeat 22 (setq s (strcat s s))) (strlen s)")),
              "41943040");
}

} // namespace
