# SPDX-License-Identifier: MIT
"""A first script against the register's objects, written the way a new user
would write one: fill in a few records, copy one through a dictionary, make
some mistakes, then look at what the event log says about them."""

import datetime
import json
import os
import unittest

import support  # noqa: F401  (keeps the entries out of syslog when run by hand)
import varnock


class NewUserScript(unittest.TestCase):
    def setUp(self):
        setting = os.environ["VARNOCK_EVENT_LOG"]
        if not setting.startswith("file:"):
            self.skipTest("the event log is not a file")
        self.log = setting[len("file:"):]
        self.start = os.path.getsize(self.log) if os.path.exists(self.log) else 0

    def new_entries(self):
        with open(self.log, encoding="utf-8") as f:
            f.seek(self.start)
            return [json.loads(line) for line in f]

    def test_script(self):
        # Every class, with its first column filled in.
        first_values = {
            "Country": ("Country", "Norway"),
            "ErrorLog": ("DateCreated", datetime.datetime(2024, 3, 1, 9, 30)),
            "GroupCode": ("GroupCode", "ADMIN"),
            "GroupMember": ("GroupCode", "ADMIN"),
            "LogFile": ("ProgramName", "nightly"),
            "Parm": ("Section", "mail"),
            "State": ("State", "Oslo"),
            "User": ("Username", "jdoe"),
            "Zone": ("Zone", "north"),
            "ZoneAddress": ("Zone", "north"),
            "ZonePool": ("Zone", "north"),
        }
        objects = {}
        for name, (column, value) in first_values.items():
            record = varnock.CreateObject("Varnock." + name)
            setattr(record, column, value)
            self.assertEqual(record.GetTableName(), name)
            self.assertEqual(getattr(record, column), value)
            self.assertEqual(record.GetLastErrorMessage(), "")
            objects[name] = record

        # A whole user, then a copy of it made through a dictionary.
        user = objects["User"]
        user.Firstname = "Jane"
        user.Lastname = "Doe"
        user.Country = "Norway"
        user.Password = "correct horse"
        user.Email = "jane@example.org"
        user.DateCreated = datetime.date(2024, 3, 1)
        user.Authorized = True
        copy = varnock.CreateObject("Varnock.User")
        self.assertTrue(copy.SetDictionary(user.GetDictionary()))
        self.assertEqual(copy.Username, "jdoe")
        self.assertEqual(copy.DateCreated, datetime.datetime(2024, 3, 1))
        self.assertIs(copy.Authorized, True)
        self.assertEqual(dict(zip(copy.GetDictionary().Keys(), copy.GetDictionary().Items())),
                         dict(zip(user.GetDictionary().Keys(), user.GetDictionary().Items())))

        # Mistakes: each is refused, keeps the old value and says why.
        user.Authorized = "maybe"
        self.assertIs(user.Authorized, True)
        self.assertEqual(user.GetLastErrorMessage(), "Cannot convert this value to bit")
        user.Email = None
        self.assertEqual(user.Email, "jane@example.org")
        objects["ZonePool"].Address = "twelve"
        self.assertIsNone(objects["ZonePool"].Address)
        objects["ZoneAddress"].CreationDate = "yesterday"
        objects["GroupMember"].Username = None
        self.assertEqual(objects["Country"].GetDataProperty("Colour"), varnock.Empty)
        parm = objects["Parm"]
        self.assertFalse(parm.SetDictionary({"KeyName": "host", "Value": "smtp.example.org",
                                             "Locked": "maybe", "Comment": "never set"}))
        self.assertEqual((parm.KeyName, parm.Value, parm.Locked, parm.Comment),
                         ("host", "smtp.example.org", None, None))
        try:
            user.GetNextUser(lngOffset="ten", strOrderClause="Lastname")
        except varnock.AutomationError as error:
            self.assertEqual(error.number & 0xFFFFFFFF, 0x80020005)
        else:
            self.fail("an offset of 'ten' was accepted")

        # What the event log says, in the order it happened.
        entries = self.new_entries()
        for entry in entries:
            self.assertEqual(set(entry), {"time", "type", "category", "id", "source", "message"})
            self.assertRegex(entry["time"], r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d(\.\d+)?Z$")
            self.assertEqual((entry["type"], entry["category"]), (1, 0))
            self.assertTrue(entry["message"].startswith("\r\n"))
        self.assertEqual([(e["id"], e["source"], e["message"][2:]) for e in entries], [
            (13, "Authorized", "Cannot convert this value to bit"),
            (94, "Email", "Property Email cannot be set to NULL"),
            (13, "Address", "Cannot convert this value to int"),
            (13, "CreationDate", "Cannot convert this value to smalldatetime"),
            (94, "UserName", "Property UserName cannot be set to NULL"),
            (17, "", "Property [Colour]doesn't exist in this class"),
            (13, "Locked", "Cannot convert this value to bit"),
        ])


if __name__ == "__main__":
    unittest.main()
