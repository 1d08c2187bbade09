' SPDX-License-Identifier: MIT
' The record objects from VBScript, late-bound through Varnock.dll, as the
' register's Windows script pages use them.
'   cscript //nologo suite.vbs CONNECTION-STRING
' The register must be empty. Prints each failed check and "N passed,
' M failed"; quits with 1 when a check failed.
Option Explicit

Dim passed, failed
passed = 0
failed = 0

Sub Check(ok, what)
  If ok Then
    passed = passed + 1
  Else
    failed = failed + 1
    WScript.Echo "FAIL: " & what
  End If
End Sub

Function NewObject(className, dsn)
  Dim o
  Set o = CreateObject("Varnock." & className)
  If dsn <> "" Then o.DSN = dsn
  Set NewObject = o
End Function

Function AddPerson(dsn, name, lastName)
  Dim u
  Set u = NewObject("User", dsn)
  u.Username = name
  u.Firstname = UCase(Left(name, 1)) & Mid(name, 2)
  u.Lastname = lastName
  u.Password = "secret"
  u.Email = name & "@example.org"
  u.Country = "NO"
  u.Authorized = True
  AddPerson = u.AddUser()
End Function

Dim dsn
dsn = WScript.Arguments(0)

' Creation by ProgID, and what a new object holds.
Dim className, o
For Each className In Array("Country", "ErrorLog", "GroupCode", "GroupMember", "LogFile", _
                            "Parm", "State", "User", "Zone", "ZoneAddress", "ZonePool")
  Set o = CreateObject("Varnock." & className)
  Check o.GetTableName() = className, "GetTableName of " & className
  Check Left(o.DSN, 20) = "Provider=SQLOLEDB.1;", "the default DSN of " & className
  Check o.GetLastErrorMessage() = "", "no message on a new " & className
Next
Dim user
Set user = CreateObject("Varnock.User")
Check IsNull(user.Username) And IsNull(user.REMOTE_ADDR), "a new object's columns are Null"
Check user.DSN = CreateObject("Varnock.Country").DSN, "every class has the same default DSN"

' Refused assignments: the value is not stored, the message says why.
user.Username = "jdoe"
user.Username = Null
Check user.GetLastErrorMessage() = "Property UserName cannot be set to NULL", "Null refused"
Check user.Username = "jdoe", "the refused Null left the value"
user.Authorized = "maybe"
Check user.GetLastErrorMessage() = "Cannot convert this value to bit", "a bit refused"
user.Authorized = True
Check user.Authorized = True, "a bit accepted"

' Access by name, and dictionaries.
Check user.IsDataProperty("remote_addr"), "IsDataProperty in any case"
Check Not user.IsDataProperty("Colour"), "IsDataProperty of no column"
Check user.SetDataProperty("lastname", "Lee"), "SetDataProperty"
Check user.Lastname = "Lee", "SetDataProperty reached the column"
Check user.GetDataProperty("LASTNAME") = "Lee", "GetDataProperty in any case"
Check IsEmpty(user.GetDataProperty("Colour")), "GetDataProperty of no column is Empty"
Check user.GetLastErrorMessage() = "Property [Colour]doesn't exist in this class", _
      "GetDataProperty of no column says so"
Dim dict
Set dict = user.GetDictionary()
Check dict.Exists("UserName") And UBound(dict.Keys()) = 16, "GetDictionary gives a Scripting.Dictionary"
Check dict.Count = 17 And dict.Item("UserName") = "jdoe", "every column, by field name"
Check IsNull(dict.Item("Bio")), "Null columns stay Null in the dictionary"
Set dict = CreateObject("Scripting.Dictionary")
dict.Add "Firstname", "Jo"
dict.Add "Country", "SE"
Check user.SetDictionary(dict), "SetDictionary takes a Scripting.Dictionary"
Check user.Firstname = "Jo" And user.Country = "SE", "SetDictionary assigned the columns"
dict.Add "Colour", "red"
Check Not user.SetDictionary(dict), "SetDictionary with an unknown key"

' Writing: each Add inserts a row.
Check AddPerson(dsn, "ann", "Lee"), "AddUser ann"
Check AddPerson(dsn, "bob", "Brown"), "AddUser bob"
Check AddPerson(dsn, "cy", "Lee"), "AddUser cy"
Check Not AddPerson(dsn, "ANN", "Again"), "a duplicate key refused"

