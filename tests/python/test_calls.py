"""Late-bound calls from Python: member and keyword names in any case, the
argument checks of the object host, ByRef write-back, and what a script
sees of members that are not there, and how the failures of data methods
come through."""

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
        self.assertEqual(user.gettablename(), "User")
        self.assertEqual(user.GETTABLENAME(), "User")
        user.USERNAME = "jdoe"
        self.assertEqual(user.Username, "jdoe")
        self.assertEqual(user.username, "jdoe")
        user.remote_addr = "10.0.0.1"
        self.assertEqual(user.GetDataProperty("REMOTE_ADDR"), "10.0.0.1")

    def test_keywords_in_any_case(self):
        country = varnock.CreateObject("Varnock.Country")
        self.assertTrue(country.IsDataProperty(strPropertyName="country"))
        self.assertFalse(country.IsDataProperty(STRPROPERTYNAME="country", blncasesensitive=True))
        self.assertTrue(country.IsDataProperty("Country", BlnCaseSensitive=True))
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
        self.assertFalse(hasattr(user, "Colour"))
        self.assertAutomationError(UNKNOWN_NAME, setattr, user, "__class__", dict)
        self.assertIs(type(user), varnock.Record)

    def test_members_cannot_be_deleted_or_methods_assigned(self):
        user = new_user()
        user.Lastname = "Smith"
        self.assertAutomationError(438, delattr, user, "Lastname")
        self.assertEqual(user.Lastname, "Smith")
        self.assertAutomationError(MEMBER_NOT_FOUND, setattr, user, "GetTableName", "x")
        self.assertEqual(user.GetTableName(), "User")

    def test_property_values_are_converted_to_the_declared_type(self):
        user = new_user()
        user.DSN = 5
        self.assertEqual(user.DSN, "5")
        self.assertAutomationError(TYPE_MISMATCH, setattr, user, "DSN", None)
        self.assertEqual(user.DSN, "5")

    def test_a_method_keeps_its_object(self):
        user = new_user()
        user.Username = "jdoe"
        get = user.GetDataProperty
        del user
        self.assertEqual(get("Username"), "jdoe")
        self.assertEqual(repr(get), "<method GetDataProperty of varnock.User object>")


class ArgumentTest(AutomationErrorAssertions):
    def test_missing_required_argument(self):
        user = new_user()
        error = self.assertAutomationError(PARAMETER_NOT_OPTIONAL, user.GetDataProperty)
        self.assertEqual(error.number, -2147352561)
        self.assertAutomationError(PARAMETER_NOT_OPTIONAL, user.SetDataProperty, "Lastname")
        self.assertAutomationError(PARAMETER_NOT_OPTIONAL, user.SetDataProperty,
                                   varPropertyValue="x")

    def test_too_many_arguments(self):
        user = new_user()
        self.assertAutomationError(BAD_PARAMETER_COUNT, user.GetTableName, 1)
        self.assertAutomationError(BAD_PARAMETER_COUNT, user.IsDataProperty, "a", True, 1)
        self.assertAutomationError(BAD_PARAMETER_COUNT, user.GetDataProperty, "a",
                                   strPropertyName="b")

    def test_unknown_or_repeated_keywords(self):
        user = new_user()
        self.assertAutomationError(UNKNOWN_NAME, user.GetDataProperty, strColour="x")
        self.assertAutomationError(UNKNOWN_NAME, user.IsDataProperty, "Bio", value=True)
        self.assertAutomationError(PARAMETER_NOT_FOUND, user.IsDataProperty, "Bio",
                                   strPropertyName="Bio")
        self.assertAutomationError(PARAMETER_NOT_FOUND, user.IsDataProperty,
                                   strPropertyName="Bio", STRPROPERTYNAME="Bio")

    def test_optional_argument_takes_its_default(self):
        country = varnock.CreateObject("Varnock.Country")
        self.assertTrue(country.IsDataProperty("country"))
        self.assertFalse(country.IsDataProperty("country", True))
        self.assertTrue(country.IsDataProperty("country", varnock.Empty))  # Empty is false

    def test_inconvertible_arguments(self):
        user = new_user()
        self.assertAutomationError(TYPE_MISMATCH, user.IsDataProperty, "Bio", "maybe")
        self.assertAutomationError(TYPE_MISMATCH, user.GetDataProperty, None)
        self.assertAutomationError(TYPE_MISMATCH, user.GetDataProperty, object())
        self.assertAutomationError(TYPE_MISMATCH, user.GetNextUser, "first")
        for offset in (2**31, -2**31 - 1, float("nan"), float("inf")):
            with self.subTest(offset=offset):
                self.assertAutomationError(OVERFLOW, user.GetNextUser, offset)
        self.assertEqual(user.GetLastErrorMessage(), "")  # refused before the call


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

    def test_by_keyword_too(self):
        name = varnock.ByRef(7)
        new_user().GetDataProperty(strPropertyName=name)
        self.assertEqual(name.value, "7")

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
        holder.value = 3
        self.assertEqual(holder.value, 3)

    def test_holder_as_property_value_is_read(self):
        user = new_user()
        holder = varnock.ByRef("Smith")
        user.Lastname = holder
        self.assertEqual(user.Lastname, "Smith")

    def test_holder_of_an_inconvertible_value(self):
        holder = varnock.ByRef([1])
        self.assertAutomationError(TYPE_MISMATCH, new_user().GetDataProperty, holder)
        self.assertEqual(holder.value, [1])


if __name__ == "__main__":
    unittest.main()
