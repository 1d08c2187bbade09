# SPDX-License-Identifier: MIT
"""What a late-bound call from Python costs, beside plain Python doing the
same kind of thing in the same run.

    PYTHONPATH=build/python python3 bench/python/invoke_bench.py [--iterations N] [--runs R]

Each figure is the best of R runs of N calls in a loop (the loop's own cost
included on both sides), in nanoseconds per call.
"""

import argparse
import time

import varnock


class Plain:
    """The baseline: what a Python programmer would write without Varnock."""

    def GetTableName(self):
        return "User"


def best_ns_per_call(loop, iterations, runs):
    best = None
    for _ in range(runs):
        start = time.perf_counter_ns()
        loop(iterations)
        elapsed = time.perf_counter_ns() - start
        best = elapsed if best is None else min(best, elapsed)
    return best / iterations


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--iterations", type=int, default=200_000)
    parser.add_argument("--runs", type=int, default=7)
    args = parser.parse_args()

    user = varnock.CreateObject("Varnock.User")
    plain = Plain()

    def assign_late_bound(n, u=user):
        for _ in range(n):
            u.Lastname = "Smith"

    def assign_plain(n, o=plain):
        for _ in range(n):
            o.Lastname = "Smith"

    def call_late_bound(n, u=user):
        for _ in range(n):
            u.GetTableName()

    def call_plain(n, o=plain):
        for _ in range(n):
            o.GetTableName()

    # Every call must do what it is measured for.
    assign_late_bound(1)
    call_late_bound(1)
    assert user.Lastname == "Smith" and user.GetLastErrorMessage() == ""
    assert user.GetTableName() == plain.GetTableName()

    print("%d iterations, best of %d runs, ns per call" % (args.iterations, args.runs))
    for label, measured, baseline_label, baseline in (
            ('u.Lastname = "Smith"', assign_late_bound,
             "plain attribute assignment", assign_plain),
            ("u.GetTableName()", call_late_bound,
             "trivial Python method call", call_plain)):
        ns = best_ns_per_call(measured, args.iterations, args.runs)
        base = best_ns_per_call(baseline, args.iterations, args.runs)
        print("%-24s %8.1f   %-28s %8.1f   ratio %5.1f" % (label, ns, baseline_label, base,
                                                           ns / base))


if __name__ == "__main__":
    main()
