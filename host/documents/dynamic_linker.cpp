// SPDX-License-Identifier: LicenseRef-ORVALD
#include "dynamic_linker.h"

#include "document.h"
#include "host.h"

#include <algorithm>
#include <dlfcn.h>
#include <filesystem>
#include <ranges>

namespace orvald {

Application* DynamicLinker::find(std::string_view file) const
{
    const std::string wanted = std::filesystem::path(file).filename().string();
    for (const auto& application : applications_) {
        const std::string& name = application->fileName();
        const bool sameStem =
            name.size() > wanted.size() && name.starts_with(wanted) && name[wanted.size()] == '.';
        if (name == wanted || sameStem) return application.get();
    }
    return nullptr;
}

bool DynamicLinker::loadModule(const ACHAR* file, bool print, bool asCommand)
{
    reason_.clear();
    const std::string name = file == nullptr ? std::string() : lisp::toUtf8(file);
    Console& console = Host::instance().console();
    if (Application* loaded = find(name); loaded != nullptr && !name.empty()) {
        if (asCommand) {
            reason_ = loaded->fileName() + " is already loaded.";
            if (print) console.message(reason_);
            return false;
        }
        ++loaded->references;
        return true;
    }
    const std::string path = Host::instance().findModule(name);
    if (path.empty()) reason_ = name + ": module not found";
    const bool done = !path.empty() && load(path);
    if (!done && print) console.warning(name + " failed to load: " + reason_);
    return done;
}

bool DynamicLinker::load(const std::string& path)
{
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        reason_ = dlerror();
        return false;
    }
    applications_.push_back(std::make_unique<Application>(path, library));
    Application& application = *applications_.back();
    if (application.symbol("acrxEntryPoint") == nullptr) {
        reason_ = "no acrxEntryPoint in " + path;
        drop(application);
        return false;
    }
    if (application.send(AcRx::kInitAppMsg, &application) != AcRx::kRetOK) {
        reason_ = application.faulted() ? "it faulted while loading" : "it refused to start";
        drop(application);
        return false;
    }
    if (application.isObjectModule()) return true;
    Host::instance().forEachDocument([&](Document& document) {
        const Host::CurrentScope current(document);
        if (application.send(AcRx::kLoadDwgMsg) != AcRx::kRetOK) {
            reason_ = "it refused an open drawing";
        }
    });
    if (reason_.empty()) return true;
    unload(application);
    return false;
}

bool DynamicLinker::unloadModule(const ACHAR* file, bool)
{
    reason_.clear();
    const std::string name = file == nullptr ? std::string() : lisp::toUtf8(file);
    Application* application = find(name);
    if (application == nullptr || name.empty()) {
        reason_ = name + " is not loaded.";
        return false;
    }
    if (application->references > 1) {
        --application->references;
        return true;
    }
    return unload(*application);
}

bool DynamicLinker::unload(Application& application)
{
    const auto refuse = [&](const char* why) {
        reason_ = application.fileName() + " " + why;
        return false;
    };
    if (application.running > 0) return refuse("is running and cannot be unloaded.");
    if (application.locked) return refuse("is locked and cannot be unloaded.");
    const auto tell = [&](AcRx::AppMsgCode message) {
        if (application.isObjectModule()) return;
        Host::instance().forEachDocument([&](Document& document) {
            const Host::CurrentScope current(document);
            const Document::RunLock lock(document);
            application.send(message);
        });
    };
    tell(AcRx::kUnloadDwgMsg);
    if (application.send(AcRx::kUnloadAppMsg) != AcRx::kRetOK && !application.faulted()) {
        tell(AcRx::kLoadDwgMsg); // it stays, so its documents get their functions back
        return refuse("refuses to be unloaded.");
    }
    drop(application);
    return true;
}

void DynamicLinker::drop(Application& application)
{
    Host& host = Host::instance();
    // What the module did not take back itself must not be called any more.
    host.commands().removeOf(application);
    host.documentManager().forget(application);
    host.forEachDocument([&](Document& document) { document.forget(application); });
    const auto place = std::ranges::find_if(
        applications_, [&](const auto& other) { return other.get() == &application; });
    std::unique_ptr<Application> last = std::move(*place);
    applications_.erase(place);
    if (last->faulted()) {
        host.keepFaulted(std::move(last));
    } else if (!last->close()) {
        host.console().message(last->fileName() + " stays in memory after unloading.");
    }
}

bool DynamicLinker::unlockApplication(void* packet)
{
    auto* application = static_cast<Application*>(packet);
    const bool known = std::ranges::any_of(
        applications_, [&](const auto& other) { return other.get() == application; });
    if (known) application->locked = false;
    return known;
}

void DynamicLinker::broadcast(AcRx::AppMsgCode message, Document& document, bool reversed)
{
    const Host::CurrentScope current(document);
    const Document::RunLock lock(document);
    // A handler may load or unload other modules: the list is taken as it stands now.
    std::vector<Application*> receivers;
    for (const auto& application : applications_) {
        if (!application->isObjectModule()) receivers.push_back(application.get());
    }
    if (reversed) std::ranges::reverse(receivers);
    for (Application* receiver : receivers) {
        const bool alive = std::ranges::any_of(
            applications_, [&](const auto& other) { return other.get() == receiver; });
        if (alive) receiver->send(message);
    }
}

void DynamicLinker::unloadAll()
{
    while (!applications_.empty()) {
        Application& last = *applications_.back();
        last.locked = false;
        last.references = 1;
        if (!unload(last)) drop(last);
    }
}

} // namespace orvald
