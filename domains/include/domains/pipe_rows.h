// SPDX-License-Identifier: LicenseRef-ORVALD
// Pipes.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kPipeRows[] = {
    {KT("kex_pipe_dn_dir"), notBuilt, KT(""), KT("list of rows")},
    {KT("kex_pipe_dim"), notBuilt, KT("integer dn or number od, [number wall]"),
     KT("list (dn od wall id g) or nil")},
    {KT("kex_pipe_def"), notBuilt,
     KT("list of points path, integer dn, [number radius], [string mat]"), KT("PIPE data or nil")},
    {KT("kex_pipe_new"), notBuilt, KT("PIPE data, [string layer]"), KT("ename")},
    {KT("kex_pipe_get"), notBuilt, KT("ename, [key]"), KT("data or value")},
    {KT("kex_pipe_set"), notBuilt, KT("pipe, key, value or nil"), KT("pipe as given")},
    {KT("kex_pipe_path"), notBuilt, KT("pipe"), KT("list of rows")},
    {KT("kex_pipe_len"), notBuilt, KT("pipe, [integer kind]"), KT("real")},
    {KT("kex_pipe_gew"), notBuilt, KT("pipe, [T filled]"), KT("real")},
    {KT("kex_pipe_vol"), notBuilt, KT("pipe"), KT("real")},
    {KT("kex_pipe_surf"), notBuilt, KT("pipe, [number insulation]"), KT("real")},
    {KT("kex_pipe_bend"), notBuilt, KT("number radius, real angle, number od"),
     KT("list (tangent arc inner outer)")},
    {KT("kex_pipe_cutlist"), notBuilt, KT("list of pipes, [number weld gap]"), KT("list of rows")},
    {KT("kex_pipe_stkl"), notBuilt, KT("list of pipes"), KT("list of rows")},
    {KT("kex_pipe_tee"), notBuilt, KT("pipe, number x, vector direction, integer dn"),
     KT("pipe as given or nil")},
    {KT("kex_pipe_reducer"), notBuilt, KT("integer dn1, integer dn2, [T eccentric]"),
     KT("list (length vl) or nil")},
    {KT("kex_pipe_flange"), notBuilt, KT("integer dn, [integer pn, default 16]"),
     KT("list (D K n hole thread b) or nil")},
    {KT("kex_pipe_mitre"), notBuilt, KT("number od, real angle, integer segments, number radius"),
     KT("list of rows")},
    {KT("kex_pipe_saddle"), notBuilt,
     KT("number od branch, number od main, real angle, [number offset], [integer n]"),
     KT("vl or nil")},
    {KT("kex_pipe_slope"), notBuilt, KT("pipe, number percent"), KT("pipe as given")},
    {KT("kex_pipe_solid"), notBuilt, KT("pipe, [T hollow]"), KT("solid or nil")},
    {KT("kex_pipe_iso"), notBuilt, KT("pipe or list of pipes, point, [number scale]"),
     KT("list of enames")},
    {KT("kex_pipe_label"), notBuilt, KT("pipe, [integer mask]"), KT("list of strings")},
};

} // namespace KEX