' A walk through the register, the order written back by GetLast.
Dim walker, order
Set walker = NewObject("User", dsn)
order = "Username"
Check walker.GetFirstUser("", order), "GetFirstUser"
Check walker.Username = "ann", "the first user"
Check walker.GetNextUser(1, "", order) And walker.Username = "bob", "GetNextUser after row 1"
Check walker.GetPreviousUser(2, "", order) And walker.Username = "ann", "GetPreviousUser"
Check walker.GetLastUser("", order) And walker.Username = "cy", "GetLastUser"
Check order = "Username DESC", "GetLastUser wrote the order back: " & order
Check Not walker.GetNextUser(3, "", "Username"), "nothing after the last row"

' Pages and For Each.
Dim everyone, someone, names
Set everyone = walker.GetEveryUser("", "Username")
Check everyone.Count = 3, "GetEveryUser gives every user"
names = ""
For Each someone In everyone
  names = names & someone.Username & ","
Next
Check names = "ann,bob,cy,", "For Each walks the collection in order: " & names
Check everyone.Item(1).Username = "ann" And everyone(3).Username = "cy", "Item counts from 1"
Check walker.GetEveryUser("", "Username", 2).Count = 1, "GetEveryUser leaves out the first two"
Check walker.GetEveryUser("", "Username", 0, 2).Count = 2, "GetEveryUser keeps at most two"
Check walker.CountEveryUser("Lastname = 'Lee'") = 2, "CountEveryUser"
Check everyone(1).DSN = dsn, "listed objects carry the DSN"

' Update and Delete.
walker.Username = "bob"
Check walker.GetUser(), "GetUser by key"
walker.Lastname = "Black"
Check walker.UpdateUser(), "UpdateUser"
Check NewObject("User", dsn).CountEveryUser("Lastname = 'Black'") = 1, "the update is in the register"
Check walker.DeleteUser("Username = 'cy'"), "DeleteUser with a condition"
Check walker.CountEveryUser() = 2, "the deleted row is gone"

' Relations: a group, its members, and the groups of a user.
Dim group, member, parent, children
Set group = NewObject("GroupCode", dsn)
group.GroupCode = "admins"
group.Group = "Administrators"
Check group.AddGroupCode(), "AddGroupCode"
Set member = NewObject("GroupMember", dsn)
member.GroupCode = "admins"
member.Username = "ann"
Check member.AddGroupMember(), "AddGroupMember"
Set parent = member.GetParentInGroupCode()
Check parent.Group = "Administrators", "GetParentInGroupCode"
Check group.CountChildrenInGroupMember() = 1, "CountChildrenInGroupMember"
Set children = group.GetChildrenInGroupMember()
Check children.Count = 1, "GetChildrenInGroupMember"
Check children(1).Username = "ann", "the child is ann"
walker.Username = "ann"
Check walker.GetDerivedChildrenInGroupCode().Count = 1, "the groups of a user"
Check walker.CountDerivedChildrenInGroupCode() = 1, "counted"

' Failure values: False, an empty collection, and the message.
Dim lost
Set lost = NewObject("User", "DSN=NoSuchRegister")
lost.Username = "ann"
Check Not lost.GetUser(), "GetUser fails on a register that cannot be opened"
Check InStr(lost.GetLastErrorMessage(), "Data source name not found") > 0, _
      "the driver manager's words: " & lost.GetLastErrorMessage()
Check lost.GetEveryUser().Count = 0, "GetEveryUser gives an empty collection"

' Errors raised, with their numbers.
On Error Resume Next
Dim n
Err.Clear
n = walker.CountEveryUser("NoSuchColumn = 1")
Check Err.Number <> 0 And Err.Description <> "", "CountEveryUser raises: " & Err.Number
Err.Clear
Set someone = everyone.Item(0)
Check Err.Number = 9, "Item(0) raises 9: " & Err.Number
Err.Clear
walker.NoSuchMember
Check Err.Number = 438, "an unknown member raises 438: " & Err.Number
Err.Clear
Set o = CreateObject("Varnock.NoSuchClass")
Check Err.Number = 429, "an unknown class raises 429: " & Err.Number
On Error GoTo 0

WScript.Echo passed & " passed, " & failed & " failed"
If failed > 0 Then WScript.Quit 1
