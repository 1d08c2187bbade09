// SPDX-License-Identifier: MIT
// GetUser, GetEveryUser (a page of 10 and the whole table) and AddUser
// through the record classes over ODBC, on an SQLite register through
// SQLite's driver and on a PostgreSQL register through PostgreSQL's, each
// beside plain ODBC calls sending the same statements as the provider hands
// them to the driver on one connection kept for the run; and GetUser with
// sessions not kept beside plain ODBC connecting for each call, in the same
// run. The statements are those the record objects sent (read from
// the SQL trace), carried over by the dialect the provider picks with the
// register's schema read as the provider reads it. The PostgreSQL server is
// the program's own, made by tests/support/postgres_server.sh and stopped
// at exit; without PostgreSQL its cases are skipped.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "client/connection_string.h"
#include "client/dialect/database_dialect.h"
#include "client/odbc/odbc_login.h"
#include "support/bench_register.h"
#include "support/postgres_server.h"
#include "support/ratio_reporter.h"
#include "support/raw_odbc.h"
#include "varnock/register.h"
#include "varnock/sql_trace.h"
#include "varnock/varnock.h"

namespace {

using varnock::bench::RawOdbcConnection;
using varnock::bench::RawRow;
using varnock::bench::rawUtf16;

constexpr int kUsers = 100;
constexpr int kPageOffset = 21;  // the third page
constexpr int kPageSize = 10;
constexpr const char* kKey = "user00050";
// The name AddUser's statement is captured with; each call puts its own there.
constexpr const char* kMarker = "odbcbenchmarker";

// One JSON string value, starting at its opening quote. The trace escapes
// quotes, backslashes and control characters; the rest is as written.
std::string jsonString(const std::string& line, std::size_t at) {
  std::string out;
  for (++at; at < line.size() && line[at] != '"'; ++at) {
    if (line[at] != '\\') {
      out.push_back(line[at]);
      continue;
    }
    const char escaped = line.at(++at);
    switch (escaped) {
      case 'n':
        out.push_back('\n');
        break;
      case 't':
        out.push_back('\t');
        break;
      case 'r':
        out.push_back('\r');
        break;
      case 'u': {
        const unsigned long code = std::stoul(line.substr(at + 1, 4), nullptr, 16);
        if (code >= 0x80) throw std::runtime_error("the trace holds a character this reader skips");
        out.push_back(static_cast<char>(code));
        at += 4;
        break;
      }
      default:
        out.push_back(escaped);
    }
  }
  return out;
}

// The statements `call` handed the database, from the SQL trace.
std::vector<std::string> tracedStatements(const std::function<void()>& call) {
  const std::string previous = varnock::sqlTrace();
  const std::filesystem::path file =
      std::filesystem::temp_directory_path() /
      ("varnock-odbc-bench-" + std::to_string(::getpid()) + ".jsonl");
  std::filesystem::remove(file);
  varnock::setSqlTrace(file.string());
  call();
  varnock::setSqlTrace(previous);
  std::vector<std::string> statements;
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t sql = line.find("\"sql\":");
    if (sql == std::string::npos || line.find("\"ok\":true") == std::string::npos)
      throw std::runtime_error("a traced statement failed: " + line);
    statements.push_back(jsonString(line, sql + 6));
  }
  std::filesystem::remove(file);
  return statements;
}

// A register reached through an ODBC driver, and the statements its driver
// receives for each measured call: the record objects' statements carried
// over by the dialect the driver's database name picks, with the schema
// read by that dialect's query, as the provider does on connecting.
class OdbcTarget {
 public:
  OdbcTarget(std::string label, std::string dsn)
      : label_(std::move(label)),
        dsn_(std::move(dsn)),
        driverText_(
            rawUtf16(varnock::client::odbc::odbcLogin(varnock::client::ConnectionString(dsn_))
                         .connectionString)) {
    const RawOdbcConnection connection(driverText_);
    dialect_ = varnock::client::dialect::dialectForDatabase(connection.dbmsName());
    if (dialect_ == nullptr) throw std::runtime_error(label_ + ": no dialect for the database");
    const auto text = [](const varnock::Variant& v) { return v.isString() ? v.asString() : ""; };
    if (!dialect_->schemaQuery.empty()) {
      for (const RawRow& row : connection.query(rawUtf16(dialect_->schemaQuery))) {
        if (row.size() >= 3) schema_.addColumn(text(row[0]), text(row[1]), text(row[2]));
      }
    }
    if (!schema_.hasTable("User")) throw std::runtime_error(label_ + ": the schema has no User");
  }

