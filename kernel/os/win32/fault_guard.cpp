// SPDX-License-Identifier: LicenseRef-ORVALD
// The fault guard on 32-bit Windows: each scope is an entry in the thread's chain of structured
// exception handlers, so that code called from it, such as the host, keeps the first say about
// faults that it expects. The handler sends the thread on to a routine that throws, as if the
// faulting instruction had called it; what cannot be thrown leaves by a jump to the nearest
// guardedCall. A fault outside every scope goes on to the handlers below.
#include "kex/fault.h"

#include "../exception_record.h"
#include "windows_api.h"

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <malloc.h>
#include <typeinfo>

namespace {

using Translator = CKexErrorHandler::Translator;
using ChainEntry = EXCEPTION_REGISTRATION_RECORD;

/// As __builtin_setjmp fills it.
struct JumpBuffer
{
    void* places[5];
    std::uintptr_t stack() const { return reinterpret_cast<std::uintptr_t>(places[2]); }
};

/// State of the LISP thread; its handler reads it in the middle of any instruction, hence volatile:
/// the compiler must not drop a change that it sees no reader of.
struct Guard
{
    volatile DWORD thread; // 0: not installed
    volatile int depth;
    volatile Translator translator;
    JumpBuffer* volatile jump;  // of the innermost guardedCall
    ChainEntry* volatile chain; // of the innermost scope
    volatile unsigned code;     // of the last fault
    /// Stack pointer of the fault that was thrown last.
    volatile std::uintptr_t thrownAt;
    ExceptionRecord* exceptions;
};
constinit Guard guard{};
std::terminate_handler terminateBefore = nullptr;

/// Room between the frame that a jump enters and the routine that jumps.
constexpr std::uintptr_t kJumpRoom = 256;
constexpr DWORD kDirectionFlag = 0x400;
constexpr DWORD kUnwinding = 0x2 | 0x4; // somebody below has caught the exception
/// Room that the system keeps for handlers after the stack is full.
constexpr ULONG kOverflowRoom = 64 * 1024;

bool isLispThread() { return guard.thread == GetCurrentThreadId(); }

ChainEntry* volatile& chainHead()
{
    // The system calls this type a list; it is the first word of the thread's block.
    return *reinterpret_cast<ChainEntry* volatile*>(NtCurrentTeb());
}

/// Codes that a processor fault has; not those of debuggers and of thrown exceptions.
bool isFault(DWORD code)
{
    switch (code) {
    case EXCEPTION_ACCESS_VIOLATION:
    case EXCEPTION_IN_PAGE_ERROR:
    case EXCEPTION_ILLEGAL_INSTRUCTION:
    case EXCEPTION_PRIV_INSTRUCTION:
    case EXCEPTION_DATATYPE_MISALIGNMENT:
    case EXCEPTION_ARRAY_BOUNDS_EXCEEDED:
    case EXCEPTION_FLT_DENORMAL_OPERAND:
    case EXCEPTION_FLT_DIVIDE_BY_ZERO:
    case EXCEPTION_FLT_INEXACT_RESULT:
    case EXCEPTION_FLT_INVALID_OPERATION:
    case EXCEPTION_FLT_OVERFLOW:
    case EXCEPTION_FLT_STACK_CHECK:
    case EXCEPTION_FLT_UNDERFLOW:
    case EXCEPTION_INT_DIVIDE_BY_ZERO:
    case EXCEPTION_INT_OVERFLOW:
    case EXCEPTION_STACK_OVERFLOW: return true;
    default: return false;
    }
}

/// The unwinder reads the code at the faulting address: after a call through a bad pointer it would
/// fault itself.
bool isBadCall(const EXCEPTION_RECORD& record, const CONTEXT& context)
{
    return record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION && record.NumberParameters >= 2 &&
           record.ExceptionInformation[1] == context.Eip;
}

/// A throw is under way and its unwinder, or what it calls, has faulted.
bool isInUnwinder(const CONTEXT& context)
{
    return guard.exceptions->uncaught != 0 && context.Esp < guard.thrownAt;
}

/// Where the thread goes on: a pending floating-point fault would come again at the next operation,
/// and entries of frames that are about to go must leave the chain.
void settle()
{
    __asm__ volatile("fnclex");
    chainHead() = guard.chain;
}

[[noreturn, gnu::force_align_arg_pointer]] void throwFromFault()
{
    settle();
    guard.translator(guard.code);
    std::terminate(); // a translator throws
}

[[noreturn, gnu::force_align_arg_pointer]] void jumpFromFault()
{
    settle();
    __builtin_longjmp(guard.jump->places, 1);
}

DWORD addressOf(void (*routine)()) { return reinterpret_cast<DWORD>(routine); }

/// As if the faulting instruction had called throwFromFault. The unwinder looks for the caller one
/// byte before the return address.
void redirectToThrow(CONTEXT& context)
{
    guard.thrownAt = context.Esp;
    context.Esp -= sizeof(DWORD);
    *reinterpret_cast<DWORD*>(context.Esp) = context.Eip + 1;
    context.Eip = addressOf(throwFromFault);
}

/// The jump is made from the stack of its goal: after an overflow there is no other.
void redirectToJump(CONTEXT& context)
{
    context.Esp = guard.jump->stack() - kJumpRoom;
    context.Eip = addressOf(jumpFromFault);
}

EXCEPTION_DISPOSITION NTAPI onException(EXCEPTION_RECORD* record, void*, CONTEXT* context, void*)
{
    const bool mayGoOn = (record->ExceptionFlags & (EXCEPTION_NONCONTINUABLE | kUnwinding)) == 0;
    if (!mayGoOn || !isFault(record->ExceptionCode)) return ExceptionContinueSearch;
    guard.code = record->ExceptionCode;
    const bool canThrow = record->ExceptionCode != EXCEPTION_STACK_OVERFLOW &&
                          guard.translator != nullptr && !isBadCall(*record, *context) &&
                          !isInUnwinder(*context);
    if (canThrow) redirectToThrow(*context);
    else if (guard.jump != nullptr) redirectToJump(*context);
    else return ExceptionContinueSearch;
    context->EFlags &= ~kDirectionFlag;
    return ExceptionContinueExecution;
}

[[noreturn]] void onTerminate()
{
    if (isLispThread() && guard.jump != nullptr) {
        const std::type_info* type = abi::__cxa_current_exception_type();
        if (type == nullptr || *type != typeid(unsigned)) guard.code = KEX::kFaultException;
        jumpFromFault();
    }
    if (terminateBefore != nullptr) terminateBefore();
    std::abort();
}

[[noreturn]] void throwFault(unsigned code) { throw code; }

/// What a scope changes of the thread's state.
struct ScopeState
{
    int depth;
    Translator translator;
    JumpBuffer* jump;
    ChainEntry* chain;
};

// Entries in the chain, with what the scope found.
struct ScopeEntry
{
    ChainEntry entry;
    ChainEntry* outer;
};
struct CallEntry
{
    ChainEntry entry;
    ScopeState before;
};

ScopeState saveScope() { return {guard.depth, guard.translator, guard.jump, guard.chain}; }

void restoreScope(const ScopeState& state)
{
    guard.depth = state.depth;
    guard.translator = state.translator;
    guard.jump = state.jump;
    guard.chain = state.chain;
}

void enterChain(ChainEntry& entry, PEXCEPTION_ROUTINE handler)
{
    entry.Next = chainHead();
    entry.Handler = handler;
    guard.chain = &entry;
    chainHead() = &entry;
}

/// The host may leave through a guarded call by an exception of its own kind, which runs none of
/// our destructors.
EXCEPTION_DISPOSITION NTAPI onCallException(EXCEPTION_RECORD* record, void* entry, CONTEXT* context,
                                            void* dispatcher)
{
    if ((record->ExceptionFlags & kUnwinding) != 0) {
        restoreScope(static_cast<CallEntry*>(entry)->before);
        return ExceptionContinueSearch;
    }
    return onException(record, entry, context, dispatcher);
}

void leaveCall(const CallEntry& call)
{
    restoreScope(call.before);
    chainHead() = call.entry.Next;
}

} // namespace

