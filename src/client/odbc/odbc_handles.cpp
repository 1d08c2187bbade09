// SPDX-License-Identifier: MIT
#include "client/odbc/odbc_handles.h"

#include <mutex>
#include <utility>

#include "client/client.h"
#include "client/odbc/odbc_api.h"
#include "client/odbc/odbc_errors.h"

namespace varnock::client::odbc {

namespace {

void freeEnvironment(void* handle) noexcept {
  SQLFreeHandle(SQL_HANDLE_ENV, handle);
}

}  // namespace

std::shared_ptr<void> environment(const std::string& source) {
  static std::mutex mutex;
  static std::shared_ptr<void> shared;
  std::lock_guard lock(mutex);
  if (shared) return shared;
  SQLHENV raw = SQL_NULL_HENV;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &raw))) {
    fail(kCannotOpen, "The ODBC driver manager cannot make an environment.", source);
  }
  std::shared_ptr<void> made(raw, freeEnvironment);
  if (!SQL_SUCCEEDED(SQLSetEnvAttr(raw, SQL_ATTR_ODBC_VERSION,
                                   reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0))) {
    raiseFrom(SQL_HANDLE_ENV, raw, source);
  }
  shared = std::move(made);
  return shared;
}

ConnectionHandle::ConnectionHandle(const std::string& source) : environment_(environment(source)) {
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, environment_.get(), &handle_))) {
    handle_ = SQL_NULL_HDBC;
    raiseFrom(SQL_HANDLE_ENV, environment_.get(), source);
  }
}

ConnectionHandle::~ConnectionHandle() {
  if (handle_ == SQL_NULL_HDBC) return;
  if (connected_) {
    // A transaction left open ends without effect; disconnecting would
    // otherwise be refused.
    SQLEndTran(SQL_HANDLE_DBC, handle_, SQL_ROLLBACK);
    SQLDisconnect(handle_);
  }
  SQLFreeHandle(SQL_HANDLE_DBC, handle_);
}

StatementHandle::StatementHandle(std::shared_ptr<ConnectionHandle> connection,
                                 const std::string& source)
    : connection_(std::move(connection)) {
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection_->get(), &handle_))) {
    handle_ = SQL_NULL_HSTMT;
    raiseFrom(SQL_HANDLE_DBC, connection_->get(), source);
  }
}

StatementHandle::~StatementHandle() {
  if (handle_ != SQL_NULL_HSTMT) SQLFreeHandle(SQL_HANDLE_STMT, handle_);
}

}  // namespace varnock::client::odbc