  const std::string& dsn() const { return dsn_; }
  const std::u16string& driverText() const { return driverText_; }

  std::u16string translated(std::string_view statement) const {
    return rawUtf16(dialect_->translate(statement, schema_));
  }

  // Runs statements written as the record objects write them, on one
  // connection in one transaction; not measured.
  void run(const std::vector<std::string>& statements) const {
    const RawOdbcConnection connection(driverText_);
    SQLSetConnectAttrW(connection.get(), SQL_ATTR_AUTOCOMMIT,
                       reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER);
    for (const std::string& statement : statements)
      connection.query(translated(statement));
    if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection.get(), SQL_COMMIT)))
      varnock::bench::rawOdbcFailure(SQL_HANDLE_DBC, connection.get(), "SQLEndTran");
  }

  // Captures what each measured call sends; the register must be filled.
  void capture() {
    varnock::User user;
    user.put_DSN(dsn_);
    user.put_Username(kKey);
    getUser = sent([&] {
      if (!user.GetUser()) throw std::runtime_error(label_ + ": GetUser found no user");
    });
    page = sent([&] { user.GetEveryUser("", "", kPageOffset, kPageSize); });
    every = sent([&] { user.GetEveryUser(); });
    varnock::bench::fillUser(user, dsn_, kMarker);
    const std::vector<std::u16string> added = sent([&] {
      if (!user.AddUser()) throw std::runtime_error(label_ + ": AddUser failed");
    });
    run({std::string("DELETE FROM [User] WHERE UserName = '") + kMarker + "'"});
    // The name is the only part that changes from one AddUser to the next.
    const std::u16string marker = rawUtf16(kMarker);
    const std::size_t at = added.size() == 1 ? added[0].find(marker) : std::u16string::npos;
    if (at == std::u16string::npos || added[0].find(marker, at + 1) != std::u16string::npos)
      throw std::runtime_error(label_ + ": AddUser's statement is not one INSERT naming the user");
    insertBefore = added[0].substr(0, at);
    insertAfter = added[0].substr(at + marker.size());
  }

  std::vector<std::u16string> getUser, page, every;
  std::u16string insertBefore, insertAfter;

 private:
  std::vector<std::u16string> sent(const std::function<void()>& call) const {
    std::vector<std::u16string> statements;
    for (const std::string& statement : tracedStatements(call)) {
      const std::string driverSees = dialect_->translate(statement, schema_);
      std::fprintf(stderr, "%s sends: %s\n", label_.c_str(), driverSees.c_str());
      statements.push_back(rawUtf16(driverSees));
    }
    if (statements.empty()) throw std::runtime_error(label_ + ": a call sent nothing");
    return statements;
  }

  std::string label_;
  std::string dsn_;
  std::u16string driverText_;
  const varnock::client::dialect::DatabaseDialect* dialect_ = nullptr;
  varnock::client::dialect::RegisterSchema schema_;
};

std::vector<std::string> fillStatements() {
  std::vector<std::string> inserts{"INSERT INTO [Country] VALUES ('Norway')"};
  char name[32];
  for (int i = 0; i < kUsers; ++i) {
    std::snprintf(name, sizeof name, "user%05d", i);
    inserts.push_back(varnock::bench::userRow(name));
  }
  return inserts;
}

// A target, or why there is none.
struct Prepared {
  std::unique_ptr<OdbcTarget> target;
  std::string problem;
};

