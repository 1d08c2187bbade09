// SPDX-License-Identifier: MIT
// Late-bound calls as a script host makes them, one per line of the input:
//   new Varnock.User               CreateObject; the new object is current
//   use 1                          makes the second object current
//   names GetEveryUser lngOffset   GetIDsOfNames on the current object
//   method|get|put|call MEMBER ARGUMENT...
//   invoke KIND MEMBER ARGUMENT... Invoke with a member kind as a number
// MEMBER is a name or #dispatch-id; an ARGUMENT is a value, NAME:=value or
// @id:=value. Values: null, empty, true, false, 12, 12s (16-bit), 1.5,
// $1.25 (currency), #5/4/2000# (date), date:36650.5 (serial), "text" ("" for
// a quote), dict:Key=value,Key=value, coll, obj:PROGID, or a bare word as
// text. Data methods run against a scratch register. Nothing may crash, hang
// or leak, and every failure is an AutomationError.
#include <sqlite3.h>

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "client/sqlite/unicode_text.h"
#include "fuzz_support.h"
#include "varnock/automation_error.h"
#include "varnock/collection.h"
#include "varnock/conversions.h"
#include "varnock/dictionary.h"
#include "varnock/host.h"
#include "varnock/register.h"

namespace {

using varnock::AutomationError;
using varnock::Record;
using varnock::Variant;

constexpr std::size_t kMaxObjects = 4;
constexpr std::size_t kMaxLines = 64;

// The connection strings an object may hold: the scratch register, one that
// names no register file, and ones that open nothing. Any other value a call
// puts is replaced before the next call, so that no data method ever reaches
// a database outside the scratch folder.
bool isSafeDsn(const std::string& dsn) {
  static const std::vector<std::string> safe = {
      varnock::fuzz::scratchRegister(),
      varnock::registerConnectionString(varnock::fuzz::scratchFolder() + "/missing.db"),
      Record::defaultConnectionString(),
      "",
      "Provider=SQLite",
      "Provider=Nonesuch;Data Source=x",
  };
  for (const std::string& s : safe) {
    if (s == dsn) return true;
  }
  return false;
}

// Empties every table of the register when another connection has changed
// it since the last time, so that each input starts from the same register.
class Wiper {
 public:
  Wiper() {
    const std::string path = varnock::fuzz::scratchRegisterPath();
    varnock::fuzz::scratchRegister();
    if (sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
      varnock::fuzz::fail("the scratch register opens", path);
    }
    // Deleting rows reaches the indexes of text keys, ordered by this collation.
    if (varnock::client::sqlite::registerUnicodeText(db_) != SQLITE_OK) {
      varnock::fuzz::fail("the register's collation is registered", path);
    }
    sqlite3_exec(db_, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
    version_ = dataVersion();
  }
  ~Wiper() { sqlite3_close_v2(db_); }
  Wiper(const Wiper&) = delete;
  Wiper& operator=(const Wiper&) = delete;

  void wipe() {
    if (dataVersion() == version_) return;
    // Children before their parents.
    sqlite3_exec(db_,
                 "BEGIN; DELETE FROM GroupMember; DELETE FROM ZoneAddress; DELETE FROM ZonePool;"
                 "DELETE FROM GroupCode; DELETE FROM [User]; DELETE FROM Zone;"
                 "DELETE FROM Country; DELETE FROM State; DELETE FROM Parm;"
                 "DELETE FROM ErrorLog; DELETE FROM LogFile; COMMIT;",
                 nullptr, nullptr, nullptr);
    version_ = dataVersion();
  }

 private:
  std::int64_t dataVersion() {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db_, "PRAGMA data_version", -1, &statement, nullptr);
    std::int64_t version = -1;
    if (sqlite3_step(statement) == SQLITE_ROW) version = sqlite3_column_int64(statement, 0);
    sqlite3_finalize(statement);
    return version;
  }

