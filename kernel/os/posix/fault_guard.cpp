// SPDX-License-Identifier: LicenseRef-ORVALD
// The fault guard on POSIX: one set of signal handlers for the process, which throw out of the
// faulting instruction. What cannot be thrown leaves by a jump to the nearest guardedCall. A fault
// outside every scope, on another thread, or sent by another process, goes to whoever had the
// signal before.
#include "kex/fault.h"

#include "../exception_record.h"

#include <csetjmp>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cxxabi.h>
#include <exception>
#include <iterator>
#include <pthread.h>
#include <sys/mman.h>
#include <typeinfo>
#include <ucontext.h>
#include <unistd.h>

namespace {

using Translator = CKexErrorHandler::Translator;

/// State of one thread; all zero but on the LISP thread. The signal handler reads it in the middle
/// of any instruction, hence volatile: the compiler must not drop a change that it sees no reader
/// of.
struct ThreadGuard
{
    volatile int depth;
    volatile Translator translator;
    sigjmp_buf* volatile jump; // of the innermost guardedCall
    volatile unsigned code;    // of the last fault
    ExceptionRecord* exceptions;
    std::uintptr_t stackLow; // lowest address of the thread's stack
    bool isLispThread;
};

// Initial-exec: found without a call, so that the handler may read it and a scope stays cheap.
[[gnu::tls_model("initial-exec")]] thread_local constinit ThreadGuard guard{};

constexpr int kSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL};
constexpr std::size_t kSignalCount = std::size(kSignals);
/// Enough for the unwinder, which runs on it.
constexpr std::size_t kSignalStack = 128 * 1024;
/// How far from the end of the stack, and from the stack pointer, a touched address still counts as
/// an overflow.
constexpr std::uintptr_t kOverflowReach = 1024 * 1024;
constexpr std::uintptr_t kOverflowSlack = 64 * 1024;

struct Installation
{
    bool on = false;
    struct sigaction before[kSignalCount] = {};
    std::terminate_handler terminateBefore = nullptr;
    stack_t stackBefore = {};
    char* memory = nullptr; // a page without access, then the signal stack
    std::size_t memorySize = 0;
};
Installation installation;

struct Registers
{
    std::uintptr_t counter, stack;
};

Registers registersOf(const void* context)
{
    const auto& machine = static_cast<const ucontext_t*>(context)->uc_mcontext;
#if defined(__x86_64__)
    return {static_cast<std::uintptr_t>(machine.gregs[REG_RIP]),
            static_cast<std::uintptr_t>(machine.gregs[REG_RSP])};
#elif defined(__i386__)
    return {static_cast<std::uintptr_t>(machine.gregs[REG_EIP]),
            static_cast<std::uintptr_t>(machine.gregs[REG_ESP])};
#elif defined(__aarch64__)
    return {machine.pc, machine.sp};
#else
#error "the fault guard does not know this processor's registers"
#endif
}

bool isOverflow(std::uintptr_t address, std::uintptr_t stack)
{
    const auto isNear = [&](std::uintptr_t place) {
        return address + kOverflowReach > place && address < place + kOverflowSlack;
    };
    return isNear(guard.stackLow) && isNear(stack);
}

unsigned faultCode(int signal, const siginfo_t& info, std::uintptr_t stack)
{
    switch (signal) {
    case SIGBUS: return KEX::kFaultInPage;
    case SIGILL: return KEX::kFaultIllegal;
    case SIGFPE:
        switch (info.si_code) {
        case FPE_FLTDIV: return KEX::kFaultFloatDivide;
        case FPE_FLTOVF: return KEX::kFaultFloatOverflow;
        case FPE_FLTUND:
        case FPE_FLTRES:
        case FPE_FLTINV:
        case FPE_FLTSUB: return KEX::kFaultFloatInvalid;
        default: return KEX::kFaultDivide;
        }
    default: break;
    }
    const auto address = reinterpret_cast<std::uintptr_t>(info.si_addr);
    return isOverflow(address, stack) ? KEX::kFaultStack : KEX::kFaultAccess;
}

bool isOnSignalStack(std::uintptr_t stack)
{
    const auto low = reinterpret_cast<std::uintptr_t>(installation.memory);
    return stack >= low && stack < low + installation.memorySize;
}

/// The unwinder reads the code at the faulting address: after a call through a bad pointer it would
/// fault itself, for ever. Only these two signals report the address that was touched.
bool isBadCall(int signal, const siginfo_t& info, std::uintptr_t counter)
{
    return (signal == SIGSEGV || signal == SIGBUS) &&
           reinterpret_cast<std::uintptr_t>(info.si_addr) == counter;
}

void passOn(int signal, siginfo_t* info, void* context)
{
    std::size_t i = 0;
    while (kSignals[i] != signal) ++i;
    const struct sigaction& before = installation.before[i];
    if ((before.sa_flags & SA_SIGINFO) != 0) {
        before.sa_sigaction(signal, info, context);
    } else if (before.sa_handler != SIG_DFL && before.sa_handler != SIG_IGN) {
        before.sa_handler(signal);
    } else {
        // The instruction runs again and the default action ends the process; a signal that was
        // sent is sent once more for that.
        struct sigaction standard = {};
        standard.sa_handler = SIG_DFL;
        sigaction(signal, &standard, nullptr);
        if (info->si_code <= 0) raise(signal);
    }
}

