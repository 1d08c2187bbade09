# SPDX-License-Identifier: MIT
"""A team moving to a shared PostgreSQL register, written the way a new user
would: make the register's tables in the team's database with `varnock init`,
fill it from Python, copy it into a SQLite register file with `varnock copy`
for a laptop, and check that both answer the same."""

import datetime
import os
import subprocess
import tempfile
import unittest

import postgres_server
import support  # noqa: F401  (keeps the entries out of syslog when run by hand)
import varnock

VARNOCK = os.environ.get("VARNOCK_CLI", "varnock")


def varnock_command(*arguments):
    return subprocess.run([VARNOCK, *arguments], capture_output=True, text=True, timeout=120,
                          check=False)


class PostgresRegisterScript(unittest.TestCase):
    def setUp(self):
        server = postgres_server.shared(self)
        c = server.connection
        # A schema of this test's own in the server's database, so that the
        # register is made in a database that holds none yet.
        schema = "script_%d" % os.getpid()
        made = server.psql("CREATE EXTENSION IF NOT EXISTS citext SCHEMA public;"
                           " DROP SCHEMA IF EXISTS %s CASCADE; CREATE SCHEMA %s;"
                           % (schema, schema))
        self.assertTrue(made.ok, made.error)
        self.addCleanup(server.psql, "DROP SCHEMA IF EXISTS %s CASCADE;" % schema)
        self.dsn = ("Driver={PostgreSQL Unicode};Server=%s;Port=%d;Database=%s;UID=%s;PWD=%s;"
                    "CommLog=0;ConnSettings=SET search_path TO %s,public"
                    % (c["host"], c["port"], c["database"], c["user"], c["password"], schema))
        self.folder = tempfile.mkdtemp(prefix="varnock-script-")

    def test_script(self):
        made = varnock_command("init", self.dsn)
        self.assertEqual(made.returncode, 0, made.stderr)
        again = varnock_command("init", self.dsn)
        self.assertNotEqual(again.returncode, 0)
        self.assertIn("varnock:", again.stderr)

        def new(class_name, **values):
            record = varnock.CreateObject("Varnock." + class_name)
            record.DSN = self.dsn
            for column, value in values.items():
                setattr(record, column, value)
            self.assertTrue(getattr(record, "Add" + class_name)(), record.GetLastErrorMessage())
            return record

        for country in ["Norway", "Zürich", "Côte d'Ivoire"]:
            new("Country", Country=country)
        new("GroupCode", GroupCode="ADMIN", Group="Administrators")
        new("Zone", Zone="north", Test=False)
        new("ZonePool", Zone="north", Address=17)
        for name, last, when in [("jdoe", "Doe", datetime.datetime(2024, 3, 1, 9, 30, 40)),
                                 ("åsa", "Ström", datetime.datetime(2001, 12, 31, 23, 59))]:
            new("User", Username=name, Lastname=last, Country="Norway", Password="pw",
                Email=name + "@example.org", DateCreated=when, Authorized=True)
            new("GroupMember", GroupCode="ADMIN", UserName=name)
        new("ZoneAddress", Zone="north", UserName="jdoe", Address=-5,
            CreationDate=datetime.datetime(2024, 3, 1))
        new("LogFile", ProgramName="nightly", LogDate=datetime.datetime(2024, 3, 2),
            Message="done")

        # Case does not matter on the server, as on SQL Server.
        country = varnock.CreateObject("Varnock.Country")
        country.DSN = self.dsn
        country.Country = "ZÜRICH"
        self.assertTrue(country.GetCountry())
        self.assertEqual(country.Country, "Zürich")

        laptop = os.path.join(self.folder, "laptop.db")
        made = varnock_command("init", laptop)
        self.assertEqual(made.returncode, 0, made.stderr)
        laptop_dsn = made.stdout.strip()
        copied = varnock_command("copy", self.dsn, laptop)
        self.assertEqual(copied.returncode, 0, copied.stderr)
        self.assertIn("12 rows copied", copied.stdout)

        # Both registers answer the same, row for row and column for column.
        for class_name in ["Country", "GroupCode", "GroupMember", "LogFile", "User", "Zone",
                           "ZoneAddress", "ZonePool"]:
            answers = []
            for dsn in (self.dsn, laptop_dsn):
                record = varnock.CreateObject("Varnock." + class_name)
                record.DSN = dsn
                rows = getattr(record, "GetEvery" + class_name)()
                answers.append(sorted(repr({k: d[k] for d in [item.GetDictionary()] for k in d}) for item in rows))
            self.assertEqual(answers[0], answers[1], class_name)
            self.assertTrue(answers[0], class_name)

        # The seconds were rounded to the minute by both.
        user = varnock.CreateObject("Varnock.User")
        user.DSN = laptop_dsn
        user.Username = "JDOE"
        self.assertTrue(user.GetUser())
        self.assertEqual(user.DateCreated, datetime.datetime(2024, 3, 1, 9, 31))


if __name__ == "__main__":
    unittest.main()
