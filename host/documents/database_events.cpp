// SPDX-License-Identifier: LicenseRef-ORVALD
#include "database_events.h"

#include "document.h"
#include "host.h"
#include "object_access.h"
#include "open_objects.h"

namespace orvald {
namespace {

using drawing::Index;
using Before = drawing::Touched::Before;

/// Rounds in which reactors may answer each other's changes.
constexpr int kMostRounds = 100;

class Telling
{
public:
    explicit Telling(bool& flag) : flag_(flag) { flag_ = true; }
    ~Telling() { flag_ = false; }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;

private:
    bool& flag_;
};

} // namespace

Acad::ErrorStatus DatabaseEvents::add(AcDbDatabaseReactor* reactor)
{
    if (reactor == nullptr) return Acad::eNullObjectPointer;
    tell(); // what has changed so far is not for the new one
    const bool first = reactors_.isEmpty();
    if (!reactors_.add(reactor)) return Acad::eDuplicateKey;
    if (first) drawing_.watch(true);
    return Acad::eOk;
}

Acad::ErrorStatus DatabaseEvents::remove(AcDbDatabaseReactor* reactor)
{
    if (!reactors_.remove(reactor)) return Acad::eKeyNotFound;
    if (reactors_.isEmpty()) drawing_.watch(false);
    return Acad::eOk;
}

void DatabaseEvents::forget(const Application& application)
{
    reactors_.forget(application);
    if (reactors_.isEmpty()) drawing_.watch(false);
}

void DatabaseEvents::tellAll()
{
    Host& host = Host::instance();
    Document* const document = host.documentOf(drawing_);
    if (document == nullptr) return;
    const Host::CurrentScope current(*document);
    const Document::RunLock lock(*document);
    const Telling telling(telling_);
    for (int round = 0; drawing_.hasTouched() && round < kMostRounds; ++round) {
        const auto mayBeTold = [&](Index index) {
            return host.openObjects().mayBeNotified(outerId(drawing_.idOf(index)));
        };
        const std::vector<drawing::Touched> places = drawing_.takeTouched(mayBeTold);
        if (places.empty()) break;
        for (const drawing::Touched& place : places) tellOne(place);
    }
}

void DatabaseEvents::tellOne(const drawing::Touched& place)
{
    const drawing::Record& record = drawing_.at(place.index);
    const bool was = place.before == Before::erased || place.before == Before::living;
    if (!was && (place.before == Before::absent || record.undone)) return; // only made
    const bool wasErased = place.before == Before::erased;

    OpenObjects& objects = Host::instance().openObjects();
    AcDbObject* const object = objects.openToNotify(drawing_, place.index);
    const AcDbDatabase* const database = &database_;
    if (!was) {
        reactors_.call(u"objectReAppended",
                       [&](auto& reactor) { reactor.objectReAppended(database, object); });
    } else if (record.undone) {
        reactors_.call(u"objectUnAppended",
                       [&](auto& reactor) { reactor.objectUnAppended(database, object); });
    } else if (record.erased != wasErased) {
        const bool erased = record.erased;
        reactors_.call(u"objectErased",
                       [&](auto& reactor) { reactor.objectErased(database, object, erased); });
    } else {
        reactors_.call(u"objectModified",
                       [&](auto& reactor) { reactor.objectModified(database, object); });
    }
    objects.close(*object);
}

void DatabaseEvents::goodbye()
{
    reactors_.call(u"goodbye", [&](auto& reactor) { reactor.goodbye(&database_); });
    reactors_.clear();
    drawing_.watch(false);
}

} // namespace orvald

AcDbDatabaseReactor::~AcDbDatabaseReactor() = default;
void AcDbDatabaseReactor::objectUnAppended(const AcDbDatabase*, const AcDbObject*) {}
void AcDbDatabaseReactor::objectReAppended(const AcDbDatabase*, const AcDbObject*) {}
void AcDbDatabaseReactor::objectModified(const AcDbDatabase*, const AcDbObject*) {}
void AcDbDatabaseReactor::objectErased(const AcDbDatabase*, const AcDbObject*, bool) {}
void AcDbDatabaseReactor::goodbye(const AcDbDatabase*) {}

AcApDocManagerReactor::~AcApDocManagerReactor() = default;
void AcApDocManagerReactor::documentToBeDeactivated(AcApDocument*) {}
