// SPDX-License-Identifier: LicenseRef-ORVALD
// The running state of a world: evaluation stack, call frames, symbols, heap, compiled forms.
//
// Binding is shallow: a symbol's cell holds the innermost value. Arguments are evaluated onto the
// evaluation stack; a call of a program's function exchanges them with the values of its
// parameters, so that the stack then holds the outer values until the call ends. An error leaves
// stack and frames as they are: whoever catches it undoes the bindings (unwindTo), after *error*
// has seen them.
//
// Every C++ frame that holds a list or object across a call of the evaluator keeps it on the
// evaluation stack or in a Root.
#pragma once

#include "cell_table.h"
#include "core.h"
#include "heap.h"
#include "lambda.h"
#include "printer.h"
#include "reader.h"
#include "stack_guard.h"
#include "symbol_table.h"

#include <array>
#include <span>
#include <string>
#include <vector>

namespace orvald::lisp {

inline constexpr char16_t kInsufficientMemory[] = u"insufficient memory";

/// A call in progress and what it has bound.
struct Frame
{
    const FormNode* call; // null where the host called
    const Variables* variables;
    Value* base; // outer values of the variables
};

class Evaluator
{
public:
    Evaluator(World& owner, WorldHost& host, std::size_t heapLimit);
    ~Evaluator();

    // -- what every node touches
    Value* sp;       // first free place of the evaluation stack
    Value* spLimit;  // pushes of variable length stop here; short ones have room beyond
    Frame* frameTop; // first free frame
    int countdown = kPollInterval;
    const FormNode* currentCall = nullptr; // the builtin call in progress, for error reports
    Value tValue;
    World& world;
    WorldHost& host;
    Heap heap;
    struct CoreSymbol
    {
        Symbol symbol;
        Value builtin;
    };
    std::array<CoreSymbol, kCoreCount> core; // by Core
    SymbolTable symbols;

    Value run(const Node* node) { return node->run(node, *this); }
    Value boolean(bool value) const { return value ? tValue : Value::nil(); }
    CoreSymbol& coreSymbol(Core which) { return core[static_cast<std::size_t>(which)]; }
    /// The symbol still means the builtin.
    bool intact(Core which)
    {
        const CoreSymbol& entry = coreSymbol(which);
        return entry.symbol.value == entry.builtin;
    }

    // -- safe points
    void safePoint()
    {
        if (--countdown <= 0) [[unlikely]]
            safePointReached();
    }
    void collect();
    /// Collects at the next safe point.
    void requestCollection()
    {
        heap.expediteCollection();
        countdown = 0;
    }
    void setStress(bool on);

    // -- calls
    void push(Value value)
    {
        if (sp >= spLimit) [[unlikely]]
            raiseOverflow();
        *sp++ = value;
    }
    void requireRoom(std::size_t count)
    {
        if (count > static_cast<std::size_t>(spLimit - sp) || sp > spLimit) [[unlikely]]
            raiseOverflow();
    }
    /// Takes the arguments from `base` to the top of the stack.
    template <int kParameters = -1>
    Value callLambda(Lambda* lambda, const FormNode* call, Value* base);
    /// The same for whatever `function` is; raises when it is none.
    Value callValue(Value function, const FormNode* call, Value* base);
    /// What a builtin given a function calls: a symbol's function, a list's compiled form. Raises
    /// when there is none. The result must be kept reachable.
    Value resolveFunction(Value designator);
    /// A call out of a builtin; collects garbage first when it is time.
    Value callBack(Value function, Value* base);
    Value apply(Value designator, std::span<const Value> args);
    /// The general way for a form whose special node no longer fits.
    Value runRedefined(const FormNode* node);
    /// Operands that an inlined function cannot take: the builtin itself decides.
    Value callCore(Core which, const FormNode* call, std::initializer_list<Value> operands);
    Value evalForm(Value form);
    Lambda* lambdaOf(Cons* list);

    // -- errors
    [[noreturn]] void raise(std::u16string message, LispError::Sort sort = LispError::Sort::error);
    [[noreturn]] void raiseAt(const FormNode* call, std::u16string message);
    /// What to say of a call of a name without a function.
    std::u16string undefined(std::u16string_view name) const;
    [[noreturn]] void badArgument(std::u16string_view what, Value value);
    [[noreturn]] void raiseOverflow();
    void raiseIfStopped();
    [[noreturn]] void exitWithValue(Value value);
    void unwindTo(Frame* frame, Value* stack);
    /// Runs `body`; after an error the bindings are undone and `onError(message)` gives the result.
    /// The user's wish to stop is not held up: it ends the program even out of a loop that catches
    /// everything.
    template <class Body, class OnError>
    Value guarded(Body&& body, OnError&& onError);

    /// See World::describeCalls.
    std::size_t describeCalls(char* text, std::size_t room) const noexcept;

    /// Where a program's function was read, as far as that is known.
    CallPlace placeOfFunction(const Lambda& lambda);

    // -- text and files
    /// As a program prints it; raises when the text outgrows the memory.
    std::u16string printed(Value value, Quoting quoting);
    Value readFirst(std::u16string_view text);
    /// Reads and evaluates form by form; errors of the reader name file and line.
    Value evalAll(std::u16string_view text, const std::string& file);

