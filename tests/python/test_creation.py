"""Creating record objects by name, and what a class says about itself:
members(), dir(), repr() and the type library text."""

import re
import unittest

from support import CLASSES, TYPE_MISMATCH, AutomationErrorAssertions, varnock

CLASS_IDS = {
    "Country": "{581146D9-1869-4838-8622-46B0273D4895}",
    "ErrorLog": "{9AA3E79B-19D5-41FB-A0BF-50F9103A8F8C}",
    "GroupCode": "{A8EDAE86-6747-48E3-A62B-2EC3C40B987F}",
    "GroupMember": "{D3814D0B-659D-4AD4-B4F7-D75336A27260}",
    "LogFile": "{3D2B4B72-23CB-4473-AE0D-44ECB1261D92}",
    "Parm": "{BFB2AA06-40A1-49A3-8BEE-64B557B0E3C4}",
    "State": "{8E996BD7-2C4D-4119-83D3-650565B16C56}",
    "User": "{8EC93EA5-F48A-45B9-8E88-7F9ABE16A5D9}",
    "Zone": "{8D6812BC-E747-49DB-A3CB-384F259D9CB5}",
    "ZoneAddress": "{315EFA9A-D603-4702-9088-F4E127F5E8FA}",
    "ZonePool": "{806478F5-34C5-43DE-910B-79595BA5F049}",
}

MEMBER_COUNTS = {
    "Country": 21, "ErrorLog": 29, "GroupCode": 29, "GroupMember": 25, "LogFile": 27,
    "Parm": 29, "State": 21, "User": 61, "Zone": 29, "ZoneAddress": 29, "ZonePool": 24,
}

CANNOT_CREATE = 429


class CreationTest(AutomationErrorAssertions):
    def test_every_class_by_progid_in_any_case(self):
        for name in CLASSES:
            for progid in ("Varnock." + name, ("Varnock." + name).upper(),
                           ("varnock." + name).lower()):
                with self.subTest(progid=progid):
                    o = varnock.CreateObject(progid)
                    self.assertIsInstance(o, varnock.Record)
                    self.assertEqual(o.GetTableName(), name)
                    self.assertEqual(repr(o), "<varnock.%s object>" % name)

    def test_every_class_by_class_identifier_in_any_case(self):
        for name, clsid in CLASS_IDS.items():
            for spelling in (clsid, clsid.lower()):
                with self.subTest(clsid=spelling):
                    self.assertEqual(varnock.CreateObject(spelling).GetTableName(), name)

    def test_unknown_names_raise_429(self):
        interface_id = "{029DE9D9-6E5F-4886-B3BF-D34A1A9E0C9B}"  # _User, not a class
        for name in ("Varnock.Users", "User", "Varnock.", "", " Varnock.User",
                     CLASS_IDS["User"].strip("{}"), interface_id, "Scripting.Dictionary"):
            with self.subTest(name=name):
                error = self.assertAutomationError(CANNOT_CREATE, varnock.CreateObject, name)
                self.assertIn(repr(name), str(error))
                self.assertTrue(error.description)

    def test_names_that_are_not_text_are_converted_or_refused(self):
        self.assertAutomationError(CANNOT_CREATE, varnock.CreateObject, 5)
        self.assertAutomationError(94, varnock.CreateObject, None)
        self.assertAutomationError(TYPE_MISMATCH, varnock.CreateObject, ["Varnock.User"])

    def test_new_objects_are_independent_and_start_null(self):
        a = varnock.CreateObject("Varnock.User")
        b = varnock.CreateObject("Varnock.User")
        a.Username = "jdoe"
        a.DSN = "elsewhere"
        self.assertEqual(a.Username, "jdoe")
        self.assertIsNone(b.Username)
        self.assertNotEqual(b.DSN, "elsewhere")
        self.assertTrue(b.DSN)
        self.assertEqual(b.GetLastErrorMessage(), "")
        self.assertNotEqual(a, b)

    def test_records_are_made_only_by_the_module(self):
        with self.assertRaises(TypeError):
            varnock.Record()
        with self.assertRaises(TypeError):
            type(varnock.CreateObject("Varnock.User").GetTableName)()

    def test_wrappers_of_one_record_are_equal(self):
        user = varnock.CreateObject("Varnock.User")
        holder = varnock.CreateObject("Varnock.User")
        holder.Bio = user
        again = holder.Bio
        self.assertEqual(again, user)
        self.assertEqual(hash(again), hash(user))
        again.Lastname = "Smith"
        self.assertEqual(user.Lastname, "Smith")


