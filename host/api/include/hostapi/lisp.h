// SPDX-License-Identifier: LicenseRef-ORVALD
// LISP functions of an application: definition, the call in progress, its arguments and its result,
// and what the application may say to the user or ask the system.
#pragma once

#include "hostapi/resbuf.h"

extern "C" {
/// Makes `name` an external function of the current document under `code` (0 to 32767, unique in
/// the application); a "c:" prefix makes it a command as well. A later definition of the same name
/// replaces an earlier one. RTNORM or RTERROR.
HOST_API int acedDefun(const ACHAR* name, int code);
/// Removes the function from the current document. RTNORM or RTERROR.
HOST_API int acedUndef(const ACHAR* name, int code);
/// Routes calls of `code` to `function`, which answers RSRSLT or RSERR; null takes the route away.
HOST_API int acedRegFunc(int (*function)(), int code);
/// Code of the running external function, RTERROR when there is none.
HOST_API int acedGetFunCode();
/// Arguments of the running call, null when it has none. The host owns the chain; it is the same
/// one, with every change the application made in place, however often it is asked for.
HOST_API resbuf* acedGetArgs();

// The result of the running call: the value is copied at once, the last one set wins. RTNORM, or
// RTERROR outside a call and for what cannot be a LISP value.
HOST_API int acedRetNil();
HOST_API int acedRetT();
HOST_API int acedRetVoid(); // nothing is echoed
HOST_API int acedRetInt(int value);
HOST_API int acedRetReal(ads_real value);
HOST_API int acedRetStr(const ACHAR* text);
HOST_API int acedRetPoint(const ads_point point);        // always a list of three reals
HOST_API int acedRetName(const ads_name name, int type); // RTENAME or RTPICKS
/// The value of one node.
HOST_API int acedRetVal(const resbuf* node);
/// A chain as one list: wrapped unless it is one RTLB..RTLE pair from its first to its last node.
/// Nodes with DXF codes become (code . value). An unbalanced chain is refused.
HOST_API int acedRetList(const resbuf* chain);

/// Reads a LISP variable of the running call's document: null when it is unknown or nil. The caller
/// frees the chain.
HOST_API int acedGetSym(const ACHAR* name, resbuf** value);
HOST_API int acedPutSym(const ACHAR* name, const resbuf* value);
/// Calls an external or "c:" function of the current document: the chain begins with its name
/// (RTSTR), its arguments follow. RTNORM or RTERROR; the caller frees the result.
HOST_API int acedInvoke(const resbuf* call, resbuf** result);

/// Prints a line "Application <module file> ERROR: <text>". RTNORM; it does not end the call.
HOST_API int acdbFail(const ACHAR* text);
/// Prints to the text window; conversions as C's printf, %s takes ACHAR text, besides n$ positions.
HOST_API int acutPrintf(const ACHAR* format, ...);
/// A box with OK; without windows a line on the console. RTNORM.
HOST_API int acedAlert(const ACHAR* text);

/// A system variable's value; the caller frees a string value with acutDelString. RTERROR when the
/// name is unknown.
HOST_API int acedGetVar(const ACHAR* name, resbuf* value);
/// RTERROR, with ERRNO set, when the variable is unknown, read-only or the value is out of range.
HOST_API int acedSetVar(const ACHAR* name, const resbuf* value);
/// Full path of `name` on the host's search path (current folder, folder of the drawing, support
/// path, program folder). `path` receives at most `room` units with the end mark. RTNORM or
/// RTERROR.
HOST_API int acedFindFile(const ACHAR* name, ACHAR* path, int room);
/// Full path of the file of the application that is being called.
HOST_API const ACHAR* acedGetAppName();
/// Handle of the main frame window; null where the host has none.
HOST_API void* adsw_acadMainWnd();

/// RTNORM when `app` was not yet registered in the current drawing, else RTERROR.
HOST_API int acdbRegApp(const ACHAR* app);
}
