# SPDX-License-Identifier: MIT
"""A PostgreSQL server of the test process's own, for the tests that need one.

    server = postgres_server.shared(self)   # in setUp: skips without PostgreSQL
    result = server.psql("SELECT 1")        # result.ok, result.out, result.error

tests/support/postgres_server.sh makes it in a temporary folder on first
use, listening on 127.0.0.1 only; it is stopped and its folder removed when
the process exits (or, should the process die, by the script's watcher).
`server.connection` holds what a test connects with: host, port, database,
user, password, socket_dir and bin_dir. Without PostgreSQL's programs the
tests skip, unless VARNOCK_REQUIRE_ALL_BACK_ENDS=1 makes them fail.
"""

import atexit
import os
import subprocess
import tempfile

SCRIPT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support",
                      "postgres_server.sh")
UNAVAILABLE_STATUS = 3  # the script's: PostgreSQL's programs are missing
START_SECONDS = 90


def server_environment():
    """The environment for PostgreSQL's own programs: without the sanitizer
    run-times that a sanitized build preloads into the interpreter, which the
    server's processes must not load."""
    env = dict(os.environ)
    for name in ("LD_PRELOAD", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"):
        env.pop(name, None)
    return env


class Unavailable(Exception):
    """PostgreSQL's programs are not installed."""


class PsqlRun:
    def __init__(self, ok, out, error):
        self.ok = ok
        self.out = out
        self.error = error

    def rows(self):
        return self.out.splitlines()


class PostgresServer:
    """A running server; stop() ends it and removes its folder."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="varnock-postgres-")
        run = subprocess.run([SCRIPT, "start", self.folder, str(os.getpid())],
                             env=server_environment(),
                             capture_output=True, text=True, timeout=START_SECONDS,
                             check=False)
        if run.returncode != 0:
            subprocess.run([SCRIPT, "stop", self.folder], capture_output=True, check=False,
                           env=server_environment())
            if os.path.isdir(self.folder):
                os.rmdir(self.folder)
            if run.returncode == UNAVAILABLE_STATUS:
                raise Unavailable(run.stderr.strip())
            raise RuntimeError("postgres_server.sh start failed (%d): %s"
                               % (run.returncode, run.stderr.strip()))
        values = {}
        with open(os.path.join(self.folder, "connection.env"), encoding="utf-8") as f:
            for line in f:
                name, _, value = line.rstrip("\n").partition("=")
                values[name] = value
        self.connection = {
            "host": values["PGHOST"],
            "port": int(values["PGPORT"]),
            "database": values["PGDATABASE"],
            "user": values["PGUSER"],
            "password": values["PGPASSWORD"],
            "socket_dir": values["VARNOCK_POSTGRES_SOCKET_DIR"],
            "bin_dir": values["VARNOCK_POSTGRES_BIN"],
        }

    def environment(self):
        """The process's environment with the variables psql and libpq read."""
        c = self.connection
        env = dict(server_environment(), PGHOST=c["host"], PGPORT=str(c["port"]),
                   PGDATABASE=c["database"], PGUSER=c["user"], PGPASSWORD=c["password"],
                   PGCONNECT_TIMEOUT="10", PGCLIENTENCODING="UTF8", PSQLRC="/dev/null")
        env.pop("PGOPTIONS", None)
        return env

    def psql(self, sql):
        """Runs SQL text as the test role; stops at the first error, whose
        message (without "ERROR:  ") is the result's error. Rows are printed
        unaligned, fields separated by '|', NULL as "NULL"."""
        run = subprocess.run(
            [os.path.join(self.connection["bin_dir"], "psql"), "-X", "-q", "-A", "-t",
             "-v", "ON_ERROR_STOP=1", "-F", "|", "-P", "null=NULL"],
            input=sql, capture_output=True, text=True, env=self.environment(), timeout=60,
            check=False)
        error = ""
        if run.returncode != 0:
            at = run.stderr.find("ERROR:  ")
            error = run.stderr[at + 8:].split("\n")[0] if at >= 0 else run.stderr
        return PsqlRun(run.returncode == 0, run.stdout, error)

    def stop(self):
        subprocess.run([SCRIPT, "stop", self.folder], capture_output=True, timeout=60,
                       env=server_environment(),
                       check=False)


_shared = None
_shared_problem = None


def require_all_back_ends():
    return os.environ.get("VARNOCK_REQUIRE_ALL_BACK_ENDS") == "1"


def shared(test):
    """The process's one server, started on first call. Skips `test` when
    PostgreSQL is not installed (fails it under VARNOCK_REQUIRE_ALL_BACK_ENDS=1)
    and fails it when the server would not start."""
    global _shared, _shared_problem
    if _shared is None and _shared_problem is None:
        try:
            _shared = PostgresServer()
            atexit.register(_shared.stop)
        except Unavailable as e:
            _shared_problem = e
        except (RuntimeError, subprocess.TimeoutExpired) as e:
            _shared_problem = e
    if isinstance(_shared_problem, Unavailable):
        if require_all_back_ends():
            test.fail("VARNOCK_REQUIRE_ALL_BACK_ENDS=1, but " + str(_shared_problem))
        test.skipTest(str(_shared_problem))
    if _shared_problem is not None:
        test.fail(str(_shared_problem))
    return _shared