class MembersTest(AutomationErrorAssertions):
    def test_member_counts(self):
        for name, count in MEMBER_COUNTS.items():
            with self.subTest(name=name):
                self.assertEqual(len(varnock.members(name)), count)
                self.assertEqual(varnock.members("Varnock." + name), varnock.members(name))

    def test_dispatch_identifiers(self):
        def ids(class_name):
            return {(n, k): i for n, i, k, _ in varnock.members(class_name)}

        error_log = ids("ErrorLog")
        self.assertEqual(error_log[("Message", "propget")], 0x68030000)
        self.assertEqual(error_log[("Message", "propput")], 0x68030000)
        self.assertEqual(error_log[("ErrorDescription", "propget")], 0x68030001)
        self.assertEqual(error_log[("DateCreated", "propget")], 0x68030004)
        self.assertEqual(error_log[("DSN", "propget")], 0x68030005)
        self.assertEqual(error_log[("GetTableName", "method")], 0x60030007)
        country = ids("Country")
        self.assertEqual(country[("GetTableName", "method")], 0x60030003)
        self.assertEqual(country[("GetLastErrorMessage", "method")], 0x60030004)
        self.assertEqual(country[("DeleteCountry", "method")], 0x60030013)

    def test_interface_order_kinds_and_arguments(self):
        described = varnock.members("Country")
        self.assertEqual([(n, k) for n, _, k, _ in described[:8]], [
            ("DSN", "propget"), ("DSN", "propput"), ("GetTableName", "method"),
            ("Country", "propget"), ("Country", "propput"), ("GetLastErrorMessage", "method"),
            ("IsDataProperty", "method"), ("GetDataProperty", "method")])
        arguments = {n: a for n, _, k, a in varnock.members("User") if k == "method"}
        self.assertEqual(arguments["IsDataProperty"], ["strPropertyName", "blnCaseSensitive"])
        self.assertEqual(arguments["SetDataProperty"], ["strPropertyName", "varPropertyValue"])
        self.assertEqual(arguments["GetEveryUser"],
                         ["strWhereClause", "strOrderClause", "lngOffset", "lngNumRecords"])
        self.assertEqual(arguments["GetNextUser"],
                         ["lngOffset", "strWhereClause", "strOrderClause"])
        for name, _, kind, args in varnock.members("User"):
            if kind == "propput":
                self.assertEqual(args, ["value"], name)
            if kind == "propget":
                self.assertEqual(args, [], name)

    def test_unknown_class(self):
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


class TypeLibraryTest(unittest.TestCase):
    def test_library_and_every_member(self):
        text = varnock.idl()
        self.assertIn("library Varnock", text)
        for name in CLASSES:
            start = text.index("interface _%s : IDispatch" % name)
            end = text.index("};", start)
            block = text[start:end]
            for member, dispid, kind, _ in varnock.members(name):
                with self.subTest(member="%s.%s" % (name, member)):
                    attributes = r"\[id\(0x%08x\)%s\]" % (
                        dispid, "" if kind == "method" else ", " + kind)
                    self.assertRegex(block, attributes + r"\s*HRESULT " + re.escape(member) + r"\(")


if __name__ == "__main__":
    unittest.main()
