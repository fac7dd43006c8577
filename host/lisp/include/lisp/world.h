// SPDX-License-Identifier: LicenseRef-ORVALD
// One document's LISP world: symbols, heap and evaluator, and the ways in and out for the rest of
// the host. A world belongs to one thread at a time.
//
// Garbage is collected only at safe points: when a user function is entered, at a loop's back edge,
// and where a builtin calls back into the evaluator. A builtin that never calls back may hold
// values in plain variables; one that does keeps them in a Root.
#pragma once

#include "lisp/value.h"
#include "text/encoding.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvald::lisp {

class World;
class Evaluator;

/// One call on the way to an error, innermost first.
struct CallPlace
{
    std::u16string call; // the call as written, cut to one line
    std::string file;    // empty for text that came from no file
    int line = 0;        // 1-based, 0 when unknown
};

/// An error on its way to the next vl-catch-all-apply or to the top.
struct LispError
{
    enum class Sort
    {
        error,
        exit,
        cancelled,
        outOfMemory,
        stopped // by the host: neither vl-catch-all-apply nor *error* gets it
    };
    std::u16string message; // as *error* gets it
    Sort sort = Sort::error;
    std::vector<CallPlace> calls; // filled in when it reaches the top
};

/// The arguments of a builtin: evaluated, and rooted for as long as the call runs. Reading an
/// argument of the wrong type raises the language's own error.
class Args
{
public:
    Args(World& world, const Value* values, int count)
        : world_(world), values_(values), count_(count)
    {
    }
    int size() const { return count_; }
    Value operator[](int index) const { return values_[index]; }
    /// nil for one that was not given.
    Value at(int index) const { return index < count_ ? values_[index] : Value::nil(); }
    std::span<const Value> all() const { return {values_, static_cast<std::size_t>(count_)}; }

    std::int32_t integer(int index) const;       // "bad argument type: fixnump: ..."
    double number(int index) const;              // "bad argument type: numberp: ..."
    std::u16string_view string(int index) const; // "bad argument type: stringp ..."
    Value list(int index) const;                 // "bad argument type: listp ..."
    Symbol* symbol(int index) const;             // "bad argument type: symbolp ..."
    std::uint64_t entity(int index) const;       // "bad argument type: lentityp ..."
    /// Two or three numbers; a missing Z is 0.0. "bad argument type: 2D/3D point: ..."
    struct Point
    {
        double x, y, z;
        int dimensions; // 2 or 3
    };
    Point point(int index) const;

private:
    World& world_;
    const Value* values_;
    int count_;
};

/// What is known of a function.
struct FunctionShape
{
    enum class Sort
    {
        special, // takes its arguments unevaluated
        builtin,
        application,
        program
    } sort;
    int least = 0, most = -1;  // of a builtin: count of arguments, -1 for any number
    std::u16string parameters; // of a program's function: as written, with its locals
    CallPlace place;           // of a program's function: where it was read, if known
};

/// Work of a world since it was made.
struct WorkDone
{
    std::uint64_t allocated = 0; // bytes of LISP data
    std::uint64_t collections = 0;
};

using BuiltinFunction = Value (*)(World& world, Args args);

/// A row of a builtin table. The evaluator checks the count before the call, after evaluating the
/// arguments.
struct Builtin
{
    const char* name;
    BuiltinFunction function;
    int least = 0;
    int most = -1; // -1: any number
};

/// A function that an application defined; kept alive by its owner, called through every symbol
/// that holds it.
class ExternalFunction
{
public:
    virtual ~ExternalFunction() = default;
    virtual Value call(World& world, Args args) = 0;
    virtual std::u16string_view name() const = 0;
};

/// What the evaluator asks of its surroundings.
class WorldHost
{
public:
    virtual ~WorldHost() = default;
    /// The text window: what princ, print and prompt write.
    virtual void print(std::u16string_view text) = 0;
    /// Full path of a file on the search path; empty when there is none. `suffixes` are tried in
    /// order after the name as it stands.
    virtual std::string findFile(std::string_view name,
                                 std::span<const std::string_view> suffixes) = 0;
    /// A selection set value is gone; `set` is the number it was made with. Called in the middle of
    /// a collection: the world may not be touched.
    virtual void releasePickset(std::int32_t set) = 0;
    /// The user wants to stop the program (Ctrl-C); read at safe points, cleared by the reader. The
    /// error that follows is not caught by vl-catch-all-apply; one that a prompt raises is.
    virtual bool takeInterrupt() = 0;
    /// The program is to end, whatever it catches; read at safe points. Stays true until nothing of
    /// the program runs any more.
    virtual bool mustStop() const;
    /// A "c:" function was defined or removed.
    virtual void commandDefined(std::u16string_view name, bool defined) = 0;
    /// True for a function of the language that this host does not have: the error of a call says
    /// so. `name` in upper case.
    virtual bool lacksFunction(std::u16string_view name);
    /// Value of a system variable that steers the conversion of numbers to text (LUNITS, LUPREC,
    /// AUNITS, AUPREC, UNITMODE, DIMZIN); nothing: the default of a new drawing.
    virtual std::optional<Value> systemVariable(std::u16string_view name);
    /// The file that a program means by `name`; as it stands: backslashes are separators as well.
    virtual std::string filePath(std::u16string_view name);
};

