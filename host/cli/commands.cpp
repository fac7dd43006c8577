// SPDX-License-Identifier: LicenseRef-ORVALD
#include "commands.h"

#include "text/json.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace orvald::cli {
namespace {

namespace fs = std::filesystem;
using text::jsonText;

void sayCalls(const Evaluation& evaluation)
{
    for (const CallLine& call : evaluation.calls) {
        const std::string place =
            call.file.empty() ? "" : "   " + call.file + ":" + std::to_string(call.line);
        say("  in " + call.call + place);
    }
}

/// The exit status behind an error, and its message with the calls that led to it.
int report(const Session& session, const Evaluation& evaluation, Watchdog& watchdog)
{
    using End = Evaluation::End;
    if (evaluation.end == End::stopped) {
        say("stopped: " + watchdog.reason());
        sayCalls(evaluation);
        return watchdog.status();
    }
    if (const auto prompt = session.missingInput()) {
        say("input wanted: " + (prompt->empty() ? "(a prompt without text)" : *prompt));
        return kNoInput;
    }
    if (evaluation.end == End::cancelled) {
        say("interrupted");
        sayCalls(evaluation);
        return kInterrupted;
    }
    // The program's own *error* has told the user already.
    if (!evaluation.handled) {
        say("error: " + evaluation.error);
        sayCalls(evaluation);
    }
    if (evaluation.end == End::outOfMemory) return kMemoryLimit;
    return session.moduleFaulted() ? kModuleFault : kLispError;
}

/// A session with its drawing; the status in `status` when it cannot start.
std::unique_ptr<Session> start(const Options& options, const SessionOptions& with, int& status)
{
    if (!options.drawing.empty() && !isFile(options.drawing)) {
        say(options.drawing + ": no such file");
        status = kFileMissing;
        return nullptr;
    }
    auto session = std::make_unique<Session>(with);
    std::string problem = session->problem();
    if (!problem.empty()) {
        say(problem);
        status = session->moduleFaulted() ? kModuleFault : kFileMissing;
        return nullptr;
    }
    const bool open = options.drawing.empty() ? session->newDrawing(problem)
                                              : session->open(options.drawing, problem);
    if (!open) {
        say(problem);
        status = options.drawing.empty() ? kUsage : kNoDrawing;
        return nullptr;
    }
    return session;
}

bool readLines(const std::string& path, std::vector<std::string>& lines)
{
    std::ifstream in(path, std::ios::binary);
    for (std::string line; std::getline(in, line);) {
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(line);
    }
    return in.eof() && !in.bad();
}

bool readBytes(const std::string& path, std::string& bytes)
{
    std::ifstream in(path, std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(in), {});
    return in.is_open() && !in.bad();
}

/// Draws the current drawing; what the picture lacks is said, not an error.
int writePicture(const std::string& path, const Options& options, Session& session)
{
    std::string problem, remark;
    if (!session.picture(path, options.look, problem, remark)) {
        say(problem);
        return kNoOutput;
    }
    if (!remark.empty() && !options.session.quiet) say(remark);
    return kWell;
}

/// Writes what was asked for after a good run.
int writeResults(const Options& options, Session& session)
{
    std::string problem;
    if (!options.save.empty() && !session.save(options.save, problem)) {
        say(problem);
        return kNoOutput;
    }
    if (!options.picture.empty()) {
        const int status = writePicture(options.picture, options, session);
        if (status != kWell) return status;
    }
    return session.moduleFaulted() ? kModuleFault : kWell;
}

bool isProgram(const std::string& word)
{
    return word.size() > 4 && (word.ends_with(".lsp") || word.ends_with(".LSP"));
}

bool areFiles(const std::vector<std::string>& programs)
{
    for (const std::string& program : programs) {
        if (isFile(program)) continue;
        say(program + ": no such file");
        return false;
    }
    return true;
}

/// Programs, then expressions, up to the first error.
Evaluation evaluate(Session& session, const std::vector<std::string>& programs,
                    const std::vector<std::string>& expressions)
{
    Evaluation last;
    for (const std::string& program : programs) {
        if (last.ok) last = session.loadFile(program);
    }
    for (const std::string& expression : expressions) {
        if (last.ok) last = session.eval(expression);
    }
    return last;
}

} // namespace

bool isFile(const std::string& path)
{
    std::error_code error;
    return fs::exists(path, error) && !fs::is_directory(path, error);
}

