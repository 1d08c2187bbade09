// SPDX-License-Identifier: MIT
// Variant: the automation value that record columns, method arguments and
// results carry. It holds Empty, Null, a boolean, a 16- or 32-bit integer, a
// double, a currency amount, a date or a string, or a reference to an object
// (a record object, a Dictionary or a Collection). Null and Empty are distinct.
// Values copy cheaply: only a string longer than the short-string buffer
// allocates; a copied object reference shares the object. A Variant is not
// synchronised: one owner at a time.
//
//   varnock::Variant v = "42";
//   assert(v.type() == varnock::Variant::Type::String);  // stored as given, never converted
//   assert(varnock::toNumber(v) == 42.0);                // conversions live in conversions.h
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "varnock/export.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

// Base of everything a Variant can refer to: record objects, Dictionary and
// Collection. Objects are shared by reference, as automation objects are.
class Object {
 public:
  virtual ~Object() = default;
  // The class name a script would see ("User", "Dictionary", "Collection").
  virtual std::string_view typeName() const = 0;
};

// A currency amount: a 64-bit integer counting ten-thousandths.
struct Currency {
  std::int64_t tenThousandths = 0;

  static Currency fromDouble(double value);
  double toDouble() const { return static_cast<double>(tenThousandths) / 10000.0; }
  friend bool operator==(Currency, Currency) = default;
};

// The fields of a date, as the calendar shows them.
struct CivilDateTime {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;
  friend bool operator==(const CivilDateTime&, const CivilDateTime&) = default;
};

// An OLE Automation date: days since 30 December 1899, the fraction being the
// time of day. Before that day the whole part counts backwards while the
// fraction still counts forwards (-1.25 is 29 December 1899, 6:00 AM).
struct Date {
  double serial = 0.0;

  // The date of those calendar fields; no range check beyond the arithmetic.
  static Date fromCivil(const CivilDateTime& civil);
  // Whether the date lies in the calendar the date test and the columns
  // take: from 1/1/100 to the end of 12/31/9999. NaN and the infinities do not.
  bool isValid() const noexcept;
  // The calendar fields, rounded to the nearest second (never past the end of
  // 12/31/9999 for a valid date). NaN, the infinities and serials beyond
  // +-10,000,000 days raise type mismatch (13).
  CivilDateTime civil() const;
  friend bool operator==(Date, Date) = default;
};

class Variant {
 public:
  // The automation variant type numbers (VarType), so hosts can report them.
  enum class Type : std::uint8_t {
    Empty = 0,
    Null = 1,
    Integer = 2,  // 16-bit
    Long = 3,     // 32-bit
    Double = 5,
    Currency = 6,
    Date = 7,
    String = 8,
    Object = 9,
    Boolean = 11,
  };

  Variant() noexcept = default;  // Empty
  static Variant null() noexcept;
  static Variant empty() noexcept { return Variant(); }

  Variant(bool value) noexcept : value_(value) {}
  Variant(std::int16_t value) noexcept : value_(value) {}
  Variant(std::int32_t value) noexcept : value_(value) {}
  Variant(double value) noexcept : value_(value) {}
  Variant(Currency value) noexcept : value_(value) {}
  Variant(Date value) noexcept : value_(value) {}
  Variant(std::string value) noexcept : value_(std::move(value)) {}
  Variant(std::string_view value) : value_(std::string(value)) {}
  Variant(const char* value) : value_(std::string(value)) {}
  Variant(std::shared_ptr<Object> object) noexcept : value_(std::move(object)) {}
  template <class T>
  requires std::is_base_of_v<Object, T> Variant(std::shared_ptr<T> object)
  noexcept : value_(std::shared_ptr<Object>(std::move(object))) {}

  Type type() const noexcept;
  bool isEmpty() const noexcept { return value_.index() == kEmpty; }
  bool isNull() const noexcept { return value_.index() == kNull; }
  bool isString() const noexcept { return value_.index() == kString; }
  bool isObject() const noexcept { return value_.index() == kObject; }
  // True for the integer, double and currency types (not Boolean, not Date).
  bool isNumber() const noexcept;

  // Typed reads; each requires the matching type() and raises type mismatch
  // (error 13) otherwise. Use conversions.h to convert between types.
  bool asBoolean() const;
  std::int16_t asInteger() const;
  std::int32_t asLong() const;
  double asDouble() const;
  Currency asCurrency() const;
  Date asDate() const;
  const std::string& asString() const;
  const std::shared_ptr<Object>& asObject() const;

  // Same type and same value (objects: the same object).
  friend bool operator==(const Variant&, const Variant&) = default;

 private:
  struct NullTag {
    friend bool operator==(NullTag, NullTag) = default;
  };
  using Storage = std::variant<std::monostate, NullTag, bool, std::int16_t, std::int32_t, double,
                               Currency, Date, std::string, std::shared_ptr<Object>>;
  enum : std::size_t {
    kEmpty,
    kNull,
    kBoolean,
    kInteger,
    kLong,
    kDouble,
    kCurrency,
    kDate,
    kString,
    kObject
  };

  Storage value_;
};

}  // namespace varnock
VARNOCK_PUBLIC_END
