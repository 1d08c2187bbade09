-- Tolvane_Register as an SQLite database: the register that Varnock's record
-- objects read and write through the SQLite provider. It stays an ordinary
-- SQLite database, usable from the sqlite3 shell with plain SQL:
--   * column names and their letter case are those of the SQL Server register;
--   * declared types keep SQL Server's names (nvarchar, ntext, int, bit,
--     smalldatetime), so readers can tell bits and dates from numbers and text;
--   * text compares without regard to case, beyond ASCII as under SQL Server's
--     default collation ('ZÜRICH' = 'Zürich'; accents count: 'é' <> 'e'), in
--     =, IN, ORDER BY, keys and LIKE: text columns declare COLLATE
--     VARNOCK_NOCASE, Varnock's own collation, which Varnock's build also
--     makes as an SQLite extension, varnock_nocase.so, with a LIKE to match.
--     Load it before other statements: in the sqlite3 shell
--       .load /path/to/varnock_nocase
--     and with SQLite's ODBC driver, LoadExt=/path/to/varnock_nocase.so in the
--     connection string. Without it a program still reads rows that no text
--     condition or order picks, but SQLite refuses ("no such collation
--     sequence: VARNOCK_NOCASE") every statement that compares or sorts text,
--     or adds, removes or re-keys rows of a table with a text key, rather than
--     let it write through indexes in an order that is not the register's; its
--     LIKE then folds ASCII only;
--   * dates are stored as 'YYYY-MM-DD HH:MM:00', whole minutes as smalldatetime
--     keeps them; the triggers below bring any date SQLite's date functions
--     read to that form, so rows written from the shell match the others;
--   * bits are 1 and 0;
--   * foreign keys hold only on connections that turn them on
--     (PRAGMA foreign_keys = ON), as the provider does on every connection.
-- Written by generate_schema from the table catalogue: change the catalogue
-- and run it again rather than edit this file.

-- Readers do not wait for writers, and several processes share the register.
PRAGMA journal_mode = WAL;

BEGIN;

CREATE TABLE "Country" (
  "Country" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  PRIMARY KEY ("Country")
);

-- A log has no key: two entries may be alike in every column.
CREATE TABLE "ErrorLog" (
  "DateCreated" smalldatetime NOT NULL,
  "UserId" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  "ErrorNumber" int NOT NULL,
  "ErrorDescription" nvarchar(255) COLLATE VARNOCK_NOCASE NOT NULL,
  "Message" nvarchar(255) COLLATE VARNOCK_NOCASE
);

CREATE TABLE "GroupCode" (
  "GroupCode" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  "Group" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  "Comment" ntext COLLATE VARNOCK_NOCASE,
  PRIMARY KEY ("GroupCode")
);

-- A log has no key: two entries may be alike in every column.
CREATE TABLE "LogFile" (
  "ProgramName" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  "LogDate" smalldatetime NOT NULL,
  "Username" nvarchar(50) COLLATE VARNOCK_NOCASE,
  "Message" nvarchar(255) COLLATE VARNOCK_NOCASE NOT NULL
);

CREATE TABLE "Parm" (
  "Section" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  "KeyName" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  "Value" nvarchar(255) COLLATE VARNOCK_NOCASE,
  "Comment" ntext COLLATE VARNOCK_NOCASE,
  "Locked" bit NOT NULL,
  PRIMARY KEY ("Section", "KeyName")
);

CREATE TABLE "State" (
  "State" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  PRIMARY KEY ("State")
);

CREATE TABLE "User" (
  "UserName" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  "SiteType" nvarchar(50) COLLATE VARNOCK_NOCASE,
  "Firstname" nvarchar(50) COLLATE VARNOCK_NOCASE,
  "Lastname" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  "Country" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  "State" nvarchar(50) COLLATE VARNOCK_NOCASE,
  "Password" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  "Email" nvarchar(255) COLLATE VARNOCK_NOCASE NOT NULL,
  "Pagetopic" nvarchar(255) COLLATE VARNOCK_NOCASE,
  "Bio" nvarchar(255) COLLATE VARNOCK_NOCASE,
  "Graphic" nvarchar(255) COLLATE VARNOCK_NOCASE,
  "Link" nvarchar(255) COLLATE VARNOCK_NOCASE,
  "DateCreated" smalldatetime,
  "Authorized" bit NOT NULL,
  "AuthorisationDate" smalldatetime,
  "AuthorisationMessage" ntext COLLATE VARNOCK_NOCASE,
  "REMOTE_ADDR" nvarchar(50) COLLATE VARNOCK_NOCASE,
  PRIMARY KEY ("UserName")
);

CREATE TABLE "Zone" (
  "Zone" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL,
  "Test" bit NOT NULL,
  PRIMARY KEY ("Zone")
);

CREATE TABLE "GroupMember" (
  "GroupCode" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL REFERENCES "GroupCode" ("GroupCode"),
  "UserName" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL REFERENCES "User" ("UserName"),
  PRIMARY KEY ("GroupCode", "UserName")
);
CREATE INDEX "GroupMember by UserName" ON "GroupMember" ("UserName");

CREATE TABLE "ZoneAddress" (
  "Zone" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL REFERENCES "Zone" ("Zone"),
  "UserName" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL REFERENCES "User" ("UserName"),
  "Address" int NOT NULL,
  "CreationDate" smalldatetime NOT NULL,
  PRIMARY KEY ("Zone", "UserName")
);
CREATE INDEX "ZoneAddress by UserName" ON "ZoneAddress" ("UserName");

CREATE TABLE "ZonePool" (
  "Zone" nvarchar(50) COLLATE VARNOCK_NOCASE NOT NULL REFERENCES "Zone" ("Zone"),
  "Address" int NOT NULL,
  PRIMARY KEY ("Zone", "Address")
);

-- Dates to the stored form, for every row however it was written. A value
-- already in that form passes untouched; any other that SQLite's date
-- functions read ('2000-05-04', '2000-05-04T13:45:29') is rewritten, its
-- seconds rounded to the minute as smalldatetime rounds them (30 seconds and
-- over round up); one they cannot read is refused, and so is a date outside
-- smalldatetime's range, with SQL Server's messages.

CREATE TRIGGER "ErrorLog.DateCreated stored as a date after insert"
AFTER INSERT ON "ErrorLog"
WHEN NEW."DateCreated"
       IS NOT strftime('%Y-%m-%d %H:%M:00', NEW."DateCreated", '+30 seconds')
  OR NEW."DateCreated" NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00'
BEGIN
  SELECT RAISE(ABORT, 'Conversion failed when converting date and/or time from character string.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."DateCreated", '+30 seconds') IS NULL;
  SELECT RAISE(ABORT,
    'The conversion of a varchar data type to a smalldatetime data type resulted in an out-of-range value.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."DateCreated", '+30 seconds')
    NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00';
  UPDATE "ErrorLog"
  SET "DateCreated" = strftime('%Y-%m-%d %H:%M:00', "DateCreated", '+30 seconds')
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "ErrorLog.DateCreated stored as a date after update"
AFTER UPDATE OF "DateCreated" ON "ErrorLog"
WHEN NEW."DateCreated"
       IS NOT strftime('%Y-%m-%d %H:%M:00', NEW."DateCreated", '+30 seconds')
  OR NEW."DateCreated" NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00'
BEGIN
  SELECT RAISE(ABORT, 'Conversion failed when converting date and/or time from character string.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."DateCreated", '+30 seconds') IS NULL;
  SELECT RAISE(ABORT,
    'The conversion of a varchar data type to a smalldatetime data type resulted in an out-of-range value.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."DateCreated", '+30 seconds')
    NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00';
  UPDATE "ErrorLog"
  SET "DateCreated" = strftime('%Y-%m-%d %H:%M:00', "DateCreated", '+30 seconds')
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "LogFile.LogDate stored as a date after insert"
AFTER INSERT ON "LogFile"
WHEN NEW."LogDate"
       IS NOT strftime('%Y-%m-%d %H:%M:00', NEW."LogDate", '+30 seconds')
  OR NEW."LogDate" NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00'
BEGIN
  SELECT RAISE(ABORT, 'Conversion failed when converting date and/or time from character string.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."LogDate", '+30 seconds') IS NULL;
  SELECT RAISE(ABORT,
    'The conversion of a varchar data type to a smalldatetime data type resulted in an out-of-range value.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."LogDate", '+30 seconds')
    NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00';
  UPDATE "LogFile"
  SET "LogDate" = strftime('%Y-%m-%d %H:%M:00', "LogDate", '+30 seconds')
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "LogFile.LogDate stored as a date after update"
AFTER UPDATE OF "LogDate" ON "LogFile"
WHEN NEW."LogDate"
       IS NOT strftime('%Y-%m-%d %H:%M:00', NEW."LogDate", '+30 seconds')
  OR NEW."LogDate" NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00'
BEGIN
  SELECT RAISE(ABORT, 'Conversion failed when converting date and/or time from character string.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."LogDate", '+30 seconds') IS NULL;
  SELECT RAISE(ABORT,
    'The conversion of a varchar data type to a smalldatetime data type resulted in an out-of-range value.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."LogDate", '+30 seconds')
    NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00';
  UPDATE "LogFile"
  SET "LogDate" = strftime('%Y-%m-%d %H:%M:00', "LogDate", '+30 seconds')
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "User.DateCreated stored as a date after insert"
AFTER INSERT ON "User"
WHEN NEW."DateCreated"
       IS NOT strftime('%Y-%m-%d %H:%M:00', NEW."DateCreated", '+30 seconds')
  OR NEW."DateCreated" NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00'
BEGIN
  SELECT RAISE(ABORT, 'Conversion failed when converting date and/or time from character string.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."DateCreated", '+30 seconds') IS NULL;
  SELECT RAISE(ABORT,
    'The conversion of a varchar data type to a smalldatetime data type resulted in an out-of-range value.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."DateCreated", '+30 seconds')
    NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00';
  UPDATE "User"
  SET "DateCreated" = strftime('%Y-%m-%d %H:%M:00', "DateCreated", '+30 seconds')
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "User.DateCreated stored as a date after update"
AFTER UPDATE OF "DateCreated" ON "User"
WHEN NEW."DateCreated"
       IS NOT strftime('%Y-%m-%d %H:%M:00', NEW."DateCreated", '+30 seconds')
  OR NEW."DateCreated" NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00'
BEGIN
  SELECT RAISE(ABORT, 'Conversion failed when converting date and/or time from character string.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."DateCreated", '+30 seconds') IS NULL;
  SELECT RAISE(ABORT,
    'The conversion of a varchar data type to a smalldatetime data type resulted in an out-of-range value.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."DateCreated", '+30 seconds')
    NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00';
  UPDATE "User"
  SET "DateCreated" = strftime('%Y-%m-%d %H:%M:00', "DateCreated", '+30 seconds')
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "User.AuthorisationDate stored as a date after insert"
AFTER INSERT ON "User"
WHEN NEW."AuthorisationDate"
       IS NOT strftime('%Y-%m-%d %H:%M:00', NEW."AuthorisationDate", '+30 seconds')
  OR NEW."AuthorisationDate" NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00'
BEGIN
  SELECT RAISE(ABORT, 'Conversion failed when converting date and/or time from character string.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."AuthorisationDate", '+30 seconds') IS NULL;
  SELECT RAISE(ABORT,
    'The conversion of a varchar data type to a smalldatetime data type resulted in an out-of-range value.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."AuthorisationDate", '+30 seconds')
    NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00';
  UPDATE "User"
  SET "AuthorisationDate" = strftime('%Y-%m-%d %H:%M:00', "AuthorisationDate", '+30 seconds')
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "User.AuthorisationDate stored as a date after update"
AFTER UPDATE OF "AuthorisationDate" ON "User"
WHEN NEW."AuthorisationDate"
       IS NOT strftime('%Y-%m-%d %H:%M:00', NEW."AuthorisationDate", '+30 seconds')
  OR NEW."AuthorisationDate" NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00'
BEGIN
  SELECT RAISE(ABORT, 'Conversion failed when converting date and/or time from character string.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."AuthorisationDate", '+30 seconds') IS NULL;
  SELECT RAISE(ABORT,
    'The conversion of a varchar data type to a smalldatetime data type resulted in an out-of-range value.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."AuthorisationDate", '+30 seconds')
    NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00';
  UPDATE "User"
  SET "AuthorisationDate" = strftime('%Y-%m-%d %H:%M:00', "AuthorisationDate", '+30 seconds')
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "ZoneAddress.CreationDate stored as a date after insert"
AFTER INSERT ON "ZoneAddress"
WHEN NEW."CreationDate"
       IS NOT strftime('%Y-%m-%d %H:%M:00', NEW."CreationDate", '+30 seconds')
  OR NEW."CreationDate" NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00'
BEGIN
  SELECT RAISE(ABORT, 'Conversion failed when converting date and/or time from character string.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."CreationDate", '+30 seconds') IS NULL;
  SELECT RAISE(ABORT,
    'The conversion of a varchar data type to a smalldatetime data type resulted in an out-of-range value.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."CreationDate", '+30 seconds')
    NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00';
  UPDATE "ZoneAddress"
  SET "CreationDate" = strftime('%Y-%m-%d %H:%M:00', "CreationDate", '+30 seconds')
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "ZoneAddress.CreationDate stored as a date after update"
AFTER UPDATE OF "CreationDate" ON "ZoneAddress"
WHEN NEW."CreationDate"
       IS NOT strftime('%Y-%m-%d %H:%M:00', NEW."CreationDate", '+30 seconds')
  OR NEW."CreationDate" NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00'
BEGIN
  SELECT RAISE(ABORT, 'Conversion failed when converting date and/or time from character string.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."CreationDate", '+30 seconds') IS NULL;
  SELECT RAISE(ABORT,
    'The conversion of a varchar data type to a smalldatetime data type resulted in an out-of-range value.')
  WHERE strftime('%Y-%m-%d %H:%M:00', NEW."CreationDate", '+30 seconds')
    NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00';
  UPDATE "ZoneAddress"
  SET "CreationDate" = strftime('%Y-%m-%d %H:%M:00', "CreationDate", '+30 seconds')
  WHERE rowid = NEW.rowid;
END;

-- Whole numbers in int columns, as SQL Server keeps them: a number with a
-- fraction loses it (towards zero), and one outside int's range is refused
-- with SQL Server's message.

CREATE TRIGGER "ErrorLog.ErrorNumber stored as an int after insert"
AFTER INSERT ON "ErrorLog"
WHEN typeof(NEW."ErrorNumber") = 'real'
  OR NEW."ErrorNumber" NOT BETWEEN -2147483648 AND 2147483647
BEGIN
  SELECT RAISE(ABORT, 'Arithmetic overflow error converting expression to data type int.')
  WHERE NEW."ErrorNumber" NOT BETWEEN -2147483648 AND 2147483647;
  UPDATE "ErrorLog"
  SET "ErrorNumber" = CAST("ErrorNumber" AS INTEGER)
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "ErrorLog.ErrorNumber stored as an int after update"
AFTER UPDATE OF "ErrorNumber" ON "ErrorLog"
WHEN typeof(NEW."ErrorNumber") = 'real'
  OR NEW."ErrorNumber" NOT BETWEEN -2147483648 AND 2147483647
BEGIN
  SELECT RAISE(ABORT, 'Arithmetic overflow error converting expression to data type int.')
  WHERE NEW."ErrorNumber" NOT BETWEEN -2147483648 AND 2147483647;
  UPDATE "ErrorLog"
  SET "ErrorNumber" = CAST("ErrorNumber" AS INTEGER)
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "ZoneAddress.Address stored as an int after insert"
AFTER INSERT ON "ZoneAddress"
WHEN typeof(NEW."Address") = 'real'
  OR NEW."Address" NOT BETWEEN -2147483648 AND 2147483647
BEGIN
  SELECT RAISE(ABORT, 'Arithmetic overflow error converting expression to data type int.')
  WHERE NEW."Address" NOT BETWEEN -2147483648 AND 2147483647;
  UPDATE "ZoneAddress"
  SET "Address" = CAST("Address" AS INTEGER)
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "ZoneAddress.Address stored as an int after update"
AFTER UPDATE OF "Address" ON "ZoneAddress"
WHEN typeof(NEW."Address") = 'real'
  OR NEW."Address" NOT BETWEEN -2147483648 AND 2147483647
BEGIN
  SELECT RAISE(ABORT, 'Arithmetic overflow error converting expression to data type int.')
  WHERE NEW."Address" NOT BETWEEN -2147483648 AND 2147483647;
  UPDATE "ZoneAddress"
  SET "Address" = CAST("Address" AS INTEGER)
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "ZonePool.Address stored as an int after insert"
AFTER INSERT ON "ZonePool"
WHEN typeof(NEW."Address") = 'real'
  OR NEW."Address" NOT BETWEEN -2147483648 AND 2147483647
BEGIN
  SELECT RAISE(ABORT, 'Arithmetic overflow error converting expression to data type int.')
  WHERE NEW."Address" NOT BETWEEN -2147483648 AND 2147483647;
  UPDATE "ZonePool"
  SET "Address" = CAST("Address" AS INTEGER)
  WHERE rowid = NEW.rowid;
END;

CREATE TRIGGER "ZonePool.Address stored as an int after update"
AFTER UPDATE OF "Address" ON "ZonePool"
WHEN typeof(NEW."Address") = 'real'
  OR NEW."Address" NOT BETWEEN -2147483648 AND 2147483647
BEGIN
  SELECT RAISE(ABORT, 'Arithmetic overflow error converting expression to data type int.')
  WHERE NEW."Address" NOT BETWEEN -2147483648 AND 2147483647;
  UPDATE "ZonePool"
  SET "Address" = CAST("Address" AS INTEGER)
  WHERE rowid = NEW.rowid;
END;

COMMIT;
