"""GetUser from Python once sessions are kept, beside Python's own sqlite3
module doing the same key lookup on a connection kept for the run.

    PYTHONPATH=build/python python3 bench/python/session_bench.py \
        [--cli build/tools/varnock/varnock] [--iterations N] [--runs R]

The register holds 10,000 users. Python's sqlite3 module cannot load the
register's collation, so its copy of the table is the same table with
SQLite's NOCASE in its place: the same rows, the same index, the same
lookup. Also two Python threads calling GetUser (each with a record object
of its own) against one. Exits 1 when a target is missed.
"""

import argparse
import os
import sqlite3
import subprocess
import sys
import tempfile
import threading
import time

import varnock

USERS = 10000
KEY = "user05000"


def user_row(name):
    return ("INSERT INTO [User] VALUES ('%s', 'web', 'First', 'Last', 'Norway', NULL, 'secret', "
            "'%s@example.org', 'topic', 'bio', NULL, NULL, '2000-05-04 13:45:00', 1, NULL, "
            "'approved', '10.0.0.1')" % (name, name))


def make_registers(folder, cli):
    """The register, and the plain SQLite copy of it that sqlite3 can read."""
    register = os.path.join(folder, "register.db")
    plain = os.path.join(folder, "plain.db")
    dsn = varnock.create_register(register)
    schema = sqlite3.connect(register)
    statements = [sql.replace("VARNOCK_NOCASE", "NOCASE") for (sql,) in schema.execute(
        "SELECT sql FROM sqlite_master WHERE sql IS NOT NULL AND name NOT LIKE 'sqlite_%'")]
    schema.close()
    db = sqlite3.connect(plain)
    for sql in statements:
        db.execute(sql)
    db.execute("INSERT INTO [Country] VALUES ('Norway')")
    for i in range(USERS):
        db.execute(user_row("user%05d" % i))
    db.commit()
    db.close()
    # The register is filled from the plain copy by Varnock's own copy.
    subprocess.run([cli, "copy", "Provider=SQLite;Data Source=" + plain, dsn, "--append"],
                   check=True, stdout=subprocess.DEVNULL)
    return dsn, plain


def best_us_per_call(loop, iterations, runs):
    best = None
    for _ in range(runs):
        start = time.perf_counter()
        loop(iterations)
        elapsed = time.perf_counter() - start
        best = elapsed if best is None else min(best, elapsed)
    return best / iterations * 1e6


def report(label, measured, baseline, target, at_most=True):
    ratio = measured / baseline
    met = ratio <= target if at_most else ratio >= target
    print("%-52s %9.2f us  against %9.2f us  ratio %5.2fx  target %s %.2fx  %s" % (
        label, measured, baseline, ratio, "at most" if at_most else "at least", target,
        "met" if met else "MISSED"))
    return met


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--cli", default=os.path.join("build", "tools", "varnock", "varnock"))
    parser.add_argument("--iterations", type=int, default=20000)
    parser.add_argument("--runs", type=int, default=5)
    args = parser.parse_args()

    with tempfile.TemporaryDirectory(prefix="varnock-session-bench-") as folder:
        dsn, plain = make_registers(folder, args.cli)

        user = varnock.CreateObject("Varnock.User")
        user.DSN = dsn
        user.Username = KEY
        assert user.GetUser(), user.GetLastErrorMessage()

        kept = sqlite3.connect(plain)
        kept.execute("PRAGMA journal_mode = WAL")
        lookup = "SELECT * FROM [User] WHERE UserName = ?"
        assert kept.execute(lookup, (KEY,)).fetchone() is not None

        def get_user(n, u=user):
            for _ in range(n):
                u.GetUser()

        def sqlite3_lookup(n, c=kept):
            for _ in range(n):
                c.execute(lookup, (KEY,)).fetchone()

        measured = best_us_per_call(get_user, args.iterations, args.runs)
        baseline = best_us_per_call(sqlite3_lookup, args.iterations, args.runs)
        ok = report("GetUser, against sqlite3 on a kept connection", measured, baseline, 2.0)

        def on_threads(threads, calls):
            def work():
                own = varnock.CreateObject("Varnock.User")
                own.DSN = dsn
                own.Username = KEY
                for _ in range(calls):
                    own.GetUser()
            running = [threading.Thread(target=work) for _ in range(threads)]
            start = time.perf_counter()
            for t in running:
                t.start()
            for t in running:
                t.join()
            return threads * calls / (time.perf_counter() - start)

        one = max(on_threads(1, args.iterations // 2) for _ in range(3))
        two = max(on_threads(2, args.iterations // 2) for _ in range(3))
        print("%-52s %9.0f calls/s against %9.0f calls/s  ratio %5.2fx  (information)" % (
            "two Python threads calling GetUser, against one", two, one, two / one))
        kept.close()
    return 0 if ok else 1


if __name__ == "__main__":
    sys.exit(main())
