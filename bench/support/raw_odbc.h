// SPDX-License-Identifier: MIT
// Benchmark support: plain ODBC calls doing what a data method does over
// ODBC with the same statement text (connect, run, read every field of every
// row into Variants, disconnect), as the baseline each measured operation is
// compared with. The environment is made once per process, as the provider
// makes its own. A failure throws: a baseline that quietly did nothing would
// flatter every ratio.
#pragma once

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "varnock/variant.h"

namespace varnock::bench {

using RawRow = std::vector<Variant>;

// UTF-8 to UTF-16 code units; for preparing statements, outside the timing.
inline std::u16string rawUtf16(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t c = length == 1 ? lead : lead & (0x3F >> (length - 1));
    for (std::size_t k = 1; k < length && i + k < utf8.size(); ++k)
      c = (c << 6) | (static_cast<unsigned char>(utf8[i + k]) & 0x3F);
    i += length;
    if (c >= 0x10000) {
      out.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
      out.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
    } else {
      out.push_back(static_cast<char16_t>(c));
    }
  }
  return out;
}

// UTF-16 code units to UTF-8, as every value read is kept.
inline std::string rawUtf8(const char16_t* text, std::size_t units) {
  std::string out;
  out.reserve(units);
  for (std::size_t i = 0; i < units; ++i) {
    char32_t c = text[i];
    if (c >= 0xD800 && c < 0xDC00 && i + 1 < units) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
    }
    if (c < 0x80) {
      out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
      out.push_back(static_cast<char>(0xC0 | (c >> 6)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
      out.push_back(static_cast<char>(0xE0 | (c >> 12)));
      out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
      out.push_back(static_cast<char>(0xF0 | (c >> 18)));
      out.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
  }
  return out;
}

// The driver manager's wide calls take non-const text they do not change.
inline SQLWCHAR* rawWide(const std::u16string& text) {
  return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text.data()));
}

// The first diagnostic of a handle, thrown with what was being done.
[[noreturn]] inline void rawOdbcFailure(SQLSMALLINT type, SQLHANDLE handle, const char* doing) {
  SQLWCHAR state[6] = {};
  SQLWCHAR message[1024] = {};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  std::string text = std::string("raw ODBC: ") + doing + " failed";
  if (handle != nullptr &&
      SQL_SUCCEEDED(SQLGetDiagRecW(type, handle, 1, state, &native, message,
                                   static_cast<SQLSMALLINT>(std::size(message)), &length))) {
    text += ": " + rawUtf8(reinterpret_cast<const char16_t*>(message),
                           std::min<std::size_t>(static_cast<std::size_t>(length),
                                                 std::size(message) - 1));
  }
  throw std::runtime_error(text);
}

inline SQLHENV rawOdbcEnvironment() {
  static const SQLHENV environment = [] {
    SQLHENV made = SQL_NULL_HENV;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &made)))
      rawOdbcFailure(SQL_HANDLE_ENV, nullptr, "SQLAllocHandle(ENV)");
    SQLSetEnvAttr(made, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    return made;
  }();
  return environment;
}

