# SPDX-License-Identifier: MIT
"""Calls that work on the register let other Python threads run meanwhile,
and threads sharing one record take turns on it."""

import collections.abc
import datetime
import os
import sqlite3
import sys
import tempfile
import threading
import time
import unittest

from support import varnock

STORED_LASTNAME = "a last name long enough to live on the heap"
WRITTEN_COLUMNS = ("Lastname", "Firstname", "Email", "Bio", "Pagetopic")


class RegisterTest(unittest.TestCase):
    """A register with one country and one complete user, alice."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory(prefix="varnock-lock-")
        self.path = os.path.join(self.folder.name, "register.db")
        self.dsn = varnock.create_register(self.path)
        country = varnock.CreateObject("Varnock.Country")
        country.DSN = self.dsn
        country.Country = "Norway"
        self.assertTrue(country.AddCountry(), country.GetLastErrorMessage())
        user = varnock.CreateObject("Varnock.User")
        user.DSN = self.dsn
        self.assertTrue(user.SetDictionary({
            "Username": "alice", "SiteType": "web", "Firstname": "Alice",
            "Lastname": STORED_LASTNAME, "Country": "Norway", "Password": "secret",
            "Email": "alice@example.org", "DateCreated": datetime.datetime(2000, 5, 4),
            "Authorized": True}))
        self.assertTrue(user.AddUser(), user.GetLastErrorMessage())

    def tearDown(self):
        self.folder.cleanup()

    def lock_register(self):
        """Another program's connection holding the register's write lock."""
        blocker = sqlite3.connect(self.path, isolation_level=None, timeout=0)
        blocker.execute("BEGIN EXCLUSIVE")
        self.addCleanup(blocker.close)
        return blocker

    def new_country(self, name):
        country = varnock.CreateObject("Varnock.Country")
        country.DSN = self.dsn
        country.Country = name
        return country


def spin(seconds):
    """How many times this thread got round a loop of Python code."""
    spins = 0
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        spins += 1
    return spins


def run_thread(target, failures):
    def guarded():
        try:
            target()
        except Exception as error:  # noqa: BLE001 (the test reports it)
            failures.append(error)
    thread = threading.Thread(target=guarded)
    thread.start()
    return thread


class WaitingCallTest(RegisterTest):
    def test_other_threads_run_while_a_call_waits_for_a_locked_register(self):
        blocker = self.lock_register()
        country = self.new_country("Chile")
        started = threading.Event()
        outcome = []
        failures = []

        def add():
            started.set()
            outcome.append(country.AddCountry())

        begin = time.monotonic()
        waiting = run_thread(add, failures)
        self.assertTrue(started.wait(10))
        spins = spin(0.3)
        self.assertTrue(waiting.is_alive(), "the call should still be waiting for the lock")
        blocker.execute("COMMIT")
        waiting.join(20)
        self.assertFalse(waiting.is_alive())
        self.assertEqual(failures, [])
        self.assertEqual(outcome, [True], country.GetLastErrorMessage())
        self.assertGreater(spins, 1000)
        self.assertLess(time.monotonic() - begin, 10, "the waiting call held every thread")
        self.assertTrue(self.new_country("Chile").GetCountry())

    def test_a_property_waiting_for_its_record_lets_other_threads_run(self):
        # One thread's call holds the record while it waits for the register;
        # a second thread reading a property of that record waits its turn,
        # and this thread still runs meanwhile.
        blocker = self.lock_register()
        country = self.new_country("Chile")
        started = threading.Event()
        outcome = []
        read = []
        failures = []

        def add():
            started.set()
            outcome.append(country.AddCountry())

        begin = time.monotonic()
        adding = run_thread(add, failures)
        self.assertTrue(started.wait(10))
        time.sleep(0.05)  # the call is under way
        reading = run_thread(lambda: read.append(country.Country), failures)
        spins = spin(0.3)
        self.assertTrue(adding.is_alive(), "the call should still be waiting for the lock")
        blocker.execute("COMMIT")
        adding.join(20)
        reading.join(20)
        self.assertFalse(adding.is_alive() or reading.is_alive())
        self.assertEqual(failures, [])
        self.assertEqual((outcome, read), ([True], ["Chile"]))
        self.assertGreater(spins, 1000)
        self.assertLess(time.monotonic() - begin, 10, "a waiting property held every thread")


class SharedRecordTest(RegisterTest):
    def test_threads_using_one_record_take_turns(self):
        # GetUser replaces every value of the record while another thread
        # sets and reads them; the two wrappers, from two looks at one
        # collection item, are one record.
        finder = varnock.CreateObject("Varnock.User")
        finder.DSN = self.dsn
        every = finder.GetEveryUser()
        reader_view, writer_view = every.Item(1), every.Item(1)
        self.assertIsNot(reader_view, writer_view)
        self.assertEqual(reader_view, writer_view)
        # Threads change hands often, so the calls and the property accesses
        # overlap many times.
        self.addCleanup(sys.setswitchinterval, sys.getswitchinterval())
        sys.setswitchinterval(1e-5)
        failures = []
        stop = threading.Event()
        reads = [0, 0]

        def read(slot):
            while not stop.is_set():
                if not reader_view.GetUser():
                    failures.append(reader_view.GetLastErrorMessage())
                reads[slot] += 1

        def write():
            end = time.monotonic() + 2.0
            i = 0
            while time.monotonic() < end or min(reads) < 20:
                value = "a written value, also on the heap, %06d" % i
                # Properties, then the methods that work on the object alone.
                if i % 2:
                    for column in WRITTEN_COLUMNS:
                        setattr(writer_view, column, value)
                    seen = writer_view.Lastname
                else:
                    for column in WRITTEN_COLUMNS:
                        writer_view.SetDataProperty(column, value)
                    seen = writer_view.GetDataProperty("Lastname")
                # Unless a GetUser came between, the value just written.
                if seen not in (value, STORED_LASTNAME):
                    failures.append(seen)
                i += 1
                if time.monotonic() > end + 10:
                    failures.append("the readers made no progress: %r" % reads)
                    return

        readers = [run_thread(lambda slot=slot: read(slot), failures) for slot in range(2)]
        writer = run_thread(write, failures)
        writer.join()
        stop.set()
        for t in readers:
            t.join()
        self.assertEqual(failures, [])
        self.assertTrue(reader_view.GetUser())
        self.assertEqual((writer_view.Lastname, writer_view.Email),
                         (STORED_LASTNAME, "alice@example.org"))
        self.assertIsNone(writer_view.Bio)
        writer_view.Lastname = "last"
        self.assertEqual(reader_view.Lastname, "last")

    def test_a_call_lets_go_of_a_mapping_the_record_held(self):
        # GetUser replaces the mapping stored as a value while it runs
        # without the interpreter lock; the mapping goes all the same.
        released = []

        class Held(collections.abc.Mapping):
            def __init__(self, number):
                self.number = number

            def __getitem__(self, key):
                raise KeyError(key)

            def __iter__(self):
                return iter(())

            def __len__(self):
                return 0

            def __del__(self):
                released.append(self.number)

        user = varnock.CreateObject("Varnock.User")
        user.DSN = self.dsn
        user.Username = "alice"
        for number in range(20):
            user.Lastname = Held(number)
            self.assertTrue(user.GetUser(), user.GetLastErrorMessage())
        self.assertEqual(released, list(range(20)))
        self.assertEqual(user.Lastname, STORED_LASTNAME)


if __name__ == "__main__":
    unittest.main()