Prepared prepared(const std::string& label, const std::function<std::string()>& makeRegister) {
  Prepared p;
  try {
    p.target = std::make_unique<OdbcTarget>(label, makeRegister());
    p.target->run(fillStatements());
    p.target->capture();
  } catch (const std::exception& e) {
    p.target.reset();
    p.problem = label + ": " + e.what();
  }
  return p;
}

const Prepared& sqlite() {
  static varnock::bench::BenchRegister file("odbc");
  static const Prepared p = prepared("SQLite", [] {
    return "Driver=SQLite3;Database=" + file.path() +
           ";NoCreat=1;FKSupport=1;LoadExt=" VARNOCK_SQLITE_EXTENSION_PATH;
  });
  return p;
}

// A register in a schema of its own in the server's database; citext stays
// in public, where the register's domains find it.
const Prepared& postgres() {
  static const Prepared p = prepared("PostgreSQL", []() -> std::string {
    using varnock::testing::PostgresServer;
    const PostgresServer& server = PostgresServer::shared();
    if (server.state() != PostgresServer::State::Running)
      throw std::runtime_error("no PostgreSQL server (" + server.problem() + ")");
    const varnock::testing::PsqlRun made =
        server.psql("CREATE EXTENSION IF NOT EXISTS citext SCHEMA public; CREATE SCHEMA bench");
    if (!made.ok) throw std::runtime_error("cannot make the schema: " + made.error);
    const varnock::testing::PostgresConnection& c = server.connection();
    const std::string dsn = "Driver={PostgreSQL Unicode};Server=" + c.host + ";Port=" + c.port +
                            ";Database=" + c.database + ";UID=" + c.user + ";PWD=" + c.password +
                            ";CommLog=0;ConnSettings=SET search_path TO bench,public";
    varnock::createRegisterIn(dsn);
    return dsn;
  });
  return p;
}

using Target = const Prepared& (*)();

// The prepared target, or nullptr with the benchmark skipped and told why.
const OdbcTarget* targetFor(benchmark::State& state, Target which) {
  const Prepared& p = which();
  if (!p.target) state.SkipWithError(p.problem.c_str());
  return p.target.get();
}

// Runs `body` once per iteration; a failure stops the benchmark with its text.
template <class Body>
void measure(benchmark::State& state, Body body) {
  try {
    for (auto _ : state) {
      if (!body()) break;
    }
  } catch (const std::exception& e) {
    state.SkipWithError(e.what());
  }
}

bool expectRows(benchmark::State& state, std::size_t rows, std::size_t expected) {
  if (rows == expected) return true;
  state.SkipWithError("a call read another number of rows than expected");
  return false;
}

void BM_RawGetUser(benchmark::State& state, Target which) {
  const OdbcTarget* t = targetFor(state, which);
  if (t == nullptr) return;
  measure(state, [&] {
    return expectRows(state, varnock::bench::rawOdbcCall(t->driverText(), t->getUser).size(), 1);
  });
}
void BM_GetUser(benchmark::State& state, Target which) {
  const OdbcTarget* t = targetFor(state, which);
  if (t == nullptr) return;
  varnock::User user;
  user.put_DSN(t->dsn());
  user.put_Username(kKey);
  measure(state, [&] {
    if (user.GetUser()) return true;
    state.SkipWithError("GetUser found no user");
    return false;
  });
}

void BM_RawPage(benchmark::State& state, Target which) {
  const OdbcTarget* t = targetFor(state, which);
  if (t == nullptr) return;
  measure(state, [&] {
    return expectRows(state, varnock::bench::rawOdbcCall(t->driverText(), t->page).size(),
                      kPageSize);
  });
}
void BM_GetEveryUserPage(benchmark::State& state, Target which) {
  const OdbcTarget* t = targetFor(state, which);
  if (t == nullptr) return;
  varnock::User user;
  user.put_DSN(t->dsn());
  measure(state, [&] {
    return expectRows(
        state, static_cast<std::size_t>(user.GetEveryUser("", "", kPageOffset, kPageSize)->Count()),
        kPageSize);
  });
}

