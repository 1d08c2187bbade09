# SPDX-License-Identifier: MIT
"""Late-bound calls from Python: member and keyword names in any case, how
the object host's argument errors arrive, ByRef write-back, what a script
sees of members that are not there, and how the failures of data methods
come through. The argument rules themselves are checked on the host."""

import datetime
import unittest

from support import (BAD_PARAMETER_COUNT, MEMBER_NOT_FOUND, OVERFLOW,
                     PARAMETER_NOT_FOUND, PARAMETER_NOT_OPTIONAL, TYPE_MISMATCH, UNKNOWN_NAME,
                     AutomationErrorAssertions, EventLogWatch, varnock)


def new_user():
    return varnock.CreateObject("Varnock.User")


class NamesTest(AutomationErrorAssertions):
    def test_members_in_any_case(self):
        user = new_user()
        self.assertEqual(user.GETTABLENAME(), "User")
        user.USERNAME = "jdoe"
        self.assertEqual(user.username, "jdoe")

    def test_keywords_in_any_case(self):
        country = varnock.CreateObject("Varnock.Country")
        self.assertTrue(country.IsDataProperty(strPropertyName="country"))
        self.assertFalse(country.IsDataProperty(STRPROPERTYNAME="country", blncasesensitive=True))
        self.assertTrue(country.IsDataProperty("Country", BlnCaseSensitive=True))
        self.assertTrue(country.IsDataProperty("country", varnock.Empty))  # Empty is false
        self.assertTrue(country.SetDataProperty(varpropertyvalue="Norway",
                                                strPropertyName="COUNTRY"))
        self.assertEqual(country.Country, "Norway")

    def test_unknown_attribute(self):
        user = new_user()
        with self.assertRaises(AttributeError) as caught:
            user.Colour
        self.assertIsInstance(caught.exception, varnock.AutomationError)
        self.assertEqual(caught.exception.number, UNKNOWN_NAME)
        self.assertIn("Colour", str(caught.exception))
        self.assertFalse(hasattr(user, "Colour"))
        self.assertEqual(getattr(user, "Colour", "default"), "default")

    def test_setting_an_unknown_attribute_makes_none(self):
        user = new_user()
        self.assertAutomationError(UNKNOWN_NAME, setattr, user, "Colour", "red")
        self.assertNotIn("Colour", dir(user))
        self.assertAutomationError(UNKNOWN_NAME, setattr, user, "__class__", dict)
        self.assertIs(type(user), varnock.Record)

    def test_members_cannot_be_deleted_or_methods_assigned(self):
        user = new_user()
        user.Lastname = "Smith"
        self.assertAutomationError(438, delattr, user, "Lastname")
        self.assertEqual(user.Lastname, "Smith")
        self.assertAutomationError(MEMBER_NOT_FOUND, setattr, user, "GetTableName", "x")
        self.assertEqual(repr(user.GetDataProperty),
                         "<method GetDataProperty of varnock.User object>")


class ArgumentTest(AutomationErrorAssertions):
    def test_arguments_that_do_not_bind_or_convert(self):
        user = new_user()
        for name, args, kwargs, number in (
                # The host's own checks, as they arrive.
                ("GetDataProperty", (), {}, PARAMETER_NOT_OPTIONAL),
                ("GetTableName", (1,), {}, BAD_PARAMETER_COUNT),
                ("IsDataProperty", ("Bio", "maybe"), {}, TYPE_MISMATCH),
                # Keywords that do not bind.
                ("SetDataProperty", (), {"varPropertyValue": "x"}, PARAMETER_NOT_OPTIONAL),
                ("GetDataProperty", ("a",), {"strPropertyName": "b"}, BAD_PARAMETER_COUNT),
                ("GetDataProperty", (), {"strColour": "x"}, UNKNOWN_NAME),
                ("IsDataProperty", ("Bio",), {"value": True}, UNKNOWN_NAME),
                ("IsDataProperty", ("Bio",), {"strPropertyName": "Bio"}, PARAMETER_NOT_FOUND),
                ("IsDataProperty", (), {"strPropertyName": "Bio", "STRPROPERTYNAME": "Bio"},
                 PARAMETER_NOT_FOUND),
                # Python values that do not convert to the declared type.
                ("GetDataProperty", (None,), {}, TYPE_MISMATCH),
                ("GetDataProperty", (object(),), {}, TYPE_MISMATCH),
                ("GetNextUser", (2**31,), {}, OVERFLOW),
                ("GetNextUser", (-2**31 - 1,), {}, OVERFLOW),
                ("GetNextUser", (float("nan"),), {}, OVERFLOW),
                ("GetNextUser", (float("inf"),), {}, OVERFLOW)):
            with self.subTest(name=name, args=args, kwargs=kwargs):
                self.assertAutomationError(number, getattr(user, name), *args, **kwargs)
        self.assertEqual(user.GetLastErrorMessage(), "")  # refused before the call
        error = self.assertAutomationError(TYPE_MISMATCH, setattr, user, "DSN", None)
        self.assertEqual(error.number, -2147352571)
        user.DSN = 5
        self.assertEqual(user.DSN, "5")


