# SPDX-License-Identifier: MIT
"""GetUser from Python, beside Python's own sqlite3 module doing the same key
lookup on a connection kept for the run.

    PYTHONPATH=build/python python3 bench/python/session_bench.py \
        [--extension build/src/varnock_nocase.so] [--cli build/tools/varnock/varnock] \
        [--iterations N] [--runs R]

The register holds 10,000 users. Its text columns compare with the
collation VARNOCK_NOCASE, which the sqlite3 module gets from the extension
built beside the library, and the baseline then reads the register itself.
An interpreter whose sqlite3 module cannot load extensions (built without
them, as pyenv builds by default) reads a copy of the register instead,
the same table with SQLite's own NOCASE in its place: the same rows, the
same index, the same lookup; the register is then filled from that copy by
Varnock's own command-line tool. The output says which baseline ran.

Also two Python threads calling GetUser, each with a record object of its
own, against one thread: they gain only if calls let go of the interpreter
lock while they work on the register. Exits 1 when the target is missed.
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
TARGET = 2.0
LOOKUP = "SELECT * FROM [User] WHERE UserName = ?"


def user_row(name):
    return ("INSERT INTO [User] VALUES ('%s', 'web', 'First', 'Last', 'Norway', NULL, 'secret', "
            "'%s@example.org', 'topic', 'bio', NULL, NULL, '2000-05-04 13:45:00', 1, NULL, "
            "'approved', '10.0.0.1')" % (name, name))


def fill(db):
    db.execute("INSERT INTO [Country] VALUES ('Norway')")
    for i in range(USERS):
        db.execute(user_row("user%05d" % i))
    db.commit()


def with_collation(path, extension):
    """A connection to path that has loaded the register's collation, or
    None when this interpreter's sqlite3 module cannot load extensions."""
    db = sqlite3.connect(path)
    if not hasattr(db, "enable_load_extension"):
        db.close()
        return None
    db.enable_load_extension(True)
    db.load_extension(os.path.abspath(extension))
    db.enable_load_extension(False)
    return db


def plain_copy(register, folder, cli, dsn):
    """The copy of the register with NOCASE for VARNOCK_NOCASE, both filled."""
    plain = os.path.join(folder, "plain.db")
    schema = sqlite3.connect(register)
    statements = [sql.replace("VARNOCK_NOCASE", "NOCASE") for (sql,) in schema.execute(
        "SELECT sql FROM sqlite_master WHERE sql IS NOT NULL AND name NOT LIKE 'sqlite_%'")]
    schema.close()
    db = sqlite3.connect(plain)
    for sql in statements:
        db.execute(sql)
    db.execute("PRAGMA journal_mode = WAL")  # as the register's
    fill(db)
    db.close()
    subprocess.run([cli, "copy", "Provider=SQLite;Data Source=" + plain, dsn, "--append"],
                   check=True, stdout=subprocess.DEVNULL)
    return plain


def make_register(folder, extension, cli):
    """The register's connection string, the baseline's kept connection and
    what that connection reads."""
    register = os.path.join(folder, "register.db")
    dsn = varnock.create_register(register)
    kept = with_collation(register, extension)
    if kept is not None:
        fill(kept)
        return dsn, kept, "the register, VARNOCK_NOCASE loaded"
    plain = plain_copy(register, folder, cli, dsn)
    return dsn, sqlite3.connect(plain), "a copy with NOCASE (no extensions here)"


def best_us_per_call(loop, iterations, runs):
    best = None
    for _ in range(runs):
        start = time.perf_counter()
        loop(iterations)
        elapsed = time.perf_counter() - start
        best = elapsed if best is None else min(best, elapsed)
    return best / iterations * 1e6


def new_user(dsn):
    user = varnock.CreateObject("Varnock.User")
    user.DSN = dsn
    user.Username = KEY
    return user


def calls_per_second(dsn, threads, calls):
    """GetUser on `threads` threads, each with its own record object."""
    users = [new_user(dsn) for _ in range(threads)]
    failed = []

    def work(user):
        for _ in range(calls):
            if not user.GetUser():
                failed.append(user.GetLastErrorMessage())
                return

    running = [threading.Thread(target=work, args=(u,)) for u in users]
    start = time.perf_counter()
    for t in running:
        t.start()
    for t in running:
        t.join()
    elapsed = time.perf_counter() - start
    if failed:
        raise RuntimeError("GetUser failed: " + failed[0])
    return threads * calls / elapsed


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--extension", default=os.path.join("build", "src", "varnock_nocase.so"),
                        help="the register's collation for the sqlite3 module")
    parser.add_argument("--cli", default=os.path.join("build", "tools", "varnock", "varnock"),
                        help="Varnock's tool, which fills the register when sqlite3 cannot")
    parser.add_argument("--iterations", type=int, default=20000)
    parser.add_argument("--runs", type=int, default=5)
    args = parser.parse_args()

    with tempfile.TemporaryDirectory(prefix="varnock-session-bench-") as folder:
        dsn, kept, baseline_reads = make_register(folder, args.extension, args.cli)

        # Both sides must find the user they are timed for.
        user = new_user(dsn)
        assert user.GetUser(), user.GetLastErrorMessage()
        assert user.Email == KEY + "@example.org"
        assert kept.execute(LOOKUP, (KEY,)).fetchone()[0] == KEY

        def get_user(n, u=user):
            for _ in range(n):
                u.GetUser()

        def sqlite3_lookup(n, c=kept):
            for _ in range(n):
                c.execute(LOOKUP, (KEY,)).fetchone()

        measured = best_us_per_call(get_user, args.iterations, args.runs)
        baseline = best_us_per_call(sqlite3_lookup, args.iterations, args.runs)
        kept.close()
        ratio = measured / baseline
        met = ratio <= TARGET
        print("sqlite3 baseline reads %s" % baseline_reads)
        print("GetUser from Python                 %9.2f us per call" % measured)
        print("sqlite3 lookup on a kept connection %9.2f us per call" % baseline)
        print("ratio %.2fx, target at most %.2fx: %s" % (ratio, TARGET,
                                                        "met" if met else "MISSED"))

        calls = max(args.iterations // 2, 1)
        one = max(calls_per_second(dsn, 1, calls) for _ in range(3))
        two = max(calls_per_second(dsn, 2, calls) for _ in range(3))
        print("GetUser on one thread              %9.0f calls per second" % one)
        print("GetUser on two threads             %9.0f calls per second" % two)
        print("two threads against one: %.2fx (information)" % (two / one))
    return 0 if met else 1


if __name__ == "__main__":
    sys.exit(main())
