# SPDX-License-Identifier: MIT
"""Choosing the event log from Python, and what a script sees when an entry
cannot be written: the one failure that the record objects raise. The
entries' fields and the failure numbers are checked on the event log."""

import json
import os
import tempfile
import unittest

from support import AutomationErrorAssertions, restore_event_log, signed, varnock

# The base of object-defined errors plus the system's code: the full device
# answers ENOSPC, 28.
WRITE_FAILED = signed(0x80040000 + 28)


class EventLogTest(AutomationErrorAssertions):
    def setUp(self):
        self.addCleanup(restore_event_log)

    def test_a_failed_write_raises_and_a_restored_log_writes_again(self):
        if not os.path.exists("/dev/full"):
            self.skipTest("no /dev/full")
        varnock.set_event_log("file:/dev/full")
        user = varnock.CreateObject("Varnock.User")
        user.Lastname = "Smith"  # accepted: nothing is written
        error = self.assertAutomationError(WRITE_FAILED, setattr, user, "Lastname", None)
        self.assertEqual(error.description, "ReportEvent() failed")
        self.assertEqual(error.source, "Event Log Component")
        self.assertEqual(user.GetLastErrorMessage(), "Property Lastname cannot be set to NULL")
        self.assertAutomationError(WRITE_FAILED, user.SetDictionary, {"Colour": "red"})
        restore_event_log()
        user.Lastname = None  # no raise
        self.assertEqual(user.Lastname, "Smith")

    def test_file_back_end(self):
        with tempfile.TemporaryDirectory() as directory:
            path = os.path.join(directory, "own.jsonl")
            varnock.set_event_log("file:" + path)
            varnock.CreateObject("Varnock.Zone").Test = "maybe"
            with open(path, encoding="utf-8") as f:
                entries = [json.loads(line) for line in f]
        self.assertEqual([(e["id"], e["source"], e["message"]) for e in entries],
                         [(13, "Test", "\r\nCannot convert this value to bit")])

    def test_unknown_back_ends(self):
        for setting in ("nowhere", "file:", ""):
            with self.subTest(setting=setting):
                self.assertAutomationError(5, varnock.set_event_log, setting)
        self.assertAutomationError(94, varnock.set_event_log, None)


if __name__ == "__main__":
    unittest.main()
