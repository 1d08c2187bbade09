// The register's SQLite schema (schema/sqlite.sql), built into the library so
// that creating a register reads no file but the one it makes.
#pragma once

#include <string_view>

namespace varnock::schema {

std::string_view registerSchemaSql() noexcept;

}  // namespace varnock::schema
