// SPDX-License-Identifier: LicenseRef-ORVALD
// What reactors are told of a drawing and of the current document, when, and what they may do then.
#include "document.h"
#include "host.h"
#include "hostapi/objects.h"
#include "hostapi/reactors.h"
#include "object_access.h"

#include <gtest/gtest.h>

namespace {

using namespace orvald;

/// Writes down what it is told: a letter and the type of the object, "M XRECORD ". Not for blocks
/// and dictionaries.
class Recorder final : public AcDbDatabaseReactor
{
public:
    void objectUnAppended(const AcDbDatabase*, const AcDbObject* object) override
    {
        note("U", object);
    }
    void objectReAppended(const AcDbDatabase*, const AcDbObject* object) override
    {
        note("R", object);
    }
    void objectModified(const AcDbDatabase*, const AcDbObject* object) override
    {
        note("M", object);
    }
    void objectErased(const AcDbDatabase*, const AcDbObject* object, bool erased) override
    {
        note(erased ? "E" : "B", object);
    }
    void goodbye(const AcDbDatabase*) override { log_ += "goodbye "; }

    std::string take() { return std::exchange(log_, {}); }
    std::function<void(const AcDbObject&)> answer;

private:
    void note(const char* what, const AcDbObject* object)
    {
        EXPECT_TRUE(object->isNotifyEnabled() && !object->isWriteEnabled());
        EXPECT_EQ(acDocManager->curDocument(), acDocManager->document(object->database()));
        const std::string type(AcDbObjectAccess::state(*object).read().typeName());
        const bool holder = type == "DICTIONARY" || type == "BLOCK_RECORD";
        if (!holder) log_ += what + (" " + type) + " ";
        if (answer) answer(*object);
    }
    std::string log_;
};

class Reactors : public testing::Test
{
protected:
    Reactors()
    {
        host_.console().setLevel(Console::Level::quiet);
        document_ = &host_.newDocument();
        database().addReactor(&recorder_);
    }
    AcDbDatabase& database() { return *document_->database(); }
    /// What is told of an expression's changes.
    std::string toldOf(std::u16string_view expression)
    {
        recorder_.take();
        document_->drawing().journal().step();
        EXPECT_TRUE(document_->world().evalText(expression).ok());
        return recorder_.take();
    }
    AcDbObjectId circle()
    {
        toldOf(u"(entmake '((0 . \"CIRCLE\") (10 0 0) (40 . 1.0)))");
        return outerId(document_->entities().entLast());
    }
    template <class T = AcDbObject>
    static T* open(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForWrite)
    {
        T* object = nullptr;
        EXPECT_EQ(acdbOpenObject(object, id, mode, true), Acad::eOk);
        return object;
    }

