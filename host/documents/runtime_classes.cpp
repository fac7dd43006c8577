// SPDX-License-Identifier: LicenseRef-ORVALD
// The run-time classes of the host's interface: one description each, linked to the one above.
#include "hostapi/annotation.h"
#include "hostapi/objects.h"

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const
{
    const AcRxClass* at = this;
    while (at != nullptr && at != other) at = at->myParent();
    return at != nullptr;
}

bool AcRxObject::isKindOf(const AcRxClass* ofClass) const
{
    return ofClass != nullptr && isA()->isDerivedFrom(ofClass);
}

AcRxClass* AcRxObject::desc()
{
    static AcRxClass description(u"AcRxObject", nullptr, nullptr);
    return &description;
}
AcRxClass* AcRxObject::isA() const { return desc(); }

#define ORVALD_CLASS(Class, text, dxfName, Parent)                                                 \
    AcRxClass* Class::desc()                                                                       \
    {                                                                                              \
        static AcRxClass description(text, dxfName, Parent::desc());                               \
        return &description;                                                                       \
    }                                                                                              \
    AcRxClass* Class::isA() const { return desc(); }

ORVALD_CLASS(AcRxClass, u"AcRxClass", nullptr, AcRxObject)
ORVALD_CLASS(AcDbObject, u"AcDbObject", nullptr, AcRxObject)
ORVALD_CLASS(AcDbEntity, u"AcDbEntity", nullptr, AcDbObject)
ORVALD_CLASS(AcDbDictionary, u"AcDbDictionary", u"DICTIONARY", AcDbObject)
ORVALD_CLASS(AcDbXrecord, u"AcDbXrecord", u"XRECORD", AcDbObject)
ORVALD_CLASS(AcDbObjectContext, u"AcDbObjectContext", nullptr, AcRxObject)
ORVALD_CLASS(AcDbAnnotationScale, u"AcDbAnnotationScale", nullptr, AcDbObjectContext)
ORVALD_CLASS(AcDbObjectContextInterface, u"AcDbObjectContextInterface", nullptr, AcRxObject)
ORVALD_CLASS(AcDbAnnotativeObjectPE, u"AcDbAnnotativeObjectPE", nullptr, AcRxObject)

#undef ORVALD_CLASS

AcRxClass::~AcRxClass() = default;
AcDbEntity::~AcDbEntity() = default;
AcDbDictionaryIterator::~AcDbDictionaryIterator() = default;
AcDbDictionary::~AcDbDictionary() = default;
AcDbXrecord::~AcDbXrecord() = default;
AcDbObjectContext::~AcDbObjectContext() = default;
AcDbAnnotationScale::~AcDbAnnotationScale() = default;
AcDbObjectContextCollectionIterator::~AcDbObjectContextCollectionIterator() = default;
AcDbObjectContextCollection::~AcDbObjectContextCollection() = default;
AcDbObjectContextManager::~AcDbObjectContextManager() = default;
AcDbObjectContextInterface::~AcDbObjectContextInterface() = default;
AcDbAnnotativeObjectPE::~AcDbAnnotativeObjectPE() = default;
