// SPDX-License-Identifier: MIT
#include "faults/writer_workload.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <stdexcept>

#include "client/sqlite/unicode_text.h"
#include "varnock/varnock.h"

namespace varnock::testing {

namespace {

const char* nameOf(Table table) {
  switch (table) {
    case Table::User:
      return "User";
    case Table::Country:
      return "Country";
    case Table::Parm:
      return "Parm";
    case Table::Zone:
      return "Zone";
    case Table::GroupCode:
      return "GroupCode";
    case Table::GroupMember:
      return "GroupMember";
    case Table::LogFile:
      return "LogFile";
  }
  return "?";
}

constexpr Table kTables[] = {Table::User,      Table::Country,     Table::Parm,   Table::Zone,
                             Table::GroupCode, Table::GroupMember, Table::LogFile};

// Each table's rows as (key, state), in the forms the model keeps.
const char* readBackOf(Table table) {
  switch (table) {
    case Table::User:
      return "SELECT UserName, Lastname || '|' || Email || '|' || Authorized FROM \"User\"";
    case Table::Country:
      return "SELECT Country, '' FROM Country";
    case Table::Parm:
      return "SELECT Section || '/' || KeyName, Value FROM Parm";
    case Table::Zone:
      return "SELECT Zone, Test FROM Zone";
    case Table::GroupCode:
      return "SELECT GroupCode, \"Group\" FROM GroupCode";
    case Table::GroupMember:
      return "SELECT GroupCode || '/' || UserName, '' FROM GroupMember";
    case Table::LogFile:
      return "SELECT Message, Username FROM LogFile";
  }
  return "";
}

bool authorizedFor(const std::string& value) {
  return value.size() % 2 == 1;
}

// The state a step that takes effect leaves its row in, as read back.
std::string rowWritten(const Step& step) {
  switch (step.table) {
    case Table::User:
      return step.value + "|" + step.value + "@example.org|" +
             (authorizedFor(step.value) ? "1" : "0");
    case Table::Country:
    case Table::GroupMember:
      return "";
    case Table::Zone:
      return step.value == "1" ? "1" : "0";
    default:
      return step.value;
  }
}

std::pair<std::string, std::string> halves(const std::string& key) {
  const std::size_t slash = key.find('/');
  return {key.substr(0, slash), slash == std::string::npos ? "" : key.substr(slash + 1)};
}

std::string quoted(const std::string& text) {
  std::string out = "'";
  for (const char c : text) {
    out += c;
    if (c == '\'') out += '\'';
  }
  return out + "'";
}

// The condition that names the step's row, for the Delete(condition) calls.
std::string conditionOf(const Step& step) {
  const auto [first, second] = halves(step.key);
  switch (step.table) {
    case Table::User:
      return "UserName = " + quoted(step.key);
    case Table::Country:
      return "Country = " + quoted(step.key);
    case Table::Parm:
      return "Section = " + quoted(first) + " AND KeyName = " + quoted(second);
    case Table::Zone:
      return "Zone = " + quoted(step.key);
    case Table::GroupCode:
      return "GroupCode = " + quoted(step.key);
    case Table::GroupMember:
      return "GroupCode = " + quoted(first) + " AND UserName = " + quoted(second);
    case Table::LogFile:
      return "Message = " + quoted(step.key);
  }
  return "";
}

template <class R>
Outcome call(R& record, const Step& step, bool (R::*add)(), bool (R::*update)(),
             bool (R::*remove)(std::string_view)) {
  Outcome outcome;
  switch (step.verb) {
    case Verb::Add:
      outcome.ok = (record.*add)();
      break;
    case Verb::Update:
      outcome.ok = (record.*update)();
      break;
    case Verb::Delete:
      outcome.ok = (record.*remove)({});
      break;
    case Verb::DeleteWhere:
      outcome.ok = (record.*remove)(conditionOf(step));
      break;
  }
  outcome.lastError = record.GetLastErrorMessage();
  return outcome;
}

// An open register file, read with SQLite directly (and the register's
// collation) rather than through the library whose writes are being checked.
class File {
 public:
  explicit File(const std::filesystem::path& path) {
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
    db_.reset(raw);
    if (opened != SQLITE_OK) throw std::runtime_error("cannot open " + path.string());
    sqlite3_busy_timeout(raw, 30000);
    if (client::sqlite::registerUnicodeText(raw) != SQLITE_OK) {
      throw std::runtime_error("cannot compare texts in " + path.string());
    }
  }
  // Every row of `query` as texts, NULL as nullopt.
  std::vector<std::vector<RowState>> rows(const std::string& query) const {
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(db_.get(), query.c_str(), -1, &raw, nullptr) != SQLITE_OK) {
      throw std::runtime_error(query + ": " + sqlite3_errmsg(db_.get()));
    }
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(raw, sqlite3_finalize);
    std::vector<std::vector<RowState>> result;
    int stepped;
    while ((stepped = sqlite3_step(raw)) == SQLITE_ROW) {
      std::vector<RowState> row;
      for (int i = 0; i < sqlite3_column_count(raw); ++i) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(raw, i));
        row.push_back(text == nullptr ? RowState() : RowState(text));
      }
      result.push_back(std::move(row));
    }
    if (stepped != SQLITE_DONE) throw std::runtime_error(query + ": " + sqlite3_errmsg(db_.get()));
    return result;
  }

 private:
  std::unique_ptr<sqlite3, int (*)(sqlite3*)> db_{nullptr, sqlite3_close_v2};
};

