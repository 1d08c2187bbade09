// SPDX-License-Identifier: MIT
// Access to columns by name and as a dictionary: thin layers over the column
// assignment, so every value they store passes the same checks.
#include <memory>

#include "automation/text.h"
#include "catalogue/catalogue.h"
#include "eventLog/event_log.h"
#include "record/failure_report.h"
#include "record/kirna_utility.h"
#include "record/record_internal.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"
#include "varnock/record.h"

namespace varnock {

namespace {

constexpr std::int32_t kUnknownPropertyEvent = 17;
constexpr std::int32_t kObjectRequired = 424;
constexpr std::int32_t kNotSupported = 438;

std::string unknownPropertyMessage(std::string_view name) {
  return "Property [" + std::string(name) + "]doesn't exist in this class";
}

}  // namespace

bool Record::IsDataProperty(std::string_view strPropertyName, bool blnCaseSensitive) const {
  const std::int16_t mode = blnCaseSensitive ? 0 : 1;
  return KIRNA_utility::FindItem(Variant(table_->nameList), Variant(strPropertyName),
                                 Variant(std::string(1, '\0')), Variant(mode)) >= 1;
}

Variant Record::GetDataProperty(std::string_view strPropertyName) {
  const int position = table_->findColumn(lowerCase(strPropertyName));
  if (position >= 0) return values_[static_cast<std::size_t>(position)];
  lastError_ = unknownPropertyMessage(strPropertyName);
  eventLog::ReportDataError(kUnknownPropertyEvent, "", GetLastErrorMessage());
  return Variant();
}

bool Record::SetDataProperty(std::string_view strPropertyName, const Variant& varPropertyValue) {
  try {
    lastError_.clear();
    const int position = table_->findColumn(lowerCase(strPropertyName));
    if (position >= 0) {
      RecordInternal::assign(*this, static_cast<std::size_t>(position), varPropertyValue);
      return GetLastErrorMessage().empty();
    }
    lastError_ = unknownPropertyMessage(strPropertyName);
    eventLog::ReportDataError(kUnknownPropertyEvent, "", GetLastErrorMessage());
    return false;
  } catch (const AutomationError& e) {
    reportFailure(*this, "SetDataProperty", e);
    return false;
  }
}

std::shared_ptr<Dictionary> Record::GetDictionary() const {
  auto dictionary = std::make_shared<Dictionary>();
  for (std::size_t i = 0; i < values_.size(); ++i) {
    dictionary->Add(std::string(table_->columns[i].field), values_[i]);
  }
  return dictionary;
}

bool Record::SetDictionary(const Variant& varDict) {
  try {
    if (!varDict.isObject() || !varDict.asObject()) {
      throw AutomationError(kObjectRequired, "Object required", AutomationError::kRuntimeSource);
    }
    const auto container = std::dynamic_pointer_cast<KeyedContainer>(varDict.asObject());
    if (!container) {
      throw AutomationError(kNotSupported, "Object doesn't support this property or method",
                            AutomationError::kRuntimeSource);
    }
    for (const Variant& key : container->keyList()) {
      if (!SetDataProperty(toText(key), container->itemOf(key))) return false;
    }
    return true;
  } catch (const AutomationError& e) {
    reportFailure(*this, "SetDictionary", e);
    return false;
  }
}

}  // namespace varnock
