// SPDX-License-Identifier: LicenseRef-ORVALD
#include "host.h"

#include "document.h"
#include "dxf/dxf.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>

namespace orvald {
namespace {

namespace fs = std::filesystem;

Host* theHost = nullptr;
volatile std::sig_atomic_t interrupted = 0;
std::atomic<bool> stopping = false;

/// A file, not a folder; nothing that the system refuses to look at.
bool isFile(const fs::path& path)
{
    std::error_code error;
    return fs::is_regular_file(path, error);
}

} // namespace

Host::Host() : documentManager_(*this)
{
    theHost = this;
    systemRegistry_.atPut(u"ACAD_REGISTERED_COMMANDS", &commands_);
}

Host::~Host()
{
    while (!documents_.empty()) closeDocument(*documents_.back());
    linker_.unloadAll();
    theHost = nullptr;
}

Host& Host::instance() { return *theHost; }

Document* Host::currentOfAny() { return theHost == nullptr ? nullptr : theHost->current_; }

void Host::setCurrent(Document& document)
{
    if (current_ == &document) return;
    documentManager_.tellDeactivation();
    current_ = &document;
}

void Host::tellChanges()
{
    for (const auto& document : documents_) document->tellChanges();
}

void Host::open(std::unique_ptr<Document> document)
{
    documents_.push_back(std::move(document));
    setCurrent(*documents_.back());
    linker_.broadcast(AcRx::kLoadDwgMsg, *current_);
}

Document& Host::newDocument()
{
    open(std::make_unique<Document>(*this, drawing::Drawing::createNew(), std::string()));
    return *current_;
}

Document* Host::openDocument(const std::string& path, std::string& problem)
{
    dxf::Loaded loaded = dxf::load(path);
    for (const dxf::Warning& warning : loaded.warnings) {
        const std::string place =
            warning.line == 0 ? std::string() : "line " + std::to_string(warning.line) + ": ";
        console_.message(path + ": " + place + warning.text);
    }
    if (loaded.drawing == nullptr) {
        problem = loaded.error.message();
        return nullptr;
    }
    open(std::make_unique<Document>(*this, std::move(loaded.drawing), path));
    return current_;
}

void Host::closeDocument(Document& document)
{
    if (current_ == &document) documentManager_.tellDeactivation();
    if (document.isModified()) linker_.broadcast(AcRx::kQuitMsg, document);
    linker_.broadcast(AcRx::kUnloadDwgMsg, document, true);
    const auto place = std::ranges::find_if(
        documents_, [&](const auto& other) { return other.get() == &document; });
    document.goodbye();
    const std::unique_ptr<Document> last = std::move(*place);
    documents_.erase(place);
    if (current_ == last.get()) current_ = documents_.empty() ? nullptr : documents_.back().get();
}

Document* Host::documentOf(const drawing::Drawing& drawing) const
{
    for (const auto& document : documents_)
        if (&document->drawing() == &drawing) return document.get();
    return nullptr;
}

Host::CurrentScope::CurrentScope(Document& document) : before_(instance().current_)
{
    instance().current_ = &document;
}

Host::CurrentScope::~CurrentScope()
{
    // The document of before may have been closed meanwhile.
    Host& host = instance();
    const bool open =
        before_ == nullptr ||
        std::ranges::any_of(host.documents_, [&](const auto& d) { return d.get() == before_; });
    if (open) host.current_ = before_;
}

void Host::interrupt() { interrupted = 1; }

bool Host::takeInterrupt()
{
    if (interrupted == 0) return false;
    interrupted = 0;
    return true;
}

void Host::setStop(bool on) { stopping = on; }

bool Host::mustStop() { return stopping.load(std::memory_order_relaxed); }

std::string Host::programFolder()
{
    Dl_info info = {};
    if (dladdr(reinterpret_cast<const void*>(&Host::programFolder), &info) == 0) return {};
    std::error_code error;
    const fs::path file = fs::canonical(info.dli_fname, error);
    return file.parent_path().string();
}

std::string Host::findFile(const std::string& name) const
{
    if (name.empty()) return {};
    const fs::path wanted(name);
    std::vector<fs::path> folders;
    if (wanted.has_parent_path()) {
        folders = {""};
    } else {
        folders = {"."};
        if (current_ != nullptr && !current_->path().empty()) {
            folders.push_back(fs::path(current_->path()).parent_path());
        }
        const char* support = std::getenv("ORVALD_SUPPORT");
        for (std::string_view rest = support == nullptr ? "" : support; !rest.empty();) {
            const std::size_t end = rest.find(':');
            if (const std::string_view folder = rest.substr(0, end); !folder.empty()) {
                folders.emplace_back(folder);
            }
            rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
        }
        if (const char* home = std::getenv("KEX_HOME")) folders.emplace_back(home);
        folders.emplace_back(programFolder());
    }
    for (const fs::path& folder : folders) {
        const fs::path candidate = folder / wanted;
        if (!isFile(candidate)) continue;
        std::error_code error;
        const fs::path full = fs::absolute(candidate, error);
        return (error ? candidate : full).lexically_normal().string();
    }
    return {};
}

void Host::traceCall(const ApplicationFunction& function, lisp::Args args)
{
    if (current_ == nullptr) return;
    std::u16string line = u"(" + std::u16string(function.name());
    for (const lisp::Value value : args.all()) line += u" " + current_->world().prin1(value);
    console_.warning(lisp::toUtf8(line + u")"));
}

void Host::moduleFaulted(const std::string& what)
{
    anyModuleFaulted_ = true;
    console_.warning(what);
}

void Host::keepFaulted(std::unique_ptr<Application> application)
{
    faulted_.push_back(std::move(application));
}

} // namespace orvald