void onFault(int signal, siginfo_t* info, void* context)
{
    const bool sent = info->si_code <= 0;
    if (guard.depth == 0 || sent) return passOn(signal, info, context);
    const Registers registers = registersOf(context);
    const unsigned code = faultCode(signal, *info, registers.stack);
    guard.code = code;
    // On the signal stack runs only this routine and the unwinder that it started.
    const bool canThrow = code != KEX::kFaultStack && !isOnSignalStack(registers.stack) &&
                          !isBadCall(signal, *info, registers.counter);
    const Translator translator = guard.translator;
    if (canThrow && translator != nullptr) translator(code);
    if (guard.jump != nullptr) siglongjmp(*guard.jump, 1);
    passOn(signal, info, context);
}

[[noreturn]] void onTerminate()
{
    if (guard.jump != nullptr) {
        const std::type_info* type = abi::__cxa_current_exception_type();
        if (type == nullptr || *type != typeid(unsigned)) guard.code = KEX::kFaultException;
        siglongjmp(*guard.jump, 1);
    }
    if (installation.terminateBefore != nullptr) installation.terminateBefore();
    std::abort();
}

[[noreturn]] void throwFault(unsigned code) { throw code; }

/// Lowest address of this thread's stack, 0 when the system does not say.
std::uintptr_t stackLowOfThread()
{
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return 0;
    void* low = nullptr;
    std::size_t size = 0;
    pthread_attr_getstack(&attributes, &low, &size);
    pthread_attr_destroy(&attributes);
    return reinterpret_cast<std::uintptr_t>(low);
}

bool takeSignalStack()
{
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t size = page + kSignalStack;
    void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) return false;
    mprotect(memory, page, PROT_NONE);
    installation.memory = static_cast<char*>(memory);
    installation.memorySize = size;
    stack_t stack = {};
    stack.ss_sp = installation.memory + page;
    stack.ss_size = kSignalStack;
    if (sigaltstack(&stack, &installation.stackBefore) == 0) return true;
    munmap(memory, size);
    installation.memory = nullptr;
    return false;
}

void giveSignalStack()
{
    sigaltstack(&installation.stackBefore, nullptr);
    munmap(installation.memory, installation.memorySize);
    installation.memory = nullptr;
}

/// What a scope changes of the thread's state.
struct ScopeState
{
    int depth;
    Translator translator;
    sigjmp_buf* jump;
};

ScopeState saveScope() { return {guard.depth, guard.translator, guard.jump}; }

void restoreScope(const ScopeState& state)
{
    guard.depth = state.depth;
    guard.translator = state.translator;
    guard.jump = state.jump;
}

} // namespace

bool CKexErrorHandler::install() noexcept
{
    if (installation.on) return guard.isLispThread;
    if (!takeSignalStack()) return false;
    guard.exceptions = exceptionRecord();
    guard.stackLow = stackLowOfThread();
    guard.isLispThread = true;
    struct sigaction action = {};
    action.sa_sigaction = onFault;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK | SA_NODEFER;
    for (std::size_t i = 0; i < kSignalCount; ++i) {
        sigaction(kSignals[i], &action, &installation.before[i]);
    }
    installation.terminateBefore = std::set_terminate(onTerminate);
    installation.on = true;
    return true;
}

bool CKexErrorHandler::uninstall() noexcept
{
    if (!guard.isLispThread || guard.depth != 0) return false;
    for (std::size_t i = 0; i < kSignalCount; ++i) {
        // Whoever took the signal after us keeps it.
        struct sigaction current = {};
        sigaction(kSignals[i], nullptr, &current);
        const bool ours = (current.sa_flags & SA_SIGINFO) != 0 && current.sa_sigaction == onFault;
        if (ours) sigaction(kSignals[i], &installation.before[i], nullptr);
    }
    if (std::get_terminate() == onTerminate) std::set_terminate(installation.terminateBefore);
    giveSignalStack();
    guard = ThreadGuard();
    installation.on = false;
    return true;
}

int CKexErrorHandler::depth() noexcept { return guard.depth; }

CKexErrorHandler::CKexErrorHandler() noexcept : previous_(guard.translator)
{
    if (!guard.isLispThread && !install()) return;
    guard.depth = guard.depth + 1;
    guard.translator = throwFault;
}

CKexErrorHandler::~CKexErrorHandler()
{
    if (!guard.isLispThread) return;
    guard.depth = guard.depth - 1;
    guard.translator = previous_;
}

bool KEX::guardedCall(void (*function)(void*), void* argument, unsigned& fault)
{
    if (!guard.isLispThread && !CKexErrorHandler::install()) {
        function(argument);
        return true;
    }
    const ScopeState before = saveScope();
    const ExceptionRecord exceptions = *guard.exceptions;
    sigjmp_buf here;
    if (sigsetjmp(here, 0) != 0) {
        restoreScope(before);
        dropExceptions(*guard.exceptions, exceptions);
        fault = guard.code;
        return false;
    }
    guard.jump = &here;
    guard.translator = throwFault;
    guard.depth = before.depth + 1;
    try {
        function(argument);
    } catch (unsigned code) {
        restoreScope(before);
        fault = code;
        return false;
    } catch (...) {
        restoreScope(before);
        throw;
    }
    restoreScope(before);
    return true;
}
