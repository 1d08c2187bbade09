// SPDX-License-Identifier: MIT
// A value of every kind assigned to a column of every SQL type the register
// uses, written with Add<T> and read back with Get<T>. The column refuses the
// value, or the write fails through the error path and writes nothing, or the
// row reads back holding what the register stores for that value: its text
// exactly (NUL characters included), its number, its date to the minute, its
// bit as a boolean, or Null. The row is then written again with Update<T>,
// whose statement renders values its own way, and read back the same.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "automation/text.h"
#include "fuzz_support.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"
#include "varnock/varnock.h"

namespace {

using varnock::Date;
using varnock::Record;
using varnock::Variant;
using varnock::fuzz::check;

enum class Kind { Text, Int, Bit, Date };

// One table a row is written to: its fixed columns, the condition that names
// the row written, and its data methods.
struct Table {
  std::function<std::shared_ptr<Record>()> create;
  std::vector<std::pair<std::string_view, Variant>> fixed;
  std::string_view row;  // the where clause of the one row a test writes
  std::function<bool(Record&)> add;
  std::function<bool(Record&)> update;  // empty for a table without a usable key
  std::function<bool(Record&, std::string_view)> get;
  std::function<bool(Record&, std::string_view)> remove;
  std::function<std::int32_t(Record&, std::string_view)> count;
};

template <class T>
Table table(std::vector<std::pair<std::string_view, Variant>> fixed, std::string_view row,
            bool (T::*add)(), bool (T::*update)(),
            bool (T::*get)(std::string_view, std::string_view), bool (T::*remove)(std::string_view),
            std::int32_t (T::*count)(std::string_view)) {
  std::function<bool(Record&)> updater;
  if (update != nullptr) updater = [update](Record& r) { return (static_cast<T&>(r).*update)(); };
  return Table{
      [] { return std::make_shared<T>(); },
      std::move(fixed),
      row,
      [add](Record& r) { return (static_cast<T&>(r).*add)(); },
      std::move(updater),
      [get](Record& r, std::string_view where) { return (static_cast<T&>(r).*get)(where, {}); },
      [remove](Record& r, std::string_view where) { return (static_cast<T&>(r).*remove)(where); },
      [count](Record& r, std::string_view where) { return (static_cast<T&>(r).*count)(where); }};
}

const Variant kDate = Variant(Date::fromCivil({2000, 5, 4, 13, 45, 0}));

const std::vector<Table>& tables() {
  static const std::vector<Table> all = {
      table<varnock::User>({{"UserName", "fuzz-user"},
                            {"Lastname", "Doe"},
                            {"Country", "Norway"},
                            {"Password", "secret"},
                            {"Email", "fuzz@example.org"},
                            {"Authorized", false}},
                           "UserName = 'fuzz-user'", &varnock::User::AddUser,
                           &varnock::User::UpdateUser, &varnock::User::GetUser,
                           &varnock::User::DeleteUser, &varnock::User::CountEveryUser),
      table<varnock::Parm>({{"Section", "fuzz"}, {"KeyName", "key"}, {"Locked", false}},
                           "Section = 'fuzz'", &varnock::Parm::AddParm, &varnock::Parm::UpdateParm,
                           &varnock::Parm::GetParm, &varnock::Parm::DeleteParm,
                           &varnock::Parm::CountEveryParm),
      table<varnock::ZonePool>({{"Zone", "fuzz-zone"}, {"Address", 1}}, "Zone = 'fuzz-zone'",
                               &varnock::ZonePool::AddZonePool, &varnock::ZonePool::UpdateZonePool,
                               &varnock::ZonePool::GetZonePool, &varnock::ZonePool::DeleteZonePool,
                               &varnock::ZonePool::CountEveryZonePool),
      table<varnock::ErrorLog>({{"DateCreated", kDate},
                                {"UserId", "fuzz"},
                                {"ErrorNumber", 1},
                                {"ErrorDescription", "described"}},
                               "UserId = 'fuzz'", &varnock::ErrorLog::AddErrorLog, nullptr,
                               &varnock::ErrorLog::GetErrorLog, &varnock::ErrorLog::DeleteErrorLog,
                               &varnock::ErrorLog::CountEveryErrorLog),
      table<varnock::ZoneAddress>(
          {{"Zone", "fuzz-zone"},
           {"UserName", "fuzz-owner"},
           {"Address", 1},
           {"CreationDate", kDate}},
          "UserName = 'fuzz-owner'", &varnock::ZoneAddress::AddZoneAddress,
          &varnock::ZoneAddress::UpdateZoneAddress, &varnock::ZoneAddress::GetZoneAddress,
          &varnock::ZoneAddress::DeleteZoneAddress, &varnock::ZoneAddress::CountEveryZoneAddress),
  };
  return all;
}

enum TableIndex { kUser, kParm, kZonePool, kErrorLog, kZoneAddress };

// A column a value is tried on: every SQL type, Null allowed and refused.
struct Slot {
  TableIndex table;
  std::string_view field;
  Kind kind;
};

constexpr Slot kSlots[] = {
    {kUser, "Firstname", Kind::Text},             // nvarchar, Null allowed
    {kUser, "Email", Kind::Text},                 // nvarchar, Null refused
    {kUser, "AuthorisationMessage", Kind::Text},  // ntext
    {kUser, "DateCreated", Kind::Date},           // smalldatetime, Null allowed
    {kUser, "Authorized", Kind::Bit},
    {kParm, "Value", Kind::Text},
    {kParm, "Comment", Kind::Text},  // ntext
    {kParm, "Locked", Kind::Bit},
    {kZonePool, "Address", Kind::Int},
    {kErrorLog, "DateCreated", Kind::Date},  // smalldatetime, Null refused
    {kErrorLog, "ErrorNumber", Kind::Int},
    {kErrorLog, "ErrorDescription", Kind::Text},
    {kErrorLog, "Message", Kind::Text},
    {kZoneAddress, "Address", Kind::Int},
    {kZoneAddress, "CreationDate", Kind::Date},
};

// The register, with the parent rows that the tables above refer to.
const std::string& registerDsn() {
  static const std::string dsn = [] {
    const std::string& opened = varnock::fuzz::scratchRegister();
    varnock::Zone zone;
    zone.put_DSN(opened);
    zone.put_Zone("fuzz-zone");
    zone.put_Test(false);
    varnock::User owner;
    owner.put_DSN(opened);
    for (const auto& [field, value] : tables()[kUser].fixed)
      owner.SetDataProperty(field, value);
    owner.put_Username("fuzz-owner");
    if (!zone.AddZone() || !owner.AddUser()) varnock::fuzz::fail("parent rows are written", "");
    return opened;
  }();
  return dsn;
}

template <class T>
T bytesAs(std::string_view payload) {
  T value{};
  std::memcpy(&value, payload.data(), std::min(sizeof value, payload.size()));
  return value;
}

// The value an input stands for: its second byte chooses the kind, the rest
// is the text or the bytes of the number.
std::optional<Variant> valueOf(std::uint8_t kind, std::string_view payload) {
  switch (kind % 11) {
    case 0:
      return Variant(payload);
    case 1:
      return Variant(bytesAs<std::int32_t>(payload));
    case 2:
      return Variant(bytesAs<std::int16_t>(payload));
    case 3:
      return Variant(bytesAs<double>(payload));
    case 4:
      return Variant(varnock::Currency{bytesAs<std::int64_t>(payload)});
    case 5:
      return Variant(Date{bytesAs<double>(payload)});
    case 6:  // whole minutes, mostly inside the calendar
      return Variant(Date{bytesAs<std::int32_t>(payload) / 1440.0});
    case 7:
      return Variant(!payload.empty() && (payload[0] & 1) != 0);
    case 8:
      return Variant::empty();
    case 9:
      return Variant::null();
    default:  // a number written as text, read as a double
      if (const auto number = varnock::parseNumber(payload)) return Variant(*number);
      return std::nullopt;
  }
}

// The same value, a NaN being the same as itself.
bool sameValue(const Variant& a, const Variant& b) {
  if (a == b) return true;
  if (a.type() != b.type()) return false;
  if (a.type() == Variant::Type::Double)
    return std::isnan(a.asDouble()) && std::isnan(b.asDouble());
  if (a.type() == Variant::Type::Date) {
    return std::isnan(a.asDate().serial) && std::isnan(b.asDate().serial);
  }
  return false;
}

// Whether a value is the automation boolean true, as a bit column reads it:
// booleans as themselves, numbers and dates as -1, texts by their meaning.
bool isTrue(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Boolean:
      return value.asBoolean();
    case Variant::Type::String: {
      const std::string_view text = varnock::trimBlanks(value.asString());
      if (varnock::equalsIgnoringCase(text, "true")) return true;
      const auto number = varnock::parseNumber(text);
      return number && *number == -1.0;
    }
    case Variant::Type::Empty:
      return false;
    default:
      return varnock::toNumber(value) == -1.0;
  }
}

