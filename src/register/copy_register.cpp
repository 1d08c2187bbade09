// SPDX-License-Identifier: MIT
// Copying a register: each table read whole from the source and written to
// the target with the Add methods' own INSERT statements, parents first, in
// transactions of a bounded number of rows.
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "client/client.h"
#include "register/ddl_parts.h"
#include "sql/statements.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"
#include "varnock/register.h"

namespace varnock {

namespace {

constexpr const char* kCopySource = "Varnock.Copy";

// Rows written per transaction: few enough that a failed batch is cheap to
// roll back, many enough that a file register does not sync every row.
constexpr std::int64_t kRowsPerBatch = 500;

using catalogue::Table;

std::int64_t rowCount(client::Connection& connection, const Table& table) {
  auto rows = connection.execute(sql::count(table, ""));
  const Variant counted = rows->field("CountResultField");
  return static_cast<std::int64_t>(toNumber(counted));
}

// The failure with the table (and the row's key) it happened on.
[[noreturn]] void failCopying(const std::exception& failure, const Table& table,
                              const std::string& key) {
  std::int32_t number = client::kCommandFailed;
  std::string description = failure.what();
  if (const auto* error = dynamic_cast<const AutomationError*>(&failure)) {
    number = error->number();
    description = error->description();
  }
  std::string where = "[" + std::string(table.name) + "]";
  if (!key.empty()) where += " at the row " + key;
  throw AutomationError(number, "Copying " + where + ": " + description, kCopySource);
}

// "UserName = 'jdoe'": the row's key values, for a failure's message.
std::string keyText(const Table& table, const std::vector<Variant>& values) {
  std::string text;
  for (const std::uint8_t position : table.keyColumns) {
    if (!text.empty()) text += ", ";
    const Variant& value = values[position];
    text += std::string(table.columns[position].field) + " = ";
    text += value.isNull() ? std::string("NULL") : "'" + toText(value) + "'";
  }
  return text;
}

class Copier {
 public:
  Copier(const std::string& from, const std::string& to, const CopyOptions& options)
      : source_(client::open(from)), target_(client::open(to)), options_(options) {}

  std::vector<CopiedTable> run() {
    const std::vector<const Table*> tables = schema::parts::creationOrder();
    std::vector<std::int64_t> sourceRows, targetRows;
    for (const Table* table : tables) {
      try {
        sourceRows.push_back(rowCount(*source_, *table));
        targetRows.push_back(rowCount(*target_, *table));
      } catch (const std::exception& e) {
        failCopying(e, *table, "");
      }
      total_ += sourceRows.back();
      if (targetRows.back() > 0 && !options_.append) {
        throw AutomationError(client::kCommandFailed,
                              "The target register already holds rows ([" +
                                  std::string(table->name) + "] has " +
                                  std::to_string(targetRows.back()) +
                                  "); nothing was copied. Copy into an empty register, or "
                                  "append to this one.",
                              kCopySource);
      }
    }
    std::vector<CopiedTable> copied;
    for (std::size_t i = 0; i < tables.size(); ++i) {
      const std::int64_t rows = copyTable(*tables[i], sourceRows[i]);
      verify(*tables[i], targetRows[i] + rows);
      copied.push_back({std::string(tables[i]->name), rows});
    }
    source_->close();
    target_->close();
    return copied;
  }

 private:
  std::int64_t copyTable(const Table& table, std::int64_t tableRows) {
    std::int64_t copied = 0;
    std::string key;
    bool inBatch = false;
    try {
      auto rows = source_->execute("SELECT * FROM " + sql::tableRef(table));
      std::vector<Variant> values(table.columns.size());
      for (; !rows->eof(); rows->moveNext()) {
        for (std::size_t c = 0; c < values.size(); ++c)
          values[c] = rows->field(table.columns[c].field);
        key = keyText(table, values);
        if (!inBatch) {
          target_->execute("BEGIN TRANSACTION");
          inBatch = true;
        }
        target_->execute(sql::insert(table, values));
        ++copied;
        if (copied % kRowsPerBatch == 0) {
          endBatch(inBatch);
          report(table, tableRows, copied);
        }
      }
      key.clear();
      endBatch(inBatch);
    } catch (const std::exception& e) {
      if (inBatch) rollBack();
      failCopying(e, table, key);
    }
    report(table, tableRows, copied);
    return copied;
  }

  void endBatch(bool& inBatch) {
    if (!inBatch) return;
    target_->execute("COMMIT TRANSACTION");
    inBatch = false;
  }

  // The failure that ends the copy is the one reported, not the roll-back's.
  void rollBack() noexcept {
    try {
      target_->execute("ROLLBACK TRANSACTION");
    } catch (const std::exception&) {
    }
  }

  void report(const Table& table, std::int64_t tableRows, std::int64_t copied) {
    done_ += copied - reported_;
    reported_ = copied;
    if (options_.progress) options_.progress({table.name, tableRows, copied, total_, done_});
    if (copied == tableRows) reported_ = 0;
  }

  void verify(const Table& table, std::int64_t expected) {
    std::int64_t counted = 0;
    try {
      counted = rowCount(*target_, table);
    } catch (const std::exception& e) {
      failCopying(e, table, "");
    }
    if (counted != expected) {
      throw AutomationError(client::kCommandFailed,
                            "Copying [" + std::string(table.name) + "]: the target holds " +
                                std::to_string(counted) + " rows where " +
                                std::to_string(expected) + " were expected.",
                            kCopySource);
    }
  }

  std::unique_ptr<client::Connection> source_;
  std::unique_ptr<client::Connection> target_;
  const CopyOptions& options_;
  std::int64_t total_ = 0;     // rows of every table in the source
  std::int64_t done_ = 0;      // rows copied so far, every table
  std::int64_t reported_ = 0;  // of the current table, already counted in done_
};

}  // namespace

std::vector<CopiedTable> copyRegister(const std::string& from, const std::string& to,
                                      const CopyOptions& options) {
  return Copier(from, to, options).run();
}

}  // namespace varnock
