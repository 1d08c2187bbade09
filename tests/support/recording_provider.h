// SPDX-License-Identifier: MIT
// Test hook: a database provider named "Recording" that keeps every statement
// it is handed and answers from a script of rows or failures, so the data
// methods can be checked without a database. Its connections and rows keep
// the client's contract, so callers meet the same failures as on a database.
//   Provider=Recording          opens
//   Provider=Recording;Fail=1   fails at open
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "client/provider.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"

namespace varnock::testing {

inline constexpr const char* kRecordingSource = "Recording Provider";

// One row's fields in their order; a name may come twice, as in a join.
using Row = std::vector<std::pair<std::string, Variant>>;

struct RecordingScript {
  std::vector<std::string> statements;
  // Answers in order; a statement with none left gets no rows.
  std::deque<std::variant<std::vector<Row>, AutomationError>> answers;
  int opened = 0;
  int closed = 0;

  static RecordingScript& instance() {
    static RecordingScript script;
    return script;
  }
  void reset() { *this = RecordingScript(); }
};

class RecordingRows final : public client::Recordset {
 public:
  explicit RecordingRows(std::vector<Row> rows) : rows_(std::move(rows)) {}
  bool eof() const override { return next_ >= rows_.size(); }
  // The first field of that name, as the register compares names.
  Variant field(std::string_view name) const override {
    if (eof()) noCurrentRecord();
    for (const auto& [fieldName, value] : rows_[next_]) {
      if (equalsIgnoringCase(fieldName, name)) return value;
    }
    throw AutomationError(client::kItemNotFound, client::kItemNotFoundText, kRecordingSource);
  }
  void moveNext() override {
    if (eof()) noCurrentRecord();
    ++next_;
  }

 private:
  [[noreturn]] static void noCurrentRecord() {
    throw AutomationError(client::kNoCurrentRecord, client::kNoCurrentRecordText, kRecordingSource);
  }

  std::vector<Row> rows_;
  std::size_t next_ = 0;
};

class RecordingConnection final : public client::Session {
 public:
  std::unique_ptr<client::Recordset> execute(std::string_view statement) override {
    if (closed_) {
      throw AutomationError(client::kConnectionClosed, client::kConnectionClosedText,
                            kRecordingSource);
    }
    RecordingScript& script = RecordingScript::instance();
    script.statements.emplace_back(statement);
    if (script.answers.empty()) return std::make_unique<RecordingRows>(std::vector<Row>{});
    auto answer = std::move(script.answers.front());
    script.answers.pop_front();
    if (auto* failure = std::get_if<AutomationError>(&answer)) throw *failure;
    return std::make_unique<RecordingRows>(std::get<std::vector<Row>>(std::move(answer)));
  }
  // Every call is seen to open and close a connection of its own.
  bool reusable() noexcept override { return false; }
  bool current() noexcept override { return true; }
  // Counts one close per connection, however often it is called.
  void close() noexcept override {
    if (closed_) return;
    closed_ = true;
    ++RecordingScript::instance().closed;
  }

 private:
  bool closed_ = false;
};

inline void registerRecordingProvider() {
  client::Provider provider;
  provider.open = [](const client::ConnectionString& cs) {
    if (cs.get("Fail")) {
      throw AutomationError(client::kCannotOpen, "Server does not exist or access denied.",
                            kRecordingSource);
    }
    ++RecordingScript::instance().opened;
    return std::unique_ptr<client::Session>(std::make_unique<RecordingConnection>());
  };
  client::registerProvider("Recording", std::move(provider));
  RecordingScript::instance().reset();
}

}  // namespace varnock::testing
