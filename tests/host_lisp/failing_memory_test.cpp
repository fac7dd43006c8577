// SPDX-License-Identifier: LicenseRef-ORVALD
// Every single allocation of a program fails once, and from every one on all of them fail: each
// time there is a value or the LISP error, and the world works when there is memory again.
#include "bare_world.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr long kNever = std::numeric_limits<long>::max();
long allocationsUntilFailure = kNever;
bool failsForGood = false;

void* allocate(std::size_t size, std::size_t alignment)
{
    if (allocationsUntilFailure != kNever && --allocationsUntilFailure < 0) {
        if (!failsForGood) allocationsUntilFailure = kNever;
        throw std::bad_alloc();
    }
    void* memory =
        alignment == 0 ? std::malloc(size == 0 ? 1 : size) : std::aligned_alloc(alignment, size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

} // namespace

// Not inlined: the compiler would see memory of new go to free.
#define REPLACED [[gnu::noinline]]
REPLACED void* operator new(std::size_t size) { return allocate(size, 0); }
REPLACED void* operator new(std::size_t size, std::align_val_t alignment)
{
    return allocate(size, static_cast<std::size_t>(alignment));
}
REPLACED void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return std::malloc(size); // standard algorithms ask so and do without
}
REPLACED void operator delete(void* memory) noexcept { std::free(memory); }
REPLACED void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
REPLACED void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
REPLACED void operator delete(void* memory, std::size_t, std::align_val_t) noexcept
{
    std::free(memory);
}

namespace {

using namespace orvald::lisp;

constexpr char16_t kProgram[] =
    u"(defun f (n / l) (setq l (list n (strcat \"abc\" (itoa n)) 1.5))"
    u" (if (> n 0) (cons l (f (1- n))) l))"
    u"(setq long \"\") (repeat 40 (setq long (strcat long \"piece \")))"
    u"(setq l (f 20) s (vl-prin1-to-string l))"
    u"(setq l (vl-sort (mapcar '(lambda (x) (* x 2)) '(3 1 2)) '(lambda (a b) (< a b))))"
    u"(setq e (vl-catch-all-apply '(lambda () (car 5)) nil))"
    u"(foreach x '(1 2 3) (eval (list 'setq (read (strcat \"sym\" (itoa x))) 'x)))"
    u"(vl-string-subst \"new\" \"piece\" long) (equal (read s) (f 20))"
    u"(defun *error* (m) (setq *error* nil m (list m)))"
    u"(car 7)";

TEST(FailingMemory, EndsInAnErrorAndTheWorldGoesOn)
{
    for (const bool forGood : {false, true}) {
        bool failed = true;
        long n = 0;
        for (; failed; ++n) {
            BareHost host;
            World world(host);
            world.stressCollector(true); // so that collections fail, too
            failsForGood = forGood;
            allocationsUntilFailure = n;
            const Outcome outcome = world.evalText(kProgram);
            failed = allocationsUntilFailure < 0 || allocationsUntilFailure == kNever;
            allocationsUntilFailure = kNever;
            ASSERT_FALSE(outcome.ok()) << n;
            world.collectGarbage();
            const Outcome after = world.evalText(u"(setq *error* nil) (mapcar '1+ (list 1 2 3))");
            ASSERT_TRUE(after.ok()) << n << ": " << toUtf8(after.error->message);
            ASSERT_EQ(world.prin1(after.value), u"(2 3 4)") << n;
        }
        EXPECT_GT(n, 100);
    }
}

} // namespace
