// SPDX-License-Identifier: LicenseRef-ORVALD
#include "document.h"

#include "application.h"
#include "commands/command_line.h"
#include "database.h"
#include "drawing_functions.h"
#include "dxf/dxf.h"
#include "host.h"

#include <algorithm>
#include <atomic>
#include <filesystem>

namespace orvald {
namespace {

std::u16string nameOf(const std::string& path)
{
    return path.empty() ? u"Drawing1.dxf" : lisp::toUtf16(path);
}

} // namespace

Document::Document(Host& host, std::unique_ptr<drawing::Drawing> drawing, std::string path)
    : host_(host),
      drawing_(std::move(drawing)),
      entities_(*drawing_),
      savedChanges_(drawing_->changeCount()),
      path_(std::move(path)),
      fileName_(nameOf(path_)),
      database_(std::make_unique<Database>(*drawing_)),
      variables_(*this),
      commandLine_(std::make_unique<CommandLine>(*this)),
      world_(*this, host.heapLimit())
{
    defineDrawingFunctions(world_);
    drawing_->journal().step(); // from here on changes can be taken back
}

Document::~Document() = default;

AcDbDatabase* Document::database() const { return database_.get(); }

std::string Document::save(const std::string& path)
{
    host_.linker().broadcast(AcRx::kSaveMsg, *this);
    const dxf::Saved saved = dxf::save(*drawing_, path);
    for (const dxf::Warning& warning : saved.warnings) {
        host_.console().message(path + ": " + warning.text);
    }
    if (!saved.good) return saved.error.message();
    savedChanges_ = drawing_->changeCount();
    path_ = std::filesystem::absolute(path).lexically_normal().string();
    fileName_ = nameOf(path_);
    return {};
}

void Document::tellChanges() { database_->events().tell(); }

void Document::goodbye()
{
    for (const std::string& line : host_.openObjects().closeAllOf(*drawing_))
        host_.console().warning(line);
    database_->events().goodbye();
}

void Document::forget(const Application& application)
{
    database_->events().forget(application);
    for (const auto& [code, function] : application.functions()) {
        world_.undefineExternal(function->name(), *function);
    }
}

Acad::ErrorStatus Document::lock(AcAp::DocLockMode mode)
{
    // With one context nobody can stand in the way. What happens under the outermost lock of an
    // application is one step for the user.
    if (locks_.empty() && runLocks_ == 0) drawing_->journal().step();
    locks_.push_back(mode);
    return Acad::eOk;
}

Acad::ErrorStatus Document::unlock()
{
    if (locks_.empty()) return Acad::eLockViolation;
    locks_.pop_back();
    if (locks_.empty() && runLocks_ == 0) drawing_->journal().step();
    return Acad::eOk;
}

bool Document::isLockedForWrite() const
{
    return runLocks_ > 0 || std::ranges::any_of(locks_, [](AcAp::DocLockMode mode) {
               return mode == AcAp::kWrite || mode == AcAp::kXWrite || mode == AcAp::kAutoWrite ||
                      mode == AcAp::kProtectedAutoWrite;
           });
}

AcAp::DocLockMode Document::myLockMode() const
{
    if (locks_.empty()) return runLocks_ > 0 ? AcAp::kWrite : AcAp::kNotLocked;
    return *std::ranges::max_element(locks_);
}

void Document::print(std::u16string_view text) { host_.console().print(text); }

std::string Document::findFile(std::string_view name, std::span<const std::string_view> suffixes)
{
    const std::string asItStands(name);
    std::string found = host_.findFile(asItStands);
    for (auto suffix = suffixes.begin(); found.empty() && suffix != suffixes.end(); ++suffix) {
        found = host_.findFile(asItStands + std::string(*suffix));
    }
    return found;
}

void Document::releasePickset(std::int32_t set) { host_.selectionSets().letGo(set); }

bool Document::takeInterrupt() { return host_.takeInterrupt(); }

bool Document::mustStop() const { return Host::mustStop(); }

bool Document::lacksFunction(std::u16string_view name) { return isFunctionElsewhere(name); }

void Document::commandDefined(std::u16string_view name, bool defined)
{
    const std::u16string command(name);
    if (defined) commands_.insert(command);
    else commands_.erase(command);
}

std::optional<lisp::Value> Document::systemVariable(std::u16string_view name)
{
    resbuf value = {};
    if (variables_.get(name, value) != SystemVariables::Answer::done) return std::nullopt;
    const std::optional<lisp::Value> result = valueFromNode(world_, value);
    if (value.restype == RTSTR) acutDelString(value.resval.rstring);
    return result;
}

} // namespace orvald
