// SPDX-License-Identifier: LicenseRef-ORVALD
#include "command_support.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace orvald::cli {
namespace {

bool readLines(const std::string& path, std::vector<std::string>& lines)
{
    std::ifstream in(path, std::ios::binary);
    for (std::string line; std::getline(in, line);) {
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(line);
    }
    return in.eof() && !in.bad();
}

bool isProgram(const std::string& word)
{
    return word.size() > 4 && (word.ends_with(".lsp") || word.ends_with(".LSP"));
}

} // namespace

bool isFile(const std::string& path)
{
    std::error_code error;
    return std::filesystem::exists(path, error) && !std::filesystem::is_directory(path, error);
}

void write(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void say(const std::string& line)
{
    std::fflush(stdout);
    std::fprintf(stderr, "%s\n", line.c_str());
}

std::vector<std::string> callLines(const Evaluation& evaluation)
{
    std::vector<std::string> lines;
    for (const CallLine& call : evaluation.calls) {
        lines.push_back("  in " + call.call);
        if (call.file.empty()) continue;
        lines.back() += "   " + call.file + ":" + std::to_string(call.line);
    }
    return lines;
}

void sayCalls(const Evaluation& evaluation)
{
    for (const std::string& line : callLines(evaluation)) say(line);
}

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

bool areFiles(const std::vector<std::string>& programs)
{
    for (const std::string& program : programs) {
        if (isFile(program)) continue;
        say(program + ": no such file");
        return false;
    }
    return true;
}

std::vector<std::string> takePrograms(const Options& options, std::vector<std::string>& arguments)
{
    std::vector<std::string> programs;
    std::size_t next = 0;
    while (next < options.words.size() && isProgram(options.words[next])) {
        programs.push_back(options.words[next++]);
    }
    arguments.assign(options.words.begin() + static_cast<std::ptrdiff_t>(next),
                     options.words.end());
    arguments.insert(arguments.end(), options.program.begin(), options.program.end());
    return programs;
}

bool takeAnswers(const Options& options, SessionOptions& with)
{
    if (options.answers.empty()) return true;
    with.answers.emplace();
    if (readLines(options.answers, *with.answers)) return true;
    say(options.answers + ": cannot be read");
    return false;
}

} // namespace orvald::cli
