// SPDX-License-Identifier: LicenseRef-ORVALD
// The fault guard against real faults. Each kind is made many times in a row, because a guard that
// forgets to restore anything survives the first fault only.
#include "kex/fault.h"

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <thread>

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSanitizerOwnsSignals = true;
#else
constexpr bool kSanitizerOwnsSignals = false;
#endif

constexpr int kRounds = 150;
constexpr rlim_t kStack = 8 * 1024 * 1024;

volatile int zero = 0;
volatile int sink = 0;
int* volatile nowhere = nullptr;
const char* volatile badText = reinterpret_cast<const char*>(8);
void (*volatile noFunction)() = nullptr;

int destroyed = 0;
struct CountsItsEnd
{
    ~CountsItsEnd() { ++destroyed; }
};

void readNull() { sink = *nowhere; }
void writeNull() { *nowhere = 1; }
void writeWild() { *reinterpret_cast<int*>(std::uintptr_t(0xFFFF800000000000)) = 1; }
void divideByZero() { sink = 7 / zero; }
void divideOverflow()
{
    volatile int least = INT32_MIN;
    volatile int minusOne = -1;
    sink = least / minusOne;
}
void illegal() { __builtin_trap(); }
void callNull() { noFunction(); }
void faultInStrlen() { sink = static_cast<int>(std::strlen(badText)); }
void faultInStringCopy() { sink = static_cast<int>(std::string(badText).size()); }
void faultInSort()
{
    int values[] = {3, 1, 2};
    std::qsort(values, 3, sizeof(int), [](const void*, const void*) { return *nowhere; });
}
struct FaultsAtItsEnd
{
    ~FaultsAtItsEnd() { sink = *nowhere; }
};
void faultInDestructor() { FaultsAtItsEnd object; }
void promisesNothing() noexcept { sink = *nowhere; }
void faultInNoexcept() { promisesNothing(); }
void throwText() { throw std::string("out of a function that promised not to"); }
void (*volatile throwing)() = throwText;
void throwsAnyway() noexcept { throwing(); }
void throwInNoexcept() { throwsAnyway(); }
int endless(volatile char* above)
{
    volatile char room[256];
    room[0] = *above;
    return zero == 0 ? endless(room) + room[0] : 0;
}
void overflowStack()
{
    volatile char top = 1;
    sink = endless(&top);
}

struct Fault
{
    const char* name;
    void (*make)();
    unsigned code;
};
const Fault kFaults[] = {
    {"null read", readNull, KEX::kFaultAccess},
    {"null write", writeNull, KEX::kFaultAccess},
    {"address that no pointer has", writeWild, KEX::kFaultAccess},
    {"division by zero", divideByZero, KEX::kFaultDivide},
    {"least number by -1", divideOverflow, KEX::kFaultDivide},
    {"illegal instruction", illegal, KEX::kFaultIllegal},
    {"call through null", callNull, KEX::kFaultAccess},
    {"inside strlen", faultInStrlen, KEX::kFaultAccess},
    {"inside a copied string", faultInStringCopy, KEX::kFaultAccess},
    {"inside the order of qsort", faultInSort, KEX::kFaultAccess},
    {"inside a destructor", faultInDestructor, KEX::kFaultAccess},
    {"inside a noexcept function", faultInNoexcept, KEX::kFaultAccess},
    {"exception out of a noexcept function", throwInNoexcept, KEX::kFaultException},
    {"stack overflow", overflowStack, KEX::kFaultStack},
};

class FaultGuard : public testing::Test
{
protected:
    void SetUp() override
    {
        if (kSanitizerOwnsSignals) GTEST_SKIP() << "the sanitizer owns the signals";
        // A stack without a limit would overflow into all memory of the machine.
        rlimit stack = {};
        getrlimit(RLIMIT_STACK, &stack);
        stack.rlim_cur = std::min<rlim_t>(stack.rlim_cur, kStack);
        setrlimit(RLIMIT_STACK, &stack);
    }
    void TearDown() override
    {
        EXPECT_EQ(CKexErrorHandler::depth(), 0);
        EXPECT_EQ(std::uncaught_exceptions(), 0);
        EXPECT_EQ(std::current_exception(), nullptr);
        if (!kSanitizerOwnsSignals) CKexErrorHandler::uninstall();
    }
};

TEST_F(FaultGuard, EveryFaultReachesTheGuardedCallAgainAndAgain)
{
    for (const Fault& fault : kFaults) {
        SCOPED_TRACE(fault.name);
        for (int round = 0; round < kRounds; ++round) {
            unsigned code = 0;
            ASSERT_FALSE(KEX::guardedCall(fault.make, code));
            ASSERT_EQ(code, fault.code);
            ASSERT_EQ(CKexErrorHandler::depth(), 0);
        }
    }
}

