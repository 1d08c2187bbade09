# SPDX-License-Identifier: MIT
"""Creating record objects by name, and what a class says about itself:
members(), dir(), repr() and the type library text."""

import unittest

from support import CLASSES, TYPE_MISMATCH, AutomationErrorAssertions, varnock

CANNOT_CREATE = 429


class CreationTest(AutomationErrorAssertions):
    def test_every_class_by_progid_or_class_identifier(self):
        for name in CLASSES:
            with self.subTest(name=name):
                o = varnock.CreateObject(("Varnock." + name).upper())
                self.assertIsInstance(o, varnock.Record)
                self.assertEqual(o.GetTableName(), name)
                self.assertEqual(repr(o), "<varnock.%s object>" % name)
        user = varnock.CreateObject("{8ec93ea5-f48a-45b9-8e88-7f9abe16a5d9}")
        self.assertEqual(user.GetTableName(), "User")

    def test_names_that_are_unknown_or_no_text(self):
        error = self.assertAutomationError(CANNOT_CREATE, varnock.CreateObject, "Varnock.Users")
        self.assertIn("'Varnock.Users'", str(error))
        self.assertAutomationError(CANNOT_CREATE, varnock.CreateObject, 5)
        self.assertAutomationError(94, varnock.CreateObject, None)
        self.assertAutomationError(TYPE_MISMATCH, varnock.CreateObject, ["Varnock.User"])

    def test_a_table_name_is_answered_with_its_progid(self):
        # CreateObject takes ProgIDs, as a script host's does; the tool's
        # "User" is a table name, and the refusal says what to write instead.
        error = self.assertAutomationError(CANNOT_CREATE, varnock.CreateObject, "zoneaddress")
        self.assertIn("its ProgID is 'Varnock.ZoneAddress'", error.description)
        error = self.assertAutomationError(CANNOT_CREATE, varnock.CreateObject, "Usr")
        self.assertNotIn("ProgID", error.description)

    def test_records_are_made_only_by_the_module(self):
        with self.assertRaises(TypeError):
            varnock.Record()
        with self.assertRaises(TypeError):
            type(varnock.CreateObject("Varnock.User").GetTableName)()

    def test_wrappers_of_one_record_are_equal_and_others_are_not(self):
        user = varnock.CreateObject("Varnock.User")
        self.assertNotEqual(user, varnock.CreateObject("Varnock.User"))
        holder = varnock.CreateObject("Varnock.User")
        holder.Bio = user
        again = holder.Bio
        self.assertEqual(again, user)
        self.assertEqual(hash(again), hash(user))
        again.Lastname = "Smith"
        self.assertEqual(user.Lastname, "Smith")


class MembersTest(AutomationErrorAssertions):
    def test_members_are_tuples_of_name_identifier_kind_and_arguments(self):
        described = varnock.members("ErrorLog")
        self.assertEqual(varnock.members("varnock.errorlog"), described)
        self.assertIn(("Message", 0x68030000, "propget", []), described)
        self.assertIn(("Message", 0x68030000, "propput", ["value"]), described)
        self.assertIn(("GetDataProperty", 0x6003000A, "method", ["strPropertyName"]), described)
        self.assertAutomationError(CANNOT_CREATE, varnock.members, "Users")

    def test_dir_and_attributes_agree_with_members(self):
        for name in CLASSES:
            o = varnock.CreateObject("Varnock." + name)
            described = varnock.members(name)
            with self.subTest(name=name):
                self.assertEqual(sorted(dir(o)), sorted({n for n, _, _, _ in described}))
                for member, _, kind, _ in described:
                    value = getattr(o, member)
                    if kind == "method":
                        self.assertTrue(callable(value), member)
                        self.assertIn(member, repr(value))
                    else:
                        self.assertNotIsInstance(value, type(o.GetTableName), member)

    def test_methods_describe_their_arguments_result_and_purpose(self):
        import inspect

        zone = varnock.CreateObject("Varnock.Zone")
        for name, _, kind, arguments in varnock.members("Zone"):
            if kind != "method":
                continue
            method = getattr(zone, name)
            signature = inspect.signature(method)
            self.assertEqual(list(signature.parameters), arguments, name)
            self.assertTrue(method.__doc__.startswith(name + "("), method.__doc__)
            self.assertEqual(method.__name__, name)
            self.assertEqual(method.__qualname__, "Zone." + name)

        every = inspect.signature(zone.GetEveryZone)
        self.assertEqual(every.parameters["strOrderClause"].default, "")
        self.assertEqual(every.parameters["lngOffset"].default, 1)
        self.assertEqual(every.parameters["lngNumRecords"].default, 0)
        # The signature binds what a call accepts, and refuses what it does not.
        every.bind("Zone > 'M'", lngNumRecords=5)
        with self.assertRaises(TypeError):
            every.bind(1, 2, 3, 4, 5)
        nxt = inspect.signature(zone.GetNextZone)
        self.assertIs(nxt.parameters["lngOffset"].default, inspect.Parameter.empty)

        doc = zone.GetEveryZone.__doc__
        self.assertTrue(
            doc.startswith(
                "GetEveryZone(strWhereClause='', strOrderClause='', lngOffset=1, "
                "lngNumRecords=0) -> Collection\n\n"
            ),
            doc,
        )
        self.assertIn("new Zone objects", doc)
        self.assertIn("Passed by reference: strWhereClause", doc)
        self.assertIn("-> Boolean", zone.GetZone.__doc__)
        self.assertNotIn("reference", zone.GetTableName.__doc__)

    def test_version(self):
        self.assertRegex(varnock.__version__, r"^\d+\.\d+")

    def test_type_library_text(self):
        text = varnock.idl()
        self.assertIsInstance(text, str)
        self.assertIn("library Varnock\n{", text)
        self.assertIn("[id(0x68030000), propget]\n        HRESULT Message(", text)


if __name__ == "__main__":
    unittest.main()
