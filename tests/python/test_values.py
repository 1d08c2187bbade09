# SPDX-License-Identifier: MIT
"""Python values as the component sees them and back.

Bio (nvarchar, Null allowed) of User stores whatever it is given, so what
comes back from it is the value's way in and out. The text that the
component makes of a value is read independently: strPropertyName of
GetDataProperty is a by-reference text argument, so a ByRef passed there
comes back holding the component's own text form of the value.
"""

import copy
import datetime
import decimal
import math
import pickle
import unittest

from support import OVERFLOW, TYPE_MISMATCH, AutomationErrorAssertions, varnock

D = decimal.Decimal
DT = datetime.datetime


def through_bio(value):
    user = varnock.CreateObject("Varnock.User")
    user.Bio = value
    return user.Bio


def as_text(value):
    holder = varnock.ByRef(value)
    varnock.CreateObject("Varnock.User").GetDataProperty(holder)
    return holder.value


class Seven:
    def __index__(self):
        return 7


def same(value):
    return value, value, type(value)


# (given, what comes back, its type)
ROUND_TRIPS = [
    # 32-bit integers, and objects with an index, stay integers; wider ones
    # become doubles.
    same(0), same(-1), same(2**31 - 1), same(-2**31),
    (2**31, 2.0**31, float), (-2**31 - 1, -2.0**31 - 1, float), (2**53, 2.0**53, float),
    (-10**300, -1e300, float), (Seven(), 7, int),
    # Booleans are not integers; doubles stay doubles.
    same(True), same(False), same(1.5), same(2.0), same(float("-inf")),
    # Currency: rounded half to even at four places, within a 64-bit count of
    # ten-thousandths; a tie at the bound rounds to the even count, which fits.
    (D("12.34565"), D("12.3456"), D), (D("12.34575"), D("12.3458"), D),
    (D("-1.00005"), D("-1.0000"), D), (D("0.00015"), D("0.0002"), D), (D("2.5"), D("2.5"), D),
    (D("1E+3"), D("1000"), D), (D("-0.00004"), D("0"), D),
    (D("0.000049999999999999999"), D("0"), D),
    same(D("922337203685477.5807")), same(D("-922337203685477.5808")),
    (D("-922337203685477.58085"), D("-922337203685477.5808"), D),
    # Dates and times; a date is midnight of that day, fractions of a second
    # round to the nearest second (before 30 December 1899 the time still
    # counts forwards), and an aware datetime gives its wall clock time.
    same(DT(2000, 5, 4, 13, 45, 7)), same(DT(1899, 12, 30)), same(DT(1899, 12, 29, 6, 0)),
    same(DT(1, 1, 1)), same(DT(9999, 12, 31, 23, 59, 59)),
    (datetime.date(2000, 5, 4), DT(2000, 5, 4), DT),
    (DT(2000, 5, 4, 13, 45, 7, 600000), DT(2000, 5, 4, 13, 45, 8), DT),
    (DT(2000, 5, 4, 13, 45, 7, 400000), DT(2000, 5, 4, 13, 45, 7), DT),
    (DT(1899, 12, 29, 6, 0, 0, 600000), DT(1899, 12, 29, 6, 0, 1), DT),
    (DT(1899, 12, 29, 23, 59, 59, 700000), DT(1899, 12, 30), DT),
    (DT(2000, 5, 4, 13, 45, tzinfo=datetime.timezone(datetime.timedelta(hours=5))),
     DT(2000, 5, 4, 13, 45), DT),
    # Text, with bytes that are no UTF-8 carried as lone surrogates.
    same(""), same("Zoë 東京 🙂"), same("a\0b\ttab"), same("\udcff\udc80"),
]

# (given, the component's text of it)
TEXTS = [
    (varnock.Empty, ""), (-2**31, "-2147483648"), (2**31, "2147483648"), (True, "True"),
    (1e-05, "1E-05"), (D("12.34565"), "12.3456"),
    (DT(2000, 5, 4, 13, 45, 7), "5/4/2000 1:45:07 PM"), (datetime.date(2000, 5, 4), "5/4/2000"),
]

