# SPDX-License-Identifier: MIT
"""Inputs a script should not be able to crash the interpreter with, and
failures that must arrive as AutomationError whatever caused them."""

import gc
import threading
import unittest

from support import OVERFLOW, TYPE_MISMATCH, UNKNOWN_NAME, AutomationErrorAssertions, varnock


class ModuleFunctionTest(AutomationErrorAssertions):
    def test_wrong_types_are_automation_errors(self):
        for call, argument, number in (
                (varnock.CreateObject, b"Varnock.User", TYPE_MISMATCH),
                (varnock.CreateObject, 1.5, 429),
                (varnock.CreateObject, float("nan"), 429),
                (varnock.members, None, 94),
                (varnock.members, object(), TYPE_MISMATCH),
                (varnock.set_event_log, 5, 5),
                (varnock.set_event_log, {"file": "x"}, 13)):
            with self.subTest(call=call.__name__, argument=argument):
                self.assertAutomationError(number, call, argument)

    def test_error_fields(self):
        error = self.assertAutomationError(429, varnock.CreateObject, "Nope")
        self.assertIsInstance(error, Exception)
        self.assertEqual(error.source, "Varnock")
        self.assertIn("Nope", error.description)
        self.assertIn(error.description, str(error))
        self.assertIn("429", str(error))
        error = varnock.AutomationError(-2147352570, "Unknown name", "Varnock")
        self.assertIn("0x80020006", str(error))


class NameTest(AutomationErrorAssertions):
    def test_names_that_are_no_utf8(self):
        user = varnock.CreateObject("Varnock.User")
        self.assertFalse(hasattr(user, "\ud800"))
        self.assertAutomationError(UNKNOWN_NAME, setattr, user, "\ud800", 1)
        self.assertAutomationError(UNKNOWN_NAME, user.GetDataProperty, **{"\ud800": 1})
        self.assertAutomationError(UNKNOWN_NAME, user.GetDataProperty, **{"\udcff": 1})

    def test_names_that_are_no_text(self):
        user = varnock.CreateObject("Varnock.User")
        with self.assertRaises(TypeError):
            getattr(user, 5)
        with self.assertRaises(TypeError):
            setattr(user, 5, 1)


class ReentryTest(unittest.TestCase):
    def test_mapping_that_uses_the_record_it_is_given_to(self):
        user = varnock.CreateObject("Varnock.User")

        class Meddling(dict):
            depth = 0

            def __getitem__(self, key):
                Meddling.depth += 1
                if Meddling.depth < 5:
                    user.Lastname = "from inside"
                    user.SetDictionary(self)
                return dict.__getitem__(self, key)

        self.assertTrue(user.SetDictionary(Meddling(Username="jdoe", Bio="b")))
        self.assertEqual((user.Username, user.Lastname, user.Bio), ("jdoe", "from inside", "b"))

    def test_mapping_that_changes_while_it_is_read(self):
        class Shrinking(dict):
            def __getitem__(self, key):
                self.clear()
                return "x"

        class BadKeys(dict):
            def keys(self):
                return 5

        user = varnock.CreateObject("Varnock.User")
        self.assertTrue(user.SetDictionary(Shrinking(Username=1, Bio=2)))
        self.assertEqual((user.Username, user.Bio), ("x", "x"))
        self.assertFalse(user.SetDictionary(BadKeys(Bio=1)))
        self.assertIn("TypeError", user.GetLastErrorMessage())

    def test_mapping_that_holds_itself(self):
        zone = varnock.CreateObject("Varnock.Zone")
        looped = {"Zone": "north"}
        looped["Test"] = looped
        self.assertFalse(zone.SetDictionary(looped))  # a dict is no bit
        self.assertEqual(zone.Zone, "north")

    def test_failing_index(self):
        class Broken:
            def __index__(self):
                raise ValueError("no index")

        user = varnock.CreateObject("Varnock.User")
        with self.assertRaises(varnock.AutomationError) as caught:
            user.Bio = Broken()
        self.assertEqual(caught.exception.number, TYPE_MISMATCH)


class LifetimeTest(unittest.TestCase):
    def test_results_outlive_their_objects(self):
        user = varnock.CreateObject("Varnock.User")
        user.Username = "jdoe"
        d = user.GetDictionary()
        method = user.GetDictionary
        collection = varnock.Collection()
        collection.Add(user)
        del user
        gc.collect()
        self.assertEqual(d["UserName"], "jdoe")
        self.assertEqual(method()["UserName"], "jdoe")
        item = collection.Item(1)
        del collection
        gc.collect()
        self.assertEqual(item.Username, "jdoe")

    def test_holder_and_dictionary_cycles(self):
        for _ in range(100):
            holder = varnock.ByRef()
            holder.value = holder
            d = varnock.Dictionary()
            d.Add("self", d)
            record = varnock.CreateObject("Varnock.User")
            record.Bio = {"record": record}
        gc.collect()

    def test_large_values(self):
        user = varnock.CreateObject("Varnock.User")
        text = "x" * (8 << 20)
        user.Bio = text
        self.assertEqual(user.Bio, text)
        self.assertFalse(user.SetDataProperty(text, 1))
        self.assertTrue(user.GetLastErrorMessage().startswith("Property [xxx"))


class ThreadTest(unittest.TestCase):
    def test_threads_sharing_objects(self):
        shared = varnock.CreateObject("Varnock.User")
        failures = []

        def work(n):
            own = varnock.CreateObject("Varnock.User")
            try:
                for i in range(2000):
                    own.Lastname = "own%d" % i
                    shared.Lastname = "t%d-%d" % (n, i)
                    shared.SetDictionary({"Bio": i, "Username": "u%d" % n})
                    if own.Lastname != "own%d" % i:
                        failures.append(own.Lastname)
            except Exception as error:  # noqa: BLE001 (reported below)
                failures.append(error)

        threads = [threading.Thread(target=work, args=(n,)) for n in range(4)]
        for t in threads:
            t.start()
        for t in threads:
            t.join()
        self.assertEqual(failures, [])
        self.assertRegex(shared.Lastname, r"^t\d-1999$")
        self.assertEqual(shared.Bio, 1999)

    def test_overflow_in_every_thread(self):
        errors = []

        def work():
            try:
                varnock.CreateObject("Varnock.User").Bio = 10**400
            except varnock.AutomationError as error:
                errors.append(error.number)

        threads = [threading.Thread(target=work) for _ in range(4)]
        for t in threads:
            t.start()
        for t in threads:
            t.join()
        self.assertEqual(errors, [OVERFLOW] * 4)


class ReleaseTest(unittest.TestCase):
    def test_deeply_nested_containers_are_released(self):
        # Far deeper than a stack holds one destructor per level.
        outer = varnock.Dictionary()
        level = outer
        for _ in range(200000):
            collection, inner = varnock.Collection(), varnock.Dictionary()
            collection.Add(inner)
            level.Add("next", collection)
            level = inner
        del level, collection, inner
        del outer  # the process would end here if release recursed


if __name__ == "__main__":
    unittest.main()
