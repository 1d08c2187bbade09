"""Calls that work on the register let other Python threads run meanwhile."""

import os
import sqlite3
import tempfile
import threading
import time
import unittest

from support import varnock


class WaitingCallTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory(prefix="varnock-lock-")
        self.path = os.path.join(self.folder.name, "register.db")
        self.dsn = varnock.create_register(self.path)
        country = varnock.CreateObject("Varnock.Country")
        country.DSN = self.dsn
        country.Country = "Norway"
        self.assertTrue(country.AddCountry())

    def tearDown(self):
        self.folder.cleanup()

    def test_other_threads_run_while_a_call_waits_for_a_locked_register(self):
        # Another program holds the register's write lock; the call waits for it.
        blocker = sqlite3.connect(self.path, isolation_level=None, timeout=0)
        blocker.execute("BEGIN EXCLUSIVE")
        started = threading.Event()
        outcome = []

        def add():
            country = varnock.CreateObject("Varnock.Country")
            country.DSN = self.dsn
            country.Country = "Chile"
            started.set()
            outcome.append(country.AddCountry())

        begin = time.monotonic()
        waiting = threading.Thread(target=add)
        waiting.start()
        self.assertTrue(started.wait(10))
        # This thread keeps running Python code while the call waits.
        spins = 0
        deadline = time.monotonic() + 0.3
        while time.monotonic() < deadline:
            spins += 1
        self.assertTrue(waiting.is_alive(), "the call should still be waiting for the lock")
        blocker.execute("COMMIT")
        blocker.close()
        waiting.join(20)
        self.assertFalse(waiting.is_alive())
        self.assertEqual(outcome, [True])
        self.assertGreater(spins, 1000)
        self.assertLess(time.monotonic() - begin, 10, "the waiting call held every thread")

    def test_threads_calling_one_record_take_turns(self):
        user = varnock.CreateObject("Varnock.User")
        user.DSN = self.dsn
        user.Username = "nobody"
        failures = []
        stop = threading.Event()

        def read():
            try:
                while not stop.is_set():
                    user.GetUser()  # finds no one: fails, writing its message
            except Exception as error:  # noqa: BLE001 (reported below)
                failures.append(error)

        def write():
            try:
                for i in range(300):
                    user.Lastname = "name%d" % i
                    if not user.Lastname.startswith("name"):
                        failures.append(user.Lastname)
            except Exception as error:  # noqa: BLE001 (reported below)
                failures.append(error)

        readers = [threading.Thread(target=read) for _ in range(2)]
        writer = threading.Thread(target=write)
        for t in readers + [writer]:
            t.start()
        writer.join()
        stop.set()
        for t in readers:
            t.join()
        self.assertEqual(failures, [])
        self.assertEqual(user.Lastname, "name299")


if __name__ == "__main__":
    unittest.main()
