#!/usr/bin/env bash
# SPDX-License-Identifier: LicenseRef-ORVALD
# The main job on a real drawing: measure the outlines of a facade that another program drew, save,
# draw, read back. Called by ./dev demo after the build.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
out=out/demo
mkdir -p "$out/home"
orvald="${ORVALD:-build/orvald} --home $out/home"

echo "== a facade panel, made with ezdxf"
/usr/bin/python3 examples/facade/make_panel.py "$out/panel.dxf"

echo "== measured with the kernel's functions"
$orvald run examples/facade/outline_lengths.lsp -d "$out/panel.dxf" \
    -s "$out/measured.dxf" --picture "$out/measured.svg"
$orvald draw "$out/measured.dxf" "$out/measured.png"

echo "== read back"
$orvald run examples/facade/check_lengths.lsp -d "$out/measured.dxf"
/usr/bin/python3 tests/tools/dxf_audit.py "$out/measured.dxf"

echo
echo "The result:"
for file in measured.dxf measured.svg measured.png; do echo "  $PWD/$out/$file"; done
