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


def through_bio(value):
    user = varnock.CreateObject("Varnock.User")
    user.Bio = value
    return user.Bio


def as_text(value):
    holder = varnock.ByRef(value)
    varnock.CreateObject("Varnock.User").GetDataProperty(holder)
    return holder.value


class NullAndEmptyTest(AutomationErrorAssertions):
    def test_none_is_null(self):
        user = varnock.CreateObject("Varnock.User")
        self.assertIsNone(user.Lastname)  # a new object's columns are Null
        user.Lastname = "Smith"
        user.Lastname = None  # refused: Lastname does not take Null
        self.assertEqual(user.Lastname, "Smith")
        self.assertEqual(user.GetLastErrorMessage(), "Property Lastname cannot be set to NULL")
        user.Bio = None  # taken: Bio does
        self.assertIsNone(user.Bio)

    def test_empty_is_empty_not_null(self):
        user = varnock.CreateObject("Varnock.User")
        user.Lastname = varnock.Empty
        self.assertIs(user.Lastname, varnock.Empty)
        self.assertEqual(user.GetLastErrorMessage(), "")
        self.assertIs(user.GetDataProperty("NoSuchColumn"), varnock.Empty)
        self.assertEqual(as_text(varnock.Empty), "")
        self.assertAutomationError(TYPE_MISMATCH, as_text, None)  # Null has no text

    def test_empty_is_one_falsy_singleton(self):
        self.assertFalse(varnock.Empty)
        self.assertEqual(repr(varnock.Empty), "Empty")
        self.assertIsNot(varnock.Empty, None)
        self.assertIs(copy.copy(varnock.Empty), varnock.Empty)
        self.assertIs(copy.deepcopy(varnock.Empty), varnock.Empty)
        self.assertIs(pickle.loads(pickle.dumps(varnock.Empty)), varnock.Empty)
        with self.assertRaises(TypeError):
            type(varnock.Empty)()


class NumberTest(AutomationErrorAssertions):
    def test_32_bit_integers_stay_integers(self):
        for value in (0, 1, -1, 2**31 - 1, -2**31):
            with self.subTest(value=value):
                back = through_bio(value)
                self.assertIs(type(back), int)
                self.assertEqual(back, value)
                self.assertEqual(as_text(value), str(value))

    def test_wider_integers_become_doubles(self):
        for value in (2**31, -2**31 - 1, 2**53, -10**300):
            with self.subTest(value=value):
                back = through_bio(value)
                self.assertIs(type(back), float)
                self.assertEqual(back, float(value))
        self.assertEqual(as_text(2**31), "2147483648")

    def test_integers_beyond_a_double_overflow(self):
        user = varnock.CreateObject("Varnock.User")
        user.Bio = 1
        for value in (10**400, -10**400):
            with self.subTest(sign=value > 0):
                with self.assertRaises(varnock.AutomationError) as caught:
                    user.Bio = value
                self.assertEqual(caught.exception.number, OVERFLOW)
        self.assertEqual(user.Bio, 1)

    def test_booleans_are_not_integers(self):
        self.assertIs(through_bio(True), True)
        self.assertIs(through_bio(False), False)
        self.assertEqual(as_text(True), "True")

    def test_floats(self):
        self.assertEqual(through_bio(1.5), 1.5)
        self.assertIs(type(through_bio(2.0)), float)
        self.assertTrue(math.isnan(through_bio(float("nan"))))
        self.assertEqual(through_bio(float("-inf")), float("-inf"))
        self.assertEqual(as_text(1e-05), "1E-05")

    def test_objects_with_an_index_are_integers(self):
        class Seven:
            def __index__(self):
                return 7

        self.assertEqual(through_bio(Seven()), 7)
        self.assertIs(type(through_bio(Seven())), int)


class CurrencyTest(AutomationErrorAssertions):
    def test_rounded_half_to_even_at_four_places(self):
        for given, stored in (("12.34565", "12.3456"), ("12.34575", "12.3458"),
                              ("-1.00005", "-1.0000"), ("0.00015", "0.0002"),
                              ("2.5", "2.5000"), ("1E+3", "1000.0000"), ("-0.00004", "0.0000"),
                              ("0.000049999999999999999", "0.0000")):
            with self.subTest(given=given):
                back = through_bio(decimal.Decimal(given))
                self.assertIsInstance(back, decimal.Decimal)
                self.assertEqual(back, decimal.Decimal(stored))
        self.assertEqual(as_text(decimal.Decimal("12.34565")), "12.3456")

    def test_exact_whatever_the_decimal_context(self):
        with decimal.localcontext() as context:
            context.prec = 2
            context.rounding = decimal.ROUND_DOWN
            self.assertEqual(str(through_bio(decimal.Decimal("123456.78915"))), "123456.7892")

    def test_range_of_a_64_bit_count_of_ten_thousandths(self):
        largest, smallest = "922337203685477.5807", "-922337203685477.5808"
        self.assertEqual(through_bio(decimal.Decimal(largest)), decimal.Decimal(largest))
        self.assertEqual(through_bio(decimal.Decimal(smallest)), decimal.Decimal(smallest))
        # A tie at the bound rounds to the even count, which still fits.
        self.assertEqual(through_bio(decimal.Decimal(smallest + "5")), decimal.Decimal(smallest))
        for beyond in ("922337203685477.5808", "-922337203685477.5809", "922337203685477.58075",
                       "1E+15", "Infinity",
                       "-Infinity"):
            with self.subTest(beyond=beyond):
                self.assertAutomationError(OVERFLOW, through_bio, decimal.Decimal(beyond))

    def test_not_a_number_is_refused(self):
        for nan in ("NaN", "sNaN"):
            with self.subTest(nan=nan):
                self.assertAutomationError(TYPE_MISMATCH, through_bio, decimal.Decimal(nan))


