#!/usr/bin/python3
# SPDX-License-Identifier: LicenseRef-ORVALD
"""Reads the kernel's data in a drawing with another program's library (python3-ezdxf).

    kernel_data.py FILE COUNT    fails unless COUNT objects have data whose "HANDLE" is their own, each but the
                                 first points at an object before it, and the library finds no error
"""
import sys

import ezdxf

path, count = sys.argv[1], int(sys.argv[2])
doc = ezdxf.readfile(path)
found = pointers = 0
for entity in list(doc.entitydb.values()):
    if not entity.is_alive or not entity.has_extension_dict:
        continue
    dictionary = entity.get_extension_dict()
    if "KEX_DATA" not in dictionary:
        continue
    found += 1
    groups = [(tag.code, tag.value) for tag in dictionary["KEX_DATA"].tags]
    assert groups[:3] == [(300, "KEX_ITEM"), (90, 1), (280, 1)], groups[:3]
    assert groups[-1] == (280, 2), groups[-1]
    at = groups.index((2, "HANDLE"))
    assert groups[at + 1] == (1, entity.dxf.handle), (groups[at + 1], entity.dxf.handle)
    assert sum(code == 330 for code, _ in groups) <= 1
    if "PREV" in dictionary:
        targets = [(tag.code, tag.value) for tag in dictionary["PREV"].tags]
        assert len(targets) == 1 and targets[0][0] == 340 and targets[0][1] in doc.entitydb, targets
        assert (330, targets[0][1]) in groups
        pointers += 1
assert found == count, found
assert pointers == count - 1, pointers
assert not doc.audit().errors
