// SPDX-License-Identifier: MIT
// A short tour of Varnock's record objects: create objects of several
// classes, assign accepted and refused values, and show the values, the last
// error messages and the event log entries that the refusals wrote.
// Usage: record_tour [EVENT_LOG_FILE]   (default: a file in the temp folder)
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "varnock/varnock.h"

namespace {

std::string shown(const varnock::Variant& value) {
  if (value.isNull()) return "Null";
  if (value.isEmpty()) return "Empty";
  const std::string text = varnock::toText(value);
  return value.isString() ? "\"" + text + "\"" : text;
}

template <class Put, class Get>
void show(const char* what, const varnock::Record& record, Put put, Get get,
          const varnock::Variant& value) {
  put(value);
  std::cout << "  " << what << " := " << shown(value) << "\n"
            << "      value now " << shown(get()) << ", last error \""
            << record.GetLastErrorMessage() << "\"\n";
}

}  // namespace

int main(int argc, char** argv) {
  const std::filesystem::path logFile =
      argc > 1 ? std::filesystem::path(argv[1])
               : std::filesystem::temp_directory_path() / "varnock-record-tour.jsonl";
  std::filesystem::remove(logFile);
  varnock::setEventLog("file:" + logFile.string());
  std::cout << "Event log: " << varnock::currentEventLog() << "\n\n";

  varnock::User user;
  std::cout << user.GetTableName() << " (DSN \"" << user.get_DSN() << "\")\n";
  show(
      "Username", user, [&](auto v) { user.put_Username(v); }, [&] { return user.get_Username(); },
      "jdoe");
  show(
      "Authorized", user, [&](auto v) { user.put_Authorized(v); },
      [&] { return user.get_Authorized(); }, "maybe");
  show(
      "Authorized", user, [&](auto v) { user.put_Authorized(v); },
      [&] { return user.get_Authorized(); }, "True");
  show(
      "DateCreated", user, [&](auto v) { user.put_DateCreated(v); },
      [&] { return user.get_DateCreated(); }, "May 4, 2000 1:45 PM");
  show(
      "Username", user, [&](auto v) { user.put_Username(v); }, [&] { return user.get_Username(); },
      varnock::Variant::null());
  show(
      "Firstname", user, [&](auto v) { user.put_Firstname(v); },
      [&] { return user.get_Firstname(); }, varnock::Variant::null());

  varnock::ZonePool pool;
  std::cout << "\n" << pool.GetTableName() << "\n";
  show(
      "Address", pool, [&](auto v) { pool.put_Address(v); }, [&] { return pool.get_Address(); },
      "1,024");
  show(
      "Address", pool, [&](auto v) { pool.put_Address(v); }, [&] { return pool.get_Address(); },
      "ten");

  varnock::ErrorLog errors;
  std::cout << "\n" << errors.GetTableName() << "\n";
  show(
      "DateCreated", errors, [&](auto v) { errors.put_DateCreated(v); },
      [&] { return errors.get_DateCreated(); }, "2/30/2000");
  show(
      "ErrorNumber", errors, [&](auto v) { errors.put_ErrorNumber(v); },
      [&] { return errors.get_ErrorNumber(); }, 42);
  show(
      "Message", errors, [&](auto v) { errors.put_Message(v); },
      [&] { return errors.get_Message(); }, varnock::Variant::null());

  std::cout << "\nEvent log entries written:\n";
  std::ifstream in(logFile);
  for (std::string line; std::getline(in, line);)
    std::cout << "  " << line << "\n";
  return 0;
}
