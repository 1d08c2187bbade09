// SPDX-License-Identifier: MIT
#include "sql/frame.h"

#include <chrono>

#include "catalogue/catalogue.h"
#include "record/new_record.h"
#include "record/record_internal.h"
#include "sql/trace.h"

namespace varnock::sql {

Session::Session(const Record& record, std::string& statement)
    : statement_(statement), connection_(client::open(record.get_DSN())) {}

client::Recordset& Session::execute(std::string statement) {
  statement_ = std::move(statement);
  rows_.reset();
  if (!tracing()) {
    rows_ = connection_->execute(statement_);
    return *rows_;
  }
  const auto start = std::chrono::steady_clock::now();
  auto elapsed = [&] {
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() -
                                                                 start);
  };
  try {
    rows_ = connection_->execute(statement_);
  } catch (const std::exception& failure) {
    traceStatement(statement_, failure.what(), elapsed());
    throw;
  }
  traceStatement(statement_, {}, elapsed());
  return *rows_;
}

void Session::close() {
  rows_.reset();
  connection_->close();
}

void copyRow(Record& record, const client::Recordset& rows) {
  const catalogue::Table& table = RecordInternal::table(record);
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    RecordInternal::assign(record, i, rows.field(table.columns[i].field));
  }
}

std::shared_ptr<Collection> collectRows(const Record& owner, std::string_view tableName,
                                        client::Recordset& rows) {
  auto collection = std::make_shared<Collection>();
  for (; !rows.eof(); rows.moveNext()) {
    std::shared_ptr<Record> item = newRecord(tableName);
    RecordInternal::shareConnectionString(*item, owner);
    copyRow(*item, rows);
    collection->Add(Variant(std::move(item)));
  }
  return collection;
}

}  // namespace varnock::sql