// The number an int column holds: the number of the value's ordinary text,
// which is what the statement carries (a double to 15 significant digits, a
// currency to four decimals); booleans and Empty, whose texts are no
// numbers, as their numbers.
double numberOf(const Variant& value) {
  if (const auto number = varnock::parseNumber(varnock::toText(value))) return *number;
  return varnock::toNumber(value);
}

// The database reads a number's text by its own rule, which may land one
// unit in the last place away from the nearest double.
bool sameNumber(double read, double expected) {
  return read == expected || read == std::nextafter(expected, read);
}

// A date as smalldatetime keeps it: to the second, then to the nearest
// minute (30 seconds round up).
varnock::CivilDateTime toMinute(Date date) {
  const varnock::CivilDateTime c = date.civil();
  Date minute = Date::fromCivil({c.year, c.month, c.day, c.hour, c.minute, 0});
  if (c.second >= 30) minute.serial += 1.0 / 1440.0;
  varnock::CivilDateTime rounded = minute.civil();
  rounded.second = 0;
  return rounded;
}

void checkReadBack(const Slot& slot, const Variant& written, const Variant& read,
                   std::string_view input) {
  switch (slot.kind) {
    case Kind::Text:
      if (written.isNull()) {
        check(read.isNull(), "a Null text reads back as Null", input);
      } else {
        check(read == Variant(varnock::toText(written)), "a text reads back exactly", input);
      }
      return;
    case Kind::Int: {
      // int keeps whole numbers in its range: a fraction is cut towards zero,
      // and a number beyond the range never reaches a row.
      const double expected = std::trunc(numberOf(written));
      check(read.type() == Variant::Type::Long, "an int reads back as a 32-bit integer", input);
      check(std::fabs(expected) <= 2147483648.0, "an int out of range was written", input);
      check(sameNumber(varnock::toNumber(read), expected) ||
                varnock::toNumber(read) == std::trunc(std::nextafter(numberOf(written), 0.0)),
            "an int reads back as the whole part of what was written", input);
      return;
    }
    case Kind::Bit:
      check(read == Variant(isTrue(written)), "a bit reads back as the boolean written", input);
      return;
    case Kind::Date: {
      const Date date = written.isNull() ? Date{0.0} : varnock::toDate(written);
      if (!(date.serial > 0)) {
        // Day 0 and earlier are no date: the column is left out of the row.
        check(read.isNull(), "a date of day 0 or earlier reads back as Null", input);
        return;
      }
      check(read.type() == Variant::Type::Date, "a date reads back as a date", input);
      check(read.asDate().civil() == toMinute(date), "a date reads back to the minute", input);
      return;
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2 || size > varnock::fuzz::kMaxInputSize) return 0;
  const std::string_view input = varnock::fuzz::textOf(data, size);
  const Slot& slot = kSlots[data[0] % std::size(kSlots)];
  const std::optional<Variant> value = valueOf(data[1], input.substr(2));
  if (!value) return 0;
  const std::string& dsn = registerDsn();
  varnock::fuzz::keepEventLogSmall();
  const Table& t = tables()[slot.table];

  const std::shared_ptr<Record> record = t.create();
  record->put_DSN(dsn);
  for (const auto& [field, fixed] : t.fixed)
    check(record->SetDataProperty(field, fixed), "the fixed columns are accepted", input);

  const Variant before = record->GetDataProperty(slot.field);
  if (!record->SetDataProperty(slot.field, *value)) {
    check(!record->GetLastErrorMessage().empty(), "a refused value leaves its reason", input);
    check(record->GetDataProperty(slot.field) == before, "a refused value is not kept", input);
    return 0;
  }
  check(sameValue(record->GetDataProperty(slot.field), *value),
        "an accepted value is kept as given", input);

  if (!t.add(*record)) {
    check(!record->GetLastErrorMessage().empty(), "a failed write leaves its reason", input);
    check(t.count(*record, t.row) == 0, "a failed write writes no row", input);
    return 0;
  }
  const std::shared_ptr<Record> back = t.create();
  back->put_DSN(dsn);
  check(t.get(*back, t.row), "a written row reads back", input);
  checkReadBack(slot, *value, back->GetDataProperty(slot.field), input);

  if (t.update) {
    // The row again, every column rewritten from the values given.
    check(record->SetDataProperty(slot.field, *value), "a value is accepted again", input);
    if (t.update(*record)) {
      const std::shared_ptr<Record> updated = t.create();
      updated->put_DSN(dsn);
      check(t.get(*updated, t.row), "an updated row reads back", input);
      checkReadBack(slot, *value, updated->GetDataProperty(slot.field), input);
    } else {
      check(!record->GetLastErrorMessage().empty(), "a failed update leaves its reason", input);
    }
  }
  check(t.remove(*back, t.row), "the row written is deleted", input);
  return 0;
}
