// SPDX-License-Identifier: LicenseRef-ORVALD
// Result buffers: the one value node in which LISP arguments, results and entity data cross the
// border between the host and an application. A chain is linked through rbnext and ends with null.
#pragma once

#include "hostapi/types.h"

inline constexpr short RTNONE = 5000;    // no value; ends acutBuildList
inline constexpr short RTREAL = 5001;    // rreal
inline constexpr short RTPOINT = 5002;   // rpoint, a 2-D point: z is 0.0
inline constexpr short RTSHORT = 5003;   // rint
inline constexpr short RTANG = 5004;     // rreal, an angle
inline constexpr short RTSTR = 5005;     // rstring
inline constexpr short RTENAME = 5006;   // rlname, a database object
inline constexpr short RTPICKS = 5007;   // rlname, a selection set
inline constexpr short RTORINT = 5008;   // rreal, an orientation
inline constexpr short RT3DPOINT = 5009; // rpoint
inline constexpr short RTLONG = 5010;    // rlong
inline constexpr short RTVOID = 5014;    // blank symbol
inline constexpr short RTLB = 5016;      // list begin
inline constexpr short RTLE = 5017;      // list end
inline constexpr short RTDOTE = 5018;    // dot of a dotted pair
inline constexpr short RTNIL = 5019;
inline constexpr short RTDXF0 = 5020; // group 0, in acutBuildList only
inline constexpr short RTT = 5021;
inline constexpr short RTRESBUF = 5023;

/// Binary data of a group 310 or 1004 node.
struct ads_binary
{
    short clen; // bytes, 0 or more
    char* buf;
};

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    ACHAR* rstring; // from acutNewString; null counts as ""
    std::int32_t rlname[2];
    std::int32_t rlong;
    std::int64_t mnInt64;
    ads_binary rbinary;
};

/// One node. restype is one of the RT codes above, or below 5000 a DXF group code; it says which
/// member of resval holds.
struct resbuf
{
    resbuf* rbnext;
    short restype;
    ads_u_val resval;
};

extern "C" {
/// A zeroed node of that type, or null when memory is out. The caller frees it with acutRelRb.
HOST_API resbuf* acutNewRb(int type);
/// Frees a chain with its strings and binary data; null is harmless, and so is the chain of
/// acedGetArgs, which stays as it is. RTNORM.
HOST_API int acutRelRb(resbuf* chain);
/// A chain from (type, value) pairs, ended by 0 or RTNONE. RTLB, RTLE, RTDOTE, RTNIL, RTT, RTVOID
/// and -3 take no value; RTSHORT is passed as int; strings are copied, points and names read
/// through their address. Null when nothing was given, a type is unknown or memory is out.
HOST_API resbuf* acutBuildList(int type, ...);
/// Copies text into memory that acutRelRb and acutDelString free. Null text gives "". RTNORM, or
/// RTERROR when memory is out.
HOST_API int acutNewString(const ACHAR* text, ACHAR*& copy);
/// Frees what acutNewString made; null is harmless.
HOST_API void acutDelString(ACHAR*& text);
/// Replaces a string of acutNewString by a copy of another one; the texts may overlap.
HOST_API int acutUpdString(const ACHAR* text, ACHAR*& copy);
}
