"""Columns by name and as dictionaries, called from Python: IsDataProperty,
GetDataProperty, SetDataProperty, GetDictionary and SetDictionary, with the
messages and event log entries that their refusals leave."""

import collections.abc
import datetime
import unittest

from support import CLASSES, EventLogWatch, signed, varnock

COLUMNS = {
    "Country": ["Country"],
    "ErrorLog": ["DateCreated", "UserId", "ErrorNumber", "ErrorDescription", "Message"],
    "GroupCode": ["GroupCode", "Group", "Comment"],
    "GroupMember": ["GroupCode", "UserName"],
    "LogFile": ["ProgramName", "LogDate", "Username", "Message"],
    "Parm": ["Section", "KeyName", "Value", "Comment", "Locked"],
    "State": ["State"],
    "User": ["UserName", "SiteType", "Firstname", "Lastname", "Country", "State", "Password",
             "Email", "Pagetopic", "Bio", "Graphic", "Link", "DateCreated", "Authorized",
             "AuthorisationDate", "AuthorisationMessage", "REMOTE_ADDR"],
    "Zone": ["Zone", "Test"],
    "ZoneAddress": ["Zone", "UserName", "Address", "CreationDate"],
    "ZonePool": ["Zone", "Address"],
}


def new(name):
    return varnock.CreateObject("Varnock." + name)


def unknown(name):
    return "Property [%s]doesn't exist in this class" % name


class IsDataPropertyTest(unittest.TestCase):
    def test_empty_name_is_a_column_of_one_column_classes_only(self):
        for name in CLASSES:
            with self.subTest(name=name):
                self.assertEqual(new(name).IsDataProperty(""), name in ("Country", "State"))
                self.assertEqual(new(name).IsDataProperty("", True), name in ("Country", "State"))

    def test_case_sensitive_test_asks_for_the_field_name(self):
        for name in ("User", "GroupMember", "ZoneAddress"):
            with self.subTest(name=name):
                o = new(name)
                self.assertFalse(o.IsDataProperty("Username", True))
                self.assertTrue(o.IsDataProperty("UserName", True))
                self.assertTrue(o.IsDataProperty("Username"))
                self.assertTrue(o.IsDataProperty("USERNAME"))
        log_file = new("LogFile")
        self.assertTrue(log_file.IsDataProperty("Username", True))
        self.assertFalse(log_file.IsDataProperty("UserName", True))

    def test_whole_names_only(self):
        country = new("Country")
        self.assertTrue(country.IsDataProperty("country"))
        self.assertFalse(country.IsDataProperty("country", True))
        for part in ("Count", "Countr", "Country ", "Country\0", "CountryCountry"):
            with self.subTest(part=part):
                self.assertFalse(country.IsDataProperty(part))

    def test_leaves_no_trace(self):
        watch = EventLogWatch(self)
        user = new("User")
        user.Lastname = None
        message = user.GetLastErrorMessage()
        self.assertFalse(user.IsDataProperty("Colour"))
        self.assertEqual(user.GetLastErrorMessage(), message)
        self.assertEqual(len(watch.entries()), 1)  # the refused Null only


class GetDataPropertyTest(unittest.TestCase):
    def test_any_case_reads_the_column(self):
        user = new("User")
        user.REMOTE_ADDR = "10.1.2.3"
        for spelling in ("REMOTE_ADDR", "remote_addr", "Remote_Addr"):
            self.assertEqual(user.GetDataProperty(spelling), "10.1.2.3")
        self.assertEqual(user.GetLastErrorMessage(), "")

    def test_unknown_name_gives_empty_a_message_and_an_entry(self):
        watch = EventLogWatch(self)
        country = new("Country")
        country.Country = "Norway"
        self.assertIs(country.GetDataProperty("Colour"), varnock.Empty)
        self.assertEqual(country.GetLastErrorMessage(), "Property [Colour]doesn't exist in this class")
        self.assertEqual(country.Country, "Norway")
        entries = watch.entries()
        self.assertEqual(len(entries), 1)
        self.assertEqual(entries[0]["id"], 17)
        self.assertEqual(entries[0]["source"], "")
        self.assertEqual(entries[0]["type"], 1)
        self.assertEqual(entries[0]["message"], "\r\n" + unknown("Colour"))


class SetDataPropertyTest(unittest.TestCase):
    def test_refused_values(self):
        watch = EventLogWatch(self)
        parm = new("Parm")
        self.assertFalse(parm.SetDataProperty("Locked", "maybe"))
        self.assertEqual(parm.GetLastErrorMessage(), "Cannot convert this value to bit")
        self.assertIsNone(parm.Locked)
        pool = new("ZonePool")
        self.assertFalse(pool.SetDataProperty("address", "twelve"))
        self.assertEqual(pool.GetLastErrorMessage(), "Cannot convert this value to int")
        member = new("GroupMember")
        self.assertFalse(member.SetDataProperty("Username", None))
        self.assertEqual(member.GetLastErrorMessage(), "Property UserName cannot be set to NULL")
        self.assertEqual([(e["id"], e["source"]) for e in watch.entries()],
                         [(13, "Locked"), (13, "Address"), (94, "UserName")])

    def test_null_where_allowed(self):
        parm = new("Parm")
        parm.Value = "x"
        self.assertTrue(parm.SetDataProperty("Value", None))
        self.assertIsNone(parm.Value)

    def test_unknown_name(self):
        watch = EventLogWatch(self)
        zone = new("Zone")
        self.assertFalse(zone.SetDataProperty("Colour", "red"))
        self.assertEqual(zone.GetLastErrorMessage(), unknown("Colour"))
        self.assertEqual([(e["id"], e["source"], e["message"]) for e in watch.entries()],
                         [(17, "", "\r\n" + unknown("Colour"))])

    def test_clears_an_earlier_message_even_when_it_succeeds(self):
        user = new("User")
        user.Authorized = "maybe"
        self.assertNotEqual(user.GetLastErrorMessage(), "")
        user.Lastname = "Smith"  # a direct assignment leaves it
        self.assertNotEqual(user.GetLastErrorMessage(), "")
        self.assertTrue(user.SetDataProperty("Authorized", True))
        self.assertEqual(user.GetLastErrorMessage(), "")


