# SPDX-License-Identifier: MIT
"""A script as a new user writes it: build a small register of users, groups
and zones, then read it back, walk it, change it and follow its relations."""

import json
import os
import shutil
import tempfile
import unittest

from support import EventLogWatch, varnock


class RegisterScriptTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="varnock-script-")
        self.dsn = varnock.create_register(os.path.join(self.folder, "register.db"))
        self.trace = os.path.join(self.folder, "trace.jsonl")
        varnock.set_sql_trace(self.trace)

    def tearDown(self):
        varnock.set_sql_trace(None)
        shutil.rmtree(self.folder)

    def new(self, cls, **columns):
        record = varnock.CreateObject("Varnock." + cls)
        record.DSN = self.dsn
        for name, value in columns.items():
            setattr(record, name, value)
        return record

    def add(self, cls, **columns):
        record = self.new(cls, **columns)
        self.assertTrue(getattr(record, "Add" + cls)(), record.GetLastErrorMessage())
        return record

    def build(self):
        self.add("Country", Country="Norway")
        for name, last in (("jdoe", "Doe"), ("asmith", "Smith"), ("bjones", "Jones")):
            self.add("User", Username=name, Lastname=last, Country="Norway",
                     Password="secret", Email=name + "@example.org", Authorized=True)
        self.add("GroupCode", GroupCode="ADM", Group="Admins")
        self.add("GroupCode", GroupCode="USR", Group="Users", Comment="everyone")
        for group, user in (("ADM", "jdoe"), ("USR", "jdoe"), ("USR", "asmith")):
            self.add("GroupMember", GroupCode=group, Username=user)
        self.add("Zone", Zone="Z1", Test=False)
        for user, address in (("jdoe", 7), ("bjones", 8), ("asmith", 9)):
            self.add("ZoneAddress", Zone="Z1", Username=user, Address=address,
                     CreationDate="May 4, 2000 1:45 PM")

    def test_relations_of_a_small_register(self):
        self.build()
        zone = self.new("Zone", Zone="Z1")
        users = zone.GetDerivedChildrenInUser(strOrderClause="Lastname")
        self.assertEqual([u.Lastname for u in users], ["Doe", "Jones", "Smith"])
        self.assertTrue(all(u.DSN == self.dsn for u in users))
        self.assertEqual(zone.CountDerivedChildrenInUser(), 3)

        user = self.new("User", Username="jdoe")
        self.assertEqual(user.CountDerivedChildrenInGroupCode(), 2)
        groups = user.GetDerivedChildrenInGroupCode("", "GroupCode")
        self.assertEqual([g.Group for g in groups], ["Admins", "Users"])
        self.assertEqual(len(user.GetDerivedChildrenInZone()), 1)

        member = self.new("GroupMember", GroupCode="USR", Username="asmith")
        self.assertEqual(member.GetParentInGroupCode().Comment, "everyone")
        self.assertEqual(member.GetParentInUser().Email, "asmith@example.org")
        member.GroupCode = "NONE"
        self.assertIsNone(member.GetParentInGroupCode())

        group = self.new("GroupCode", GroupCode="USR")
        self.assertEqual(group.CountChildrenInGroupMember(), 2)
        self.assertEqual(sorted(m.Username for m in group.GetChildrenInGroupMember()),
                         ["asmith", "jdoe"])

    def test_walk_page_change_and_trace(self):
        self.build()
        user = self.new("User")
        self.assertTrue(user.GetFirstUser(strOrderClause="UserName"))
        walked = [user.Username]
        position = 1
        while user.GetNextUser(position, "", "UserName"):
            walked.append(user.Username)
            position += 1
        self.assertEqual(walked, ["asmith", "bjones", "jdoe"])

        order = varnock.ByRef("")
        self.assertTrue(user.GetLastUser(strOrderClause=order))
        self.assertEqual(order.value, "UserName DESC")
        self.assertEqual(user.Username, "jdoe")

        page = user.GetEveryUser(strOrderClause="UserName", lngOffset=2, lngNumRecords=5)
        self.assertEqual([u.Username for u in page], ["jdoe"])
        self.assertEqual(user.CountEveryUser("Authorized = 1"), 3)

        address = self.new("ZoneAddress", Zone="Z1", Username="jdoe")
        self.assertTrue(address.GetZoneAddress())
        self.assertEqual(address.CreationDate.hour, 13)
        self.assertEqual(address.Address, 7)

        user.Username = "bjones"
        self.assertTrue(user.GetUser())
        user.Firstname = "Bob"
        self.assertTrue(user.UpdateUser())
        self.assertEqual(self.new("User").CountEveryUser("Firstname = 'bob'"), 1)
        self.assertFalse(self.new("User", Username="nobody").DeleteUser())
        self.assertTrue(self.new("ZoneAddress").DeleteZoneAddress("Username = 'bjones'"))

        with open(self.trace) as f:
            sent = [json.loads(line) for line in f]
        self.assertTrue(any(e["sql"].startswith("INSERT INTO [User] ([UserName]") for e in sent))
        self.assertTrue(all(e["ok"] for e in sent))

    def test_a_refused_write_is_reported(self):
        self.build()
        watch = EventLogWatch(self)
        duplicate = self.new("Country", Country="norway")
        self.assertFalse(duplicate.AddCountry())
        self.assertIn("UNIQUE", duplicate.GetLastErrorMessage())
        entries = watch.entries()
        self.assertEqual(entries[-1]["source"], "AddCountry")
        self.assertIn("SQL = INSERT INTO [Country] ([Country]) VALUES ('norway')",
                      entries[-1]["message"])


if __name__ == "__main__":
    unittest.main()