TEST_F(FaultGuard, FaultsOfAllKindsTakeTurnsInNestedCalls)
{
    for (int round = 0; round < 20; ++round) {
        for (const Fault& outer : kFaults) {
            for (const Fault& inner : kFaults) {
                unsigned innerCode = 0;
                unsigned outerCode = 0;
                const auto both = [&] {
                    ASSERT_FALSE(KEX::guardedCall(inner.make, innerCode));
                    ASSERT_EQ(CKexErrorHandler::depth(), 1);
                    outer.make();
                };
                ASSERT_FALSE(KEX::guardedCall(both, outerCode));
                ASSERT_EQ(innerCode, inner.code) << inner.name;
                ASSERT_EQ(outerCode, outer.code) << outer.name;
            }
        }
    }
}

TEST_F(FaultGuard, ScopeThrowsTheCodeAndRunsTheDestructorsOnTheWay)
{
    for (int round = 0; round < kRounds; ++round) {
        destroyed = 0;
        unsigned caught = 0;
        try {
            CKexErrorHandler outer;
            EXPECT_EQ(outer.previous(), nullptr);
            CountsItsEnd first;
            CKexErrorHandler inner;
            EXPECT_NE(inner.previous(), nullptr);
            CountsItsEnd second;
            readNull();
        } catch (unsigned code) {
            caught = code;
        }
        ASSERT_EQ(caught, KEX::kFaultAccess);
        ASSERT_EQ(destroyed, 2);
        ASSERT_EQ(CKexErrorHandler::depth(), 0);
    }
}

TEST_F(FaultGuard, CatchingInsideTheScopeLeavesItWorking)
{
    CKexErrorHandler scope;
    for (int round = 0; round < kRounds; ++round) {
        bool caught = false;
        try {
            divideByZero();
        } catch (unsigned code) {
            caught = code == KEX::kFaultDivide;
        }
        ASSERT_TRUE(caught);
    }
}

TEST_F(FaultGuard, OtherExceptionsPassThrough)
{
    unsigned code = 7;
    EXPECT_THROW(KEX::guardedCall([] { throw std::string("message"); }, code), std::string);
    EXPECT_EQ(code, 7u);
    int done = 0;
    EXPECT_TRUE(KEX::guardedCall([&] { done = 1; }, code));
    EXPECT_EQ(done, 1);
}

TEST_F(FaultGuard, LeavesTheSignalsAsItFoundThem)
{
    struct sigaction before = {}, during = {}, after = {};
    stack_t stackBefore = {}, stackAfter = {};
    sigaction(SIGSEGV, nullptr, &before);
    sigaltstack(nullptr, &stackBefore);
    const std::terminate_handler terminateBefore = std::get_terminate();
    for (int round = 0; round < 10; ++round) {
        ASSERT_TRUE(CKexErrorHandler::install());
        sigaction(SIGSEGV, nullptr, &during);
        EXPECT_NE(during.sa_sigaction, before.sa_sigaction);
        {
            CKexErrorHandler scope;
            EXPECT_FALSE(CKexErrorHandler::uninstall()); // not inside a scope
        }
        ASSERT_TRUE(CKexErrorHandler::uninstall());
    }
    sigaction(SIGSEGV, nullptr, &after);
    sigaltstack(nullptr, &stackAfter);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
    EXPECT_EQ(stackAfter.ss_flags, stackBefore.ss_flags);
    EXPECT_EQ(std::get_terminate(), terminateBefore);
}

using FaultGuardDeathTest = FaultGuard;

TEST_F(FaultGuardDeathTest, FaultOutsideEveryScopeStillEndsTheProcess)
{
    CKexErrorHandler::install();
    EXPECT_EXIT(readNull(), testing::KilledBySignal(SIGSEGV), "");
}

TEST_F(FaultGuardDeathTest, FaultOnAnotherThreadStillEndsTheProcess)
{
    CKexErrorHandler scope;
    EXPECT_EXIT(
        {
            std::thread other([] {
                CKexErrorHandler inert;
                readNull();
            });
            other.join();
        },
        testing::KilledBySignal(SIGSEGV), "");
}

TEST_F(FaultGuardDeathTest, SignalSentFromOutsideIsNoFault)
{
    CKexErrorHandler scope;
    EXPECT_EXIT(raise(SIGSEGV), testing::KilledBySignal(SIGSEGV), "");
}

TEST_F(FaultGuardDeathTest, AbortIsNeverTranslated)
{
    const auto dies = [] {
        unsigned code = 0;
        KEX::guardedCall([] { std::abort(); }, code);
    };
    EXPECT_EXIT(dies(), testing::KilledBySignal(SIGABRT), "");
}

} // namespace