    Recorder recorder_; // hears of the drawing until the host goes
    Host host_;
    Document* document_ = nullptr;
};

TEST_F(Reactors, ChangesByListsAndUndoneOnesAreTold)
{
    const std::pair<const char16_t*, const char*> steps[] = {
        {u"(setq e (entmakex '((0 . \"LINE\") (10 0 0) (11 1 0))))", ""}, // made: not told
        {u"(entget e)", ""},
        {u"(entmod (list (cons -1 e) '(62 . 3)))", "M LINE "},
        {u"(repeat 2 (entmod (list (cons -1 e) '(62 . 4))))", "M LINE M LINE "},
        {u"(command \"_.U\")", "M LINE "},
        {u"(command \"_.REDO\")", "M LINE "},
        {u"(entdel e)", "E LINE "},
        {u"(command \"_.U\")", "B LINE "},
        {u"(entdel e) (entdel e)", "E LINE B LINE "},
        {u"(setq x (entmakex '((0 . \"XRECORD\") (100 . \"AcDbXrecord\") (90 . 1))))", ""},
        {u"(dictadd (namedobjdict) \"X\" x)", "M XRECORD "},
        {u"(dictremove (namedobjdict) \"X\")", "M XRECORD "},
        {u"(setq c (entmakex '((0 . \"CIRCLE\") (10 0 0) (40 . 1.0))))", ""},
        {u"(command \"_.U\")", "M LINE U CIRCLE "}, // its neighbour is linked otherwise
        {u"(command \"_.REDO\")", "M LINE R CIRCLE "},
    };
    for (const auto& [expression, told] : steps)
        EXPECT_EQ(toldOf(expression), told) << lisp::toUtf8(expression);
}

TEST_F(Reactors, ChangesThroughClassesAreToldWhenTheObjectIsClosed)
{
    const AcDbObjectId one = circle(), other = circle();
    const Document::RunLock lock(*document_);
    AcDbObject* const first = open(one);
    AcDbObject* const second = open(other);
    first->addPersistentReactor(database().namedObjectsDictionaryId());
    second->addPersistentReactor(database().namedObjectsDictionaryId());
    EXPECT_EQ(recorder_.take(), "");
    first->close();
    EXPECT_EQ(recorder_.take(), "M CIRCLE "); // the other one may be half changed
    second->downgradeOpen();
    EXPECT_EQ(recorder_.take(), "M CIRCLE ");
    second->close();
    open(one)->close();
    open(one, AcDb::kForRead)->close();
    EXPECT_EQ(recorder_.take(), ""); // nothing has changed

    AcDbObject* const erased = open(one);
    erased->erase();
    erased->swapIdWith(other);
    erased->close();
    EXPECT_EQ(recorder_.take(), "M CIRCLE E CIRCLE "); // the ids have changed their objects
}

TEST_F(Reactors, AReactorMayChangeOtherObjectsAndIsToldOfThat)
{
    const AcDbObjectId one = circle(), other = circle();
    recorder_.answer = [&](const AcDbObject& object) {
        AcDbObject* same = nullptr;
        EXPECT_EQ(acdbOpenAcDbObject(same, object.objectId(), AcDb::kForWrite, true),
                  Acad::eWasNotifying);
        if (object.objectId() != one) return;
        AcDbObject* const opened = open(other);
        opened->erase();
        opened->close();
    };
    EXPECT_EQ(toldOf(u"(entmod (list (cons -1 (entnext)) '(62 . 3)))"), "M CIRCLE E CIRCLE ");

    // Two that answer each other for ever come to an end.
    int answers = 0;
    recorder_.answer = [&](const AcDbObject& object) {
        ++answers;
        AcDbObject* const opened = open(object.objectId() == one ? other : one);
        opened->erase(!opened->isErased());
        opened->close();
    };
    toldOf(u"(entdel (entnext))");
    EXPECT_GT(answers, 10);
    EXPECT_LT(answers, 1000);
    recorder_.answer = nullptr;
}

TEST_F(Reactors, AReactorThatIsTakenOutIsNotCalledAgain)
{
    Recorder second;
    EXPECT_EQ(database().addReactor(&second), Acad::eOk);
    EXPECT_EQ(database().addReactor(&second), Acad::eDuplicateKey);
    EXPECT_EQ(database().addReactor(nullptr), Acad::eNullObjectPointer);
    circle();
    recorder_.answer = [&](const AcDbObject&) { database().removeReactor(&second); };
    toldOf(u"(entdel (entlast))");
    EXPECT_EQ(second.take(), "");
    EXPECT_EQ(database().removeReactor(&second), Acad::eKeyNotFound);
    EXPECT_EQ(database().removeReactor(&recorder_), Acad::eOk);
    EXPECT_EQ(toldOf(u"(entmake '((0 . \"POINT\") (10 0 0))) (entdel (entlast))"), "");
}

TEST_F(Reactors, TheLeftDocumentAndTheClosedDrawingAreTold)
{
    struct Switches final : AcApDocManagerReactor
    {
        void documentToBeDeactivated(AcApDocument* document) override
        {
            EXPECT_EQ(acDocManager->curDocument(), document);
            left.push_back(document);
        }
        std::vector<AcApDocument*> left;
    } switches;
    acDocManager->addReactor(&switches);
    Document& second = host_.newDocument();
    EXPECT_EQ(switches.left, (std::vector<AcApDocument*>{document_}));
    acDocManager->setCurDocument(&second);
    acDocManager->setCurDocument(document_);
    EXPECT_EQ(switches.left, (std::vector<AcApDocument*>{document_, &second}));
    host_.closeDocument(second); // was not the current one
    EXPECT_EQ(switches.left.size(), 2u);
    EXPECT_EQ(recorder_.take(), "");
    host_.closeDocument(*document_);
    EXPECT_EQ(switches.left.size(), 3u);
    EXPECT_EQ(recorder_.take(), "goodbye ");
    acDocManager->removeReactor(&switches);
    host_.newDocument();
}

} // namespace
