// SPDX-License-Identifier: LicenseRef-ORVALD
// The command stack: an application's commands, in groups.
#pragma once

#include "hostapi/rx.h"

class AcEdUIContext;
class AcEdCommand;

inline constexpr Adesk_Int32 ACRX_CMD_MODAL = 0x0;
inline constexpr Adesk_Int32 ACRX_CMD_TRANSPARENT = 0x1;
inline constexpr Adesk_Int32 ACRX_CMD_USEPICKSET = 0x2;
inline constexpr Adesk_Int32 ACRX_CMD_SESSION = 0x200000;

using AcRxFunctionPtr = void (*)();

class HOST_API AcEdCommandStack : public AcRxObject
{
public:
    /// Makes the group when it is missing. eDuplicateKey when the group has that global or local
    /// name already; eInvalidInput for an empty name or no function.
    virtual Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* globalName,
                                         const ACHAR* localName, Adesk_Int32 flags,
                                         AcRxFunctionPtr function, AcEdUIContext* context = nullptr,
                                         int functionCode = -1, void* resource = nullptr,
                                         AcEdCommand** command = nullptr) = 0;
    /// eKeyNotFound when there is no such command or group.
    virtual Acad::ErrorStatus removeCmd(const ACHAR* group, const ACHAR* globalName) = 0;
    virtual Acad::ErrorStatus removeGroup(const ACHAR* group) = 0;
    ~AcEdCommandStack() override;
};

#define acedRegCmds                                                                                \
    (static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(ACRX_T("ACAD_REGISTERED_COMMANDS"))))