std::string shown(const RowState& state) {
  return state ? "'" + *state + "'" : "no row";
}

}  // namespace

std::string methodOf(const Step& step) {
  static const char* const verbs[] = {"Add", "Update", "Delete", "Delete"};
  return verbs[static_cast<int>(step.verb)] + std::string(nameOf(step.table));
}

std::string describe(const Step& step) {
  std::string text = methodOf(step) + "(" + quoted(step.key);
  if (step.verb == Verb::DeleteWhere) text += ", condition";
  if (!step.value.empty() && (step.verb == Verb::Add || step.verb == Verb::Update)) {
    text += ", " + quoted(step.value);
  }
  return text + ")";
}

Outcome perform(const Step& step, const std::string& dsn) {
  const auto [first, second] = halves(step.key);
  switch (step.table) {
    case Table::User: {
      User r;
      r.put_DSN(dsn);
      r.put_Username(step.key);
      if (step.verb == Verb::Add || step.verb == Verb::Update) {
        r.put_Lastname(step.value);
        r.put_Country("Norway");
        r.put_Password("secret");
        r.put_Email(step.value + "@example.org");
        r.put_Authorized(authorizedFor(step.value));
      }
      return call(r, step, &User::AddUser, &User::UpdateUser, &User::DeleteUser);
    }
    case Table::Country: {
      Country r;
      r.put_DSN(dsn);
      r.put_Country(step.key);
      return call(r, step, &Country::AddCountry, &Country::UpdateCountry, &Country::DeleteCountry);
    }
    case Table::Parm: {
      Parm r;
      r.put_DSN(dsn);
      r.put_Section(first);
      r.put_KeyName(second);
      r.put_Value(step.value);
      r.put_Locked(false);
      return call(r, step, &Parm::AddParm, &Parm::UpdateParm, &Parm::DeleteParm);
    }
    case Table::Zone: {
      Zone r;
      r.put_DSN(dsn);
      r.put_Zone(step.key);
      r.put_Test(step.value == "1");
      return call(r, step, &Zone::AddZone, &Zone::UpdateZone, &Zone::DeleteZone);
    }
    case Table::GroupCode: {
      GroupCode r;
      r.put_DSN(dsn);
      r.put_GroupCode(step.key);
      r.put_Group(step.value);
      return call(r, step, &GroupCode::AddGroupCode, &GroupCode::UpdateGroupCode,
                  &GroupCode::DeleteGroupCode);
    }
    case Table::GroupMember: {
      GroupMember r;
      r.put_DSN(dsn);
      r.put_GroupCode(first);
      r.put_Username(second);
      return call(r, step, &GroupMember::AddGroupMember, &GroupMember::UpdateGroupMember,
                  &GroupMember::DeleteGroupMember);
    }
    case Table::LogFile: {
      LogFile r;
      r.put_DSN(dsn);
      r.put_ProgramName("writers");
      r.put_LogDate("5/4/2000 13:45");
      r.put_Username(step.value);
      r.put_Message(step.key);
      return call(r, step, &LogFile::AddLogFile, &LogFile::UpdateLogFile, &LogFile::DeleteLogFile);
    }
  }
  return {};
}

