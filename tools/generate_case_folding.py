#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes case_folding_table.cpp into the folder given: Unicode's simple case
folding (one code point to one, as CaseFolding.txt's C and S entries) from
this Python's Unicode data, as runs that src/collation/case_folding.cpp
searches. The checked-in copy lives in src/collation/ (formatted with
clang-format-14); a test regenerates it and fails when it is stale.

  tools/generate_case_folding.py src/collation && clang-format-14 -i src/collation/case_folding_table.cpp
"""
import os
import sys
import unicodedata


def simple_fold(c):
    # casefold() is full folding: a one-character result is the C entry (or
    # no entry). Where full folding makes several characters, the S entry,
    # when there is one, is the simple lowercase; otherwise the code point
    # folds to itself (the T entries, for Turkic, are left out).
    folded = c.casefold()
    if len(folded) == 1:
        return folded
    lower = c.lower()
    return lower if len(lower) == 1 else c


def mappings():
    folds = {}
    for cp in range(0x110000):
        if 0xD800 <= cp <= 0xDFFF:
            continue
        to = ord(simple_fold(chr(cp)))
        if to != cp:
            folds[cp] = to
    # Folding twice changes nothing, or the comparison would not be an order.
    for cp, to in folds.items():
        if folds.get(to, to) != to:
            sys.exit("folding U+%04X is not stable" % cp)
    return folds


def runs(folds):
    """Runs of code points first, first+stride, ... that all move by the same
    delta, stride 1 or 2 (the upper/lower pairs of many blocks), taken
    greedily from the lowest code point not yet in a run. The code points a
    stride-2 run steps over fold to themselves, so no run starts inside
    another: the lookup finds a code point's run as the last that starts at
    or before it."""
    remaining = dict(folds)
    result = []
    for first in sorted(folds):
        if first not in remaining:
            continue
        delta = remaining[first] - first
        best = (1, 1)
        for stride in (1, 2):
            count = 1
            while remaining.get(first + count * stride, -1) - (first + count * stride) == delta \
                    and (stride == 1 or first + count * stride - 1 not in folds):
                count += 1
            if count > best[0]:
                best = (count, stride)
        count, stride = best
        for k in range(count):
            del remaining[first + k * stride]
        result.append((first, count, stride, delta))
    return result


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: generate_case_folding.py OUTPUT_FOLDER")
    folds = mappings()
    table = runs(folds)
    # Every mapping is in exactly one run.
    expanded = {}
    for first, count, stride, delta in table:
        for k in range(count):
            cp = first + k * stride
            if cp in expanded:
                sys.exit("U+%04X is in two runs" % cp)
            expanded[cp] = cp + delta
    if expanded != folds:
        sys.exit("the runs do not hold the mappings")
    for (first, count, stride, _), following in zip(table, table[1:]):
        if following[0] <= first + (count - 1) * stride:
            sys.exit("the run at U+%04X starts inside another" % following[0])
    lines = [
        "// SPDX-License-Identifier: MIT",
        "// Unicode %s simple case folding, as runs of code points that fold by the"
        % unicodedata.unidata_version,
        "// same delta. Written by tools/generate_case_folding.py from Python's Unicode",
        "// data (%d code points fold); run it again rather than edit this file." % len(folds),
        '#include "collation/folding_runs.h"',
        "",
        "namespace varnock::collation {",
        "",
        "const FoldingRun kFoldingRuns[] = {",
    ]
    for first, count, stride, delta in table:
        lines.append("    {0x%04X, %d, %d, %d}," % (first, count, stride, delta))
    lines += [
        "};",
        "",
        "const std::size_t kFoldingRunCount = sizeof kFoldingRuns / sizeof kFoldingRuns[0];",
        "",
        "const char* const kFoldingUnicodeVersion = \"%s\";" % unicodedata.unidata_version,
        "",
        "}  // namespace varnock::collation",
    ]
    with open(os.path.join(sys.argv[1], "case_folding_table.cpp"), "w", encoding="ascii") as out:
        out.write("\n".join(lines) + "\n")


main()
