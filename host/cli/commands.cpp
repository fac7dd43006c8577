// SPDX-License-Identifier: LicenseRef-ORVALD
#include "commands.h"

#include "command_support.h"
#include "text/json.h"

#include <filesystem>
#include <fstream>

namespace orvald::cli {
namespace {

namespace fs = std::filesystem;
using text::jsonText;

bool readBytes(const std::string& path, std::string& bytes)
{
    std::ifstream in(path, std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(in), {});
    return in.is_open() && !in.bad();
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

int run(const Options& options, Watchdog& watchdog)
{
    SessionOptions with = options.session;
    const std::vector<std::string> programs = takePrograms(options, with.arguments);
    if (programs.empty() && options.expressions.empty()) {
        say("orvald run needs a program (FILE.lsp) or -e EXPR");
        return kUsage;
    }
    if (!areFiles(programs) || !takeAnswers(options, with)) return kFileMissing;

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
        out += function.text() + "\n";
    }
    if (options.json) out += shown == 0 ? "[]\n" : "\n]\n";
    write(out);
    if (!options.json) {
        say(std::to_string(shown) + " functions, " + std::to_string(built) + " of them built");
    }
    return kWell;
}

} // namespace orvald::cli
