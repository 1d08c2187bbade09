// SPDX-License-Identifier: MIT
#include "varnock/record.h"

#include <array>

#include "automation/nested_release.h"
#include "catalogue/catalogue.h"
#include "eventLog/event_log.h"
#include "record/kirna_utility.h"
#include "record/record_internal.h"
#include "varnock/automation_error.h"

namespace varnock {

namespace {

constexpr std::int32_t kNullRefusedEvent = 94;
constexpr std::int32_t kNotConvertibleEvent = 13;

// The checks of each column type, classified once by their type names.
KIRNA_utility::TypeClass typeClassOf(catalogue::SqlType type) {
  static const auto classes = [] {
    std::array<KIRNA_utility::TypeClass, 5> all{};
    for (std::size_t i = 0; i < all.size(); ++i) {
      all[i] = KIRNA_utility::classify(catalogue::sqlTypeName(static_cast<catalogue::SqlType>(i)));
    }
    return all;
  }();
  return classes[static_cast<std::size_t>(type)];
}

const std::shared_ptr<const std::string>& sharedDefaultConnectionString() {
  // Four blanks, the login "sa" and twelve blanks close it; they are kept.
  static const auto text = std::make_shared<const std::string>(
      "Provider=SQLOLEDB.1;Initial Catalog=Tolvane_Register;Data Source=(local);"
      "Current Language=us_english;Use Procedure for Prepare=1;Auto Translate=True;"
      "Packet Size=4096;    sa            ");
  return text;
}

void checkPosition(std::size_t position, std::size_t count) {
  if (position >= count) throw AutomationError::runtime(AutomationError::kInvalidProcedureCall);
}

}  // namespace

const std::string& Record::defaultConnectionString() {
  return *sharedDefaultConnectionString();
}

Record::Record(std::string_view tableName)
    : table_(&catalogue::table(tableName)),
      dsn_(sharedDefaultConnectionString()),
      values_(table_->columns.size(), Variant::null()) {}

Record::~Record() {
  // A column may hold a container that holds record objects, and so on.
  releaseNested(values_);
}

void Record::put_DSN(std::string value) {
  dsn_ = std::make_shared<const std::string>(std::move(value));
}

std::string Record::GetTableName() const {
  return std::string(table_->name);
}

std::string_view Record::typeName() const {
  return table_->name;
}

const Variant& RecordInternal::column(const Record& record, std::size_t position) {
  checkPosition(position, record.values_.size());
  return record.values_[position];
}

void RecordInternal::assign(Record& record, std::size_t position, Variant value) {
  checkPosition(position, record.values_.size());
  const catalogue::Column& column = record.table_->columns[position];
  if (value.isNull()) {
    if (!column.nullRefused) {
      record.values_[position] = std::move(value);
      record.lastError_.clear();  // the one assignment that clears the message
      return;
    }
    record.lastError_ = "Property " + std::string(column.field) + " cannot be set to NULL";
    eventLog::ReportDataError(kNullRefusedEvent, column.field, record.lastError_);
    return;
  }
  if (KIRNA_utility::passes(typeClassOf(column.type), value)) {
    record.values_[position] = std::move(value);
    return;
  }
  record.lastError_ =
      "Cannot convert this value to " + std::string(catalogue::sqlTypeName(column.type));
  eventLog::ReportDataError(kNotConvertibleEvent, column.field, record.lastError_);
}

}  // namespace varnock
