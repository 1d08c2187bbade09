// SPDX-License-Identifier: MIT
// Owners of ODBC's handles: each is freed when its owner goes, on every path,
// and a connection handle is disconnected first when it was connected. A
// statement handle must go before the connection handle it was made on, and
// that before its environment; the owners below keep what they were made on
// alive for that reason.
#pragma once

#include <memory>
#include <string>

#include "client/odbc/odbc_api.h"

namespace varnock::client::odbc {

// The driver manager's environment, set to ODBC 3 behaviour; one for the
// process, made on first use. Raises kCannotOpen (with `source`) when the
// driver manager cannot make it.
std::shared_ptr<void> environment(const std::string& source);

class ConnectionHandle {
 public:
  // A new, unconnected handle on the process's environment. Raises
  // kCannotOpen when the driver manager cannot make one.
  explicit ConnectionHandle(const std::string& source);
  ~ConnectionHandle();
  ConnectionHandle(const ConnectionHandle&) = delete;
  ConnectionHandle& operator=(const ConnectionHandle&) = delete;

  SQLHDBC get() const noexcept { return handle_; }
  // Called once SQLDriverConnect has succeeded, so that the owner disconnects.
  void markConnected() noexcept { connected_ = true; }

 private:
  std::shared_ptr<void> environment_;
  SQLHDBC handle_ = SQL_NULL_HDBC;
  bool connected_ = false;
};

class StatementHandle {
 public:
  // Raises with the connection's diagnostics when no handle can be made.
  StatementHandle(std::shared_ptr<ConnectionHandle> connection, const std::string& source);
  ~StatementHandle();
  StatementHandle(const StatementHandle&) = delete;
  StatementHandle& operator=(const StatementHandle&) = delete;

  SQLHSTMT get() const noexcept { return handle_; }

 private:
  std::shared_ptr<ConnectionHandle> connection_;
  SQLHSTMT handle_ = SQL_NULL_HSTMT;
};

}  // namespace varnock::client::odbc