    // -- from the top
    void enterThread() { stackLimit = threadStackLimit(); }
    template <class Body>
    Outcome atTop(Body&& body);

    // -- definitions
    void define(std::span<const Builtin> table);
    External* externalFor(ExternalFunction& function);
    void forgetExternal(const ExternalFunction& function);
    /// Sets a symbol's value and tells the host of commands.
    void assign(Symbol* symbol, Value value);
    static bool isCommandName(const Symbol* symbol)
    {
        return symbol->name.size() > 2 && symbol->name[0] == u'C' && symbol->name[1] == u':';
    }

    std::uintptr_t stackLimit = 0; // lowest stack address that may be used
    Root* roots = nullptr;
    Value lastResult;
    std::vector<std::pair<Symbol*, Value>> blackboard;

private:
    friend class Compiler;
    static constexpr int kPollInterval = 64;
    // Values that pushes of variable length may fill, and what *error* gets beyond them.
    static constexpr std::size_t kCheckedValues = std::size_t{4} << 20;
    static constexpr std::size_t kErrorReserve = std::size_t{64} << 10;
    struct Place
    {
        int file = 0; // index into files_
        int line = 0;
    };
    class PlaceRecorder;

    void safePointReached();
    void markRoots();
    Value callSubr(Subr* subr, const FormNode* call, Value* base);
    Lambda* thunkOf(CellTable<Lambda*>& table, Cons* form, bool general);
    [[noreturn]] void raiseRead(const ReadFault& fault, std::u16string_view text,
                                const std::string& file);
    static LispError errorOf(const std::exception& fault);
    Outcome afterError(LispError error, Frame* frame, Value* stack);
    void addCallPlaces(LispError& error, const Frame* from);
    CallPlace placeOf(const Cons* form);
    int fileIndex(const std::string& file);

    struct Released
    {
        void operator()(void* memory) const;
    };
    std::unique_ptr<Value[], Released> stack_;
    std::unique_ptr<Frame[], Released> frames_;
    CellTable<Lambda*> thunks_;        // forms handed to eval
    CellTable<Lambda*> generalThunks_; // forms whose builtin was redefined
    CellTable<Lambda*> listFunctions_; // lists used as functions
    CellTable<Place> places_;
    std::vector<std::string> files_;
    std::vector<External*> externals_;
    bool stress_ = false;
    // An error on its way that no vl-catch-all-apply may hold up.
    bool exitsWithValue_ = false;
    bool interrupted_ = false;
};

inline Evaluator& evaluatorOf(World& world) { return world.evaluator(); }

template <int kParameters>
inline Value Evaluator::callLambda(Lambda* lambda, const FormNode* call, Value* base)
{
    const int parameters = kParameters < 0 ? lambda->parameterCount : kParameters;
    const int count = lambda->variables.count;
    if (stackAddress() < stackLimit || sp + count > spLimit) [[unlikely]] {
        currentCall = call;
        raiseOverflow();
    }
    Frame* frame = frameTop++;
    frame->call = call;
    frame->variables = &lambda->variables;
    frame->base = base;
    Symbol* const* variables = lambda->variables.symbols;
    for (int i = 0; i < parameters; ++i) std::swap(base[i], variables[i]->value);
    for (int i = parameters; i < count; ++i) {
        base[i] = variables[i]->value;
        variables[i]->value = Value::nil();
    }
    sp = base + count;
    safePoint();
    const Value result = lambda->body->run(lambda->body, *this);
    for (int i = count; i-- > 0;) variables[i]->value = base[i];
    sp = base;
    frameTop = frame;
    return result;
}

template <class Body, class OnError>
Value Evaluator::guarded(Body&& body, OnError&& onError)
{
    Frame* const frame = frameTop;
    Value* const stack = sp;
    const FormNode* const call = currentCall;
    std::u16string message;
    try {
        return body();
    } catch (LispError& error) {
        const bool stopped = error.sort == LispError::Sort::stopped ||
                             (interrupted_ && error.sort == LispError::Sort::cancelled);
        if (exitsWithValue_ || stopped) throw;
        message = std::move(error.message);
    } catch (const std::exception& fault) {
        message = errorOf(fault).message;
    }
    unwindTo(frame, stack);
    currentCall = call;
    return onError(std::move(message));
}

template <class Body>
Outcome Evaluator::atTop(Body&& body)
{
    enterThread();
    Frame* const frame = frameTop;
    Value* const stack = sp;
    const FormNode* const call = currentCall;
    currentCall = nullptr;
    Outcome outcome;
    try {
        outcome.value = body();
        raiseIfStopped(); // without it, a wait that was broken off counts as an answer
    } catch (LispError& error) {
        outcome = afterError(std::move(error), frame, stack);
    } catch (const std::exception& fault) {
        outcome = afterError(errorOf(fault), frame, stack);
    } catch (...) { // not ours, but the bindings are
        unwindTo(frame, stack);
        currentCall = call;
        throw;
    }
    currentCall = call;
    lastResult = outcome.value;
    return outcome;
}

} // namespace orvald::lisp