class GetDictionaryTest(unittest.TestCase):
    def test_keys_in_column_order_all_null(self):
        for name, columns in COLUMNS.items():
            with self.subTest(name=name):
                d = new(name).GetDictionary()
                self.assertIsInstance(d, varnock.Dictionary)
                self.assertEqual(d.Keys(), columns)
                self.assertEqual(list(d), columns)
                self.assertEqual(d.Count, len(columns))
                self.assertEqual(d.Items(), [None] * len(columns))

    def test_holds_the_values_and_is_a_new_dictionary_each_time(self):
        user = new("User")
        user.Username = "jdoe"
        user.DateCreated = datetime.date(2000, 5, 4)
        first = user.GetDictionary()
        self.assertEqual(first["UserName"], "jdoe")
        self.assertEqual(first["DateCreated"], datetime.datetime(2000, 5, 4))
        first["UserName"] = "changed"
        self.assertEqual(user.Username, "jdoe")
        self.assertIsNot(user.GetDictionary(), first)


class SetDictionaryTest(unittest.TestCase):
    def test_plain_dict_stops_at_the_first_refused_entry(self):
        user = new("User")
        self.assertFalse(user.SetDictionary({"Username": "jdoe", "Colour": "red",
                                             "Lastname": "Smith"}))
        self.assertEqual(user.Username, "jdoe")
        self.assertIsNone(user.Lastname)
        self.assertEqual(user.GetLastErrorMessage(), unknown("Colour"))

    def test_refused_value_stops_it_too(self):
        user = new("User")
        values = varnock.Dictionary()
        values.Add("Firstname", "Jane")
        values.Add("Authorized", "maybe")
        values.Add("Lastname", "Doe")
        self.assertFalse(user.SetDictionary(values))
        self.assertEqual(user.Firstname, "Jane")
        self.assertIsNone(user.Lastname)
        self.assertEqual(user.GetLastErrorMessage(), "Cannot convert this value to bit")

    def test_keys_in_any_case_all_taken(self):
        user = new("User")
        self.assertTrue(user.SetDictionary({"USERNAME": "jdoe", "lastname": "Doe",
                                            "Authorized": 0}))
        self.assertEqual((user.Username, user.Lastname, user.Authorized), ("jdoe", "Doe", 0))

    def test_empty_changes_nothing(self):
        user = new("User")
        user.Lastname = None
        message = user.GetLastErrorMessage()
        self.assertTrue(user.SetDictionary({}))
        self.assertTrue(user.SetDictionary(varnock.Dictionary()))
        self.assertEqual(user.GetLastErrorMessage(), message)

    def test_a_dictionary_goes_back_as_it_came(self):
        source = new("User")
        source.Username = "jdoe"
        source.Lastname = "Doe"
        source.Authorized = True
        target = new("User")
        # Every column is assigned again through its checks: the Null of
        # Country is refused there, and the columns after it are not reached.
        self.assertFalse(target.SetDictionary(source.GetDictionary()))
        self.assertEqual(target.GetLastErrorMessage(), "Property Country cannot be set to NULL")
        self.assertEqual((target.Username, target.Lastname, target.Authorized),
                         ("jdoe", "Doe", None))
        source.Country = "NO"
        source.Password = "secret"
        source.Email = "j@example.org"
        d = source.GetDictionary()
        target = new("User")
        self.assertTrue(target.SetDictionary(d))
        self.assertEqual(target.GetDictionary().Items(), d.Items())

    def test_the_dictionary_is_shared_not_copied(self):
        user = new("User")
        d = user.GetDictionary()
        user.Bio = d
        self.assertIs(user.Bio, d)
        user.Bio.Add("Extra", 1)
        self.assertTrue(d.Exists("Extra"))

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

    def test_no_container(self):
        watch = EventLogWatch(self)
        zone = new("Zone")
        for value in (5, "Zone", None, new("Zone")):
            with self.subTest(value=value):
                self.assertFalse(zone.SetDictionary(value))
        self.assertEqual([e["source"] for e in watch.entries()], ["SetDictionary"] * 4)
        self.assertEqual(watch.entries()[0]["id"], 424)

    def test_keys_that_do_not_map_are_trapped(self):
        zone = new("Zone")
        self.assertFalse(zone.SetDictionary({("Zone",): "x"}))
        self.assertIsNone(zone.Zone)
        self.assertIn("tuple", zone.GetLastErrorMessage())


if __name__ == "__main__":
    unittest.main()
