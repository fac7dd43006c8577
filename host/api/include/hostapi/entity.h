// SPDX-License-Identifier: LicenseRef-ORVALD
// Entities by name and DXF-coded chain, selection sets, temporary graphics and the status bar.
#pragma once

#include "hostapi/resbuf.h"

extern "C" {
/// DXF-coded chain of an object, first -1 with its name; null, with ERRNO set, when it is not found
/// or erased. The caller frees it.
HOST_API resbuf* acdbEntGet(const ads_name name);
/// The same with the extended data of the applications named in `apps` (RTSTR nodes, wildcards) as
/// a -3 group at the end.
HOST_API resbuf* acdbEntGetX(const ads_name name, const resbuf* apps);
/// Changes the object named by group -1 to the chain's values. RTNORM, RTERROR or RTREJ.
HOST_API int acdbEntMod(const resbuf* entity);
/// Adds an entity, or a part of a complex one; null cancels a complex entity that has been begun.
HOST_API int acdbEntMake(const resbuf* entity);
/// Adds an object and gives its name.
HOST_API int acdbEntMakeX(const resbuf* entity, ads_name name);
/// Erases an object, or restores an erased one.
HOST_API int acdbEntDel(const ads_name name);
/// The object after `name`, parts of complex entities included; the first one for null.
HOST_API int acdbEntNext(const ads_name name, ads_name next);
HOST_API int acdbEntLast(ads_name last);
/// Name of the object with that handle (hexadecimal text), erased ones included.
HOST_API int acdbHandEnt(const ACHAR* handle, ads_name name);
HOST_API int acdbNamedObjDict(ads_name name);
HOST_API resbuf* acdbDictSearch(const ads_name dictionary, const ACHAR* key, int setNext);
HOST_API resbuf* acdbTblSearch(const ACHAR* table, const ACHAR* name, int setNext);

/// Only mode "X" (the whole drawing) is answered by the headless host. RTERROR: nothing was found.
HOST_API int acedSSGet(const ACHAR* mode, const void* point1, const void* point2,
                       const resbuf* filter, ads_name set);
HOST_API int acedSSLength(const ads_name set, Adesk_Int32* length);
/// Member `index`, from 0; RTERROR when it is out of range.
HOST_API int acedSSName(const ads_name set, int index, ads_name name);
HOST_API int acedSSAdd(const Adesk_Int32* name, const Adesk_Int32* set, ads_name result);
HOST_API int acedSSDel(const ads_name name, const ads_name set);
HOST_API int acedSSMemb(const ads_name name, const ads_name set);
HOST_API int acedSSFree(const ads_name set);

/// A temporary vector in the current coordinate system. Colour -1 complements: the same vector
/// twice vanishes. `highlight` other than 0 is dashed.
HOST_API int acedGrDraw(const ads_point from, const ads_point to, int colour, int highlight);
}