// One connection, connected at construction and disconnected at the end.
class RawOdbcConnection {
 public:
  explicit RawOdbcConnection(const std::u16string& connectionText) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, rawOdbcEnvironment(), &dbc_)))
      rawOdbcFailure(SQL_HANDLE_ENV, rawOdbcEnvironment(), "SQLAllocHandle(DBC)");
    if (!SQL_SUCCEEDED(SQLDriverConnectW(dbc_, nullptr, rawWide(connectionText),
                                         static_cast<SQLSMALLINT>(connectionText.size()), nullptr,
                                         0, nullptr, SQL_DRIVER_NOPROMPT))) {
      const SQLHDBC failed = dbc_;
      dbc_ = SQL_NULL_HDBC;
      try {
        rawOdbcFailure(SQL_HANDLE_DBC, failed, "SQLDriverConnectW");
      } catch (...) {
        SQLFreeHandle(SQL_HANDLE_DBC, failed);
        throw;
      }
    }
  }
  ~RawOdbcConnection() {
    if (dbc_ == SQL_NULL_HDBC) return;
    SQLDisconnect(dbc_);
    SQLFreeHandle(SQL_HANDLE_DBC, dbc_);
  }
  RawOdbcConnection(const RawOdbcConnection&) = delete;
  RawOdbcConnection& operator=(const RawOdbcConnection&) = delete;

  SQLHDBC get() const { return dbc_; }

  // SQL_DBMS_NAME: which database the driver reached.
  std::string dbmsName() const {
    SQLWCHAR name[128] = {};
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(dbc_, SQL_DBMS_NAME, name, sizeof name, &bytes)))
      rawOdbcFailure(SQL_HANDLE_DBC, dbc_, "SQLGetInfoW(SQL_DBMS_NAME)");
    return rawUtf8(reinterpret_cast<const char16_t*>(name),
                   std::min<std::size_t>(static_cast<std::size_t>(bytes) / 2, 127));
  }

  // Runs one statement and reads every field of every row: whole numbers
  // and bits as numbers, everything else as UTF-8 text.
  std::vector<RawRow> query(const std::u16string& sql) const {
    SQLHSTMT statement = SQL_NULL_HSTMT;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, dbc_, &statement)))
      rawOdbcFailure(SQL_HANDLE_DBC, dbc_, "SQLAllocHandle(STMT)");
    struct Freed {
      SQLHSTMT handle;
      ~Freed() { SQLFreeHandle(SQL_HANDLE_STMT, handle); }
    } freed{statement};
    const SQLRETURN ran =
        SQLExecDirectW(statement, rawWide(sql), static_cast<SQLINTEGER>(sql.size()));
    if (ran == SQL_NO_DATA) return {};  // a write that met no row
    if (!SQL_SUCCEEDED(ran)) rawOdbcFailure(SQL_HANDLE_STMT, statement, "SQLExecDirectW");
    SQLSMALLINT columns = 0;
    SQLNumResultCols(statement, &columns);
    std::vector<SQLSMALLINT> types(static_cast<std::size_t>(columns));
    for (SQLUSMALLINT c = 1; c <= columns; ++c) {
      SQLWCHAR name[256];
      SQLSMALLINT nameLength = 0, decimals = 0, nullable = 0;
      SQLULEN size = 0;
      if (!SQL_SUCCEEDED(SQLDescribeColW(statement, c, name, 256, &nameLength, &types[c - 1], &size,
                                         &decimals, &nullable))) {
        rawOdbcFailure(SQL_HANDLE_STMT, statement, "SQLDescribeColW");
      }
    }
    std::vector<RawRow> rows;
    if (columns == 0) return rows;
    char16_t piece[4096];
    for (;;) {
      const SQLRETURN fetched = SQLFetch(statement);
      if (fetched == SQL_NO_DATA) break;
      if (!SQL_SUCCEEDED(fetched)) rawOdbcFailure(SQL_HANDLE_STMT, statement, "SQLFetch");
      RawRow row;
      row.reserve(static_cast<std::size_t>(columns));
      for (SQLUSMALLINT c = 1; c <= columns; ++c) {
        SQLLEN indicator = 0;
        switch (types[c - 1]) {
          case SQL_TINYINT:
          case SQL_SMALLINT:
          case SQL_INTEGER:
          case SQL_BIGINT:
          case SQL_BIT: {
            std::int64_t number = 0;
            if (!SQL_SUCCEEDED(
                    SQLGetData(statement, c, SQL_C_SBIGINT, &number, sizeof number, &indicator)))
              rawOdbcFailure(SQL_HANDLE_STMT, statement, "SQLGetData");
            if (indicator == SQL_NULL_DATA) {
              row.push_back(Variant::null());
            } else {
              row.emplace_back(static_cast<std::int32_t>(number));
            }
            break;
          }
          default: {
            // Read in pieces: a piece that fills the buffer is followed by more.
            std::string text;
            bool isNull = false;
            for (;;) {
              const SQLRETURN got =
                  SQLGetData(statement, c, SQL_C_WCHAR, piece, sizeof piece, &indicator);
              if (got == SQL_NO_DATA) break;
              if (!SQL_SUCCEEDED(got)) rawOdbcFailure(SQL_HANDLE_STMT, statement, "SQLGetData");
              if (indicator == SQL_NULL_DATA) {
                isNull = true;
                break;
              }
              const std::size_t room = std::size(piece) - 1;
              const bool more =
                  indicator == SQL_NO_TOTAL || static_cast<std::size_t>(indicator) / 2 > room;
              text += rawUtf8(piece, more ? room : static_cast<std::size_t>(indicator) / 2);
              if (!more) break;
            }
            if (isNull) {
              row.push_back(Variant::null());
            } else {
              row.emplace_back(std::move(text));
            }
          }
        }
      }
      rows.push_back(std::move(row));
    }
    return rows;
  }

 private:
  SQLHDBC dbc_ = SQL_NULL_HDBC;
};

// Connects, runs the statements in turn, disconnects: one data method's
// connection. The rows are the last statement's.
inline std::vector<RawRow> rawOdbcCall(const std::u16string& connectionText,
                                       const std::vector<std::u16string>& statements) {
  const RawOdbcConnection connection(connectionText);
  std::vector<RawRow> rows;
  for (const std::u16string& statement : statements)
    rows = connection.query(statement);
  return rows;
}

}  // namespace varnock::bench
