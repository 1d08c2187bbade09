# SPDX-License-Identifier: MIT
"""varnock.Dictionary and varnock.Collection as Python sees them."""

import datetime
import unittest

from support import TYPE_MISMATCH, AutomationErrorAssertions, varnock

KEY_EXISTS = 457
INVALID_PROCEDURE_CALL = 5
SUBSCRIPT_OUT_OF_RANGE = 9


class DictionaryTest(AutomationErrorAssertions):
    def test_python_protocols_over_the_insertion_order(self):
        d = varnock.Dictionary()
        for key in ("b", "a", "c"):
            d.Add(key, key.upper())
        self.assertEqual(list(d), ["b", "a", "c"])
        self.assertEqual((d.Count, len(d)), (3, 3))
        self.assertEqual(d["c"], "C")
        self.assertIn("b", d)
        self.assertNotIn("B", d)  # keys compare exactly
        self.assertAutomationError(KEY_EXISTS, d.Add, "b", 2)
        self.assertAutomationError(INVALID_PROCEDURE_CALL, d.__getitem__, "B")
        d["b"] = 3
        d["new"] = 4
        self.assertEqual(d.Keys(), ["b", "a", "c", "new"])
        self.assertEqual(d.Items(), [3, "A", "C", 4])

    def test_it_copies_into_a_dict_and_reads_like_one(self):
        d = varnock.Dictionary()
        d.Add("b", 2)
        d.Add("A", None)
        d.Add("c", varnock.Empty)
        self.assertEqual(dict(d), {"b": 2, "A": None, "c": varnock.Empty})
        self.assertEqual(list(dict(d)), ["b", "A", "c"])  # insertion order kept
        self.assertEqual(d.items(), [("b", 2), ("A", None), ("c", varnock.Empty)])
        self.assertEqual(d.values(), [2, None, varnock.Empty])
        self.assertEqual(d.get("A", "missing"), None)  # a Null item is there
        self.assertEqual(d.get("a", "missing"), "missing")  # keys compare exactly
        self.assertEqual(dict(varnock.Dictionary()), {})

    def test_keys_are_text(self):
        d = varnock.Dictionary()
        d.Add(5, "five")
        d.Add(True, "yes")
        self.assertEqual(d.Keys(), ["5", "True"])
        self.assertEqual(d[5], "five")
        self.assertAutomationError(94, d.Add, None, "null")
        self.assertAutomationError(TYPE_MISMATCH, d.Add, ["list"], 1)

    def test_values_of_every_kind(self):
        d = varnock.Dictionary()
        record = varnock.CreateObject("Varnock.State")
        values = [None, varnock.Empty, 7, 2.5, "x", datetime.datetime(2000, 1, 2), record, d]
        for i, value in enumerate(values):
            d.Add(str(i), value)
        self.assertEqual(d.Items()[:6], values[:6])
        self.assertIs(d["1"], varnock.Empty)
        self.assertEqual(d["6"], record)
        self.assertIs(d["7"], d)

    def test_iteration_while_it_grows(self):
        d = varnock.Dictionary()
        d.Add("0", 0)
        seen = []
        for key in d:
            seen.append(key)
            if len(d) < 100:
                d.Add(str(len(d)), len(d))
        self.assertEqual(seen, [str(i) for i in range(100)])

    def test_repr(self):
        d = varnock.Dictionary()
        self.assertEqual(repr(d), "<varnock.Dictionary with 0 items>")
        d.Add("a", 1)
        self.assertEqual(repr(d), "<varnock.Dictionary with 1 item>")


class CollectionTest(AutomationErrorAssertions):
    def test_one_based_items(self):
        c = varnock.Collection()
        for value in ("a", "b", "c"):
            c.Add(value)
        self.assertEqual((c.Count, len(c)), (3, 3))
        self.assertEqual(list(c), ["a", "b", "c"])
        self.assertEqual(c.Item(3), "c")
        self.assertEqual(c.Item("2"), "b")  # converted as the component converts
        self.assertEqual(c.Item(2.5), "b")  # rounded half to even

    def test_python_indexing_counts_from_zero(self):
        c = varnock.Collection()
        for item in ("first", "second", "third"):
            c.Add(item)
        self.assertEqual(c[0], c.Item(1))
        self.assertEqual(c[2], "third")
        self.assertEqual(c[-1], c.Item(c.Count))
        self.assertEqual(c[-3], "first")
        self.assertEqual(c[1:], ["second", "third"])
        self.assertEqual(c[::-1], ["third", "second", "first"])
        self.assertEqual(c[5:9], [])
        for outside in (3, -4):
            with self.assertRaises(IndexError):
                c[outside]
        with self.assertRaises(TypeError):
            c["1"]
        self.assertEqual(list(c), c[:])
        self.assertIn("c[0] is c.Item(1)", varnock.Collection.__doc__)

    def test_indexes_are_converted_as_the_component_converts_numbers(self):
        c = varnock.Collection()
        c.Add("only")
        self.assertAutomationError(SUBSCRIPT_OUT_OF_RANGE, c.Item, 0)
        self.assertAutomationError(6, c.Item, 2**31)
        self.assertAutomationError(13, c.Item, "first")
        self.assertAutomationError(94, c.Item, None)

    def test_records_come_back_as_the_same_records(self):
        users = [varnock.CreateObject("Varnock.User") for _ in range(3)]
        c = varnock.Collection()
        for i, user in enumerate(users):
            user.Username = "user%d" % i
            c.Add(user)
        self.assertEqual(list(c), users)
        self.assertEqual([u.Username for u in c], ["user0", "user1", "user2"])
        c.Item(1).Lastname = "Changed"
        self.assertEqual(users[0].Lastname, "Changed")

    def test_iteration_while_it_grows(self):
        c = varnock.Collection()
        c.Add(0)
        seen = []
        for item in c:
            seen.append(item)
            if len(c) < 50:
                c.Add(len(c))
        self.assertEqual(seen, list(range(50)))

    def test_repr(self):
        c = varnock.Collection()
        c.Add(1)
        c.Add(2)
        self.assertEqual(repr(c), "<varnock.Collection with 2 items>")


if __name__ == "__main__":
    unittest.main()
