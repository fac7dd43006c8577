// SPDX-License-Identifier: LicenseRef-ORVALD
#include "session_state.h"

#include "hostapi/headless.h"
#include "picture/picture.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <malloc.h>
#include <pthread.h>

namespace orvald {
namespace {

using lisp::toUtf16;
using lisp::toUtf8;

/// Room for recursion in LISP programs; only touched pages cost memory.
constexpr std::size_t kLispStack = std::size_t{256} << 20;

Evaluation evaluationOf(lisp::World& world, const lisp::Outcome& outcome)
{
    Evaluation result;
    result.ok = outcome.ok();
    result.handled = outcome.handled;
    if (outcome.ok()) {
        result.value = toUtf8(world.prin1(outcome.value));
        return result;
    }
    const lisp::LispError& error = *outcome.error;
    result.error = toUtf8(error.message);
    using Sort = lisp::LispError::Sort;
    result.end = error.sort == Sort::cancelled     ? Evaluation::End::cancelled
                 : error.sort == Sort::stopped     ? Evaluation::End::stopped
                 : error.sort == Sort::outOfMemory ? Evaluation::End::outOfMemory
                 : error.sort == Sort::exit        ? Evaluation::End::left
                                                   : Evaluation::End::error;
    for (const lisp::CallPlace& place : error.calls) {
        result.calls.push_back({toUtf8(place.call), place.file, place.line});
    }
    return result;
}

/// A system variable from the command line: a number when the text is one, else a text.
bool setVariable(Document& document, const std::string& name, const std::string& text)
{
    const auto set = [&](resbuf& value) {
        return document.variables().set(toUtf16(name), value) == SystemVariables::Answer::done;
    };
    resbuf value = {};
    char* end = nullptr;
    const long whole = std::strtol(text.c_str(), &end, 10);
    if (end != text.c_str() && *end == 0) {
        value.restype = RTLONG;
        value.resval.rlong = static_cast<std::int32_t>(whole);
        if (set(value)) return true;
    }
    value.restype = RTREAL;
    value.resval.rreal = std::strtod(text.c_str(), &end);
    if (end != text.c_str() && *end == 0 && set(value)) return true;
    std::u16string units = toUtf16(text);
    value.restype = RTSTR;
    value.resval.rstring = units.data();
    return set(value);
}

} // namespace

Evaluation Session::State::evaluate(const std::function<lisp::Outcome(lisp::World&)>& run)
{
    host.console().takeFailure();
    lisp::World& world = current().world();
    current().drawing().journal().step(); // U takes back what this evaluation does
    Evaluation result = evaluationOf(world, run(world));
    result.failure = toUtf8(host.console().takeFailure());
    return result;
}

bool Session::State::setVariables(std::string& reason)
{
    for (const auto& [name, value] : variables) {
        if (setVariable(current(), name, value)) continue;
        reason = "system variable " + name + " cannot be set to \"" + value + "\"";
        return false;
    }
    return true;
}

Session::Session(const SessionOptions& options) : state_(std::make_unique<State>())
{
    if (!options.home.empty()) setenv("KEX_HOME", options.home.c_str(), 1);
    Host& host = state_->host;
    host.console().setLevel(options.quiet     ? Console::Level::quiet
                            : options.verbose ? Console::Level::verbose
                                              : Console::Level::normal);
    host.console().setBoxAnswer(options.boxesOk);
    host.setTracing(options.trace);
    host.setChainForm({options.dotInMiddle, options.longIntegers});
    host.setProgramArguments(options.arguments);
    if (options.heapLimit != 0) host.setHeapLimit(options.heapLimit);
    if (options.answers) host.input().setAnswers(*options.answers);
    state_->variables = options.variables;
    std::vector<std::string> modules = options.modules;
    if (!options.kernel.empty()) modules.insert(modules.begin(), options.kernel);
    for (const std::string& module : modules) {
        std::string reason;
        if (loadModule(module, reason)) continue;
        if (!state_->problem.empty()) state_->problem += '\n';
        state_->problem += reason;
    }
}

Session::~Session() = default;

const std::string& Session::problem() const { return state_->problem; }

bool Session::open(const std::string& path, std::string& problem)
{
    return state_->host.openDocument(path, problem) != nullptr && state_->setVariables(problem);
}

bool Session::newDrawing(std::string& problem)
{
    state_->host.newDocument();
    return state_->setVariables(problem);
}

void Session::closeCurrent()
{
    if (Document* current = state_->host.current()) state_->host.closeDocument(*current);
}

int Session::documents() const
{
    int count = 0;
    state_->host.forEachDocument([&](Document&) { ++count; });
    return count;
}

bool Session::save(const std::string& path, std::string& problem)
{
    problem = state_->current().save(path);
    return problem.empty();
}

bool Session::picture(const std::string& path, const PictureOptions& wanted, std::string& problem,
                      std::string& remark)
{
    picture::Options options;
    options.width = wanted.width;
    options.height = wanted.height;
    options.margin = wanted.margin;
    options.background = wanted.dark ? picture::Background::dark : picture::Background::light;
    options.lineWeights = wanted.lineWeights;
    options.layout = wanted.layout;
    if (wanted.window) {
        const auto& [left, bottom, right, top] = *wanted.window;
        options.window = {left, bottom, right, top};
    }
    if (wanted.overlay) {
        for (const TemporaryVector& vector : state_->current().graphics().vectors()) {
            picture::OverlaySegment segment;
            std::copy_n(vector.from, 3, segment.from);
            std::copy_n(vector.to, 3, segment.to);
            segment.colour = vector.colour;
            segment.dashed = vector.dashed;
            options.overlay.push_back(segment);
        }
    }
    picture::Summary summary;
    if (!picture::savePicture(state_->current().drawing(), path, options, problem, &summary))
        return false;
    remark.clear();
    for (const auto& [kind, count] : summary.notDrawn)
        remark += (remark.empty() ? "not drawn: " : ", ") + std::to_string(count) + ' ' + kind;
    if (!summary.complete) remark += remark.empty() ? "drawn in part" : "; drawn in part";
    if (!remark.empty()) remark.insert(0, path + ": ");
    return true;
}

Evaluation Session::eval(std::string_view text)
{
    return state_->evaluate([&](lisp::World& world) { return world.evalText(toUtf16(text)); });
}

Evaluation Session::loadFile(const std::string& path)
{
    return state_->evaluate([&](lisp::World& world) { return world.loadFile(path); });
}

bool Session::command(const std::string& name)
{
    const CommandStack::Command* command = state_->host.commands().find(toUtf16(name));
    if (command == nullptr) return false;
    runCommand(state_->host.current(), *command);
    return true;
}

bool Session::loadModule(const std::string& file, std::string& reason)
{
    DynamicLinker& linker = state_->host.linker();
    if (linker.loadModule(toUtf16(file).c_str(), false, false)) return true;
    reason = file + ": " + linker.reason();
    return false;
}

bool Session::unloadModule(const std::string& file, std::string& reason)
{
    DynamicLinker& linker = state_->host.linker();
    if (linker.unloadModule(toUtf16(file).c_str(), false)) return true;
    reason = linker.reason();
    return false;
}

std::vector<std::string> Session::modules() const
{
    std::vector<std::string> names;
    for (const auto& application : state_->host.linker().applications()) {
        names.push_back(application->fileName());
    }
    return names;
}

namespace {

/// What the first module exports under a name; null when none does.
template <class Function>
Function exported(Host& host, const char* name)
{
    for (const auto& application : host.linker().applications()) {
        if (void* symbol = application->symbol(name)) return reinterpret_cast<Function>(symbol);
    }
    return nullptr;
}

constexpr const char* kNoDataModule = "no module that knows data files is loaded";

} // namespace

bool Session::dataToText(std::string_view bytes, std::string& text, std::string& problem)
{
    problem = kNoDataModule;
    const auto convert = exported<HostDataToText>(state_->host, HOST_DATA_TO_TEXT);
    return convert != nullptr && convert(bytes, text, problem);
}

bool Session::dataFromText(std::string_view text, const std::string& file, std::string& problem)
{
    problem = kNoDataModule;
    const auto convert = exported<HostDataFromText>(state_->host, HOST_DATA_FROM_TEXT);
    return convert != nullptr && convert(text, file, problem);
}

std::vector<FunctionLine> Session::functions() const
{
    std::vector<FunctionLine> lines;
    for (const auto& application : state_->host.linker().applications()) {
        const auto describe =
            reinterpret_cast<HostDescribeFunction>(application->symbol(HOST_DESCRIBE_FUNCTION));
        HostFunctionText text{};
        for (int code = 0; describe != nullptr && describe(code, &text); ++code) {
            lines.push_back(
                {toUtf8(text.name), toUtf8(text.arguments), toUtf8(text.result), text.built});
        }
    }
    return lines;
}

std::optional<std::string> Session::typedLine() { return InputSource::typedLine(); }

int Session::typedLines() const { return InputSource::typedLines(); }

void Session::collectGarbage()
{
    state_->current().world().collectGarbage();
    malloc_trim(0);
}

bool Session::takeInterrupt() { return state_->host.takeInterrupt(); }

int Session::alerts() const { return state_->host.console().alerts(); }

MeterState Session::meter() const
{
    const ProgressMeter::State state = state_->host.console().meter().state();
    return {state.isShown, state.label, state.low, state.high, state.position, state.movements};
}

bool Session::moduleFaulted() const { return state_->host.anyModuleFaulted(); }

std::optional<std::string> Session::missingInput() const
{
    const auto& missing = state_->host.input().missing();
    return missing ? std::optional(toUtf8(*missing)) : std::nullopt;
}

std::size_t Session::unusedAnswers() const { return state_->host.input().unused(); }

void Session::finishOutput() { state_->host.console().finish(); }

void Session::interrupt() { Host::interrupt(); }

void Session::setStop(bool on) { Host::setStop(on); }

std::size_t Session::describeCalls(char* text, std::size_t room) noexcept
{
    Document* document = Host::currentOfAny();
    return document == nullptr ? 0 : document->world().describeCalls(text, room);
}

int runOnLispThread(const std::function<int()>& body)
{
    struct Run
    {
        const std::function<int()>& body;
        int result = 0;
        std::exception_ptr thrown;
    } run{body, 0, nullptr};
    const auto start = [](void* argument) -> void* {
        auto& mine = *static_cast<Run*>(argument);
        try {
            mine.result = mine.body();
        } catch (...) {
            mine.thrown = std::current_exception();
        }
        return nullptr;
    };
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, kLispStack);
    pthread_t thread{};
    const int failed = pthread_create(&thread, &attributes, start, &run);
    pthread_attr_destroy(&attributes);
    if (failed != 0) return body(); // no room for a thread: on the stack at hand
    pthread_join(thread, nullptr);
    if (run.thrown) std::rethrow_exception(run.thrown);
    return run.result;
}

} // namespace orvald
