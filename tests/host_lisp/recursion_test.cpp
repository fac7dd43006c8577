// SPDX-License-Identifier: LicenseRef-ORVALD
// Depth without end: every walk over nested data ends with a result or with the LISP error, in time
// and as often as one likes, on small stacks as well.
#include "bare_world.h"

#include <gtest/gtest.h>

#include <pthread.h>

namespace {

using namespace orvald::lisp;

constexpr char16_t kDeep[] = u"(defun deep (n) (if (= n 0) 0 (+ 1 (deep (1- n)))))";

std::string shown(World& world, const std::u16string& text)
{
    const Outcome outcome = world.evalText(text);
    return outcome.ok() ? toUtf8(world.prin1(outcome.value)) : toUtf8(outcome.error->message);
}

template <class Body>
void onStackOf(std::size_t bytes, Body body)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, bytes);
    pthread_t thread;
    const auto start = [](void* argument) -> void* {
        (*static_cast<Body*>(argument))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, start, &body), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

TEST(Recursion, TenThousandLevelsOfAPlainFunctionWork)
{
    onStackOf(std::size_t{8} << 20, [] {
        BareHost host;
        World world(host);
        world.evalText(kDeep);
#ifdef __SANITIZE_ADDRESS__
        EXPECT_EQ(shown(world, u"(deep 2000)"), "2000");
#else
        EXPECT_EQ(shown(world, u"(deep 10000)"), "10000");
#endif
    });
}

TEST(Recursion, TheEndOfTheStackIsAnErrorAThousandTimesInARow)
{
    onStackOf(std::size_t{1} << 20, [] {
        BareHost host;
        World world(host);
        world.evalText(kDeep);
        for (int i = 0; i < 1000; ++i) {
            ASSERT_EQ(shown(world, u"(deep 1000000)"), "stack overflow");
            ASSERT_EQ(shown(world, u"(deep 50)"), "50");
        }
    });
}

// Every way to recurse that a program has: each ends in the error, and the world goes on.
TEST(Recursion, EveryKindOfEndlessRecursionEndsInTheError)
{
    const char16_t* const kEndless[] = {
        u"(defun e () (mapcar '(lambda (x) (e)) '(1))) (e)",
        u"(defun e () (apply 'e nil)) (e)",
        u"(defun e () (eval '(e))) (e)",
        u"(defun e () (foreach x '(1) (e))) (e)",
        u"(defun e () (vl-sort '(1.0 2.0) '(lambda (a b) (e)))) (e)",
        u"(defun e () (vl-some 'e nil) (vl-remove-if '(lambda (x) (e)) '(1))) (e)",
        u"(defun e (a b c d f) (cond ((and (e a b c d f) 1) 2))) (e 1 2 3 4 5)",
        u"(setq f '(lambda () (f))) (f)",
        u"(defun e () (if t (progn (while t (repeat 1 (e)))))) (e)",
        u"(setq v '(eval v)) (eval v)",
        u"(defun *error* (m) (*error* m)) (car 1)",
    };
    for (const std::size_t bytes : {std::size_t{1} << 20, std::size_t{8} << 20}) {
        onStackOf(bytes, [&] {
            for (const char16_t* text : kEndless) {
                BareHost host;
                World world(host);
                EXPECT_EQ(shown(world, text), "stack overflow") << toUtf8(text);
                EXPECT_EQ(shown(world, u"(setq *error* nil) (+ 1 2)"), "3") << toUtf8(text);
            }
        });
    }
}

TEST(Recursion, AHandlerThatCatchesTheOverflowGoesOn)
{
    BareHost host;
    World world(host);
    world.evalText(kDeep);
    EXPECT_EQ(shown(world, u"(defun try () (vl-catch-all-error-p"
                           u" (vl-catch-all-apply 'deep '(1000000))))"
                           u"(list (try) (try) (deep 100))"),
              "(T T 100)");
}

TEST(Recursion, DataNestedAMillionDeepIsReadPrintedComparedAndFreed)
{
    onStackOf(std::size_t{1} << 20, [] {
        BareHost host;
        World world(host);
        const std::size_t depth = 1000000;
        const std::u16string text = std::u16string(depth, u'(') + std::u16string(depth, u')');
        Root a(world, world.read(text));
        Root b(world, world.read(text));
        EXPECT_TRUE(world.equal(a.value, b.value));
        EXPECT_EQ(world.prin1(a.value).size(), 2 * depth + 1); // the innermost () prints as nil
        EXPECT_EQ(shown(world, std::u16string(depth, u'(')), "malformed list on input");
        EXPECT_EQ(shown(world, std::u16string(depth, u'\'') + u"x").substr(0, 14),
                  "(QUOTE (QUOTE ");
        // As a program it is too deep to be compiled; as the value of a variable it is fine.
        EXPECT_EQ(shown(world, std::u16string(depth, u'(') + u"car" + std::u16string(depth, u')')),
                  "stack overflow");
        world.setSymbol(u"deep-data", a.value);
        EXPECT_EQ(shown(world, u"(vl-prin1-to-string (equal deep-data (list deep-data)))"),
                  "\"nil\"");
        a.value = b.value = Value::nil();
        world.setSymbol(u"deep-data", Value::nil());
        world.collectGarbage();
        EXPECT_EQ(shown(world, u"(+ 1 2)"), "3");
    });
}

// An expression that compiles at a shallow depth may still run near the end of the stack.
TEST(Recursion, DeepExpressionsAtTheEndOfTheStackAreSafe)
{
    onStackOf(std::size_t{1} << 20, [] {
        BareHost host;
        World world(host);
        std::u16string body = u"(r (1+ n))";
        for (int i = 0; i < 1000; ++i) body = u"(list (1+ " + body + u"))";
        world.evalText(u"(setq limit 0) (defun r (n) (if (> n limit) 0 " + body + u")) (r 1)");
        EXPECT_EQ(shown(world, u"(setq limit 1000000) (r 0)"), "stack overflow");
    });
}

} // namespace
