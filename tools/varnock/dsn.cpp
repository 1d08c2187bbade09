#include "dsn.h"

#include <cstdlib>

namespace varnock::cli {

namespace {

constexpr const char* kDefaultRegister = "./register.db";

// Separators, quotes and surrounding blanks would change what the
// connection string parser reads back.
bool needsQuotes(std::string_view path) {
  if (path.empty()) return false;
  return path.find_first_of(";\"'") != std::string_view::npos || path.front() == ' ' ||
         path.back() == ' ';
}

}  // namespace

std::string sqliteConnectionString(std::string_view path) {
  std::string text = "Provider=SQLite;Data Source=";
  if (!needsQuotes(path)) return text.append(path);
  text += '"';
  for (const char c : path) {
    text += c;
    if (c == '"') text += '"';  // a doubled quote stands for one
  }
  text += '"';
  return text;
}

std::string connectionStringOf(std::string_view dsnOrPath) {
  if (dsnOrPath.find('=') != std::string_view::npos) return std::string(dsnOrPath);
  return sqliteConnectionString(dsnOrPath);
}

std::string chosenConnectionString(const std::optional<std::string>& option) {
  if (option) return connectionStringOf(*option);
  const char* fromEnvironment = std::getenv("VARNOCK_DSN");
  if (fromEnvironment != nullptr && *fromEnvironment != '\0') {
    return connectionStringOf(fromEnvironment);
  }
  return sqliteConnectionString(kDefaultRegister);
}

}  // namespace varnock::cli
