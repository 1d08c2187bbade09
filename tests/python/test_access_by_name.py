# SPDX-License-Identifier: MIT
"""Columns by name and as dictionaries, called from Python: what Python
values and containers become on the way through GetDictionary and
SetDictionary, and how failures of a Python mapping are trapped. The rules of
the operations themselves are checked on the record objects directly."""

import collections.abc
import datetime
import unittest

from support import EventLogWatch, signed, varnock


def new(name):
    return varnock.CreateObject("Varnock." + name)


def unknown(name):
    return "Property [%s]doesn't exist in this class" % name


class GetDictionaryTest(unittest.TestCase):
    def test_a_new_dictionary_of_the_values_in_column_order(self):
        pool = new("ZonePool")
        empty = pool.GetDictionary()
        self.assertIsInstance(empty, varnock.Dictionary)
        self.assertEqual(list(empty), ["Zone", "Address"])
        self.assertEqual(empty.Items(), [None, None])
        user = new("User")
        user.Username = "jdoe"
        user.DateCreated = datetime.date(2000, 5, 4)
        first = user.GetDictionary()
        self.assertEqual(first["UserName"], "jdoe")
        self.assertEqual(first["DateCreated"], datetime.datetime(2000, 5, 4))
        first["UserName"] = "changed"
        self.assertEqual(user.Username, "jdoe")
        self.assertIsNot(user.GetDictionary(), first)

    def test_the_dictionary_is_shared_not_copied(self):
        user = new("User")
        d = user.GetDictionary()
        user.Bio = d
        self.assertIs(user.Bio, d)
        user.Bio.Add("Extra", 1)
        self.assertTrue(d.Exists("Extra"))


class SetDictionaryTest(unittest.TestCase):
    def test_a_dict_is_assigned_in_its_order_up_to_the_first_refusal(self):
        user = new("User")
        self.assertFalse(user.SetDictionary({"USERNAME": "jdoe", "Colour": "red",
                                             "Lastname": "Smith"}))
        self.assertEqual(user.Username, "jdoe")
        self.assertIsNone(user.Lastname)
        self.assertEqual(user.GetLastErrorMessage(), unknown("Colour"))
        self.assertTrue(user.SetDictionary({"lastname": "Doe", "Authorized": 0}))
        self.assertEqual((user.Lastname, user.Authorized), ("Doe", 0))
        self.assertTrue(user.SetDictionary({}))

    def test_any_mapping(self):
        class Columns(collections.abc.Mapping):
            def __init__(self, **values):
                self.values = values

            def __getitem__(self, key):
                return self.values[key]

            def __iter__(self):
                return iter(self.values)

            def __len__(self):
                return len(self.values)

        class KeysAndItems:  # what dict.update() would take
            def keys(self):
                return ["Zone", "Test"]

            def __getitem__(self, key):
                return {"Zone": "north", "Test": False}[key]

        zone = new("Zone")
        self.assertTrue(zone.SetDictionary(Columns(Zone="south", Test=True)))
        self.assertEqual((zone.Zone, zone.Test), ("south", True))
        self.assertTrue(zone.SetDictionary(KeysAndItems()))
        self.assertEqual((zone.Zone, zone.Test), ("north", False))

    def test_keys_are_looked_up_as_the_mapping_gave_them(self):
        # A date key comes back from the component as a datetime, which a
        # dict would not find; the entry is refused as an unknown column.
        zone = new("Zone")
        self.assertFalse(zone.SetDictionary({datetime.date(2000, 5, 4): "x"}))
        self.assertEqual(zone.GetLastErrorMessage(), unknown("5/4/2000"))

    def test_failures_of_the_mapping_are_trapped(self):
        class Failing(dict):
            def __getitem__(self, key):
                if key == "Test":
                    raise LookupError("no test today")
                return dict.__getitem__(self, key)

        watch = EventLogWatch(self)
        zone = new("Zone")
        self.assertFalse(zone.SetDictionary(Failing(Zone="north", Test=True)))
        self.assertEqual(zone.Zone, "north")
        self.assertIn("LookupError", zone.GetLastErrorMessage())
        self.assertIn("no test today", zone.GetLastErrorMessage())
        entries = watch.entries()
        self.assertEqual(len(entries), 1)
        self.assertEqual(entries[0]["source"], "SetDictionary")
        self.assertEqual(entries[0]["id"], signed(0x80020009))
        self.assertTrue(entries[0]["message"].endswith(" [Python]"))

    def test_automation_errors_of_the_mapping_keep_their_fields(self):
        class Refusing(dict):
            def keys(self):
                raise varnock.AutomationError(1234, "not now", "Refusing")

        watch = EventLogWatch(self)
        zone = new("Zone")
        self.assertFalse(zone.SetDictionary(Refusing(Zone="x")))
        self.assertEqual(zone.GetLastErrorMessage(), "not now")
        self.assertEqual([(e["id"], e["source"], e["message"]) for e in watch.entries()],
                         [(1234, "SetDictionary", "\r\nnot now [Refusing]")])

    def test_interrupts_are_not_trapped(self):
        class Interrupted(dict):
            def __getitem__(self, key):
                raise KeyboardInterrupt

        with self.assertRaises(KeyboardInterrupt):
            new("Zone").SetDictionary(Interrupted(Zone="x"))

    def test_values_that_are_no_container_and_keys_that_do_not_map(self):
        watch = EventLogWatch(self)
        zone = new("Zone")
        for value in (5, "Zone", None, new("Zone")):
            with self.subTest(value=value):
                self.assertFalse(zone.SetDictionary(value))
        self.assertEqual([e["source"] for e in watch.entries()], ["SetDictionary"] * 4)
        self.assertEqual(watch.entries()[0]["id"], 424)
        self.assertFalse(zone.SetDictionary({("Zone",): "x"}))
        self.assertIsNone(zone.Zone)
        self.assertIn("tuple", zone.GetLastErrorMessage())


if __name__ == "__main__":
    unittest.main()
