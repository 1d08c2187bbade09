// SPDX-License-Identifier: MIT
// The register's collation and LIKE on ASCII keys, the common case, beside
// SQLite's NOCASE and built-in LIKE on the same 10,000 keys in the same run:
// sorting, key lookups through an index, LIKE over every row, and the bare
// comparison. Two in-memory databases hold the same rows; only the one with
// the register's collation has it (and its like()) registered.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "client/sqlite/unicode_text.h"
#include "collation/compare.h"
#include "collation/like.h"
#include "support/ratio_reporter.h"

namespace {

constexpr int kKeys = 10000;

std::string keyOf(int i) {
  char key[32];
  std::snprintf(key, sizeof key, "%s%05d", i % 2 == 0 ? "User" : "uSER", (i * 7919) % kKeys);
  return key;
}

class Database {
 public:
  explicit Database(const char* collation, bool registered) {
    sqlite3_open(":memory:", &db_);
    if (registered) varnock::client::sqlite::registerUnicodeText(db_);
    const std::string type = std::string(" nvarchar(50) COLLATE ") + collation;
    run("CREATE TABLE keyed (k" + type + " NOT NULL PRIMARY KEY)");
    run("CREATE TABLE plain (k" + type + " NOT NULL)");
    run("BEGIN");
    for (int i = 0; i < kKeys; ++i) {
      run("INSERT INTO keyed VALUES ('" + keyOf(i) + "')");
      run("INSERT INTO plain VALUES ('" + keyOf(i) + "')");
    }
    run("COMMIT");
  }
  ~Database() { sqlite3_close(db_); }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  void run(const std::string& sql) {
    if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
      std::fprintf(stderr, "%s: %s\n", sql.c_str(), sqlite3_errmsg(db_));
    }
  }
  // Steps a statement (with `key` bound to ?1 when given) to its end; the
  // rows seen.
  int rows(sqlite3_stmt* statement, const std::string* key = nullptr) {
    if (key != nullptr) sqlite3_bind_text(statement, 1, key->data(), -1, SQLITE_STATIC);
    int count = 0;
    while (sqlite3_step(statement) == SQLITE_ROW)
      ++count;
    sqlite3_reset(statement);
    return count;
  }
  sqlite3_stmt* prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr) != SQLITE_OK) {
      std::fprintf(stderr, "%s: %s\n", sql, sqlite3_errmsg(db_));
    }
    return statement;
  }

 private:
  sqlite3* db_ = nullptr;
};

Database& nocase() {
  static Database db("NOCASE", false);
  return db;
}
Database& register_() {
  static Database db(varnock::client::sqlite::kCollationName, true);
  return db;
}

void sortEveryRow(benchmark::State& state, Database& db) {
  sqlite3_stmt* statement = db.prepare("SELECT k FROM plain ORDER BY k");
  for (auto _ : state) {
    if (db.rows(statement) != kKeys) state.SkipWithError("rows missing");
  }
  sqlite3_finalize(statement);
}
void BM_NocaseSort(benchmark::State& state) {
  sortEveryRow(state, nocase());
}
void BM_RegisterSort(benchmark::State& state) {
  sortEveryRow(state, register_());
}

// A lookup of a key in other letters than it was stored in.
void lookUpKeys(benchmark::State& state, Database& db) {
  sqlite3_stmt* statement = db.prepare("SELECT k FROM keyed WHERE k = ?1");
  std::vector<std::string> keys;
  for (int i = 0; i < 1000; ++i)
    keys.push_back("USER" + keyOf(i * 10).substr(4));
  for (auto _ : state) {
    for (const std::string& key : keys) {
      if (db.rows(statement, &key) != 1) state.SkipWithError("a key was not found");
    }
  }
  sqlite3_finalize(statement);
}
void BM_NocaseLookup1000(benchmark::State& state) {
  lookUpKeys(state, nocase());
}
void BM_RegisterLookup1000(benchmark::State& state) {
  lookUpKeys(state, register_());
}

// The keys hold every number below 10,000 once; a tenth have 5 as their
// third digit.
void likeEveryRow(benchmark::State& state, Database& db) {
  sqlite3_stmt* statement = db.prepare("SELECT k FROM plain WHERE k LIKE '%R0_5%'");
  for (auto _ : state) {
    if (db.rows(statement) != kKeys / 10) state.SkipWithError("LIKE matched other rows");
  }
  sqlite3_finalize(statement);
}
void BM_BuiltinLike(benchmark::State& state) {
  likeEveryRow(state, nocase());
}
void BM_RegisterLike(benchmark::State& state) {
  likeEveryRow(state, register_());
}

// The bare comparison of keys that differ in case and in their last digits.
std::vector<std::string> comparedKeys() {
  std::vector<std::string> keys;
  for (int i = 0; i < 1000; ++i)
    keys.push_back(keyOf(i));
  return keys;
}
void BM_NocaseCompare(benchmark::State& state) {
  const std::vector<std::string> keys = comparedKeys();
  for (auto _ : state) {
    int sum = 0;
    for (std::size_t i = 1; i < keys.size(); ++i) {
      const std::string& a = keys[i - 1];
      const std::string& b = keys[i];
      const int common =
          sqlite3_strnicmp(a.data(), b.data(), static_cast<int>(std::min(a.size(), b.size())));
      sum += common != 0 ? common : static_cast<int>(a.size()) - static_cast<int>(b.size());
    }
    benchmark::DoNotOptimize(sum);
  }
}
void BM_RegisterCompare(benchmark::State& state) {
  const std::vector<std::string> keys = comparedKeys();
  for (auto _ : state) {
    int sum = 0;
    for (std::size_t i = 1; i < keys.size(); ++i)
      sum += varnock::collation::compareWithoutCase(keys[i - 1], keys[i]);
    benchmark::DoNotOptimize(sum);
  }
}

BENCHMARK(BM_NocaseSort)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RegisterSort)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_NocaseLookup1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RegisterLookup1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BuiltinLike)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RegisterLike)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_NocaseCompare)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RegisterCompare)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  return varnock::bench::runComparisons(
      argc, argv,
      {{"BM_RegisterSort", "BM_NocaseSort", 1.3, "ORDER BY of 10,000 ASCII keys"},
       {"BM_RegisterLookup1000", "BM_NocaseLookup1000", 1.3, "1,000 key lookups by index"},
       {"BM_RegisterLike", "BM_BuiltinLike", 1.5, "LIKE '%R0_5%' over 10,000 keys"},
       {"BM_RegisterCompare", "BM_NocaseCompare", 1.5, "1,000 bare comparisons"}},
      {}, [] {
        nocase();
        register_();
      });
}
