// SPDX-License-Identifier: LicenseRef-ORVALD
// One loaded module: its messages, its LISP functions, and what the host must know to unload it.
#pragma once

#include "hostapi/resbuf.h"
#include "hostapi/rx.h"
#include "lisp/world.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace orvald {

class Application;

/// A function code of an application, as the value of LISP symbols in any number of documents.
class ApplicationFunction final : public lisp::ExternalFunction
{
public:
    ApplicationFunction(Application& owner, int code) : owner_(owner), code_(code) {}
    lisp::Value call(lisp::World& world, lisp::Args args) override;
    std::u16string_view name() const override { return name_; }
    int code() const { return code_; }
    Application& owner() const { return owner_; }
    void setName(std::u16string_view name) { name_ = name; }
    void setRoute(int (*route)()) { route_ = route; }

private:
    Application& owner_;
    int code_;
    int (*route_)() = nullptr; // null: the call goes out as kInvkSubrMsg
    std::u16string name_;      // upper case, as last defined
};

class Application
{
public:
    /// `library` comes from dlopen and is closed by close().
    Application(std::string path, void* library);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    const std::string& path() const { return path_; }
    const std::u16string& pathText() const { return pathText_; }
    const std::string& fileName() const { return fileName_; } // without folder
    /// .dbx modules get no messages about documents.
    bool isObjectModule() const;

    /// Sends a message. A fault or an exception in the module is reported and counts as kRetError;
    /// the application is then marked as faulted.
    AcRx::AppRetCode send(AcRx::AppMsgCode message, void* packet = nullptr);
    /// Runs a command's function behind the same fence.
    void runCommand(void (*command)(), std::u16string_view name);
    /// Runs a route of a LISP function behind the fence: its status, RSERR after a fault.
    int runRoute(int (*route)(), std::u16string_view name);
    /// Calls a reactor of the application behind the fence.
    void runReactor(const std::function<void()>& call, std::u16string_view name);
    bool faulted() const { return faulted_; }

    ApplicationFunction& function(int code);
    const std::map<int, std::unique_ptr<ApplicationFunction>>& functions() const
    {
        return functions_;
    }
    /// A symbol that the module exports, null when it has none of that name.
    void* symbol(const char* name) const;
    /// Unmaps the module; a module that faulted stays mapped, as its state is unknown. True when it
    /// is really gone from memory.
    bool close();

    bool locked = true; // until unlockApplication
    bool manyDocuments = false;
    int references = 1; // loadModule calls less unloadModule calls
    int running = 0;    // calls into it that have not returned

    /// The application whose code runs innermost, null in the host's own code.
    static Application* current() { return current_; }
    /// Makes an application the current one for a block.
    class Scope
    {
    public:
        explicit Scope(Application& application) : outer_(current_)
        {
            current_ = &application;
            ++application.running;
        }
        ~Scope()
        {
            --current_->running;
            current_ = outer_;
        }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        Application* outer_;
    };

private:
    /// False after a fault or an exception, which is then reported; `what` names the code that ran.
    template <typename Call>
    bool guarded(std::u16string_view what, Call&& call);

    using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);
    static inline Application* current_ = nullptr;

    std::string path_;
    std::u16string pathText_;
    std::string fileName_;
    void* library_;
    EntryPoint entryPoint_;
    bool faulted_ = false;
    std::map<int, std::unique_ptr<ApplicationFunction>> functions_;
};

/// One running external function, innermost first.
struct CallFrame
{
    ApplicationFunction& function;
    lisp::World& world;
    resbuf* arguments;
    lisp::Root result;
    CallFrame* outer;

    /// The innermost running call, null when there is none.
    static inline CallFrame* innermost = nullptr;
};

} // namespace orvald