class DataMethodTest(AutomationErrorAssertions):
    """Data methods reach their database through DSN; one that names no
    reachable database shows how their failures come through to Python."""

    def setUp(self):
        self.user = new_user()
        self.user.DSN = "Provider=NoSuchProvider;Data Source=nowhere"

    def test_trapped_failures_give_the_failure_value(self):
        watch = EventLogWatch(self)
        self.assertIs(self.user.GetUser(), False)
        self.assertTrue(self.user.GetLastErrorMessage())
        every = self.user.GetEveryUser(strOrderClause="Lastname", lngNumRecords=10)
        self.assertIsInstance(every, varnock.Collection)
        self.assertEqual(len(every), 0)
        member = varnock.CreateObject("Varnock.GroupMember")
        member.DSN = self.user.DSN
        self.assertIsNone(member.GetParentInUser())  # no object
        self.assertEqual([e["source"] for e in watch.entries()],
                         ["GetUser", "GetEveryUser", "GetParentInUser"])

    def test_raised_failures_arrive_with_their_fields(self):
        watch = EventLogWatch(self)
        self.user.GetUser()
        logged = watch.entries()[0]
        # CountEvery traps nothing: the same failure is raised to the caller.
        with self.assertRaises(varnock.AutomationError) as caught:
            self.user.CountEveryUser()
        error = caught.exception
        self.assertEqual(error.number, logged["id"])
        self.assertEqual(error.description, self.user.GetLastErrorMessage())
        self.assertIn("%s [%s]" % (error.description, error.source), logged["message"])


class ByRefTest(AutomationErrorAssertions):
    def test_by_reference_argument_receives_its_final_value(self):
        user = new_user()
        name = varnock.ByRef(5)  # strPropertyName is text, passed by reference
        self.assertFalse(user.SetDataProperty(name, "x"))
        self.assertEqual(name.value, "5")
        self.assertEqual(user.GetLastErrorMessage(), "Property [5]doesn't exist in this class")
        by_keyword = varnock.ByRef(7)
        user.GetDataProperty(strPropertyName=by_keyword)
        self.assertEqual(by_keyword.value, "7")

    def test_unchanged_values_keep_their_python_objects(self):
        user = new_user()
        name = varnock.ByRef("lastname")
        day = datetime.date(2000, 5, 4)
        value = varnock.ByRef(day)
        self.assertTrue(user.SetDataProperty(name, value))
        self.assertEqual(name.value, "lastname")
        self.assertIs(value.value, day)
        self.assertEqual(user.Lastname, datetime.datetime(2000, 5, 4))

    def test_by_value_argument_is_not_written_back(self):
        name = varnock.ByRef(5)  # IsDataProperty takes its name by value
        self.assertFalse(new_user().IsDataProperty(name))
        self.assertEqual(name.value, 5)

    def test_plain_values_where_a_reference_is_declared(self):
        user = new_user()
        self.assertTrue(user.SetDataProperty("Lastname", "Smith"))
        self.assertEqual(user.GetDataProperty("lastname"), "Smith")

    def test_holder(self):
        self.assertIs(varnock.ByRef().value, varnock.Empty)
        holder = varnock.ByRef("x")
        self.assertEqual(repr(holder), "ByRef('x')")
        holder.value = "Smith"
        user = new_user()
        user.Lastname = holder  # a holder given as a property value is read
        self.assertEqual(user.Lastname, "Smith")

    def test_holder_of_an_inconvertible_value(self):
        holder = varnock.ByRef([1])
        self.assertAutomationError(TYPE_MISMATCH, new_user().GetDataProperty, holder)
        self.assertEqual(holder.value, [1])


if __name__ == "__main__":
    unittest.main()
