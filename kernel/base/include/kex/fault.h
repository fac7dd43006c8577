// SPDX-License-Identifier: LicenseRef-ORVALD
// The fault guard: a processor fault inside a guarded scope becomes a thrown unsigned int, its code
// the number that the fault has on the home platform (0xC0000005 access violation, 0xC0000094
// integer division, 0xC000001D illegal instruction, 0xC00000FD stack overflow, ...).
//
// It guards the LISP thread, the one that installed it; a scope on any other thread does nothing.
// It is a courtesy to the user: what the faulting code was changing stays half changed, and a fault
// inside the allocator must not be survived. Aborts are never translated.
#pragma once

#include "kex/export.h"

#include <type_traits>

/// While an object of this class lives, a fault on the LISP thread is thrown as unsigned int.
/// Scopes nest; an object stands on the stack, nowhere else. Entering and leaving costs a few
/// nanoseconds.
class KEX_BASE_API CKexErrorHandler
{
public:
    /// Called with the fault code in place of the faulting instruction; throws.
    using Translator = void (*)(unsigned code);

    CKexErrorHandler() noexcept;
    ~CKexErrorHandler();
    CKexErrorHandler(const CKexErrorHandler&) = delete;
    CKexErrorHandler& operator=(const CKexErrorHandler&) = delete;

    /// The translator that this scope replaced; null in the outermost one.
    Translator previous() const { return previous_; }

    /// Makes the calling thread the LISP thread and takes over the fault signals; the first scope
    /// does this by itself. False when the system refuses. Calling it again does nothing.
    static bool install() noexcept;
    /// Gives the signals, the terminate routine and the thread's signal stack back as they were
    /// found. To be called on the LISP thread, outside every scope, before the library is unloaded;
    /// false, and no change, anywhere else.
    static bool uninstall() noexcept;
    /// Scopes that live on this thread.
    static int depth() noexcept;

private:
    Translator previous_;
#ifdef _WIN32
    void* entry_[3]; // in the thread's chain of exception handlers
#endif
};

namespace KEX {

/// Calls `function(argument)` in a guarded scope. False, with the code in `fault`, when a fault
/// ended it: a fault thrown as CKexErrorHandler says, and also what cannot be thrown: stack
/// overflow, a call through a bad pointer, a fault inside a function that promises not to throw, an
/// exception that leaves such a function (0xE06D7363). Those leave by a jump: no destructor between
/// here and the fault runs, so the caller restores what the call had changed. Every other exception
/// passes through.
KEX_BASE_API bool guardedCall(void (*function)(void*), void* argument, unsigned& fault);

template <class Function>
bool guardedCall(Function&& function, unsigned& fault)
{
    using Body = std::remove_reference_t<Function>;
    return guardedCall([](void* body) { (*static_cast<Body*>(body))(); },
                       const_cast<void*>(static_cast<const void*>(&function)), fault);
}

inline constexpr unsigned kFaultAccess = 0xC0000005;
inline constexpr unsigned kFaultInPage = 0xC0000006;
inline constexpr unsigned kFaultIllegal = 0xC000001D;
inline constexpr unsigned kFaultFloatDivide = 0xC000008E;
inline constexpr unsigned kFaultFloatInvalid = 0xC0000090;
inline constexpr unsigned kFaultFloatOverflow = 0xC0000091;
inline constexpr unsigned kFaultDivide = 0xC0000094;
inline constexpr unsigned kFaultStack = 0xC00000FD;
/// No processor fault: an exception that nobody could catch.
inline constexpr unsigned kFaultException = 0xE06D7363;

} // namespace KEX
