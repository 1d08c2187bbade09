// SPDX-License-Identifier: MIT
// The record objects from JScript, late-bound through Varnock.dll.
//   cscript //nologo suite.js CONNECTION-STRING
// The register must be empty. Prints each failed check and "N passed,
// M failed"; quits with 1 when a check failed.
var passed = 0, failed = 0;

function check(ok, what) {
  if (ok) {
    passed++;
  } else {
    failed++;
    WScript.Echo("FAIL: " + what);
  }
}

function newObject(className, dsn) {
  var o = new ActiveXObject("Varnock." + className);
  if (dsn) o.DSN = dsn;
  return o;
}

// The number of a raised error, as scripts read it.
function errorNumber(action) {
  try {
    action();
  } catch (e) {
    return e.number & 0xFFFF;
  }
  return 0;
}

var dsn = WScript.Arguments(0);

// Creation and defaults.
var classes = ["Country", "ErrorLog", "GroupCode", "GroupMember", "LogFile", "Parm", "State",
               "User", "Zone", "ZoneAddress", "ZonePool"];
for (var i = 0; i < classes.length; i++) {
  var o = new ActiveXObject("Varnock." + classes[i]);
  check(o.GetTableName() === classes[i], "GetTableName of " + classes[i]);
  check(o.DSN.indexOf("Provider=SQLOLEDB.1;") === 0, "the default DSN of " + classes[i]);
}
var zone = newObject("Zone", "");
check(zone.Zone === null, "a new object's columns are null");

// Refused assignments.
zone.Zone = null;
check(zone.GetLastErrorMessage() === "Property Zone cannot be set to NULL",
      "Null refused: " + zone.GetLastErrorMessage());

// Access by name and dictionaries.
check(zone.SetDataProperty("zone", "north"), "SetDataProperty");
check(zone.GetDataProperty("ZONE") === "north", "GetDataProperty in any case");
var dict = zone.GetDictionary();
check(dict.Exists("Zone") && dict.Item("Zone") === "north", "GetDictionary");
var given = new ActiveXObject("Scripting.Dictionary");
given.Add("Zone", "south");
check(zone.SetDictionary(given) && zone.Zone === "south", "SetDictionary");

// Writing, then reading back through an Enumerator.
var names = ["east", "north", "west"];
for (var i = 0; i < names.length; i++) {
  var z = newObject("Zone", dsn);
  z.Zone = names[i];
  z.Test = false;
  check(z.AddZone(), "AddZone " + names[i]);
}
var all = newObject("Zone", dsn).GetEveryZone("", "Zone");
check(all.Count === 3, "GetEveryZone");
var seen = [];
for (var e = new Enumerator(all); !e.atEnd(); e.moveNext())
  seen.push(e.item().Zone);
check(seen.join(",") === "east,north,west", "Enumerator walks the collection: " + seen.join(","));
check(all.Item(2).Zone === "north", "Item counts from 1");
var walker = newObject("Zone", dsn);
check(walker.GetFirstZone("", "Zone") && walker.Zone === "east", "GetFirstZone");
check(walker.GetNextZone(1, "", "Zone") && walker.Zone === "north", "GetNextZone");
check(walker.CountEveryZone("Zone <> 'west'") === 2, "CountEveryZone");
walker.Zone = "west";
check(walker.DeleteZone(), "DeleteZone by key");
check(walker.CountEveryZone() === 2, "the deleted row is gone");

// Failures and raised errors.
var lost = newObject("Zone", "DSN=NoSuchRegister");
check(!lost.GetFirstZone(), "GetFirstZone fails on a register that cannot be opened");
check(lost.GetLastErrorMessage().indexOf("Data source name not found") >= 0,
      "the driver manager's words");
check(errorNumber(function () { all.Item(0); }) === 9, "Item(0) raises 9");
check(errorNumber(function () { walker.NoSuchMember(); }) === 438, "an unknown member raises 438");
check(errorNumber(function () { walker.CountEveryZone("NoSuchColumn = 1"); }) !== 0,
      "CountEveryZone raises");

WScript.Echo(passed + " passed, " + failed + " failed");
if (failed > 0) WScript.Quit(1);
