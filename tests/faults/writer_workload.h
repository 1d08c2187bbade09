// SPDX-License-Identifier: MIT
// Test hook: the writer calls that the fault and load tests make on a
// register, and a model of what the register may hold after them.
//
// A step is one data method on one row ("AddUser u7 with v12"). A call that
// reported success must have taken effect; a call that failed may or may not
// have (a disk can fail after the commit record is down), so the model keeps,
// for every row a step touched, the set of states the row may be in, and
// compares the register file with it row by row.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace varnock::testing {

enum class Table { User, Country, Parm, Zone, GroupCode, GroupMember, LogFile };
enum class Verb { Add, Update, Delete, DeleteWhere };

struct Step {
  Table table;
  Verb verb;
  std::string key;    // the row's key, parts joined by '/'; a LogFile's message
  std::string value;  // what the row's other columns are made from
};

struct Outcome {
  bool ok = false;
  std::string lastError;  // the record's GetLastErrorMessage() after the call
};

// The data method's name, "AddUser" or "DeleteParm".
std::string methodOf(const Step& step);
// "AddUser('u7', 'v12')", for failure messages.
std::string describe(const Step& step);

// Runs the step's data method on a new record object of its table.
Outcome perform(const Step& step, const std::string& dsn);

// A row as read back from the register (its columns joined); nullopt for none.
using RowState = std::optional<std::string>;

class RegisterModel {
 public:
  // A call that reported success. False when it could not have succeeded from
  // any state the row may be in: the register had lost an earlier effect.
  bool succeeded(const Step& step);
  // A call that failed: the row may be as before or as after it.
  void failed(const Step& step);
  // Calls of several processes on one row, in an order no one saw: the row
  // may be in any of `states`.
  void rowIsOneOf(Table table, const std::string& key, std::set<RowState> states);
  // The state a step that takes effect leaves its row in.
  static RowState written(const Step& step);
  // Whether the row the step names may be missing.
  bool mayBeAbsent(const Step& step) const;
  // Rows whose state is not known exactly.
  std::size_t uncertainRows() const;
  std::size_t rows() const { return rows_.size(); }

  // Every difference between the register file and the model: a row in a
  // state no sequence of the calls leaves it in, a row that no call wrote, a
  // row written twice.
  std::vector<std::string> differencesFrom(const std::filesystem::path& file) const;

 private:
  std::map<std::pair<Table, std::string>, std::set<RowState>> rows_;
};

// The row the step names as the file holds it now.
RowState rowOf(const std::filesystem::path& file, const Step& step);

// SQLite's own verdict on the file: "ok", or what is wrong.
std::string integrityOf(const std::filesystem::path& file);

// The first column of every row of `query`, one a line.
std::string firstColumnOf(const std::filesystem::path& file, const std::string& query);

// The number of rows of a plain query's first column, for counts.
std::int64_t countOf(const std::filesystem::path& file, const std::string& query);

// Writer steps over every table, drawn from a seed. The same seed and prefix
// always give the same steps, whatever the calls reported, so that another
// process can replay them. Keys start with the prefix.
class StepSource {
 public:
  StepSource(std::uint64_t seed, std::string prefix);
  // The rows that later steps refer to: groups and users for memberships.
  std::vector<Step> parents() const;
  Step next();

 private:
  Step fresh(Table table);
  std::string freshValue();

  std::mt19937_64 random_;
  std::string prefix_;
  std::uint64_t made_ = 0;
  std::map<Table, std::vector<std::string>> present_;  // as if every call succeeded
  std::map<Table, std::vector<std::string>> gone_;
};

// A multiplier for the tests' counts: 1 unless VARNOCK_FAULT_SCALE says
// otherwise (the sanitizer build runs fewer calls).
double scale();
int scaled(int count);

}  // namespace varnock::testing
