# SPDX-License-Identifier: MIT
"""The PostgreSQL server the tests start themselves: local only, reached
with the role and password it reports, holding the register's script, gone
once stopped."""

import os
import socket
import unittest

import postgres_server

REPOSITORY = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")


class PostgresServerTest(unittest.TestCase):
    def setUp(self):
        self.server = postgres_server.shared(self)

    def test_the_role_reaches_its_database_over_tcp_with_its_password(self):
        c = self.server.connection
        self.assertEqual(c["host"], "127.0.0.1")
        result = self.server.psql(
            "SELECT current_user, current_database(), inet_server_addr(), "
            "inet_server_port(), pg_encoding_to_char(encoding) "
            "FROM pg_database WHERE datname = current_database()")
        self.assertTrue(result.ok, result.error)
        self.assertEqual(result.rows(), ["%s|%s|127.0.0.1|%d|UTF8"
                                         % (c["user"], c["database"], c["port"])])
        wrong = dict(c, password="not-" + c["password"])
        self.server.connection = wrong
        try:
            refused = self.server.psql("SELECT 1")
        finally:
            self.server.connection = c
        self.assertFalse(refused.ok)
        self.assertIn("password authentication failed", refused.error)

    def test_listens_on_the_loopback_and_its_own_socket_only(self):
        c = self.server.connection
        self.assertTrue(os.path.exists(os.path.join(c["socket_dir"],
                                                    ".s.PGSQL.%d" % c["port"])))
        result = self.server.psql("SHOW listen_addresses")
        self.assertEqual(result.rows(), ["127.0.0.1"])
        with socket.create_connection(("127.0.0.1", c["port"]), timeout=5):
            pass

    def test_folds_the_case_of_letters_beyond_ascii(self):
        result = self.server.psql("SELECT lower('ZÜRICH ÄÖ'), upper('zürich')")
        self.assertTrue(result.ok, result.error)
        self.assertEqual(result.rows(), ["zürich äö|ZÜRICH"])

    def test_the_role_can_make_the_register_from_the_generated_script(self):
        with open(os.path.join(REPOSITORY, "schema", "postgresql.sql"), encoding="utf-8") as f:
            script = f.read()
        result = self.server.psql("CREATE SCHEMA scratch; SET search_path = scratch;\n" + script
                                  + "\nSELECT count(*) FROM pg_tables "
                                  "WHERE schemaname = 'scratch';\nDROP SCHEMA scratch CASCADE;")
        self.assertTrue(result.ok, result.error)
        self.assertEqual(result.rows(), ["11"])


class StoppedServerTest(unittest.TestCase):
    def test_a_stopped_server_leaves_no_folder_and_no_listener(self):
        postgres_server.shared(self)  # skips as the others do
        server = postgres_server.PostgresServer()
        port = server.connection["port"]
        server.stop()
        self.assertFalse(os.path.exists(server.folder))
        with self.assertRaises(OSError):
            socket.create_connection(("127.0.0.1", port), timeout=5).close()


if __name__ == "__main__":
    unittest.main()
