// SPDX-License-Identifier: LicenseRef-ORVALD
// The one host of the process: open documents, loaded modules, and everything that the C functions
// of the host's interface need to find from nowhere.
#pragma once

#include "application.h"
#include "command_stack.h"
#include "console.h"
#include "document_manager.h"
#include "dynamic_linker.h"
#include "fault_fence.h"
#include "input_source.h"
#include "open_objects.h"
#include "registries.h"
#include "selection_sets.h"
#include "value_chain.h"

#include <list>
#include <memory>
#include <string>
#include <vector>

namespace orvald {

class Document;

class Host
{
public:
    Host();
    /// Closes the documents, then unloads the modules.
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    /// The host; there is exactly one while any of its interface's functions may be called.
    static Host& instance();
    /// The document that is current; null where there is no host either. Safe in a signal handler.
    static Document* currentOfAny();

    Console& console() { return console_; }
    DynamicLinker& linker() { return linker_; }
    CommandStack& commands() { return commands_; }
    ObjectDictionary& services() { return services_; }
    ObjectDictionary& systemRegistry() { return systemRegistry_; }
    /// What programs keep between their runs, as long as the host lives.
    SettingsTree& settings() { return settings_; }
    ActiveObjects& activeObjects() { return activeObjects_; }
    SelectionSets& selectionSets() { return selectionSets_; }
    OpenObjects& openObjects() { return openObjects_; }
    DocumentManager& documentManager() { return documentManager_; }

    // -- documents
    /// A document with a new drawing, current from now on; the modules are told.
    Document& newDocument();
    /// A document with the drawing of a file; null, with the reason in `problem`, when it cannot be
    /// loaded. Warnings of the loader go to the console.
    Document* openDocument(const std::string& path, std::string& problem);
    /// Closes a document without saving it; the modules are told first.
    void closeDocument(Document& document);
    Document* current() const { return current_; }
    /// The document of a drawing, null when it has none.
    Document* documentOf(const drawing::Drawing& drawing) const;
    template <typename Visit>
    void forEachDocument(Visit&& visit)
    {
        for (const auto& document : documents_) visit(*document);
    }
    /// Makes a document current for a block.
    class CurrentScope
    {
    public:
        explicit CurrentScope(Document& document);
        ~CurrentScope();
        CurrentScope(const CurrentScope&) = delete;
        CurrentScope& operator=(const CurrentScope&) = delete;

    private:
        Document* before_;
    };
    /// Another document becomes current; the reactors are told before.
    void setCurrent(Document& document);
    /// Tells the reactors of all drawings what has changed.
    void tellChanges();

    // -- files
    /// Full path of `name` on the search path: as it stands, the current folder, the folder of the
    /// current drawing, the folders of ORVALD_SUPPORT, the home folder, the program's folder. A
    /// name with a folder is looked for only there. Empty when there is none.
    std::string findFile(const std::string& name) const;
    /// The same for a module.
    std::string findModule(const std::string& name) const { return findFile(name); }
    /// Folder of the program and its modules.
    static std::string programFolder();

    // -- the user
    InputSource& input() { return input_; }
    /// What the program was called with, for (argv).
    const std::vector<std::string>& programArguments() const { return programArguments_; }
    void setProgramArguments(std::vector<std::string> arguments)
    {
        programArguments_ = std::move(arguments);
    }
    /// Asks the running LISP program to stop, from a signal handler.
    static void interrupt();
    /// True once after interrupt().
    bool takeInterrupt();
    /// Ends the running LISP program, whatever it catches, and any further one until it is taken
    /// back; from any thread.
    static void setStop(bool on);
    static bool mustStop();

    /// Bytes that the LISP heap of a document may take; for documents that are opened later.
    std::size_t heapLimit() const { return heapLimit_; }
    void setHeapLimit(std::size_t limit) { heapLimit_ = limit; }

    // -- calls into modules
    ChainForm chainForm() const { return chainForm_; }
    void setChainForm(ChainForm form) { chainForm_ = form; }
    bool tracing() const { return tracing_; }
    void setTracing(bool on) { tracing_ = on; }
    void traceCall(const ApplicationFunction& function, lisp::Args args);
    /// A module faulted: said to the user and remembered for the exit status.
    void moduleFaulted(const std::string& what);
    bool anyModuleFaulted() const { return anyModuleFaulted_; }
    /// A faulted module is never unmapped: its state is unknown.
    void keepFaulted(std::unique_ptr<Application> application);

private:
    void open(std::unique_ptr<Document> document);

    Console console_;
    InputSource input_;
    std::vector<std::string> programArguments_;
    FaultFence fence_;
    ObjectDictionary services_, systemRegistry_;
    SettingsTree settings_;
    ActiveObjects activeObjects_;
    CommandStack commands_;
    SelectionSets selectionSets_;
    OpenObjects openObjects_;
    DocumentManager documentManager_;
    std::list<std::unique_ptr<Document>> documents_;
    Document* current_ = nullptr;
    std::vector<std::unique_ptr<Application>> faulted_;
    DynamicLinker linker_;
    ChainForm chainForm_;
    std::size_t heapLimit_ = std::size_t{512} << 20;
    bool tracing_ = false;
    bool anyModuleFaulted_ = false;
};

} // namespace orvald
