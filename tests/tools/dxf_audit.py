#!/usr/bin/python3
# SPDX-License-Identifier: LicenseRef-ORVALD
"""Lets another program's library (python3-ezdxf) load and audit DXF files.

    dxf_audit.py FILE...    one line per problem; exit 1 when there is one, 77 when ezdxf is missing
"""
import logging
import sys

try:
    import ezdxf
except ImportError:
    sys.exit(77)


def problems(path):
    try:
        doc = ezdxf.readfile(path)
        audit = doc.audit()
    except Exception as error:  # whatever ends the loader is a verdict
        return [f"cannot be loaded: {type(error).__name__}: {error}"]
    return [item.message for item in audit.errors + audit.fixes]


def main():
    logging.disable(logging.CRITICAL)
    bad = False
    for path in sys.argv[1:]:
        for problem in problems(path):
            print(f"{path}: {problem}")
            bad = True
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
