// SPDX-License-Identifier: LicenseRef-ORVALD
// A session of the headless host, as the command line, tests and fuzzers use it: one host, its
// modules and one drawing at a time. Text is UTF-8. One session a process at a time, used on the
// thread that made it; that thread needs a generous stack (see runOnLispThread).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#define ORVALD_API __attribute__((visibility("default")))

namespace orvald {

struct SessionOptions
{
    /// Module to load before anything else; empty for none. The kernel's own module by default.
    std::string kernel = "Kex_2015_18_32_Main.arx";
    std::vector<std::string> modules; // further ones, in order
    std::string home;                 // configuration folder; empty: the user's
    bool quiet = false, verbose = false;
    bool boxesOk = false;               // answer of OK/Cancel boxes
    bool trace = false;                 // every call into a module, on stderr
    bool dotInMiddle = false;           // dotted pairs go to modules as RTLB a RTDOTE b RTLE
    bool longIntegers = false;          // integers go to modules as RTLONG always
    std::size_t heapLimit = 0;          // bytes of LISP data in a document; 0: the host's default
    std::vector<std::string> arguments; // what (argv) gives
    std::vector<std::pair<std::string, std::string>> variables; // system variables to set
    std::optional<std::vector<std::string>> answers;            // to prompts, instead of stdin
};

/// How a picture looks; lengths in pixels.
struct PictureOptions
{
    int width = 1600, height = 0;                // height 0: from the shape of what is drawn
    int margin = 40;                             // free on each side
    bool dark = false;                           // on the slate of a screen, else on white paper
    bool lineWeights = true;                     // as on a sheet A3; false: all lines are thin
    bool overlay = true;                         // with the temporary graphics
    std::string layout;                          // "" the model
    std::optional<std::array<double, 4>> window; // left, bottom, right, top in drawing units
};

/// A call on the way to an error.
struct CallLine
{
    std::string call, file;
    int line = 0; // 0: unknown
};

/// How an evaluation ended.
struct Evaluation
{
    bool ok = true;
    std::string value;    // as LISP prints it; empty for the blank symbol
    std::string error;    // message; empty when ok
    std::string failure;  // what a module said last through acdbFail during the evaluation
    bool handled = false; // the program's own *error* has had it
    enum class End
    {
        error,
        left, // by (exit), (quit) and the like
        cancelled,
        outOfMemory,
        stopped
    } end = End::error;          // what kind of error; means nothing when ok
    std::vector<CallLine> calls; // innermost first
};

/// A LISP function that a module describes.
struct FunctionLine
{
    std::string name, arguments, result;
    bool built = false;
    /// "(name  arguments) -> result".
    ORVALD_API std::string text() const;
};

/// Work of the current document's LISP world since it was opened.
struct Work
{
    std::uint64_t allocated = 0; // bytes
    std::uint64_t collections = 0;
};

/// What the status bar's progress meter shows, or showed last.
struct MeterState
{
    bool isShown = false;
    std::string label;
    int low = 0, high = 0, position = 0;
    int movements = 0; // positions set since it was shown
};

class ORVALD_API Session
{
public:
    /// Loads the modules. No drawing is open yet.
    explicit Session(const SessionOptions& options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Why the session could not start as asked, a line for each module that cannot be loaded;
    /// empty when all is well.
    const std::string& problem() const;

    /// Opens a drawing in a document of its own and makes it current; false with the reason. The
    /// system variables of the options are set in it.
    bool open(const std::string& path, std::string& problem);
    /// A new drawing in a document of its own, current from now on. False, with the reason, when a
    /// system variable of the options cannot be set.
    bool newDrawing(std::string& problem);
    /// Closes the current document without saving.
    void closeCurrent();
    int documents() const;
    bool save(const std::string& path, std::string& problem);
    /// Picture of the current drawing, SVG or PNG by the ending. `remark` gets a line about what is
    /// in the drawing and not in the picture, "" when nothing is missing.
    bool picture(const std::string& path, const PictureOptions& options, std::string& problem,
                 std::string& remark);

    /// Evaluates every expression of the text in the current document; the value is the last one's.
    Evaluation eval(std::string_view text);
    Evaluation loadFile(const std::string& path);
    /// Runs a command of a module by name; false when there is none.
    bool command(const std::string& name);

    bool loadModule(const std::string& file, std::string& reason);
    bool unloadModule(const std::string& file, std::string& reason);
    std::vector<std::string> modules() const; // file names in order of loading
    /// LISP functions in table order, of all modules that describe theirs.
    std::vector<FunctionLine> functions() const;

    /// What a user who types may want: symbols that have a value, and system variables, in upper
    /// case and in order.
    std::vector<std::string> symbols() const;
    std::vector<std::string> variables() const;
    /// Lines about a function, a variable or a system variable; none when nothing is known.
    std::vector<std::string> describe(const std::string& name);
    Work work() const;
    /// A line of standard input, also when prompts get their answers from a list; nothing at its
    /// end or after Ctrl-C.
    std::optional<std::string> typedLine();
    /// Lines that standard input has given, to prompts as well.
    int typedLines() const;
    /// Gives back what no LISP program holds any more.
    void collectGarbage();

    /// The text of a data file's bytes, as the first module that can gives it. False, with the
    /// reason, when they are damaged, and when no module can; the text is what could be read.
    bool dataToText(std::string_view bytes, std::string& text, std::string& problem);
    /// Writes the data file for a text. False when the text is none, with the reason, and when the
    /// file cannot be written, with "".
    bool dataFromText(std::string_view text, const std::string& file, std::string& problem);

    int alerts() const;
    MeterState meter() const;
    bool moduleFaulted() const;
    /// The prompt that found no input; nothing when none did.
    std::optional<std::string> missingInput() const;
    /// Answers that were given and never asked for.
    std::size_t unusedAnswers() const;
    /// Ends an unfinished output line.
    void finishOutput();
    /// Asks the running program to stop; may be called from a signal handler.
    static void interrupt();
    /// True once after interrupt(), where no program was there to hear it.
    bool takeInterrupt();
    /// Ends the running program, whatever it catches, with End::stopped, and any further one until
    /// it is taken back. From any thread; a prompt that waits needs a signal besides.
    static void setStop(bool on);
    /// The LISP calls in progress as lines of UTF-8, innermost first; the bytes written. Safe in a
    /// signal handler on the session's thread.
    static std::size_t describeCalls(char* text, std::size_t room) noexcept;

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// Runs `body` on a thread with a stack for deep recursion and gives its result.
ORVALD_API int runOnLispThread(const std::function<int()>& body);

} // namespace orvald