namespace {

RowState applied(const Step& step, const RowState& before) {
  switch (step.verb) {
    case Verb::Add:
      return before ? before : RowState(rowWritten(step));
    case Verb::Update:
      return before ? RowState(rowWritten(step)) : before;
    case Verb::Delete:
    case Verb::DeleteWhere:
      return std::nullopt;
  }
  return before;
}

// Whether the call can report success when its row is in state `before`: an
// insert needs the key free, a delete by key first finds the row.
bool canSucceed(const Step& step, const RowState& before) {
  switch (step.verb) {
    case Verb::Add:
      return !before;
    case Verb::Delete:
      return before.has_value();
    default:
      return true;
  }
}

// A row no step has touched yet is known to be missing.
std::set<RowState>& statesOf(std::map<std::pair<Table, std::string>, std::set<RowState>>& rows,
                             const Step& step) {
  auto [it, added] = rows.try_emplace({step.table, step.key});
  if (added) it->second.insert(std::nullopt);
  return it->second;
}

}  // namespace

bool RegisterModel::succeeded(const Step& step) {
  std::set<RowState>& states = statesOf(rows_, step);
  std::set<RowState> after;
  for (const RowState& before : states) {
    if (canSucceed(step, before)) after.insert(applied(step, before));
  }
  if (after.empty()) {
    // Take it in all the same, so that one lost effect is reported once.
    after.insert(applied(step, states.empty() ? RowState() : *states.begin()));
    states = std::move(after);
    return false;
  }
  states = std::move(after);
  return true;
}

void RegisterModel::failed(const Step& step) {
  std::set<RowState>& states = statesOf(rows_, step);
  std::set<RowState> after = states;
  for (const RowState& before : states)
    after.insert(applied(step, before));
  states = std::move(after);
}

void RegisterModel::rowIsOneOf(Table table, const std::string& key, std::set<RowState> states) {
  rows_[{table, key}] = std::move(states);
}

RowState RegisterModel::written(const Step& step) {
  return rowWritten(step);
}

bool RegisterModel::mayBeAbsent(const Step& step) const {
  const auto it = rows_.find({step.table, step.key});
  return it == rows_.end() || it->second.count(std::nullopt) > 0;
}

std::size_t RegisterModel::uncertainRows() const {
  return static_cast<std::size_t>(std::count_if(
      rows_.begin(), rows_.end(), [](const auto& row) { return row.second.size() > 1; }));
}

std::vector<std::string> RegisterModel::differencesFrom(const std::filesystem::path& path) const {
  std::vector<std::string> differences;
  const File file(path);
  for (const Table table : kTables) {
    std::map<std::string, std::vector<RowState>> found;
    for (const auto& row : file.rows(readBackOf(table)))
      found[row[0].value_or("")].push_back(row[1]);
    const std::string name = nameOf(table);
    for (const auto& [key, states] : found) {
      if (states.size() > 1) {
        differences.push_back(name + " " + quoted(key) + ": " + std::to_string(states.size()) +
                              " rows where calls wrote one");
      }
      if (rows_.count({table, key}) == 0) {
        differences.push_back(name + " " + quoted(key) + ": a row that no call wrote, " +
                              shown(states.front()));
      }
    }
    for (auto it = rows_.lower_bound({table, ""}); it != rows_.end() && it->first.first == table;
         ++it) {
      const std::string& key = it->first.second;
      const auto here = found.find(key);
      const RowState actual = here == found.end() ? RowState() : here->second.front();
      if (it->second.count(actual) > 0) continue;
      std::string expected;
      for (const RowState& state : it->second)
        expected += (expected.empty() ? "" : " or ") + shown(state);
      differences.push_back(name + " " + quoted(key) + ": the register holds " + shown(actual) +
                            " where the calls that reported success left " + expected);
    }
  }
  return differences;
}

RowState rowOf(const std::filesystem::path& path, const Step& step) {
  for (const auto& row : File(path).rows(readBackOf(step.table))) {
    if (row[0] == step.key) return row[1];
  }
  return std::nullopt;
}

std::string firstColumnOf(const std::filesystem::path& path, const std::string& query) {
  std::string text;
  for (const auto& row : File(path).rows(query)) {
    text += (text.empty() ? "" : "\n") + row[0].value_or("");
  }
  return text;
}

std::string integrityOf(const std::filesystem::path& path) {
  return firstColumnOf(path, "PRAGMA integrity_check");
}

std::int64_t countOf(const std::filesystem::path& path, const std::string& query) {
  const auto rows = File(path).rows(query);
  return static_cast<std::int64_t>(rows.size());
}

StepSource::StepSource(std::uint64_t seed, std::string prefix)
    : random_(seed), prefix_(std::move(prefix)) {}

namespace {

constexpr int kMembers = 3;  // users that memberships may name
constexpr const char* kGroups[] = {"staff", "guests"};

}  // namespace

