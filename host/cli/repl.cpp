// SPDX-License-Identifier: LicenseRef-ORVALD
// The console: reads forms, evaluates them and prints their values, until its end. At a terminal
// lines can be edited and what was typed is kept; elsewhere forms come from standard input, without
// prompts, and prompts of programs read on behind the line of the form that asks.
#include "command_support.h"
#include "form_scanner.h"
#include "history_file.h"
#include "interrupt.h"
#include "line_editor.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <unistd.h>

namespace orvald::cli {
namespace {

constexpr char kPrompt[] = "orvald> ";
constexpr char kContinued[] = "   ...> ";

constexpr std::string_view kHelp =
    R"(,doc NAME      about a function, a variable or a system variable
,bt            the LISP calls that led to the last error
,time EXPR     evaluate, and tell time and memory
,draw [FILE]   picture of the drawing, .svg or .png
,quit          the end, as (exit), (quit) and Ctrl-D
,help          this
A form may go over several lines; Ctrl-C drops it, or stops what runs. Tab completes names, after
(getvar " and (setvar " system variables, in other strings files.
)";

std::string_view trimmed(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(" \t");
    if (begin == text.npos) return {};
    return text.substr(begin, text.find_last_not_of(" \t") + 1 - begin);
}

/// Three digits behind the point.
std::string decimal(double value)
{
    std::string digits = std::to_string(value);
    return digits.substr(0, digits.find('.') + 4);
}

class Repl
{
public:
    Repl(Session& session, const Options& options, Watchdog& watchdog);
    /// Evaluates one thing and shows how it ended; `place` stands in front of an error.
    void evaluate(const std::function<Evaluation()>& what, const std::string& place);
    /// Up to the end of input; the exit status.
    int run();

private:
    using Got = LineEditor::Got;
    Got nextLine(std::string& line);
    void remember(std::string_view entry);
    bool takeLine(const std::string& line);
    bool evaluateForms();
    bool runCommand(std::string_view line);
    void showDoc(const std::string& name);
    void showError(const Evaluation& evaluation, const std::string& place);
    void draw(std::string file);