void write(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void say(const std::string& line)
{
    std::fflush(stdout);
    std::fprintf(stderr, "%s\n", line.c_str());
}

int run(const Options& options, Watchdog& watchdog)
{
    std::vector<std::string> programs;
    std::size_t next = 0;
    while (next < options.words.size() && isProgram(options.words[next])) {
        programs.push_back(options.words[next++]);
    }
    SessionOptions with = options.session;
    with.arguments.assign(options.words.begin() + static_cast<std::ptrdiff_t>(next),
                          options.words.end());
    with.arguments.insert(with.arguments.end(), options.program.begin(), options.program.end());
    if (programs.empty() && options.expressions.empty()) {
        say("orvald run needs a program (FILE.lsp) or -e EXPR");
        return kUsage;
    }
    if (!areFiles(programs)) return kFileMissing;
    if (!options.answers.empty()) {
        with.answers.emplace();
        if (!readLines(options.answers, *with.answers)) {
            say(options.answers + ": cannot be read");
            return kFileMissing;
        }
    }

    int status = kWell;
    const std::unique_ptr<Session> session = start(options, with, status);
    if (session == nullptr) return status;
    const Evaluation last = evaluate(*session, programs, options.expressions);
    if (options.time && !session->command("kex_dump")) say("--time: the kernel is not loaded");
    session->finishOutput();
    if (!last.ok) return report(*session, last, watchdog);
    if (const std::size_t unused = session->unusedAnswers(); unused != 0) {
        say(options.answers + ": " + std::to_string(unused) + " answers were not asked for");
    }
    return writeResults(options, *session);
}

int eval(const Options& options, Watchdog& watchdog)
{
    if (options.words.empty() && options.expressions.empty()) {
        say("orvald eval needs an expression");
        return kUsage;
    }
    int status = kWell;
    const std::unique_ptr<Session> session = start(options, options.session, status);
    if (session == nullptr) return status;
    std::vector<std::string> expressions = options.words;
    expressions.insert(expressions.end(), options.expressions.begin(), options.expressions.end());
    for (const std::string& expression : expressions) {
        const Evaluation value = session->eval(expression);
        session->finishOutput();
        if (!value.ok) return report(*session, value, watchdog);
        if (!value.value.empty()) write(value.value + "\n");
    }
    return writeResults(options, *session);
}

int draw(const Options& options, Watchdog& watchdog)
{
    const auto& words = options.words;
    // Programs only where their graphics are wanted: a picture needs no kernel.
    const bool fits = words.size() == 2 || (options.overlay && words.size() > 2);
    if (!fits || (!options.overlay && !options.expressions.empty())) {
        say("orvald draw needs a drawing and a picture, and programs only with --overlay: "
            "orvald draw FILE.dxf PICTURE.svg [--overlay [PROGRAM.lsp ...] [-e EXPR]]");
        return kUsage;
    }
    const std::vector<std::string> programs(words.begin() + 2, words.end());
    if (!areFiles(programs)) return kFileMissing;
    Options here = options;
    here.drawing = words[0];
    SessionOptions with = options.session;
    if (programs.empty() && options.expressions.empty()) with.kernel.clear();
    int status = kWell;
    const std::unique_ptr<Session> session = start(here, with, status);
    if (session == nullptr) return status;
    const Evaluation last = evaluate(*session, programs, options.expressions);
    session->finishOutput();
    if (!last.ok) return report(*session, last, watchdog);
    return writePicture(words[1], options, *session);
}

int data(const Options& options, Watchdog&)
{
    if (options.words.size() != 1) {
        say("orvald data needs a data file: orvald data [--from-text TEXT] FILE.dex");
        return kUsage;
    }
    const std::string& file = options.words.front();
    const bool writes = !options.fromText.empty();
    const std::string& source = writes ? options.fromText : file;
    std::string bytes;
    if (!isFile(source) || !readBytes(source, bytes)) {
        say(source + (isFile(source) ? ": cannot be read" : ": no such file"));
        return kFileMissing;
    }
    int status = kWell;
    const std::unique_ptr<Session> session = start(Options(), options.session, status);
    if (session == nullptr) return status;
    std::string text, problem;
    if (writes) {
        if (session->dataFromText(bytes, fs::absolute(file).string(), problem)) return kWell;
        say(problem.empty() ? file + ": cannot be written" : source + ": " + problem);
        return problem.empty() ? kNoOutput : kNoDrawing;
    }
    const bool whole = session->dataToText(bytes, text, problem);
    write(text);
    if (whole) return kWell;
    say(file + ": " + problem + (text.empty() ? "" : "; the text is what could be read"));
    return kNoDrawing;
}

int functions(const Options& options, Watchdog&)
{
    Options here = options;
    int status = kWell;
    const std::unique_ptr<Session> session = start(here, options.session, status);
    if (session == nullptr) return status;
    const std::string word = options.words.empty() ? std::string() : options.words.front();
    std::size_t shown = 0, built = 0;
    std::string out;
    for (const FunctionLine& function : session->functions()) {
        if (function.name.find(word) == std::string::npos) continue;
        ++shown;
        if (function.built) ++built;
        if (options.json) {
            out += (shown == 1 ? "[\n" : ",\n");
            out += "  {\"name\": " + jsonText(function.name) +
                   ", \"arguments\": " + jsonText(function.arguments) +
                   ", \"result\": " + jsonText(function.result) +
                   ", \"built\": " + (function.built ? "true" : "false") + "}";
            continue;
        }
        out += "(" + function.name + (function.arguments.empty() ? "" : "  " + function.arguments) +
               ")";
        if (!function.result.empty()) out += " -> " + function.result;
        if (!function.built) out += "   [not built]";
        out += "\n";
    }
    if (options.json) out += shown == 0 ? "[]\n" : "\n]\n";
    write(out);
    if (!options.json) {
        say(std::to_string(shown) + " functions, " + std::to_string(built) + " of them built");
    }
    return kWell;
}

} // namespace orvald::cli