void BM_RawEvery(benchmark::State& state, Target which) {
  const OdbcTarget* t = targetFor(state, which);
  if (t == nullptr) return;
  measure(state, [&] {
    return expectRows(state, varnock::bench::rawOdbcCall(t->driverText(), t->every).size(), kUsers);
  });
}
void BM_GetEveryUser(benchmark::State& state, Target which) {
  const OdbcTarget* t = targetFor(state, which);
  if (t == nullptr) return;
  varnock::User user;
  user.put_DSN(t->dsn());
  measure(state, [&] {
    return expectRows(state, static_cast<std::size_t>(user.GetEveryUser()->Count()), kUsers);
  });
}

// The rows added are taken out again afterwards, so the table the reading
// cases count keeps its size in any order of the cases.
void BM_RawAddUser(benchmark::State& state, Target which) {
  const OdbcTarget* t = targetFor(state, which);
  if (t == nullptr) return;
  static int n = 0;  // names stay unique across the runs of one program
  measure(state, [&] {
    varnock::bench::rawOdbcCall(
        t->driverText(),
        {t->insertBefore + rawUtf16("rawadd" + std::to_string(n++)) + t->insertAfter});
    return true;
  });
  t->run({"DELETE FROM [User] WHERE UserName LIKE 'rawadd%'"});
}
void BM_AddUser(benchmark::State& state, Target which) {
  const OdbcTarget* t = targetFor(state, which);
  if (t == nullptr) return;
  varnock::User user;
  varnock::bench::fillUser(user, t->dsn(), "");
  static int n = 0;  // names stay unique across the runs of one program
  measure(state, [&] {
    user.put_Username("add" + std::to_string(n++));
    if (user.AddUser()) return true;
    state.SkipWithError("AddUser failed");
    return false;
  });
  t->run({"DELETE FROM [User] WHERE UserName LIKE 'add%'"});
}

// The same statements on one ODBC connection kept for the whole run: what the
// data methods cost once their sessions are kept.
template <class Body>
void onKeptConnection(benchmark::State& state, Target which, Body body) {
  const OdbcTarget* t = targetFor(state, which);
  if (t == nullptr) return;
  try {
    const RawOdbcConnection connection(t->driverText());
    measure(state, [&] { return body(*t, connection); });
  } catch (const std::exception& e) {
    state.SkipWithError(e.what());
  }
}
void BM_KeptGetUser(benchmark::State& state, Target which) {
  onKeptConnection(state, which, [&](const OdbcTarget& t, const RawOdbcConnection& c) {
    return expectRows(state, c.query(t.getUser.front()).size(), 1);
  });
}
void BM_KeptPage(benchmark::State& state, Target which) {
  onKeptConnection(state, which, [&](const OdbcTarget& t, const RawOdbcConnection& c) {
    return expectRows(state, c.query(t.page.front()).size(), kPageSize);
  });
}
void BM_KeptEvery(benchmark::State& state, Target which) {
  onKeptConnection(state, which, [&](const OdbcTarget& t, const RawOdbcConnection& c) {
    return expectRows(state, c.query(t.every.front()).size(), kUsers);
  });
}
void BM_KeptAddUser(benchmark::State& state, Target which) {
  static int n = 0;  // names stay unique across the runs of one program
  onKeptConnection(state, which, [&](const OdbcTarget& t, const RawOdbcConnection& c) {
    c.query(t.insertBefore + rawUtf16("keptadd" + std::to_string(n++)) + t.insertAfter);
    return true;
  });
  if (const OdbcTarget* t = which().target.get()) {
    t->run({"DELETE FROM [User] WHERE UserName LIKE 'keptadd%'"});
  }
}