bool CKexErrorHandler::install() noexcept
{
    if (guard.thread != 0) return isLispThread();
    ULONG room = kOverflowRoom;
    SetThreadStackGuarantee(&room);
    guard.exceptions = exceptionRecord();
    terminateBefore = std::set_terminate(onTerminate);
    guard.thread = GetCurrentThreadId();
    return true;
}

bool CKexErrorHandler::uninstall() noexcept
{
    if (!isLispThread() || guard.depth != 0) return false;
    if (std::get_terminate() == onTerminate) std::set_terminate(terminateBefore);
    guard.thread = 0;
    return true;
}

int CKexErrorHandler::depth() noexcept { return isLispThread() ? guard.depth : 0; }

CKexErrorHandler::CKexErrorHandler() noexcept : previous_(nullptr)
{
    static_assert(sizeof(entry_) == sizeof(ScopeEntry));
    if (!install()) return;
    auto& scope = *reinterpret_cast<ScopeEntry*>(entry_);
    scope.outer = guard.chain;
    previous_ = guard.translator;
    guard.depth = guard.depth + 1;
    guard.translator = throwFault;
    enterChain(scope.entry, onException);
}

CKexErrorHandler::~CKexErrorHandler()
{
    if (!isLispThread()) return;
    guard.depth = guard.depth - 1;
    guard.translator = previous_;
    const auto& scope = *reinterpret_cast<const ScopeEntry*>(entry_);
    guard.chain = scope.outer;
    chainHead() = scope.entry.Next;
}

bool KEX::guardedCall(void (*function)(void*), void* argument, unsigned& fault)
{
    if (!CKexErrorHandler::install()) {
        function(argument);
        return true;
    }
    CallEntry call;
    call.before = saveScope();
    const ExceptionRecord exceptions = *guard.exceptions;
    JumpBuffer here;
    if (__builtin_setjmp(here.places) != 0) {
        leaveCall(call);
        dropExceptions(*guard.exceptions, exceptions);
        fault = guard.code;
        // The page that told the overflow guards no more.
        if (fault == kFaultStack) _resetstkoflw();
        return false;
    }
    enterChain(call.entry, onCallException);
    guard.jump = &here;
    guard.translator = throwFault;
    guard.depth = call.before.depth + 1;
    try {
        function(argument);
    } catch (unsigned code) {
        leaveCall(call);
        fault = code;
        return false;
    } catch (...) {
        leaveCall(call);
        throw;
    }
    leaveCall(call);
    return true;
}