  sqlite3* db_ = nullptr;
  std::int64_t version_ = 0;
};

// The words of a line: blank-separated, a "..." word keeps its blanks and
// reads "" as one quote.
std::vector<std::string> wordsOf(std::string_view line) {
  std::vector<std::string> words;
  std::size_t i = 0;
  while (i < line.size()) {
    if (line[i] == ' ' || line[i] == '\t' || line[i] == '\r') {
      ++i;
      continue;
    }
    std::string word;
    bool quoted = false;
    while (i < line.size() && (quoted || (line[i] != ' ' && line[i] != '\t'))) {
      if (line[i] == '"') {
        if (quoted && i + 1 < line.size() && line[i + 1] == '"') {
          word += '"';
          ++i;
        } else {
          quoted = !quoted;
        }
        word += '"';
      } else {
        word += line[i];
      }
      ++i;
    }
    words.push_back(std::move(word));
  }
  return words;
}

template <class T>
std::optional<T> integerOf(std::string_view text) {
  T value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

// A "..." word's text: the quotes around it gone, doubled quotes single.
std::string unquoted(std::string_view word) {
  std::string text;
  for (std::size_t i = 1; i + 1 < word.size(); ++i) {
    text += word[i];
    if (word[i] == '"' && word[i + 1] == '"') ++i;
  }
  return text;
}

Variant valueOf(std::string_view word, bool nested = false) {
  if (word == "null") return Variant::null();
  if (word == "empty") return Variant::empty();
  if (word == "true") return Variant(true);
  if (word == "false") return Variant(false);
  if (word.size() >= 2 && word.front() == '"' && word.back() == '"') return Variant(unquoted(word));
  if (word.size() >= 2 && word.front() == '#' && word.back() == '#') {
    if (const auto date = varnock::parseDate(word.substr(1, word.size() - 2))) {
      return Variant(*date);
    }
  }
  if (word.starts_with("date:")) {
    if (const auto serial = varnock::parseNumber(word.substr(5))) {
      return Variant(varnock::Date{*serial});
    }
  }
  if (word.starts_with("$")) {
    if (const auto amount = varnock::parseNumber(word.substr(1))) {
      return Variant(varnock::Currency::fromDouble(*amount));
    }
  }
  if (word.ends_with("s")) {
    if (const auto small = integerOf<std::int16_t>(word.substr(0, word.size() - 1))) {
      return Variant(*small);
    }
  }
  if (const auto whole = integerOf<std::int32_t>(word)) return Variant(*whole);
  if (const auto number = varnock::parseNumber(word)) return Variant(*number);
  if (nested) return Variant(word);
  // Containers and objects are made new for the call; the driver keeps no
  // other reference to them, so no call can close a cycle of references.
  if (word == "coll") return Variant(std::make_shared<varnock::Collection>());
  if (word.starts_with("obj:")) return Variant(varnock::CreateObject(word.substr(4)));
  if (word.starts_with("dict:")) {
    auto dictionary = std::make_shared<varnock::Dictionary>();
    std::string_view entries = word.substr(5);
    while (!entries.empty()) {
      const std::size_t comma = entries.find(',');
      const std::string_view entry = entries.substr(0, comma);
      const std::size_t equals = entry.find('=');
      dictionary->SetItem(std::string(entry.substr(0, equals)),
                          equals == std::string_view::npos
                              ? Variant::empty()
                              : valueOf(entry.substr(equals + 1), true));
      entries = comma == std::string_view::npos ? std::string_view() : entries.substr(comma + 1);
    }
    return Variant(dictionary);
  }
  return Variant(word);
}

class Script {
 public:
  void run(std::string_view text) {
    std::size_t lines = 0;
    while (!text.empty() && lines++ < kMaxLines) {
      const std::size_t end = text.find('\n');
      const std::string_view line = text.substr(0, end);
      text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
      try {
        step(wordsOf(line));
      } catch (const AutomationError&) {
        // The failure every call may end in; anything else ends the run.
      }
      for (const auto& object : objects_) {
        if (!isSafeDsn(object->get_DSN())) object->put_DSN(varnock::fuzz::scratchRegister());
      }
    }
  }

 private:
  void step(const std::vector<std::string>& words) {
    if (words.empty()) return;
    const std::string& verb = words[0];
    if (verb == "new" && words.size() >= 2) {
      auto object = varnock::CreateObject(words[1]);
      object->put_DSN(varnock::fuzz::scratchRegister());
      if (objects_.size() == kMaxObjects) objects_.erase(objects_.begin());
      objects_.push_back(std::move(object));
      current_ = objects_.size() - 1;
      return;
    }
    if (objects_.empty()) return;
    Record& object = *objects_[current_];
    if (verb == "use" && words.size() >= 2) {
      current_ = integerOf<std::size_t>(words[1]).value_or(0) % objects_.size();
    } else if (verb == "names") {
      std::vector<std::string_view> names(words.begin() + 1, words.end());
      const std::vector<std::int32_t> ids = varnock::GetIDsOfNames(object, names);
      varnock::fuzz::check(ids.size() == names.size(), "every name has an identifier", verb);
    } else if (verb == "method" && words.size() >= 2) {
      invoke(object, varnock::kDispatchMethod, words, 1);
    } else if (verb == "get" && words.size() >= 2) {
      invoke(object, varnock::kDispatchPropertyGet, words, 1);
    } else if (verb == "put" && words.size() >= 2) {
      invoke(object, varnock::kDispatchPropertyPut, words, 1);
    } else if (verb == "call" && words.size() >= 2) {
      invoke(object, varnock::kDispatchMethod | varnock::kDispatchPropertyGet, words, 1);
    } else if (verb == "invoke" && words.size() >= 3) {
      invoke(object, integerOf<std::uint16_t>(words[1]).value_or(0), words, 2);
    }
  }

  static void invoke(Record& object, std::uint16_t kind, const std::vector<std::string>& words,
                     std::size_t at) {
    const std::string& member = words[at];
    std::int32_t id = 0;
    if (member.starts_with("#")) {
      id = integerOf<std::int32_t>(std::string_view(member).substr(1)).value_or(0);
    } else {
      id = varnock::GetIDsOfNames(object, {member})[0];
    }
    varnock::DispatchArguments arguments;
    for (std::size_t i = at + 1; i < words.size(); ++i) {
      const std::string_view word = words[i];
      const std::size_t named = word.starts_with('"') ? std::string_view::npos : word.find(":=");
      if (named == std::string_view::npos) {
        arguments.positional.push_back(valueOf(word));
        continue;
      }
      const std::string_view name = word.substr(0, named);
      std::int32_t argumentId = 0;
      if (name.starts_with("@")) {
        argumentId = integerOf<std::int32_t>(name.substr(1)).value_or(0);
      } else {
        argumentId = varnock::GetIDsOfNames(object, {member, name})[1];
      }
      arguments.named.emplace_back(argumentId, valueOf(word.substr(named + 2)));
    }
    static_cast<void>(varnock::Invoke(object, id, kind, arguments));
  }

  std::vector<std::shared_ptr<Record>> objects_;
  std::size_t current_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > varnock::fuzz::kMaxInputSize) return 0;
  static Wiper wiper;
  wiper.wipe();
  varnock::fuzz::keepEventLogSmall();
  Script().run(varnock::fuzz::textOf(data, size));
  return 0;
}
