// SPDX-License-Identifier: MIT
#include "help.h"

namespace varnock::cli {

std::string_view helpText() {
  return R"(usage: varnock COMMAND [ARGUMENTS]

Calls the record objects of a Tolvane_Register from the command line.

Commands
  init PATH
      Creates a new SQLite register at PATH and prints its connection string.
      An existing file is never overwritten (exit status 1).

  init CONNECTION-STRING
      Creates the register's tables in the existing database that the
      connection string (a value containing "=") opens, for example a
      PostgreSQL or SQL Server database through ODBC; a database that holds
      them already is refused.

  copy FROM TO [--append]
      Copies every row of every table from the register FROM to the register
      TO (each a connection string or the path of a SQLite register),
      parents before children, with the statements the Add methods send.
      Shows a progress bar on a terminal, then the rows copied per table;
      every table's row count is checked afterwards. A target that holds any
      row is refused before anything is written, unless --append is given.

  call CLASS METHOD [ARGUMENT...] [OPTIONS]
      Creates an object of CLASS (a table name such as User, or a ProgID such
      as Varnock.User), assigns the --set values, calls METHOD (any member; a
      property name reads the property) and prints what it gave back.
      An ARGUMENT written NAME=VALUE is passed by name when NAME is one of the
      method's argument names (any case); otherwise the whole word is a
      positional value.
      --dsn DSN          the register to open: a connection string when it
                         contains "=", otherwise the path of a SQLite register
      --set COLUMN=VALUE assign a property before the call (repeatable); a
                         refused value is reported and the call is not made
      --json             print one JSON object instead of readable text
      --trace FILE       append every SQL statement sent to FILE (JSON Lines)
      --                 every later word is an argument, even if it starts
                         with "--"

  members [CLASS]
      Lists the members of CLASS in interface order: name, dispatch
      identifier, kind (method, propget, propput) and argument names.
      Without CLASS, lists the classes: name, ProgID and class identifier.

  idl
      Prints the type library in MIDL.

  help, --help, COMMAND --help
      Prints this text.

  version, --version
      Prints the version of varnock.

Value notation (arguments and --set values)
  null, empty          Null, Empty
  true, false          Boolean (these four words in any case)
  42, -7               32-bit integer; a larger integer becomes a double
  1.5, -.25, 6e3       double
  #5/4/2000 1:45 PM#   date, by the register's en-US rule; #2000-05-04# too
  str:TEXT             TEXT exactly as written: str:null is the text "null",
                       str:42 the text "42", str:a=b a positional "a=b"
  @FILE                the text that FILE holds, to its last byte (for
                       values too long for a command line)
  @-                   the text read from standard input, to its end (one
                       value per call)
  anything else        text as written

Output
  Readable: the result (True/False, numbers, text, Null, Empty, or Nothing
  for a method that found no object to give back); a record or
  Dictionary as "name  value" lines; a collection as a table with a header
  row of field names, one row per object and a row count; after a method
  that loaded a row, the object's columns; by-reference arguments the call
  changed as  name = "value"; refused --set values; and "Last error: ..."
  when the object's last error message is not empty.
  --json: {"result": ..., "object": {...} or null, "byref": {...},
  "lastError": "..."}, plus "refused": [{"column", "value", "message"}] when
  --set values were refused. Null and Nothing are null, Empty is
  {"empty": true}, dates are "YYYY-MM-DDTHH:MM:SS", a record or Dictionary
  is an object and a collection an array of objects. A raised
  error prints {"error": {"number", "hex", "description", "source"}}.

Environment
  VARNOCK_DSN        the register of call when --dsn is not given (a
                     connection string or a path); else ./register.db
  VARNOCK_EVENT_LOG  where refusals and failures are logged: syslog (the
                     default), journal, file:PATH or stderr
  VARNOCK_SQL_TRACE  a file to append every SQL statement to (as --trace)

Exit status
  0  success
  1  the method reported failure: a False result, a new last error message,
     a refused --set value, or init finding the file already there
  2  usage error: unknown command, class, member or option, bad notation
  3  an error was raised; its number is printed in hex and decimal with its
     description and source
)";
}

}  // namespace varnock::cli
