# SPDX-License-Identifier: MIT
"""What the Python tests share: the module, the event log they read back and
a few numbers.

Import varnock from here: when the tests are run by hand without
VARNOCK_EVENT_LOG, entries go to a file of their own instead of syslog.
"""

import json
import os
import tempfile
import unittest

if not os.environ.get("VARNOCK_EVENT_LOG"):
    os.environ["VARNOCK_EVENT_LOG"] = "file:" + os.path.join(
        tempfile.mkdtemp(prefix="varnock-tests-"), "events.jsonl")

import varnock  # noqa: E402  (the event log has to be chosen first)

EVENT_LOG = os.environ["VARNOCK_EVENT_LOG"]

CLASSES = ("Country", "ErrorLog", "GroupCode", "GroupMember", "LogFile", "Parm",
           "State", "User", "Zone", "ZoneAddress", "ZonePool")


def signed(number):
    """An error number as AutomationError.number carries it (signed 32-bit)."""
    return number - (1 << 32) if number >= 1 << 31 else number


UNKNOWN_NAME = signed(0x80020006)
PARAMETER_NOT_FOUND = signed(0x80020004)
TYPE_MISMATCH = signed(0x80020005)
OVERFLOW = signed(0x8002000A)
BAD_PARAMETER_COUNT = signed(0x8002000E)
PARAMETER_NOT_OPTIONAL = signed(0x8002000F)
MEMBER_NOT_FOUND = signed(0x80020003)


def restore_event_log():
    varnock.set_event_log(EVENT_LOG)


class EventLogWatch:
    """The entries that reach the event log file after the watch is made."""

    def __init__(self, test):
        if not EVENT_LOG.startswith("file:"):
            test.skipTest("the event log is not a file: " + EVENT_LOG)
        self.path = EVENT_LOG[len("file:"):]
        self.offset = os.path.getsize(self.path) if os.path.exists(self.path) else 0

    def entries(self):
        if not os.path.exists(self.path):
            return []
        with open(self.path, "rb") as f:
            f.seek(self.offset)
            text = f.read().decode("utf-8", "replace")
        return [json.loads(line) for line in text.splitlines()]


class AutomationErrorAssertions(unittest.TestCase):
    """assertRaises for AutomationError, checking its number as well."""

    def assertAutomationError(self, number, call, *args, **kwargs):
        with self.assertRaises(varnock.AutomationError) as caught:
            call(*args, **kwargs)
        self.assertEqual(caught.exception.number, number, str(caught.exception))
        return caught.exception
