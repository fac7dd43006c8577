// SPDX-License-Identifier: LicenseRef-ORVALD
// Processor faults and thrown messages inside LISP functions and modules: the process goes on, the
// user is told, nothing stays held.
#include "session_support.h"

#include <array>
#include <cstdlib>

namespace {

using kextest::kSanitized;
using kextest::Running;

orvald::SessionOptions withProbe(bool boxesOk)
{
    orvald::SessionOptions options;
    options.modules = {"probe.arx"};
    options.boxesOk = boxesOk;
    return options;
}

/// What a handler that faults says on stderr, and its answer.
struct Answer
{
    std::string value, said;
};
Answer call(Running& running, const std::string& expression)
{
    testing::internal::CaptureStderr();
    const std::string value = running.value(expression);
    return {value, testing::internal::GetCapturedStderr()};
}

struct Fault
{
    const char* function;
    const char* code;
};
constexpr std::array kFaults = {
    Fault{"c:probe_read", "0xc0000005"},   Fault{"probe_write", "0xc0000005"},
    Fault{"probe_divide", "0xc0000094"},   Fault{"probe_illegal", "0xc000001d"},
    Fault{"probe_call", "0xc0000005"},     Fault{"probe_stack", "0xc00000fd"},
    Fault{"probe_noexcept", "0xe06d7363"}, Fault{"probe_destructor", "0xc0000005"},
    Fault{"probe_sort", "0xc0000005"},     Fault{"probe_pending", "0xc0000005"},
    Fault{"probe_in_depth", "0xc0000005"},
};

TEST(Fault, IsToldWithModuleCodeAndFunctionAndTheNextCallWorks)
{
    if (kSanitized) GTEST_SKIP() << "faults belong to the sanitizer";
    Running running(withProbe(false));
    for (const Fault& fault : kFaults) {
        SCOPED_TRACE(fault.function);
        const Answer answer = call(running, std::string("(") + fault.function + " 1 \"x\")");
        EXPECT_EQ(answer.value, "! ADS request error");
        EXPECT_NE(answer.said.find("probe.arx:"), std::string::npos) << answer.said;
        EXPECT_NE(
            answer.said.find(std::string("Ausnahme ") + fault.code + " in: " + fault.function),
            std::string::npos)
            << answer.said;
        EXPECT_NE(answer.said.find("Weiter ?"), std::string::npos) << answer.said;
        EXPECT_EQ(running.value("(probe_int)"), "70000");
    }
    EXPECT_FALSE(running.session.moduleFaulted()) << "the dispatcher let one through";
}

TEST(Fault, CountsAsSuccessAfterOk)
{
    if (kSanitized) GTEST_SKIP() << "faults belong to the sanitizer";
    Running running(withProbe(true));
    EXPECT_EQ(call(running, "(probe_write)").value, "nil");
    EXPECT_EQ(call(running, "(probe_pending)").value, "5"); // the value was set before the fault
}

TEST(Fault, DumpsTheArgumentsUnderAFileNameWithoutColon)
{
    if (kSanitized) GTEST_SKIP() << "faults belong to the sanitizer";
    const kextest::TempFolder temp;
    setenv("TMP", temp.path().c_str(), 1);
    Running running(withProbe(false));
    call(running, "(c:probe_read 1 \"a(b\" '(1.0 2.0) '((\"k\" . 2)))");
    unsetenv("TMP");
    EXPECT_EQ(kextest::readFile(temp / "c;probe_read.arg"),
              "1\n\"a(b\"\n(1.0 2.0)\n((\"k\" . 2))\n");
}

TEST(Fault, ThousandInARowHoldNothing)
{
    if (kSanitized) GTEST_SKIP() << "faults belong to the sanitizer";
    Running running(withProbe(false));
    testing::internal::CaptureStderr();
    for (const Fault& fault : kFaults) {
        const std::string program = std::string("(repeat 1000 (vl-catch-all-apply '") +
                                    fault.function + " '(1 (2.0 3.0) \"text\")))";
        EXPECT_EQ(running.session.eval(program).error, "") << fault.function;
    }
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(running.value("(probe_int)"), "70000");
    EXPECT_FALSE(running.session.moduleFaulted());
}

TEST(ThrownMessage, IsAnAlertWithTextAndFunction)
{
    Running running(withProbe(false));
    const Answer text = call(running, "(probe_throw_text)");
    EXPECT_EQ(text.value, "! ADS request error");
    EXPECT_NE(text.said.find("Errorkeine Norm in:probe_throw_text"), std::string::npos)
        << text.said;
    EXPECT_NE(call(running, "(probe_throw)").said.find("Errortoo far in:probe_throw"),
              std::string::npos);
    EXPECT_NE(call(running, "(probe_promise)").said.find(" in:probe_promise"), std::string::npos);
    EXPECT_EQ(running.session.alerts(), 3);
}

TEST(Module, ThatFaultsWhileLoadingIsRefusedAndTheSessionGoesOn)
{
    if (kSanitized) GTEST_SKIP() << "faults belong to the sanitizer";
    Running running;
    testing::internal::CaptureStderr();
    std::string reason;
    EXPECT_FALSE(running.session.loadModule("faulty.arx", reason));
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(reason, "faulty.arx: it faulted while loading");
    EXPECT_NE(said.find("faulty.arx: invalid memory access in kInitAppMsg"), std::string::npos);
    EXPECT_TRUE(running.session.moduleFaulted());
    EXPECT_EQ(running.value("(kex_str_len \"abc\")"), "3");
}

TEST(Module, ThatRefusesToStartIsUnloadedAgain)
{
    Running running;
    std::string reason;
    EXPECT_FALSE(running.session.loadModule("refusing.arx", reason));
    EXPECT_EQ(reason, "refusing.arx: it refused to start");
    EXPECT_FALSE(running.session.moduleFaulted());
    EXPECT_FALSE(running.session.loadModule("nowhere.arx", reason));
    EXPECT_EQ(reason, "nowhere.arx: nowhere.arx: module not found");
}

} // namespace
