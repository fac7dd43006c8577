#!/usr/bin/env bash
# SPDX-License-Identifier: LicenseRef-ORVALD
# host_imports.sh PREFIX HEADERS LIBRARY FILE...: an import library of what object files and archives take from
# the host, that is, of what the headers in HEADERS declare with HOST_API. Every other name stays missing and
# shows when the module is linked. headless.h is left out, the host of Windows has none of it.
set -euo pipefail
prefix=$1 headers=$2 library=$3
shift 3

# The classes, and the functions that are declared for themselves.
declared() {
    find "$headers" -name '*.h' ! -name headless.h -exec cat {} + | sed 's|//.*||' | tr '\n' ' ' |
        grep -oE 'class (HOST_API )?[A-Za-z]+|HOST_API [^(;{]+\(' | grep -oE '[A-Za-z_0-9]+ *\(?$' | tr -d ' ('
}
# "mangled name<tab>plain name" of what is imported and not there; without "__imp_" where a class of ours has a
# function of the host's in its table. Windows' own functions end in @ and a number.
wanted() {
    "${prefix}nm" -u "$@" | sed -nE 's/^ *U __imp__([^@]*)$/\1/p; s/^ *U _(_Z[^@]*)$/\1/p' | sort -u >"$library.names"
    paste "$library.names" <("${prefix}c++filt" --no-strip-underscore <"$library.names")
}

{
    echo 'LIBRARY host_interface.dll'
    echo 'EXPORTS'
    # A member counts by its class, as do the tables and run-time types of a class.
    awk -F'\t' 'NR == FNR { declared[$1]; next }
        { name = $2; sub(/^[a-z ]+ for /, "", name); sub(/[(:].*/, "", name); if (name in declared) print $1 }' \
        <(declared) <(wanted "$@")
} >"$library.def"
"${prefix}dlltool" --input-def "$library.def" --output-lib "$library"
