// SPDX-License-Identifier: MIT
// AutomationError: the one error type that Varnock raises. It carries what an
// automation client sees of a failure: a signed 32-bit number, a description
// and the name of the part that raised it. Immutable; safe to share.
// A refused column value does not raise (it sets GetLastErrorMessage and
// writes an event), nor does a failed data method other than CountEvery<T>.
// What raises says so where it is declared: CountEvery<T>, the object host,
// the conversions and Variant's typed reads, the containers, createRegister,
// setEventLog, and any call whose event cannot be written to the event log.
//
//   varnock::User user;
//   user.put_DSN("Provider=SQLite;Data Source=/no/such/folder/register.db");
//   try { user.CountEveryUser(); }  // the register cannot be opened: CountEvery raises
//   catch (const varnock::AutomationError& e) { std::cerr << e.description() << "\n"; }
#pragma once

#include <cstdint>
#include <exception>
#include <string>

#include "varnock/export.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

class AutomationError : public std::exception {
 public:
  // The run-time error numbers the record logic relies on.
  static constexpr std::int32_t kInvalidProcedureCall = 5;
  static constexpr std::int32_t kOverflow = 6;
  static constexpr std::int32_t kTypeMismatch = 13;
  static constexpr std::int32_t kInvalidUseOfNull = 94;

  // The source of run-time errors raised by the component's own code.
  static constexpr const char* kRuntimeSource = "Varnock";

  AutomationError(std::int32_t number, std::string description, std::string source);
  // A database's failure, as ADO's Error object carries it: also the
  // five-character SQLSTATE ("42S02") and the database's own error number.
  AutomationError(std::int32_t number, std::string description, std::string source,
                  std::string sqlState, std::int32_t nativeError);

  // A run-time error by number, with its standard description and the
  // component as source (5, 6, 13 and 94 have descriptions of their own).
  static AutomationError runtime(std::int32_t number);

  std::int32_t number() const noexcept { return number_; }
  const std::string& description() const noexcept { return description_; }
  const std::string& source() const noexcept { return source_; }
  const char* what() const noexcept override { return description_.c_str(); }
  // The SQLSTATE of a database's failure; empty for any other failure.
  const std::string& sqlState() const noexcept { return sqlState_; }
  // The database's own error number (SQL Server's 208 for an unknown
  // object); 0 for any other failure.
  std::int32_t nativeError() const noexcept { return nativeError_; }

 private:
  std::int32_t number_;
  std::string description_;
  std::string source_;
  std::string sqlState_;
  std::int32_t nativeError_ = 0;
};

}  // namespace varnock
VARNOCK_PUBLIC_END