std::vector<Step> StepSource::parents() const {
  std::vector<Step> steps;
  for (const char* group : kGroups)
    steps.push_back({Table::GroupCode, Verb::Add, prefix_ + group, group});
  for (int i = 0; i < kMembers; ++i) {
    steps.push_back({Table::User, Verb::Add, prefix_ + "member" + std::to_string(i),
                     "member" + std::to_string(i)});
  }
  return steps;
}

std::string StepSource::freshValue() {
  return prefix_ + "v" + std::to_string(made_++);
}

Step StepSource::fresh(Table table) {
  const std::string n = std::to_string(made_);
  switch (table) {
    case Table::User:
      return {table, Verb::Add, prefix_ + "u" + n, freshValue()};
    case Table::Country:
      return {table, Verb::Add, prefix_ + "c" + n, freshValue()};
    case Table::Parm:
      return {table, Verb::Add, prefix_ + "section/key" + n, freshValue()};
    case Table::Zone:
      return {table, Verb::Add, prefix_ + "z" + n, (made_++ % 2 == 0) ? "1" : "0"};
    case Table::GroupCode:
      return {table, Verb::Add, prefix_ + "g" + n, freshValue()};
    case Table::LogFile:
      // A message with an apostrophe: conditions that name it must quote it.
      return {table, Verb::Add, prefix_ + "it's entry " + n, freshValue()};
    case Table::GroupMember: {
      std::vector<std::string> free;
      const auto& present = present_[table];
      for (const char* group : kGroups) {
        for (int i = 0; i < kMembers; ++i) {
          std::string key = prefix_ + group + "/" + prefix_ + "member" + std::to_string(i);
          if (std::find(present.begin(), present.end(), key) == present.end()) {
            free.push_back(std::move(key));
          }
        }
      }
      if (free.empty()) return {table, Verb::Delete, present.front(), ""};
      ++made_;
      return {table, Verb::Add, free[random_() % free.size()], ""};
    }
  }
  return {};
}

Step StepSource::next() {
  // Users most, as the register's main table; every table some.
  static constexpr Table weighted[] = {Table::User,        Table::User,      Table::User,
                                       Table::Country,     Table::Parm,      Table::Parm,
                                       Table::Zone,        Table::GroupCode, Table::GroupMember,
                                       Table::GroupMember, Table::LogFile,   Table::LogFile};
  const Table table = weighted[random_() % std::size(weighted)];
  std::vector<std::string>& present = present_[table];
  std::vector<std::string>& gone = gone_[table];
  const bool updatable =
      table != Table::Country && table != Table::GroupMember && table != Table::LogFile;
  const auto pick = [&](std::vector<std::string>& from) -> std::string {
    return from[random_() % from.size()];
  };
  const unsigned roll = static_cast<unsigned>(random_() % 100);
  Step step;
  if (present.empty() || roll < 40) {
    step = fresh(table);
  } else if (roll < 65 && updatable) {
    step = {table, Verb::Update, pick(present),
            table == Table::Zone ? (roll % 2 ? "1" : "0") : freshValue()};
  } else if (roll < 90) {
    // A log has no key to delete by (a lookup by its whole row takes its
    // texts unquoted): its rows go by condition.
    const bool byCondition = roll % 3 == 0 || table == Table::LogFile;
    step = {table, byCondition ? Verb::DeleteWhere : Verb::Delete, pick(present), ""};
  } else if (roll < 95 && table != Table::LogFile) {
    // A key that is taken: refused by the database, nothing changes.
    step = {table, Verb::Add, pick(present), freshValue()};
  } else if (!gone.empty()) {
    // A row that is no longer there: a delete by key finds nothing.
    const bool byCondition = roll % 2 == 0 || table == Table::LogFile;
    step = {table, byCondition ? Verb::DeleteWhere : Verb::Delete, pick(gone), ""};
  } else {
    step = fresh(table);
  }
  if (step.verb == Verb::Add &&
      std::find(present.begin(), present.end(), step.key) == present.end()) {
    present.push_back(step.key);
    gone.erase(std::remove(gone.begin(), gone.end(), step.key), gone.end());
  } else if (step.verb == Verb::Delete || step.verb == Verb::DeleteWhere) {
    if (std::find(present.begin(), present.end(), step.key) != present.end()) {
      present.erase(std::remove(present.begin(), present.end(), step.key), present.end());
      gone.push_back(step.key);
    }
  }
  return step;
}

double scale() {
  const char* text = std::getenv("VARNOCK_FAULT_SCALE");
  const double value = text == nullptr ? 1.0 : std::atof(text);
  return value > 0 ? value : 1.0;
}

int scaled(int count) {
  return std::max(1, static_cast<int>(std::lround(count * scale())));
}

}  // namespace varnock::testing
