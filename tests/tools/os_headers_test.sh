#!/usr/bin/env bash
# SPDX-License-Identifier: LicenseRef-ORVALD
# Kernel and module meet the operating system in kernel/os alone: no other file of theirs includes a header of
# the system's, of C, or of those parts of the C++ library that reach files, signals or the terminal.
# Names each line that does.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
system='[^>]*\.h|[^>]*/[^>]*|filesystem|fstream|iostream|cstdio|csignal|clocale|locale'
found=$(grep -rnE "^\s*#\s*include\s*<($system)>" --include='*.cpp' --include='*.h' --exclude-dir=os \
    kernel app lisp geom domains dialogs objects dbbridge || [ $? -eq 1 ])
[ -z "$found" ] || { printf 'beyond kernel/os:\n%s\n' "$found" >&2; exit 1; }
