// SPDX-License-Identifier: LicenseRef-ORVALD
// An open document: a drawing, its LISP world, its locks and what belongs to the session only.
#pragma once

#include "drawing/entity_functions.h"
#include "hostapi/documents.h"
#include "lisp/world.h"
#include "system_variables.h"
#include "temporary_graphics.h"
#include "user_state.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace orvald {

class Application;
class CommandLine;
class Database;
class Host;

class Document final : public AcApDocument, private lisp::WorldHost
{
public:
    /// `path`: empty for a drawing that was never saved.
    Document(Host& host, std::unique_ptr<drawing::Drawing> drawing, std::string path);
    ~Document() override;
    /// The document that a LISP world belongs to.
    static Document& of(lisp::World& world) { return static_cast<Document&>(world.host()); }

    drawing::Drawing& drawing() { return *drawing_; }
    drawing::EntityFunctions& entities() { return entities_; }
    lisp::World& world() { return world_; }
    SystemVariables& variables() { return variables_; }
    TemporaryGraphics& graphics() { return graphics_; }
    UserState& user() { return user_; }
    CommandLine& commandLine() { return *commandLine_; }
    const std::string& path() const { return path_; }
    /// Writes the drawing after the modules have had kSaveMsg; empty, or what went wrong.
    std::string save(const std::string& path);

    /// True when the drawing has changed since it was opened or saved.
    bool isModified() const { return drawing_->changeCount() != savedChanges_; }

    /// Tells the reactors of the drawing what has changed; comes at the end of every function that
    /// changes it, and before a module is called.
    void tellChanges();
    /// The document is being closed: its objects are, and the reactors hear of it.
    void goodbye();

    /// Takes out the LISP functions and the reactors of an application that is gone.
    void forget(const Application& application);
    /// Names of the "C:" functions of this document, without the prefix, upper case.
    const std::set<std::u16string, std::less<>>& commands() const { return commands_; }

    // -- locks: they nest, the strictest counts
    Acad::ErrorStatus lock(AcAp::DocLockMode mode);
    Acad::ErrorStatus unlock();
    /// True when whoever runs now may change the drawing.
    bool isLockedForWrite() const;
    /// Commands, LISP functions and messages of the document find it locked for write.
    class RunLock
    {
    public:
        explicit RunLock(Document& document) : document_(document) { ++document_.runLocks_; }
        ~RunLock() { --document_.runLocks_; }
        RunLock(const RunLock&) = delete;
        RunLock& operator=(const RunLock&) = delete;

    private:
        Document& document_;
    };

    // AcApDocument
    const ACHAR* fileName() const override { return fileName_.c_str(); }
    AcDbDatabase* database() const override;
    AcAp::DocLockMode myLockMode() const override;

private:
    // lisp::WorldHost
    void print(std::u16string_view text) override;
    std::string findFile(std::string_view name,
                         std::span<const std::string_view> suffixes) override;
    void releasePickset(std::int32_t set) override;
    bool takeInterrupt() override;
    bool mustStop() const override;
    void commandDefined(std::u16string_view name, bool defined) override;
    bool lacksFunction(std::u16string_view name) override;
    std::optional<lisp::Value> systemVariable(std::u16string_view name) override;

    Host& host_;
    std::unique_ptr<drawing::Drawing> drawing_;
    drawing::EntityFunctions entities_;
    std::uint64_t savedChanges_; // change count of the drawing when it was opened or saved
    std::string path_;
    std::u16string fileName_;
    std::unique_ptr<Database> database_;
    SystemVariables variables_;
    TemporaryGraphics graphics_;
    UserState user_;
    std::unique_ptr<CommandLine> commandLine_;
    std::vector<AcAp::DocLockMode> locks_; // set by applications
    int runLocks_ = 0;
    std::set<std::u16string, std::less<>> commands_;
    lisp::World world_; // last: its functions may reach everything above
};

/// What happens in a block is one step to take back.
class UndoGroup
{
public:
    explicit UndoGroup(Document& document) : journal_(document.drawing().journal())
    {
        journal_.beginGroup();
    }
    ~UndoGroup() { journal_.endGroup(); }
    UndoGroup(const UndoGroup&) = delete;
    UndoGroup& operator=(const UndoGroup&) = delete;

private:
    drawing::Journal& journal_;
};

} // namespace orvald