    Session& session_;
    const Options& options_;
    Watchdog& watchdog_;
    const bool atTerminal_;
    std::unique_ptr<LineEditor> editor_;
    HistoryFile history_;
    std::string lastEntry_;
    FormScanner scanner_;
    std::string entry_;     // the lines of the form that is open
    bool measures_ = false; // the next form, for ,time
    Evaluation lastError_;
    bool toldOfCalls_ = false;
};

Repl::Repl(Session& session, const Options& options, Watchdog& watchdog)
    : session_(session),
      options_(options),
      watchdog_(watchdog),
      atTerminal_(isatty(STDIN_FILENO) == 1),
      history_(options.session.home)
{
    if (!atTerminal_) return;
    editor_ = makeLineEditor([this](std::string_view line) {
        return complete(session_, entry_ + std::string(line));
    });
    if (editor_ == nullptr) return;
    for (const std::string& entry : history_.load()) editor_->remember(entry);
}

Repl::Got Repl::nextLine(std::string& line)
{
    const char* const prompt = scanner_.isOpen() ? kContinued : kPrompt;
    armInterrupt();
    if (editor_ != nullptr) {
        const Got got = editor_->read(prompt, line);
        // Ctrl-C just before the editor took the keyboard came as a signal.
        return session_.takeInterrupt() && got == Got::end ? Got::dropped : got;
    }
    if (atTerminal_) std::fputs(prompt, stderr);
    if (std::optional<std::string> typed = session_.typedLine()) {
        line = std::move(*typed);
        return Got::line;
    }
    if (atTerminal_) std::fputs("\n", stderr);
    return session_.takeInterrupt() ? Got::dropped : Got::end;
}

void Repl::remember(std::string_view entry)
{
    if (editor_ == nullptr || entry.empty() || entry == lastEntry_) return;
    lastEntry_ = entry;
    editor_->remember(lastEntry_);
    history_.add(lastEntry_);
}

int Repl::run()
{
    if (atTerminal_ && !options_.session.quiet) say("orvald " ORVALD_VERSION ", ,help for help");
    std::string line;
    for (;;) {
        const Got got = nextLine(line);
        if (got == Got::line) {
            if (!takeLine(line)) return kWell;
            continue;
        }
        if (got == Got::dropped && !atTerminal_) return kInterrupted;
        if (got == Got::end) break;
        scanner_.drop();
        entry_.clear();
        measures_ = false;
    }
    if (!scanner_.isOpen() || atTerminal_) return kWell;
    const FormScanner::Form& open = scanner_.open();
    say("line " + std::to_string(open.line) + ": error: the form that begins here has no end: " +
        open.text.substr(0, std::min(open.text.find('\n'), std::size_t{60})));
    return kLispError;
}

/// False when the user wants to leave.
bool Repl::takeLine(const std::string& line)
{
    if (!scanner_.isOpen() && line.starts_with(',')) {
        remember(trimmed(line));
        return runCommand(trimmed(line)) && evaluateForms();
    }
    entry_ += line + "\n";
    scanner_.add(line, session_.typedLines());
    if (scanner_.isOpen()) return evaluateForms(); // those before the open one
    remember(onOneLine(entry_));
    entry_.clear();
    return evaluateForms();
}

bool Repl::evaluateForms()
{
    while (const std::optional<FormScanner::Form> form = scanner_.take()) {
        const std::string text = onOneLine(form->text);
        if (text == "(exit)" || text == "(quit)" || text == "(EXIT)" || text == "(QUIT)") {
            return false;
        }
        const bool measured = std::exchange(measures_, false);
        const Work before = session_.work();
        const auto begin = std::chrono::steady_clock::now();
        evaluate([&] { return session_.eval(form->text); },
                 "line " + std::to_string(form->line) + ": ");
        if (!measured) continue;
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
        const Work after = session_.work();
        const double megabytes = static_cast<double>(after.allocated - before.allocated) / 1e6;
        say(decimal(time.count()) + " s, " + decimal(megabytes) + " MB of LISP data, " +
            std::to_string(after.collections - before.collections) + " collections");
    }
    return true;
}

void Repl::evaluate(const std::function<Evaluation()>& what, const std::string& place)
{
    armInterrupt();
    watchdog_.restart();
    Evaluation evaluation = what();
    watchdog_.rest();
    session_.finishOutput();
    session_.takeInterrupt(); // one that came too late
    if (evaluation.ok) {
        if (!evaluation.value.empty()) write(evaluation.value + "\n");
        std::fflush(stdout);
        return;
    }
    showError(evaluation, place);
    lastError_ = std::move(evaluation);
}

void Repl::showError(const Evaluation& evaluation, const std::string& place)
{
    using End = Evaluation::End;
    const std::string shownPlace = atTerminal_ ? "" : place;
    if (evaluation.end == End::stopped) {
        say(shownPlace + "stopped: " + watchdog_.reason());
    } else if (evaluation.end == End::cancelled) {
        say(atTerminal_ ? "\ninterrupted" : shownPlace + "interrupted"); // behind its "^C"
    } else if (!evaluation.handled) {
        say(shownPlace + "error: " + evaluation.error);
    }
    if (evaluation.end == End::stopped || evaluation.end == End::outOfMemory) {
        session_.collectGarbage();
    }
    if (atTerminal_ && !evaluation.calls.empty() && !std::exchange(toldOfCalls_, true)) {
        say("(,bt shows the calls that led to it)");
    }
}

/// False when the user wants to leave.
bool Repl::runCommand(std::string_view line)
{
    const std::size_t space = line.find(' ');
    const std::string_view name = line.substr(0, space);
    const std::string rest(space == line.npos ? std::string_view() : trimmed(line.substr(space)));
    if (name == ",quit") return false;
    if (name == ",help") {
        write(kHelp);
    } else if (name == ",doc" && !rest.empty()) {
        showDoc(rest);
    } else if (name == ",bt") {
        write(lastError_.ok ? "no error yet\n" : "error: " + lastError_.error + "\n");
        for (const std::string& call : callLines(lastError_)) write(call + "\n");
    } else if (name == ",time" && !rest.empty()) {
        measures_ = true;
        scanner_.add(rest, session_.typedLines());
        if (scanner_.isOpen()) entry_ = rest + "\n";
    } else if (name == ",draw") {
        draw(rest);
    } else {
        say("no such command: " + std::string(line) + " (,help tells what there is)");
    }
    std::fflush(stdout);
    return true;
}

void Repl::showDoc(const std::string& name)
{
    const std::vector<std::string> lines = session_.describe(name);
    if (lines.empty()) write("nothing is known of " + name + "\n");
    for (const std::string& line : lines) write(line + "\n");
}

void Repl::draw(std::string file)
{
    if (file.empty()) {
        std::error_code error;
        const auto folder = std::filesystem::temp_directory_path(error);
        file = (folder / ("orvald-" + std::to_string(getpid()) + ".svg")).string();
    }
    if (writePicture(file, options_, session_) == kWell) write(file + "\n");
}

} // namespace

int repl(const Options& options, Watchdog& watchdog)
{
    SessionOptions with = options.session;
    const std::vector<std::string> programs = takePrograms(options, with.arguments);
    if (!areFiles(programs) || !takeAnswers(options, with)) return kFileMissing;
    int status = kWell;
    const std::unique_ptr<Session> session = start(options, with, status);
    if (session == nullptr) return status;
    watchdog.rest();
    Repl console(*session, options, watchdog);
    for (const std::string& program : programs) {
        const auto load = [&] {
            Evaluation loaded = session->loadFile(program);
            loaded.value.clear(); // as of a program that is run
            return loaded;
        };
        console.evaluate(load, program + ": ");
    }
    for (const std::string& expression : options.expressions) {
        console.evaluate([&] { return session->eval(expression); }, "");
    }
    status = console.run();
    watchdog.restart();
    const int written = writeResults(options, *session);
    return status == kWell ? written : status;
}

} // namespace orvald::cli
