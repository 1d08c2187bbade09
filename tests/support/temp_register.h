// SPDX-License-Identifier: MIT
// Test hook: a new, empty register of the chosen back end (back_end.h),
// removed afterwards, with a way to put rows in with plain SQL. An SQLite
// register is a file in a temporary folder; a PostgreSQL register is a
// schema of its own in the test server's database. The folder exists for
// every back end, for the files a test writes beside the register.
#pragma once

#include <stdlib.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "client/client.h"
#include "client/session_pool.h"
#include "support/back_end.h"
#include "varnock/register.h"

#ifdef VARNOCK_POSTGRES_SERVER_SCRIPT
#include "support/postgres_server.h"
#endif

namespace varnock::testing {

class TempRegister {
 public:
  TempRegister() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "varnock-register-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
    path_ = folder_ / "register.db";
    switch (chosenBackEnd()) {
      case BackEnd::Sqlite:
        dsn_ = createRegister(path_.string());
        break;
      case BackEnd::SqliteOdbc:
        createRegister(path_.string());
        dsn_ = sqliteOdbcConnectionString(path_);
        break;
      case BackEnd::Postgres:
        makePostgresRegister();
        break;
    }
  }
  ~TempRegister() {
    // Sessions kept on a register that is going would only hold its file,
    // or a server connection, until they expire.
    client::closeIdleSessions();
#ifdef VARNOCK_POSTGRES_SERVER_SCRIPT
    if (!schema_.empty()) PostgresServer::shared().psql("DROP SCHEMA " + schema_ + " CASCADE");
#endif
    std::filesystem::remove_all(folder_);
  }
  TempRegister(const TempRegister&) = delete;
  TempRegister& operator=(const TempRegister&) = delete;

  const std::string& dsn() const {
    return dsn_;
  }
  // The register's file; only an SQLite register has one.
  const std::filesystem::path& path() const {
    return path_;
  }
  const std::filesystem::path& folder() const {
    return folder_;
  }

  // Drops the register and makes a new, empty one in its place, under the
  // same connection string.
  void recreate() {
    switch (chosenBackEnd()) {
      case BackEnd::Sqlite:
      case BackEnd::SqliteOdbc:
        for (const char* suffix : {"", "-wal", "-shm"})
          std::filesystem::remove(path_.string() + suffix);
        createRegister(path_.string());
        break;
      case BackEnd::Postgres:
#ifdef VARNOCK_POSTGRES_SERVER_SCRIPT
        PostgresServer::shared().psql("DROP SCHEMA " + schema_ + " CASCADE; CREATE SCHEMA " +
                                      schema_);
        createRegisterIn(dsn_);
#endif
        break;
    }
  }

  // Ends every server connection to the register's database from the server's
  // side, as a server restart or an administrator would; a register without
  // a server has none.
  void dropServerConnections() const {
#ifdef VARNOCK_POSTGRES_SERVER_SCRIPT
    if (chosenBackEnd() != BackEnd::Postgres) return;
    const PsqlRun dropped = PostgresServer::shared().psql(
        "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = "
        "current_database() AND pid <> pg_backend_pid() AND backend_type = 'client backend'");
    if (!dropped.ok) throw std::runtime_error("cannot end connections: " + dropped.error);
#endif
  }

  // Runs statements through the client, as a separate caller would.
  void run(std::initializer_list<std::string_view> statements) const {
    auto connection = client::open(dsn_);
    for (const std::string_view statement : statements)
      connection->execute(statement);
    connection->close();
  }

  // A register file through SQLite's ODBC driver, with the register's
  // collation loaded and foreign keys enforced, as the embedded provider
  // opens it. No provider is named: ADO's default is ODBC.
  static std::string sqliteOdbcConnectionString(const std::filesystem::path& file) {
#ifdef VARNOCK_SQLITE_EXTENSION_PATH
    return "Driver=SQLite3;Database=" + file.string() +
           ";NoCreat=1;FKSupport=1;LoadExt=" + VARNOCK_SQLITE_EXTENSION_PATH;
#else
    throw std::logic_error("this test program was built without the SQLite extension's path (" +
                           file.string() + ")");
#endif
  }

 private:
  // Every register is a schema of its own, found first by the connection's
  // search path; citext stays in public, shared by them all.
  void makePostgresRegister() {
#ifdef VARNOCK_POSTGRES_SERVER_SCRIPT
    static std::atomic<int> made{0};
    const PostgresServer& server = PostgresServer::shared();
    if (server.state() != PostgresServer::State::Running)
      throw std::runtime_error("no PostgreSQL server: " + server.problem());
    const std::string schema =
        "register_" + std::to_string(::getpid()) + "_" + std::to_string(++made);
    const PsqlRun created = server.psql("CREATE EXTENSION IF NOT EXISTS citext SCHEMA public; " +
                                        std::string("CREATE SCHEMA ") + schema);
    if (!created.ok) throw std::runtime_error("cannot make a PostgreSQL schema: " + created.error);
    schema_ = schema;
    const PostgresConnection& c = server.connection();
    dsn_ = "Driver={PostgreSQL Unicode};Server=" + c.host + ";Port=" + c.port +
           ";Database=" + c.database + ";UID=" + c.user + ";PWD=" + c.password +
           ";CommLog=0;ConnSettings=SET search_path TO " + schema + ",public";
    createRegisterIn(dsn_);
#else
    throw std::logic_error("this test program was built without the PostgreSQL server script");
#endif
  }

  std::filesystem::path folder_;
  std::filesystem::path path_;
  std::string dsn_;
  std::string schema_;  // a PostgreSQL register's
};

}  // namespace varnock::testing
