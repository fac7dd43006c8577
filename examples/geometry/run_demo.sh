#!/usr/bin/env bash
# SPDX-License-Identifier: LicenseRef-ORVALD
# The sheet of the plane geometry, which the documents show. Called by ./dev demo geometry after the build.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
out=out/geometry
mkdir -p "$out/home"
orvald="${ORVALD:-build/orvald} --home $out/home"

$orvald run examples/geometry/sheet.lsp -s "$out/geometry.dxf" --picture docs/geometry.svg
$orvald draw "$out/geometry.dxf" docs/geometry.png
/usr/bin/python3 tests/tools/dxf_audit.py "$out/geometry.dxf"
echo "The result:"
for file in $out/geometry.dxf docs/geometry.svg docs/geometry.png; do echo "  $PWD/$file"; done
