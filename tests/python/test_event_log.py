"""Choosing the event log from Python, and what a script sees when an entry
cannot be written: the one failure that the record objects raise."""

import json
import os
import tempfile
import unittest

from support import AutomationErrorAssertions, restore_event_log, signed, varnock

# The base of object-defined errors plus the system's code: the full device
# answers ENOSPC, 28.
WRITE_FAILED = signed(0x80040000 + 28)


class FailedWriteTest(AutomationErrorAssertions):
    def setUp(self):
        if not os.path.exists("/dev/full"):
            self.skipTest("no /dev/full")
        self.addCleanup(restore_event_log)
        varnock.set_event_log("file:/dev/full")

    def assertWriteFails(self, call, *args):
        error = self.assertAutomationError(WRITE_FAILED, call, *args)
        self.assertEqual(error.description, "ReportEvent() failed")
        self.assertEqual(error.source, "Event Log Component")

    def test_refused_assignment_raises(self):
        user = varnock.CreateObject("Varnock.User")
        user.Lastname = "Smith"  # accepted: nothing is written
        self.assertWriteFails(setattr, user, "Lastname", None)
        self.assertEqual(user.Lastname, "Smith")
        self.assertEqual(user.GetLastErrorMessage(), "Property Lastname cannot be set to NULL")

    def test_the_access_by_name_operations_raise_it_too(self):
        user = varnock.CreateObject("Varnock.User")
        # SetDataProperty traps the failure, then fails again reporting it.
        self.assertWriteFails(user.SetDataProperty, "Lastname", None)
        self.assertWriteFails(user.GetDataProperty, "Colour")
        self.assertWriteFails(user.SetDictionary, {"Colour": "red"})
        self.assertTrue(user.SetDataProperty("Lastname", "Doe"))

    def test_restored_log_writes_again(self):
        restore_event_log()
        user = varnock.CreateObject("Varnock.User")
        user.Lastname = None  # no raise
        self.assertEqual(user.GetLastErrorMessage(), "Property Lastname cannot be set to NULL")


class ChoiceTest(AutomationErrorAssertions):
    def setUp(self):
        self.addCleanup(restore_event_log)

    def test_file_back_end(self):
        with tempfile.TemporaryDirectory() as directory:
            path = os.path.join(directory, "own.jsonl")
            varnock.set_event_log("file:" + path)
            zone = varnock.CreateObject("Varnock.Zone")
            zone.Test = "maybe"
            zone.Zone = None
            with open(path, encoding="utf-8") as f:
                entries = [json.loads(line) for line in f]
        self.assertEqual([sorted(e) for e in entries],
                         [["category", "id", "message", "source", "time", "type"]] * 2)
        self.assertEqual([(e["type"], e["category"], e["id"], e["source"], e["message"])
                          for e in entries],
                         [(1, 0, 13, "Test", "\r\nCannot convert this value to bit"),
                          (1, 0, 94, "Zone", "\r\nProperty Zone cannot be set to NULL")])

    def test_unknown_back_ends(self):
        for setting in ("nowhere", "file:", "FILE:/tmp/x", "", None):
            with self.subTest(setting=setting):
                self.assertAutomationError(94 if setting is None else 5, varnock.set_event_log,
                                           setting)


if __name__ == "__main__":
    unittest.main()
