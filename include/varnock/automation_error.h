// AutomationError: the one error type that Varnock raises. It carries what an
// automation client sees of a failure: a signed 32-bit number, a description
// and the name of the part that raised it. Immutable; safe to share.
//
//   try { user.put_Username(varnock::Variant::null()); }
//   catch (const varnock::AutomationError& e) { log(e.number(), e.description()); }
#pragma once

#include <cstdint>
#include <exception>
#include <string>

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

  // A run-time error by number, with its standard description and the
  // component as source (5, 6, 13 and 94 have descriptions of their own).
  static AutomationError runtime(std::int32_t number);

  std::int32_t number() const noexcept { return number_; }
  const std::string& description() const noexcept { return description_; }
  const std::string& source() const noexcept { return source_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string description_;
  std::string source_;
};

}  // namespace varnock
