// SPDX-License-Identifier: LicenseRef-ORVALD
// Base of the kernel's objects that other modules derive from or hold by a pointer.
#pragma once

#include "kex/export.h"

class KEX_BASE_API CKexObject
{
public:
    CKexObject() = default;
    virtual ~CKexObject();
    CKexObject(const CKexObject&) = delete;
    CKexObject& operator=(const CKexObject&) = delete;
};
