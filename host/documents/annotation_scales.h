// SPDX-License-Identifier: LicenseRef-ORVALD
// The annotation scales of a drawing as applications see them.
#pragma once

#include "drawing/drawing.h"
#include "hostapi/annotation.h"

namespace orvald {

class AnnotationScales final : public AcDbObjectContextCollection
{
public:
    explicit AnnotationScales(drawing::Drawing& drawing) : drawing_(drawing) {}
    bool hasContext(const AcString& name) const override;
    Acad::ErrorStatus addContext(const AcDbObjectContext* context) override;
    AcDbObjectContext* getContext(const AcString& name) const override;
    AcDbObjectContextCollectionIterator* newIterator() const override;

private:
    drawing::Drawing& drawing_;
};

class ContextManager final : public AcDbObjectContextManager
{
public:
    explicit ContextManager(drawing::Drawing& drawing) : scales_(drawing) {}
    AcDbObjectContextCollection* contextCollection(const AcString& name) const override;

private:
    mutable AnnotationScales scales_;
};

} // namespace orvald