/// How a top-level evaluation ended.
struct Outcome
{
    Value value; // rooted until the next top-level evaluation
    std::optional<LispError> error;
    /// The program's own *error* has had the error: the host prints nothing more about it.
    bool handled = false;
    bool ok() const { return !error.has_value(); }
};

/// Keeps a value alive across safe points, in whatever order roots come and go.
class Root
{
public:
    explicit Root(World& world, Value value = Value::nil());
    ~Root();
    Root(const Root&) = delete;
    Root& operator=(const Root&) = delete;
    Value value;

private:
    World& world_;
    Root* outer_;
    Root* inner_ = nullptr;
    friend class Evaluator;
};

/// Builds a list front to back.
class ListBuilder
{
public:
    explicit ListBuilder(World& world) : world_(world) {}
    void add(Value item);
    /// Makes `tail` the rest of the list; nothing may be added afterwards.
    void endWith(Value tail);
    Value list() const { return first_; }

private:
    World& world_;
    Value first_;
    Cons* last_ = nullptr;
};

class World
{
public:
    /// `heapLimit`: bytes after which a full collection that frees nothing ends in a LISP error.
    explicit World(WorldHost& host, std::size_t heapLimit = std::size_t{512} << 20);
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    WorldHost& host() { return host_; }

    // -- values
    Symbol* intern(std::u16string_view name); // folded to upper case
    Value makeString(std::u16string_view text);
    Value makeCons(Value first, Value rest);
    Value makeList(std::initializer_list<Value> items);
    Value makePickset(std::int32_t set);
    std::int32_t picksetNumber(Value pickset) const;
    /// `entity`: the database object that it stands for, nil for none.
    Value makeVlaObject(std::u16string_view className, Value entity = Value::nil());
    // of a value of that kind
    std::u16string_view vlaClass(Value object) const;
    Value vlaEntity(Value object) const;
    bool isVlaReleased(Value object) const;
    void releaseVla(Value object);
    Value t() const { return t_; }
    Value boolean(bool value) const { return value ? t_ : Value::nil(); }

    // -- definitions
    /// Adds a table; it must live as long as the world.
    void define(std::span<const Builtin> table);
    /// Makes the symbol's value an EXRXSUBR, whatever it was; `function` must outlive the
    /// definition.
    void defineExternal(std::u16string_view name, ExternalFunction& function);
    /// Sets the symbol to nil if it still holds that very function.
    bool undefineExternal(std::u16string_view name, const ExternalFunction& function);
    Value symbolValue(std::u16string_view name) const; // nil when unknown
    void setSymbol(std::u16string_view name, Value value);

    // -- evaluation inside a running call: errors are thrown as LispError
    Value eval(Value form);
    Value apply(Value function, std::span<const Value> args);
    [[noreturn]] void raise(std::u16string message);
    [[noreturn]] void raise(LispError::Sort sort, std::u16string message);
    /// "bad argument type: <what> <value>", what as the language spells it ("numberp:", "stringp").
    [[noreturn]] void badArgument(std::string_view what, Value value);

    // -- evaluation from the top: never throws a LispError. An error that no program caught runs
    //    *error* with all bindings still in place, or is left to the caller to print.
    Outcome evalText(std::u16string_view text, std::string_view file = {});
    Outcome loadFile(const std::string& path); // UTF-8 or ANSI 1252 text
    Outcome applyTop(std::u16string_view function, std::span<const Value> args);

    // -- text
    /// First datum of `text`; nil for none. Raises the reader's errors.
    Value read(std::u16string_view text);
    std::u16string princ(Value value) const; // strings bare
    std::u16string prin1(Value value) const; // strings quoted and escaped

    /// The calls in progress as lines of UTF-8, innermost first, for a program that does not come
    /// back: safe in a signal handler on the world's thread. Gives the bytes written.
    std::size_t describeCalls(char* text, std::size_t room) const noexcept;

    // -- for whoever looks at a world from outside
    /// Every symbol with a value; names in upper case, in no order.
    void forEachBound(
        const std::function<void(std::u16string_view name, Value value)>& visit) const;
    /// Nothing for a value that is no function.
    std::optional<FunctionShape> shapeOf(Value function) const;
    WorkDone workDone() const;

    bool equal(Value a, Value b, double fuzz = 0.0) const;
    void collectGarbage();
    std::size_t heapBytes() const;
    /// Collects at every safe point, so that a value that is not kept reachable shows at once.
    void stressCollector(bool on);

    Evaluator& evaluator() { return *evaluator_; }

private:
    friend class Root;
    WorldHost& host_;
    std::unique_ptr<Evaluator> evaluator_; // holds heap and symbols as well
    Value t_;
};

/// Text at the edges of the program; a lone surrogate becomes U+FFFD.
inline std::u16string toUtf16(std::string_view octets)
{
    return text::utf16(octets, text::Lone::replaced);
}
inline std::string toUtf8(std::u16string_view units)
{
    return text::utf8(units, text::Lone::replaced);
}

} // namespace orvald::lisp
