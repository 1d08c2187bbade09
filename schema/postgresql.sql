-- Tolvane_Register on PostgreSQL: the tables, keys and relations that
-- Varnock's record objects expect, behaving as under SQL Server's default
-- collation. Run it in the register's own database, which must be encoded in
-- UTF8, as the role that is to own the register:
--   psql -v ON_ERROR_STOP=1 -d tolvane_register -f postgresql.sql
--   * table and column names are in lower case, the case PostgreSQL folds
--     unquoted names to, so that statements naming them in any case find
--     them (the provider's dialect folds [bracketed] names the same way);
--   * text columns are citext under ICU's root collation: compared, ordered,
--     matched by LIKE and kept unique without regard to case, beyond ASCII
--     too ('ZÜRICH' finds 'Zürich'); an nvarchar longer than its declared
--     length is refused, with SQL Server's message;
--   * dates are timestamps in whole minutes, as smalldatetime keeps them: the
--     triggers below round seconds (30 and over round up) and refuse a date
--     outside 1900-01-01 .. 2079-06-06 23:59 with SQL Server's message;
--   * bits are booleans, ints integers;
--   * the domains nvarchar, ntext and smalldatetime keep SQL Server's type
--     names in the catalogue, where the provider reads them.
-- Written by generate_schema from the table catalogue: change the catalogue
-- and run it again rather than edit this file.

BEGIN;

DO $$
BEGIN
  IF current_setting('server_encoding') <> 'UTF8' THEN
    RAISE EXCEPTION 'The register needs a database encoded in UTF8, not %.',
      current_setting('server_encoding');
  END IF;
END
$$;

-- Trusted since PostgreSQL 13: the database's owner may create it.
CREATE EXTENSION IF NOT EXISTS citext;

CREATE DOMAIN nvarchar AS citext COLLATE "und-x-icu";
CREATE DOMAIN ntext AS citext COLLATE "und-x-icu";
CREATE DOMAIN smalldatetime AS timestamp;

-- A date as smalldatetime keeps it, or SQL Server's refusal.
CREATE FUNCTION register_smalldatetime(value timestamp) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE AS $$
DECLARE
  minute timestamp := date_trunc('minute', value + interval '30 seconds');
BEGIN
  IF minute NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00' THEN
    RAISE EXCEPTION USING ERRCODE = 'datetime_field_overflow',
      MESSAGE = 'The conversion of a varchar data type to a smalldatetime data type resulted in an out-of-range value.';
  END IF;
  RETURN minute;
END
$$;

-- A text no longer than its column's length, or SQL Server's refusal.
CREATE FUNCTION register_nvarchar(value citext, length integer) RETURNS citext
LANGUAGE plpgsql IMMUTABLE AS $$
BEGIN
  IF char_length(value) > length THEN
    RAISE EXCEPTION USING ERRCODE = 'string_data_right_truncation',
      MESSAGE = 'String or binary data would be truncated.';
  END IF;
  RETURN value;
END
$$;

CREATE TABLE "country" (
  "country" nvarchar NOT NULL,
  CONSTRAINT "pk_country" PRIMARY KEY ("country")
);

-- A log has no key: two entries may be alike in every column.
CREATE TABLE "errorlog" (
  "datecreated" smalldatetime NOT NULL,
  "userid" nvarchar NOT NULL,
  "errornumber" integer NOT NULL,
  "errordescription" nvarchar NOT NULL,
  "message" nvarchar
);

CREATE TABLE "groupcode" (
  "groupcode" nvarchar NOT NULL,
  "group" nvarchar NOT NULL,
  "comment" ntext,
  CONSTRAINT "pk_groupcode" PRIMARY KEY ("groupcode")
);

-- A log has no key: two entries may be alike in every column.
CREATE TABLE "logfile" (
  "programname" nvarchar NOT NULL,
  "logdate" smalldatetime NOT NULL,
  "username" nvarchar,
  "message" nvarchar NOT NULL
);

CREATE TABLE "parm" (
  "section" nvarchar NOT NULL,
  "keyname" nvarchar NOT NULL,
  "value" nvarchar,
  "comment" ntext,
  "locked" boolean NOT NULL,
  CONSTRAINT "pk_parm" PRIMARY KEY ("section", "keyname")
);

CREATE TABLE "state" (
  "state" nvarchar NOT NULL,
  CONSTRAINT "pk_state" PRIMARY KEY ("state")
);

CREATE TABLE "user" (
  "username" nvarchar NOT NULL,
  "sitetype" nvarchar,
  "firstname" nvarchar,
  "lastname" nvarchar NOT NULL,
  "country" nvarchar NOT NULL,
  "state" nvarchar,
  "password" nvarchar NOT NULL,
  "email" nvarchar NOT NULL,
  "pagetopic" nvarchar,
  "bio" nvarchar,
  "graphic" nvarchar,
  "link" nvarchar,
  "datecreated" smalldatetime,
  "authorized" boolean NOT NULL,
  "authorisationdate" smalldatetime,
  "authorisationmessage" ntext,
  "remote_addr" nvarchar,
  CONSTRAINT "pk_user" PRIMARY KEY ("username")
);

CREATE TABLE "zone" (
  "zone" nvarchar NOT NULL,
  "test" boolean NOT NULL,
  CONSTRAINT "pk_zone" PRIMARY KEY ("zone")
);

CREATE TABLE "groupmember" (
  "groupcode" nvarchar NOT NULL,
  "username" nvarchar NOT NULL,
  CONSTRAINT "pk_groupmember" PRIMARY KEY ("groupcode", "username"),
  CONSTRAINT "fk_groupmember_groupcode" FOREIGN KEY ("groupcode")
    REFERENCES "groupcode" ("groupcode"),
  CONSTRAINT "fk_groupmember_user" FOREIGN KEY ("username")
    REFERENCES "user" ("username")
);
CREATE INDEX "ix_groupmember_username" ON "groupmember" ("username");

CREATE TABLE "zoneaddress" (
  "zone" nvarchar NOT NULL,
  "username" nvarchar NOT NULL,
  "address" integer NOT NULL,
  "creationdate" smalldatetime NOT NULL,
  CONSTRAINT "pk_zoneaddress" PRIMARY KEY ("zone", "username"),
  CONSTRAINT "fk_zoneaddress_zone" FOREIGN KEY ("zone")
    REFERENCES "zone" ("zone"),
  CONSTRAINT "fk_zoneaddress_user" FOREIGN KEY ("username")
    REFERENCES "user" ("username")
);
CREATE INDEX "ix_zoneaddress_username" ON "zoneaddress" ("username");

CREATE TABLE "zonepool" (
  "zone" nvarchar NOT NULL,
  "address" integer NOT NULL,
  CONSTRAINT "pk_zonepool" PRIMARY KEY ("zone", "address"),
  CONSTRAINT "fk_zonepool_zone" FOREIGN KEY ("zone")
    REFERENCES "zone" ("zone")
);

-- Values to the form their column keeps, before keys are checked.

CREATE FUNCTION "country_row"() RETURNS trigger
LANGUAGE plpgsql AS $$
BEGIN
  NEW."country" := register_nvarchar(NEW."country", 50);
  RETURN NEW;
END
$$;
CREATE TRIGGER "country_row"
BEFORE INSERT OR UPDATE ON "country"
FOR EACH ROW EXECUTE FUNCTION "country_row"();

CREATE FUNCTION "errorlog_row"() RETURNS trigger
LANGUAGE plpgsql AS $$
BEGIN
  NEW."datecreated" := register_smalldatetime(NEW."datecreated");
  NEW."userid" := register_nvarchar(NEW."userid", 50);
  NEW."errordescription" := register_nvarchar(NEW."errordescription", 255);
  NEW."message" := register_nvarchar(NEW."message", 255);
  RETURN NEW;
END
$$;
CREATE TRIGGER "errorlog_row"
BEFORE INSERT OR UPDATE ON "errorlog"
FOR EACH ROW EXECUTE FUNCTION "errorlog_row"();

CREATE FUNCTION "groupcode_row"() RETURNS trigger
LANGUAGE plpgsql AS $$
BEGIN
  NEW."groupcode" := register_nvarchar(NEW."groupcode", 50);
  NEW."group" := register_nvarchar(NEW."group", 50);
  RETURN NEW;
END
$$;
CREATE TRIGGER "groupcode_row"
BEFORE INSERT OR UPDATE ON "groupcode"
FOR EACH ROW EXECUTE FUNCTION "groupcode_row"();

CREATE FUNCTION "logfile_row"() RETURNS trigger
LANGUAGE plpgsql AS $$
BEGIN
  NEW."programname" := register_nvarchar(NEW."programname", 50);
  NEW."logdate" := register_smalldatetime(NEW."logdate");
  NEW."username" := register_nvarchar(NEW."username", 50);
  NEW."message" := register_nvarchar(NEW."message", 255);
  RETURN NEW;
END
$$;
CREATE TRIGGER "logfile_row"
BEFORE INSERT OR UPDATE ON "logfile"
FOR EACH ROW EXECUTE FUNCTION "logfile_row"();

CREATE FUNCTION "parm_row"() RETURNS trigger
LANGUAGE plpgsql AS $$
BEGIN
  NEW."section" := register_nvarchar(NEW."section", 50);
  NEW."keyname" := register_nvarchar(NEW."keyname", 50);
  NEW."value" := register_nvarchar(NEW."value", 255);
  RETURN NEW;
END
$$;
CREATE TRIGGER "parm_row"
BEFORE INSERT OR UPDATE ON "parm"
FOR EACH ROW EXECUTE FUNCTION "parm_row"();

CREATE FUNCTION "state_row"() RETURNS trigger
LANGUAGE plpgsql AS $$
BEGIN
  NEW."state" := register_nvarchar(NEW."state", 50);
  RETURN NEW;
END
$$;
CREATE TRIGGER "state_row"
BEFORE INSERT OR UPDATE ON "state"
FOR EACH ROW EXECUTE FUNCTION "state_row"();

CREATE FUNCTION "user_row"() RETURNS trigger
LANGUAGE plpgsql AS $$
BEGIN
  NEW."username" := register_nvarchar(NEW."username", 50);
  NEW."sitetype" := register_nvarchar(NEW."sitetype", 50);
  NEW."firstname" := register_nvarchar(NEW."firstname", 50);
  NEW."lastname" := register_nvarchar(NEW."lastname", 50);
  NEW."country" := register_nvarchar(NEW."country", 50);
  NEW."state" := register_nvarchar(NEW."state", 50);
  NEW."password" := register_nvarchar(NEW."password", 50);
  NEW."email" := register_nvarchar(NEW."email", 255);
  NEW."pagetopic" := register_nvarchar(NEW."pagetopic", 255);
  NEW."bio" := register_nvarchar(NEW."bio", 255);
  NEW."graphic" := register_nvarchar(NEW."graphic", 255);
  NEW."link" := register_nvarchar(NEW."link", 255);
  NEW."datecreated" := register_smalldatetime(NEW."datecreated");
  NEW."authorisationdate" := register_smalldatetime(NEW."authorisationdate");
  NEW."remote_addr" := register_nvarchar(NEW."remote_addr", 50);
  RETURN NEW;
END
$$;
CREATE TRIGGER "user_row"
BEFORE INSERT OR UPDATE ON "user"
FOR EACH ROW EXECUTE FUNCTION "user_row"();

CREATE FUNCTION "zone_row"() RETURNS trigger
LANGUAGE plpgsql AS $$
BEGIN
  NEW."zone" := register_nvarchar(NEW."zone", 50);
  RETURN NEW;
END
$$;
CREATE TRIGGER "zone_row"
BEFORE INSERT OR UPDATE ON "zone"
FOR EACH ROW EXECUTE FUNCTION "zone_row"();

CREATE FUNCTION "groupmember_row"() RETURNS trigger
LANGUAGE plpgsql AS $$
BEGIN
  NEW."groupcode" := register_nvarchar(NEW."groupcode", 50);
  NEW."username" := register_nvarchar(NEW."username", 50);
  RETURN NEW;
END
$$;
CREATE TRIGGER "groupmember_row"
BEFORE INSERT OR UPDATE ON "groupmember"
FOR EACH ROW EXECUTE FUNCTION "groupmember_row"();

CREATE FUNCTION "zoneaddress_row"() RETURNS trigger
LANGUAGE plpgsql AS $$
BEGIN
  NEW."zone" := register_nvarchar(NEW."zone", 50);
  NEW."username" := register_nvarchar(NEW."username", 50);
  NEW."creationdate" := register_smalldatetime(NEW."creationdate");
  RETURN NEW;
END
$$;
CREATE TRIGGER "zoneaddress_row"
BEFORE INSERT OR UPDATE ON "zoneaddress"
FOR EACH ROW EXECUTE FUNCTION "zoneaddress_row"();

CREATE FUNCTION "zonepool_row"() RETURNS trigger
LANGUAGE plpgsql AS $$
BEGIN
  NEW."zone" := register_nvarchar(NEW."zone", 50);
  RETURN NEW;
END
$$;
CREATE TRIGGER "zonepool_row"
BEFORE INSERT OR UPDATE ON "zonepool"
FOR EACH ROW EXECUTE FUNCTION "zonepool_row"();

COMMIT;
