#!/usr/bin/env python3
# SPDX-License-Identifier: LicenseRef-ORVALD
"""Runs the programs of bench/programs in our evaluator, newLISP and Lua and prints the ratios.

usage: lisp_against_others.py LISP_RUN [PROGRAM ...]

A program times itself: several rounds, the shortest counts. Every interpreter runs each program three times,
taking turns, and must give the same result as ours. Ratio: their time / ours, so above 1 we are
faster. An interpreter that is not installed is left out.
"""
import math
import pathlib
import shutil
import subprocess
import sys

PROGRAMS = pathlib.Path(__file__).parent / "programs"
TURNS = 3


def run(command):
    out = subprocess.run(command, capture_output=True, text=True, check=True).stdout
    lines = dict(line.split(" ", 1) for line in out.splitlines() if " " in line)
    return lines["result"], float(lines["ms"])


def main():
    ours = sys.argv[1]
    wanted = sys.argv[2:]
    others = [("newlisp", ".nl", ["newlisp", "-n"], ["-e", "(exit)"]), ("lua5.4", ".lua", ["lua5.4"], [])]
    others = [other for other in others if shutil.which(other[0])]
    ratios = {other[0]: [] for other in others}
    print("%-12s %10s" % ("program", "ours ms"), *("%12s ms  ratio" % other[0] for other in others))
    for program in sorted(PROGRAMS.glob("*.lsp")):
        name = program.stem
        if name == "timing" or (wanted and name not in wanted):
            continue
        best = {}
        for _ in range(TURNS):
            result, taken = run([ours, str(PROGRAMS / "timing.lsp"), str(program)])
            best["ours"] = min(taken, best.get("ours", taken))
            for other, suffix, command, tail in others:
                theirs = program.with_suffix(suffix)
                if not theirs.exists():
                    continue
                timing = str(PROGRAMS / ("timing" + suffix))
                if suffix == ".lua":
                    arguments = ["-e", "dofile('%s') dofile('%s')" % (timing, theirs)]
                else:
                    arguments = [timing, str(theirs)] + tail
                their_result, taken = run(command + arguments)
                if their_result != result:
                    sys.exit("%s: %s gives %s, ours %s" % (name, other, their_result, result))
                best[other] = min(taken, best.get(other, taken))
        line = "%-12s %10.2f" % (name, best["ours"])
        for other, *_ in others:
            if other in best:
                ratio = best[other] / best["ours"]
                ratios[other].append(ratio)
                line += "%15.2f %6.2f" % (best[other], ratio)
            else:
                line += "%15s %6s" % ("-", "-")
        print(line, flush=True)
    for other, values in ratios.items():
        if values:
            mean = math.exp(sum(map(math.log, values)) / len(values))
            print("geometric mean of the ratios against %s: %.2f" % (other, mean))


if __name__ == "__main__":
    main()