# (given, the number of the error it raises)
REFUSED = [
    (10**400, OVERFLOW), (-10**400, OVERFLOW),
    (D("922337203685477.5808"), OVERFLOW), (D("-922337203685477.5809"), OVERFLOW),
    (D("922337203685477.58075"), OVERFLOW), (D("1E+15"), OVERFLOW), (D("Infinity"), OVERFLOW),
    (D("-Infinity"), OVERFLOW), (D("NaN"), TYPE_MISMATCH), (D("sNaN"), TYPE_MISMATCH),
    ("\ud800", TYPE_MISMATCH),  # a lone surrogate that is no byte
]


class ValueTest(AutomationErrorAssertions):
    def test_round_trips(self):
        for given, back, kind in ROUND_TRIPS:
            with self.subTest(given=given):
                value = through_bio(given)
                self.assertIs(type(value), kind)
                self.assertEqual(value, back)
        self.assertTrue(math.isnan(through_bio(float("nan"))))

    def test_texts_the_component_reads(self):
        for given, text in TEXTS:
            with self.subTest(given=given):
                self.assertEqual(as_text(given), text)
        self.assertAutomationError(TYPE_MISMATCH, as_text, None)  # Null has no text

    def test_refused_values_leave_the_column_as_it_was(self):
        user = varnock.CreateObject("Varnock.User")
        user.Bio = "kept"
        for given, number in REFUSED:
            with self.subTest(given=given):
                self.assertAutomationError(number, setattr, user, "Bio", given)
        for value in ([1], (1,), {1}, b"bytes", object(), datetime.time(12, 0), 1j,
                      varnock.ByRef(varnock.ByRef(1))):
            with self.subTest(value=value):
                error = self.assertAutomationError(TYPE_MISMATCH, setattr, user, "Bio", value)
                self.assertIn(type(value).__name__, error.description)
        self.assertEqual(user.Bio, "kept")

    def test_currency_is_exact_whatever_the_decimal_context(self):
        with decimal.localcontext() as context:
            context.prec = 2
            context.rounding = decimal.ROUND_DOWN
            self.assertEqual(str(through_bio(D("123456.78915"))), "123456.7892")

    def test_the_last_instant_of_the_calendar_comes_back(self):
        # Rounded to the nearest second it would be year 10000; a value a
        # column took always reads back.
        user = varnock.CreateObject("Varnock.User")
        for column in ("Bio", "DateCreated"):
            with self.subTest(column=column):
                setattr(user, column, DT(9999, 12, 31, 23, 59, 59, 999999))
                self.assertEqual(user.GetLastErrorMessage(), "")
                self.assertEqual(getattr(user, column), DT(9999, 12, 31, 23, 59, 59))

    def test_records_containers_and_mappings_come_back_as_themselves(self):
        other = varnock.CreateObject("Varnock.Zone")
        self.assertEqual(through_bio(other), other)
        for value in (varnock.Dictionary(), varnock.Collection(), {"Lastname": "Smith"}):
            with self.subTest(value=value):
                self.assertIs(through_bio(value), value)


class NullAndEmptyTest(AutomationErrorAssertions):
    def test_none_is_null_and_empty_is_not(self):
        user = varnock.CreateObject("Varnock.User")
        self.assertIsNone(user.Lastname)  # a new object's columns are Null
        user.Lastname = "Smith"
        user.Lastname = None  # refused: Lastname does not take Null
        self.assertEqual(user.Lastname, "Smith")
        user.Bio = None  # taken: Bio does
        self.assertIsNone(user.Bio)
        user.Lastname = varnock.Empty
        self.assertIs(user.Lastname, varnock.Empty)
        self.assertEqual(user.GetLastErrorMessage(), "")
        self.assertIs(user.GetDataProperty("NoSuchColumn"), varnock.Empty)

    def test_empty_is_one_falsy_singleton(self):
        self.assertFalse(varnock.Empty)
        self.assertEqual(repr(varnock.Empty), "Empty")
        self.assertIsNot(varnock.Empty, None)
        self.assertIs(copy.copy(varnock.Empty), varnock.Empty)
        self.assertIs(copy.deepcopy(varnock.Empty), varnock.Empty)
        self.assertIs(pickle.loads(pickle.dumps(varnock.Empty)), varnock.Empty)
        with self.assertRaises(TypeError):
            type(varnock.Empty)()


if __name__ == "__main__":
    unittest.main()