// GetUser with sessions never kept, against plain ODBC connecting for each
// call as it did before sessions were kept.
void BM_GetUserUnpooled(benchmark::State& state, Target which) {
  const OdbcTarget* t = targetFor(state, which);
  if (t == nullptr) return;
  varnock::User user;
  user.put_DSN(t->dsn() + ";OLE DB Services=-2");
  user.put_Username(kKey);
  measure(state, [&] {
    if (user.GetUser()) return true;
    state.SkipWithError("GetUser found no user");
    return false;
  });
}

// Real time: on PostgreSQL most of each call is the server's.
#define ODBC_CASE(function, label, target) \
  BENCHMARK_CAPTURE(function, label, target)->UseRealTime()->Unit(benchmark::kMicrosecond)

ODBC_CASE(BM_KeptGetUser, Sqlite, sqlite);
ODBC_CASE(BM_KeptPage, Sqlite, sqlite);
ODBC_CASE(BM_KeptEvery, Sqlite, sqlite);
ODBC_CASE(BM_KeptAddUser, Sqlite, sqlite);
ODBC_CASE(BM_GetUserUnpooled, Sqlite, sqlite);
ODBC_CASE(BM_KeptGetUser, Postgres, postgres);
ODBC_CASE(BM_KeptPage, Postgres, postgres);
ODBC_CASE(BM_KeptEvery, Postgres, postgres);
ODBC_CASE(BM_KeptAddUser, Postgres, postgres);
ODBC_CASE(BM_GetUserUnpooled, Postgres, postgres);
ODBC_CASE(BM_RawGetUser, Sqlite, sqlite);
ODBC_CASE(BM_GetUser, Sqlite, sqlite);
ODBC_CASE(BM_RawPage, Sqlite, sqlite);
ODBC_CASE(BM_GetEveryUserPage, Sqlite, sqlite);
ODBC_CASE(BM_RawEvery, Sqlite, sqlite);
ODBC_CASE(BM_GetEveryUser, Sqlite, sqlite);
ODBC_CASE(BM_RawAddUser, Sqlite, sqlite);
ODBC_CASE(BM_AddUser, Sqlite, sqlite);
ODBC_CASE(BM_RawGetUser, Postgres, postgres);
ODBC_CASE(BM_GetUser, Postgres, postgres);
ODBC_CASE(BM_RawPage, Postgres, postgres);
ODBC_CASE(BM_GetEveryUserPage, Postgres, postgres);
ODBC_CASE(BM_RawEvery, Postgres, postgres);
ODBC_CASE(BM_GetEveryUser, Postgres, postgres);
ODBC_CASE(BM_RawAddUser, Postgres, postgres);
ODBC_CASE(BM_AddUser, Postgres, postgres);

// The name Google Benchmark reports a case under.
std::string reported(const std::string& function, const std::string& label) {
  return function + "/" + label + "/real_time";
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<varnock::bench::Comparison> comparisons;
  for (const char* label : {"Sqlite", "Postgres"}) {
    const std::string on = std::string(" over ODBC, ") + label;
    comparisons.push_back({reported("BM_GetUser", label), reported("BM_KeptGetUser", label), 1.3,
                           "GetUser by key" + on + ", against a kept connection"});
    comparisons.push_back({reported("BM_GetEveryUserPage", label), reported("BM_KeptPage", label),
                           1.3, "GetEveryUser, a page of 10" + on + ", against a kept connection"});
    comparisons.push_back({reported("BM_GetEveryUser", label), reported("BM_KeptEvery", label), 1.3,
                           "GetEveryUser, 100 users" + on + ", against a kept connection"});
    comparisons.push_back({reported("BM_AddUser", label), reported("BM_KeptAddUser", label), 1.3,
                           "AddUser, all seventeen columns" + on + ", against a kept connection"});
    comparisons.push_back({reported("BM_GetUserUnpooled", label), reported("BM_RawGetUser", label),
                           1.3,
                           "GetUser, sessions not kept" + on + ", against connecting per call"});
  }
  // Each target is made when its first case runs, so a filtered run makes
  // only what it measures.
  return varnock::bench::runComparisons(argc, argv, std::move(comparisons), {},
                                        [] { varnock::setEventLog("stderr"); });
}
