// SPDX-License-Identifier: LicenseRef-ORVALD
// Calls into modules. Everything goes through the fence, and no exception of a module leaves it.
#include "application.h"

#include "document.h"
#include "fault_fence.h"
#include "host.h"
#include "resbuf/groups.h"
#include "value_chain.h"

#include <dlfcn.h>
#include <exception>
#include <filesystem>

namespace orvald {

using lisp::Value;

namespace {

std::u16string_view messageName(AcRx::AppMsgCode message)
{
    switch (message) {
    case AcRx::kInitAppMsg: return u"kInitAppMsg";
    case AcRx::kUnloadAppMsg: return u"kUnloadAppMsg";
    case AcRx::kLoadDwgMsg: return u"kLoadDwgMsg";
    case AcRx::kUnloadDwgMsg: return u"kUnloadDwgMsg";
    case AcRx::kInvkSubrMsg: return u"kInvkSubrMsg";
    case AcRx::kSaveMsg: return u"kSaveMsg";
    default: return u"a message of the host";
    }
}

} // namespace

Application::Application(std::string path, void* library)
    : path_(std::move(path)),
      pathText_(lisp::toUtf16(path_)),
      fileName_(std::filesystem::path(path_).filename().string()),
      library_(library),
      entryPoint_(reinterpret_cast<EntryPoint>(symbol("acrxEntryPoint")))
{
}

Application::~Application() { close(); }

bool Application::isObjectModule() const { return fileName_.ends_with(".dbx"); }

void* Application::symbol(const char* name) const
{
    return library_ == nullptr ? nullptr : dlsym(library_, name);
}

bool Application::close()
{
    if (library_ == nullptr || faulted_) return false;
    dlclose(library_);
    library_ = nullptr;
    entryPoint_ = nullptr;
    void* still = dlopen(path_.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NOLOAD);
    if (still == nullptr) return true;
    dlclose(still);
    return false;
}

template <typename Call>
bool Application::guarded(std::u16string_view what, Call&& call)
{
    Host::instance().tellChanges(); // what its reactors must know before it runs
    std::string how;
    Application* const caller = current_;
    CallFrame* const frame = CallFrame::innermost;
    const int runningBefore = running;
    OpenObjects& objects = Host::instance().openObjects();
    const int depth = objects.enterCall();
    const int signal = FaultFence::run([&] {
        const Scope scope(*this);
        try {
            call();
        } catch (const std::exception& exception) {
            how = std::string("exception (") + exception.what() + ")";
        } catch (...) {
            how = "exception";
        }
    });
    if (signal != 0) {
        // The jump skipped every scope between here and the fault.
        current_ = caller;
        CallFrame::innermost = frame;
        running = runningBefore;
        how = FaultFence::describe(signal);
    }
    for (const std::string& line : objects.leaveCall(depth))
        Host::instance().console().warning(fileName_ + ": " + line);
    if (how.empty()) return true;
    faulted_ = true;
    Host::instance().moduleFaulted(fileName_ + ": " + how + " in " + lisp::toUtf8(what));
    return false;
}

AcRx::AppRetCode Application::send(AcRx::AppMsgCode message, void* packet)
{
    if (entryPoint_ == nullptr) return AcRx::kRetError;
    AcRx::AppRetCode answer = AcRx::kRetError;
    const bool done = guarded(messageName(message), [&] { answer = entryPoint_(message, packet); });
    return done ? answer : AcRx::kRetError;
}

void Application::runCommand(void (*command)(), std::u16string_view name)
{
    guarded(name, command);
}

void Application::runReactor(const std::function<void()>& call, std::u16string_view name)
{
    guarded(name, call);
}

int Application::runRoute(int (*route)(), std::u16string_view name)
{
    int status = RSERR;
    guarded(name, [&] { status = route(); });
    return status;
}

ApplicationFunction& Application::function(int code)
{
    std::unique_ptr<ApplicationFunction>& place = functions_[code];
    if (place == nullptr) place = std::make_unique<ApplicationFunction>(*this, code);
    return *place;
}

Value ApplicationFunction::call(lisp::World& world, lisp::Args args)
{
    Host& host = Host::instance();
    if (host.tracing()) host.traceCall(*this, args);
    resbuf* chain = chainFromArguments(world, args, host.chainForm());
    const Document::RunLock lock(Document::of(world));
    CallFrame frame{*this, world, chain, lisp::Root(world), CallFrame::innermost};
    resbuf* const protectedBefore = protectChain(chain);
    CallFrame::innermost = &frame;
    int status = RSERR;
    if (route_ != nullptr) {
        status = owner_.runRoute(route_, name_);
    } else if (owner_.send(AcRx::kInvkSubrMsg) == AcRx::kRetOK) {
        status = RSRSLT;
    }
    CallFrame::innermost = frame.outer;
    protectChain(protectedBefore);
    releaseChain(chain);
    if (status != RSRSLT) world.raise(u"ADS request error");
    return frame.result.value;
}

} // namespace orvald