class DateTest(AutomationErrorAssertions):
    def test_datetime_round_trip(self):
        for value in (datetime.datetime(2000, 5, 4, 13, 45, 7),
                      datetime.datetime(1899, 12, 30),
                      datetime.datetime(1899, 12, 29, 6, 0),
                      datetime.datetime(1, 1, 1),
                      datetime.datetime(9999, 12, 31, 23, 59, 59)):
            with self.subTest(value=value):
                back = through_bio(value)
                self.assertIs(type(back), datetime.datetime)
                self.assertEqual(back, value)

    def test_the_component_reads_the_same_date(self):
        self.assertEqual(as_text(datetime.datetime(2000, 5, 4, 13, 45, 7)), "5/4/2000 1:45:07 PM")
        self.assertEqual(as_text(datetime.datetime(1899, 12, 29, 6, 0)), "12/29/1899 6:00:00 AM")
        self.assertEqual(as_text(datetime.date(2000, 5, 4)), "5/4/2000")

    def test_a_date_is_midnight_of_that_day(self):
        back = through_bio(datetime.date(2000, 5, 4))
        self.assertIs(type(back), datetime.datetime)
        self.assertEqual(back, datetime.datetime(2000, 5, 4))

    def test_fractions_of_a_second_round_to_the_nearest_second(self):
        for value, stored in (
                (datetime.datetime(2000, 5, 4, 13, 45, 7, 600000), datetime.datetime(2000, 5, 4, 13, 45, 8)),
                (datetime.datetime(2000, 5, 4, 13, 45, 7, 400000), datetime.datetime(2000, 5, 4, 13, 45, 7)),
                # Before 30 December 1899 the time still counts forwards.
                (datetime.datetime(1899, 12, 29, 6, 0, 0, 600000), datetime.datetime(1899, 12, 29, 6, 0, 1)),
                (datetime.datetime(1899, 12, 29, 23, 59, 59, 700000), datetime.datetime(1899, 12, 30))):
            with self.subTest(value=value):
                self.assertEqual(through_bio(value), stored)

    def test_wall_clock_time_of_an_aware_datetime(self):
        zone = datetime.timezone(datetime.timedelta(hours=5))
        aware = datetime.datetime(2000, 5, 4, 13, 45, tzinfo=zone)
        self.assertEqual(through_bio(aware), datetime.datetime(2000, 5, 4, 13, 45))

    def test_a_date_past_year_9999_cannot_come_back(self):
        user = varnock.CreateObject("Varnock.User")
        user.Bio = datetime.datetime(9999, 12, 31, 23, 59, 59, 900000)  # rounds to year 10000
        self.assertAutomationError(6, getattr, user, "Bio")


class TextTest(AutomationErrorAssertions):
    def test_round_trip(self):
        for text in ("", "Smith", "Zoë 東京 🙂", "a\0b", "tab\there", "\udcff\udc80"):
            with self.subTest(text=text):
                self.assertEqual(through_bio(text), text)

    def test_lone_surrogates_that_are_no_bytes_are_refused(self):
        self.assertAutomationError(TYPE_MISMATCH, through_bio, "\ud800")


class ObjectValueTest(AutomationErrorAssertions):
    def test_records_and_containers_are_shared_objects(self):
        other = varnock.CreateObject("Varnock.Zone")
        self.assertEqual(through_bio(other), other)
        dictionary = varnock.Dictionary()
        self.assertIs(through_bio(dictionary), dictionary)
        collection = varnock.Collection()
        self.assertIs(through_bio(collection), collection)

    def test_a_mapping_comes_back_as_itself(self):
        mapping = {"Lastname": "Smith"}
        self.assertIs(through_bio(mapping), mapping)

    def test_values_that_do_not_map(self):
        user = varnock.CreateObject("Varnock.User")
        user.Bio = "kept"
        for value in ([1], (1,), {1}, b"bytes", object(), datetime.time(12, 0), 1j,
                      varnock.ByRef(varnock.ByRef(1))):
            with self.subTest(value=value):
                with self.assertRaises(varnock.AutomationError) as caught:
                    user.Bio = value
                self.assertEqual(caught.exception.number, TYPE_MISMATCH)
                self.assertIn(type(value).__name__, caught.exception.description)
        self.assertEqual(user.Bio, "kept")


if __name__ == "__main__":
    unittest.main()
