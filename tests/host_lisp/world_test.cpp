// SPDX-License-Identifier: LicenseRef-ORVALD
// The world as the host sees it: places of errors, *error*, external functions, commands,
// interrupts, evaluation inside evaluation.
#include "bare_world.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <thread>

namespace {

using namespace orvald::lisp;

std::string shown(World& world, std::u16string_view text)
{
    const Outcome outcome = world.evalText(text);
    return outcome.ok() ? toUtf8(world.prin1(outcome.value)) : toUtf8(outcome.error->message);
}

std::string places(const LispError& error)
{
    std::string text;
    for (const CallPlace& place : error.calls) {
        text += place.file + ":" + std::to_string(place.line) + " " + toUtf8(place.call) + "\n";
    }
    return text;
}

TEST(ErrorPlaces, NameTheCallsInnermostFirstWithFileAndLine)
{
    BareHost host;
    World world(host);
    const Outcome outcome = world.evalText(u"(defun inner (x)\n"
                                           u"  (if x\n"
                                           u"    (strcat \"a\" x)))\n"
                                           u"(defun outer (y / z)\n"
                                           u"  (setq z 1)\n"
                                           u"  (mapcar 'inner y))\n"
                                           u"\n"
                                           u"(progn\n"
                                           u"  (outer '(nil 5)))\n",
                                           "prog.lsp");
    ASSERT_FALSE(outcome.ok());
    EXPECT_EQ(places(*outcome.error), "prog.lsp:3 (STRCAT \"a\" X)\n"
                                      "prog.lsp:6 (MAPCAR (QUOTE INNER) Y)\n"
                                      "prog.lsp:9 (OUTER (QUOTE (nil 5)))\n");
}

// Every inlined function and special form names its own line when it fails.
TEST(ErrorPlaces, AreExactForEveryKindOfNode)
{
    const char* const kFaulty[] = {
        "(+ 1 \"x\")",
        "(< 1 \"x\")",
        "(/ 1 0)",
        "(1+ nil)",
        "(car 5)",
        "(caddr '(1 . 2))",
        "(nth 1 5)",
        "(zerop \"\")",
        "(repeat 1.5 2)",
        "(foreach x 5 x)",
        "(if)",
        "(setq a)",
        "(nosuch 1 2)",
        "(\"f\" 1)",
        "(cond 5)",
        "((lambda (x) x))",
        "(sqrt -1)",
        "(itoa 1.5)",
        "(apply 'car '(5))",
        "(logand 1 2.5)",
        "(rem 5 0)",
        "(lambda)",
        "(eval '(car 5))",
        "(read \")\")",
    };
    for (const char* form : kFaulty) {
        BareHost host;
        World world(host);
        const std::string text = std::string("(defun f (n)\n (1+ n)\n ") + form + ")\n\n(f 1)";
        const Outcome outcome = world.evalText(toUtf16(text), "x.lsp");
        ASSERT_FALSE(outcome.ok()) << form;
        ASSERT_FALSE(outcome.error->calls.empty()) << form;
        EXPECT_EQ(outcome.error->calls.front().line, 3) << form << "\n" << places(*outcome.error);
        EXPECT_EQ(outcome.error->calls.back().line, 5) << form;
    }
}

TEST(ErrorPlaces, TheReaderNamesWhereTheListOpened)
{
    BareHost host;
    World world(host);
    const auto firstPlace = [&](std::u16string_view text) {
        const Outcome outcome = world.evalText(text, "r.lsp");
        if (outcome.ok() || outcome.error->calls.empty()) return std::string("none");
        const CallPlace& place = outcome.error->calls.front();
        return std::to_string(place.line) + " " + toUtf8(place.call);
    };
    EXPECT_EQ(firstPlace(u"(list 1)\n\n(defun f ()\n (car x)\n"), "3 (defun f ()");
    EXPECT_EQ(firstPlace(u"(list\n \"abc\n def"), "2 \"abc");
    EXPECT_EQ(firstPlace(u"(list)\n (list))"), "2 )");
    EXPECT_EQ(firstPlace(u"\n(a\n (1 . 2 3))"), "3 (1 . 2 3))");
}

TEST(ErrorPlaces, OfADeepRecursionTheEndsAreShown)
{
    BareHost host;
    World world(host);
    const Outcome own = world.evalText(u"(defun f (n) (1+ (f n)))\n(f 1)", "d.lsp");
    ASSERT_FALSE(own.ok());
    EXPECT_EQ(own.error->calls.size(), 2u);
    EXPECT_NE(places(*own.error).find("d.lsp:1 (F N) (again "), std::string::npos);
    const Outcome mutual =
        world.evalText(u"(defun a (n) (1+ (b n)))\n(defun b (n) (a n))\n(a 1)", "d.lsp");
    ASSERT_FALSE(mutual.ok());
    EXPECT_LT(mutual.error->calls.size(), 60u);
    EXPECT_EQ(mutual.error->calls.back().line, 3);
    EXPECT_NE(places(*mutual.error).find(" more calls"), std::string::npos);
}

TEST(ErrorPlaces, GoThroughLoadedFiles)
{
    BareHost host;
    host.folder = testing::TempDir();
    std::ofstream(host.folder / "inner_part.lsp") << "\n(setq a 1)\n(car a)\n";
    World world(host);
    const Outcome outcome =
        world.evalText(u"(defun go ()\n (load \"inner_part\"))\n(go)", "top.lsp");
    ASSERT_FALSE(outcome.ok());
    ASSERT_EQ(outcome.error->calls.size(), 3u) << places(*outcome.error);
    EXPECT_EQ(outcome.error->calls[0].line, 3);
    EXPECT_NE(outcome.error->calls[0].file.find("inner_part.lsp"), std::string::npos);
    EXPECT_EQ(outcome.error->calls[1].line, 2);
    EXPECT_EQ(outcome.error->calls[2].line, 3);
    std::filesystem::remove(host.folder / "inner_part.lsp");
}

TEST(ErrorHandler, HasTheErrorAndTheHostIsTold)
{
    BareHost host;
    World world(host);
    const Outcome plain = world.evalText(u"(car 1)");
    EXPECT_FALSE(plain.handled);
    const Outcome handled = world.evalText(u"(defun *error* (m) (princ m)) (car 1)");
    EXPECT_TRUE(handled.handled);
    EXPECT_EQ(host.printed, u"bad argument type: consp 1");
    EXPECT_FALSE(handled.ok());
    const Outcome left = world.evalText(u"(defun *error* (m) (exit)) (car 1)");
    EXPECT_TRUE(left.handled);
    EXPECT_EQ(left.error->message, u"bad argument type: consp 1");
}

// -- functions of applications

class Doubler final : public ExternalFunction
{
public:
    Value call(World& world, Args args) override
    {
        ++calls;
        if (args.size() == 0) world.raise(u"nothing to double");
        if (args[0].isSymbol()) return world.apply(args[0], {&two, 1});
        return world.makeList({args[0], args[0]});
    }
    std::u16string_view name() const override { return u"double"; }
    int calls = 0;
    Value two = Value::integer(2);
};

TEST(ExternalFunctions, AreCalledLikeAnyOther)
{
    BareHost host;
    World world(host);
    world.stressCollector(true);
    Doubler doubler;
    world.defineExternal(u"double", doubler);
    EXPECT_EQ(shown(world, u"(type double)"), "EXRXSUBR");
    EXPECT_EQ(shown(world, u"(defun use (x) (double (double x))) (use 1)"), "((1 1) (1 1))");
    EXPECT_EQ(shown(world, u"(mapcar 'double '(1 \"a\"))"), "((1 1) (\"a\" \"a\"))");
    EXPECT_EQ(shown(world, u"(double)"), "nothing to double");
    EXPECT_EQ(shown(world, u"(defun twice (x) (list x)) (double 'twice)"), "(2)");
    EXPECT_EQ(shown(world, u"(vl-catch-all-error-message (vl-catch-all-apply 'double nil))"),
              "\"nothing to double\"");
    EXPECT_EQ(doubler.calls, 7);
}

TEST(ExternalFunctions, AreGoneAfterTheApplicationTookThemBack)
{
    BareHost host;
    World world(host);
    {
        Doubler doubler;
        world.defineExternal(u"double", doubler);
        shown(world, u"(setq held double) (defun use (x) (double x)) (use 1)");
        EXPECT_TRUE(world.undefineExternal(u"double", doubler));
        EXPECT_FALSE(world.undefineExternal(u"double", doubler));
    }
    EXPECT_EQ(shown(world, u"double"), "nil");
    EXPECT_EQ(shown(world, u"(use 1)"), "no function definition: DOUBLE");
    EXPECT_EQ(shown(world, u"(held 1)"), "no function definition: double");
    // A program's own function of that name is not taken away with the application's.
    Doubler second;
    world.defineExternal(u"double", second);
    shown(world, u"(defun double (x) 'own)");
    EXPECT_FALSE(world.undefineExternal(u"double", second));
    EXPECT_EQ(shown(world, u"(use 1)"), "OWN");
}

TEST(Commands, AreReportedWhenTheyAreDefinedAndRemoved)
{
    BareHost host;
    World world(host);
    shown(world, u"(defun c:one () 1) (defun plain () 1) (setq c:two (lambda () 2) c:three 3)");
    EXPECT_EQ(host.commands, (std::map<std::u16string, bool>{{u"ONE", true}, {u"TWO", true}}));
    shown(world, u"(setq c:one nil) (set 'c:two 5)");
    EXPECT_EQ(host.commands, (std::map<std::u16string, bool>{{u"ONE", false}, {u"TWO", false}}));
    Doubler doubler;
    world.defineExternal(u"c:kex_double", doubler);
    EXPECT_TRUE(host.commands.at(u"KEX_DOUBLE"));
    EXPECT_EQ(shown(world, u"(c:kex_double 1)"), "(1 1)");
}

// -- interrupts

TEST(Interrupt, StopsEveryKindOfLoopWithinFiftyMilliseconds)
{
    const char16_t* const kLoops[] = {
        u"(while t)",
        u"(while t (setq a 1))",
        u"(defun f () (f2)) (defun f2 () 1) (while t (f))",
        u"(while t (mapcar '1+ '(1 2 3)))",
        u"(repeat 2000000000 (vl-catch-all-error-p 1))",
        u"(while t (vl-catch-all-apply '(lambda () (while t)) nil))",
        u"(repeat 100000 (setq big (cons 1 big))) (while t (reverse big))",
        u"(repeat 100000 (setq big (cons 1 big))) (while t (length big))",
        u"(repeat 50000 (setq big (cons (rem (* 7 (length big)) 1009) big)))"
        u"(while t (vl-sort big '(lambda (a b) (< a b))))",
    };
    for (const char16_t* text : kLoops) {
        BareHost host;
        World world(host);
        std::chrono::steady_clock::time_point asked;
        std::thread user([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
            asked = std::chrono::steady_clock::now();
            host.interrupt = true;
        });
        const Outcome outcome = world.evalText(text);
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - asked;
        user.join();
        ASSERT_FALSE(outcome.ok()) << toUtf8(text);
        EXPECT_EQ(outcome.error->message, u"Function cancelled");
        EXPECT_EQ(outcome.error->sort, LispError::Sort::cancelled);
        EXPECT_LT(taken.count(), 0.05) << toUtf8(text);
    }
}

// -- evaluation inside evaluation

// (outcome text): what the host sees of a top-level evaluation inside a running one
Value nested(World& world, Args args)
{
    const Outcome outcome = world.evalText(args.string(0));
    return world.makeString(outcome.ok() ? world.prin1(outcome.value) : outcome.error->message);
}

TEST(NestedEvaluation, AnErrorInsideEndsOnlyTheInnerOne)
{
    static constexpr Builtin kTable[] = {{"outcome", nested, 1, 1}};
    BareHost host;
    World world(host);
    world.define(kTable);
    world.stressCollector(true);
    EXPECT_EQ(shown(world, u"(setq v 'outer)"
                           u"(defun inner (v) (car v))"
                           u"(defun f (v) (list (outcome \"(inner 7)\") v (outcome \"v\")))"
                           u"(list (f 'local) v)"),
              "((\"bad argument type: consp 7\" LOCAL \"LOCAL\") OUTER)");
}

TEST(World, AppliesAFunctionFromTheTop)
{
    BareHost host;
    World world(host);
    world.evalText(u"(defun add (a b) (+ a b))");
    const Value args[] = {Value::integer(2), Value::real(0.5)};
    const Outcome sum = world.applyTop(u"add", args);
    ASSERT_TRUE(sum.ok());
    EXPECT_EQ(sum.value, Value::real(2.5));
    EXPECT_EQ(world.applyTop(u"nosuch", {}).error->message, u"no function definition: NOSUCH");
}

} // namespace
