// SPDX-License-Identifier: LicenseRef-ORVALD
// Annotation scales: the list of a drawing, and the scales that annotative objects have.
#pragma once

#include "hostapi/acstring.h"
#include "hostapi/objects.h"

#define ACDB_ANNOTATIONSCALES_COLLECTION ACRX_T("ACDB_ANNOTATIONSCALES")

/// What an object may look different for: in this interface, a scale.
class HOST_API AcDbObjectContext : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectContext)
    virtual Acad::ErrorStatus getName(AcString& name) const = 0;
    virtual Acad::ErrorStatus setName(const AcString& name) = 0;
    ~AcDbObjectContext() override;
};

/// A scale: paper units that stand for drawing units. A value: changing it changes no drawing.
class HOST_API AcDbAnnotationScale : public AcDbObjectContext
{
public:
    ACRX_DECLARE_MEMBERS(AcDbAnnotationScale)
    Acad::ErrorStatus getName(AcString& name) const override;
    Acad::ErrorStatus setName(const AcString& name) override;
    Acad::ErrorStatus getPaperUnits(double& units) const;
    /// eInvalidInput for what is not positive.
    Acad::ErrorStatus setPaperUnits(double units);
    Acad::ErrorStatus getDrawingUnits(double& units) const;
    Acad::ErrorStatus setDrawingUnits(double units);
    ~AcDbAnnotationScale() override;

private:
    AcString name_;
    double paper_ = 1.0, drawing_ = 1.0;
};

class HOST_API AcDbObjectContextCollectionIterator : public AcRxObject
{
public:
    virtual bool done() const = 0;
    /// False at the end.
    virtual bool next() = 0;
    /// A context that the caller deletes. eKeyNotFound at the end.
    virtual Acad::ErrorStatus getContext(AcDbObjectContext*& context) const = 0;
    ~AcDbObjectContextCollectionIterator() override;
};

/// The scales of a drawing by name, without regard to case.
class HOST_API AcDbObjectContextCollection : public AcRxObject
{
public:
    virtual bool hasContext(const AcString& name) const = 0;
    /// Adds a copy. eInvalidInput: no scale, or one without a name; eDuplicateKey; eLockViolation.
    virtual Acad::ErrorStatus addContext(const AcDbObjectContext* context) = 0;
    /// A context that the caller deletes; null when there is none.
    virtual AcDbObjectContext* getContext(const AcString& name) const = 0;
    /// Walks in the order of the list. The caller deletes it.
    virtual AcDbObjectContextCollectionIterator* newIterator() const = 0;
    ~AcDbObjectContextCollection() override;
};

class HOST_API AcDbObjectContextManager : public AcRxObject
{
public:
    /// Null for what is not ACDB_ANNOTATIONSCALES_COLLECTION.
    virtual AcDbObjectContextCollection* contextCollection(const AcString& name) const = 0;
    ~AcDbObjectContextManager() override;
};

/// Asks and changes the contexts of an object; see ACRX_PE_PTR.
class HOST_API AcDbObjectContextInterface : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectContextInterface)
    /// True when objects of this kind can be given contexts of the collection.
    virtual bool supportsCollection(const AcDbObject* object, const AcString& collection) const = 0;
    virtual bool hasContext(const AcDbObject* object, const AcDbObjectContext& context) const = 0;
    /// eNotApplicable: a kind without contexts; eKeyNotFound: the drawing has none of that name;
    /// eDuplicateKey: the object has it; eNotOpenForWrite.
    virtual Acad::ErrorStatus addContext(AcDbObject* object,
                                         const AcDbObjectContext& context) const = 0;
    /// eKeyNotFound also when the object does not have it.
    virtual Acad::ErrorStatus removeContext(AcDbObject* object,
                                            const AcDbObjectContext& context) const = 0;
    ~AcDbObjectContextInterface() override;
};

/// Whether an object is annotative; see ACRX_PE_PTR.
class HOST_API AcDbAnnotativeObjectPE : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbAnnotativeObjectPE)
    virtual bool annotative(AcDbObject* object) const = 0;
    /// Ending it takes all contexts away. eNotApplicable, eNotOpenForWrite.
    virtual Acad::ErrorStatus setAnnotative(AcDbObject* object, bool annotative) const = 0;
    ~AcDbAnnotativeObjectPE() override;
};
