// SPDX-License-Identifier: LicenseRef-ORVALD
#include "annotation_scales.h"

#include "drawing/annotation.h"
#include "drawing/text.h"
#include "object_access.h"
#include "open_objects.h"

#include <vector>

namespace orvald {

using drawing::Index;
using drawing::kNone;

namespace {

AcDbObjectContext* newScale(const drawing::Record& record)
{
    auto* scale = new AcDbAnnotationScale;
    scale->setName(drawing::text16(record.tags.text(300)).c_str());
    scale->setPaperUnits(record.tags.real(140, 1.0));
    scale->setDrawingUnits(record.tags.real(141, 1.0));
    return scale;
}

Index find(const drawing::Drawing& drawing, const AcString& name)
{
    return drawing::findScale(drawing, drawing::fileForm(name.kwszPtr()));
}

class Iterator final : public AcDbObjectContextCollectionIterator
{
public:
    explicit Iterator(const drawing::Drawing& drawing)
        : drawing_(drawing), scales_(drawing::scaleList(drawing))
    {
    }
    bool done() const override { return at_ == scales_.size(); }
    bool next() override
    {
        if (!done()) ++at_;
        return !done();
    }
    Acad::ErrorStatus getContext(AcDbObjectContext*& context) const override
    {
        context = done() ? nullptr : newScale(drawing_.at(scales_[at_]));
        return done() ? Acad::eKeyNotFound : Acad::eOk;
    }

private:
    const drawing::Drawing& drawing_;
    std::vector<Index> scales_;
    std::size_t at_ = 0;
};

bool isCollection(const AcString& name)
{
    return drawing::sameName(drawing::fileForm(name.kwszPtr()),
                             drawing::fileForm(ACDB_ANNOTATIONSCALES_COLLECTION));
}

/// The place of a context among the scales of an object's drawing; kNone when it is none.
Index scaleOf(const AcDbObject& object, const AcDbObjectContext& context)
{
    AcString name;
    context.getName(name);
    const AcDbObjectAccess::State& state = AcDbObjectAccess::state(object);
    return state.fresh ? kNone : find(*state.drawing, name);
}

class Contexts final : public AcDbObjectContextInterface
{
public:
    bool supportsCollection(const AcDbObject* object, const AcString& collection) const override
    {
        return object != nullptr && isCollection(collection) &&
               drawing::canBeAnnotative(AcDbObjectAccess::state(*object).read());
    }
    bool hasContext(const AcDbObject* object, const AcDbObjectContext& context) const override
    {
        const Index scale = object == nullptr ? kNone : scaleOf(*object, context);
        if (scale == kNone) return false;
        const AcDbObjectAccess::State& state = AcDbObjectAccess::state(*object);
        return drawing::hasScale(*state.drawing, state.index, scale);
    }
    Acad::ErrorStatus addContext(AcDbObject* object,
                                 const AcDbObjectContext& context) const override
    {
        return change(object, context, true);
    }
    Acad::ErrorStatus removeContext(AcDbObject* object,
                                    const AcDbObjectContext& context) const override
    {
        return change(object, context, false);
    }

private:
    static Acad::ErrorStatus change(AcDbObject* object, const AcDbObjectContext& context, bool give)
    {
        if (object == nullptr) return Acad::eNullObjectPointer;
        if (!object->isWriteEnabled()) return Acad::eNotOpenForWrite;
        AcDbObjectAccess::State& state = AcDbObjectAccess::state(*object);
        if (state.fresh) return Acad::eNotInDatabase;
        if (give && !drawing::canBeAnnotative(state.read())) return Acad::eNotApplicable;
        const Index scale = scaleOf(*object, context);
        if (scale == kNone) return Acad::eKeyNotFound;
        const bool done = give ? drawing::giveScale(*state.drawing, state.index, scale)
                               : drawing::takeScale(*state.drawing, state.index, scale);
        if (!done) return give ? Acad::eDuplicateKey : Acad::eKeyNotFound;
        state.modified = state.graphicsModified = true;
        return Acad::eOk;
    }
};

class Annotative final : public AcDbAnnotativeObjectPE
{
public:
    bool annotative(AcDbObject* object) const override
    {
        return object != nullptr && drawing::isAnnotative(AcDbObjectAccess::state(*object).read());
    }
    Acad::ErrorStatus setAnnotative(AcDbObject* object, bool annotative) const override
    {
        if (object == nullptr) return Acad::eNullObjectPointer;
        if (!object->isWriteEnabled()) return Acad::eNotOpenForWrite;
        AcDbObjectAccess::State& state = AcDbObjectAccess::state(*object);
        if (state.fresh) return Acad::eNotInDatabase;
        if (annotative && !drawing::canBeAnnotative(state.read())) return Acad::eNotApplicable;
        if (annotative == drawing::isAnnotative(state.read())) return Acad::eOk;
        drawing::setAnnotative(*state.drawing, state.index, annotative);
        state.modified = state.graphicsModified = true;
        return Acad::eOk;
    }
};

} // namespace

bool AnnotationScales::hasContext(const AcString& name) const
{
    return find(drawing_, name) != kNone;
}

Acad::ErrorStatus AnnotationScales::addContext(const AcDbObjectContext* context)
{
    const AcDbAnnotationScale* scale = AcDbAnnotationScale::cast(context);
    if (scale == nullptr) return Acad::eInvalidInput;
    if (lockStatus(drawing_) != Acad::eOk) return lockStatus(drawing_);
    AcString name;
    double paper = 0.0, units = 0.0;
    scale->getName(name);
    scale->getPaperUnits(paper);
    scale->getDrawingUnits(units);
    if (name.isEmpty()) return Acad::eInvalidInput;
    const Index made = drawing::addScale(drawing_, drawing::fileForm(name.kwszPtr()), paper, units);
    return made == kNone ? Acad::eDuplicateKey : Acad::eOk;
}

AcDbObjectContext* AnnotationScales::getContext(const AcString& name) const
{
    const Index scale = find(drawing_, name);
    return scale == kNone ? nullptr : newScale(drawing_.at(scale));
}

AcDbObjectContextCollectionIterator* AnnotationScales::newIterator() const
{
    return new Iterator(drawing_);
}

AcDbObjectContextCollection* ContextManager::contextCollection(const AcString& name) const
{
    return isCollection(name) ? &scales_ : nullptr;
}

} // namespace orvald

using namespace orvald;

// -- a scale as a value

Acad::ErrorStatus AcDbAnnotationScale::getName(AcString& name) const
{
    name = name_;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAnnotationScale::setName(const AcString& name)
{
    name_ = name;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAnnotationScale::getPaperUnits(double& units) const
{
    units = paper_;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAnnotationScale::setPaperUnits(double units)
{
    if (!(units > 0.0)) return Acad::eInvalidInput;
    paper_ = units;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAnnotationScale::getDrawingUnits(double& units) const
{
    units = drawing_;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAnnotationScale::setDrawingUnits(double units)
{
    if (!(units > 0.0)) return Acad::eInvalidInput;
    drawing_ = units;
    return Acad::eOk;
}

// -- extensions of entities

AcRxObject* AcRxObject::x(const AcRxClass* protocol) const
{
    static Contexts contexts;
    static Annotative annotative;
    if (!isKindOf(AcDbEntity::desc())) return nullptr;
    if (protocol == AcDbObjectContextInterface::desc()) return &contexts;
    return protocol == AcDbAnnotativeObjectPE::desc() ? &annotative : nullptr;
}
